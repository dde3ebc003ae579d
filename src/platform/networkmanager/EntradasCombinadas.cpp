#include "EntradasCombinadas.h"

#include <algorithm>

namespace vorimesk {

std::vector<std::string> EntradasCombinadas::Entradas() const {
    std::vector<std::string> nombres = primera_->Entradas();
    for (std::string& n : segunda_->Entradas()) {
        if (std::find(nombres.begin(), nombres.end(), n) == nombres.end()) {
            nombres.push_back(std::move(n));
        }
    }
    return nombres;
}

} // namespace vorimesk
