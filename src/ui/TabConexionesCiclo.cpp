// The Conexiones tab's cycle of each entry's data plan: monthly from a day,
// every N days from a date, a bucket from a date that never renews, or the
// user's billing periods. It goes to "Planes.json" as soon as it changes.

#include "FechasQt.h"
#include "Mensajes.h"
#include "TabConexiones.h"
#include "core/Errores.h"
#include "session/DatosSesion.h"
#include "tariff/ArchivoPlanes.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSpinBox>

namespace vorimesk {
namespace {

enum FormaCiclo { kPeriodo, kMensual, kCadaDias, kBolsa };

} // namespace

QWidget* TabConexiones::CrearCiclo(QWidget* padre) {
    auto* grupo = new QGroupBox("Ciclo del plan de datos", padre);
    cmbCiclo = new QComboBox(grupo);
    cmbCiclo->setObjectName("cmbCiclo");
    cmbCiclo->addItems({"El periodo de facturacion", "Cada mes desde el dia",
                        "Cada tantos dias desde", "Bolsa sin renovar desde"});
    spnCiclo = new QSpinBox(grupo);
    spnCiclo->setObjectName("spnCiclo");
    dtDesde = new QDateEdit(grupo);
    dtDesde->setObjectName("dtDesde");
    dtDesde->setDisplayFormat("dd/MM/yyyy");
    dtDesde->setCalendarPopup(true);
    auto* f = new QFormLayout(grupo);
    f->addRow("Ciclo:", cmbCiclo);
    f->addRow("Dia / dias:", spnCiclo);
    f->addRow("Desde:", dtDesde);
    connect(cmbCiclo, &QComboBox::activated, this, &TabConexiones::CambiarCiclo);
    connect(spnCiclo, &QSpinBox::editingFinished, this, &TabConexiones::CambiarCiclo);
    connect(dtDesde, &QDateEdit::editingFinished, this, &TabConexiones::CambiarCiclo);
    return grupo;
}

void TabConexiones::MostrarCiclo(const std::string& entrada) {
    const QSignalBlocker b0(cmbCiclo), b1(spnCiclo), b2(dtDesde);
    std::optional<CicloConexion> ciclo;
    bool legible = true;
    try {
        const auto planes = CargarPlanes(datos_.Carpeta);
        const ConexionPlan* c = planes ? planes->Conexion(entrada) : nullptr;
        ciclo = c != nullptr ? c->Ciclo : std::nullopt;
    } catch (const Error&) {
        legible = false; // a plan file that does not read is left alone
    }
    const int forma = !ciclo                                          ? kPeriodo
                      : ciclo->Tipo == CicloConexion::Forma::Mensual  ? kMensual
                      : ciclo->Tipo == CicloConexion::Forma::CadaDias ? kCadaDias
                                                                      : kBolsa;
    cmbCiclo->setCurrentIndex(forma);
    spnCiclo->setRange(1, forma == kMensual ? 31 : 3660);
    spnCiclo->setValue(!ciclo ? 1 : forma == kMensual ? ciclo->Dia : std::max(1, ciclo->CadaDias));
    dtDesde->setDate(ciclo && forma != kMensual ? AQDate(ciclo->Desde) : QDate::currentDate());
    const bool activo = hayEntradas_ && legible;
    cmbCiclo->setEnabled(activo);
    spnCiclo->setEnabled(activo && (forma == kMensual || forma == kCadaDias));
    dtDesde->setEnabled(activo && (forma == kCadaDias || forma == kBolsa));
}

void TabConexiones::CambiarCiclo() {
    const std::string entrada = Seleccionada();
    if (entrada.empty()) {
        return;
    }
    std::optional<CicloConexion> ciclo;
    const int forma = cmbCiclo->currentIndex();
    if (forma != kPeriodo) {
        ciclo.emplace();
        ciclo->Tipo = forma == kMensual    ? CicloConexion::Forma::Mensual
                      : forma == kCadaDias ? CicloConexion::Forma::CadaDias
                                           : CicloConexion::Forma::Bolsa;
        ciclo->Dia = std::min(spnCiclo->value(), 31);
        ciclo->CadaDias = spnCiclo->value();
        ciclo->Desde = DeQDate(dtDesde->date());
    }
    try {
        Planes planes = CargarPlanes(datos_.Carpeta).value_or(Planes{});
        planes.PonerCiclo(entrada, ciclo);
        GuardarPlanes(datos_.Carpeta, planes);
        datos_.RecalculoPendiente = true;
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Warning, "No se pudo cambiar el ciclo del plan de datos.",
               QString::fromStdString(e.what()));
    }
    MostrarCiclo(entrada);
}

} // namespace vorimesk
