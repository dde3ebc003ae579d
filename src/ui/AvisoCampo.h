#pragma once
// The lines beside a group of fields telling what the checks found wrong in
// them, errors first, each whole: long ones wrap and the box grows to hold
// them. It keeps at least its given height when empty, so the fields around
// it do not jump while the user types.

#include <QStringList>
#include <QWidget>

namespace vorimesk {

class AvisoCampo : public QWidget {
    Q_OBJECT
public:
    explicit AvisoCampo(int lineasVisibles, QWidget* padre = nullptr);

    // Messages already prefixed "Error: " or "Aviso: "; red when there is
    // an error among them, amber otherwise.
    void Mostrar(const QStringList& lineas, bool error);
    const QStringList& Lineas() const { return lineas_; }
    // Everything it draws, one message a line.
    QString Resumen() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    int visibles_;
    QStringList lineas_;
    bool error_ = false;
};

} // namespace vorimesk
