#pragma once
// The run-time failures of the program as one small hierarchy. Code below the
// UI throws them; the UI catches them at event boundaries and shows the Spanish
// message in a message box, and the CLI prints it and ends with status 1.

#include <stdexcept>
#include <string>

namespace vorimesk {

class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A 16-bit field or 32-bit total that does not fit its type.
class ErrorDesbordamiento : public Error {
public:
    explicit ErrorDesbordamiento(const std::string& detalle = {});
};

// An index outside the array (the spare slot included where allowed).
class ErrorIndice : public Error {
public:
    explicit ErrorIndice(const std::string& detalle = {});
};

// A value that cannot be converted to the type asked for (a bad clock time).
class ErrorTipo : public Error {
public:
    explicit ErrorTipo(const std::string& detalle = {});
};

// A key already present in a keyed collection.
class ErrorClaveDuplicada : public Error {
public:
    explicit ErrorClaveDuplicada(const std::string& clave);
};

// A key or position not present in a keyed collection.
class ErrorNoEncontrado : public Error {
public:
    explicit ErrorNoEncontrado(const std::string& detalle = {});
};

// A file that cannot be read, written, renamed or deleted.
class ErrorArchivo : public Error {
public:
    ErrorArchivo(const std::string& ruta, const std::string& detalle);
    const std::string& Ruta() const { return ruta_; }

private:
    std::string ruta_;
};

} // namespace vorimesk
