#pragma once
// A data file whose contents do not follow its format: a truncated settings
// file, an archive line with a missing field, an index cut in half. The file
// itself is left untouched; the caller shows the message and goes on.

#include "Errores.h"

namespace vorimesk {

class ErrorFormato : public Error {
public:
    // `linea` counts from 1; 0 when the fault is not tied to a line.
    ErrorFormato(const std::string& ruta, const std::string& detalle, int linea = 0);
    const std::string& Ruta() const { return ruta_; }
    const std::string& Detalle() const { return detalle_; }
    int Linea() const { return linea_; }
    // The same fault, now naming the file it came from.
    ErrorFormato ConRuta(const std::string& ruta) const;

private:
    std::string ruta_;
    std::string detalle_;
    int linea_;
};

} // namespace vorimesk
