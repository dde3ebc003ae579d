#include "fArchivo.h"

#include "ControlesDialogo.h"
#include "FechasQt.h"
#include "ListaCarpetas.h"
#include "Mensajes.h"
#include "PanelLogo.h"
#include "Proteger.h"
#include "core/Errores.h"
#include "register/ListadoRegistro.h"
#include "tariff/cBono.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

QRadioButton* Opcion(const QString& texto, const char* nombre, QWidget* padre) {
    auto* o = new QRadioButton(texto, padre);
    o->setObjectName(nombre);
    return o;
}

// A page with its heading on top; the caller adds the rest.
QWidget* Pagina(const QString& titulo, QVBoxLayout*& columna) {
    auto* p = new QWidget;
    columna = new QVBoxLayout(p);
    auto* t = new QLabel(titulo, p);
    t->setWordWrap(true);
    QFont f = t->font();
    f.setBold(true);
    t->setFont(f);
    columna->addWidget(t);
    return p;
}

// Two choices of one page, exclusive between themselves only.
QWidget* ParOpciones(QRadioButton*& a, const QString& textoA, const char* nombreA, QRadioButton*& b,
                     const QString& textoB, const char* nombreB) {
    auto* w = new QWidget;
    auto* l = new QVBoxLayout(w);
    l->setContentsMargins(12, 8, 0, 0);
    a = Opcion(textoA, nombreA, w);
    b = Opcion(textoB, nombreB, w);
    l->addWidget(a);
    l->addWidget(b);
    return w;
}

// A page that is only its heading and two choices.
QWidget* PaginaDeDos(const QString& titulo, QRadioButton*& a, const QString& textoA,
                     const char* nombreA, QRadioButton*& b, const QString& textoB,
                     const char* nombreB) {
    QVBoxLayout* c = nullptr;
    QWidget* p = Pagina(titulo, c);
    c->addWidget(ParOpciones(a, textoA, nombreA, b, textoB, nombreB));
    c->addStretch(1);
    return p;
}

} // namespace

fArchivo::fArchivo(AnfitrionRegistro& anfitrion, Log& registro, const cBono& bono,
                   const Reloj& reloj, const fs::path& carpetaDatos, QWidget* padre)
    : QDialog(padre), anfitrion_(anfitrion), registro_(registro), bono_(bono), reloj_(reloj),
      carpetaCopias_(Copias::CarpetaDe(carpetaDatos)), copias_(carpetaCopias_) {
    setWindowTitle("Archivo");
    setModal(true);
    picLogo = new PanelLogo(this);
    picLogo->setObjectName("picLogo");
    picLogo->setFixedWidth(64);
    picLogo->Logo().StartColor(QColor(0, 0, 128));
    picLogo->Logo().EndColor(QColor(0, 128, 192));

    paginas = new QStackedWidget(this);
    // In the order of PaginaArchivo.
    for (QWidget* p : {PaginaAccion(), PaginaPeriodo(), PaginaNombre(), PaginaConservar(),
                       PaginaModo(), PaginaArchivo(), PaginaVer(), PaginaConfirmar()}) {
        paginas->addWidget(p);
    }
    cmdAtras = Boton("&Atras", "cmdAtras", this);
    cmdSiguiente = Boton("&Siguiente", "cmdSiguiente", this);
    cmdFinalizar = Boton("&Finalizar", "cmdFinalizar", this);
    cmdSalir = Boton("&Cancelar", "cmdSalir", this);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    for (QPushButton* b : {cmdAtras, cmdSiguiente, cmdFinalizar, cmdSalir}) {
        botones->addWidget(b);
    }
    auto* derecha = new QVBoxLayout;
    derecha->addWidget(paginas, 1);
    derecha->addLayout(botones);
    auto* fila = new QHBoxLayout(this);
    fila->addWidget(picLogo);
    fila->addLayout(derecha, 1);
    setMinimumSize(680, 400);

    Conectar();
    Proteger(this, [&] { copias_.CargarIndice(); });
    Dir1->Carpeta(carpetaCopias_);
    Dir2->Carpeta(carpetaCopias_);
    copias_.Carpeta(carpetaCopias_);
    // Saving before a restore and removing archived calls are the defaults.
    Option4->setChecked(true);
    Option6->setChecked(true);
    Option8->setChecked(true);
    Option1->setChecked(true);
    ElegirRango(true);
    Refrescar();
}

fArchivo::~fArchivo() = default;

QWidget* fArchivo::PaginaAccion() {
    QVBoxLayout* c = nullptr;
    QWidget* p = Pagina("Seleccione una accion a realizar:", c);
    lAccion = new QListWidget(p);
    lAccion->setObjectName("lAccion");
    lAccion->addItems({"Archivar datos actuales", "Recuperar datos archivados",
                       "Ver datos archivados", "Borrar datos del disco!"});
    c->addWidget(lAccion, 1);
    return p;
}

