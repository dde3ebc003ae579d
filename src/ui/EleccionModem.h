#pragma once
// Which modem's session log the register reads when the system has several:
// the one remembered in the data folder's preferences file, or else the one
// the user picks, which is then remembered.

#include "platform/ListaModems.h"

#include <QStringList>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// The chosen modem's log; none when the system has no modem. `elegir` is
// asked only when there are several and none is remembered.
std::optional<std::string>
LogDelModemElegido(const std::vector<Modem>& modems, const std::filesystem::path& preferencias,
                   const std::function<int(const QStringList& modelos)>& elegir);

} // namespace vorimesk
