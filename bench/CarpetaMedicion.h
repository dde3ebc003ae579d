#pragma once
// A data folder for a benchmark: a fresh folder under the system's temporary
// one holding the shipped tariff book, removed with everything in it at the
// end.

#include <filesystem>

namespace vorimesk::medicion {

class CarpetaMedicion {
public:
    CarpetaMedicion();
    ~CarpetaMedicion();
    CarpetaMedicion(const CarpetaMedicion&) = delete;
    CarpetaMedicion& operator=(const CarpetaMedicion&) = delete;

    const std::filesystem::path& Dir() const { return dir_; }

private:
    std::filesystem::path dir_;
};

} // namespace vorimesk::medicion
