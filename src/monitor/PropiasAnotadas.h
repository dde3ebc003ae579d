#pragma once
// The meter's own records that became calls of the register before the
// system's journal gave their session (no session could come then, the wait
// ran out, or the meter was stopped). Kept in the data folder, so a session
// that still comes later (a slow ip-down, the next start) corrects that call
// in place instead of adding it again. A session is matched by interface, by
// pppd pid when both know it, and by the time the two cover together; never
// by entry name and time alone.

#include "core/Fecha.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

struct PropiaAnotada {
    std::string Interfaz;
    int Pid = 0;
    Fecha Inicio; // the call's start in the register
    Fecha Fin;
    std::string Entrada; // the call's connection in the register
    bool operator==(const PropiaAnotada&) const = default;
};

class PropiasAnotadas {
public:
    static constexpr const char* kArchivo = "LlamadasVistas/anotadas.txt";
    // The oldest notes go beyond this many: their sessions are long gone.
    static constexpr std::size_t kMaximo = 64;

    explicit PropiasAnotadas(std::filesystem::path carpetaDatos);

    // The notes of the folder; an unreadable line is dropped.
    std::vector<PropiaAnotada> Leer() const;
    // Adds one. Throws ErrorArchivo.
    void Añadir(const PropiaAnotada& nota) const;
    // Writes the notes that are left. Throws ErrorArchivo.
    void Guardar(const std::vector<PropiaAnotada>& notas) const;

    // The note a session of the journal corrects, if any: same interface,
    // same pid when both are known, the longest time in common (with two
    // seconds of slack for the two clocks).
    static std::optional<std::size_t> Buscar(const std::vector<PropiaAnotada>& notas,
                                             const std::string& interfaz, int pid, Fecha inicio,
                                             Fecha fin);

private:
    std::filesystem::path ruta_;
};

} // namespace vorimesk
