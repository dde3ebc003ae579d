#pragma once
// What a running meter lets other programs of the user see: a small text
// file in the data folder, rewritten (atomically) on each event of the
// meter, so a window started on a folder that a service meter already
// watches can show what that meter is doing. One "clave=valor" per line.

#include "core/Fecha.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

struct EstadoContador {
    static constexpr const char* kNombreArchivo = "vorimesk.estado";

    long pid = 0;
    std::string hora;      // of the last event, "AAAA-MM-DD hh:mm:ss"
    int estado = -1;       // the connection's state code
    std::string texto;     // its name, "Conectado", ...
    std::string conexion;  // the dial-up entry, or empty
    std::string inicio;    // start of the running call, or empty
    std::string tarifa;    // of the running call
    std::string descuento; // of the running call
    std::string suceso;    // the last event, as a Spanish sentence

    bool operator==(const EstadoContador&) const = default;
};

std::string TextoEstadoContador(const EstadoContador& estado);
// Unknown keys and malformed lines are passed over (a newer meter may write
// more).
EstadoContador LeerEstadoContador(std::string_view texto);

// Throws ErrorArchivo; the old file stays as it was.
void GuardarEstadoContador(const std::filesystem::path& carpetaDatos, const EstadoContador& e);
// Nothing when the file is missing or unreadable.
std::optional<EstadoContador> CargarEstadoContador(const std::filesystem::path& carpetaDatos);

// A few Spanish lines for the user: the state, the running call with its
// time so far at `ahora`, and the last event.
std::string DescribirEstadoContador(const EstadoContador& estado, Fecha ahora);

} // namespace vorimesk
