#pragma once
// Connection states from pppd and its interfaces:
//   2  a ppp interface is up (the link of the call being watched first);
//   3  a pppd runs with no interface up yet (dialling, negotiating);
//   0  the interface of the watched call went down or away; kept while
//      nothing else happens and reported once even when pppd redials at
//      once, so the monitor always sees the call end;
//  -1  nothing, and no call has ended since the last link started (a dial
//      that failed falls from 3 straight to -1).

#include "platform/FuenteConexiones.h"
#include "platform/linux/LectorPpp.h"

namespace vorimesk {

class FuenteConexionesLinux final : public FuenteConexiones {
public:
    explicit FuenteConexionesLinux(RaicesLinux raices);

    void Actualizar() override;
    int Count() const override { return count_; }
    int IntState() const override { return estado_; }
    std::string EntryName() const override { return entrada_; }
    std::optional<Trafico> Bytes() const override { return bytes_; }
    std::string Interfaz() const override { return vigilada_.value_or(std::string()); }
    OrigenEnlace Origen() const override { return OrigenEnlace::Pppd; }

private:
    void FinDeLlamada(int count);
    void Fijar(int count, int estado, std::string entrada, std::optional<Trafico> bytes);

    LectorPpp lector_;
    // Memory between looks: the interface of the call being watched, its
    // entry and last bytes, and whether a call ended since the last link.
    std::optional<std::string> vigilada_;
    std::string entradaVigilada_;
    std::optional<Trafico> bytesVigilada_;
    bool trasLlamada_ = false;

    int count_ = 0;
    int estado_ = kNada;
    std::string entrada_;
    std::optional<Trafico> bytes_;
};

} // namespace vorimesk
