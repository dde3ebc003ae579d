#include "TarifaEditable.h"

#include "core/Errores.h"
#include "core/FormatoNumero.h"
#include "core/Texto1252.h"
#include "core/cTiempo.h"

#include <algorithm>
#include <cstdio>

namespace vorimesk {
namespace {

std::string HoraTexto(std::int32_t s) {
    char texto[16];
    std::snprintf(texto, sizeof texto, "%02d:%02d:%02d", s / 3600, s / 60 % 60, s % 60);
    return texto;
}

// The form a field is compared and stored in: names and amounts without the
// blanks around them, clock times as hh:mm:ss ("8:0" is 08:00:00).
std::string Normalizado(std::string_view clave, const std::string& texto) {
    if (!RegistroTarifa::EsClaveDeHora(clave)) {
        return Recortar(texto);
    }
    const auto s = TarifaEditable::LeerHora(texto);
    return s ? HoraTexto(*s) : texto;
}

} // namespace

TarifaEditable::TarifaEditable() : textos_(RegistroTarifa::Claves().size()) {}

TarifaEditable::TarifaEditable(const RegistroTarifa& original) : original_(original) {
    for (const std::string& clave : RegistroTarifa::Claves()) {
        textos_.push_back(original.Texto(clave));
    }
}

TarifaEditable TarifaEditable::Nueva(std::string nombre) {
    TarifaEditable t;
    t.Valor("Nombre", std::move(nombre));
    t.Valor("Conexion.Importe", "0");
    t.Valor("Conexion.Tiempo", "00:00:00");
    for (int d = 0; d < 3; ++d) {
        t.Valor(Clave(d, 0, "Importe"), "0");
        t.Valor(Clave(d, 0, "Inicio"), "08:00:00");
        t.Valor(Clave(d, 0, "Fin"), "17:59:59");
        t.Valor(Clave(d, 1, "Importe"), "0");
        t.Valor(Clave(d, 1, "Inicio"), "18:00:00");
        t.Valor(Clave(d, 1, "Fin"), "07:59:59");
    }
    return t;
}

std::size_t TarifaEditable::Posicion(std::string_view clave) {
    const auto& claves = RegistroTarifa::Claves();
    const auto p = std::find(claves.begin(), claves.end(), clave);
    if (p == claves.end()) {
        throw ErrorNoEncontrado("la tarifa no tiene el campo \"" + std::string(clave) + "\"");
    }
    return static_cast<std::size_t>(p - claves.begin());
}

const std::string& TarifaEditable::Valor(std::string_view clave) const {
    return textos_[Posicion(clave)];
}

void TarifaEditable::Valor(std::string_view clave, std::string texto) {
    textos_[Posicion(clave)] = std::move(texto);
}

namespace {

bool EsClaveDeImporte(std::string_view clave) {
    return clave.ends_with(".Importe");
}

// Digits with at most one "." as the decimal point: an amount as the file
// holds it.
bool EsImporteLlano(std::string_view t) {
    return !t.empty() && std::count(t.begin(), t.end(), '.') <= 1 &&
           std::all_of(t.begin(), t.end(),
                       [](char c) { return c == '.' || (c >= '0' && c <= '9'); }) &&
           t != ".";
}

} // namespace

std::string TarifaEditable::ValorMostrado(std::string_view clave) const {
    std::string texto = Valor(clave);
    if (EsClaveDeImporte(clave) && EsImporteLlano(Recortar(texto))) {
        std::replace(texto.begin(), texto.end(), '.', ',');
    }
    return texto;
}

void TarifaEditable::ValorEscrito(std::string_view clave, std::string texto) {
    if (EsClaveDeImporte(clave)) {
        if (auto numero = NumeroEscrito(texto)) {
            texto = std::move(*numero);
        }
    }
    Valor(clave, std::move(texto));
}

std::string TarifaEditable::Nombre() const {
    return Recortar(Valor("Nombre"));
}

std::optional<std::string> TarifaEditable::NombreLeido() const {
    if (!original_) {
        return std::nullopt;
    }
    return Recortar(original_->Texto("Nombre"));
}

std::string TarifaEditable::Clave(int tipoDia, int franja, std::string_view campo) {
    return std::string(kDias[tipoDia]) + "." + kFranjas[franja] + "." + std::string(campo);
}

RegistroTarifa TarifaEditable::Registro() const {
    RegistroTarifa r = original_.value_or(RegistroTarifa());
    const auto& claves = RegistroTarifa::Claves();
    for (std::size_t i = 0; i < claves.size(); ++i) {
        const std::string texto = Normalizado(claves[i], textos_[i]);
        if (original_ && original_->Texto(claves[i]) == texto) {
            continue;
        }
        r.Valor(claves[i], texto);
    }
    return r;
}

std::string TarifaEditable::TextoTiempoIncluido(int minutos, int segundos) {
    return HoraTexto(std::clamp(minutos, 0, 23) * 3600 + std::clamp(segundos, 0, 59) * 60);
}

std::optional<std::pair<int, int>> TarifaEditable::LeerTiempoIncluido(std::string_view texto) {
    const auto s = LeerHora(texto);
    if (!s) {
        return std::nullopt;
    }
    return std::make_pair(*s / 3600, *s / 60 % 60);
}

std::optional<std::int32_t> TarifaEditable::LeerHora(std::string_view texto) {
    try {
        return SegundosDeHoraDelDia(texto);
    } catch (const ErrorTipo&) {
        return std::nullopt;
    }
}

std::optional<FranjasDia> TarifaEditable::Franjas(int tipoDia) const {
    const auto ni = LeerHora(Valor(Clave(tipoDia, 0, "Inicio")));
    const auto nf = LeerHora(Valor(Clave(tipoDia, 0, "Fin")));
    const auto ri = LeerHora(Valor(Clave(tipoDia, 1, "Inicio")));
    const auto rf = LeerHora(Valor(Clave(tipoDia, 1, "Fin")));
    if (!ni || !nf || !ri || !rf) {
        return std::nullopt;
    }
    return FranjasDia{*ni, *nf, *ri, *rf};
}

} // namespace vorimesk
