#pragma once
// A platform for the window tests and the screenshots: fixed dial-up
// entries and modems, dialling and hang-ups only noted, the link in the
// state the test puts it, and start at login kept in memory, so nothing of
// the machine is touched.

#include "platform/Plataforma.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk::prueba {

class SistemaPrueba final : public FuenteConexiones,
                            public Marcador,
                            public ListaEntradas,
                            public ListaModems,
                            public CargaAlIniciar {
public:
    LecturaConexion Leer() override {
        const bool activa =
            estado != LecturaConexion::kNada && estado != LecturaConexion::kDesconectado;
        return {activa ? 1 : 0, estado, estado == LecturaConexion::kNada ? std::string() : entrada,
                aviso};
    }

    void Marcar(const std::string& entrada) override { marcadas.push_back(entrada); }
    int Colgar(const std::string& e) override {
        colgadas.push_back(e);
        return 0;
    }
    int UltimoResultado() const override { return 0; }

    std::vector<std::string> Entradas() const override { return entradas; }
    std::vector<Modem> Modems() const override { return modems; }

    void Activar(const std::filesystem::path&,
                 const std::vector<std::string>& argumentos) override {
        cargaAlIniciar = argumentos;
    }
    void Desactivar() override { cargaAlIniciar.reset(); }
    bool Activada() const override { return cargaAlIniciar.has_value(); }

    std::vector<std::string> entradas;
    std::vector<Modem> modems;
    std::vector<std::string> marcadas;
    std::vector<std::string> colgadas;
    int estado = LecturaConexion::kNada;
    std::string entrada;
    std::string aviso;
    // The options the login start was registered with; none while off.
    std::optional<std::vector<std::string>> cargaAlIniciar;
};

struct PlataformaPrueba {
    std::shared_ptr<SistemaPrueba> sistema = std::make_shared<SistemaPrueba>();

    Plataforma Crear() const {
        Plataforma p;
        p.conexiones = sistema;
        p.marcador = sistema;
        p.entradas = sistema;
        p.modems = sistema;
        p.cargaAlIniciar = sistema;
        p.origen = origen;
        return p;
    }
    std::string origen;
};

} // namespace vorimesk::prueba
