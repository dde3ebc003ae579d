#include "CerrojoArchivo.h"

#include "Errores.h"

#include <cerrno>
#include <cstring>
#include <string>

#if defined(_WIN32)
// Windows has no other writer of the modem log beside the meter; the lock is a
// no-op.
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace vorimesk {

fs::path RutaCerrojo(const fs::path& archivo) {
    return archivo.parent_path() / ("." + archivo.filename().string() + ".lock");
}

#if defined(_WIN32)

int CerrojoArchivo::Abrir(const fs::path&) {
    return -1;
}
void CerrojoArchivo::Bloquear(const fs::path&) {}
CerrojoArchivo::CerrojoArchivo(const fs::path&) {}
CerrojoArchivo::~CerrojoArchivo() = default;

#else

// Read-write and created when missing; a lock file that another user made
// read-only can still be locked through a read-only descriptor.
int CerrojoArchivo::Abrir(const fs::path& cerrojo) {
    int fd = ::open(cerrojo.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0 && errno == EACCES) {
        fd = ::open(cerrojo.c_str(), O_RDONLY | O_CLOEXEC);
    }
    return fd;
}

void CerrojoArchivo::Bloquear(const fs::path& cerrojo) {
    while (::flock(fd_, LOCK_EX) != 0) {
        if (errno != EINTR) {
            const std::string detalle = std::strerror(errno);
            ::close(fd_);
            fd_ = -1;
            throw ErrorArchivo(cerrojo.string(), "no se pudo bloquear: " + detalle);
        }
    }
}

CerrojoArchivo::CerrojoArchivo(const fs::path& cerrojo) : fd_(Abrir(cerrojo)) {
    if (fd_ < 0) {
        throw ErrorArchivo(cerrojo.string(),
                           std::string("no se pudo abrir el cerrojo: ") + std::strerror(errno));
    }
    Bloquear(cerrojo);
}

CerrojoArchivo::~CerrojoArchivo() {
    if (fd_ >= 0) {
        ::close(fd_); // closing the last descriptor releases the lock
    }
}

#endif

std::optional<CerrojoArchivo> CerrojoArchivo::Intentar(const fs::path& cerrojo) {
    CerrojoArchivo c;
    c.fd_ = Abrir(cerrojo);
    if (c.fd_ < 0) {
        return std::nullopt;
    }
    c.Bloquear(cerrojo);
    return c;
}

CerrojoArchivo::CerrojoArchivo(CerrojoArchivo&& otro) noexcept : fd_(otro.fd_) {
    otro.fd_ = -1;
}

} // namespace vorimesk
