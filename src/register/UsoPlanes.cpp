#include "UsoPlanes.h"

#include "tariff/CicloPlan.h"
#include "tariff/PrecioVolumen.h"

#include <algorithm>

namespace vorimesk {
namespace {

using Perfiles = std::vector<std::pair<std::string, std::string>>;

// Each connection once, with its tariff: profiles first, then the calls'.
std::vector<std::pair<std::string, std::string>>
ConexionesConTarifa(const std::vector<RegistroLlamada>& llamadas, const Perfiles& perfiles) {
    std::vector<std::pair<std::string, std::string>> lista;
    const auto buscar = [&lista](const std::string& c) {
        return std::find_if(lista.begin(), lista.end(),
                            [&c](const auto& p) { return p.first == c; });
    };
    for (const auto& [conexion, tarifa] : perfiles) {
        if (!tarifa.empty() && buscar(conexion) == lista.end()) {
            lista.emplace_back(conexion, tarifa);
        }
    }
    std::vector<Fecha> ultima;
    const std::size_t deperfil = lista.size();
    for (const RegistroLlamada& r : llamadas) {
        const std::string conexion = r.Conexion.Recortado();
        const Fecha inicio = InicioLlamada(r);
        const auto p = buscar(conexion);
        if (p == lista.end()) {
            lista.emplace_back(conexion, r.Tarifa.Recortado());
            ultima.push_back(inicio);
            continue;
        }
        const auto i = static_cast<std::size_t>(p - lista.begin());
        if (i >= deperfil && inicio >= ultima[i - deperfil]) {
            p->second = r.Tarifa.Recortado();
            ultima[i - deperfil] = inicio;
        }
    }
    return lista;
}

} // namespace

std::vector<UsoConexion> UsoDePlanes(const VolumenRegistro& volumen,
                                     const std::vector<RegistroLlamada>& llamadas,
                                     const Perfiles& perfiles, Fecha hoy) {
    hoy = hoy.SoloFecha();
    const std::vector<VolumenLlamada> precios = volumen.Preciar(llamadas);
    std::vector<UsoConexion> usos;
    for (const auto& [conexion, tarifa] : ConexionesConTarifa(llamadas, perfiles)) {
        const PlanDatos* plan = volumen.PlanDe(tarifa);
        const auto ciclo = volumen.Ciclo(conexion, hoy);
        if (plan == nullptr || !ciclo) {
            continue;
        }
        UsoConexion u;
        u.Conexion = conexion;
        u.Tarifa = tarifa.empty() ? volumen.TarifaPorDefecto() : tarifa;
        u.Ciclo = *ciclo;
        std::int64_t usadoKB = 0;
        for (std::size_t i = 0; i < llamadas.size(); ++i) {
            const VolumenLlamada& v = precios[i];
            if (v.Plan != nullptr && v.Ciclo == ciclo &&
                InicioLlamada(llamadas[i]).SoloFecha() <= hoy &&
                llamadas[i].Conexion.Recortado() == conexion) {
                usadoKB += v.ContadoKB;
                u.ImporteVolumen += v.Importe;
            }
        }
        u.UsadoMB = KBaMB(usadoKB);
        u.IncluidoMB = plan->IncluidoMB;
        u.RestanteMB = std::max(0.0, u.IncluidoMB - u.UsadoMB);
        u.Cuota = plan->CuotaPeriodo;
        u.Renueva = ciclo->fin != FinSinRenovar();
        u.DiasTranscurridos = static_cast<int>(hoy.Dias() - ciclo->inicio.Dias()) + 1;
        if (u.Renueva) {
            u.DiasCiclo = static_cast<int>(ciclo->fin.Dias() - ciclo->inicio.Dias()) + 1;
            u.PorDiaMB = u.RestanteMB / (u.DiasCiclo - u.DiasTranscurridos + 1);
            u.PrevisionMB = u.UsadoMB * u.DiasCiclo / u.DiasTranscurridos;
        }
        usos.push_back(std::move(u));
    }
    return usos;
}

std::optional<std::vector<UsoConexion>> UsoDeCarpeta(const std::filesystem::path& carpeta,
                                                     const std::vector<Fecha>& festivos,
                                                     const cBono& bono,
                                                     const std::vector<RegistroLlamada>& llamadas,
                                                     const Perfiles& perfiles, Fecha hoy) {
    Fecha ultima = hoy;
    for (const RegistroLlamada& r : llamadas) {
        ultima = std::max(ultima, InicioLlamada(r));
    }
    const Fecha primera = llamadas.empty() ? hoy : Fecha::DesdeOle(llamadas.front().Dia);
    const auto volumen = VolumenRegistro::DeCarpeta(carpeta, festivos, bono, primera, ultima);
    if (!volumen) {
        return std::nullopt;
    }
    return UsoDePlanes(*volumen, llamadas, perfiles, hoy);
}

} // namespace vorimesk
