#pragma once
// Modems of a NetworkManager system: those ModemManager drives (maker and
// model), then the serial ports no ModemManager modem uses, for the pppd
// links. All share the session log of the pppd hook.

#include "platform/ListaModems.h"
#include "platform/networkmanager/ClienteNM.h"

#include <memory>

namespace vorimesk {

class ModemsMM final : public ListaModems {
public:
    ModemsMM(std::shared_ptr<ClienteNM> cliente, std::shared_ptr<ListaModems> serie,
             std::filesystem::path rutaLog);
    // ModemManager's keyed by their device identifier, which stays the same
    // when ModemManager renumbers them.
    std::vector<Modem> Modems() const override;

private:
    std::shared_ptr<ClienteNM> cliente_;
    std::shared_ptr<ListaModems> serie_;
    std::filesystem::path rutaLog_;
};

} // namespace vorimesk
