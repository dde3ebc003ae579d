#pragma once
// What the meter tells the world, one call per event: the text or JSON lines
// of `vigilar`, the desktop notifications, the state file other programs
// read. The Contador feeds every observer the same events, already saved.

#include "core/Fecha.h"
#include "monitor/LecturaConexion.h"
#include "monitor/MonitorConexion.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vorimesk {

class Log;

// The meter at the moment of an event: its clock, the connection reading of
// the tick, the monitor's display and the register.
struct MomentoContador {
    Fecha ahora;
    const LecturaConexion& lectura;
    const MonitorConexion& monitor;
    const Log& log;
};

struct InicioContador {
    Fecha ahora;
    std::filesystem::path carpeta;
    std::string rutaModemLog;
    bool simulada = false;
};

class ObservadorContador {
public:
    virtual ~ObservadorContador() = default;
    virtual void Comienzo(const InicioContador&) {}
    // Each tick: the connection as read (before what it caused), one call
    // per monitor event, then Tick.
    virtual void Lectura(const MomentoContador&) {}
    virtual void Suceso(const SucesoMonitor&, const MomentoContador&) {}
    virtual void Tick(const MomentoContador&) {}
    // A failure that stops the meter (the register or settings could not be
    // written, ...); Spanish text.
    virtual void Error(const std::string&) {}
    // The meter stopped cleanly, register and settings saved.
    virtual void Fin() {}
};

// Tells when the connection reading differs from the last tick's: state code
// or entry name.
class CambioEstado {
public:
    bool Cambia(const LecturaConexion& l) {
        const bool cambia = primero_ || l.IntState != estado_ || l.EntryName != entrada_;
        primero_ = false;
        estado_ = l.IntState;
        entrada_ = l.EntryName;
        return cambia;
    }

private:
    bool primero_ = true;
    int estado_ = 0;
    std::string entrada_;
};

// Hands every event to each observer in turn.
class Observadores final : public ObservadorContador {
public:
    void Añadir(std::unique_ptr<ObservadorContador> o) { lista_.push_back(std::move(o)); }
    void Comienzo(const InicioContador& i) override {
        for (auto& o : lista_) {
            o->Comienzo(i);
        }
    }
    void Lectura(const MomentoContador& m) override {
        for (auto& o : lista_) {
            o->Lectura(m);
        }
    }
    void Suceso(const SucesoMonitor& s, const MomentoContador& m) override {
        for (auto& o : lista_) {
            o->Suceso(s, m);
        }
    }
    void Tick(const MomentoContador& m) override {
        for (auto& o : lista_) {
            o->Tick(m);
        }
    }
    void Error(const std::string& texto) override {
        for (auto& o : lista_) {
            o->Error(texto);
        }
    }
    void Fin() override {
        for (auto& o : lista_) {
            o->Fin();
        }
    }

private:
    std::vector<std::unique_ptr<ObservadorContador>> lista_;
};

} // namespace vorimesk
