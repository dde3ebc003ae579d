#pragma once
// The modems installed in the system and where each one's session log is.

#include <filesystem>
#include <string>
#include <vector>

namespace vorimesk {

struct Modem {
    std::string clave;             // stable identifier, to remember the choice
    std::string modelo;            // display name offered to the user
    std::filesystem::path rutaLog; // session log the register reads
    bool operator==(const Modem&) const = default;
};

class ListaModems {
public:
    virtual ~ListaModems() = default;
    // In a stable order; empty when no modem is installed.
    virtual std::vector<Modem> Modems() const = 0;
};

} // namespace vorimesk
