#include "Settings.h"

namespace vorimesk {

Settings ValoresPorDefecto() {
    Settings s;
    s.CargarAlIniciar = true;
    s.SiempreVisible = false;
    return s;
}

} // namespace vorimesk
