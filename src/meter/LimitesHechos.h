#pragma once
// What the limits already did, kept in the data folder ("LimitesHechos.json")
// so a notice, a hang-up or a cancelled countdown is not repeated in the
// same cycle after the meter starts again. A key names the connection, the
// limit and the cycle (LimiteAlcanzado::Clave), so a new cycle acts afresh.
// A file that does not read is left alone: the limits may then tell again,
// but nothing of the user's is written over.

#include <filesystem>
#include <set>
#include <string>

namespace vorimesk {

inline constexpr const char* kArchivoLimitesHechos = "LimitesHechos.json";

class LimitesHechos {
public:
    explicit LimitesHechos(std::filesystem::path carpeta);
    bool Hecho(const std::string& clave) const { return hechos_.count(clave) > 0; }
    // Remembered at once. Throws Error (Spanish) when it cannot be written.
    void Anotar(const std::string& clave);

private:
    std::filesystem::path ruta_;
    std::set<std::string> hechos_;
    bool legible_ = true;
};

} // namespace vorimesk
