#pragma once
// The budget of the data folder ("Presupuesto.Dat") as the session keeps
// it: read at the first use and again only when the file has changed (a
// command or another window may write it), and changed only through
// Cambiar, so every reader sees the same figure.

#include "core/HuellaArchivo.h"

#include <exception>
#include <filesystem>
#include <optional>

namespace vorimesk {

class PresupuestoSesion {
public:
    explicit PresupuestoSesion(std::filesystem::path carpeta);

    // The budget now; nullopt for none. A file with no amount throws
    // ErrorFormato naming it (ErrorArchivo when it cannot be read) at every
    // use until it changes.
    std::optional<double> Actual() const;
    // Writes the budget, or removes the file for none. Throws ErrorArchivo
    // and leaves the file as it was when it cannot.
    void Cambiar(std::optional<double> presupuesto);

private:
    std::filesystem::path carpeta_;
    // A cache of the file: refreshed from the const getter.
    mutable bool leido_ = false;
    mutable HuellaArchivo huella_;
    mutable std::optional<double> valor_;
    mutable std::exception_ptr error_;
};

} // namespace vorimesk
