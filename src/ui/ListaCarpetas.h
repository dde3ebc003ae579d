#pragma once
// A folder list: the folders from the root down to the current one, then
// the current one's subfolders, each indented under its parent. Double
// click (or Enter) on a folder makes it the current one.

#include <QWidget>
#include <filesystem>

class QListWidget;
class QListWidgetItem;

namespace vorimesk {

class ListaCarpetas : public QWidget {
    Q_OBJECT
public:
    explicit ListaCarpetas(QWidget* padre = nullptr);

    const std::filesystem::path& Carpeta() const { return carpeta_; }
    // Shows `carpeta`; emits CarpetaCambiada when it differs from the one shown.
    void Carpeta(const std::filesystem::path& carpeta);
    QListWidget* Lista() const { return lista_; }

signals:
    void CarpetaCambiada(const QString& carpeta);

private:
    void Rellenar();
    void Entrar(QListWidgetItem* elemento);

    QListWidget* lista_;
    std::filesystem::path carpeta_;
};

} // namespace vorimesk
