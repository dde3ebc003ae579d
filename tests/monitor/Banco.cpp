#include "Banco.h"

#include "TarifaAMano.h"
#include "core/Errores.h"

namespace vorimesk::prueba {

void EscribirLibro(const std::filesystem::path& carpeta) {
    cLlamada libro(carpeta);
    const Dia dia = Laborable("6", "3");
    PonerTarifa(libro, "Metropolitana", "0", "00:00", dia, dia, dia);
    PonerTarifa(libro, "BonoNet", "0", "00:00", dia, dia, dia);
    const Dia nada = Laborable("0", "0");
    PonerTarifa(libro, "Cara", "100", "00:00", nada, nada, nada);
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
    for (int i = 0; i < porAnotar; ++i) {
        const bool conPendiente = i < pendientes.Count();
        const Fecha inicio = inicioLog      ? *inicioLog
                             : conPendiente ? pendientes.Item(i + 1).fecha()
                                            : kSinSesion;
        anotadas.push_back({inicio, conPendiente ? pendientes.Item(i + 1).Conexion() : ""});
    }
    llamadas += porAnotar;
    existeLog = false;
    while (pendientes.Count() != 0) {
        pendientes.Remove(1);
    }
    return true;
}

LlamadaAnotada RegistroFalso::Anotada(int indice) const {
    return anotadas.at(static_cast<std::size_t>(indice));
}

SesionEnLog RegistroFalso::EstadoEnLog(Fecha) const {
    return sesionEnLog;
}

int RegistroFalso::AnotarVista(const LlamadaVista& vista, const std::filesystem::path& rutaLog,
                               cBono&, const std::vector<Fecha>& festivos) {
    EXPECT_EQ(rutaLog.parent_path().filename(), ArchivoLlamadasVistas::kCarpeta);
    festivosVistos = festivos;
    vistasAnotadas.push_back(vista);
    anotadas.push_back({vista.Inicio, vista.Entrada});
    ++llamadas;
    return 1;
}

Fecha RegistroFalso::DateConexion() const {
    ++consultasFecha;
    if (fallaFecha) {
        throw Error("Aun no se inicializado el origen del Log.");
    }
    return fecha;
}

void BancoMonitor::SetUp() {
    EscribirLibro(dir);
    monitor = std::make_unique<MonitorConexion>(reloj, ajustes, bono, pendientes, registro,
                                                marcador, dir);
}

MonitorConexion::Sucesos BancoMonitor::Tick(int estado, const std::string& entrada) {
    LecturaConexion l{estado == LecturaConexion::kNada ? 0 : 1, estado, entrada};
    l.Enlace = sesion;
    return monitor->Tick(l);
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

std::string BancoMonitor::Resumen(const MonitorConexion::Sucesos& s) {
    const char* nombres[] = {"iniciada", "terminada", "sonar", "programa", "mini",   "anotadas",
                             "rellenar", "sinCerrar", "error", "renovado", "sinLog", "corregidas"};
    std::string r;
    for (int tipo = 0; tipo < 12; ++tipo) {
        const auto n = std::count_if(s.begin(), s.end(), [&](const SucesoMonitor& x) {
            return static_cast<int>(x.tipo) == tipo;
        });
        if (n > 0) {
            r += (r.empty() ? "" : " ") + std::string(nombres[tipo]) +
                 (n > 1 ? "*" + std::to_string(n) : "");
        }
    }
    return r;
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
