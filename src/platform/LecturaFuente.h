#pragma once
// One look at the connection source as the monitor takes it. The window and
// `vigilar` both read the source through this, so both see the same fields.

#include "monitor/LecturaConexion.h"
#include "platform/FuenteConexiones.h"

namespace vorimesk {

// Looks at the system and returns what the look found.
inline LecturaConexion LeerFuente(FuenteConexiones& fuente) {
    fuente.Actualizar();
    LecturaConexion l{fuente.Count(), fuente.IntState(), fuente.EntryName(), fuente.Aviso()};
    const SesionEnlace sesion = fuente.Sesion();
    l.Enlace = sesion.Identidad();
    l.Interfaz = sesion.interfaz.empty() ? fuente.Interfaz() : sesion.interfaz;
    l.Pid = sesion.pid;
    l.ConDiario = fuente.Origen() != OrigenEnlace::NetworkManager;
    if (const auto bytes = fuente.Bytes()) {
        l.Recibidos = bytes->recibidos;
        l.Enviados = bytes->enviados;
    }
    return l;
}

} // namespace vorimesk
