#include "fPelmorad.h"

#include "Iconos.h"
#include "Mensajes.h"
#include "PanelTarifa.h"
#include "PanelVolumen.h"
#include "core/Archivo.h"
#include "core/Errores.h"
#include "session/Sesion.h"
#include "session/TarifasEnUso.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/LibroJson.h"
#include "tariff/cLlamada.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace vorimesk {
namespace {

// Every problem, errors first; a long list goes to the box's details.
QString Lista(const std::vector<Problema>& problemas) {
    return QString::fromStdString(TextoProblemas(problemas)).trimmed();
}

QString NombreEnLista(const TarifaEditable& t) {
    return t.Nombre().empty() ? QString("(sin nombre)") : QString::fromStdString(t.Nombre());
}

QString RutaDeDialogo(QWidget* padre, bool guardar) {
    QFileDialog d(padre, guardar ? "Exportar tarifas" : "Importar tarifas");
    d.setNameFilters({"Tarifas en JSON (*.json)", "Todos los archivos (*)"});
    d.setAcceptMode(guardar ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    d.setFileMode(guardar ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    d.setDefaultSuffix("json");
    d.setLabelText(QFileDialog::LookIn, "Buscar en:");
    d.setLabelText(QFileDialog::FileName, "Nombre:");
    d.setLabelText(QFileDialog::FileType, "Tipo:");
    d.setLabelText(QFileDialog::Accept, guardar ? "Exportar" : "Importar");
    d.setLabelText(QFileDialog::Reject, "Cancelar");
    if (guardar) {
        d.selectFile("tarifas.json");
    }
    return d.exec() == QDialog::Accepted ? d.selectedFiles().value(0) : QString();
}

} // namespace

fPelmorad::fPelmorad(std::filesystem::path carpeta, QWidget* padre)
    : QMainWindow(padre), carpeta_(std::move(carpeta)) {
    setWindowTitle("Pelmorad - Editor de tarifas[*]");
    setWindowIcon(IconoPrograma());
    CrearAcciones();
    auto* central = new QWidget(this);
    auto* fila = new QHBoxLayout(central);
    fila->addWidget(CrearLista());
    fila->addWidget(CrearDerecha(), 1);
    // Found by their names from outside (tests, screenshots).
    lstTarifas->setObjectName("lstTarifas");
    lstProblemas->setObjectName("lstProblemas");
    panel->setObjectName("panel");
    cmdAñadir->setObjectName("cmdAñadir");
    cmdCopiar->setObjectName("cmdCopiar");
    cmdEliminar->setObjectName("cmdEliminar");
    cmdRenombrar->setObjectName("cmdRenombrar");
    cmdSubir->setObjectName("cmdSubir");
    cmdBajar->setObjectName("cmdBajar");
    accGuardar->setObjectName("accGuardar");
    accImportar->setObjectName("accImportar");
    accExportar->setObjectName("accExportar");
    accRestaurar->setObjectName("accRestaurar");
    accSalir->setObjectName("accSalir");
    setCentralWidget(central);
    Cargar();
}

void fPelmorad::CrearAcciones() {
    QMenu* archivo = menuBar()->addMenu("&Archivo");
    QToolBar* barra = addToolBar("Archivo");
    barra->setObjectName("barraArchivo");
    barra->setMovable(false);
    barra->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto accion = [&](const QString& texto, QStyle::StandardPixmap icono, auto metodo) {
        auto* a = new QAction(style()->standardIcon(icono), texto, this);
        connect(a, &QAction::triggered, this, metodo);
        archivo->addAction(a);
        return a;
    };
    accGuardar = accion("&Guardar", QStyle::SP_DialogSaveButton, [this] { Guardar(); });
    accGuardar->setShortcut(QKeySequence::Save);
    archivo->addSeparator();
    accImportar =
        accion("&Importar JSON...", QStyle::SP_DialogOpenButton, &fPelmorad::PedirImportar);
    accExportar = accion("&Exportar JSON...", QStyle::SP_FileIcon, &fPelmorad::PedirExportar);
    archivo->addSeparator();
    accRestaurar = accion("&Restaurar tarifas de serie", QStyle::SP_BrowserReload,
                          [this] { RestaurarDeSerie(); });
    archivo->addSeparator();
    accSalir = accion("&Salir", QStyle::SP_DialogCloseButton, &QWidget::close);
    accSalir->setShortcut(QKeySequence::Quit);
    barra->addActions({accGuardar, accImportar, accExportar});
}

QWidget* fPelmorad::CrearLista() {
    auto* grupo = new QGroupBox("Tarifas", this);
    auto* fila = new QHBoxLayout(grupo);
    lstTarifas = new QListWidget(grupo);
    lstTarifas->setMinimumWidth(lstTarifas->fontMetrics().horizontalAdvance("M") * 12);
    lstTarifas->setIconSize(QSize(1, 1) * lstTarifas->fontMetrics().height());
    connect(lstTarifas, &QListWidget::currentRowChanged, this, &fPelmorad::AlSeleccionar);
    fila->addWidget(lstTarifas);
    auto* botones = new QVBoxLayout;
    const auto boton = [&](const QString& texto, const QString& ayuda, auto metodo) {
        auto* b = new QPushButton(texto, grupo);
        b->setToolTip(ayuda);
        connect(b, &QPushButton::clicked, this, metodo);
        botones->addWidget(b);
        return b;
    };
    cmdAñadir = boton("A&ñadir", "Una tarifa nueva al final de la lista", &fPelmorad::Añadir);
    cmdCopiar = boton("&Copiar", "Una copia de la tarifa elegida", &fPelmorad::Copiar);
    cmdEliminar = boton("&Eliminar", "Quita la tarifa elegida", &fPelmorad::Eliminar);
    cmdRenombrar =
        boton("Re&nombrar", "Cambia el nombre de la tarifa elegida", &fPelmorad::Renombrar);
    botones->addSpacing(fontMetrics().height());
    cmdSubir = boton("&Subir", "Sube la tarifa un puesto", [this] { Mover(-1); });
    cmdBajar = boton("&Bajar", "Baja la tarifa un puesto", [this] { Mover(1); });
    botones->addStretch();
    fila->addLayout(botones);
    return grupo;
}

QWidget* fPelmorad::CrearDerecha() {
    auto* caja = new QWidget(this);
    auto* columna = new QVBoxLayout(caja);
    columna->setContentsMargins(0, 0, 0, 0);
    panel = new PanelTarifa(caja);
    connect(panel, &PanelTarifa::Cambiado, this, &fPelmorad::AlCambiar);
    columna->addWidget(panel, 1);
    volumen = new PanelVolumen(caja);
    volumen->setObjectName("volumen");
    connect(volumen, &PanelVolumen::Cambiado, this, &fPelmorad::AlCambiarVolumen);
    columna->addWidget(volumen);
    auto* grupo = new QGroupBox("Problemas", caja);
    auto* dentro = new QVBoxLayout(grupo);
    lstProblemas = new QListWidget(grupo);
    lstProblemas->setWordWrap(true);
    lstProblemas->setTextElideMode(Qt::ElideNone);
    lstProblemas->setResizeMode(QListView::Adjust);
    lstProblemas->setIconSize(QSize(1, 1) * lstProblemas->fontMetrics().height());
    lstProblemas->setFixedHeight(lstProblemas->fontMetrics().height() * 5 + 8);
    connect(lstProblemas, &QListWidget::itemClicked, this, &fPelmorad::IrAProblema);
    connect(lstProblemas, &QListWidget::itemActivated, this, &fPelmorad::IrAProblema);
    dentro->addWidget(lstProblemas);
    columna->addWidget(grupo);
    return caja;
}

void fPelmorad::Cargar() {
    cLlamada libro(carpeta_);
    try {
        libro.Load();
    } catch (const Error& e) {
        // Saving over a book that could not be read would lose it.
        leido_ = false;
        accGuardar->setEnabled(false);
        accRestaurar->setEnabled(false);
        const QString texto = QString("No se pudo leer el libro de tarifas; no se guardara nada.");
        QTimer::singleShot(0, this, [this, texto, detalle = QString::fromStdString(e.what())] {
            Avisar(this, QMessageBox::Critical, texto, detalle);
        });
    }
    CargarPlanes();
    Sustituir(LibroEditable::DesdeLibro(libro), 0);
    setWindowModified(false);
    statusBar()->showMessage("Libro de tarifas: " + QString::fromStdString(libro.Ruta().string()));
}

void fPelmorad::CargarPlanes() {
    try {
        planes_ = vorimesk::CargarPlanes(carpeta_).value_or(Planes{});
    } catch (const Error& e) {
        planesLeidos_ = false;
        volumen->setEnabled(false);
        volumen->setToolTip(QString::fromStdString(e.what()));
        QTimer::singleShot(0, this, [this, detalle = QString::fromStdString(e.what())] {
            Avisar(this, QMessageBox::Warning,
                   "No se pudieron leer los planes de datos; no se cambiaran.", detalle);
        });
    }
}

bool fPelmorad::GuardarPlanes() {
    if (!planesCambiados_ || !planesLeidos_) {
        return true;
    }
    try {
        vorimesk::GuardarPlanes(carpeta_, planes_);
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Critical, "No se pudieron guardar los planes de datos.",
               QString::fromStdString(e.what()));
        return false;
    }
    planesCambiados_ = false;
    return true;
}

void fPelmorad::AlCambiarVolumen() {
    if (actual_ < 0) {
        return;
    }
    const std::string nombre = libro_.Tarifa(actual_).Nombre();
    if (const auto plan = volumen->Plan(nombre)) {
        planes_.PonerPlan(*plan);
    } else {
        planes_.QuitarPlan(nombre);
    }
    planesCambiados_ = true;
    setWindowModified(true);
}

void fPelmorad::Sustituir(LibroEditable libro, int seleccion) {
    libro_ = std::move(libro);
    Refrescar(seleccion);
}

void fPelmorad::Refrescar(int seleccion) {
    problemas_ = ValidarLibro(libro_);
    Rellenar(std::min(seleccion, libro_.Count() - 1));
    PintarProblemas();
}

void fPelmorad::Rellenar(int seleccion) {
    {
        const QSignalBlocker bloqueo(lstTarifas);
        lstTarifas->clear();
        int ancho = lstTarifas->fontMetrics().horizontalAdvance("M") * 12;
        for (int i = 0; i < libro_.Count(); ++i) {
            const QString nombre = NombreEnLista(libro_.Tarifa(i));
            lstTarifas->addItem(nombre);
            ancho = std::max(ancho, lstTarifas->fontMetrics().horizontalAdvance(nombre));
        }
        // The whole name beside its problem icon, with room for a scroll bar.
        lstTarifas->setMinimumWidth(ancho + lstTarifas->iconSize().width() +
                                    lstTarifas->style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                                    4 * lstTarifas->frameWidth() + 16);
    }
    Seleccionar(seleccion);
}

void fPelmorad::Seleccionar(int indice) {
    {
        const QSignalBlocker bloqueo(lstTarifas);
        lstTarifas->setCurrentRow(indice);
    }
    AlSeleccionar(indice);
}

void fPelmorad::AlSeleccionar(int fila) {
    actual_ = fila;
    panel->setEnabled(fila >= 0);
    panel->Mostrar(fila >= 0 ? libro_.Tarifa(fila) : TarifaEditable());
    volumen->Mostrar(fila >= 0 ? planes_.Plan(libro_.Tarifa(fila).Nombre()) : nullptr);
    volumen->setEnabled(fila >= 0 && planesLeidos_);
    MarcarActual();
    ActualizarBotones();
}

void fPelmorad::AlCambiar(const QString& clave, const QString& texto) {
    if (actual_ < 0) {
        return;
    }
    TarifaEditable& t = libro_.Tarifa(actual_);
    const std::string antes = t.Nombre();
    t.ValorEscrito(clave.toStdString(), texto.toStdString());
    if (clave == "Nombre") {
        planes_.RenombrarPlan(antes, t.Nombre());
        planesCambiados_ = planesCambiados_ || planes_.Plan(t.Nombre()) != nullptr;
        lstTarifas->item(actual_)->setText(NombreEnLista(t));
    }
    panel->ActualizarFranjas(t);
    Modificado();
}

void fPelmorad::Modificado() {
    setWindowModified(true);
    Revisar();
}

void fPelmorad::Revisar() {
    problemas_ = ValidarLibro(libro_);
    PintarProblemas();
}

// The list of problems does not depend on the selection, so choosing a
// tariff (even from that list) never rebuilds it.
void fPelmorad::PintarProblemas() {
    std::vector<int> peor(static_cast<std::size_t>(libro_.Count()), -1);
    lstProblemas->clear();
    std::vector<const Problema*> enOrden;
    for (const bool errores : {true, false}) {
        for (const Problema& p : problemas_) {
            if ((p.gravedad == Gravedad::Error) == errores) {
                enOrden.push_back(&p);
            }
        }
    }
    for (const Problema* problema : enOrden) {
        const Problema& p = *problema;
        const bool error = p.gravedad == Gravedad::Error;
        const QIcon icono = style()->standardIcon(error ? QStyle::SP_MessageBoxCritical
                                                        : QStyle::SP_MessageBoxWarning);
        auto* item = new QListWidgetItem(icono, QString::fromStdString(p.Texto()), lstProblemas);
        item->setData(Qt::UserRole, p.tarifa);
        item->setData(Qt::UserRole + 1, QString::fromStdString(p.clave));
        if (p.tarifa >= 0) {
            int& g = peor[static_cast<std::size_t>(p.tarifa)];
            g = std::max(g, error ? 1 : 0);
        }
    }
    if (problemas_.empty()) {
        auto* item =
            new QListWidgetItem("Ningun problema: las tarifas se pueden guardar.", lstProblemas);
        item->setFlags(Qt::NoItemFlags);
    }
    for (int i = 0; i < lstTarifas->count() && i < libro_.Count(); ++i) {
        const int g = peor[static_cast<std::size_t>(i)];
        lstTarifas->item(i)->setIcon(
            g < 0 ? QIcon()
                  : style()->standardIcon(g > 0 ? QStyle::SP_MessageBoxCritical
                                                : QStyle::SP_MessageBoxWarning));
    }
    MarcarActual();
}

void fPelmorad::MarcarActual() {
    std::vector<Problema> deEsta;
    for (const Problema& p : problemas_) {
        if (p.tarifa == actual_) {
            deEsta.push_back(p);
        }
    }
    panel->MarcarProblemas(deEsta);
}

void fPelmorad::ActualizarBotones() {
    const bool hay = actual_ >= 0;
    cmdCopiar->setEnabled(hay);
    cmdEliminar->setEnabled(hay);
    cmdRenombrar->setEnabled(hay);
    cmdSubir->setEnabled(actual_ > 0);
    cmdBajar->setEnabled(hay && actual_ < libro_.Count() - 1);
}

void fPelmorad::IrAProblema(QListWidgetItem* item) {
    const QVariant tarifa = item->data(Qt::UserRole);
    const std::string clave = item->data(Qt::UserRole + 1).toString().toStdString();
    if (!tarifa.isValid()) {
        return;
    }
    if (tarifa.toInt() >= 0 && tarifa.toInt() != actual_) {
        Seleccionar(tarifa.toInt());
    }
    panel->Enfocar(clave);
}

void fPelmorad::Añadir() {
    const int i = libro_.Añadir();
    Refrescar(i);
    setWindowModified(true);
    panel->Enfocar("Nombre");
}

void fPelmorad::Copiar() {
    const int i = libro_.Copiar(actual_);
    Refrescar(i);
    setWindowModified(true);
}

void fPelmorad::Eliminar() {
    const int i = actual_;
    const TarifaEditable& t = libro_.Tarifa(i);
    const std::string nombre = t.NombreLeido().value_or(t.Nombre());
    if (const auto usos = t.NombreLeido() ? AbrirUsos() : nullptr) {
        const UsoTarifa uso = UsoDeTarifa(usos->Datos(), nombre);
        if (uso.Alguno() &&
            !Confirmar(
                this,
                QString("La tarifa \"%1\" la usan %2. ¿Eliminarla?")
                    .arg(QString::fromStdString(nombre), QString::fromStdString(TextoUso(uso))),
                "Sin ella, esas llamadas conservan sus importes al recalcular y esas "
                "conexiones se quedan sin tarifa hasta que se les elija otra.",
                "&Eliminar")) {
            return;
        }
    }
    libro_.Eliminar(i);
    Refrescar(i);
    setWindowModified(true);
}

void fPelmorad::Renombrar() {
    panel->Enfocar("Nombre");
}

void fPelmorad::Mover(int paso) {
    const int destino = actual_ + paso;
    if (actual_ < 0 || destino < 0 || destino >= libro_.Count()) {
        return;
    }
    libro_.Mover(actual_, destino);
    Refrescar(destino);
    setWindowModified(true);
}

bool fPelmorad::Guardar() {
    if (!leido_) {
        return false;
    }
    problemas_ = ValidarLibro(libro_);
    PintarProblemas();
    if (HayErrores(problemas_)) {
        Avisar(this, QMessageBox::Warning,
               "Las tarifas no se guardan mientras tengan errores. Corrijalos y vuelva a "
               "guardar.",
               Lista(problemas_));
        return false;
    }
    if (!problemas_.empty() &&
        !Confirmar(this, "Las tarifas tienen avisos. ¿Guardarlas de todos modos?",
                   Lista(problemas_), "&Guardar de todos modos")) {
        return false;
    }
    std::vector<std::pair<std::string, std::string>> mover;
    std::unique_ptr<Sesion> usos;
    std::shared_ptr<InstanciaUnica> cerrojo;
    if (!ElegirRenombres(mover, usos, cerrojo)) {
        return false;
    }
    cLlamada libro(carpeta_);
    try {
        libro_.AplicarA(libro);
        libro.Save();
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Critical, "No se pudieron guardar las tarifas.",
               QString::fromStdString(e.what()));
        return false;
    }
    if (!GuardarPlanes()) {
        return false;
    }
    Sustituir(LibroEditable::DesdeLibro(libro), actual_);
    setWindowModified(false);
    statusBar()->showMessage(QString("Guardadas %1 tarifas en %2")
                                 .arg(libro.Count())
                                 .arg(QString::fromStdString(libro.Ruta().string())));
    if (usos && !mover.empty()) {
        MoverUsos(*usos, mover);
    }
    return true;
}

