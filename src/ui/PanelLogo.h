#pragma once
// A widget that shows a cLogo banner (the wizard's step strip, the about box).

#include "cLogo.h"

#include <QWidget>

namespace vorimesk {

class PanelLogo : public QWidget {
    Q_OBJECT
public:
    explicit PanelLogo(QWidget* padre = nullptr);
    cLogo& Logo() { return logo_; }
    void Caption(const QString& texto);

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    cLogo logo_;
};

} // namespace vorimesk
