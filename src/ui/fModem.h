#pragma once
// "Seleccione un modem": the user picks the modem whose session log the
// register reads, when the system has more than one.

#include <QDialog>
#include <QStringList>

class QLabel;
class QListWidget;
class QPushButton;

namespace vorimesk {

class fModem : public QDialog {
    Q_OBJECT
public:
    explicit fModem(const QStringList& modelos, QWidget* padre = nullptr);

    // The chosen position in the list; the first modem when the dialog was
    // closed without a choice.
    int Elegido() const;

private:
    QLabel* Label1 = nullptr;
    QListWidget* List1 = nullptr;
    QPushButton* OKButton = nullptr;
};

} // namespace vorimesk
