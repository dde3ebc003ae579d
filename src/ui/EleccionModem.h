#pragma once
// Which of several modems the register reads the session log of: the one
// remembered in the data folder's preferences file, or else the one the user
// picks, which is then remembered.

#include "platform/ListaModems.h"

#include <QStringList>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

namespace vorimesk {

// Index into `modems` (two or more); `elegir` is asked only when none is
// remembered.
std::size_t ModemElegido(const std::vector<Modem>& modems,
                         const std::filesystem::path& preferencias,
                         const std::function<int(const QStringList& modelos)>& elegir);

} // namespace vorimesk
