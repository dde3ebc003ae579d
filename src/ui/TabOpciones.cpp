#include "TabOpciones.h"

#include "EditorTiempo.h"
#include "FechasQt.h"
#include "HerramientasEscritorio.h"
#include "MarcoPresupuesto.h"
#include "Mensajes.h"
#include "SonidoAviso.h"
#include "core/FormatoNumero.h"
#include "core/Numero.h"
#include "fProgramas.h"
#include "session/DatosSesion.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QTimeEdit>
#include <QUrl>
#include <QVBoxLayout>
#include <cmath>

namespace vorimesk {
namespace {

QCheckBox* Casilla(QWidget* padre, const char* nombre, const char* texto) {
    auto* c = new QCheckBox(texto, padre);
    c->setObjectName(nombre);
    return c;
}

} // namespace

TabOpciones::TabOpciones(DatosSesion& datos, SonidoAviso& sonido, QWidget* padre)
    : QWidget(padre), datos_(datos), sonido_(sonido) {
    auto* izquierda = new QVBoxLayout;
    izquierda->addWidget(MarcoGeneral());
    izquierda->addWidget(MarcoImpuestos());
    izquierda->addStretch();
    auto* derecha = new QVBoxLayout;
    derecha->addWidget(MarcoAvisos());
    derecha->addWidget(new MarcoPresupuesto(datos_.Presupuesto, this));
    derecha->addStretch();
    auto* todo = new QHBoxLayout(this);
    todo->addLayout(izquierda, 1);
    todo->addLayout(derecha, 1);
    Enlazar();
}

QWidget* TabOpciones::MarcoGeneral() {
    auto* marco = new QGroupBox("General", this);
    Check7 = Casilla(marco, "Check7", "Cargar al iniciar la sesion.");
    Check7->setToolTip("Arranca el contador al iniciar la sesion del escritorio");
    Check8 = Casilla(marco, "Check8", "Cambio de color segun tarifa.");
    Check9 = Casilla(marco, "Check9", "Mini ventana al conectar");
    Check10 = Casilla(marco, "Check10", "Cargar programas al conectar");
    Check11 = Casilla(marco, "Check11", "Ventanas Conexion invisibles");
    cmdProgramas = new QPushButton("&Programas", marco);
    cmdProgramas->setObjectName("cmdProgramas");
    cmdInternet = new QPushButton("Internet", marco);
    cmdInternet->setObjectName("cmdInternet");
    cmdInternet->setToolTip(kPaginaInternet);
    auto* programas = new QHBoxLayout;
    programas->addWidget(Check10);
    programas->addStretch();
    programas->addWidget(cmdProgramas);
    auto* filas = new QVBoxLayout(marco);
    filas->addWidget(Check7);
    filas->addWidget(Check8);
    filas->addWidget(Check9);
    filas->addLayout(programas);
    filas->addWidget(Check11);
    // Wayland lets no window put itself above the others: the user is told
    // once, here, instead of the pin seeming to do nothing.
    if (QGuiApplication::platformName().startsWith("wayland")) {
        auto* aviso = new QLabel("En Wayland el programa no puede ponerse por si mismo encima de "
                                 "las demas ventanas: \"Siempre visible\" depende del escritorio.",
                                 marco);
        aviso->setObjectName("lAvisoWayland");
        aviso->setWordWrap(true);
        filas->addWidget(aviso);
    }
    auto* internet = new QHBoxLayout;
    internet->addStretch();
    internet->addWidget(cmdInternet);
    filas->addLayout(internet);
    return marco;
}

QWidget* TabOpciones::MarcoAvisos() {
    auto* marco = new QGroupBox("Avisos", this);
    Check1 = Casilla(marco, "Check1", "Al Conectar");
    Check2 = Casilla(marco, "Check2", "Al acabar la conexion.");
    Check6 = Casilla(marco, "Check6", "A la hora");
    Check3 = Casilla(marco, "Check3", "Al superar el tiempo de");
    Check4 = Casilla(marco, "Check4", "Al superar el importe de");
    Check5 = Casilla(marco, "Check5", "Al quedar de bono");
    hora3 = new QTimeEdit(marco);
    hora3->setObjectName("hora3");
    hora3->setDisplayFormat("HH:mm");
    tiempo1 = new EditorTiempo(marco);
    tiempo1->setObjectName("tiempo1");
    txtImporte = new QLineEdit(marco);
    txtImporte->setObjectName("txtImporte");
    txtImporte->setAlignment(Qt::AlignRight);
    txtImporte->setMaximumWidth(tiempo1->maximumWidth());
    // Amounts as a Spanish user writes them ("1.500,50") or plainly.
    txtImporte->setValidator(
        new QRegularExpressionValidator(QRegularExpression(R"([0-9.,]{0,14})"), txtImporte));
    tiempo2 = new EditorTiempo(marco);
    tiempo2->setObjectName("tiempo2");

    lSonido = new QLabel(marco);
    lSonido->setObjectName("lSonido");
    lSonido->setMinimumWidth(120);
    cmdSonido = new QPushButton("&Sonido...", marco);
    cmdSonido->setObjectName("cmdSonido");
    cmdProbar = new QPushButton("P&robar", marco);
    cmdProbar->setObjectName("cmdProbar");

    auto* rejilla = new QGridLayout(marco);
    rejilla->addWidget(Check1, 0, 0, 1, 2);
    rejilla->addWidget(Check2, 1, 0, 1, 2);
    rejilla->addWidget(Check6, 2, 0);
    rejilla->addWidget(hora3, 2, 1);
    rejilla->addWidget(Check3, 3, 0);
    rejilla->addWidget(tiempo1, 3, 1);
    rejilla->addWidget(Check4, 4, 0);
    rejilla->addWidget(txtImporte, 4, 1);
    rejilla->addWidget(Check5, 5, 0);
    rejilla->addWidget(tiempo2, 5, 1);
    rejilla->addWidget(new QLabel("Sonido del aviso:", marco), 6, 0, 1, 2);
    rejilla->addWidget(lSonido, 7, 0, 1, 2);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdSonido);
    botones->addWidget(cmdProbar);
    rejilla->addLayout(botones, 8, 0, 1, 2);
    rejilla->setColumnStretch(0, 1);
    return marco;
}

