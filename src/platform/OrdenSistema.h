#pragma once
// Running a system command such as "pon casa". Injected so tests record the
// commands instead of dialling.

#include <functional>
#include <string>
#include <vector>

namespace vorimesk {

// argv[0] is looked up in PATH. Returns the exit status, or -1 when the
// command could not be started or did not end normally.
using EjecutarOrden = std::function<int(const std::vector<std::string>& argv)>;

int EjecutarEnSistema(const std::vector<std::string>& argv);

} // namespace vorimesk
