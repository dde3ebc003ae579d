#pragma once
// Starting the program when the user's session starts ("Cargar al iniciar").

#include <filesystem>

namespace vorimesk {

class CargaAlIniciar {
public:
    virtual ~CargaAlIniciar() = default;
    // Registers `ejecutable` to start at login. Called at every start while
    // the option is on, so the entry follows the program when it moves.
    virtual void Activar(const std::filesystem::path& ejecutable) = 0;
    // Removes the registration; nothing happens when there is none.
    virtual void Desactivar() = 0;
    virtual bool Activada() const = 0;
};

} // namespace vorimesk
