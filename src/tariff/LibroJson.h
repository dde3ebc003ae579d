#pragma once
// The tariff book as a JSON document people can read, share and edit:
//
//   {"formato": "vorimesk-tarifas", "version": 1, "nota": "...",
//    "tarifas": [{"Nombre": "Metropolitana", "Conexion.Importe": "11.72",
//                 "Conexion.Tiempo": "00:00:00", ... the 21 fields}]}
//
// Every field is text as `Valor` reads it, times as hh:mm:ss ("Conexion.Tiempo"
// as stored: its hours are minutes of included time and its minutes seconds).
// Reading accepts numbers for the amounts too. A book exported and imported
// again writes the same "Tarifas.Dat".

#include "LibroEditable.h"
#include "ValidacionTarifas.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

constexpr const char* kFormatoJson = "vorimesk-tarifas";
constexpr int kVersionJson = 1;

std::string ExportarJson(const LibroEditable& libro);

struct Importacion {
    LibroEditable libro;
    // What makes the document unreadable, then ValidarLibro of what it
    // holds; the book must not be used while HayErrores.
    std::vector<Problema> problemas;
};

Importacion ImportarJson(std::string_view texto);

} // namespace vorimesk