bool fPelmorad::ImportarDesde(const QString& ruta) {
    Importacion r;
    try {
        r = ImportarJson(LeerArchivo(ruta.toStdString()));
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Critical, "No se pudo leer " + ruta + ".",
               QString::fromStdString(e.what()));
        return false;
    }
    if (HayErrores(r.problemas)) {
        Avisar(this, QMessageBox::Warning,
               "No se importa " + ruta + ": las tarifas siguen como estaban.", Lista(r.problemas));
        return false;
    }
    Sustituir(std::move(r.libro), 0);
    setWindowModified(true);
    statusBar()->showMessage(QString("Importadas %1 tarifas de %2; pulse Guardar para "
                                     "escribirlas en el libro.")
                                 .arg(libro_.Count())
                                 .arg(ruta));
    return true;
}

bool fPelmorad::ExportarA(const QString& ruta) {
    if (HayErrores(ValidarLibro(libro_))) {
        Avisar(this, QMessageBox::Warning,
               "Las tarifas no se exportan mientras tengan errores. Corrijalos primero.",
               Lista(ValidarLibro(libro_)));
        return false;
    }
    try {
        EscribirArchivoSeguro(ruta.toStdString(), ExportarJson(libro_));
    } catch (const Error& e) {
        Avisar(this, QMessageBox::Critical, "No se pudo escribir " + ruta + ".",
               QString::fromStdString(e.what()));
        return false;
    }
    statusBar()->showMessage(QString("Exportadas %1 tarifas a %2").arg(libro_.Count()).arg(ruta));
    return true;
}

bool fPelmorad::RestaurarDeSerie() {
    if (!Confirmar(this, "¿Sustituir todas las tarifas por las de serie?",
                   "Las tarifas de ahora se pierden al guardar.", "&Restaurar")) {
        return false;
    }
    Sustituir(LibroEditable::DeSerie(), 0);
    setWindowModified(true);
    return true;
}

void fPelmorad::PedirImportar() {
    const QString ruta = RutaDeDialogo(this, false);
    if (!ruta.isEmpty()) {
        ImportarDesde(ruta);
    }
}

void fPelmorad::PedirExportar() {
    const QString ruta = RutaDeDialogo(this, true);
    if (!ruta.isEmpty()) {
        ExportarA(ruta);
    }
}

void fPelmorad::closeEvent(QCloseEvent* e) {
    if (!isWindowModified()) {
        e->accept();
        return;
    }
    const AlCerrar r = PreguntarAlCerrar(
        this, "Hay cambios sin guardar en las tarifas. ¿Guardarlos antes de salir?");
    const bool salir = r == AlCerrar::Descartar || (r == AlCerrar::Guardar && Guardar());
    salir ? e->accept() : e->ignore();
}

} // namespace vorimesk
