#pragma once
// The archive wizard's walk through its pages as plain state: which page is
// shown for each action and step, the banner caption and which of "&Atras",
// "&Siguiente" and "&Finalizar" can be pressed. The window shows what this
// says and does the file work that `Tarea` names before each move.
//
// The restore path that saves the current calls first shows its name page
// as step 4 with the banner "Paso 2", with no step count; that caption is
// meant. "&Atras" from any page of the restore path goes back to the page
// that chooses how to restore.

#include "Log.h"
#include "core/Fecha.h"

#include <cstdint>
#include <string>

namespace vorimesk {

enum class PaginaArchivo {
    Accion,           // "Seleccione una accion a realizar:"
    Periodo,          // "Elija el periodo para archivar:"
    Nombre,           // "Archivar con el siguiente nombre:"
    ConservarOBorrar, // "Borrar datos al archivar" / "Archivar y conservar datos."
    ModoRecuperar,    // replace the current calls, or save them first
    Archivo,          // "Seleccione un archivo:"
    Ver,              // an archive listed in a grid
    ConfirmarBorrado, // "&Si" / "&No"
};

// What the window does just before a move forward.
enum class TareaPaso {
    Ninguna,
    ProponerNombre,   // default archive name in the name field, "Copias" current again
    TomarNombre,      // keep the name and description typed
    ArchivarActuales, // archive the current calls now, keeping them in the register
    LeerArchivo,      // read the chosen archive into the wizard's own register and list it
};

class PasosArchivo {
public:
    static constexpr std::int16_t kArchivar = 0, kRecuperar = 1, kVer = 2, kBorrar = 3;

    std::int16_t Accion() const { return accion_; }
    int Paso() const { return paso_; }
    PaginaArchivo Pagina() const { return pagina_; }
    const std::string& Banner() const { return banner_; }
    bool AtrasActivo() const { return atras_; }
    bool SiguienteActivo() const { return siguiente_; }
    bool FinalizarActivo() const { return finalizar_; }
    bool GuardarAntes() const { return guardarAntes_; }

    // Choosing an action in the first page.
    void ElegirAccion(std::int16_t accion);
    // "Guardar datos actuales antes de recuperar otros." (true, the default)
    // or "Recuperar otros y sustituir los actuales." (false).
    void GuardarAntes(bool guardar) { guardarAntes_ = guardar; }
    // A file is (or no longer is) selected in the file list.
    void ArchivoSeleccionado(bool hay);
    // "&Si" (true) or "&No" (false) on the delete confirmation.
    void ConfirmarBorrado(bool si);

    // The work that "&Siguiente" does before moving, given the current state.
    TareaPaso Tarea() const;
    // "&Siguiente": moves to the next page; false when it is disabled.
    bool Avanzar();
    // "&Atras": back to the previous page; false when it is disabled.
    bool Retroceder();

private:
    void Mostrar(PaginaArchivo pagina, int paso, std::string banner);
    void AbrirArchivo(int paso, std::string banner);

    std::int16_t accion_ = -1;
    int paso_ = 1;
    PaginaArchivo pagina_ = PaginaArchivo::Accion;
    std::string banner_ = "Paso 1";
    bool atras_ = false;
    bool siguiente_ = false;
    bool finalizar_ = false;
    bool guardarAntes_ = true;
    bool archivo_ = false;
    bool confirmado_ = false;
};

struct RangoFechas {
    Fecha desde;
    Fecha hasta;
};

// "&Todos los datos": from the first call's date to today.
RangoFechas RangoTodos(const Log& registro, Fecha hoy);

// "&Hasta el ultimo periodo finalizado.": from the first call's date to the
// day before the current billing period starts (the periods run from the
// first call to today). With every call in the current period the range
// ends before it starts and holds nothing.
RangoFechas RangoHastaPeriodoCerrado(const Log& registro, std::uint8_t diaFactura,
                                     std::uint8_t intervalo, Fecha hoy);

// The date the register's first call has, or today when it is empty: where
// the main window's period starts again after calls were archived away.
Fecha PrimerDiaOHoy(const Log& registro, Fecha hoy);

} // namespace vorimesk
