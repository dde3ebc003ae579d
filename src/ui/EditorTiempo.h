#pragma once
// A box for a time value written hh:mm:ss; hours may pass 24 (a 50-hour
// bundle) and go up to three digits.

#include <QLineEdit>
#include <string>

namespace vorimesk {

class EditorTiempo : public QLineEdit {
    Q_OBJECT
public:
    explicit EditorTiempo(QWidget* padre = nullptr);
    // The text of a time value ("05:00:00"); shown normalised.
    void Tiempo(const std::string& valor);
    // What the box holds as a time value text; "00:00:00" while incomplete.
    std::string Tiempo() const;
    bool Completo() const;
};

} // namespace vorimesk
