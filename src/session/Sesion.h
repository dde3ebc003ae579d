#pragma once
// One user's data folder as one unit: the settings, the BonoNet ledger, the
// pending-connection list, the call register, the tariff book and the budget. The main
// window and vorimesk-cli load and save through it, so the rules of when each
// file is written are kept here once:
//
// - Nothing is written while loading. The tariff book and the budget are
//   read at their first use and again only when their file changes.
// - The register is written at once when calls are taken from the modem log
//   (LlamadasAnotadas), when it is re-priced (Recalcular) and when the
//   archive tools change it (RegistroCambiado); at the exit only if something
//   is still unsaved. A register that could not be read is not written over
//   by an edit or the exit.
// - The settings file, with the ledger and the pending list in it, is written
//   when a call starts, when calls are recorded and when the bundles renew
//   (TrasSucesos), and at the normal exit (Guardar); never when its bonos or
//   profiles could not be read.
// - The register's "bak" backup is made once a session, at its first save:
//   it keeps the register as it was before the session. One-shot commands write back only a ledger
//   they changed (GuardarBonoSiCambio).
//
// Nothing here shows anything: questions and faults go back to the caller as
// results or as Error with a Spanish text.

#include "DatosSesion.h"
#include "core/Errores.h"
#include "monitor/RegistroLog.h"
#include "monitor/SucesoMonitor.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vorimesk {

// The settings file does not read whole, for the callers that refuse to work
// on it (the commands): the file's path and what is wrong, without the rest.
class ErrorAjustes : public Error {
public:
    ErrorAjustes(std::filesystem::path ruta, std::string motivo);
    const std::filesystem::path& Ruta() const { return ruta_; }
    const std::string& Motivo() const { return motivo_; }

private:
    std::filesystem::path ruta_;
    std::string motivo_;
};

class Sesion {
public:
    // How the settings file was read by LeerAjustes.
    struct LecturaAjustes {
        // The file does not read as settings: the defaults apply and this
        // says why. The file is copied aside before the next save.
        std::string dañado;
        // Its bonos or profiles cannot be taken: the ledger is empty and the
        // file is left alone for the rest of the run.
        std::string listasIlegibles;
    };

    // Nothing is read yet; the settings are the defaults.
    Sesion(std::filesystem::path carpeta, const Reloj& reloj);
    Sesion(const Sesion&) = delete;
    Sesion& operator=(const Sesion&) = delete;

    DatosSesion& Datos() { return datos_; }
    const DatosSesion& Datos() const { return datos_; }
    const std::filesystem::path& Carpeta() const { return datos_.Carpeta; }
    Settings& Ajustes() { return datos_.Ajustes; }
    cBono& Bono() { return datos_.Bono; }
    colConexion& Pendientes() { return datos_.Conexiones; }
    Log& Registro() { return datos_.Registro; }
    const Log& Registro() const { return datos_.Registro; }
    std::vector<Fecha> Festivos() const;
    // The tariff book every pricing borrows (the register's included).
    const LibroTarifas& Libro() const { return datos_.Libro; }
    PresupuestoSesion& Presupuesto() { return datos_.Presupuesto; }
    const PresupuestoSesion& Presupuesto() const { return datos_.Presupuesto; }
    // The register as the connection monitor fills it: its saving goes
    // through LlamadasAnotadas.
    RegistroMonitor& RegistroDelMonitor() { return registroMonitor_; }

    // Loading, in start-up order: the settings first, the register later.

    // The settings file and the ledger and pending list kept in it, for the
    // window: a damaged file never stops it.
    LecturaAjustes LeerAjustes();
    // The same for the commands, which stop on a damaged file before
    // anything is changed: throws ErrorAjustes.
    void LeerAjustesEstrictos();
    // The register file (an empty register when there is none). Throws the
    // reading's Error; the register is then never written over by an edit
    // or the exit.
    void CargarRegistro();
    bool RegistroLeido() const { return registroLeido_; }
    // The current billing period, from the register's first call to today.
    void CalcularPeriodo();

    // What happens during the run.

    // Calls of the modem log entered the register: a call finished. Every
    // finished call is made safe on disk here; today that is the register,
    // while the ledger and the pending list wait for the exit.
    void LlamadasAnotadas();
    // The finished calls of the modem log `ruta`, matched with `pendientes`,
    // enter the register, which is saved; the log is then gone. When the
    // save fails the log's text goes back in front of whatever a modem wrote
    // since, and the Error is thrown. False when the log has no finished call.
    bool AñadirModemLog(const std::filesystem::path& ruta, colConexion& pendientes);
    // From now on finished calls come from the sessions the system records
    // by itself (null: the modem log alone); those recorded while the meter
    // was closed are taken at once. The register must be loaded.
    TomaDiario::Resultado TomarDiario(std::shared_ptr<TomaDiario> diario);
    // What a tick of the monitor brought: when a call came up (its pending
    // record), calls were recorded or the bundles renewed, the settings file
    // with the ledger and the pending list is written at once, so a crash
    // loses neither. The register itself is written by LlamadasAnotadas.
    void TrasSucesos(const std::vector<SucesoMonitor>& sucesos);
    // The archive tools changed the register: written at once.
    void RegistroCambiado();
    // Every call priced again with the current tariffs, ledger and holidays;
    // written at once. A failure leaves every call as it was; calls whose
    // tariff the book lacks keep their amounts and are counted in the result.
    RecalculoLog Recalcular();

    // The normal exit: the register when something is unsaved, then the
    // settings file with the ledger and the pending list.
    void Guardar();
    // For the one-shot commands: the ledger goes back into the settings file
    // when it is not the one that was read; every other setting is written
    // back as read. True when written.
    bool GuardarBonoSiCambio();

private:
    // The monitor's register, saved by the session's rule.
    class RegistroSesion final : public RegistroLog {
    public:
        // The register's Sesion (a session in the modem log) hides the class.
        explicit RegistroSesion(vorimesk::Sesion& sesion)
            : RegistroLog(sesion.datos_.Registro), sesion_(sesion) {}
        void SalvarLog() override {
            RegistroLog::SalvarLog();
            sesion_.registroSucio_ = false;
        }

    private:
        vorimesk::Sesion& sesion_;
    };

    std::filesystem::path RutaAjustes() const;
    void GuardarRegistro();
    void GuardarAjustes();
    void CargarListas();

    DatosSesion datos_;
    RegistroSesion registroMonitor_{*this};
    bool registroLeido_ = false;
    bool registroSucio_ = false;
    bool ajustesGuardables_ = true;
};

} // namespace vorimesk
