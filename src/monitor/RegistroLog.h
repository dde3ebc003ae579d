#pragma once
// The call register (Log) as the monitor uses it.

#include "RegistroMonitor.h"
#include "register/Log.h"

namespace vorimesk {

class RegistroLog : public RegistroMonitor {
public:
    explicit RegistroLog(Log& log) : log_(log) {}

    bool ExisteModemLog() const override;
    bool AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                   colConexion& pendientes) override;
    Fecha DateConexion() const override { return log_.DateConexion(); }
    int Count() const override { return log_.Count(); }
    void SalvarLog() override { log_.SalvarLog(); }

private:
    Log& log_;
};

} // namespace vorimesk
