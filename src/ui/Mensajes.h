#pragma once
// Every message box of the program, in one place: Spanish button captions
// whatever translations Qt finds, the main window's boxes with their exact
// texts, and the failure box that Proteger shows at every window's event
// boundary. Each box is a real QMessageBox run modally, so tests answer it
// as a user would (RespuestasDialogo).

#include <QMessageBox>
#include <QString>
#include <memory>

class QWidget;

namespace vorimesk {

// Tells something, titled with the window it belongs to; one "Aceptar"
// button.
void Avisar(QWidget* padre, QMessageBox::Icon icono, const QString& texto,
            const QString& detalle = {});

// Asks before doing something: true for the button `si`, false for
// "Cancelar" (the default) or closing the box.
bool Confirmar(QWidget* padre, const QString& texto, const QString& detalle, const QString& si);

// Closing with unsaved changes.
enum class AlCerrar { Guardar, Descartar, Cancelar };
AlCerrar PreguntarAlCerrar(QWidget* padre, const QString& texto);

class Error;
struct RecalculoLog;

namespace avisos {

inline const QString kTituloRecalculo = "Aviso";
inline const QString kTextoRecalculo = "Ha modificado datos que afectan a los calculos\r"
                                       "del registro de llamadas.\r"
                                       "¿Desea recalcular todas las llamadas con los parametro "
                                       "actuales ?";
inline const QString kTituloSinModem = "Atencion";
inline const QString kTextoSinModem = "No tiene ningun modem instalado\r\n"
                                      "Instale uno y vuelva a ejecutar el programa";

inline const QString kTituloCargaAlIniciar = "Cargar al iniciar la sesion";
inline const QString kTextoCargaAlIniciar =
    "¿Desea que Vorimesk se cargue cada vez que inicie la sesion?\n"
    "Se puede cambiar cuando quiera en Opciones, \"Cargar al iniciar la sesion.\"";

inline const QString kTextoSigueEnBandeja =
    "Vorimesk sigue en marcha en la bandeja del sistema y cuenta las llamadas.\n"
    "Para volver a la ventana, haga doble clic en su icono; para salir, elija \"Terminar\" "
    "en su menu.";

// Yes/No; true on "Si".
bool PreguntarRecalculo(QWidget* padre);
// A limit of the connection refuses the dial (`motivo`): dial this once anyway?
std::unique_ptr<QMessageBox> CajaForzarMarcado(QWidget* padre, const QString& motivo);
bool PreguntarForzarMarcado(QWidget* padre, const QString& motivo);
// Asked once, the first time the program would start itself at login.
bool PreguntarCargaAlIniciar(QWidget* padre);
void ConexionNueva(QWidget* padre);
void SinModem(QWidget* padre);
// After a re-pricing, the calls whose tariff is not in the book, if any.
void TarifasDesconocidas(QWidget* padre, const RecalculoLog& recalculo);
// A failure that reached an event of the window, in Spanish.
void MostrarError(QWidget* padre, const Error& error);
void MostrarError(QWidget* padre, const QString& texto);
// The box itself, not yet shown, with Spanish button captions and its lines
// kept whole as far as the screen allows.
std::unique_ptr<QMessageBox> CrearCaja(QWidget* padre, QMessageBox::Icon icono,
                                       const QString& titulo, const QString& texto,
                                       QMessageBox::StandardButtons botones);
// Any other modal box of the window.
QMessageBox::StandardButton Caja(QWidget* padre, QMessageBox::Icon icono, const QString& titulo,
                                 const QString& texto,
                                 QMessageBox::StandardButtons botones = QMessageBox::Ok);

} // namespace avisos
} // namespace vorimesk
