#include "PasosArchivo.h"

#include "tariff/cPeriodo.h"

namespace vorimesk {

void PasosArchivo::Mostrar(PaginaArchivo pagina, int paso, std::string banner) {
    pagina_ = pagina;
    paso_ = paso;
    banner_ = std::move(banner);
}

// The file page: restoring finishes there once a file is chosen, viewing and
// deleting go on from it.
void PasosArchivo::AbrirArchivo(int paso, std::string banner) {
    Mostrar(PaginaArchivo::Archivo, paso, std::move(banner));
    if (accion_ == kRecuperar) {
        siguiente_ = false;
        finalizar_ = archivo_;
    } else {
        siguiente_ = archivo_;
        finalizar_ = false;
    }
}

void PasosArchivo::ElegirAccion(std::int16_t accion) {
    if (pagina_ != PaginaArchivo::Accion || accion < kArchivar || accion > kBorrar) {
        return;
    }
    accion_ = accion;
    siguiente_ = true;
}

void PasosArchivo::ArchivoSeleccionado(bool hay) {
    archivo_ = hay;
    if (pagina_ == PaginaArchivo::Archivo) {
        (accion_ == kRecuperar ? finalizar_ : siguiente_) = hay;
    }
}

void PasosArchivo::ConfirmarBorrado(bool si) {
    confirmado_ = si;
    if (pagina_ == PaginaArchivo::ConfirmarBorrado) {
        finalizar_ = si;
    }
}

TareaPaso PasosArchivo::Tarea() const {
    switch (accion_) {
    case kArchivar:
        return paso_ == 2   ? TareaPaso::ProponerNombre
               : paso_ == 3 ? TareaPaso::TomarNombre
                            : TareaPaso::Ninguna;
    case kRecuperar:
        if (paso_ == 2 && guardarAntes_) {
            return TareaPaso::ProponerNombre;
        }
        return paso_ == 4 ? TareaPaso::ArchivarActuales : TareaPaso::Ninguna;
    case kVer:
        return paso_ == 2 ? TareaPaso::LeerArchivo : TareaPaso::Ninguna;
    default:
        return TareaPaso::Ninguna;
    }
}

bool PasosArchivo::Avanzar() {
    if (!siguiente_) {
        return false;
    }
    atras_ = true;
    switch (accion_ * 10 + paso_) {
    case kArchivar * 10 + 1:
        Mostrar(PaginaArchivo::Periodo, 2, "Paso 2 de 4");
        break;
    case kArchivar * 10 + 2:
        Mostrar(PaginaArchivo::Nombre, 3, "Paso 3 de 4");
        break;
    case kArchivar * 10 + 3:
        Mostrar(PaginaArchivo::ConservarOBorrar, 4, "Paso 4 de 4");
        finalizar_ = true;
        siguiente_ = false;
        break;
    case kRecuperar * 10 + 1:
        Mostrar(PaginaArchivo::ModoRecuperar, 2, "Paso 2 de 3");
        break;
    case kRecuperar * 10 + 2:
        if (guardarAntes_) {
            Mostrar(PaginaArchivo::Nombre, 4, "Paso 2");
        } else {
            AbrirArchivo(3, "Paso 3 de 3");
        }
        break;
    case kRecuperar * 10 + 4:
        AbrirArchivo(3, "Paso 3 de 3");
        break;
    case kVer * 10 + 1:
    case kBorrar * 10 + 1:
        AbrirArchivo(2, "Paso 2 de 3");
        break;
    case kVer * 10 + 2:
        Mostrar(PaginaArchivo::Ver, 3, "Paso 3 de 3");
        finalizar_ = true;
        siguiente_ = false;
        break;
    case kBorrar * 10 + 2:
        Mostrar(PaginaArchivo::ConfirmarBorrado, 3, "Paso 3 de 3");
        confirmado_ = false;
        finalizar_ = false;
        siguiente_ = false;
        break;
    default:
        return false;
    }
    return true;
}

bool PasosArchivo::Retroceder() {
    if (!atras_) {
        return false;
    }
    finalizar_ = false;
    siguiente_ = true;
    if (paso_ == 2) {
        Mostrar(PaginaArchivo::Accion, 1, accion_ == kArchivar ? "Paso 1 de 4" : "Paso 1 de 3");
        atras_ = false;
        return true;
    }
    switch (accion_) {
    case kArchivar:
        if (paso_ == 3) {
            Mostrar(PaginaArchivo::Periodo, 2, "Paso 2 de 4");
        } else {
            Mostrar(PaginaArchivo::Nombre, 3, "Paso 3 de 4");
        }
        break;
    case kRecuperar:
        Mostrar(PaginaArchivo::ModoRecuperar, 2, "Paso 2 de 3");
        break;
    default:
        AbrirArchivo(2, "Paso 2 de 3");
        break;
    }
    return true;
}

RangoFechas RangoTodos(const Log& registro, Fecha hoy) {
    return {registro.Dia(0), hoy};
}

RangoFechas RangoHastaPeriodoCerrado(const Log& registro, std::uint8_t diaFactura,
                                     std::uint8_t intervalo, Fecha hoy) {
    const Fecha desde = registro.Dia(0);
    cPeriodo periodos;
    periodos.Datos(diaFactura, intervalo);
    periodos.Periodos(desde, hoy);
    std::string actual;
    for (std::string p = periodos.Periodo(); !p.empty(); p = periodos.Periodo()) {
        if (p != cPeriodo::kOtro) {
            actual = p;
        }
    }
    const Fecha inicio = actual.empty() ? desde : cPeriodo::FechaIni(actual);
    return {desde, inicio.SoloFecha().MasDias(-1)};
}

Fecha PrimerDiaOHoy(const Log& registro, Fecha hoy) {
    return registro.Count() > 0 ? registro.Dia(0) : hoy;
}

} // namespace vorimesk
