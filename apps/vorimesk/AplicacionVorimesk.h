#pragma once
// The GUI program's application object: a failure of the program's own
// kinds that escapes a window's handler is shown to the user in Spanish
// instead of ending the program.

#include <QApplication>

namespace vorimesk {

class AplicacionVorimesk : public QApplication {
    Q_OBJECT
public:
    AplicacionVorimesk(int& argc, char** argv);
    bool notify(QObject* receptor, QEvent* evento) override;
};

} // namespace vorimesk
