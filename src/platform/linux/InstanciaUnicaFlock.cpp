#include "InstanciaUnicaFlock.h"

#include "core/Errores.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// A process id read from the lock file is only signalled when it still runs
// one of this program's executables: a number left by an old holder may
// have been given to another program since.
bool EsDelPrograma(long pid) {
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/" + std::to_string(pid) + "/exe", ec);
    return !ec && exe.filename().string().starts_with("vorimesk");
}

} // namespace

InstanciaUnicaFlock::InstanciaUnicaFlock(fs::path archivo) : archivo_(std::move(archivo)) {}

InstanciaUnicaFlock::~InstanciaUnicaFlock() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

fs::path InstanciaUnicaFlock::Ruta(const fs::path& carpetaDatos) {
    return carpetaDatos / kNombre;
}

bool InstanciaUnicaFlock::Adquirir() {
    if (fd_ >= 0) {
        return true;
    }
    const int fd = ::open(archivo_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
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
    // Whoever finds the folder taken reads who took it.
    const std::string pid = std::to_string(::getpid()) + "\n";
    if (::ftruncate(fd_, 0) != 0 || ::pwrite(fd_, pid.data(), pid.size(), 0) < 0) {
        // The lock holds all the same; only the offer to stop this meter
        // from elsewhere is lost.
    }
    return true;
}

std::optional<long> InstanciaUnicaFlock::Titular() const {
    std::ifstream archivo(archivo_);
    long pid = 0;
    if (!(archivo >> pid) || pid <= 1 || pid == ::getpid() || !EsDelPrograma(pid)) {
        return std::nullopt;
    }
    return pid;
}

bool InstanciaUnicaFlock::Relevar(std::chrono::milliseconds espera) {
    if (Adquirir()) {
        return true;
    }
    const std::optional<long> pid = Titular();
    if (!pid || ::kill(static_cast<pid_t>(*pid), SIGTERM) != 0) {
        return false;
    }
    const auto hasta = std::chrono::steady_clock::now() + espera;
    while (std::chrono::steady_clock::now() < hasta) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        if (Adquirir()) {
            return true;
        }
    }
    return false;
}

} // namespace vorimesk
