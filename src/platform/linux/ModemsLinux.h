#pragma once
// Modems are the serial devices a pppd can dial through: ttyUSB and ttyACM
// ports, and ttyS ports with a UART behind them (the kernel lists ttyS0-3
// even on machines without any). All share one modem log: the data folder's,
// through which the sessions of the pppd journal reach the register.

#include "platform/ListaModems.h"

namespace vorimesk {

class ModemsLinux final : public ListaModems {
public:
    ModemsLinux(std::filesystem::path sys, std::filesystem::path rutaLog);
    // Keyed by tty name, sorted naturally (ttyS2 before ttyS10).
    std::vector<Modem> Modems() const override;

private:
    bool EsModem(const std::string& tty) const;
    std::string Modelo(const std::string& tty) const;

    std::filesystem::path sys_;
    std::filesystem::path rutaLog_;
};

} // namespace vorimesk
