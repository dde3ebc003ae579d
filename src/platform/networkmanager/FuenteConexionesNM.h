#pragma once
// Connection states from NetworkManager's active dial-up connections:
//   2  the first one is activated (the one of the call being watched first);
//   3  it is activating (dialling, registering, negotiating);
//   0  the connection of the watched call went down or away; kept while
//      nothing else happens, so the monitor always sees the call end;
//  -1  nothing, and no call has ended since the last link started.
// While NetworkManager is off the bus or still starting, the watched call
// is taken as up as long as its network interface is there: after a restart
// it finds the link again, by the connection's uuid, or ends the call then.

#include "platform/FuenteConexiones.h"
#include "platform/networkmanager/ClienteNM.h"

#include <filesystem>
#include <memory>

namespace vorimesk {

class FuenteConexionesNM final : public FuenteConexiones {
public:
    // `sys` is where the network interfaces are looked for (/sys).
    FuenteConexionesNM(std::shared_ptr<ClienteNM> cliente, std::filesystem::path sys);

    // The reading carries NetworkManager's refusal of the last dial or
    // hang-up, and never a journal: its links get no pppd hook session.
    LecturaConexion Leer() override;

private:
    struct Vigilada {
        std::string ruta;
        std::string uuid;
        std::string id;
        std::string dispositivo;
        std::string interfaz;
        std::optional<Trafico> bytes;
        int reinicios = 0;
    };

    bool SigueArriba(std::vector<ActivaNM>& enlaces);
    bool InterfazPerdida() const;
    void Vigilar(const ActivaNM& a);
    LecturaConexion Mirar();
    LecturaConexion FinDeLlamada(int count);
    LecturaConexion Fijar(int count, int estado, const std::string& entrada,
                          const std::string& interfaz, std::optional<Trafico> bytes);

    std::shared_ptr<ClienteNM> cliente_;
    std::filesystem::path sys_;
    std::optional<Vigilada> vigilada_;
    bool trasLlamada_ = false;
    Vigilada ultima_; // the call that ended last, for the state 0
    int count_ = 0;   // the links of the last look
};

} // namespace vorimesk
