#include "AvisosLlamada.h"

#include "core/Numero.h"
#include "core/cTiempo.h"

namespace vorimesk {

void AvisosLlamada::ArmarTodos() {
    for (bool& a : armados_) {
        a = true;
    }
}

void AvisosLlamada::Armar(Umbral umbral) {
    armados_[static_cast<int>(umbral)] = true;
}

bool AvisosLlamada::Armado(Umbral umbral) const {
    return armados_[static_cast<int>(umbral)];
}

bool AvisosLlamada::Disparar(Umbral umbral, bool opcion, bool superado) {
    bool& armado = armados_[static_cast<int>(umbral)];
    if (!opcion || !armado || !superado) {
        return false;
    }
    armado = false;
    return true;
}

std::vector<MotivoAviso> AvisosLlamada::Comprobar(const Settings& a, const LecturaMedidor& l) {
    std::vector<MotivoAviso> suenan;
    const bool tiempo = cTiempo(l.Duracion).EsMayor(a.TiempoAviso.Valor());
    if (Disparar(Umbral::Tiempo, a.AvisoTiempo, tiempo)) {
        suenan.push_back(MotivoAviso::Tiempo);
    }
    const bool importe = Val(a.ImporteAviso) < Val(l.TextoCoste);
    if (Disparar(Umbral::Importe, a.AvisoImporte, importe)) {
        suenan.push_back(MotivoAviso::Importe);
    }
    // A group without bundles has nothing to come down from.
    const bool bono = l.ConBono && l.BonosGrupo > 0 &&
                      cTiempo(l.BonoQueda).ConvSegundos() <= a.BonoAviso.ConvSegundos();
    if (Disparar(Umbral::Bono, a.AvisoBono, bono)) {
        suenan.push_back(MotivoAviso::Bono);
    }
    return suenan;
}

} // namespace vorimesk
