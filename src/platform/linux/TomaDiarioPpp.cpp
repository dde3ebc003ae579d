#include "TomaDiarioPpp.h"

#include "core/Archivo.h"
#include "core/Errores.h"
#include "monitor/PerfilEntrada.h"
#include "monitor/PropiasAnotadas.h"
#include "register/LogModem.h"

#include <fstream>
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

// The last call of the register in the place of call `i`, which goes.
void MoverUltimo(Log& log, int i) {
    std::vector<RegistroLlamada> todas;
    todas.reserve(static_cast<std::size_t>(log.Count()));
    for (int j = 0; j + 1 < log.Count(); ++j) {
        todas.push_back(log.Registro(j == i ? log.Count() - 1 : j));
    }
    log.BorrarLog();
    for (const RegistroLlamada& r : todas) {
        log.AñadirItem(r);
    }
}

// A call the meter recorded itself, put back where it was by the one the
// reader just appended for its session. Returns the call it replaced.
std::optional<std::pair<int, RegistroLlamada>> Corregir(Log& log, const PropiaAnotada& nota) {
    const int ultimo = log.Count() - 1;
    for (int i = ultimo - 1; i >= 0; --i) {
        const Fecha inicio = log.Dia(i).MasSegundos(log.Hora(i).SegundosDelDia());
        if (inicio == nota.Inicio && nota.Entrada.rfind(log.Conexion(i), 0) == 0) {
            std::pair<int, RegistroLlamada> antes{i, log.Registro(i)};
            MoverUltimo(log, i);
            return antes;
        }
    }
    return std::nullopt; // no longer in the register: the session is the call
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

bool TomaDiarioPpp::PuedeLlegar(const std::string& interfaz, int pid) const {
    if (!HaySesiones() || ::access(origen_.diario.c_str(), R_OK | X_OK) != 0) {
        return false; // no hook, or a user outside the dial-up group
    }
    if (pid <= 0) {
        return true; // cannot tell: waited for a bounded time
    }
    // The hook leaves IFACE-PID.inicio at ip-up and turns it into a session
    // at ip-down; without it, the hook never ran for this link.
    const std::string enlace = interfaz + "-" + std::to_string(pid);
    bool inicio = false;
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(origen_.diario, ec)) {
        const std::string n = e.path().filename().string();
        if (n.ends_with(".sesion") && n.find("-" + enlace + "-") != std::string::npos) {
            return true; // there already: the next look takes it
        }
        inicio = inicio || n == enlace + ".inicio";
    }
    return inicio && PppdVivo(pid);
}

void TomaDiarioPpp::Anotada(const LlamadaVista& v) {
    PropiasAnotadas(origen_.carpetaDatos).Añadir({v.Interfaz, v.Pid, v.Inicio, v.Fin, v.Entrada});
}

// A pppd that has exited, reaped or not, runs no ip-down any more.
bool TomaDiarioPpp::PppdVivo(int pid) const {
    std::ifstream f(origen_.proc / std::to_string(pid) / "stat");
    std::string texto;
    if (!f || !std::getline(f, texto)) {
        return false;
    }
    const auto cierre = texto.rfind(')');
    return cierre != std::string::npos && cierre + 2 < texto.size() && texto[cierre + 2] != 'Z';
}

TomaDiario::Resultado TomaDiarioPpp::Tomar(Log& log, const Settings& ajustes, cBono& bono,
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
    const PropiasAnotadas archivoNotas(origen_.carpetaDatos);
    std::vector<PropiaAnotada> notas;
    std::vector<std::pair<int, RegistroLlamada>> reemplazadas;
    bool notasCambiadas = false;
    try {
        notas = archivoNotas.Leer();
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
            const Fecha inicio = FechaLocal(s.inicio), fin = FechaLocal(s.fin);
            std::optional<std::pair<int, RegistroLlamada>> antes;
            if (const auto n = PropiasAnotadas::Buscar(notas, s.interfaz, s.pid, inicio, fin)) {
                antes = Corregir(log, notas[*n]);
                notas.erase(notas.begin() + static_cast<std::ptrdiff_t>(*n));
                notasCambiadas = true;
            }
            if (antes) {
                reemplazadas.push_back(std::move(*antes));
                ++r.Corregidas;
            } else {
                r.Entradas.push_back({inicio, s.Entrada(), s.interfaz, s.pid, fin});
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
        for (auto it = reemplazadas.rbegin(); it != reemplazadas.rend(); ++it) {
            log.AñadirItem(it->second);
            MoverUltimo(log, it->first);
        }
        while (log.Count() > entrada) {
            log.BorrarItem(log.Count() - 1);
        }
        bono.Copiar(bonoEntrada);
        Resultado fallo;
        fallo.Error = e.what();
        return fallo;
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
        if (notasCambiadas) {
            archivoNotas.Guardar(notas);
        }
    } catch (const Error& e) {
        r.Error = e.what();
    }
    return r;
}

} // namespace vorimesk
