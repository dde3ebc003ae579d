#pragma once
// The call register (Log) as the monitor uses it.

#include "RegistroMonitor.h"
#include "register/Log.h"

namespace vorimesk {

class RegistroLog final : public RegistroMonitor {
public:
    explicit RegistroLog(Log& log) : log_(log) {}

    bool ExisteModemLog() const override;
    bool AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                   colConexion& pendientes) override;
    Fecha DateConexion() const override { return log_.DateConexion(); }
    int Count() const override { return log_.Count(); }
    void SalvarLog() override { log_.SalvarLog(); }
    LlamadaAnotada Anotada(int indice) const override;
    SesionEnLog Sesion(Fecha inicio) const override;
    int AnotarVista(const LlamadaVista& vista, const std::filesystem::path& rutaLog, cBono& bono,
                    const std::vector<Fecha>& festivos) override;

private:
    Log& log_;
};

} // namespace vorimesk
