#include "TarifasEnUso.h"

#include "core/FormatoNumero.h"

#include <algorithm>

namespace vorimesk {
namespace {

std::string Cuenta(int n, const char* una, const char* varias) {
    return (n == 0 ? std::string("0") : FormatoMiles(n)) + " " + (n == 1 ? una : varias);
}

} // namespace

UsoTarifa UsoDeTarifa(const DatosSesion& datos, std::string_view tarifa) {
    UsoTarifa uso;
    const Log& r = datos.Registro;
    for (int i = 0; i < r.Count(); ++i) {
        uso.llamadas += r.Tarifa(i) == tarifa ? 1 : 0;
    }
    const auto& entradas = datos.Ajustes.EntradasConexion;
    uso.conexiones = static_cast<int>(std::count_if(
        entradas.begin(), entradas.end(), [&](const auto& e) { return e.Tarifa == tarifa; }));
    return uso;
}

UsoTarifa RenombrarTarifa(DatosSesion& datos, std::string_view viejo, std::string_view nuevo) {
    UsoTarifa uso;
    uso.llamadas = datos.Registro.RenombrarTarifa(viejo, nuevo);
    for (EntradaConexion& e : datos.Ajustes.EntradasConexion) {
        if (e.Tarifa == viejo) {
            e.Tarifa = nuevo;
            ++uso.conexiones;
        }
    }
    return uso;
}

std::string TextoUso(const UsoTarifa& uso) {
    std::string texto;
    if (uso.llamadas > 0) {
        texto = Cuenta(uso.llamadas, "llamada del registro", "llamadas del registro");
    }
    if (uso.conexiones > 0) {
        texto += (texto.empty() ? "" : " y ") + Cuenta(uso.conexiones, "conexion", "conexiones");
    }
    return texto.empty() ? "ninguna llamada ni conexion" : texto;
}

} // namespace vorimesk
