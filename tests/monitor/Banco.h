#pragma once
// Lo que comparten las pruebas del monitor: una carpeta con un libro de
// tarifas conocido, un registro y un marcador de mentira y el monitor montado
// sobre ellos con un reloj que se mueve a mano.

#include "CarpetaTemporal.h"
#include "core/Reloj.h"
#include "monitor/MonitorConexion.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk::prueba {

// Un miercoles a media mañana, en la banda normal.
inline Fecha Miercoles(int hora = 10, int minuto = 0, int segundo = 0) {
    return Fecha::Crear(2024, 3, 6, hora, minuto, segundo);
}

// El libro: "Metropolitana" (sin cargo de conexion, normal 6 y reducida 3 el
// minuto; normal de 08:00:00 a 17:59:59 todos los dias), "BonoNet" en el
// indice 1 (la prueba de dia/noche lo mira) y "Cara" (100 de conexion y nada
// mas).
void EscribirLibro(const std::filesystem::path& carpeta);

// Un registro cuyo log del modem se maneja desde la prueba.
class RegistroFalso : public RegistroMonitor {
public:
    bool ExisteModemLog() const override { return existeLog; }
    bool AñadirLog(cBono&, const std::vector<Fecha>& festivos, colConexion& pendientes) override;
    Fecha DateConexion() const override;
    int Count() const override { return llamadas; }
    void SalvarLog() override { ++guardados; }
    LlamadaAnotada Anotada(int indice) const override;
    SesionEnLog EstadoEnLog(Fecha inicio) const override;
    int AnotarVista(const LlamadaVista& vista, const std::filesystem::path& rutaLog, cBono&,
                    const std::vector<Fecha>& festivos) override;

    // Una sesion terminada de `n` llamadas entra en el log.
    void LogCompleto(int n = 1) {
        existeLog = true;
        completo = true;
        porAnotar = n;
    }
    // Solo las lineas de subida: el lector no puede cerrarla.
    void LogAbierto() {
        existeLog = true;
        completo = false;
    }

    bool existeLog = false;
    bool completo = false;
    int porAnotar = 0;
    int llamadas = 0;
    int lecturas = 0;
    int guardados = 0;
    bool fallaLectura = false;
    Fecha fecha = kSinSesion; // lo que da DateConexion
    bool fallaFecha = false;
    mutable int consultasFecha = 0;
    std::vector<Fecha> festivosVistos;
    int pendientesVistos = 0;
    // Cada llamada del registro: las del log empiezan en la fecha de la
    // conexion pendiente que el lector encontro (o en `inicioLog`), las
    // propias del contador en la suya.
    std::vector<LlamadaAnotada> anotadas;
    std::optional<Fecha> inicioLog;
    std::vector<LlamadaVista> vistasAnotadas;
    SesionEnLog sesionEnLog = SesionEnLog::Ausente;
};

class MarcadorFalso : public Marcador {
public:
    void Marcar(const std::string& entrada) override { marcadas.push_back(entrada); }
    int Colgar(const std::string& entrada) override {
        colgadas.push_back(entrada);
        return 1;
    }
    int UltimoResultado() const override { return 0; }
    std::vector<std::string> marcadas;
    std::vector<std::string> colgadas;
};

class BancoMonitor : public CarpetaTemporal {
protected:
    void SetUp() override;

    MonitorConexion& Monitor() { return *monitor; }
    MonitorConexion::Sucesos Tick(int estado, const std::string& entrada = "Casa");
    // Ticks de un segundo en el mismo estado; devuelve todos los sucesos.
    MonitorConexion::Sucesos Ticks(int n, int estado, const std::string& entrada = "Casa");
    // The kinds of event in kind order, each with its count when above one:
    // "iniciada programa*2 mini sonar".
    static std::string Resumen(const MonitorConexion::Sucesos& s);
    static std::vector<MotivoAviso> Sonidos(const MonitorConexion::Sucesos& s);

    // La sesion del enlace que dan los ticks; vacia, la fuente no la sabe.
    std::string sesion;
    RelojFijo reloj{Miercoles()};
    Settings ajustes;
    cBono bono{reloj};
    colConexion pendientes;
    RegistroFalso registro;
    MarcadorFalso marcador;
    std::unique_ptr<MonitorConexion> monitor;
};

} // namespace vorimesk::prueba
