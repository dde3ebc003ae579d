#pragma once
// What one user's session holds for the whole run and shares with the tabs
// of the main window: the BonoNet ledger, the settings, the pending-connection
// list, the tariff book, the call register (which borrows the book), the
// budget and the flags the tabs raise. The ledger comes first so it exists
// before anything reads the settings into it.

#include "PresupuestoSesion.h"
#include "core/Fecha.h"
#include "core/Reloj.h"
#include "register/ListadoRegistro.h"
#include "register/Log.h"
#include "settings/Settings.h"
#include "tariff/LibroTarifas.h"
#include "tariff/cBono.h"
#include "tariff/colConexion.h"

#include <filesystem>

namespace vorimesk {

struct DatosSesion {
    DatosSesion(std::filesystem::path carpetaDatos, const Reloj& reloj);
    DatosSesion(const DatosSesion&) = delete;
    DatosSesion& operator=(const DatosSesion&) = delete;

    std::filesystem::path Carpeta;
    const Reloj& RelojPrograma;

    cBono Bono;
    Settings Ajustes;
    // The pending-connection list: the profiles of the calls seen coming up.
    colConexion Conexiones;
    // The one reader of "Tarifas.Dat": whoever prices or shows the book
    // borrows it from here.
    LibroTarifas Libro;
    Log Registro;
    PresupuestoSesion Presupuesto;

    // Raised by every edit that changes how past calls are priced; asked
    // about when the user leaves the tab.
    bool RecalculoPendiente = false;
    // "Ventanas Conexion invisibles": never saved, off at every start.
    bool VentanasInvisibles = false;
    Fecha InicioPeriodo;
    Fecha FinPeriodo;

    // How the cost column is worked out from the settings.
    OpcionesCoste Coste() const { return {Ajustes.AnadirImpuestos, Ajustes.Impuestos}; }
    // The book's calendar with the holidays of the settings.
    std::int16_t TipoDia(Fecha dia) const;
};

} // namespace vorimesk
