#pragma once
// A data folder prepared for the window tests: a tariff book, a register and
// a settings file written with the program's own file code (the formats are
// tested in their own folders), a fixed clock and a test platform; with it
// come the window's parts the tests drive.

#include "CarpetaTemporal.h"
#include "Controles.h"
#include "PlataformaPrueba.h"
#include "RegistroAMano.h"
#include "RespuestasDialogo.h"
#include "settings/ArchivoVariables.h"
#include "tariff/LibroPorDefecto.h"
#include "ui/BarraPrincipal.h"
#include "ui/EntornoVentana.h"
#include "ui/MenuBandeja.h"
#include "ui/ModeloRegistro.h"
#include "ui/PanelConexion.h"
#include "ui/TabBono.h"
#include "ui/TabConexiones.h"
#include "ui/TabFestivos.h"
#include "ui/TabOpciones.h"
#include "ui/TabRegistro.h"
#include "ui/TabResumen.h"
#include "ui/TabTarifas.h"
#include "ui/fMain.h"
#include "ui/fMini.h"

#include <memory>

namespace vorimesk::prueba {

class CarpetaVentana : public CarpetaTemporal {
protected:
    void SetUp() override {
        CarpetaTemporal::SetUp();
        InstalarLibroPorDefecto(dir);
        plataforma.sistema->modems = {{"ttyS0", "Modem de prueba", dir / "modemlog.txt"}};
    }

    // One call of the register; the day as a date.
    static std::string Llamada(Fecha dia, int hora, const std::string& duracion,
                               const std::string& importe, std::int16_t bono = 0) {
        CamposAMano c;
        c.dia = dia.AOle();
        c.hora = hora / 24.0;
        c.duracion = duracion;
        c.importe = importe;
        c.bono = bono;
        return RegistroAMano(c);
    }
    void EscribirRegistro(const std::string& bytes) { Escribir(dir / "RegDat.log", bytes); }
    void EscribirAjustes(const Settings& s) { GuardarVariables(dir / "Varibles.Dat", s); }

    std::unique_ptr<fMain> Abrir() {
        EntornoVentana e;
        e.carpetaDatos = dir;
        e.carpetaPrograma = dir / "programa";
        e.ejecutable = ejecutable.empty() ? dir / "programa" / "vorimesk" : ejecutable;
        e.demostracion = demostracion;
        e.argumentos = {"--datos", dir.string()};
        e.plataforma = plataforma.Crear();
        e.sistema.modemLog = (dir / "sinmodem.txt").string();
        e.reloj = &reloj;
        auto v = std::make_unique<fMain>(e);
        v->Cargar();
        return v;
    }

    RelojFijo reloj{Fecha::Crear(2026, 3, 20, 12, 0, 0)};
    PlataformaPrueba plataforma;
    // The program started, a build folder's unless a test says otherwise.
    std::filesystem::path ejecutable;
    bool demostracion = false;
};

} // namespace vorimesk::prueba
