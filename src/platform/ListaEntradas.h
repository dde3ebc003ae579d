#pragma once
// The dial-up entries configured in the system, the names the user dials.

#include <string>
#include <vector>

namespace vorimesk {

class ListaEntradas {
public:
    virtual ~ListaEntradas() = default;
    // Entry names in a stable order; empty when there are none.
    virtual std::vector<std::string> Entradas() const = 0;
};

} // namespace vorimesk