QWidget* fArchivo::PaginaPeriodo() {
    QVBoxLayout* c = nullptr;
    QWidget* p = Pagina("Elija el periodo para archivar:", c);
    c->addWidget(ParOpciones(Option8, "&Todos los datos", "Option8", Option7,
                             "&Hasta el ultimo periodo finalizado.", "Option7"));
    auto* fechas = new QGridLayout;
    fechas->setContentsMargins(12, 12, 0, 0);
    lDesde = new QLabel(p);
    lDesde->setObjectName("lDesde");
    lHasta = new QLabel(p);
    lHasta->setObjectName("lHasta");
    fechas->addWidget(new QLabel("Desde:", p), 0, 0);
    fechas->addWidget(lDesde, 0, 1);
    fechas->addWidget(new QLabel("Hasta:", p), 1, 0);
    fechas->addWidget(lHasta, 1, 1);
    fechas->setColumnStretch(1, 1);
    c->addLayout(fechas);
    c->addStretch(1);
    return p;
}

QWidget* fArchivo::PaginaNombre() {
    QVBoxLayout* c = nullptr;
    QWidget* p = Pagina("Archivar con el siguiente nombre:", c);
    txtNombre = new QLineEdit(p);
    txtNombre->setObjectName("txtNombre");
    txtDescripcion = new QLineEdit(p);
    txtDescripcion->setObjectName("txtDescripcion");
    Dir1 = new ListaCarpetas(p);
    Dir1->setObjectName("Dir1");
    c->addWidget(txtNombre);
    c->addWidget(new QLabel("Descripcion del archivo:", p));
    c->addWidget(txtDescripcion);
    c->addWidget(Dir1, 1);
    return p;
}

QWidget* fArchivo::PaginaConservar() {
    return PaginaDeDos("Elija una opcion:", Option1, "Borrar datos al archivar", "Option1", Option2,
                       "Archivar y conservar datos.", "Option2");
}

QWidget* fArchivo::PaginaModo() {
    return PaginaDeDos("Elija una opcion:", Option3, "Recuperar otros y sustituir los actuales.",
                       "Option3", Option4, "Guardar datos actuales antes de recuperar otros.",
                       "Option4");
}

QWidget* fArchivo::PaginaArchivo() {
    QVBoxLayout* c = nullptr;
    QWidget* p = Pagina("Seleccione un archivo:", c);
    Dir2 = new ListaCarpetas(p);
    Dir2->setObjectName("Dir2");
    File1 = new QListWidget(p);
    File1->setObjectName("File1");
    txtDescripcion2 = new QLineEdit(p);
    txtDescripcion2->setObjectName("txtDescripcion2");
    txtDescripcion2->setReadOnly(true);
    auto* listas = new QHBoxLayout;
    listas->addWidget(Dir2, 1);
    listas->addWidget(File1, 1);
    c->addLayout(listas, 1);
    c->addWidget(new QLabel("Descripcion:", p));
    c->addWidget(txtDescripcion2);
    return p;
}

QWidget* fArchivo::PaginaVer() {
    auto* p = new QWidget;
    auto* c = new QVBoxLayout(p);
    Grid1 = new QTableWidget(0, static_cast<int>(kTitulosRegistro.size()), p);
    Grid1->setObjectName("Grid1");
    QStringList titulos;
    for (const std::string& t : kTitulosRegistro) {
        titulos << QTexto(t);
    }
    Grid1->setHorizontalHeaderLabels(titulos);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->verticalHeader()->hide();
    Grid1->verticalHeader()->setDefaultSectionSize(Grid1->fontMetrics().height() + 4);
    lPeriodo = new QLabel(p);
    lPeriodo->setObjectName("lPeriodo");
    auto* periodo = new QHBoxLayout;
    periodo->addWidget(new QLabel("Periodo:", p));
    periodo->addWidget(lPeriodo, 1);
    c->addWidget(Grid1, 1);
    c->addLayout(periodo);
    return p;
}

QWidget* fArchivo::PaginaConfirmar() {
    QWidget* p = PaginaDeDos({}, Option5, "&Si", "Option5", Option6, "&No", "Option6");
    lConfirmar = p->findChild<QLabel*>();
    lConfirmar->setObjectName("lConfirmar");
    return p;
}

