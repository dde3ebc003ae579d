#pragma once
// The message boxes of the main window, with their exact texts. Each box is a
// real QMessageBox run modally, so tests answer it as a user would.

#include <QMessageBox>
#include <QString>
#include <memory>

namespace vorimesk {

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

// Yes/No; true on "Si".
bool PreguntarRecalculo(QWidget* padre);
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
