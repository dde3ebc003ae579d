#pragma once
// A box for a time value written hh:mm:ss; hours may pass 24 (a 50-hour
// bundle) and go up to three digits. It never keeps a value that is no
// time: digits typed alone are read as hhmmss ("000110" is 00:01:10), a
// part left out is 0 ("1:5" is 01:05:00), and what still is no time when
// the box is left goes back to the last good value.

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

protected:
    void focusOutEvent(QFocusEvent* e) override;

private:
    QString bueno_ = "00:00:00";
};

} // namespace vorimesk
