#include "fAbout.h"

#include "HerramientasEscritorio.h"
#include "Iconos.h"
#include "PanelLogo.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace vorimesk {

fAbout::fAbout(QWidget* padre) : QDialog(padre) {
    setWindowTitle("Acerca de Vorimesk");
    setWindowIcon(IconoPrograma());

    logo_ = new PanelLogo(this);
    logo_->Caption("Vorimesk");
    logo_->setFixedWidth(56);

    auto* Image1 = new QLabel(this);
    Image1->setPixmap(PintarIconoPrograma(64));

    Label1 = new QLabel("Vorimesk", this);
    QFont grande = Label1->font();
    grande.setPointSize(grande.pointSize() + 8);
    grande.setBold(true);
    Label1->setFont(grande);

    auto* Label2 = new QLabel("Version", this);
    lVersion = new QLabel(VORIMESK_VERSION, this);
    Label4 = new QLabel("Contador de coste de las conexiones a Internet por modem.\n"
                        "© 2026 Equipo Vorimesk. Programa libre.",
                        this);
    Label4->setWordWrap(true);
    lMsg = new QLabel("Cargando el programa...", this);
    lMsg->setObjectName("lMsg");
    lMsg->setVisible(false);

    cmdInformacion = new QPushButton("&Info sistema", this);
    cmdCerrar = new QPushButton("&Cerrar", this);
    cmdCerrar->setObjectName("cmdCerrar");
    cmdCerrar->setDefault(true);
    cmdInformacion->setEnabled(herramientas::InfoSistema().Existe());
    if (!cmdInformacion->isEnabled()) {
        cmdInformacion->setToolTip(
            "No se encontro ninguna herramienta de informacion del sistema.");
    }
    connect(cmdCerrar, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdInformacion, &QPushButton::clicked, this, &fAbout::AbrirInfoSistema);

    auto* version = new QHBoxLayout;
    version->addWidget(Label2);
    version->addWidget(lVersion);
    version->addStretch();

    auto* cabecera = new QHBoxLayout;
    cabecera->addWidget(Image1);
    cabecera->addWidget(Label1);
    cabecera->addStretch();

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdInformacion);
    botones->addWidget(cmdCerrar);

    auto* texto = new QVBoxLayout;
    texto->addLayout(cabecera);
    texto->addLayout(version);
    texto->addWidget(Label4);
    texto->addStretch();
    texto->addWidget(lMsg);
    texto->addLayout(botones);

    auto* todo = new QHBoxLayout(this);
    todo->addWidget(logo_);
    todo->addLayout(texto, 1);
    setMinimumSize(440, 240);
    Centrar();
}

void fAbout::ModoBanner(bool banner) {
    cmdCerrar->setVisible(!banner);
    cmdInformacion->setVisible(!banner);
    lMsg->setVisible(banner);
    setWindowFlag(Qt::WindowStaysOnTopHint, banner);
    setWindowFlag(Qt::SplashScreen, banner);
    Centrar();
}

void fAbout::Centrar() {
    adjustSize();
    if (const QScreen* pantalla = QGuiApplication::primaryScreen()) {
        const QRect r = pantalla->availableGeometry();
        move(r.x() + (r.width() - width()) / 2, r.y() + (r.height() - height()) / 2);
    }
}

void fAbout::AbrirInfoSistema() {
    herramientas::InfoSistema().Abrir();
}

} // namespace vorimesk