void fArchivo::Conectar() {
    // A choice is a selected row: the list marks its first row current when
    // it takes the focus, and that chooses nothing.
    connect(lAccion, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> elegidas = lAccion->selectedItems();
        if (elegidas.isEmpty()) {
            return;
        }
        pasos_.ElegirAccion(static_cast<std::int16_t>(lAccion->row(elegidas.front())));
        Refrescar();
    });
    connect(lAccion, &QListWidget::itemDoubleClicked, this, &fArchivo::Siguiente);
    // The two range choices exclude each other: one signal serves for both.
    connect(Option8, &QRadioButton::toggled, this, &fArchivo::ElegirRango);
    connect(Option1, &QRadioButton::toggled, this, [this](bool on) { borrar_ = on; });
    connect(Option4, &QRadioButton::toggled, this, [this](bool on) { pasos_.GuardarAntes(on); });
    connect(Option5, &QRadioButton::toggled, this, [this](bool on) {
        pasos_.ConfirmarBorrado(on);
        Refrescar();
    });
    connect(Dir1, &ListaCarpetas::CarpetaCambiada, this,
            [this](const QString& carpeta) { copias_.Carpeta(carpeta.toStdString()); });
    connect(Dir2, &ListaCarpetas::CarpetaCambiada, this, [this](const QString& carpeta) {
        copias_.Carpeta(carpeta.toStdString());
        LlenarArchivos();
    });
    connect(File1, &QListWidget::currentItemChanged, this, &fArchivo::ArchivoElegido);
    // Each checks for itself that it may go on.
    connect(File1, &QListWidget::itemDoubleClicked, this,
            [this] { pasos_.SiguienteActivo() ? Siguiente() : Finalizar(); });
    connect(cmdAtras, &QPushButton::clicked, this, &fArchivo::Atras);
    connect(cmdSiguiente, &QPushButton::clicked, this, &fArchivo::Siguiente);
    connect(cmdFinalizar, &QPushButton::clicked, this, &fArchivo::Finalizar);
    connect(cmdSalir, &QPushButton::clicked, this, &QDialog::reject);
}

void fArchivo::Refrescar() {
    paginas->setCurrentIndex(static_cast<int>(pasos_.Pagina()));
    picLogo->Caption(QTexto(pasos_.Banner()));
    cmdAtras->setEnabled(pasos_.AtrasActivo());
    cmdSiguiente->setEnabled(pasos_.SiguienteActivo());
    cmdFinalizar->setEnabled(pasos_.FinalizarActivo());
}

void fArchivo::ElegirRango(bool todos) {
    const Fecha hoy = reloj_.Hoy();
    if (!Proteger(this, [&] {
            rango_ = todos ? RangoTodos(registro_, hoy)
                           : RangoHastaPeriodoCerrado(registro_, bono_.DiaFactura(),
                                                      bono_.perFactura(), hoy);
        })) {
        return;
    }
    lDesde->setText(QTexto(rango_.desde.TextoCorto()));
    lHasta->setText(QTexto(rango_.hasta.TextoCorto()));
}

// The ".CPR" files of the folder shown in Dir2; the file chosen before stays
// chosen while it is there.
void fArchivo::LlenarArchivos() {
    const QString antes = File1->currentItem() ? File1->currentItem()->text() : QString();
    const QSignalBlocker bloqueo(File1);
    File1->clear();
    const QDir carpeta(QString::fromStdString(Dir2->Carpeta().string()));
    File1->addItems(carpeta.entryList({"*.CPR"}, QDir::Files, QDir::Name));
    const auto encontrados = File1->findItems(antes, Qt::MatchExactly);
    File1->setCurrentItem(antes.isEmpty() || encontrados.isEmpty() ? nullptr : encontrados.front());
    pasos_.ArchivoSeleccionado(File1->currentItem() != nullptr);
}

void fArchivo::ArchivoElegido(QListWidgetItem* elemento) {
    pasos_.ArchivoSeleccionado(elemento != nullptr);
    if (elemento != nullptr) {
        if (auto d = copias_.Descripcion(elemento->text().toStdString())) {
            txtDescripcion2->setText(QTexto(*d));
            txtDescripcion->setText(QTexto(*d));
        }
    }
    Refrescar();
}

std::string fArchivo::ArchivoSeleccionado() const {
    const QListWidgetItem* e = File1->currentItem();
    return e ? e->text().toStdString() : std::string();
}

void fArchivo::Siguiente() {
    if (!pasos_.SiguienteActivo()) {
        return;
    }
    if (!Proteger(this, [&] { HacerTarea(pasos_.Tarea()); })) {
        return;
    }
    const bool aArchivo = pasos_.Avanzar() && pasos_.Pagina() == PaginaArchivo::Archivo;
    if (aArchivo) {
        LlenarArchivos();
    }
    if (pasos_.Pagina() == PaginaArchivo::ConfirmarBorrado) {
        Option6->setChecked(true);
        lConfirmar->setText("Se borrara definitivamente el archivo \"" +
                            QString::fromStdString(ArchivoSeleccionado()) +
                            "\" de su disco duro. ¿Desea continuar?:");
    }
    Refrescar();
}

