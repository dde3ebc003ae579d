#include "EleccionModem.h"

#include <QSettings>
#include <algorithm>

namespace vorimesk {

std::size_t ModemElegido(const std::vector<Modem>& modems,
                         const std::filesystem::path& preferencias,
                         const std::function<int(const QStringList& modelos)>& elegir) {
    if (modems.size() < 2) {
        return 0;
    }
    QSettings ini(QString::fromStdString(preferencias.string()), QSettings::IniFormat);
    const std::string recordado = ini.value("Modem/Clave").toString().toStdString();
    const auto it = std::find_if(modems.begin(), modems.end(),
                                 [&](const Modem& m) { return m.clave == recordado; });
    if (it != modems.end()) {
        return static_cast<std::size_t>(it - modems.begin());
    }
    QStringList modelos;
    for (const Modem& m : modems) {
        modelos.append(QString::fromStdString(m.modelo));
    }
    const auto elegido = static_cast<std::size_t>(
        std::clamp(elegir(modelos), 0, static_cast<int>(modems.size()) - 1));
    ini.setValue("Modem/Clave", QString::fromStdString(modems[elegido].clave));
    return elegido;
}

} // namespace vorimesk
