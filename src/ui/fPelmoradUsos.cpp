// The tariff editor's side of the register and the settings: who uses a
// tariff that is renamed or deleted, and the move of them to a new name.

#include "Mensajes.h"
#include "core/Errores.h"
#include "core/Reloj.h"
#include "fPelmorad.h"
#include "platform/Plataforma.h"
#include "session/Sesion.h"
#include "session/TarifasEnUso.h"

#include <QStatusBar>
#include <QStringList>

namespace vorimesk {

std::unique_ptr<Sesion> fPelmorad::AbrirUsos() {
    static const RelojSistema reloj;
    auto sesion = std::make_unique<Sesion>(carpeta_, reloj);
    try {
        sesion->LeerAjustesEstrictos();
        // Reading creates a missing register: none means no calls here.
        if (std::filesystem::exists(carpeta_ / "RegDat.log")) {
            sesion->CargarRegistro();
        }
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Warning,
               "No se puede leer el registro de llamadas o las opciones: no se sabe que "
               "llamadas y conexiones usan la tarifa.",
               QString::fromStdString(e.what()));
        return nullptr;
    }
    return sesion;
}

bool fPelmorad::ElegirRenombres(std::vector<std::pair<std::string, std::string>>& mover,
                                std::unique_ptr<Sesion>& usos,
                                std::shared_ptr<InstanciaUnica>& cerrojo) {
    const auto renombradas = libro_.Renombradas();
    if (renombradas.empty() || !(usos = AbrirUsos())) {
        return true;
    }
    std::vector<std::pair<std::pair<std::string, std::string>, UsoTarifa>> usadas;
    for (const auto& r : renombradas) {
        const UsoTarifa uso = UsoDeTarifa(usos->Datos(), r.first);
        if (uso.Alguno()) {
            usadas.push_back({r, uso});
        }
    }
    if (usadas.empty()) {
        return true;
    }
    // A meter of this folder holds the register and the settings and would
    // write its own copies over the moved ones.
    cerrojo = CrearInstanciaUnica(carpeta_);
    bool libre = false;
    try {
        libre = cerrojo->Adquirir();
    } catch (const Error&) {
    }
    if (!libre) {
        QStringList lista;
        for (const auto& [r, uso] : usadas) {
            lista << QString("\"%1\" (ahora \"%2\"): %3")
                         .arg(QString::fromStdString(r.first), QString::fromStdString(r.second),
                              QString::fromStdString(TextoUso(uso)));
        }
        return Confirmar(this,
                         "Vorimesk esta abierto con esta carpeta de datos: mientras lo este, las "
                         "llamadas y conexiones de las tarifas renombradas no pueden pasar al "
                         "nombre nuevo. ¿Guardar las tarifas sin pasarlas?",
                         lista.join('\n'), "&Guardar sin pasarlas");
    }
    for (const auto& [r, uso] : usadas) {
        const QString nuevo = QString::fromStdString(r.second);
        if (Confirmar(this,
                      QString("La tarifa \"%1\" se llama ahora \"%2\" y la usan %3. ¿Pasarlas "
                              "al nombre nuevo?")
                          .arg(QString::fromStdString(r.first), nuevo,
                               QString::fromStdString(TextoUso(uso))),
                      "Si no, esas llamadas conservan sus importes al recalcular, porque su "
                      "tarifa ya no estara en el libro.",
                      "&Pasarlas a \"" + nuevo + "\"")) {
            mover.push_back(r);
        }
    }
    return true;
}

void fPelmorad::MoverUsos(Sesion& usos,
                          const std::vector<std::pair<std::string, std::string>>& mover) {
    UsoTarifa total;
    for (const auto& [viejo, nuevo] : mover) {
        const UsoTarifa uso = RenombrarTarifa(usos.Datos(), viejo, nuevo);
        total.llamadas += uso.llamadas;
        total.conexiones += uso.conexiones;
    }
    try {
        if (total.llamadas > 0) {
            usos.RegistroCambiado();
        }
        if (total.conexiones > 0) {
            usos.Guardar(); // the settings; the register is saved already
        }
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Critical,
               "Las tarifas se han guardado, pero no se pudo pasar sus llamadas y conexiones "
               "al nombre nuevo.",
               QString::fromStdString(e.what()));
        return;
    }
    statusBar()->showMessage(statusBar()->currentMessage() + "; " +
                             QString::fromStdString(TextoUso(total)) + " con el nombre nuevo");
}

} // namespace vorimesk
