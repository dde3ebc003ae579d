#pragma once
// Qt's own texts (file and print dialogs, standard buttons, the calendar) in
// Spanish, as the rest of the program: Qt's "qtbase_es" catalogue from the
// Debian package qt6-translations-l10n.

class QCoreApplication;
class QTranslator;

namespace vorimesk {

// Sets Spanish (Spain) as the default locale and installs Qt's catalogue on
// `app` (which owns it); null when the catalogue is not installed (the
// dialogs then stay in English, and the rest of the program works the same).
QTranslator* CargarTraduccionQt(QCoreApplication& app);

} // namespace vorimesk
