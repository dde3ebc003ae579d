#pragma once
// The telephone line as the monitor drives it: dialling an entry on the
// user's request and hanging up the watched one when a call ends.

#include <string>

namespace vorimesk {

class LineaMonitor {
public:
    virtual ~LineaMonitor() = default;
    virtual void Marcar(const std::string& entrada) = 0;
    // Every active connection of that entry; none is no error.
    virtual void Colgar(const std::string& entrada) = 0;
};

} // namespace vorimesk
