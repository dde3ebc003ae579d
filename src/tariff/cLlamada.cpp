#include "cLlamada.h"

#include "cPeriodo.h"
#include "core/Archivo.h"
#include "core/Errores.h"
#include "core/cTiempo.h"

#include <limits>
#include <utility>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

constexpr std::int32_t kDia = 86400;

bool EmpiezaBien(const RegistroTarifa& r) {
    const unsigned char c = r.PrimerByte();
    return c >= 32 && c <= 126;
}

// Band ends are inclusive, so a band stops one second after its end time; a
// start at or past that point belongs to the stretch that runs past midnight.
std::int32_t FinDeFranja(std::int32_t horaInicio, std::int32_t finFranja) {
    const std::int32_t fin = finFranja + 1;
    return horaInicio < fin ? fin : fin + kDia;
}

// "00:" + hours + ":" + minutes of the stored time: its hours count as
// minutes and its minutes as seconds.
std::int32_t TiempoIncluido(std::int32_t horaGuardada) {
    const std::string texto =
        "00:" + std::to_string(horaGuardada / 3600) + ":" + std::to_string(horaGuardada / 60 % 60);
    return cTiempo(texto).ConvSegundos();
}

// The call's length in seconds, if it can be written as hh:mm:ss.
std::int32_t SegundosDuracion(Fecha inicio, Fecha fin) {
    const std::int64_t s = fin.Segundos() - inicio.Segundos();
    if (s < std::numeric_limits<std::int32_t>::min() ||
        s > std::numeric_limits<std::int32_t>::max()) {
        throw ErrorDesbordamiento("la duracion de la llamada no cabe en 32 bits");
    }
    cTiempo t;
    t.ConvTiempo(static_cast<std::int32_t>(s)); // throws for more hours than it holds
    return static_cast<std::int32_t>(s);
}

// A billing period's ends are dates with four-digit years.
bool CabeEnTexto(Fecha f) {
    static const Fecha primera = Fecha::Crear(0, 1, 1);
    static const Fecha ultima = Fecha::Crear(9999, 12, 31, 23, 59, 59);
    return primera <= f && f <= ultima;
}

template <typename Lectura> std::optional<std::int32_t> Hora(Lectura lectura) {
    try {
        return lectura();
    } catch (const Error&) {
        return std::nullopt;
    }
}

} // namespace

cLlamada::cLlamada(fs::path carpeta) : ruta_(std::move(carpeta) / kArchivo) {}

void cLlamada::Load() {
    std::error_code ec;
    const fs::file_status estado = fs::status(ruta_, ec);
    if (!fs::exists(estado)) {
        return;
    }
    if (!fs::is_regular_file(estado)) {
        throw ErrorArchivo(ruta_.string(), "no es un archivo");
    }
    const std::string datos = LeerArchivo(ruta_);
    std::vector<RegistroTarifa> leidas;
    for (std::size_t p = 0; p + RegistroTarifa::kTamaño <= datos.size();
         p += RegistroTarifa::kTamaño) {
        auto r = RegistroTarifa::DesdeBytes(std::string_view(datos).substr(p));
        if (!EmpiezaBien(r)) {
            break;
        }
        if (leidas.size() == static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
            throw ErrorDesbordamiento("demasiadas tarifas en " + ruta_.string());
        }
        leidas.push_back(r);
    }
    leidas.emplace_back();
    tarifas_ = std::move(leidas);
    precios_.clear();
}

void cLlamada::Save() const {
    if (Count() < 1) {
        BorrarArchivo(ruta_);
        return;
    }
    std::string bytes;
    bytes.reserve(RegistroTarifa::kTamaño * static_cast<std::size_t>(Count()));
    for (std::int16_t i = 0; i < Count(); ++i) {
        bytes += tarifas_[static_cast<std::size_t>(i)].Bytes();
    }
    EscribirArchivoSeguro(ruta_, bytes);
}

void cLlamada::Add() {
    if (Count() == std::numeric_limits<std::int16_t>::max()) {
        throw ErrorDesbordamiento("demasiadas tarifas");
    }
    tarifas_.back() = RegistroTarifa();
    tarifas_.emplace_back();
    precios_.clear();
}

void cLlamada::Delete(std::int16_t indice) {
    En(indice);
    if (Count() == 0) {
        throw ErrorIndice("no hay tarifas que borrar");
    }
    for (std::int16_t j = indice; j <= Count() - 2; ++j) {
        tarifas_[static_cast<std::size_t>(j)] = tarifas_[static_cast<std::size_t>(j) + 1];
    }
    tarifas_.pop_back();
    tarifas_.back() = RegistroTarifa();
    precios_.clear();
}

void cLlamada::Copy(std::int16_t destino, std::int16_t origen) {
    Editar(destino) = En(origen);
}

