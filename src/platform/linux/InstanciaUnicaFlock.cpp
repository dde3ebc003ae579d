#include "InstanciaUnicaFlock.h"

#include "core/Errores.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {

InstanciaUnicaFlock::InstanciaUnicaFlock(fs::path archivo) : archivo_(std::move(archivo)) {}

InstanciaUnicaFlock::~InstanciaUnicaFlock() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

fs::path InstanciaUnicaFlock::Ruta(const std::optional<std::string>& xdgRuntimeDir,
                                   const fs::path& carpetaDatos) {
    std::error_code ec;
    if (xdgRuntimeDir && fs::path(*xdgRuntimeDir).is_absolute() &&
        fs::is_directory(*xdgRuntimeDir, ec)) {
        return fs::path(*xdgRuntimeDir) / "vorimesk.lock";
    }
    return carpetaDatos / "vorimesk.lock";
}

bool InstanciaUnicaFlock::Adquirir() {
    if (fd_ >= 0) {
        return true;
    }
    const int fd = ::open(archivo_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) {
        throw ErrorArchivo(archivo_.string(),
                           std::string("no se pudo abrir el cerrojo: ") + std::strerror(errno));
    }
    int r = 0;
    while ((r = ::flock(fd, LOCK_EX | LOCK_NB)) != 0 && errno == EINTR) {
    }
    if (r != 0) {
        const int error = errno;
        ::close(fd);
        if (error != EWOULDBLOCK) {
            throw ErrorArchivo(archivo_.string(), std::string("no se pudo bloquear el cerrojo: ") +
                                                      std::strerror(error));
        }
        return false;
    }
    fd_ = fd;
    return true;
}

} // namespace vorimesk
