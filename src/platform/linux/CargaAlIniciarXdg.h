#pragma once
// Start at login through the desktop's XDG autostart folder: the file
// "vorimesk.desktop" there starts the program when the session opens.

#include "platform/CargaAlIniciar.h"

#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

class CargaAlIniciarXdg final : public CargaAlIniciar {
public:
    explicit CargaAlIniciarXdg(std::filesystem::path carpetaAutostart);

    // $XDG_CONFIG_HOME/autostart when that is an absolute path, else
    // ~/.config/autostart. Empty when neither is known.
    static std::filesystem::path Carpeta(const std::optional<std::string>& xdgConfigHome,
                                         const std::optional<std::string>& home);
    // The desktop entry text for an executable and its arguments, each
    // quoted for Exec.
    static std::string Contenido(const std::filesystem::path& ejecutable,
                                 const std::vector<std::string>& argumentos = {});

    // Throws ErrorArchivo when the file cannot be written or removed.
    void Activar(const std::filesystem::path& ejecutable,
                 const std::vector<std::string>& argumentos) override;
    void Desactivar() override;
    bool Activada() const override;

    std::filesystem::path Archivo() const { return carpeta_ / "vorimesk.desktop"; }

private:
    std::filesystem::path carpeta_;
};

} // namespace vorimesk