std::int16_t cLlamada::Find(std::string_view nombre) const {
    for (std::int16_t i = 0; i < Count(); ++i) {
        if (PreciosDe(i).nombre == nombre) {
            return i;
        }
    }
    return -1;
}

const RegistroTarifa& cLlamada::En(std::int16_t indice) const {
    if (indice < 0 || indice > Count()) {
        throw ErrorIndice("tarifa " + std::to_string(indice));
    }
    return tarifas_[static_cast<std::size_t>(indice)];
}

RegistroTarifa& cLlamada::Editar(std::int16_t indice) {
    RegistroTarifa& r = const_cast<RegistroTarifa&>(En(indice));
    precios_.clear();
    return r;
}

const cLlamada::Precios& cLlamada::PreciosDe(std::int16_t indice) const {
    const RegistroTarifa& r = En(indice);
    precios_.resize(tarifas_.size());
    std::optional<Precios>& p = precios_[static_cast<std::size_t>(indice)];
    if (p) {
        return *p;
    }
    Precios nuevo;
    nuevo.nombre = r.Nombre();
    nuevo.importeConexion = r.ImporteConexion();
    nuevo.incluido = Hora([&] { return TiempoIncluido(r.TiempoConexion()); });
    for (int d = 0; d < 3; ++d) {
        for (int f = 0; f < 2; ++f) {
            nuevo.importe[d][f] = r.Importe(d, f);
            nuevo.inicio[d][f] = Hora([&] { return r.Inicio(d, f); });
            nuevo.fin[d][f] = Hora([&] { return r.Fin(d, f); });
        }
    }
    p = std::move(nuevo);
    return *p;
}

std::int32_t cLlamada::Inicio(std::int16_t tarifa, const Precios& p, int dia, int franja) const {
    const auto& h = p.inicio[dia][franja];
    return h ? *h : En(tarifa).Inicio(dia, franja);
}

std::int32_t cLlamada::Fin(std::int16_t tarifa, const Precios& p, int dia, int franja) const {
    const auto& h = p.fin[dia][franja];
    return h ? *h : En(tarifa).Fin(dia, franja);
}

const std::string& cLlamada::Duracion() const {
    if (!duracion_) {
        cTiempo t;
        t.ConvTiempo(segundos_);
        duracion_ = t.Valor();
    }
    return *duracion_;
}

const RegistroTarifa& cLlamada::Tarifa(std::int16_t indice) const {
    return En(indice);
}

void cLlamada::Tarifa(std::int16_t indice, const RegistroTarifa& registro) {
    Editar(indice) = registro;
}

ValorTarifa cLlamada::Valor(std::int16_t indice, std::string_view clave) const {
    return En(indice).Valor(clave);
}

std::string cLlamada::ValorTexto(std::int16_t indice, std::string_view clave) const {
    return En(indice).Texto(clave);
}

void cLlamada::Valor(std::int16_t indice, std::string_view clave, std::string_view texto) {
    Editar(indice).Valor(clave, texto);
}

void cLlamada::Valor(std::int16_t indice, std::string_view clave, Fecha fecha) {
    Editar(indice).Valor(clave, fecha);
}

void cLlamada::Valor(std::int16_t indice, std::string_view clave, double numero) {
    Editar(indice).Valor(clave, numero);
}

std::int16_t cLlamada::TipoDia(Fecha momento) const {
    const std::int64_t dia = momento.Dias();
    if (!tipoDia_ || tipoDia_->first != dia) {
        tipoDia_.emplace(dia, TipoDiaCalendario(momento, festivos_));
    }
    return tipoDia_->second;
}

std::int16_t cLlamada::TipoDiaCalendario(Fecha momento, const std::vector<Fecha>& festivos) {
    const std::int64_t dia = momento.Dias();
    for (const Fecha& f : festivos) {
        if (f.Dias() == dia) {
            return 2;
        }
    }
    switch (momento.DiaSemana()) {
    case 1:
        return 2;
    case 7:
        return 1;
    default:
        return 0;
    }
}

// Everything outside the normal band is reduced time; the reduced band's own
// start is never looked at.
std::int16_t cLlamada::Banda(std::int16_t tarifa, Fecha momento) const {
    const Precios& p = PreciosDe(tarifa);
    const std::int32_t t = momento.SegundosDelDia();
    const int d = TipoDia(momento);
    const std::int32_t ni = Inicio(tarifa, p, d, RegistroTarifa::kNormal);
    const std::int32_t nf = Fin(tarifa, p, d, RegistroTarifa::kNormal);
    if (ni != nf && ni <= t && t <= nf) {
        return 0;
    }
    const bool reducidaVacia = Inicio(tarifa, p, d, RegistroTarifa::kReducida) ==
                               Fin(tarifa, p, d, RegistroTarifa::kReducida);
    return reducidaVacia ? std::int16_t{-1} : std::int16_t{1};
}

