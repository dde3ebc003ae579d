#include "Archivo.h"

#include "Errores.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
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
    std::ifstream f(ruta, std::ios::binary);
    return f.is_open();
}

std::string LeerArchivo(const fs::path& ruta) {
    std::ifstream f(ruta, std::ios::binary);
    if (!f) {
        throw ErrorArchivo(ruta.string(), "no se pudo abrir para leer");
    }
    // In blocks: a full register is megabytes and is read at every start.
    std::string datos;
    std::error_code ec;
    const auto tamaño = fs::file_size(ruta, ec);
    if (!ec) {
        datos.reserve(static_cast<std::size_t>(tamaño));
    }
    char bloque[1 << 16];
    while (f.read(bloque, sizeof bloque) || f.gcount() > 0) {
        datos.append(bloque, static_cast<std::size_t>(f.gcount()));
    }
    if (f.bad()) {
        throw ErrorArchivo(ruta.string(), "no se pudo leer");
    }
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
