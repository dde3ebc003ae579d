#include "MapaDia.h"

#include <algorithm>

namespace vorimesk {
namespace {

constexpr std::int32_t kDia = 86400;

bool EnNormal(const FranjasDia& f, std::int32_t t) {
    return !NormalVacia(f) && f.normalInicio <= t && t <= f.normalFin;
}

bool EnReducida(const FranjasDia& f, std::int32_t t) {
    if (ReducidaVacia(f)) {
        return false;
    }
    if (f.reducidaInicio < f.reducidaFin) {
        return f.reducidaInicio <= t && t <= f.reducidaFin;
    }
    return t >= f.reducidaInicio || t <= f.reducidaFin;
}

Cobertura En(const FranjasDia& f, std::int32_t t) {
    const bool n = EnNormal(f, t), r = EnReducida(f, t);
    if (n && r) {
        return Cobertura::Solape;
    }
    if (n) {
        return Cobertura::Normal;
    }
    return r ? Cobertura::Reducida : Cobertura::SinFranja;
}

} // namespace

bool NormalVacia(const FranjasDia& f) {
    return f.normalInicio == f.normalFin;
}

bool ReducidaVacia(const FranjasDia& f) {
    return f.reducidaInicio == f.reducidaFin;
}

// Membership only changes where a band starts or just after one ends, so
// looking at those points is enough.
std::vector<TramoDia> MapaDia(const FranjasDia& f) {
    std::vector<std::int32_t> cortes = {
        0, kDia, f.normalInicio, f.normalFin + 1, f.reducidaInicio, f.reducidaFin + 1};
    for (std::int32_t& c : cortes) {
        c = std::clamp(c, 0, kDia);
    }
    std::sort(cortes.begin(), cortes.end());
    cortes.erase(std::unique(cortes.begin(), cortes.end()), cortes.end());
    std::vector<TramoDia> tramos;
    for (std::size_t i = 0; i + 1 < cortes.size(); ++i) {
        const Cobertura c = En(f, cortes[i]);
        if (!tramos.empty() && tramos.back().cobertura == c) {
            tramos.back().hasta = cortes[i + 1];
        } else {
            tramos.push_back({cortes[i], cortes[i + 1], c});
        }
    }
    return tramos;
}

} // namespace vorimesk
