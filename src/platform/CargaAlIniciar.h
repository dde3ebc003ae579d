#pragma once
// Starting the program when the user's session starts ("Cargar al iniciar").

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// The options of this start that the start at login must repeat: the data
// folder given with --datos, made absolute, since the session starts the
// program from another folder. Without it the login start finds the same
// folder by itself.
inline std::vector<std::string>
OpcionesAlIniciar(const std::optional<std::filesystem::path>& datos) {
    if (!datos) {
        return {};
    }
    std::error_code ec;
    const std::filesystem::path absoluta = std::filesystem::absolute(*datos, ec);
    return {"--datos", (ec ? *datos : absoluta).lexically_normal().string()};
}

// Only the installed program starts at login: an executable under /usr
// (/usr/local included). A build folder's program, or one started on a
// scripted modem, would leave the session starting something that moves
// or goes away.
inline bool PuedeCargarAlIniciar(const std::filesystem::path& ejecutable, bool demostracion) {
    const std::filesystem::path ruta = ejecutable.lexically_normal();
    auto parte = ruta.begin();
    return !demostracion && ruta.is_absolute() && ++parte != ruta.end() && *parte == "usr" &&
           ++parte != ruta.end();
}

class CargaAlIniciar {
public:
    virtual ~CargaAlIniciar() = default;
    // Registers `ejecutable` with `argumentos` to start at login. Called at
    // every start while the option is on, so the entry follows the program
    // when it moves and keeps the options it was last started with.
    virtual void Activar(const std::filesystem::path& ejecutable,
                         const std::vector<std::string>& argumentos) = 0;
    // Removes the registration; nothing happens when there is none.
    virtual void Desactivar() = 0;
    virtual bool Activada() const = 0;
};

} // namespace vorimesk
