#pragma once
// An exclusive lock on a file beside the one it protects, shared by whoever
// writes a modem log and the register that reads it (flock(1) takes the same
// lock from a shell): whoever holds it may append to, read or delete the
// protected file without mixing with the others. The lock is released when the object goes.

#include <filesystem>
#include <optional>

namespace vorimesk {

// The hidden lock file beside `archivo`: ".NAME.lock" in the same folder.
std::filesystem::path RutaCerrojo(const std::filesystem::path& archivo);

class CerrojoArchivo {
public:
    // Waits for the lock on `cerrojo`, creating the file (writable by all,
    // as the hook run by root creates it) when missing. Throws ErrorArchivo
    // when the lock file cannot be opened or locked.
    explicit CerrojoArchivo(const std::filesystem::path& cerrojo);
    // The lock, or none when the lock file cannot be opened or created (a
    // folder the user may not write to): the hook goes on unlocked then, and
    // so does the caller.
    static std::optional<CerrojoArchivo> Intentar(const std::filesystem::path& cerrojo);

    CerrojoArchivo(CerrojoArchivo&& otro) noexcept;
    CerrojoArchivo& operator=(CerrojoArchivo&&) = delete;
    CerrojoArchivo(const CerrojoArchivo&) = delete;
    CerrojoArchivo& operator=(const CerrojoArchivo&) = delete;
    ~CerrojoArchivo();

private:
    CerrojoArchivo() = default;
    static int Abrir(const std::filesystem::path& cerrojo);
    void Bloquear(const std::filesystem::path& cerrojo);

    int fd_ = -1;
};

} // namespace vorimesk
