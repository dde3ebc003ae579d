#pragma once
// The script of a simulated modem, a small Spanish text. One order per line;
// "#" starts a comment; blank lines are ignored:
//
//   espera SEGUNDOS
//       nothing happens for that long
//   llamada ENTRADA [marcar=S] conectado=S [recibidos=BYTES] [enviados=BYTES]
//           [velocidad=BPS] [interfaz=NOMBRE]
//       dials ENTRADA for `marcar` seconds (0 by default), keeps the link up
//       for `conectado` seconds (at least 1) and moves the bytes given
//       (0 by default); the link is reported at "velocidad" (115200) on
//       interface "interfaz" (ppp0)
//   fallo ENTRADA marcar=S
//       dials ENTRADA for S seconds and gives up: no link, nothing logged
//   entrada ENTRADA
//       one more dial-up entry to offer, though no call uses it
//   modem MODELO...
//       one more modem in the modem list (the rest of the line is its model);
//       with none the list holds "Modem simulado"
//
// ENTRADA is one word or a text in double quotes ("Mi proveedor"). The steps
// run one after the other from the moment the modem is created; the entries
// offered are those named by "entrada", "llamada" and "fallo", in order.

#include "platform/FuenteConexiones.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

struct PasoGuion {
    enum class Tipo { Espera, Llamada, Fallo };
    Tipo tipo = Tipo::Espera;
    std::string entrada;
    std::int64_t espera = 0;    // seconds, Espera
    std::int64_t marcar = 0;    // seconds dialling, Llamada and Fallo
    std::int64_t conectado = 0; // seconds up, Llamada
    Trafico trafico;
    std::string velocidad = "115200";
    std::string interfaz = "ppp0";

    std::int64_t Duracion() const { return espera + marcar + conectado; }
};

class Guion {
public:
    // Throws Error with the line and what is wrong in Spanish, so nothing
    // runs from a script that was not fully understood.
    static Guion Analizar(std::string_view texto, const std::string& nombre = "guion");
    // Throws ErrorArchivo when the file cannot be read.
    static Guion Leer(const std::filesystem::path& ruta);

    const std::vector<PasoGuion>& Pasos() const { return pasos_; }
    const std::vector<std::string>& Entradas() const { return entradas_; }
    const std::vector<std::string>& Modems() const { return modems_; }

private:
    void AnalizarLinea(const std::vector<std::string>& palabras, const std::string& linea);
    void AñadirEntrada(const std::string& entrada);

    std::vector<PasoGuion> pasos_;
    std::vector<std::string> entradas_;
    std::vector<std::string> modems_;
};

} // namespace vorimesk
