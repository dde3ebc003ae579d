#include "VolumenEnVivo.h"

#include "FormatoCoste.h"
#include "core/Errores.h"

#include <cmath>

namespace vorimesk {
namespace {

// Kilobytes as the register keeps them: to the nearest, halves to even.
std::int64_t KB(std::uint64_t bytes) {
    return static_cast<std::int64_t>(std::nearbyint(static_cast<double>(bytes) / 1024.0));
}

} // namespace

void VolumenEnVivo::Empezar() {
    preparado_ = false;
    volumen_.reset();
    usadoAntes_ = 0;
    recibidos_ = 0;
    enviados_ = 0;
}

void VolumenEnVivo::Bytes(std::optional<std::uint64_t> recibidos,
                          std::optional<std::uint64_t> enviados) {
    recibidos_ = recibidos.value_or(recibidos_);
    enviados_ = enviados.value_or(enviados_);
}

void VolumenEnVivo::Preparar(const std::filesystem::path& carpeta, const Settings& ajustes,
                             const cBono& bono, const std::vector<RegistroLlamada>* llamadas,
                             const std::string& conexion, Fecha inicio) {
    preparado_ = true;
    const std::vector<RegistroLlamada> ninguna;
    const auto& registro = llamadas != nullptr ? *llamadas : ninguna;
    try {
        const Fecha primera = registro.empty() ? inicio : Fecha::DesdeOle(registro.front().Dia);
        volumen_ = VolumenRegistro::DeCarpeta(carpeta, ajustes.Festivos, bono, primera, inicio);
        if (volumen_) {
            usadoAntes_ = volumen_->UsadoAntes(registro, conexion, inicio);
        }
    } catch (const Error&) {
        // A plan file that does not read leaves the meter on time alone.
        volumen_.reset();
    }
}

void VolumenEnVivo::Sumar(LecturaMedidor& l, const std::filesystem::path& carpeta,
                          const Settings& ajustes, const cBono& bono,
                          const std::vector<RegistroLlamada>* llamadas, Fecha inicio, Fecha ahora) {
    if (!l.Tasada) {
        return;
    }
    if (!preparado_) {
        Preparar(carpeta, ajustes, bono, llamadas, l.Entrada, inicio);
    }
    if (!volumen_) {
        return;
    }
    const VolumenLlamada v = volumen_->PreciarEnCurso(l.Entrada, l.NombreTarifa, inicio, ahora,
                                                      KB(recibidos_) + KB(enviados_), usadoAntes_);
    if (v.Importe == 0.0) {
        return;
    }
    l.importe += static_cast<float>(v.Importe);
    l.Coste = CosteMostrado(l.importe, ajustes);
    l.TextoCoste = TextoCoste(l.Coste);
}

} // namespace vorimesk
