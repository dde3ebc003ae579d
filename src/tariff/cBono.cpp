#include "cBono.h"

#include "core/Errores.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <utility>

namespace vorimesk {
namespace {

constexpr std::size_t kAnchoTipo = 8;
const std::array<const char*, cBono::kTipos> kNombres = {"10DIA", "50DIA", "10NOCHE", "50NOCHE"};

std::string Relleno(std::string texto) {
    texto.resize(kAnchoTipo, ' ');
    return texto;
}

const Reloj& RelojDeLaMaquina() {
    static const RelojSistema reloj;
    return reloj;
}

std::string Texto(std::int64_t segundos) {
    if (segundos < std::numeric_limits<std::int32_t>::min() ||
        segundos > std::numeric_limits<std::int32_t>::max()) {
        throw ErrorDesbordamiento("el total de los bonos no cabe en 32 bits");
    }
    cTiempo t;
    t.ConvTiempo(static_cast<std::int32_t>(segundos));
    return t.Valor();
}

// A total's text read back as a time is empty exactly when the seconds add
// up to zero. The pricing asks this at every stretch of every call, so the
// text is only made where it cannot be (more hours than a time holds), to
// fail as it always has.
bool SinTiempo(std::int32_t segundos) {
    if (std::abs(std::int64_t{segundos}) / 3600 > std::numeric_limits<std::int16_t>::max()) {
        return cTiempo(Texto(segundos)).EstaVacio();
    }
    return segundos == 0;
}

} // namespace

std::string cBono::NombreTipo(std::int16_t tipo) {
    if (tipo < 0 || tipo >= kTipos) {
        throw ErrorIndice("tipo de bono " + std::to_string(tipo));
    }
    return kNombres[static_cast<std::size_t>(tipo)];
}

cBono::cBono() : reloj_(&RelojDeLaMaquina()) {}

cBono::cBono(const Reloj& reloj) : reloj_(&reloj) {}

std::int16_t cBono::DarAlta(std::int16_t tipo, std::optional<Fecha> fecha) {
    Paquete nuevo;
    nuevo.tipo = Relleno(NombreTipo(tipo));
    nuevo.alta = fecha ? *fecha : reloj_->Hoy();
    nuevo.activo = true;
    nuevo.resto.ConvTiempo(Contenido(nuevo));
    paquetes_.back() = std::move(nuevo);
    paquetes_.emplace_back();
    return static_cast<std::int16_t>(Count() - 1);
}

cBono::Paquete& cBono::En(std::int16_t i) {
    return const_cast<Paquete&>(std::as_const(*this).En(i));
}

const cBono::Paquete& cBono::En(std::int16_t i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= paquetes_.size()) {
        throw ErrorIndice("bono " + std::to_string(i));
    }
    return paquetes_[static_cast<std::size_t>(i)];
}

Fecha cBono::Alta(std::int16_t i) const {
    return En(i).alta;
}
void cBono::Alta(std::int16_t i, Fecha fecha) {
    En(i).alta = fecha;
}
FechaVariante cBono::Baja(std::int16_t i) const {
    return En(i).baja;
}
void cBono::Baja(std::int16_t i, FechaVariante baja) {
    En(i).baja = baja;
}

bool cBono::BajaPer(std::int16_t i, Fecha inicioPeriodo) const {
    const FechaVariante& baja = En(i).baja;
    return baja.TieneFecha() && baja.fecha.Dias() < inicioPeriodo.Dias();
}

std::string cBono::Nombre(std::int16_t i) const {
    std::string t = En(i).tipo;
    t.erase(t.find_last_not_of(' ') + 1);
    return t;
}

std::string cBono::tiempo(std::int16_t i) const {
    return En(i).resto.Valor();
}
void cBono::tiempo(std::int16_t i, std::string_view texto) {
    En(i).resto.Valor(texto);
}
std::int16_t cBono::Tipo(std::int16_t i) const {
    return TipoDe(En(i));
}
std::int16_t cBono::Grupo(std::int16_t i) const {
    return GrupoDe(En(i));
}

std::int16_t cBono::TipoDe(const Paquete& p) {
    // Asked for every stretch of every priced call: padded once.
    static const std::array<std::string, kTipos> rellenos = {
        Relleno(kNombres[0]), Relleno(kNombres[1]), Relleno(kNombres[2]), Relleno(kNombres[3])};
    for (std::int16_t t = 0; t < kTipos; ++t) {
        if (p.tipo == rellenos[static_cast<std::size_t>(t)]) {
            return t;
        }
    }
    return -1;
}

