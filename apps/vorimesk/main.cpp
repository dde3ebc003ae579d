// vorimesk: the meter's window. Options: --datos DIR (the data folder, as
// vorimesk-cli takes it) and --simular GUION (a scripted modem instead of the
// system's links, for demonstrations).

#include "AplicacionVorimesk.h"
#include "core/CarpetaDatos.h"
#include "core/Errores.h"
#include "platform/CargaAlIniciar.h"
#include "platform/Plataforma.h"
#include "tariff/LibroPorDefecto.h"
#include "ui/Arranque.h"
#include "ui/Mensajes.h"
#include "ui/NotificacionAviso.h"
#include "ui/PuertaInstancia.h"
#include "ui/SenalesTerminar.h"
#include "ui/fMain.h"
#include "ui/fOtroContador.h"

#include <QCommandLineParser>
#include <memory>

using namespace vorimesk;

namespace {

struct Opciones {
    std::optional<std::filesystem::path> datos;
    std::optional<std::filesystem::path> guion;
};

Opciones LeerOpciones(const QApplication& app) {
    QCommandLineParser analizador;
    analizador.setApplicationDescription(
        "Contador de coste de las conexiones a Internet por modem.");
    analizador.addHelpOption();
    analizador.addVersionOption();
    const QCommandLineOption datos("datos", "Carpeta de los datos del usuario.", "DIR");
    const QCommandLineOption simular(
        "simular",
        "Demostracion: usa un modem simulado que sigue el GUION y abre la mini ventana en "
        "cada llamada.",
        "GUION");
    analizador.addOption(datos);
    analizador.addOption(simular);
    analizador.process(app);
    Opciones o;
    if (analizador.isSet(datos)) {
        o.datos = analizador.value(datos).toStdString();
    }
    if (analizador.isSet(simular)) {
        o.guion = analizador.value(simular).toStdString();
    }
    return o;
}

int Ejecutar(AplicacionVorimesk& app) {
    const Opciones opciones = LeerOpciones(app);
    static RelojSistema reloj;
    CarpetaDatos::AlCrear(InstalarLibroPorDefecto);
    const std::filesystem::path carpeta =
        CarpetaDatos::Resolver(CarpetaDatos::EntornoActual(opciones.datos));

    OpcionesPlataforma op;
    op.carpetaDatos = carpeta;
    op.guion = opciones.guion;
    op.reloj = &reloj;
    Plataforma plataforma = CrearPlataforma(op);
    // A second window on the same data folder brings the running one
    // forward and ends; another meter there (the user service) is explained
    // to the user, who may stop it and go on here.
    const QString nombrePuerta = PuertaInstancia::NombrePara(carpeta);
    if (!plataforma.instancia->Adquirir()) {
        if (PuertaInstancia::Llamar(nombrePuerta) ||
            !ResolverOtroContador(carpeta, *plataforma.instancia, reloj)) {
            return 0;
        }
    }
    PuertaInstancia puerta(nombrePuerta);
    puerta.Abrir();

    EntornoVentana entorno;
    entorno.carpetaDatos = carpeta;
    entorno.carpetaPrograma = QCoreApplication::applicationDirPath().toStdString();
    entorno.ejecutable = QCoreApplication::applicationFilePath().toStdString();
    entorno.argumentos = OpcionesAlIniciar(opciones.datos);
    entorno.plataforma = plataforma;
    entorno.sistema = op.entorno;
    entorno.reloj = &reloj;
    entorno.demostracion = opciones.guion.has_value();

    SenalesTerminar senales;
    const std::unique_ptr<fMain> ventana = Arrancar(entorno);
    NotificarAvisos(*ventana);
    QObject::connect(&senales, &SenalesTerminar::Terminar, ventana.get(),
                     [&ventana] { ventana->TerminarSesion(); });
    QObject::connect(&puerta, &PuertaInstancia::Llamada, ventana.get(),
                     [&ventana] { ventana->RestaurarVentanas(); });
    return app.exec();
}

} // namespace

int main(int argc, char** argv) {
    AplicacionVorimesk app(argc, argv);
    try {
        return Ejecutar(app);
    } catch (const Error& error) {
        avisos::MostrarError(nullptr, error);
        return 1;
    }
}
