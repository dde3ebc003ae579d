#include "EntradasNM.h"

#include <algorithm>

namespace vorimesk {

std::vector<std::string> EntradasNM::Entradas() const {
    cliente_->Bombear(); // a connection added in the settings shows at once
    std::vector<std::string> ids;
    for (const ConexionNM& c : cliente_->Conexiones()) {
        // Two connections may share an id; the user dials them by it, once.
        if (!c.id.empty() && std::find(ids.begin(), ids.end(), c.id) == ids.end()) {
            ids.push_back(c.id);
        }
    }
    return ids;
}

} // namespace vorimesk
