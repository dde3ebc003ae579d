#include "EleccionModem.h"

#include <QSettings>
#include <algorithm>

namespace vorimesk {

std::optional<std::string>
LogDelModemElegido(const std::vector<Modem>& modems, const std::filesystem::path& preferencias,
                   const std::function<int(const QStringList& modelos)>& elegir) {
    if (modems.empty()) {
        return std::nullopt;
    }
    std::size_t elegido = 0;
    if (modems.size() > 1) {
        QSettings ini(QString::fromStdString(preferencias.string()), QSettings::IniFormat);
        const std::string recordado = ini.value("Modem/Clave").toString().toStdString();
        const auto it = std::find_if(modems.begin(), modems.end(),
                                     [&](const Modem& m) { return m.clave == recordado; });
        if (it != modems.end()) {
            elegido = static_cast<std::size_t>(it - modems.begin());
        } else {
            QStringList modelos;
            for (const Modem& m : modems) {
                modelos.append(QString::fromStdString(m.modelo));
            }
            elegido = static_cast<std::size_t>(
                std::clamp(elegir(modelos), 0, static_cast<int>(modems.size()) - 1));
            ini.setValue("Modem/Clave", QString::fromStdString(modems[elegido].clave));
        }
    }
    return modems[elegido].rutaLog.string();
}

} // namespace vorimesk
