#include "LlamadasPropias.h"

#include "PropiasAnotadas.h"
#include "core/Errores.h"

#include <algorithm>
#include <cstdlib>

namespace vorimesk {
namespace {

// The hook stamps "in use" and "CONNECT" at the same moment; a second of
// slack covers a stamp taken across a second's turn.
constexpr std::int64_t kToleranciaSesion = 2;

std::int64_t Distancia(Fecha a, Fecha b) {
    return std::llabs(a.Segundos() - b.Segundos());
}

} // namespace

LlamadasPropias::LlamadasPropias(const std::filesystem::path& carpetaDatos,
                                 std::int64_t segundosEspera, Fecha ahora)
    : archivo_(carpetaDatos), segundosEspera_(segundosEspera) {
    for (auto& [nombre, vista] : archivo_.Todas()) {
        Registro r{nombre, std::move(vista), ahora.MasSegundos(segundosEspera_)};
        (r.vista.Abierta ? sinRetomar_ : esperando_).push_back(std::move(r));
    }
}

void LlamadasPropias::Escribir(const Registro& r) {
    archivo_.Guardar(r.nombre, r.vista);
}

std::optional<LlamadaVista> LlamadasPropias::Reanudar(const std::string& sesion, Fecha ahora) {
    std::optional<LlamadaVista> retomada;
    for (Registro& r : sinRetomar_) {
        if (!retomada && !sesion.empty() && r.vista.Enlace == sesion) {
            retomada = r.vista;
            abierta_ = std::move(r);
            guardada_ = ahora;
        } else {
            CerrarSinLlamada(std::move(r), ahora);
        }
    }
    sinRetomar_.clear();
    return retomada;
}

// A call left open by a meter that stopped: it ended by the last save.
void LlamadasPropias::CerrarSinLlamada(Registro r, Fecha ahora) {
    r.vista.Abierta = false;
    r.plazo = ahora.MasSegundos(segundosEspera_);
    Escribir(r);
    esperando_.push_back(std::move(r));
}

void LlamadasPropias::Abrir(LlamadaVista v, Fecha ahora) {
    v.Abierta = true;
    v.Fin = v.Inicio;
    Registro r{archivo_.NombreNuevo(v), std::move(v), ahora};
    abierta_ = std::move(r);
    guardada_ = ahora;
    Escribir(*abierta_);
}

void LlamadasPropias::Seguir(Fecha ahora, std::optional<std::uint64_t> recibidos,
                             std::optional<std::uint64_t> enviados,
                             std::optional<Fecha> fechaSesion) {
    if (!abierta_) {
        return;
    }
    LlamadaVista& v = abierta_->vista;
    v.Fin = std::max(v.Fin, ahora);
    v.Recibidos = recibidos.value_or(v.Recibidos);
    v.Enviados = enviados.value_or(v.Enviados);
    if (fechaSesion) {
        v.FechaSesion = fechaSesion;
    }
    if (ahora.Segundos() - guardada_.Segundos() >= kSegundosEntreGuardados) {
        guardada_ = ahora;
        Escribir(*abierta_);
    }
}

void LlamadasPropias::Cerrar(Fecha fin, std::optional<Fecha> fechaSesion) {
    if (!abierta_) {
        return;
    }
    Registro r = std::move(*abierta_);
    abierta_.reset();
    r.vista.Fin = std::max(r.vista.Fin, fin);
    if (fechaSesion) {
        r.vista.FechaSesion = fechaSesion;
    }
    r.vista.Abierta = false;
    r.plazo = fin.MasSegundos(segundosEspera_);
    esperando_.push_back(r);
    Escribir(r);
}

void LlamadasPropias::Cubrir(const RegistroMonitor& registro, int desde, Fecha ahora) {
    for (int i = desde; i < registro.Count(); ++i) {
        const LlamadaAnotada a = registro.Anotada(i);
        if (!CubrirUna(a)) {
            // The log may give a session before the meter has closed the
            // call (its ip-down ran before the interface went): the record
            // closed later is matched against it then.
            sinNota_.push_back({a, ahora});
        }
    }
}

void LlamadasPropias::CubrirSesiones(const std::vector<LlamadaAnotada>& sesiones, Fecha ahora) {
    for (const LlamadaAnotada& a : sesiones) {
        if (!CubrirUna(a)) {
            sinNota_.push_back({a, ahora});
        }
    }
}

// The record of the same link that shares the most time with the session.
bool LlamadasPropias::CubrirEnlace(const LlamadaAnotada& a) {
    std::vector<PropiaAnotada> enlaces;
    for (const Registro& r : esperando_) {
        enlaces.push_back({r.vista.Interfaz, r.vista.Pid, r.vista.Inicio, r.vista.Fin, {}});
    }
    const auto i = PropiasAnotadas::Buscar(enlaces, a.Interfaz, a.Pid, a.Inicio, a.Fin);
    if (!i) {
        return false;
    }
    archivo_.Borrar(esperando_[*i].nombre);
    esperando_.erase(esperando_.begin() + static_cast<std::ptrdiff_t>(*i));
    return true;
}

bool LlamadasPropias::CubrirUna(const LlamadaAnotada& a) {
    if (!a.Interfaz.empty()) {
        return CubrirEnlace(a);
    }
    auto mejor = esperando_.end();
    std::int64_t distancia = kToleranciaInicio + 1;
    for (auto it = esperando_.begin(); it != esperando_.end(); ++it) {
        const LlamadaVista& v = it->vista;
        if (v.FechaSesion && Distancia(*v.FechaSesion, a.Inicio) <= kToleranciaSesion) {
            mejor = it;
            break;
        }
        const bool mismaEntrada = a.Conexion.empty() || a.Conexion == v.Entrada;
        if (mismaEntrada && Distancia(v.Inicio, a.Inicio) < distancia) {
            distancia = Distancia(v.Inicio, a.Inicio);
            mejor = it;
        }
    }
    if (mejor == esperando_.end()) {
        return false;
    }
    archivo_.Borrar(mejor->nombre);
    esperando_.erase(mejor);
    return true;
}

// Calls of the log no record was waiting for, tried again on the records
// that have closed since; forgotten after a while.
void LlamadasPropias::CubrirPendientes(Fecha ahora) {
    for (auto it = sinNota_.begin(); it != sinNota_.end();) {
        if (CubrirUna(it->llamada) || ahora.Segundos() - it->leida.Segundos() > kSegundosSinNota) {
            it = sinNota_.erase(it);
        } else {
            ++it;
        }
    }
}

LlamadasPropias::Resultado LlamadasPropias::Vencidas(Fecha ahora, RegistroMonitor& registro,
                                                     cBono& bono,
                                                     const std::vector<Fecha>& festivos,
                                                     bool todas) {
    Resultado res;
    CubrirPendientes(ahora);
    for (auto it = esperando_.begin(); it != esperando_.end();) {
        if (!todas && ahora < it->plazo && registro.SesionPuedeLlegar(it->vista)) {
            ++it;
            continue;
        }
        try {
            const LlamadaVista& v = it->vista;
            if (v.FechaSesion && registro.EstadoEnLog(*v.FechaSesion) == SesionEnLog::Cerrada) {
                ++it; // in the log, behind a session still open: read with it
                continue;
            }
            res.Anotadas += registro.AnotarVista(v, archivo_.RutaModemLog(), bono, festivos);
            archivo_.Borrar(it->nombre);
            it = esperando_.erase(it);
        } catch (const vorimesk::Error& e) {
            res.Error = e.what();
            it->plazo = ahora.MasSegundos(segundosEspera_); // tried again later
            ++it;
        }
    }
    return res;
}

} // namespace vorimesk
