#pragma once
// A platform for the window tests and the screenshots: fixed dial-up
// entries and modems, dialling and hang-ups only noted, the link in the
// state the test puts it, and start at login kept in memory, so nothing of
// the machine is touched.

#include "platform/Plataforma.h"
#include "platform/simulated/CargaAlIniciarEnMemoria.h"

#include <memory>
#include <string>
#include <vector>

namespace vorimesk::prueba {

class SistemaPrueba final : public FuenteConexiones,
                            public Marcador,
                            public ListaEntradas,
                            public ListaModems {
public:
    void Actualizar() override {}
    int Count() const override { return estado == kNada || estado == kDesconectado ? 0 : 1; }
    int IntState() const override { return estado; }
    std::string EntryName() const override { return estado == kNada ? std::string() : entrada; }
    std::optional<Trafico> Bytes() const override { return std::nullopt; }
    std::string Aviso() const override { return aviso; }

    void Marcar(const std::string& entrada) override { marcadas.push_back(entrada); }
    int Colgar(const std::string& e) override {
        colgadas.push_back(e);
        return 0;
    }
    int UltimoResultado() const override { return 0; }

    std::vector<std::string> Entradas() const override { return entradas; }
    std::vector<Modem> Modems() const override { return modems; }

    std::vector<std::string> entradas;
    std::vector<Modem> modems;
    std::vector<std::string> marcadas;
    std::vector<std::string> colgadas;
    int estado = kNada;
    std::string entrada;
    std::string aviso;
};

struct PlataformaPrueba {
    std::shared_ptr<SistemaPrueba> sistema = std::make_shared<SistemaPrueba>();
    std::shared_ptr<CargaAlIniciarEnMemoria> carga = std::make_shared<CargaAlIniciarEnMemoria>();

    Plataforma Crear() const {
        Plataforma p;
        p.conexiones = sistema;
        p.marcador = sistema;
        p.entradas = sistema;
        p.modems = sistema;
        p.cargaAlIniciar = carga;
        p.origen = origen;
        return p;
    }
    std::string origen;
};

} // namespace vorimesk::prueba
