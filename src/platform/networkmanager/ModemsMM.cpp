#include "ModemsMM.h"

#include "core/Texto1252.h"

#include <algorithm>
#include <chrono>
#include <map>

namespace vorimesk {
namespace {

constexpr const char* kNombre = "org.freedesktop.ModemManager1";
constexpr const char* kRuta = "/org/freedesktop/ModemManager1";
constexpr const char* kIfModem = "org.freedesktop.ModemManager1.Modem";

using Propiedades = std::map<std::string, sdbus::Variant>;
using Objetos = std::map<sdbus::ObjectPath, std::map<std::string, Propiedades>>;
using Puerto = sdbus::Struct<std::string, std::uint32_t>;

template <typename T> T Valor(const Propiedades& p, const std::string& clave) {
    const auto it = p.find(clave);
    return it != p.end() && it->second.containsValueOfType<T>() ? it->second.get<T>() : T{};
}

struct ModemMM {
    Modem modem;
    std::vector<std::string> puertos;
};

std::vector<ModemMM> LeerModemManager(sdbus::IConnection& bus, const std::filesystem::path& log) {
    Objetos objetos;
    try {
        sdbus::createProxy(bus, kNombre, kRuta)
            ->callMethod("GetManagedObjects")
            .onInterface("org.freedesktop.DBus.ObjectManager")
            .withTimeout(std::chrono::seconds(2))
            .storeResultsTo(objetos);
    } catch (const sdbus::Error&) {
        return {}; // no ModemManager
    }
    std::vector<ModemMM> modems;
    for (const auto& [ruta, interfaces] : objetos) {
        const auto it = interfaces.find(kIfModem);
        if (it == interfaces.end()) {
            continue;
        }
        const Propiedades& p = it->second;
        ModemMM m;
        const std::string identificador = Valor<std::string>(p, "DeviceIdentifier");
        m.modem.clave = "mm:" + (identificador.empty() ? std::string(ruta) : identificador);
        m.modem.modelo =
            Recortar(Valor<std::string>(p, "Manufacturer") + " " + Valor<std::string>(p, "Model"));
        if (m.modem.modelo.empty()) {
            m.modem.modelo = "Modem de ModemManager";
        }
        m.modem.rutaLog = log;
        for (const Puerto& puerto : Valor<std::vector<Puerto>>(p, "Ports")) {
            m.puertos.push_back(puerto.get<0>());
        }
        modems.push_back(std::move(m));
    }
    return modems;
}

} // namespace

ModemsMM::ModemsMM(std::shared_ptr<ClienteNM> cliente, std::shared_ptr<ListaModems> serie,
                   std::filesystem::path rutaLog)
    : cliente_(std::move(cliente)), serie_(std::move(serie)), rutaLog_(std::move(rutaLog)) {}

std::vector<Modem> ModemsMM::Modems() const {
    std::vector<ModemMM> delGestor;
    if (sdbus::IConnection* bus = cliente_->Bus()) {
        delGestor = LeerModemManager(*bus, rutaLog_);
    }
    std::vector<Modem> modems;
    std::vector<std::string> usados;
    for (ModemMM& m : delGestor) {
        modems.push_back(std::move(m.modem));
        usados.insert(usados.end(), m.puertos.begin(), m.puertos.end());
    }
    for (Modem& m : serie_->Modems()) {
        if (std::find(usados.begin(), usados.end(), m.clave) == usados.end()) {
            modems.push_back(std::move(m));
        }
    }
    return modems;
}

} // namespace vorimesk
