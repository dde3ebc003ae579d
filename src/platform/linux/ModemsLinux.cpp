#include "ModemsLinux.h"

#include "platform/linux/TextoSistema.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

bool Empieza(const std::string& texto, std::string_view prefijo) {
    return texto.rfind(prefijo, 0) == 0;
}

// The port device, its USB interface and the USB device hold the names; a
// tty sits at most that far below them.
constexpr int kNivelesAtributos = 3;

std::optional<std::string> Atributo(const fs::path& dir, const char* nombre) {
    auto texto = LeerTextoSistema(dir / nombre);
    if (texto && texto->empty()) {
        return std::nullopt;
    }
    return texto;
}

} // namespace

ModemsLinux::ModemsLinux(fs::path sys, fs::path rutaLog)
    : sys_(std::move(sys)), rutaLog_(std::move(rutaLog)) {}

bool ModemsLinux::EsModem(const std::string& tty) const {
    const fs::path dir = sys_ / "class" / "tty" / tty;
    std::error_code ec;
    if (!fs::exists(dir / "device", ec)) {
        return false;
    }
    if (Empieza(tty, "ttyUSB") || Empieza(tty, "ttyACM")) {
        return true;
    }
    // Port type 0 is a placeholder with no UART found.
    return Empieza(tty, "ttyS") && LeerTextoSistema(dir / "type").value_or("") != "0";
}

std::string ModemsLinux::Modelo(const std::string& tty) const {
    std::error_code ec;
    const fs::path dispositivo = fs::canonical(sys_ / "class" / "tty" / tty / "device", ec);
    if (ec) {
        return tty;
    }
    std::vector<fs::path> niveles{dispositivo};
    while (static_cast<int>(niveles.size()) < kNivelesAtributos) {
        niveles.push_back(niveles.back().parent_path());
    }
    for (const auto& dir : niveles) {
        if (const auto producto = Atributo(dir, "product")) {
            const auto fabricante = Atributo(dir, "manufacturer");
            if (!fabricante || Empieza(*producto, *fabricante)) {
                return *producto;
            }
            return *fabricante + " " + *producto;
        }
    }
    for (const auto& dir : niveles) {
        if (const auto interfaz = Atributo(dir, "interface")) {
            return *interfaz;
        }
    }
    return tty;
}

std::vector<Modem> ModemsLinux::Modems() const {
    std::vector<std::string> ttys;
    std::error_code ec;
    for (fs::directory_iterator it(sys_ / "class" / "tty", ec), fin; !ec && it != fin;
         it.increment(ec)) {
        const std::string nombre = it->path().filename().string();
        if (EsModem(nombre)) {
            ttys.push_back(nombre);
        }
    }
    std::sort(ttys.begin(), ttys.end(), OrdenNatural);
    std::vector<Modem> modems;
    for (const auto& tty : ttys) {
        modems.push_back({tty, Modelo(tty), rutaLog_});
    }
    return modems;
}

} // namespace vorimesk
