#include "Mensajes.h"

#include "core/Errores.h"
#include "monitor/EntradasConexion.h"
#include "register/Log.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <memory>

namespace vorimesk {
namespace {

// The title is the application's, as on the window's own title bar.
std::unique_ptr<QMessageBox> CajaDeVentana(QWidget* padre, QMessageBox::Icon icono,
                                           const QString& texto, const QString& detalle) {
    const QString titulo = padre != nullptr ? padre->window()->windowTitle().section(" - ", 0, 0)
                                            : QString("Vorimesk");
    auto caja = std::make_unique<QMessageBox>(icono, titulo, texto, QMessageBox::NoButton, padre);
    // A long list keeps the box on the screen: its first lines, and all of
    // them in the details.
    constexpr int kLineasVisibles = 15;
    const QStringList lineas = detalle.split('\n');
    if (lineas.size() > kLineasVisibles) {
        caja->setInformativeText(lineas.mid(0, kLineasVisibles).join('\n') +
                                 QString("\n... y %1 mas en \"Mostrar detalles\".")
                                     .arg(lineas.size() - kLineasVisibles));
        caja->setDetailedText(detalle);
    } else {
        caja->setInformativeText(detalle);
    }
    return caja;
}

} // namespace

void Avisar(QWidget* padre, QMessageBox::Icon icono, const QString& texto, const QString& detalle) {
    auto caja = CajaDeVentana(padre, icono, texto, detalle);
    caja->addButton("Aceptar", QMessageBox::AcceptRole);
    caja->exec();
}

bool Confirmar(QWidget* padre, const QString& texto, const QString& detalle, const QString& si) {
    auto caja = CajaDeVentana(padre, QMessageBox::Question, texto, detalle);
    QPushButton* aceptar = caja->addButton(si, QMessageBox::AcceptRole);
    caja->setDefaultButton(caja->addButton("Cancelar", QMessageBox::RejectRole));
    caja->exec();
    return caja->clickedButton() == aceptar;
}

AlCerrar PreguntarAlCerrar(QWidget* padre, const QString& texto) {
    auto caja = CajaDeVentana(padre, QMessageBox::Question, texto, {});
    QPushButton* guardar = caja->addButton("&Guardar", QMessageBox::AcceptRole);
    QPushButton* descartar = caja->addButton("&Descartar", QMessageBox::DestructiveRole);
    caja->setDefaultButton(caja->addButton("Cancelar", QMessageBox::RejectRole));
    caja->exec();
    if (caja->clickedButton() == guardar) {
        return AlCerrar::Guardar;
    }
    return caja->clickedButton() == descartar ? AlCerrar::Descartar : AlCerrar::Cancelar;
}

} // namespace vorimesk

namespace vorimesk::avisos {

std::unique_ptr<QMessageBox> CrearCaja(QWidget* padre, QMessageBox::Icon icono,
                                       const QString& titulo, const QString& texto,
                                       QMessageBox::StandardButtons botones) {
    // The texts keep their CR or CR LF line ends; a label breaks lines at LF.
    QString lineas = texto;
    lineas.replace("\r\n", "\n").replace('\r', '\n');
    auto caja = std::make_unique<QMessageBox>(icono, titulo, lineas, botones, padre);
    // Spanish captions whatever the desktop's language.
    const std::pair<QMessageBox::StandardButton, const char*> nombres[] = {
        {QMessageBox::Yes, "&Si"}, {QMessageBox::No, "&No"}, {QMessageBox::Ok, "&Aceptar"}};
    for (const auto& [boton, nombre] : nombres) {
        if (QAbstractButton* b = caja->button(boton)) {
            b->setText(nombre);
        }
    }
    if (auto* etiqueta = caja->findChild<QLabel*>("qt_msgbox_label")) {
        int ancho = 0;
        for (const QString& linea : lineas.split('\n')) {
            ancho = std::max(ancho, etiqueta->fontMetrics().horizontalAdvance(linea));
        }
        const QScreen* pantalla =
            padre != nullptr ? padre->screen() : QGuiApplication::primaryScreen();
        const int limite =
            pantalla != nullptr ? pantalla->availableGeometry().width() * 3 / 4 : ancho;
        etiqueta->setMinimumWidth(std::min(ancho + 2, limite));
    }
    return caja;
}

QMessageBox::StandardButton Caja(QWidget* padre, QMessageBox::Icon icono, const QString& titulo,
                                 const QString& texto, QMessageBox::StandardButtons botones) {
    return static_cast<QMessageBox::StandardButton>(
        CrearCaja(padre, icono, titulo, texto, botones)->exec());
}

bool PreguntarRecalculo(QWidget* padre) {
    return Caja(padre, QMessageBox::Question, kTituloRecalculo, kTextoRecalculo,
                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

std::unique_ptr<QMessageBox> CajaForzarMarcado(QWidget* padre, const QString& motivo) {
    return CrearCaja(padre, QMessageBox::Question, "Limite alcanzado",
                     motivo + "\n\n¿Marcar de todos modos? Solo se permite esta llamada.",
                     QMessageBox::Yes | QMessageBox::No);
}

bool PreguntarForzarMarcado(QWidget* padre, const QString& motivo) {
    return CajaForzarMarcado(padre, motivo)->exec() == QMessageBox::Yes;
}

bool PreguntarCargaAlIniciar(QWidget* padre) {
    return Caja(padre, QMessageBox::Question, kTituloCargaAlIniciar, kTextoCargaAlIniciar,
                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void ConexionNueva(QWidget* padre) {
    Caja(padre, QMessageBox::Warning, kTituloConexionNueva, kAvisoConexionNueva);
}

void SinModem(QWidget* padre) {
    Caja(padre, QMessageBox::Critical, kTituloSinModem, kTextoSinModem);
}

void MostrarError(QWidget* padre, const QString& texto) {
    Avisar(padre, QMessageBox::Critical, texto);
}

void MostrarError(QWidget* padre, const Error& error) {
    MostrarError(padre, QString::fromStdString(error.what()));
}

void TarifasDesconocidas(QWidget* padre, const RecalculoLog& recalculo) {
    const std::string texto = AvisoTarifasDesconocidas(recalculo);
    if (!texto.empty()) {
        Caja(padre, QMessageBox::Warning, "Tarifas desconocidas", QString::fromStdString(texto));
    }
}

} // namespace vorimesk::avisos
