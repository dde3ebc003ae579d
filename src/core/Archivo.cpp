#include "Archivo.h"

#include "Errores.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

std::string Motivo() {
    return std::strerror(errno);
}

void EscribirTodo(int fd, std::string_view bytes, const std::string& temporal) {
    std::size_t hecho = 0;
    while (hecho < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + hecho, bytes.size() - hecho);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            const std::string motivo = Motivo();
            ::close(fd);
            ::unlink(temporal.c_str());
            throw ErrorArchivo(temporal, "no se pudo escribir: " + motivo);
        }
        hecho += static_cast<std::size_t>(n);
    }
}

} // namespace

bool ExisteArchivo(const fs::path& ruta) {
    std::error_code ec;
    if (!fs::is_regular_file(ruta, ec)) {
        return false;
    }
    const int fd = ::open(ruta.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    ::close(fd);
    return true;
}

std::string LeerArchivo(const fs::path& ruta) {
    // Plain descriptor calls: the register of a whole process is read here.
    const int fd = ::open(ruta.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        throw ErrorArchivo(ruta.string(), "no se pudo abrir para leer");
    }
    std::string datos;
    struct stat info {};
    if (::fstat(fd, &info) == 0 && info.st_size > 0) {
        datos.reserve(static_cast<std::size_t>(info.st_size));
    }
    char bloque[1 << 16];
    for (;;) {
        const ssize_t n = ::read(fd, bloque, sizeof bloque);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            const std::string motivo = Motivo();
            ::close(fd);
            throw ErrorArchivo(ruta.string(), "no se pudo leer: " + motivo);
        }
        if (n == 0) {
            break;
        }
        datos.append(bloque, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return datos;
}

void EscribirArchivoSeguro(const fs::path& ruta, std::string_view bytes, fs::perms permisos) {
    const fs::path carpeta = ruta.has_parent_path() ? ruta.parent_path() : fs::path(".");
    std::string temporal = (carpeta / ("." + ruta.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkstemp(temporal.data());
    if (fd < 0) {
        throw ErrorArchivo(ruta.string(), "no se pudo crear el archivo temporal: " + Motivo());
    }
    struct stat actual {};
    const mode_t modo = ::stat(ruta.c_str(), &actual) == 0 ? (actual.st_mode & 07777)
                                                           : static_cast<mode_t>(permisos);
    ::fchmod(fd, modo);
    EscribirTodo(fd, bytes, temporal);
    if (::fsync(fd) != 0 || ::close(fd) != 0) {
        const std::string motivo = Motivo();
        ::unlink(temporal.c_str());
        throw ErrorArchivo(ruta.string(), "no se pudo guardar: " + motivo);
    }
    if (::rename(temporal.c_str(), ruta.c_str()) != 0) {
        const std::string motivo = Motivo();
        ::unlink(temporal.c_str());
        throw ErrorArchivo(ruta.string(), "no se pudo reemplazar: " + motivo);
    }
}

void BorrarArchivo(const fs::path& ruta) {
    std::error_code ec;
    fs::remove(ruta, ec);
    if (ec) {
        throw ErrorArchivo(ruta.string(), "no se pudo borrar: " + ec.message());
    }
}

void CopiarArchivo(const fs::path& origen, const fs::path& destino) {
    EscribirArchivoSeguro(destino, LeerArchivo(origen));
}

void RenombrarArchivo(const fs::path& origen, const fs::path& destino) {
    std::error_code ec;
    fs::rename(origen, destino, ec);
    if (ec) {
        throw ErrorArchivo(origen.string(), "no se pudo renombrar: " + ec.message());
    }
}

} // namespace vorimesk