void fArchivo::HacerTarea(TareaPaso tarea) {
    switch (tarea) {
    case TareaPaso::Ninguna:
        break;
    case TareaPaso::ProponerNombre:
        txtNombre->setText(QTexto(copias_.NombrePorDefecto()));
        Dir1->Carpeta(carpetaCopias_);
        copias_.Carpeta(carpetaCopias_);
        break;
    case TareaPaso::TomarNombre:
        nombre_ = txtNombre->text().toStdString();
        descripcion_ = txtDescripcion->text().toStdString();
        break;
    case TareaPaso::ArchivarActuales:
        copias_.Archivar(registro_, txtNombre->text().toStdString(),
                         txtDescripcion->text().toStdString(), rango_.desde, rango_.hasta, false);
        Option2->setChecked(true);
        break;
    case TareaPaso::LeerArchivo: {
        auto privado = std::make_unique<Log>(Dir2->Carpeta());
        Copias(Dir2->Carpeta()).Recuperar(ArchivoSeleccionado(), *privado);
        privado_ = std::move(privado);
        ListarPrivado();
        break;
    }
    }
}

void fArchivo::ListarPrivado() {
    const Log& r = *privado_;
    Grid1->setRowCount(r.Count());
    for (int i = 0; i < r.Count(); ++i) {
        const auto celdas = CeldasLlamada(r, i, {}); // the cost without taxes, as kept
        for (int c = 0; c < static_cast<int>(celdas.size()); ++c) {
            Grid1->setItem(i, c, new QTableWidgetItem(QTexto(celdas[c])));
        }
    }
    Grid1->resizeColumnsToContents();
    lPeriodo->setText(
        r.Count() > 0 ? QTexto(r.Dia(0).TextoCorto() + " - " + r.Dia(r.Count() - 1).TextoCorto())
                      : QString());
}

void fArchivo::Atras() {
    if (pasos_.Retroceder() && pasos_.Pagina() == PaginaArchivo::Archivo) {
        LlenarArchivos();
    }
    Refrescar();
}

void fArchivo::Finalizar() {
    if (!pasos_.FinalizarActivo()) {
        return;
    }
    if (!Proteger(this, [&] { Hacer(); })) {
        return;
    }
    accept();
}

void fArchivo::Hacer() {
    const auto entre = [](const std::string& nombre) { return "\"" + nombre + "\""; };
    switch (pasos_.Accion()) {
    case PasosArchivo::kArchivar: {
        const int antes = registro_.Count();
        int enRango = 0;
        for (int i = 0; i < antes; ++i) {
            enRango += rango_.desde <= registro_.Dia(i) && registro_.Dia(i) <= rango_.hasta;
        }
        copias_.Archivar(registro_, nombre_, descripcion_, rango_.desde, rango_.hasta, borrar_);
        if (registro_.Count() != antes) {
            const Fecha hoy = reloj_.Hoy();
            anfitrion_.RegistroCambiado();
            anfitrion_.RellenaGrid(CriteriosFiltro::Periodo(PrimerDiaOHoy(registro_, hoy), hoy));
        }
        anfitrion_.Informar("Se han archivado " + std::to_string(enRango) + " llamadas en " +
                            entre(nombre_) +
                            (registro_.Count() != antes ? " y se han quitado del registro."
                                                        : "; siguen tambien en el registro."));
        break;
    }
    case PasosArchivo::kRecuperar:
        Copias(Dir2->Carpeta()).Recuperar(ArchivoSeleccionado(), registro_);
        anfitrion_.RegistroCambiado();
        // All of it: the calls restored seldom fall in the current period.
        anfitrion_.RellenaGrid({});
        anfitrion_.Informar("Se han recuperado " + std::to_string(registro_.Count()) +
                            " llamadas de " + entre(ArchivoSeleccionado()) +
                            (Option4->isChecked()
                                 ? "; las que habia se guardaron antes en " + entre(nombre_) + "."
                                 : ".") +
                            " El registro se muestra entero.");
        break;
    case PasosArchivo::kBorrar:
        Copias::Borrar(Dir2->Carpeta(), ArchivoSeleccionado());
        anfitrion_.Informar("Se ha borrado el archivo " + entre(ArchivoSeleccionado()) +
                            " del disco.");
        break;
    default:
        break;
    }
}

void fArchivo::done(int resultado) {
    if (!cerrado_) {
        cerrado_ = true;
        std::error_code ec;
        // The folder is the user's to make; without it there is no index to keep.
        if (fs::is_directory(copias_.Carpeta(), ec)) {
            Proteger(this, [&] { copias_.GuardarIndice(); });
        }
        privado_.reset();
    }
    QDialog::done(resultado);
}

} // namespace vorimesk
