#include "MenuBandeja.h"

#include "monitor/EntradasConexion.h"

namespace vorimesk {

MenuBandeja::MenuBandeja(QWidget* padre) : QMenu(padre) {
    setObjectName("mnuOne");
    mini_ = Añadir("mnuMini", kIrAMini);
    siempreVisible_ = Añadir("mnuSiempreVisible", "&Siempre visible");
    siempreVisible_->setCheckable(true);
    addSeparator();
    con_ = new QMenu("&Conectar con", this);
    con_->setObjectName("mnuCon");
    conectar_ = addMenu(con_);
    conectar_->setObjectName("mnuConectar");
    desconectar_ = Añadir("mnuDesconectar", "&Desconectar");
    addSeparator();
    configurar_ = Añadir("mnuConfigurar", "C&onfigurar");
    acercaDe_ = Añadir("mnuAcercaDe", "&Acerca de ");
    addSeparator();
    terminar_ = Añadir("mnuTerminar", "&Terminar");
}

QAction* MenuBandeja::Añadir(const char* nombre, const QString& texto) {
    QAction* item = addAction(texto);
    item->setObjectName(nombre);
    return item;
}

void MenuBandeja::MostrarEntradas(const std::vector<std::string>& entradas) {
    con_->clear();
    if (entradas.empty()) {
        con_->addAction(kSinConexiones)->setEnabled(false);
        return;
    }
    for (const std::string& e : entradas) {
        const QString entrada = QString::fromStdString(e);
        // The entry's name may hold "&": it is shown as it is.
        QAction* item = con_->addAction(QString(entrada).replace("&", "&&"));
        connect(item, &QAction::triggered, this, [this, entrada] { emit ConectarCon(entrada); });
    }
}

} // namespace vorimesk
