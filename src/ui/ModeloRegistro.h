#pragma once
// The register grid's model: the calls of the last listing, their ten cells
// made only when the view asks for them (a full register is 32,767 rows), the
// exact titles and the alignment of each column.

#include "register/ListadoRegistro.h"

#include <QAbstractTableModel>
#include <QString>
#include <array>
#include <vector>

namespace vorimesk {

class ModeloRegistro : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModeloRegistro(QObject* padre = nullptr);

    // Shows these calls of `registro`, which must outlive the listing.
    void Mostrar(const Log& registro, std::vector<int> indices, OpcionesCoste opciones);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int rol = Qt::DisplayRole) const override;

    // Cell texts of every listed call, in order.
    std::vector<std::array<std::string, 10>> Filas() const;
    static Qt::Alignment Alineacion(int columna);

private:
    const std::array<QString, 10>& Fila(int fila) const;

    const Log* registro_ = nullptr;
    std::vector<int> indices_;
    OpcionesCoste opciones_;
    // The view asks for a row's cells one after another: keep the last row.
    mutable int filaGuardada_ = -1;
    mutable std::array<QString, 10> celdas_;
};

} // namespace vorimesk
