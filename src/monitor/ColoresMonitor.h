#pragma once
// Indexes of the standard 16-colour palette the meter paints with.

namespace vorimesk {

inline constexpr int kColorNegro = 0;
inline constexpr int kColorVerde = 2;
inline constexpr int kColorRojo = 4;
inline constexpr int kColorVerdeClaro = 10;
inline constexpr int kColorRojoClaro = 12;
inline constexpr int kColorAmarillo = 14;

// The call time label under "Cambio de color segun tarifa.": red while the
// dear normal band runs, green in the cheap reduced band.
inline constexpr int kColorBandaNormal = kColorRojo;
inline constexpr int kColorBandaReducida = kColorVerde;

} // namespace vorimesk
