#include "MenuBandeja.h"

#include "monitor/EntradasConexion.h"

namespace vorimesk {

MenuBandeja::MenuBandeja(QWidget* padre) : QMenu(padre) {
    setObjectName("mnuOne");
    mnu_[kMini] = addAction(kIrAMini);
    mnu_[kSiempreVisible] = addAction("&Siempre visible");
    mnu_[kSiempreVisible]->setCheckable(true);
    mnu_[2] = addSeparator();
    mnuCon = new QMenu("&Conectar con", this);
    mnuCon->setObjectName("mnuCon");
    mnu_[kConectar] = addMenu(mnuCon);
    mnu_[kDesconectar] = addAction("&Desconectar");
    mnu_[5] = addSeparator();
    mnu_[kConfigurar] = addAction("C&onfigurar");
    mnu_[kAcercaDe] = addAction("&Acerca de ");
    mnu_[8] = addSeparator();
    mnu_[kTerminar] = addAction("&Terminar");
}

void MenuBandeja::MostrarEntradas(const std::vector<std::string>& entradas) {
    mnuCon->clear();
    if (entradas.empty()) {
        mnuCon->addAction(kSinConexiones)->setEnabled(false);
        return;
    }
    for (const std::string& e : entradas) {
        const QString entrada = QString::fromStdString(e);
        // The entry's name may hold "&": it is shown as it is.
        QAction* item = mnuCon->addAction(QString(entrada).replace("&", "&&"));
        connect(item, &QAction::triggered, this, [this, entrada] { emit ConectarCon(entrada); });
    }
}

} // namespace vorimesk
