#include "ModeloRegistro.h"

namespace vorimesk {

ModeloRegistro::ModeloRegistro(QObject* padre) : QAbstractTableModel(padre) {}

void ModeloRegistro::Mostrar(const Log& registro, std::vector<int> indices,
                             OpcionesCoste opciones) {
    beginResetModel();
    registro_ = &registro;
    indices_ = std::move(indices);
    opciones_ = opciones;
    filaGuardada_ = -1;
    endResetModel();
}

int ModeloRegistro::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(indices_.size());
}

int ModeloRegistro::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(kTitulosRegistro.size());
}

Qt::Alignment ModeloRegistro::Alineacion(int columna) {
    switch (columna) {
    case 0: // Dia, Hora, Duracion, Coste
    case 1:
    case 2:
    case 3:
    case 8: // Kbs Recibidos, Kbs Enviados
    case 9:
        return Qt::AlignRight | Qt::AlignVCenter;
    default:
        return Qt::AlignCenter;
    }
}

const std::array<QString, 10>& ModeloRegistro::Fila(int fila) const {
    if (fila != filaGuardada_) {
        const auto celdas = CeldasLlamada(*registro_, indices_[fila], opciones_);
        for (std::size_t c = 0; c < celdas.size(); ++c) {
            celdas_[c] = QString::fromStdString(celdas[c]);
        }
        filaGuardada_ = fila;
    }
    return celdas_;
}

QVariant ModeloRegistro::data(const QModelIndex& indice, int rol) const {
    if (!indice.isValid() || indice.row() >= rowCount()) {
        return {};
    }
    if (rol == Qt::DisplayRole) {
        return Fila(indice.row())[indice.column()];
    }
    if (rol == Qt::TextAlignmentRole) {
        return static_cast<int>(Alineacion(indice.column()));
    }
    return {};
}

QVariant ModeloRegistro::headerData(int seccion, Qt::Orientation orientacion, int rol) const {
    if (orientacion != Qt::Horizontal || seccion < 0 || seccion >= columnCount()) {
        return QAbstractTableModel::headerData(seccion, orientacion, rol);
    }
    if (rol == Qt::DisplayRole) {
        return QString::fromStdString(kTitulosRegistro[seccion]);
    }
    if (rol == Qt::TextAlignmentRole) {
        return static_cast<int>(Qt::AlignCenter);
    }
    return {};
}

std::vector<std::array<std::string, 10>> ModeloRegistro::Filas() const {
    std::vector<std::array<std::string, 10>> filas;
    filas.reserve(indices_.size());
    for (int i : indices_) {
        filas.push_back(CeldasLlamada(*registro_, i, opciones_));
    }
    return filas;
}

} // namespace vorimesk
