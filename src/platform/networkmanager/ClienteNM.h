#pragma once
// NetworkManager as the meter sees it over the system bus: the dial-up
// connections of its settings and the active ones among them, kept up to date
// from its signals. Nothing waits for a signal and no thread is started:
// Bombear() takes what arrived since the last call, on the caller's thread,
// so the meter's own tick is the only loop and everything stays on one thread.

#include "platform/FuenteConexiones.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <sdbus-c++/sdbus-c++.h>
#include <string>
#include <vector>

namespace vorimesk {

// One connection of the settings that dials: its id is the entry name.
struct ConexionNM {
    std::string ruta; // settings object
    std::string id;
    std::string uuid;
    bool operator==(const ConexionNM&) const = default;
};

// One active dial-up connection.
struct ActivaNM {
    std::string ruta; // active connection object; NetworkManager renumbers them on restart
    std::string uuid; // of its settings: the same across restarts
    std::string id;
    std::uint32_t estado = 0;
    std::string dispositivo; // device object, empty while it has none
    std::string interfaz;    // the network interface (ppp0, wwan0) once there is one
    std::optional<Trafico> bytes;
};

class ClienteNM {
public:
    // NetworkManager's states of an active connection.
    static constexpr std::uint32_t kActivando = 1;
    static constexpr std::uint32_t kActivada = 2;
    static constexpr std::uint32_t kDesactivando = 3;
    static constexpr std::uint32_t kDesactivada = 4;

    // Whether NetworkManager owns its name on the system bus. Never throws:
    // a machine with no system bus has no NetworkManager.
    static bool Disponible();

    // Connects and reads the settings and the active connections. Throws
    // Error (Spanish) when the system bus cannot be reached.
    ClienteNM();
    ~ClienteNM();
    ClienteNM(const ClienteNM&) = delete;
    ClienteNM& operator=(const ClienteNM&) = delete;

    // Takes the signals that arrived and reads again what they changed. A
    // lost bus connection is opened again on a later call.
    void Bombear();

    // NetworkManager owns its name; while it does not (a restart), the last
    // picture is kept.
    bool Presente() const { return presente_; }
    // NetworkManager is still starting and taking over the links that were up.
    bool Iniciando() const { return iniciando_; }
    // Grows each time NetworkManager comes back on the bus.
    int Reinicios() const { return reinicios_; }

    const std::vector<ConexionNM>& Conexiones() const { return conexiones_; }
    const std::vector<ActivaNM>& Activas() const { return activas_; }

    // Activates the connection of that id. Returns the Spanish reason when
    // NetworkManager refuses, or nothing when it took the request.
    std::optional<std::string> Activar(const std::string& id);
    // Deactivates every active connection of that id; returns how many it
    // asked, with the reason of the first refusal, if any.
    int Desactivar(const std::string& id, std::optional<std::string>& error);

    // Asks the device to refresh its byte counters every `ms` (0: never).
    // Quietly does nothing when NetworkManager does not allow it.
    void Refresco(const std::string& dispositivo, std::uint32_t ms);

    // The last refusal of a dial or hang-up, in Spanish; cleared by the next
    // request that goes well.
    const std::string& Aviso() const { return aviso_; }

    // The bus, for ModemManager's modems; null while there is no connection.
    sdbus::IConnection* Bus() const { return bus_.get(); }

private:
    void Conectar();
    void Desconectar();
    void AlSenal(sdbus::Message& m);
    void AlPropiedades(sdbus::Message& m);
    void AlEstado(const std::string& ruta, std::uint32_t estado);
    void AlDueño(sdbus::Message& m);
    void LeerConexiones();
    void LeerActivas();
    std::optional<ActivaNM> LeerActiva(const std::string& ruta) const;
    void LeerDispositivo(ActivaNM& a) const;
    bool EsDeMarcado(const ActivaNM& a, const std::string& tipo) const;
    std::string DispositivoPara(const std::string& conexion) const;

    std::unique_ptr<sdbus::IConnection> bus_;
    std::vector<sdbus::Slot> suscripciones_;
    bool presente_ = false;
    bool iniciando_ = false;
    int reinicios_ = 0;
    bool releerConexiones_ = true;
    bool releerActivas_ = true;
    std::vector<ConexionNM> conexiones_;
    std::vector<ActivaNM> activas_;
    std::string aviso_;
};

} // namespace vorimesk
