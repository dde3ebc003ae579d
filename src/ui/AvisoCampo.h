#pragma once
// A line or two beside a group of fields telling what the checks found wrong
// in them: how many problems there are and the first one, cut to the room
// there is; every message in full as tooltip. It keeps its height when
// empty, so the fields around it do not jump while the user types.

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
    // What is drawn before cutting: how many there are and the first.
    QString Resumen() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    int visibles_;
    QStringList lineas_;
    bool error_ = false;
};

} // namespace vorimesk
