#include "LineasModemLog.h"

#include "core/CerrojoArchivo.h"
#include "core/Errores.h"
#include "core/Lineas.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// Closes the descriptor on every way out.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int fd() const { return fd_; }

private:
    int fd_;
};

void EscribirTodo(int fd, std::string_view bytes, const fs::path& log) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            throw ErrorArchivo(log.string(),
                               std::string("no se pudo escribir: ") + std::strerror(errno));
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

} // namespace

std::string LineaModemLog(Fecha cuando, std::string_view mensaje) {
    char sello[64];
    std::snprintf(sello, sizeof sello, "%02d-%02d-%04d %02d:%02d:%02d.00 - ", cuando.Mes(),
                  cuando.Dia(), cuando.Año(), cuando.Hora(), cuando.Minuto(), cuando.Segundo());
    return sello + UnaLinea(mensaje) + "\r\n";
}

std::string BloqueSubida(Fecha cuando, const DatosSubida& d) {
    std::string uso = "Modem in use:";
    for (const std::string* parte : {&d.interfaz, &d.tty, &d.entrada}) {
        if (!parte->empty()) {
            uso += " " + *parte;
        }
    }
    const std::string conexion = d.velocidad.empty() ? "CONNECT" : "CONNECT " + d.velocidad;
    return LineaModemLog(cuando, uso) + LineaModemLog(cuando, conexion);
}

std::string BloqueBajada(Fecha cuando, Trafico t) {
    return LineaModemLog(cuando, "Reads : " + std::to_string(t.recibidos) + " bytes") +
           LineaModemLog(cuando, "Writes: " + std::to_string(t.enviados) + " bytes") +
           LineaModemLog(cuando, "Modem closed.");
}

fs::path CerrojoModemLog(const fs::path& log) {
    return RutaCerrojo(log);
}

void AnexarModemLog(const fs::path& log, std::string_view bloque) {
    const CerrojoArchivo cerrojo(RutaCerrojo(log));
    const Descriptor archivo(::open(log.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (archivo.fd() < 0) {
        throw ErrorArchivo(log.string(),
                           std::string("no se pudo abrir para escribir: ") + std::strerror(errno));
    }
    EscribirTodo(archivo.fd(), bloque, log);
}

fs::path RutaModemLogLinux(const std::optional<std::string>& variable,
                           const fs::path& carpetaDatos) {
    if (variable && !variable->empty()) {
        return *variable;
    }
    return carpetaDatos / kModemLogLinux;
}

} // namespace vorimesk
