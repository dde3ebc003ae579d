#include "ModemSimulado.h"

#include "core/Texto1252.h"
#include "platform/LineasModemLog.h"

namespace vorimesk {
namespace {

constexpr const char* kTtySimulado = "/dev/ttySIM0";

std::uint64_t Parte(std::uint64_t total, std::int64_t hecho, std::int64_t duracion) {
    if (duracion <= 0 || hecho >= duracion) {
        return total;
    }
    // 128-bit product: a long call with many bytes must not overflow.
    return static_cast<std::uint64_t>(static_cast<unsigned __int128>(total) *
                                      static_cast<std::uint64_t>(hecho) /
                                      static_cast<std::uint64_t>(duracion));
}

} // namespace

ModemSimulado::ModemSimulado(Guion guion, const Reloj& reloj, std::filesystem::path rutaLog)
    : guion_(std::move(guion)), pasos_(guion_.Pasos()), reloj_(reloj), rutaLog_(std::move(rutaLog)),
      inicioPaso_(reloj.Ahora()) {}

bool ModemSimulado::EnCurso() const {
    return paso_ < pasos_.size() && pasos_[paso_].tipo != PasoGuion::Tipo::Espera;
}

Fecha ModemSimulado::Conexion() const {
    return inicioPaso_.MasSegundos(pasos_[paso_].marcar);
}

Trafico ModemSimulado::TraficoHasta(Fecha ahora) const {
    const PasoGuion& p = pasos_[paso_];
    const std::int64_t hecho = ahora.Segundos() - Conexion().Segundos();
    return {Parte(p.trafico.recibidos, hecho, p.conectado),
            Parte(p.trafico.enviados, hecho, p.conectado)};
}

void ModemSimulado::Anexar(const std::string& bloque) {
    AnexarModemLog(rutaLog_, bloque);
}

void ModemSimulado::Avanzar(Fecha ahora) {
    while (paso_ < pasos_.size()) {
        const PasoGuion& p = pasos_[paso_];
        const bool llamada = p.tipo == PasoGuion::Tipo::Llamada;
        if (llamada && !subido_ && ahora >= Conexion()) {
            Anexar(BloqueSubida(Conexion(), {p.interfaz, kTtySimulado, p.entrada, p.velocidad}));
            subido_ = true;
        }
        const Fecha fin = inicioPaso_.MasSegundos(p.Duracion());
        if (ahora < fin) {
            return;
        }
        if (llamada) {
            Anexar(BloqueBajada(fin, p.trafico));
            entradaUltima_ = p.entrada;
            traficoUltimo_ = p.trafico;
            sesionUltima_ = {p.interfaz, static_cast<long>(paso_) + 1, 0};
        }
        if (p.tipo != PasoGuion::Tipo::Espera) {
            trasLlamada_ = llamada;
        }
        inicioPaso_ = fin;
        ++paso_;
        subido_ = false;
    }
}

LecturaConexion ModemSimulado::Leer() {
    const Fecha ahora = reloj_.Ahora();
    Avanzar(ahora);
    if (EnCurso()) {
        const PasoGuion& p = pasos_[paso_];
        if (!subido_) {
            return Lectura(1, LecturaConexion::kConectando, p.entrada, std::nullopt);
        }
        // Every step is a session of its own, as a re-created interface is.
        return Lectura(1, LecturaConexion::kConectado, p.entrada, TraficoHasta(ahora),
                       {p.interfaz, static_cast<long>(paso_) + 1, 0});
    }
    // The end of a call is told on one look, then the line is idle.
    if (!trasLlamada_) {
        return {};
    }
    trasLlamada_ = false;
    return Lectura(0, LecturaConexion::kDesconectado, entradaUltima_, traficoUltimo_,
                   sesionUltima_);
}

void ModemSimulado::Marcar(const std::string& entrada) {
    marcadas_.push_back(entrada);
}

int ModemSimulado::Colgar(const std::string& entrada) {
    const Fecha ahora = reloj_.Ahora();
    Avanzar(ahora);
    if (!EnCurso() || Recortar(pasos_[paso_].entrada) != Recortar(entrada)) {
        return 0;
    }
    PasoGuion& p = pasos_[paso_];
    if (subido_) {
        p.trafico = TraficoHasta(ahora);
        p.conectado = ahora.Segundos() - Conexion().Segundos();
    } else {
        p.tipo = PasoGuion::Tipo::Fallo;
        p.marcar = ahora.Segundos() - inicioPaso_.Segundos();
        p.conectado = 0;
    }
    Avanzar(ahora);
    return 1;
}

std::vector<Modem> ModemSimulado::Modems() const {
    std::vector<std::string> modelos = guion_.Modems();
    if (modelos.empty()) {
        modelos.push_back("Modem simulado");
    }
    std::vector<Modem> modems;
    for (std::size_t i = 0; i < modelos.size(); ++i) {
        modems.push_back({"sim" + std::to_string(i), modelos[i], rutaLog_});
    }
    return modems;
}

} // namespace vorimesk
