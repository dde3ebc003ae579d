#pragma once
// The entries of several sources in one list: each source's in its own
// order, one after the other, a name already listed not repeated.

#include "platform/ListaEntradas.h"

#include <memory>

namespace vorimesk {

class EntradasCombinadas final : public ListaEntradas {
public:
    EntradasCombinadas(std::shared_ptr<ListaEntradas> primera,
                       std::shared_ptr<ListaEntradas> segunda)
        : primera_(std::move(primera)), segunda_(std::move(segunda)) {}
    std::vector<std::string> Entradas() const override;

private:
    std::shared_ptr<ListaEntradas> primera_;
    std::shared_ptr<ListaEntradas> segunda_;
};

} // namespace vorimesk
