#pragma once
// How a program of the list started on connecting is run on Linux: a
// desktop entry (".desktop") through the desktop's launcher, "gio launch",
// or, where there is none, through its own Exec line; a file the system
// cannot run (a document) through "xdg-open"; a program as it is.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

struct OrdenPrograma {
    // argv[0] is looked up in PATH when it holds no "/".
    std::vector<std::string> argv;
    // A launcher that ends as soon as it has started the program: its exit
    // status says whether that worked, so it is waited for.
    bool esperar = false;
};

// Whether a command is on the PATH.
using HayOrden = std::function<bool(const std::string& nombre)>;

// Throws Error, with a message for the user, for a desktop entry that can
// only be run by its Exec line and has none.
OrdenPrograma OrdenParaPrograma(const std::filesystem::path& ruta, const HayOrden& hayOrden);

// The Exec line of a desktop entry's [Desktop Entry] group as argv, its
// quoting undone and its field codes (%f, %U, %i ...) left out; empty when
// there is none.
std::vector<std::string> ExecDeEscritorio(std::string_view contenido);

} // namespace vorimesk
