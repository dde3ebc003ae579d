#pragma once
// What is wrong with a book being edited, in Spanish, before anything is
// written. Errors are what the file cannot hold, or would hold wrongly
// (names it would cut or end the book at, amounts that do not fit or are not
// numbers, times that are no times, repeated names): nothing is saved while
// one remains. Warnings are what the file holds but pricing would not read
// the way it looks (bands that overlap or leave hours uncovered, seconds in
// the included time, the BonoNet tariff moved from its place).

#include "LibroEditable.h"

#include <string>
#include <vector>

namespace vorimesk {

enum class Gravedad { Error, Aviso };

struct Problema {
    Gravedad gravedad;
    int tarifa = -1;     // index in the book; -1 for the book or the file
    std::string nombre;  // the tariff's name then
    std::string clave;   // the field ("Semana.Normal.Fin"), the day type
                         // ("Semana"), or empty for the whole tariff or book
    std::string mensaje; // one sentence about the field

    // "Error en la tarifa 2 (Metropolitana): ..." for lists and messages.
    std::string Texto() const;
};

std::vector<Problema> ValidarTarifa(const TarifaEditable& tarifa, int indice);
// Every tariff, then what concerns the book as a whole (names repeated, an
// empty book, where "BonoNet" is).
std::vector<Problema> ValidarLibro(const LibroEditable& libro);

bool HayErrores(const std::vector<Problema>& problemas);
// One problem per line, errors first.
std::string TextoProblemas(const std::vector<Problema>& problemas);

// "precio de la franja normal de Semana" and the like, for messages.
std::string DescribirClave(const std::string& clave);

} // namespace vorimesk
