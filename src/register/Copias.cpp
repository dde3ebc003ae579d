#include "Copias.h"

#include "CopiaSeguridad.h"
#include "FormatoCopia.h"
#include "FormatoRegistro.h"
#include "core/Archivo.h"
#include "core/ErrorFormato.h"
#include "core/Errores.h"
#include "core/Texto1252.h"
#include "core/TextoDelimitado.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

bool EnIntervalo(Fecha dia, Fecha desde, Fecha hasta) {
    return desde <= dia && dia <= hasta;
}

// The call's start: its day plus the time of day of its hour.
std::int64_t Momento(const RegistroLlamada& r) {
    return Fecha::DesdeOle(r.Dia).SoloFecha().Segundos() + Fecha::DesdeOle(r.Hora).SegundosDelDia();
}

} // namespace

bool Copias::Archivar(Log& registro, const std::string& nombre, const std::string& descripcion,
                      Fecha desde, Fecha hasta, bool borrarAlArchivar) {
    const fs::path ruta = carpeta_ / nombre;
    // The whole text first: a record that cannot be written stops the
    // archive before any file is touched.
    std::string texto;
    for (int i = 0; i < registro.Count(); ++i) {
        if (EnIntervalo(registro.Dia(i), desde, hasta)) {
            texto += LineaCopia(registro.Registro(i));
            texto += kFinDeLinea;
        }
    }
    const bool existia = HacerCopiaSeguridad(ruta);
    if (registro.Count() < 1) {
        if (existia) {
            BorrarArchivo(ruta);
        }
        return false;
    }
    EscribirArchivoSeguro(ruta, A1252(texto), kSoloUsuario);
    indice_.Añadir(fs::path(nombre).filename().string(), descripcion);
    if (borrarAlArchivar) {
        // Removing record i moves the next one into its place, so i is
        // examined again.
        int i = 0;
        while (i < registro.Count()) {
            if (EnIntervalo(registro.Dia(i), desde, hasta)) {
                registro.BorrarItem(i);
            } else {
                ++i;
            }
        }
    }
    return true;
}

void Copias::Recuperar(const std::string& nombre, Log& destino) const {
    const fs::path ruta = carpeta_ / nombre;
    std::vector<RegistroLlamada> registros;
    try {
        registros = LeerCopia(LeerArchivo(ruta));
    } catch (const ErrorFormato& e) {
        throw e.ConRuta(ruta.string());
    }
    if (registros.size() > static_cast<std::size_t>(kMaximoLlamadas)) {
        throw ErrorDesbordamiento("el registro no admite mas de " +
                                  std::to_string(kMaximoLlamadas) + " llamadas");
    }
    // The register's views (the period shown, the graphs) walk it in date
    // order.
    std::stable_sort(
        registros.begin(), registros.end(),
        [](const RegistroLlamada& a, const RegistroLlamada& b) { return Momento(a) < Momento(b); });
    destino.BorrarLog();
    for (const RegistroLlamada& r : registros) {
        destino.AñadirItem(r);
    }
}

void Copias::Borrar(const fs::path& carpeta, const std::string& nombre) {
    const fs::path ruta = carpeta / nombre;
    std::error_code ec;
    if (!fs::is_regular_file(ruta, ec)) {
        throw ErrorArchivo(ruta.string(), "no existe esa copia");
    }
    BorrarArchivo(ruta);
}

} // namespace vorimesk