QWidget* TabOpciones::MarcoImpuestos() {
    auto* marco = new QGroupBox("Impuestos ", this);
    chkImpuestos = Casilla(marco, "chkImpuestos", "Añadir impuestos a los calculos.");
    txtImpuestos = new QSpinBox(marco);
    txtImpuestos->setObjectName("txtImpuestos");
    txtImpuestos->setRange(0, 100);
    txtImpuestos->setSuffix(" %");
    auto* importe = new QHBoxLayout;
    importe->addWidget(new QLabel("Importe:", marco));
    importe->addWidget(txtImpuestos);
    importe->addStretch();
    auto* filas = new QVBoxLayout(marco);
    filas->addWidget(chkImpuestos);
    filas->addLayout(importe);
    return marco;
}

void TabOpciones::Enlazar() {
    Settings& a = datos_.Ajustes;
    auto enlazar = [this](QCheckBox* c, bool& campo) {
        connect(c, &QCheckBox::clicked, this, [&campo](bool marcado) { campo = marcado; });
    };
    enlazar(Check7, a.CargarAlIniciar);
    enlazar(Check8, a.ColorSegunTarifa);
    enlazar(Check9, a.MiniAlConectar);
    enlazar(Check10, a.ProgramasAlConectar);
    enlazar(Check11, datos_.VentanasInvisibles);
    enlazar(Check1, a.AvisoConectar);
    enlazar(Check2, a.AvisoDesconectar);
    enlazar(Check6, a.AvisoHora);
    enlazar(Check3, a.AvisoTiempo);
    enlazar(Check4, a.AvisoImporte);
    enlazar(Check5, a.AvisoBono);
    enlazar(chkImpuestos, a.AnadirImpuestos);
    // A click on a threshold's box makes its alert able to sound again.
    connect(Check3, &QCheckBox::clicked, this, [this] { emit AvisoArmado(0); });
    connect(Check4, &QCheckBox::clicked, this, [this] { emit AvisoArmado(1); });
    connect(Check5, &QCheckBox::clicked, this, [this] { emit AvisoArmado(2); });

    connect(hora3, &QTimeEdit::userTimeChanged, this,
            [this](QTime t) { datos_.Ajustes.HoraAviso = DeQTime(t); });
    // Kept as typed when it is a time, and when the box makes it one.
    for (auto [editor, tiempo] :
         {std::pair{tiempo1, &Settings::TiempoAviso}, std::pair{tiempo2, &Settings::BonoAviso}}) {
        const auto guardar = [this, editor, tiempo] {
            if (editor->Completo()) {
                (datos_.Ajustes.*tiempo).Valor(editor->Tiempo());
            }
        };
        connect(editor, &QLineEdit::textEdited, this, guardar);
        connect(editor, &QLineEdit::editingFinished, this, guardar);
    }
    // The amount is kept written plainly ("1500.5"), so the alert compares
    // it as a number.
    connect(txtImporte, &QLineEdit::textEdited, this, [this](const QString& texto) {
        if (const auto numero = NumeroEscrito(texto.toStdString())) {
            datos_.Ajustes.ImporteAviso = *numero;
        }
    });
    connect(txtImporte, &QLineEdit::editingFinished, this, [this] {
        txtImporte->setText(QString::fromStdString(TextoDinero(Val(datos_.Ajustes.ImporteAviso))));
    });
    connect(txtImpuestos, &QSpinBox::valueChanged, this,
            [this](int valor) { datos_.Ajustes.Impuestos = static_cast<float>(valor); });
    connect(cmdSonido, &QPushButton::clicked, this, &TabOpciones::ElegirSonido);
    connect(cmdProbar, &QPushButton::clicked, this,
            [this] { sonido_.Reproducir(QString::fromStdString(datos_.Ajustes.SonidoAviso)); });
    connect(cmdProgramas, &QPushButton::clicked, this, &TabOpciones::AbrirProgramas);
    connect(cmdInternet, &QPushButton::clicked, this, &TabOpciones::AbrirInternet);
}

