#pragma once
// The call register (Log) as the monitor uses it. Where the system records
// every link session by itself (TomaDiario), the finished calls come from
// there: at the end of a call the session that covers it is awaited, and
// whatever sessions were not taken yet are taken with it.

#include "RegistroMonitor.h"
#include "TomaDiario.h"
#include "register/Log.h"
#include "settings/Settings.h"

#include <memory>
#include <optional>
#include <utility>

namespace vorimesk {

class RegistroLog : public RegistroMonitor {
public:
    explicit RegistroLog(Log& log) : log_(log) {}
    // From now on the calls come from the journal `diario`, priced with the entry
    // profiles of `ajustes`. Null keeps the modem log alone (the scripted
    // modem writes it itself).
    void UsarDiario(const Settings& ajustes, std::shared_ptr<TomaDiario> diario) {
        ajustes_ = &ajustes;
        diario_ = std::move(diario);
    }

    // The modem log is there, or an ended call still waits for its session.
    bool ExisteModemLog() const override;
    bool AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                   colConexion& pendientes) override;
    Fecha DateConexion() const override { return log_.DateConexion(); }
    int Count() const override { return log_.Count(); }
    void SalvarLog() override;
    void LlamadaTerminada(Fecha inicio) override;
    LlamadaAnotada Anotada(int indice) const override;
    const std::vector<RegistroLlamada>* Llamadas() const override { return &log_.Registros(); }
    SesionEnLog EstadoEnLog(Fecha inicio) const override;
    int AnotarVista(const LlamadaVista& vista, const std::filesystem::path& rutaLog, cBono& bono,
                    const std::vector<Fecha>& festivos) override;
    bool SesionPuedeLlegar(const LlamadaVista& vista) const override;
    int TomarCorregidas() override { return std::exchange(corregidas_, 0); }
    std::vector<LlamadaAnotada> TomarSesionesEntradas() override {
        return std::exchange(entradas_, {});
    }
    bool HaySesionesEntradas() const override { return !entradas_.empty(); }

    // Takes the sessions recorded while the meter was closed (at start-up,
    // once the register is loaded). Nothing without a session journal.
    TomaDiario::Resultado TomarDiario(cBono& bono, colConexion& pendientes);

private:
    Log& log_;
    const Settings* ajustes_ = nullptr;
    std::shared_ptr<TomaDiario> diario_;
    std::optional<Fecha> esperada_;  // start of the ended call awaiting its session
    std::optional<int> guardadoCon_; // the register's size when the taking saved it
    int corregidas_ = 0;
    std::vector<LlamadaAnotada> entradas_;
};

} // namespace vorimesk
