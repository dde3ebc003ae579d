#include "CarpetaMedicion.h"

#include "tariff/LibroPorDefecto.h"

#include <stdexcept>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk::medicion {

CarpetaMedicion::CarpetaMedicion() {
    std::string plantilla = (fs::temp_directory_path() / "vorimesk-bench-XXXXXX").string();
    if (::mkdtemp(plantilla.data()) == nullptr) {
        throw std::runtime_error("sin carpeta temporal");
    }
    dir_ = plantilla;
    InstalarLibroPorDefecto(dir_);
}

CarpetaMedicion::~CarpetaMedicion() {
    std::error_code ec;
    fs::remove_all(dir_, ec);
}

} // namespace vorimesk::medicion