std::int16_t cBono::GrupoDe(const Paquete& p) {
    const std::int16_t t = TipoDe(p);
    return t < 0 ? std::int16_t{-1} : static_cast<std::int16_t>(t / 2);
}

// The content follows from the first two characters of the kind.
std::int32_t cBono::Contenido(const Paquete& p) {
    if (p.tipo.rfind("10", 0) == 0) {
        return 10 * 3600;
    }
    if (p.tipo.rfind("50", 0) == 0) {
        return 50 * 3600;
    }
    return 0;
}

std::int16_t cBono::Count() const {
    return static_cast<std::int16_t>(paquetes_.size() - 1);
}

std::int16_t cBono::CountGrupo(std::int16_t grupo) const {
    return static_cast<std::int16_t>(
        std::count_if(paquetes_.begin(), paquetes_.end() - 1,
                      [&](const Paquete& p) { return GrupoDe(p) == grupo; }));
}

std::int16_t cBono::CountTipo(std::int16_t tipo) const {
    return static_cast<std::int16_t>(
        std::count_if(paquetes_.begin(), paquetes_.end() - 1,
                      [&](const Paquete& p) { return TipoDe(p) == tipo; }));
}

template <typename Filtro> std::int32_t cBono::SumaResto(Filtro filtro) const {
    std::int64_t total = 0;
    for (auto p = paquetes_.begin(); p != paquetes_.end() - 1; ++p) {
        if (filtro(*p)) {
            total += p->resto.ConvSegundos();
        }
    }
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        total, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

std::string cBono::TotalTiempoTipo(std::int16_t tipo) const {
    return Texto(SumaResto([&](const Paquete& p) { return TipoDe(p) == tipo; }));
}

std::string cBono::TotalTiempoGrupo(std::int16_t grupo) const {
    return Texto(SumaResto([&](const Paquete& p) { return GrupoDe(p) == grupo; }));
}

std::string cBono::TiempoGastadoGrupo(std::int16_t grupo) const {
    std::int64_t gastado = 0;
    for (auto p = paquetes_.begin(); p != paquetes_.end() - 1; ++p) {
        if (GrupoDe(*p) == grupo) {
            gastado += std::int64_t{Contenido(*p)} - p->resto.ConvSegundos();
        }
    }
    return Texto(gastado);
}

bool cBono::EstaVacioGrupo(std::int16_t grupo) const {
    return SinTiempo(SumaResto([&](const Paquete& p) { return GrupoDe(p) == grupo; }));
}

bool cBono::EstaVacioTipo(std::int16_t tipo) const {
    return SinTiempo(SumaResto([&](const Paquete& p) { return TipoDe(p) == tipo; }));
}

std::int16_t cBono::Cual(std::int16_t grupo) const {
    std::int16_t elegido = -1;
    for (std::int16_t i = 0; i < Count(); ++i) {
        const Paquete& p = paquetes_[static_cast<std::size_t>(i)];
        const bool util = p.activo && GrupoDe(p) == grupo && p.resto.ConvSegundos() > 0;
        if (util && (elegido < 0 || p.alta < paquetes_[static_cast<std::size_t>(elegido)].alta)) {
            elegido = i;
        }
    }
    return elegido;
}

std::int32_t cBono::Restar(std::int16_t grupo, std::int32_t segundos) {
    std::int32_t falta = std::max(segundos, 0);
    for (std::int16_t i = Cual(grupo); falta > 0 && i >= 0; i = Cual(grupo)) {
        cTiempo& resto = En(i).resto;
        const std::int32_t tomado = std::min(falta, resto.ConvSegundos());
        resto.ConvTiempo(resto.ConvSegundos() - tomado);
        falta -= tomado;
    }
    return std::max(segundos, 0) - falta;
}

void cBono::Reset() {
    for (Paquete& p : paquetes_) {
        if (p.activo) {
            p.resto.ConvTiempo(Contenido(p));
        }
    }
}

void cBono::Reset(Fecha inicioPeriodo) {
    for (std::int16_t i = 0; i < Count(); ++i) {
        Paquete& p = En(i);
        if (!p.activo) {
            continue;
        }
        if (BajaPer(i, inicioPeriodo)) {
            p.resto.Iniciar();
        } else if (p.alta.Dias() <= inicioPeriodo.Dias()) {
            p.resto.ConvTiempo(Contenido(p));
        }
    }
}

void cBono::Limpiar() {
    paquetes_.assign(1, Paquete{});
}

void cBono::Copiar(const cBono& otro) {
    if (&otro == this) {
        return;
    }
    paquetes_ = otro.paquetes_;
    diaFactura_ = otro.diaFactura_;
    perFactura_ = otro.perFactura_;
}

} // namespace vorimesk