void TabOpciones::Mostrar() {
    const Settings& a = datos_.Ajustes;
    const std::pair<QCheckBox*, bool> casillas[] = {{Check7, a.CargarAlIniciar},
                                                    {Check8, a.ColorSegunTarifa},
                                                    {Check9, a.MiniAlConectar},
                                                    {Check10, a.ProgramasAlConectar},
                                                    {Check1, a.AvisoConectar},
                                                    {Check2, a.AvisoDesconectar},
                                                    {Check6, a.AvisoHora},
                                                    {Check3, a.AvisoTiempo},
                                                    {Check4, a.AvisoImporte},
                                                    {Check5, a.AvisoBono},
                                                    {chkImpuestos, a.AnadirImpuestos},
                                                    {Check11, datos_.VentanasInvisibles}};
    for (const auto& [casilla, valor] : casillas) {
        casilla->setChecked(valor);
    }
    txtImpuestos->blockSignals(true);
    txtImpuestos->setValue(static_cast<int>(std::lround(a.Impuestos)));
    txtImpuestos->blockSignals(false);
    hora3->blockSignals(true);
    hora3->setTime(AQTime(a.HoraAviso));
    hora3->blockSignals(false);
    tiempo1->Tiempo(a.TiempoAviso.Valor());
    tiempo2->Tiempo(a.BonoAviso.Valor());
    txtImporte->setText(QString::fromStdString(TextoDinero(Val(a.ImporteAviso))));
    MostrarSonido();
}

void TabOpciones::MostrarSonido() {
    const QString ruta = QString::fromStdString(datos_.Ajustes.SonidoAviso);
    lSonido->setText(ruta.isEmpty() ? "(ninguno)" : QFileInfo(ruta).fileName());
    lSonido->setToolTip(ruta);
    cmdProbar->setEnabled(!ruta.isEmpty());
}

void TabOpciones::ElegirSonido() {
    const QString ruta = QFileDialog::getOpenFileName(
        this, "Sonido del aviso", QString::fromStdString(datos_.Ajustes.SonidoAviso),
        "Sonidos (*.wav *.WAV);;Todos los archivos (*)");
    if (!ruta.isEmpty()) {
        datos_.Ajustes.SonidoAviso = ruta.toStdString();
        MostrarSonido();
    }
}

void TabOpciones::AbrirProgramas() {
    fProgramas dialogo(datos_.Ajustes.Programas, this);
    dialogo.exec();
}

void TabOpciones::AbrirInternet() {
    const QString falta = herramientas::AbrirEnNavegador(QUrl(kPaginaInternet));
    if (!falta.isEmpty()) {
        Avisar(this, QMessageBox::Information, falta);
    }
}

} // namespace vorimesk
