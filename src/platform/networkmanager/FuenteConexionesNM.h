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

    void Actualizar() override;
    int Count() const override { return count_; }
    int IntState() const override { return estado_; }
    std::string EntryName() const override { return entrada_; }
    std::optional<Trafico> Bytes() const override { return bytes_; }
    std::string Interfaz() const override { return interfaz_; }
    OrigenEnlace Origen() const override { return OrigenEnlace::NetworkManager; }
    std::string Aviso() const override { return cliente_->Aviso(); }

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
    void FinDeLlamada(int count);
    void Fijar(int count, int estado, const std::string& entrada, const std::string& interfaz,
               std::optional<Trafico> bytes);

    std::shared_ptr<ClienteNM> cliente_;
    std::filesystem::path sys_;
    std::optional<Vigilada> vigilada_;
    bool trasLlamada_ = false;
    Vigilada ultima_; // the call that ended last, for the state 0

    int count_ = 0;
    int estado_ = kNada;
    std::string entrada_;
    std::string interfaz_;
    std::optional<Trafico> bytes_;
};

} // namespace vorimesk
