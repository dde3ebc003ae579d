#include "RegistroTarifa.h"

#include "core/CampoFijo.h"
#include "core/Errores.h"
#include "core/Numero.h"
#include "core/cTiempo.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

namespace vorimesk {
namespace {

struct Campo {
    std::string clave;
    std::size_t desplazamiento;
    std::size_t ancho;
    bool esHora;
};

constexpr std::size_t kAnchoNombre = 15;
constexpr std::size_t kAnchoImporte = 7;
constexpr std::size_t kAnchoFecha = 8;
constexpr std::size_t kPrimeraFranja = 30;
constexpr std::size_t kAnchoFranja = kAnchoImporte + 2 * kAnchoFecha;

std::size_t Franja(int tipoDia, int franja) {
    return kPrimeraFranja + kAnchoFranja * static_cast<std::size_t>(2 * tipoDia + franja);
}

std::vector<Campo> CrearCampos() {
    std::vector<Campo> c = {{"Nombre", 0, kAnchoNombre, false},
                            {"Conexion.Importe", 15, kAnchoImporte, false},
                            {"Conexion.Tiempo", 22, kAnchoFecha, true}};
    const char* dias[] = {"Semana", "Sabado", "Festivo"};
    const char* franjas[] = {"Normal", "Reducida"};
    for (int d = 0; d < 3; ++d) {
        for (int f = 0; f < 2; ++f) {
            const std::string base = std::string(dias[d]) + "." + franjas[f] + ".";
            const std::size_t p = Franja(d, f);
            c.push_back({base + "Importe", p, kAnchoImporte, false});
            c.push_back({base + "Inicio", p + kAnchoImporte, kAnchoFecha, true});
            c.push_back({base + "Fin", p + kAnchoImporte + kAnchoFecha, kAnchoFecha, true});
        }
    }
    return c;
}

const std::vector<Campo>& Campos() {
    static const std::vector<Campo> campos = CrearCampos();
    return campos;
}

const Campo* BuscarCampo(std::string_view clave) {
    for (const Campo& c : Campos()) {
        if (c.clave == clave) {
            return &c;
        }
    }
    return nullptr;
}

// Blanks pad the fields; zero bytes fill a field that was never written.
std::string SinRelleno(std::string texto) {
    const auto relleno = [](char ch) { return ch == ' ' || ch == '\0'; };
    const auto fin = std::find_if_not(texto.rbegin(), texto.rend(), relleno).base();
    const auto inicio = std::find_if_not(texto.begin(), fin, relleno);
    return std::string(inicio, fin);
}

std::string HoraTexto(std::int32_t s) {
    cTiempo t;
    t.ConvTiempo(s);
    return t.Valor();
}

std::string TextoDeFecha(Fecha f) {
    return f.Dias() == 0 ? HoraTexto(f.SegundosDelDia()) : f.TextoCorto();
}

std::optional<Fecha> LeerFecha(std::string_view texto) {
    if (auto f = Fecha::LeerIso(texto)) {
        return f;
    }
    if (auto f = Fecha::LeerTextoCorto(texto)) {
        return f;
    }
    try {
        return Fecha::DesdeSegundos(SegundosDeHoraDelDia(texto));
    } catch (const ErrorTipo&) {
        return std::nullopt;
    }
}

} // namespace

RegistroTarifa RegistroTarifa::DesdeBytes(std::string_view bytes) {
    RegistroTarifa r;
    std::memcpy(r.bytes_.data(), bytes.data(), std::min(bytes.size(), kTamaño));
    return r;
}

const std::vector<std::string>& RegistroTarifa::Claves() {
    static const std::vector<std::string> claves = [] {
        std::vector<std::string> v;
        for (const Campo& c : Campos()) {
            v.push_back(c.clave);
        }
        return v;
    }();
    return claves;
}

bool RegistroTarifa::EsClaveDeHora(std::string_view clave) {
    const Campo* c = BuscarCampo(clave);
    return c != nullptr && c->esHora;
}

ValorTarifa RegistroTarifa::Valor(std::string_view clave) const {
    const Campo* c = BuscarCampo(clave);
    if (c == nullptr) {
        return {};
    }
    const char* p = bytes_.data() + c->desplazamiento;
    if (c->esHora) {
        return Fecha::DesdeOle(LeerDoble(p));
    }
    return SinRelleno(LeerCampo(p, c->ancho));
}

std::string RegistroTarifa::Texto(std::string_view clave) const {
    const ValorTarifa v = Valor(clave);
    if (const Fecha* f = std::get_if<Fecha>(&v)) {
        return HoraTexto(f->SegundosDelDia());
    }
    if (const std::string* s = std::get_if<std::string>(&v)) {
        return *s;
    }
    return {};
}

void RegistroTarifa::Valor(std::string_view clave, std::string_view texto) {
    const Campo* c = BuscarCampo(clave);
    if (c == nullptr) {
        return;
    }
    if (!c->esHora) {
        EscribirCampo(bytes_.data() + c->desplazamiento, c->ancho, texto);
        return;
    }
    const auto f = LeerFecha(texto);
    if (!f) {
        throw ErrorTipo("\"" + std::string(texto) + "\" no es una hora valida");
    }
    Valor(clave, *f);
}

void RegistroTarifa::Valor(std::string_view clave, Fecha fecha) {
    const Campo* c = BuscarCampo(clave);
    if (c == nullptr) {
        return;
    }
    if (c->esHora) {
        EscribirDoble(bytes_.data() + c->desplazamiento, fecha.AOle());
    } else {
        EscribirCampo(bytes_.data() + c->desplazamiento, c->ancho, TextoDeFecha(fecha));
    }
}

void RegistroTarifa::Valor(std::string_view clave, double numero) {
    if (EsClaveDeHora(clave)) {
        Valor(clave, Fecha::DesdeOle(numero));
        return;
    }
    char texto[32];
    const auto r = std::to_chars(texto, texto + sizeof texto, numero);
    Valor(clave, std::string_view(texto, static_cast<std::size_t>(r.ptr - texto)));
}

// Read straight from its field: the pricing looks the tariff up by name on
// every call.
std::string RegistroTarifa::Nombre() const {
    return SinRelleno(LeerCampo(bytes_.data(), kAnchoNombre));
}

float RegistroTarifa::ImporteConexion() const {
    return static_cast<float>(Val(LeerCampo(bytes_.data() + 15, kAnchoImporte)));
}

std::int32_t RegistroTarifa::TiempoConexion() const {
    return Fecha::DesdeOle(LeerDoble(bytes_.data() + 22)).SegundosDelDia();
}

float RegistroTarifa::Importe(int tipoDia, int franja) const {
    return static_cast<float>(
        Val(LeerCampo(bytes_.data() + Franja(tipoDia, franja), kAnchoImporte)));
}

std::int32_t RegistroTarifa::Inicio(int tipoDia, int franja) const {
    const char* p = bytes_.data() + Franja(tipoDia, franja) + kAnchoImporte;
    return Fecha::DesdeOle(LeerDoble(p)).SegundosDelDia();
}

std::int32_t RegistroTarifa::Fin(int tipoDia, int franja) const {
    const char* p = bytes_.data() + Franja(tipoDia, franja) + kAnchoImporte + kAnchoFecha;
    return Fecha::DesdeOle(LeerDoble(p)).SegundosDelDia();
}

} // namespace vorimesk
