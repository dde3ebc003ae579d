#pragma once
// Where the user's data files live, decided once at start:
//   1. the folder given with --datos;
//   2. the executable's folder, when it already holds "Tarifas.Dat" or
//      "RegDat.log" and can be written (a portable install);
//   3. $XDG_DATA_HOME/vorimesk, or ~/.local/share/vorimesk.
// The chosen folder is created when missing, with an empty "Copias" folder;
// a folder without any of the user's files gets the shipped ones.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace vorimesk {

struct EntornoCarpeta {
    std::optional<std::filesystem::path> datos; // --datos
    std::filesystem::path carpetaEjecutable;    // may be empty
    std::optional<std::string> xdgDataHome;     // $XDG_DATA_HOME
    std::optional<std::string> home;            // $HOME
};

class CarpetaDatos {
public:
    // Throws ErrorArchivo when the folder cannot be found or created.
    static std::filesystem::path Resolver(const EntornoCarpeta& entorno);
    // The environment of this process (executable from /proc/self/exe).
    static EntornoCarpeta EntornoActual(std::optional<std::filesystem::path> datos);
    // Called on a folder that holds none of the user's files yet, to put the
    // shipped files (the default tariff book) in it. Set by the layer that
    // owns them.
    static void AlCrear(std::function<void(const std::filesystem::path&)> preparar);
};

} // namespace vorimesk
