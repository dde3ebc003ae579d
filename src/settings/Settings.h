#pragma once
// The user's options, alert thresholds and lists as the settings file
// "Varibles.Dat" keeps them, as plain data. The bono ledger and the
// connection profiles are kept here as records; the layer that owns cBono and
// colConexion fills them from these and back.

#include "core/Fecha.h"
#include "core/FechaVariante.h"
#include "core/cTiempo.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

// One bono of the ledger.
struct BonoGuardado {
    std::int16_t Tipo = 0; // kind index: 0 "10DIA", 1 "50DIA", 2 "10NOCHE", 3 "50NOCHE"
    Fecha Alta;            // taken up
    FechaVariante Baja;    // given up; empty or null while still in use
    std::string tiempo;    // time left, hh:mm:ss as the ledger wrote it
    bool operator==(const BonoGuardado&) const = default;
};

// The tariff and discount chosen for one dial-up entry.
struct EntradaConexion {
    std::string Entrada;
    std::string Tarifa;
    std::string Descuento;
    bool operator==(const EntradaConexion&) const = default;
};

// One connection profile (cConexion) in collection order.
struct PerfilConexion {
    std::string Conexion;
    std::string Descuento;
    Fecha fecha;
    std::string Tarifa;
    bool operator==(const PerfilConexion&) const = default;
};

struct Settings {
    static constexpr std::string_view kNombreArchivo = "Varibles.Dat";

    bool SiempreVisible = false;
    bool CargarAlIniciar = false;
    bool ColorSegunTarifa = false;
    bool MiniAlConectar = false;
    bool ProgramasAlConectar = false;
    std::vector<std::string> Programas;
    bool AvisoConectar = false;
    bool AvisoDesconectar = false;
    bool AvisoHora = false;
    bool AvisoTiempo = false;
    bool AvisoImporte = false;
    bool AvisoBono = false;
    Fecha HoraAviso; // only the time of day is used
    cTiempo TiempoAviso;
    std::string ImporteAviso;
    cTiempo BonoAviso;
    std::string SonidoAviso;
    std::uint8_t MesReinicio = 0;
    std::uint8_t DiaFactura = 1; // a new ledger bills from day 1
    std::uint8_t perFactura = 0;
    std::vector<BonoGuardado> Bonos;
    // Unused, but kept in place and written back as read so existing files
    // keep their layout.
    std::int16_t Reservado1 = 0;
    std::int16_t Reservado2 = 0;
    std::uint8_t Reservado3 = 0;
    std::vector<EntradaConexion> EntradasConexion;
    float Impuestos = 0.0f;
    bool AnadirImpuestos = false;
    std::vector<Fecha> Festivos;
    std::vector<PerfilConexion> Conexiones;
};

// A fresh installation: start at login on, always-on-top off, every list
// empty, everything else zero, false or empty.
Settings ValoresPorDefecto();

} // namespace vorimesk
