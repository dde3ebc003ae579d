#include "FormatoCopia.h"

#include "core/ErrorFormato.h"
#include "core/Lineas.h"
#include "core/Texto1252.h"
#include "core/TextoDelimitado.h"

#include <cstdint>

namespace vorimesk {
namespace {

constexpr std::size_t kCampos = 11;

bool EnBlanco(std::string_view linea) {
    return linea.find_first_not_of(" \t") == std::string_view::npos;
}

RegistroLlamada LeerLinea(std::string_view linea, int n) {
    const std::vector<CampoDelimitado> c = CamposDeLinea(linea);
    if (c.size() != kCampos) {
        throw ErrorFormato({}, "se esperaban 11 campos y hay " + std::to_string(c.size()), n);
    }
    const auto tipo = ComoEntero(c[4], n, -1, 255);
    return RegistroLlamada::Crear(
        ComoFecha(c[0], n), ComoFecha(c[1], n), ComoTexto(c[2], n), ComoTexto(c[3], n),
        TipoDeBanda(static_cast<int>(tipo)), ComoTexto(c[5], n), ComoTexto(c[6], n),
        ComoTexto(c[7], n), ComoBooleano(c[8], n) ? std::int16_t{-1} : std::int16_t{0},
        static_cast<std::int32_t>(ComoEntero(c[9], n, INT32_MIN, INT32_MAX)),
        static_cast<std::int32_t>(ComoEntero(c[10], n, INT32_MIN, INT32_MAX)));
}

} // namespace

std::string LineaCopia(const RegistroLlamada& r) {
    std::string l;
    l.reserve(128);
    l += LiteralFecha(Fecha::DesdeOle(r.Dia));
    l += ',';
    l += LiteralFecha(Fecha::DesdeOle(r.Hora));
    l += ',';
    l += Entrecomillar(r.Duracion.Texto());
    l += ',';
    l += Entrecomillar(r.importe.Recortado());
    l += ',';
    l += std::to_string(r.Tipo);
    l += ',';
    l += Entrecomillar(r.Tarifa.Recortado());
    l += ',';
    l += Entrecomillar(r.Conexion.Recortado());
    l += ',';
    l += Entrecomillar(r.Reservada.Recortado());
    l += ',';
    l += LiteralBooleano(r.Bono != 0);
    l += ',';
    l += std::to_string(r.Recibidos);
    l += ',';
    l += std::to_string(r.Enviados);
    return l;
}

std::vector<RegistroLlamada> LeerCopia(std::string_view bytes) {
    const std::string texto = De1252(bytes);
    std::vector<RegistroLlamada> registros;
    int n = 0;
    for (std::string_view linea : DividirLineas(texto)) {
        ++n;
        if (!EnBlanco(linea)) {
            registros.push_back(LeerLinea(linea, n));
        }
    }
    return registros;
}

} // namespace vorimesk
