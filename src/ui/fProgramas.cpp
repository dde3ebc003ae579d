#include "fProgramas.h"

#include "AnchoTitulo.h"
#include "FiltroProgramas.h"
#include "Iconos.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace vorimesk {

fProgramas::fProgramas(std::vector<std::string>& programas, QWidget* padre)
    : QDialog(padre), programas_(programas) {
    setWindowTitle("Programas a cargar al conectar...");
    setWindowIcon(IconoPrograma());
    ElegirArchivo = [this] { return DialogoAbrir(this); };

    listPro = new QListWidget(this);
    listPro->setObjectName("listPro");
    cmdAñadir = new QPushButton("&Añadir", this);
    cmdBorrar = new QPushButton("&Borrar", this);
    cmdBorrarTodos = new QPushButton("Borrar &Todos", this);
    cmdCerrar = new QPushButton("&Cerrar", this);
    cmdAñadir->setObjectName("cmdAñadir");
    cmdBorrar->setObjectName("cmdBorrar");
    cmdBorrarTodos->setObjectName("cmdBorrarTodos");
    cmdCerrar->setObjectName("cmdCerrar");
    connect(cmdAñadir, &QPushButton::clicked, this, &fProgramas::Añadir);
    connect(cmdBorrar, &QPushButton::clicked, this, &fProgramas::Borrar);
    connect(cmdBorrarTodos, &QPushButton::clicked, listPro, &QListWidget::clear);
    connect(cmdCerrar, &QPushButton::clicked, this, &QDialog::accept);

    auto* botones = new QVBoxLayout;
    for (QPushButton* b : {cmdAñadir, cmdBorrar, cmdBorrarTodos}) {
        botones->addWidget(b);
    }
    botones->addStretch();
    botones->addWidget(cmdCerrar);
    auto* todo = new QHBoxLayout(this);
    todo->addWidget(listPro, 1);
    todo->addLayout(botones);
    resize(520, 260);
    AjustarAnchoAlTitulo(*this);

    for (const std::string& p : programas_) {
        listPro->addItem(QString::fromStdString(p));
    }
    if (listPro->count() > 0) {
        listPro->setCurrentRow(0);
    }
}

std::unique_ptr<QFileDialog> fProgramas::CrearDialogoAbrir(QWidget* padre) {
    const auto elecciones = FiltroDialogoProgramas();
    auto dialogo = std::make_unique<QFileDialog>(padre, "Añadir programa");
    dialogo->setFileMode(QFileDialog::ExistingFile);
    // The own dialog: the native ones cannot take the filtering model.
    dialogo->setOption(QFileDialog::DontUseNativeDialog);
    dialogo->setOption(QFileDialog::HideNameFilterDetails);
    auto* proxy = new FiltroProgramasProxy(elecciones, dialogo.get());
    dialogo->setProxyModel(proxy);
    dialogo->setNameFilters(FiltrosDialogo(elecciones));
    QObject::connect(dialogo.get(), &QFileDialog::filterSelected, proxy,
                     &FiltroProgramasProxy::EleccionPorTexto);
    dialogo->selectFile(QString());
    return dialogo;
}

QString fProgramas::DialogoAbrir(QWidget* padre) {
    const std::unique_ptr<QFileDialog> dialogo = CrearDialogoAbrir(padre);
    if (dialogo->exec() != QDialog::Accepted || dialogo->selectedFiles().isEmpty()) {
        return {};
    }
    return dialogo->selectedFiles().constFirst();
}

void fProgramas::Añadir() {
    const QString archivo = ElegirArchivo();
    if (!archivo.isEmpty()) {
        listPro->addItem(archivo);
    }
}

void fProgramas::Borrar() {
    const int fila = listPro->currentRow();
    if (fila < 0 || listPro->currentItem() == nullptr || !listPro->currentItem()->isSelected()) {
        return;
    }
    delete listPro->takeItem(fila);
    if (listPro->count() > 0) {
        listPro->setCurrentRow(std::min(fila, listPro->count() - 1));
    }
}

void fProgramas::done(int resultado) {
    programas_.clear();
    for (int i = 0; i < listPro->count(); ++i) {
        programas_.push_back(listPro->item(i)->text().toStdString());
    }
    QDialog::done(resultado);
}

} // namespace vorimesk
