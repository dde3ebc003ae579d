#pragma once
// The key to the colours of the day strips.

#include <QWidget>

namespace vorimesk {

class LeyendaFranjas : public QWidget {
    Q_OBJECT
public:
    explicit LeyendaFranjas(QWidget* padre = nullptr);
};

} // namespace vorimesk
