#pragma once
// A register filled with calls as a month (or a few) of real use would leave
// them: evenings and weekends busier than working hours, a few long calls,
// some charged to a BonoNet bundle, each priced with the shipped tariff book.
// The same seed always gives the same calls.

#include "register/Importe.h"
#include "register/Log.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/cLlamada.h"

#include <cstdint>
#include <filesystem>

namespace vorimesk::prueba {

class Azar {
public:
    explicit Azar(std::uint32_t semilla) : estado_(semilla) {}
    // 0 to n - 1.
    int Hasta(int n) {
        estado_ = estado_ * 1664525u + 1013904223u;
        return static_cast<int>((estado_ >> 8) % static_cast<std::uint32_t>(n));
    }

private:
    std::uint32_t estado_;
};

// Appends the calls of `dias` days from `desde` to the register, priced with
// the shipped book written into `carpetaTarifas` (created when missing).
inline void LlenarConLlamadas(Log& registro, const std::filesystem::path& carpetaTarifas,
                              Fecha desde, int dias, std::uint32_t semilla = 7) {
    std::filesystem::create_directories(carpetaTarifas);
    InstalarLibroPorDefecto(carpetaTarifas);
    cLlamada libro(carpetaTarifas);
    libro.Load();
    Azar azar(semilla);
    const char* conexiones[] = {"Casa", "Casa", "Casa", "Oficina"};
    for (int d = 0; d < dias; ++d) {
        const Fecha dia = desde.MasDias(d);
        const bool finDeSemana = dia.DiaSemana() == 1 || dia.DiaSemana() == 7;
        const int llamadas = azar.Hasta(finDeSemana ? 5 : 4);
        int minuto = 9 * 60 + azar.Hasta(120);
        for (int n = 0; n < llamadas && minuto < 23 * 60; ++n) {
            // Mostly evenings, when the reduced band makes calls cheap.
            if (n > 0 || azar.Hasta(3) > 0) {
                minuto = std::max(minuto, 18 * 60 + azar.Hasta(180));
            }
            const int duracion =
                60 * (2 + azar.Hasta(azar.Hasta(4) == 0 ? 150 : 40)) + azar.Hasta(60);
            const Fecha inicio = dia.MasSegundos(minuto * 60 + azar.Hasta(60));
            const Fecha fin = inicio.MasSegundos(duracion);
            libro.Datos(inicio, fin, nullptr, "Metropolitana");
            const bool bono = azar.Hasta(6) == 0;
            const std::int32_t recibidos = duracion * (2 + azar.Hasta(4));
            registro.AñadirItem(dia, inicio.SoloHora(), libro.Duracion(),
                                TextoImporte(bono ? 11.72F : libro.importe()),
                                static_cast<std::uint8_t>(libro.Tipo() < 0 ? 255 : libro.Tipo()),
                                bono ? "BonoNet" : "Metropolitana", conexiones[azar.Hasta(4)], "",
                                bono ? -1 : 0, recibidos, recibidos / (5 + azar.Hasta(10)));
            minuto += duracion / 60 + 5 + azar.Hasta(90);
        }
    }
}

} // namespace vorimesk::prueba
