#include "PreguntaCargaAlIniciar.h"

#include "Mensajes.h"
#include "platform/CargaAlIniciar.h"

#include <QSettings>

namespace vorimesk {
namespace {

constexpr const char* kClavePreguntada = "CargaAlIniciar/Preguntada";

} // namespace

void AplicarCargaAlIniciar(QWidget* ventana, const EntornoVentana& entorno, bool& opcion,
                           const std::filesystem::path& preferencias) {
    if (!PuedeCargarAlIniciar(entorno.ejecutable, entorno.demostracion)) {
        return; // an entry the installed program wrote is not this one's to remove
    }
    if (opcion) {
        QSettings ini(QString::fromStdString(preferencias.string()), QSettings::IniFormat);
        if (!ini.value(kClavePreguntada, false).toBool()) {
            opcion = avisos::PreguntarCargaAlIniciar(ventana);
            ini.setValue(kClavePreguntada, true);
        }
    }
    CargaAlIniciar& carga = *entorno.plataforma.cargaAlIniciar;
    if (opcion) {
        carga.Activar(entorno.ejecutable, entorno.argumentos);
    } else {
        carga.Desactivar();
    }
}

} // namespace vorimesk