// The BonoNet night is whatever the tariff at index 1 does not call normal
// time. The same test on index 3 has always been made too and its answer
// thrown away; it is kept, and it may never stop a pricing.
bool cLlamada::Noche(Fecha momento) const {
    const bool noche = Banda(1, momento) != 0;
    if (Count() >= 3) {
        try {
            (void)Banda(3, momento);
        } catch (const Error&) {
        }
    }
    return noche;
}

bool cLlamada::QuedaBono(Fecha momento) const {
    return !bono_.EstaVacioGrupo(Noche(momento) ? cBono::kGrupoNoche : cBono::kGrupoDia);
}

bool cLlamada::Datos(Fecha inicio, Fecha fin, const cBono* bono, std::string tarifa) {
    if (recargar_) {
        Load();
    }
    const std::int16_t i = Find(tarifa.empty() ? nombreTarifa_ : tarifa);
    // A call with no tariff used no bundle time either.
    bonoPendiente_ = false;
    if (i < 0) {
        return false;
    }
    // Checked before walking the call: a length that no duration holds
    // fails anyway, and walking centuries band by band would take minutes.
    const std::int32_t segundos = SegundosDuracion(inicio, fin);
    if (bono != nullptr) {
        bono_.Copiar(*bono);
    } else {
        bono_.Reset();
    }
    segundosBono_ = 0;
    tipoActual_ = Banda(i, inicio);
    bonoNetActual_ = QuedaBono(inicio);
    const Precios& p = PreciosDe(i);
    const Fecha medido =
        inicio.MasSegundos(p.incluido ? *p.incluido : TiempoIncluido(En(i).TiempoConexion()));
    float total = p.importeConexion;
    SumarPeriodos(i, medido, fin, bono != nullptr, total);
    importe_ = total;
    segundos_ = segundos;
    duracion_.reset();
    tipo_ = Banda(i, fin);
    bonoNet_ = QuedaBono(fin);
    bonoPendiente_ = bono != nullptr;
    return true;
}

// Each billing period brings fresh bundles, so the working ledger is
// refilled where the call crosses into the next one.
void cLlamada::SumarPeriodos(std::int16_t tarifa, Fecha desde, Fecha hasta, bool conBono,
                             float& total) {
    cPeriodo periodos;
    periodos.Datos(bono_.DiaFactura(), 2);
    periodos.Periodos(desde, hasta);
    periodos.Reset();
    bool primero = true;
    for (auto t = periodos.SiguienteTramo(); t; t = periodos.SiguienteTramo()) {
        if (t->otro) {
            continue;
        }
        if (!primero) {
            bono_.Reset();
        }
        primero = false;
        Fecha inicio = t->desde;
        Fecha limite = t->hasta;
        if (!CabeEnTexto(inicio) || !CabeEnTexto(limite)) {
            // Past year 9999 a period's text no longer holds its dates: it
            // is read back from the text, as it always has been.
            const std::string texto = cPeriodo::Texto(inicio, limite);
            limite = cPeriodo::FechaFin(texto);
            inicio = cPeriodo::FechaIni(texto);
        }
        for (Fecha s = inicio; s < limite;) {
            total += CosteTramo(tarifa, s, limite, conBono);
        }
    }
}

// One stretch of a band from `desde`, up to the band's end or `limite`;
// moves `desde` to where the stretch stops.
float cLlamada::CosteTramo(std::int16_t tarifa, Fecha& desde, Fecha limite, bool conBono) {
    const Precios& p = PreciosDe(tarifa);
    const int d = TipoDia(desde);
    const int franja =
        Banda(tarifa, desde) == 0 ? RegistroTarifa::kNormal : RegistroTarifa::kReducida;
    const std::int32_t hora = desde.SegundosDelDia();
    std::int32_t n = FinDeFranja(hora, Fin(tarifa, p, d, franja)) - hora;
    const Fecha inicioTramo = desde;
    if (desde.MasSegundos(n) > limite) {
        n = FinDeFranja(hora, limite.MasSegundos(-1).SegundosDelDia()) - hora;
        desde = limite;
    } else {
        desde = desde.MasSegundos(n);
    }
    std::int32_t cubiertos = 0;
    if (conBono) {
        cubiertos = bono_.Restar(Noche(inicioTramo) ? cBono::kGrupoNoche : cBono::kGrupoDia, n);
        segundosBono_ += cubiertos;
    }
    return p.importe[d][franja] / 60.0f * static_cast<float>(n - cubiertos);
}

void cLlamada::TraspasarBono(cBono& programa) const {
    if (bonoPendiente_) {
        programa.Copiar(bono_);
    }
}

} // namespace vorimesk
