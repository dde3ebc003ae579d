#pragma once
// The telephone line: dialling a dial-up entry and hanging up the
// connections of one, on the user's request or when the monitor ends a call.
// The platform's backends implement it.

#include <string>

namespace vorimesk {

class Marcador {
public:
    virtual ~Marcador() = default;

    // Starts dialling the entry without waiting for the link.
    virtual void Marcar(const std::string& entrada) = 0;

    // Hangs up every active connection whose entry name equals `entrada`
    // (both trimmed of blanks) and leaves the others alone. Returns how many
    // connections were asked to hang up; with none nothing is run, and that
    // is no error.
    virtual int Colgar(const std::string& entrada) = 0;

    // Result of the last dial or hang-up command: 0 when it went well.
    virtual int UltimoResultado() const = 0;
};

} // namespace vorimesk
