#pragma once
// Everything the monitor wants shown, as plain values: the main window, the
// mini window, the tray and the command line all paint from this.

#include "ColoresMonitor.h"

#include <cstdint>
#include <string>

namespace vorimesk {

inline constexpr const char* kTituloVentana = "Vorimesk";
inline constexpr const char* kDesconectado = "  Desconectado.";

// What the status area shows; the values are the screen's own state codes.
enum class EstadoDePantalla : std::int16_t {
    Inicio = 0,      // before the first tick
    Conectando = 1,  // dialling, and after a failed dial until the link goes
    Conectado = 2,   // a link is up (also after it ends, until the next one)
    SinConexion = 4, // nothing dialled
};

// The code of a state, as the screen numbers it.
constexpr int Codigo(EstadoDePantalla estado) {
    return static_cast<int>(estado);
}

struct PantallaMonitor {
    EstadoDePantalla EstadoPantalla = EstadoDePantalla::Inicio;
    // The status lamp, and the mini window's shEstado.
    int ColorIndicador = kColorRojoClaro;
    // Label25, Label28, lConectado, lTarifa2 and lMsgEstado.
    bool EtiquetasLlamada = false;
    // The dial-up entry list listaConexiones, offered while idle.
    bool ListaConexiones = true;
    // cmdConexion: pressed while a call runs (or while the user dials).
    bool BotonConexion = false;
    std::string Conectado; // lConectado: the dial-up entry
    std::string Tarifa2;   // lTarifa2: the entry's tariff
    std::string Descuento; // the entry's discount
    std::string MsgEstado; // lMsgEstado
    // Why the system refused the last dial or hang-up; lMsgEstado shows it
    // even while idle.
    std::string Aviso;

    // The live meter; also what the mini window shows.
    std::string Tiempo = "00:00:00"; // lTiempo
    int ColorTiempo = kColorNegro;
    std::string Gasto;  // lGasto, "0.00" with taxes when they are added
    std::string Tarifa; // lTarifa: "Normal" or "Reducida"
    std::string Bono;   // lBono: "BonoNet" while bundle time applies
    // Bono labels of the selected group, written by the meter while the
    // call's discount is "BonoNet".
    std::string BonoGastado;
    std::string BonoQueda;

    // Tray: tip and the enabled state of "&Conectar con" and "&Desconectar".
    std::string PuntaBandeja = std::string(kTituloVentana) + kDesconectado;
    bool MenuConectar = true;
    bool MenuDesconectar = false;

    // The clock timer: date "dd-mmm-yyyy" and time "hh:mm:ss".
    std::string FechaHoy;
    std::string HoraAhora;
};

} // namespace vorimesk
