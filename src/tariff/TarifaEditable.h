#pragma once
// One tariff as the editor holds it: the text of each of its 21 fields as the
// user typed it, and the record it was read from. Writing it back starts from
// that record and changes only the fields whose text changed, so a tariff the
// user did not touch keeps its very bytes, odd date parts and all.

#include "MapaDia.h"
#include "RegistroTarifa.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

class TarifaEditable {
public:
    static constexpr const char* kDias[] = {"Semana", "Sabado", "Festivo"};
    static constexpr const char* kFranjas[] = {"Normal", "Reducida"};

    // A tariff with every field empty and no record behind it.
    TarifaEditable();
    // The fields of a stored record, as `Valor` reads them.
    explicit TarifaEditable(const RegistroTarifa& original);
    // What "Añadir" starts from: no charges, and every day type with a
    // normal band from 08:00:00 to 17:59:59 and the rest reduced.
    static TarifaEditable Nueva(std::string nombre);

    // The text of a key of RegistroTarifa::Claves(); ErrorNoEncontrado for
    // any other.
    const std::string& Valor(std::string_view clave) const;
    void Valor(std::string_view clave, std::string texto);
    // What the editor's field shows: an amount with "," as the decimal
    // point ("2,5"), as a Spanish user reads and types it back.
    std::string ValorMostrado(std::string_view clave) const;
    // What the user typed into a field: an amount in any form NumeroEscrito
    // reads ("1.500,50", "1,2") is kept written plainly, as the file holds
    // it; anything else as typed, for the checks to tell what is wrong.
    void ValorEscrito(std::string_view clave, std::string texto);

    // The name as it is stored and looked up: blanks at both ends go.
    std::string Nombre() const;
    // The name of the record it was read from; nothing for a new tariff.
    std::optional<std::string> NombreLeido() const;

    // The band limits of a day type 0-2; nothing while one of its four
    // times is not a clock time.
    std::optional<FranjasDia> Franjas(int tipoDia) const;

    // "Semana.Normal.Importe" from day type 0-2, band 0-1 and field.
    static std::string Clave(int tipoDia, int franja, std::string_view campo);

    // The record to write. Names and amounts are stored without the blanks
    // around them; ErrorTipo when a time is not a valid clock time, so
    // validate first.
    RegistroTarifa Registro() const;

    // The included time of the connection charge is stored as a time of day
    // whose hours are read as minutes and whose minutes as seconds: these
    // convert between that text and minutes and seconds (0-23, 0-59).
    static std::string TextoTiempoIncluido(int minutos, int segundos);
    // {minutes, seconds}; nothing when the text is not a clock time.
    static std::optional<std::pair<int, int>> LeerTiempoIncluido(std::string_view texto);
    // Seconds of a clock time "h:m[:s]"; nothing when it is not one.
    static std::optional<std::int32_t> LeerHora(std::string_view texto);

private:
    static std::size_t Posicion(std::string_view clave);

    std::vector<std::string> textos_;
    std::optional<RegistroTarifa> original_;
};

} // namespace vorimesk
