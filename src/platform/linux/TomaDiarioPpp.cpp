#include "TomaDiarioPpp.h"

#include "core/Archivo.h"
#include "core/Errores.h"
#include "monitor/PerfilEntrada.h"
#include "register/LogModem.h"

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// The line that says the old shared log has been read.
constexpr const char* kMarcaAntiguo = "#modemlog-antiguo";

std::set<std::string> LeerTomadas(const fs::path& ruta) {
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        return {};
    }
    // Unreadable, it would give every session again: better stop.
    const std::string texto = LeerArchivo(ruta);
    std::set<std::string> nombres;
    std::size_t inicio = 0;
    while (inicio < texto.size()) {
        auto fin = texto.find('\n', inicio);
        fin = fin == std::string::npos ? texto.size() : fin;
        if (fin > inicio) {
            nombres.insert(texto.substr(inicio, fin - inicio));
        }
        inicio = fin + 1;
    }
    return nombres;
}

void GuardarTomadas(const fs::path& ruta, const std::set<std::string>& nombres) {
    std::string texto;
    for (const std::string& n : nombres) {
        texto += n + "\n";
    }
    EscribirArchivoSeguro(ruta, texto, kSoloUsuario);
}

// Through the register's reader, as the modem log of the data folder.
bool LeerComoModemLog(Log& log, const std::string& texto, const Settings& ajustes, cBono& bono,
                      colConexion& pendientes) {
    EscribirArchivoSeguro(log.NombreLog(), texto, kSoloUsuario);
    return log.AñadirLog(bono, ajustes.Festivos, pendientes);
}

// The log up to the line of its last "in use".
std::string SinUltimaSesion(const std::string& texto) {
    const auto enUso = texto.rfind(kModemEnUso);
    if (enUso == std::string::npos) {
        return {};
    }
    const auto linea = texto.rfind('\n', enUso);
    return linea == std::string::npos ? std::string() : texto.substr(0, linea + 1);
}

// The old log only when it is a plain file of root's (the old hook) or of
// this user: that folder let anyone put files there.
std::optional<std::string> LeerAntiguo(const fs::path& ruta) {
    struct stat s {};
    if (::lstat(ruta.c_str(), &s) != 0 || !S_ISREG(s.st_mode) ||
        (s.st_uid != 0 && s.st_uid != ::getuid())) {
        return std::nullopt;
    }
    try {
        return LeerArchivo(ruta);
    } catch (const ErrorArchivo&) {
        return std::nullopt;
    }
}

} // namespace

TomaDiarioPpp::TomaDiarioPpp(OrigenSesiones origen) : origen_(std::move(origen)) {}

bool TomaDiarioPpp::TomarAntiguo(Log& log, const Settings& ajustes, cBono& bono,
                                 colConexion& pendientes) {
    const auto texto = LeerAntiguo(origen_.modemLogAntiguo);
    if (!texto) {
        return false;
    }
    // Its calls are matched with the pending connections the settings kept.
    // A last session it left open can never end now, and would keep the
    // reader from giving the finished ones: they are read without it.
    if (!LeerComoModemLog(log, *texto, ajustes, bono, pendientes)) {
        const std::string cerradas = SinUltimaSesion(*texto);
        if (cerradas.empty() || !LeerComoModemLog(log, cerradas, ajustes, bono, pendientes)) {
            BorrarArchivo(log.NombreLog());
        }
    }
    std::error_code ec;
    fs::remove(origen_.modemLogAntiguo, ec); // as the old reader did, where it may
    return true;
}

bool TomaDiarioPpp::HaySesiones() const {
    std::error_code ec;
    return fs::is_directory(origen_.diario, ec);
}

TomaSesiones::Resultado TomaDiarioPpp::Tomar(Log& log, const Settings& ajustes, cBono& bono,
                                             colConexion& pendientes) {
    Resultado r;
    if (log.NombreLog().empty()) {
        r.Error = std::string(kMensajeSinOrigenLog);
        return r;
    }
    const fs::path rutaTomadas = origen_.carpetaDatos / kArchivoTomadas;
    std::set<std::string> tomadas;
    try {
        tomadas = LeerTomadas(rutaTomadas);
    } catch (const Error& e) {
        r.Error = e.what();
        return r;
    }
    const int entrada = log.Count();
    const cBono bonoEntrada(bono);
    bool antiguo = false;
    std::set<std::string> nuevas;
    std::optional<std::set<std::string>> listadas; // all the journal holds
    try {
        if (!tomadas.contains(kMarcaAntiguo)) {
            antiguo = TomarAntiguo(log, ajustes, bono, pendientes);
        }
        const LecturaDiario diario = LeerDiario(origen_.diario, tomadas);
        r.Error = diario.error;
        if (diario.error.empty()) {
            listadas = diario.nombres;
        }
        for (const SesionPpp& s : diario.sesiones) {
            const PerfilEntrada perfil = BuscarPerfilEntrada(ajustes, s.Entrada());
            pendientes.Add(FechaLocal(s.inicio), perfil.Tarifa, perfil.Descuento, s.Entrada());
            if (!LeerComoModemLog(log, ModemLogDeSesion(s), ajustes, bono, pendientes)) {
                throw Error("la sesion " + s.nombre + " del diario de pppd no da ninguna llamada");
            }
            nuevas.insert(s.nombre);
            ++r.Tomadas;
            r.UltimoFin = FechaLocal(s.fin);
        }
    } catch (const Error& e) {
        r.Error = e.what();
    }
    if (nuevas.empty() && !antiguo) {
        return r;
    }
    try {
        log.SalvarLog();
    } catch (const Error& e) {
        // Not saved, not taken: the next run gives these calls again.
        while (log.Count() > entrada) {
            log.BorrarItem(log.Count() - 1);
        }
        bono.Copiar(bonoEntrada);
        return Resultado{0, 0, std::nullopt, e.what()};
    }
    r.Añadidas = log.Count() - entrada;
    // Records the hook pruned are gone for good: they leave the memory too.
    if (listadas) {
        std::erase_if(tomadas, [&](const std::string& n) {
            return n != kMarcaAntiguo && !listadas->contains(n);
        });
    }
    tomadas.insert(nuevas.begin(), nuevas.end());
    if (antiguo) {
        tomadas.insert(kMarcaAntiguo);
    }
    try {
        GuardarTomadas(rutaTomadas, tomadas);
    } catch (const Error& e) {
        r.Error = e.what();
    }
    return r;
}

} // namespace vorimesk
