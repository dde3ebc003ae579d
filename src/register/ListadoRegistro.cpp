#include "ListadoRegistro.h"

#include "Importe.h"
#include "core/Errores.h"
#include "core/FormatoNumero.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace vorimesk {
namespace {

bool Encendida(const std::optional<Fecha>& f) {
    return f && *f != kFechaApagada;
}
bool Encendido(const std::optional<std::int16_t>& v) {
    return v && *v != -1;
}

bool PasaFechas(const Log& r, int i, const CriteriosFiltro& c) {
    const Fecha dia = r.Dia(i);
    if (Encendida(c.desde) && dia < *c.desde) {
        return false;
    }
    return !(Encendida(c.hasta) && dia > *c.hasta);
}

bool PasaHoras(const Log& r, int i, const CriteriosFiltro& c) {
    const Fecha hora = r.Hora(i).SoloHora();
    if (Encendida(c.horaDesde) && hora < c.horaDesde->SoloHora()) {
        return false;
    }
    return !(Encendida(c.horaHasta) && hora > c.horaHasta->SoloHora());
}

bool PasaDuracion(const Log& r, int i, const CriteriosFiltro& c) {
    if (!Encendido(c.comparacion)) {
        return true;
    }
    const cTiempo t(c.duracion.value_or(""));
    const std::string d = r.Duracion(i);
    switch (*c.comparacion) {
    case 0:
        return !(t.EsMayor(d) || t.EsIgual(d));
    case 1:
        return !(t.EsMenor(d) || t.EsIgual(d));
    case 2:
        return !(t.EsMayor(d) || t.EsMenor(d));
    default:
        return true;
    }
}

// Day number from 1899-12-30 of a year/month/day that may overflow the month.
Fecha DiaDeMes(int año, int mes, int dia) {
    return Fecha::Crear(año, mes, 1).MasDias(dia - 1);
}

} // namespace

CriteriosFiltro CriteriosFiltro::Periodo(Fecha desde, Fecha hasta) {
    CriteriosFiltro c;
    c.desde = desde;
    c.hasta = hasta;
    return c;
}

bool EsListable(const Log& r, int i, const CriteriosFiltro& c, const TipoDiaDe& tipoDia) {
    if (!PasaFechas(r, i, c) || !PasaHoras(r, i, c)) {
        return false;
    }
    if (Encendido(c.tipo) && r.Banda(i) != *c.tipo) {
        return false;
    }
    if (Encendido(c.bono) && std::abs(r.Bono(i)) != *c.bono) {
        return false;
    }
    if (Encendido(c.tipoDia) && tipoDia(r.Dia(i)) != *c.tipoDia) {
        return false;
    }
    return PasaDuracion(r, i, c);
}

std::int32_t CosteMostrado(const Log& r, int i, const OpcionesCoste& o) {
    double coste = LeerImporte(r.importe(i));
    if (o.AnadirImpuestos) {
        coste *= o.Impuestos / 100.0 + 1.0;
    }
    const double redondeado = std::round(coste);
    if (!(std::fabs(redondeado) <= std::numeric_limits<std::int32_t>::max())) {
        throw ErrorDesbordamiento("el coste de una llamada no cabe en 32 bits");
    }
    return static_cast<std::int32_t>(redondeado);
}

std::int64_t CentimosMostrados(const Log& r, int i, const OpcionesCoste& o) {
    float coste = LeerImporte(r.importe(i));
    if (o.AnadirImpuestos) {
        coste *= o.Impuestos / 100.0F + 1.0F;
    }
    const double centimos = std::round(static_cast<double>(coste) * 100.0);
    if (!(std::fabs(centimos) < 9.0e18)) {
        throw ErrorDesbordamiento("el coste de una llamada no cabe en el registro");
    }
    return static_cast<std::int64_t>(centimos);
}

std::array<std::string, 10> CeldasLlamada(const Log& r, int i, const OpcionesCoste& o) {
    const Fecha hora = r.Hora(i);
    const std::string horaTexto = Fecha::DesdeSegundos(hora.SegundosDelDia()).TextoIso().substr(11);
    return {r.Dia(i).SoloFecha().TextoCorto(),
            horaTexto,
            r.Duracion(i),
            TextoDinero(static_cast<double>(CentimosMostrados(r, i, o)) / 100.0),
            r.Tarifa(i),
            r.Banda(i) == 1 ? "Reducida" : "Normal",
            r.Bono(i) != 0 ? "Si" : "No",
            r.Conexion(i),
            std::to_string(r.Recibidos(i)),
            std::to_string(r.Enviados(i))};
}

Listado ListarRegistro(const Log& r, const CriteriosFiltro& c, const TipoDiaDe& tipoDia,
                       const OpcionesCoste& o, Fecha hoy) {
    Listado l;
    const bool apagada =
        (c.desde && *c.desde == kFechaApagada) || (c.hasta && *c.hasta == kFechaApagada);
    if (!apagada) {
        const Fecha desde = c.desde ? *c.desde : (r.Count() > 0 ? r.Dia(0) : hoy);
        const Fecha hasta = c.hasta ? *c.hasta : hoy;
        l.Periodo = desde.TextoCorto() + " - " + hasta.TextoCorto();
    }
    std::int64_t coste = 0;
    for (int i = 0; i < r.Count(); ++i) {
        if (!EsListable(r, i, c, tipoDia)) {
            continue;
        }
        l.indices.push_back(i);
        l.TotalTiempo.Sumar(r.Duracion(i));
        coste += CosteMostrado(r, i, o);
        l.TotalCentimos += CentimosMostrados(r, i, o);
        if (coste > std::numeric_limits<std::int32_t>::max() ||
            coste < std::numeric_limits<std::int32_t>::min()) {
            throw ErrorDesbordamiento("el gasto total no cabe en 32 bits");
        }
    }
    l.TotalCoste = static_cast<std::int32_t>(coste);
    l.NumeroLlamadas = static_cast<std::int16_t>(l.indices.size());
    return l;
}

int DiasHastaFacturacion(Fecha hoy, int diaFactura) {
    int año = hoy.Año();
    int mes = hoy.Mes();
    if (hoy.Dia() > diaFactura) {
        if (++mes > 12) {
            mes = 1;
            ++año;
        }
    }
    return static_cast<int>(DiaDeMes(año, mes, diaFactura).Dias() - hoy.SoloFecha().Dias());
}

std::string TextoRango(const CriteriosFiltro& c, const Listado& l, Fecha inicioPeriodo,
                       Fecha finPeriodo) {
    const bool fechas = Encendida(c.desde) || Encendida(c.hasta);
    const bool otros = Encendida(c.horaDesde) || Encendida(c.horaHasta) || Encendido(c.tipo) ||
                       Encendido(c.bono) || Encendido(c.tipoDia) || Encendido(c.comparacion);
    const std::string dias = " (" + (l.Periodo.empty() ? "todas las fechas" : l.Periodo) + ")";
    if (otros) {
        return "Llamadas filtradas" + dias;
    }
    if (!fechas) {
        return "Todo el registro" + dias;
    }
    if (c.desde == inicioPeriodo && c.hasta == finPeriodo) {
        return "Periodo de facturacion" + dias;
    }
    return "Fechas elegidas" + dias;
}

} // namespace vorimesk
