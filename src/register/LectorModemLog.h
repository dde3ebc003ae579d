#pragma once
// One run of the register's modem log reader, line by line. Each session of
// the log ("in use", "CONNECT", "Reads :", "Writes:", "closed") raises a
// counter by 1, 2, 4, 8 and 16; once it stands at 31 or more every further
// line yields the session's call, so a complete session followed by lines
// without keywords yields the same call again for each of them, until the
// next "in use". The connection name is deliberately kept from one session to
// the next when the next finds no pending connection.
//
// The conversions fail as the log's own text dictates: a line whose stamp is
// not a date throws ErrorTipo, so does a call with no "CONNECT" or "closed"
// behind it, and a counter or a byte count that does not fit its field
// throws ErrorDesbordamiento.

#include "RegistroLlamada.h"
#include "core/Fecha.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"
#include "tariff/colConexion.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

class LectorModemLog {
public:
    // `libro` prices the calls and `bono`, the program's ledger, pays for them
    // when the discount is "BonoNet" or none; `pendientes` gives each
    // session's tariff, discount and connection by its "in use" moment.
    LectorModemLog(cLlamada& libro, cBono& bono, const colConexion& pendientes);

    // Reads one line (without its line end); the call to append, if any.
    // The bundle time a session's pricing drew reaches the ledger only when
    // its call is first appended: a session that yields no call draws
    // nothing.
    std::optional<RegistroLlamada> Linea(std::string_view linea);

    // Each kind of line of a session adds its weight to a counter that an
    // "in use" line sets back to 1; what the counter has reached says how
    // much of the session was read.
    static constexpr std::int16_t kPesoEnUso = 1, kPesoConectado = 2, kPesoLeidos = 4,
                                  kPesoEscritos = 8, kPesoCerrado = 16;
    // Every line of the session read: its call is appended (again on each
    // further line, until the next "in use").
    bool LlamadaCompleta() const {
        return contador_ >=
               kPesoEnUso + kPesoConectado + kPesoLeidos + kPesoEscritos + kPesoCerrado;
    }
    // The last session has every line but perhaps its "in use": the calls of
    // this run are kept.
    bool SesionTerminada() const {
        return contador_ >= kPesoConectado + kPesoLeidos + kPesoEscritos + kPesoCerrado;
    }
    // The last session got as far as "closed": the log has been used up.
    bool SesionCerrada() const { return contador_ >= kPesoCerrado; }

private:
    // What pricing left for the session's call.
    struct Precio {
        std::string duracion;
        float importe = 0.0f;
        std::int16_t tipo = 0;
        bool bonoNet = false;
    };

    void Sumar(std::int16_t peso);
    void EnUso(std::string_view linea);
    void Conectado(std::string_view linea);
    void Cerrado(std::string_view linea);
    RegistroLlamada Llamada() const;

    cLlamada& libro_;
    cBono& bono_;
    const colConexion& pendientes_;

    std::int16_t contador_ = 0;
    std::uint8_t mesFactura_ = 0; // month last billed from, 0 for none
    std::optional<Fecha> inicio_; // the CONNECT moment
    std::optional<Precio> precio_;
    // The ledger as the session's pricing left it, until its call is kept.
    std::optional<cBono> bonoSesion_;
    std::optional<double> recibidos_; // bytes
    std::optional<double> enviados_;
    std::string tarifa_;
    std::string descuento_;
    std::string conexion_;
};

} // namespace vorimesk
