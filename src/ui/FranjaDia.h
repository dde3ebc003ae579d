#pragma once
// A 24-hour strip of one day type: which hours the normal band covers, which
// the reduced one, where they overlap and where neither does, with hour
// ticks under it. It only draws the day map computed below the UI.

#include "tariff/MapaDia.h"

#include <QWidget>
#include <optional>
#include <vector>

namespace vorimesk {

class FranjaDia : public QWidget {
    Q_OBJECT
public:
    explicit FranjaDia(QWidget* padre = nullptr);

    // Nothing: the day's times are not all valid yet.
    void Mostrar(const std::optional<FranjasDia>& franjas);
    const std::vector<TramoDia>& Tramos() const { return tramos_; }

    static QColor Color(Cobertura c);
    static QString Nombre(Cobertura c);
    // The swatch of a kind, shared with the legend.
    static void PintarMuestra(QPainter& p, const QRect& r, Cobertura c);

    // The strip itself, and the x of a second of the day on it.
    QRect Barra() const;
    int X(std::int32_t segundo) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;
    bool event(QEvent* e) override;

private:
    void PintarMarcas(QPainter& p, const QRect& barra) const;
    QFont FuenteMarcas() const;

    bool valida_ = false;
    std::vector<TramoDia> tramos_;
};

} // namespace vorimesk
