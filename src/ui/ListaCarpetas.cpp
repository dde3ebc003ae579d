#include "ListaCarpetas.h"

#include <QApplication>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {
constexpr int kRutaRol = Qt::UserRole + 1;
}

ListaCarpetas::ListaCarpetas(QWidget* padre) : QWidget(padre), lista_(new QListWidget(this)) {
    auto* l = new QVBoxLayout(this);
    l->setContentsMargins(0, 0, 0, 0);
    l->addWidget(lista_);
    connect(lista_, &QListWidget::itemActivated, this, &ListaCarpetas::Entrar);
}

void ListaCarpetas::Carpeta(const fs::path& carpeta) {
    std::error_code ec;
    fs::path absoluta = fs::absolute(carpeta, ec).lexically_normal();
    if (absoluta.has_filename() == false && absoluta != absoluta.root_path()) {
        absoluta = absoluta.parent_path();
    }
    const bool cambia = absoluta != carpeta_;
    carpeta_ = absoluta;
    Rellenar();
    if (cambia) {
        emit CarpetaCambiada(QString::fromStdString(carpeta_.string()));
    }
}

void ListaCarpetas::Rellenar() {
    lista_->clear();
    const QIcon abierta = style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon cerrada = style()->standardIcon(QStyle::SP_DirIcon);
    std::vector<fs::path> antecesores;
    for (fs::path p = carpeta_; !p.empty(); p = p.parent_path()) {
        antecesores.push_back(p);
        if (p == p.root_path()) {
            break;
        }
    }
    std::reverse(antecesores.begin(), antecesores.end());
    const auto añadir = [this](const fs::path& ruta, const QIcon& icono, int nivel, bool actual) {
        const QString nombre = ruta == ruta.root_path()
                                   ? QString::fromStdString(ruta.string())
                                   : QString::fromStdString(ruta.filename().string());
        auto* e = new QListWidgetItem(icono, QString(nivel * 2, ' ') + nombre, lista_);
        e->setData(kRutaRol, QString::fromStdString(ruta.string()));
        if (actual) {
            lista_->setCurrentItem(e);
        }
    };
    int nivel = 0;
    for (const fs::path& p : antecesores) {
        añadir(p, abierta, nivel++, p == carpeta_);
    }
    std::vector<fs::path> hijas;
    std::error_code ec;
    for (fs::directory_iterator it(carpeta_, ec), fin; !ec && it != fin; it.increment(ec)) {
        std::error_code ec2;
        if (it->is_directory(ec2) && it->path().filename().string().front() != '.') {
            hijas.push_back(it->path());
        }
    }
    std::sort(hijas.begin(), hijas.end());
    for (const fs::path& h : hijas) {
        añadir(h, cerrada, nivel, false);
    }
}

void ListaCarpetas::Entrar(QListWidgetItem* elemento) {
    if (elemento != nullptr) {
        Carpeta(elemento->data(kRutaRol).toString().toStdString());
    }
}

} // namespace vorimesk
