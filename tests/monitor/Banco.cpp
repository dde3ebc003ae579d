#include "Banco.h"

#include "core/Errores.h"
#include "tariff/cLlamada.h"

namespace vorimesk::prueba {
namespace {

void Franjas(cLlamada& l, std::int16_t i, const char* normal, const char* reducida) {
    for (const char* dia : {"Semana", "Sabado", "Festivo"}) {
        const std::string d = dia;
        l.Valor(i, d + ".Normal.Importe", normal);
        l.Valor(i, d + ".Normal.Inicio", "08:00:00");
        l.Valor(i, d + ".Normal.Fin", "17:59:59");
        l.Valor(i, d + ".Reducida.Importe", reducida);
        l.Valor(i, d + ".Reducida.Inicio", "18:00:00");
        l.Valor(i, d + ".Reducida.Fin", "07:59:59");
    }
}

void Tarifa(cLlamada& l, const char* nombre, const char* conexion, const char* normal,
            const char* reducida) {
    l.Add();
    const auto i = static_cast<std::int16_t>(l.Count() - 1);
    l.Valor(i, "Nombre", nombre);
    l.Valor(i, "Conexion.Importe", conexion);
    l.Valor(i, "Conexion.Tiempo", "00:00");
    Franjas(l, i, normal, reducida);
}

} // namespace

void EscribirLibro(const std::filesystem::path& carpeta) {
    cLlamada libro(carpeta);
    Tarifa(libro, "Metropolitana", "0", "6", "3");
    Tarifa(libro, "BonoNet", "0", "6", "3");
    Tarifa(libro, "Cara", "100", "0", "0");
    libro.Save();
}

bool RegistroFalso::AñadirLog(cBono&, const std::vector<Fecha>& festivos, colConexion& pendientes) {
    ++lecturas;
    festivosVistos = festivos;
    pendientesVistos = pendientes.Count();
    if (fallaLectura) {
        throw ErrorTipo("linea del log ilegible");
    }
    if (!existeLog || !completo) {
        return false;
    }
    llamadas += porAnotar;
    existeLog = false;
    while (pendientes.Count() != 0) {
        pendientes.Remove(1);
    }
    return true;
}

Fecha RegistroFalso::DateConexion() const {
    ++consultasFecha;
    if (fallaFecha) {
        throw Error("Aun no se inicializado el origen del Log.");
    }
    return fecha;
}

void BancoMonitor::SetUp() {
    CarpetaTemporal::SetUp();
    EscribirLibro(dir);
    monitor =
        std::make_unique<MonitorConexion>(reloj, ajustes, bono, pendientes, registro, linea, dir);
}

MonitorConexion::Sucesos BancoMonitor::Tick(int estado, const std::string& entrada) {
    return monitor->Tick({estado == LecturaConexion::kNada ? 0 : 1, estado, entrada});
}

MonitorConexion::Sucesos BancoMonitor::Ticks(int n, int estado, const std::string& entrada) {
    MonitorConexion::Sucesos todos;
    for (int i = 0; i < n; ++i) {
        reloj.Avanzar(1);
        auto s = Tick(estado, entrada);
        todos.insert(todos.end(), s.begin(), s.end());
    }
    return todos;
}

int BancoMonitor::Cuenta(const MonitorConexion::Sucesos& s, SucesoMonitor::Tipo tipo) {
    return static_cast<int>(
        std::count_if(s.begin(), s.end(), [&](const SucesoMonitor& x) { return x.tipo == tipo; }));
}

std::vector<MotivoAviso> BancoMonitor::Sonidos(const MonitorConexion::Sucesos& s) {
    std::vector<MotivoAviso> m;
    for (const SucesoMonitor& x : s) {
        if (x.tipo == SucesoMonitor::Tipo::Sonar) {
            m.push_back(x.motivo);
        }
    }
    return m;
}

} // namespace vorimesk::prueba
