#pragma once
// The main window's toolbar Toolbar1. Its buttons keep their places (1 to
// 15; 2, 4, 10 and 13 are separators), each a named action the window
// connects to; button 3 is the check-style "Fijar siempre visible". The
// buttons that start a desktop tool are disabled, with a note why, when the
// desktop has none.

#include <QToolBar>

class QAction;

namespace vorimesk {

class BarraPrincipal : public QToolBar {
    Q_OBJECT
public:
    explicit BarraPrincipal(QWidget* padre = nullptr);

    QAction* accSalir() const { return salir_; }
    QAction* accFijar() const { return fijar_; }
    QAction* accMini() const { return mini_; }
    QAction* accConfigurar() const { return configurar_; }
    QAction* accImprimir() const { return imprimir_; }
    QAction* accArchivar() const { return archivar_; }
    QAction* accGrafico() const { return grafico_; }
    QAction* accCalculadora() const { return calculadora_; }
    QAction* accCalendario() const { return calendario_; }
    QAction* accInformacion() const { return informacion_; }
    QAction* accAyuda() const { return ayuda_; }

private:
    QAction* Añadir(const char* nombre, const QIcon& icono, const QString& punta);

    QAction* salir_;
    QAction* fijar_;
    QAction* mini_;
    QAction* configurar_;
    QAction* imprimir_;
    QAction* archivar_;
    QAction* grafico_;
    QAction* calculadora_;
    QAction* calendario_;
    QAction* informacion_;
    QAction* ayuda_;
};

} // namespace vorimesk
