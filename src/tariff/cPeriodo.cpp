#include "cPeriodo.h"

#include "core/Errores.h"
#include "core/Texto1252.h"

#include <chrono>

namespace vorimesk {
namespace {

// A calendar date from a year, a month and a day that may run past the end
// of their unit: month 13 is January of the next year, day 31 of April is
// 1 May, day 0 the last day of the month before.
Fecha FechaSerie(int año, int mes, int dia) {
    using namespace std::chrono;
    const int meses = año * 12 + (mes - 1);
    const int a = meses >= 0 ? meses / 12 : (meses - 11) / 12;
    const int m = meses - a * 12 + 1;
    const sys_days primero = year{a} / month{static_cast<unsigned>(m)} / day{1};
    const sys_days epoca = year{1899} / December / 30;
    const auto dias = (primero - epoca).count() + (dia - 1);
    return Fecha::DesdeSegundos(dias * Fecha::kSegundosDia);
}

Fecha LeerExtremo(std::string_view texto, std::string_view periodo) {
    const auto f = Fecha::LeerTextoCorto(Recortar(texto));
    if (!f) {
        throw ErrorTipo("\"" + std::string(periodo) + "\" no es un periodo");
    }
    return *f;
}

} // namespace

void cPeriodo::Datos(std::uint8_t diaFactura, std::uint8_t eleccion) {
    diaFactura_ = diaFactura;
    switch (eleccion) {
    case 0:
        intervalo_ = kMensual;
        break;
    case 2:
        intervalo_ = kImpar;
        break;
    default:
        intervalo_ = kPar;
        break;
    }
    ++configurado_;
}

void cPeriodo::Periodos(Fecha inicio, Fecha fin) {
    inicio_ = inicio;
    fin_ = fin;
    Reset();
    ++configurado_;
}

void cPeriodo::Reset() {
    cursor_ = inicio_;
    primeroDado_ = false;
}

std::string cPeriodo::Periodo() {
    const std::optional<Tramo> t = SiguienteTramo();
    if (!t) {
        return {};
    }
    return t->otro ? std::string(kOtro) : Texto(t->desde, t->hasta);
}

std::optional<cPeriodo::Tramo> cPeriodo::SiguienteTramo() {
    if (configurado_ < 2) {
        return std::nullopt;
    }
    if (cursor_ == inicio_ && !primeroDado_) {
        primeroDado_ = true;
        return PrimerTramo();
    }
    return TramoSiguiente();
}

std::optional<cPeriodo::Tramo> cPeriodo::PrimerTramo() {
    if (inicio_.Año() > filtro_) {
        return std::nullopt;
    }
    Fecha c = cursor_.SoloFecha();
    if (c.Dia() > diaFactura_) {
        c = FechaSerie(c.Año(), c.Mes() + 1, 1);
    }
    if (intervalo_ != kMensual) {
        const int m = c.Mes() % 2 == intervalo_ ? c.Mes() : c.Mes() + 1;
        c = FechaSerie(c.Año(), m, diaFactura_);
    }
    c = c.MasSegundos(Fecha::kSegundosDia - 1);
    if (c > fin_) {
        c = fin_;
    }
    const bool otro = filtro_ != kSinFiltro && inicio_.Año() < filtro_;
    cursor_ = c.SoloFecha().MasDias(1);
    return Tramo{inicio_, c, otro};
}

std::optional<cPeriodo::Tramo> cPeriodo::TramoSiguiente() {
    if (!(cursor_ < fin_)) {
        return std::nullopt;
    }
    const Fecha p = cursor_;
    if (p.Año() > filtro_) {
        return std::nullopt;
    }
    cursor_ = cursor_.MasMeses(intervalo_ == kMensual ? 1 : 2);
    if (cursor_ > fin_) {
        cursor_ = fin_;
    }
    if (filtro_ != kSinFiltro && cursor_.Año() < filtro_) {
        return Tramo{p, cursor_, true};
    }
    return Tramo{p, cursor_ == fin_ ? cursor_ : cursor_.MasDias(-1)};
}

std::string cPeriodo::PeriodoActual(Fecha momento) {
    cursor_ = momento;
    primeroDado_ = false;
    std::string ultimo;
    for (std::string p = Periodo(); !p.empty(); p = Periodo()) {
        ultimo = std::move(p);
    }
    return ultimo;
}

std::string cPeriodo::Texto(Fecha desde, Fecha hasta) {
    return desde.TextoCorto() + " - " + hasta.TextoCorto();
}

Fecha cPeriodo::FechaIni(std::string_view periodo) {
    const auto guion = periodo.find('-');
    if (guion == std::string_view::npos) {
        throw ErrorTipo("\"" + std::string(periodo) + "\" no es un periodo");
    }
    return LeerExtremo(periodo.substr(0, guion), periodo);
}

Fecha cPeriodo::FechaFin(std::string_view periodo) {
    const auto guion = periodo.find('-');
    if (guion == std::string_view::npos) {
        throw ErrorTipo("\"" + std::string(periodo) + "\" no es un periodo");
    }
    return LeerExtremo(periodo.substr(guion + 1), periodo);
}

} // namespace vorimesk
