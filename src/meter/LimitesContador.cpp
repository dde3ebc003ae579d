#include "meter/LimitesContador.h"

#include "core/Errores.h"
#include "register/PrevisionPeriodo.h"
#include "register/UsoPlanes.h"
#include "session/Sesion.h"
#include "settings/Presupuesto.h"
#include "tariff/ArchivoPlanes.h"

#include <system_error>

namespace vorimesk {
namespace {

// Size and modification time: what changes when the file is written.
std::string Sello(const std::filesystem::path& ruta) {
    std::error_code e;
    const auto tamaño = std::filesystem::file_size(ruta, e);
    if (e) {
        return "-";
    }
    const auto hora = std::filesystem::last_write_time(ruta, e).time_since_epoch().count();
    return std::to_string(tamaño) + "@" + std::to_string(hora);
}

std::optional<double> PresupuestoDe(const std::filesystem::path& carpeta) {
    try {
        return LeerPresupuesto(carpeta);
    } catch (const Error&) {
        return std::nullopt; // a damaged budget file holds no limit
    }
}

} // namespace

LimitesContador::LimitesContador(std::filesystem::path carpeta)
    : carpeta_(std::move(carpeta)), hechos_(carpeta_) {}

const std::vector<std::pair<ConexionPlan, UsoLimites>>& LimitesContador::Usos(const Sesion& sesion,
                                                                              Fecha ahora) {
    const Fecha hoy = ahora.SoloFecha();
    const std::string firma = Sello(RutaPlanes(carpeta_)) + "|" +
                              Sello(carpeta_ / kArchivoPresupuesto) + "|" +
                              std::to_string(sesion.Registro().Count()) + "|" +
                              Sello(carpeta_ / Log::kNombreArchivo) + "|" + hoy.TextoIsoFecha();
    if (firma == firmaUsos_) {
        return usos_;
    }
    firmaUsos_ = firma;
    usos_.clear();
    const std::optional<Planes> planes = CargarPlanes(carpeta_);
    if (!planes) {
        return usos_;
    }
    const DatosSesion& d = sesion.Datos();
    std::vector<std::pair<std::string, std::string>> perfiles;
    for (const EntradaConexion& e : d.Ajustes.EntradasConexion) {
        perfiles.emplace_back(e.Entrada, e.Tarifa);
    }
    const auto volumen =
        UsoDeCarpeta(carpeta_, sesion.Festivos(), d.Bono, d.Registro.Registros(), perfiles, hoy);
    DatosPrevision datos;
    datos.DiaFactura = d.Bono.DiaFactura();
    datos.perFactura = d.Bono.perFactura();
    datos.Coste = d.Coste();
    const PrevisionPeriodo periodo = Prever(d.Registro, datos, hoy);
    const std::optional<double> presupuesto = PresupuestoDe(carpeta_);
    for (const ConexionPlan& c : planes->conexiones) {
        if (c.Limites.empty()) {
            continue;
        }
        UsoLimites u;
        u.Conexion = c.Conexion;
        for (const UsoConexion& v : volumen.value_or(std::vector<UsoConexion>{})) {
            if (v.Conexion == c.Conexion) {
                u.UsadoMB = v.UsadoMB;
                u.IncluidoMB = v.IncluidoMB;
                u.CicloVolumen = v.Ciclo.inicio;
            }
        }
        u.Gastado = periodo.Gastado;
        u.Presupuesto = presupuesto;
        u.CicloPresupuesto = periodo.Inicio;
        usos_.emplace_back(c, u);
    }
    return usos_;
}

LimitesContador::Paso LimitesContador::Mirar(const Sesion& sesion,
                                             const std::optional<EnCurso>& llamada, Fecha ahora) {
    Paso paso;
    if (cuenta_ && (!llamada || llamada->Conexion != cuenta_->Conexion)) {
        cuenta_.reset(); // the call it was counting for is over
    }
    for (const auto& [conexion, base] : Usos(sesion, ahora)) {
        UsoLimites uso = base;
        if (llamada && llamada->Conexion == conexion.Conexion) {
            if (uso.UsadoMB) {
                *uso.UsadoMB += llamada->MB;
            }
            uso.Gastado += llamada->Coste;
        }
        for (const LimiteAlcanzado& a : LimitesAlcanzados(conexion, uso)) {
            if (!hechos_.Hecho(a.Clave())) {
                Actuar(a, llamada, ahora, paso);
            }
        }
    }
    return paso;
}

void LimitesContador::Actuar(const LimiteAlcanzado& a, const std::optional<EnCurso>& llamada,
                             Fecha ahora, Paso& paso) {
    using Tipo = SucesoMonitor::Tipo;
    if (a.Limite.Accion == "avisar") {
        hechos_.Anotar(a.Clave());
        paso.sucesos.push_back({Tipo::LimiteAviso, a.Texto()});
    } else if (a.Limite.Accion == "no-marcar") {
        hechos_.Anotar(a.Clave());
        paso.sucesos.push_back(
            {Tipo::LimiteNoMarcar,
             a.Texto() + " No se volvera a marcar esta conexion hasta que se renueve el ciclo."});
    } else if (llamada && llamada->Conexion == a.Conexion) {
        if (!cuenta_) {
            cuenta_ = Cuenta{a.Clave(), a.Conexion, ahora.MasSegundos(kSegundosCuenta)};
            SucesoMonitor s{Tipo::LimiteCuentaAtras,
                            a.Texto() + " La llamada se colgara dentro de " +
                                std::to_string(kSegundosCuenta) + " segundos."};
            s.llamadas = kSegundosCuenta;
            paso.sucesos.push_back(s);
        } else if (cuenta_->Clave == a.Clave() && ahora >= cuenta_->Fin) {
            hechos_.Anotar(a.Clave());
            cuenta_.reset();
            paso.colgar = true;
            paso.sucesos.push_back({Tipo::LimiteColgado, a.Texto() + " Llamada colgada."});
        }
    }
}

std::optional<std::string> LimitesContador::Rechazo(const Sesion& sesion,
                                                    const std::string& conexion, Fecha ahora) {
    for (const auto& [c, uso] : Usos(sesion, ahora)) {
        if (c.Conexion != conexion) {
            continue;
        }
        for (const LimiteAlcanzado& a : LimitesAlcanzados(c, uso)) {
            if (a.Limite.Accion == "no-marcar" || a.Limite.Accion == "colgar") {
                return a.Texto() + " No se marca hasta que se renueve el ciclo.";
            }
        }
    }
    return std::nullopt;
}

LimitesContador::Sucesos LimitesContador::CancelarCuenta() {
    if (!cuenta_) {
        return {};
    }
    hechos_.Anotar(cuenta_->Clave);
    cuenta_.reset();
    return {{SucesoMonitor::Tipo::LimiteCuentaCancelada,
             "Cuenta atras cancelada: la llamada sigue y este limite no vuelve a colgar en este "
             "ciclo."}};
}

} // namespace vorimesk
