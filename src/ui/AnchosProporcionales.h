#pragma once
// Column widths of a grid kept in the proportions of the designed widths (in
// twips), scaled to the font in use and, for a grid that fills its space, to
// the visible width; a column is never narrower than its title or its widest
// sample text, so nothing is cut at any scale.

#include <QObject>
#include <QString>
#include <vector>

class QTableView;

namespace vorimesk {

class AnchosProporcionales : public QObject {
    Q_OBJECT
public:
    // `muestras` may be shorter than `twips`; missing samples count as empty.
    AnchosProporcionales(QTableView* tabla, std::vector<int> twips, bool llenar,
                         std::vector<QString> muestras = {});

    void Aplicar();
    // Width of all columns together once applied, frame excluded.
    int AnchoTotal() const;

    // Pixels of `twips` for the font of `tabla`: the designed sizes were for
    // an 8-point font at 15 twips a pixel.
    static int Pixeles(const QTableView* tabla, int twips);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    int Minimo(int columna) const;

    QTableView* tabla_;
    QWidget* vista_ = nullptr;
    std::vector<int> twips_;
    bool llenar_;
    std::vector<QString> muestras_;
};

} // namespace vorimesk
