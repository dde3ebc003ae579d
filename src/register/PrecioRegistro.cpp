#include "PrecioRegistro.h"

#include "Importe.h"
#include "core/cTiempo.h"

namespace vorimesk {
namespace {

// Every run prices with this tariff when the call names none.
constexpr const char* kTarifaPorDefecto = "Metropolitana";

} // namespace

PrecioRegistro::PrecioRegistro(const cLlamada& libro, const std::vector<Fecha>& festivos,
                               const cBono& bono)
    : libro_(libro), trabajo_(bono) {
    libro_.RecargarAlPreciar(false);
    libro_.Festivos(festivos);
    libro_.NombreTarifa(kTarifaPorDefecto);
    trabajo_.Reset();
}

Fecha PrecioRegistro::Inicio(const RegistroLlamada& r) {
    return Fecha::DesdeOle(r.Dia).SoloFecha().MasSegundos(Fecha::DesdeOle(r.Hora).SegundosDelDia());
}

Fecha PrecioRegistro::Fin(const RegistroLlamada& r) {
    return Inicio(r).MasSegundos(cTiempo(r.Duracion.Texto()).ConvSegundos());
}

bool PrecioRegistro::Preciar(RegistroLlamada& r, std::string_view tarifa, float volumen) {
    const Fecha inicio = Inicio(r);
    const Fecha fin = inicio.MasSegundos(cTiempo(r.Duracion.Texto()).ConvSegundos());
    // Calls before the billing day belong to the period begun last month:
    // the first of them in another month starts it with full bonos.
    if (trabajo_.DiaFactura() > inicio.Dia() && inicio.Mes() != mesFactura_) {
        mesFactura_ = inicio.Mes();
        trabajo_.Reset();
    }
    std::string nombre(tarifa.empty() ? r.Tarifa.Recortado() : std::string(tarifa));
    if (!libro_.Datos(inicio, fin, &trabajo_, std::move(nombre))) {
        return false;
    }
    // Without a plan the time cost is stored untouched, bit for bit.
    r.importe.Poner(TextoImporte(volumen != 0.0f ? libro_.importe() + volumen : libro_.importe()));
    r.Tipo = TipoDeBanda(libro_.Tipo());
    r.Bono = libro_.BonoNet() ? -1 : 0;
    libro_.TraspasarBono(trabajo_);
    return true;
}

} // namespace vorimesk
