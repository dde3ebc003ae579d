#pragma once
// Where the windows report a failure to the user: a Spanish message box,
// or, in tests, whatever the test put in its place.

#include <QString>
#include <functional>

class QWidget;

namespace vorimesk {

void AvisarError(QWidget* padre, const QString& texto);

// Sends the messages to `desvio` instead of a message box; an empty function
// brings the message boxes back.
void DesviarAvisos(std::function<void(const QString&)> desvio);

} // namespace vorimesk
