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
