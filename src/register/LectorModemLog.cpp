#include "LectorModemLog.h"

#include "Importe.h"
#include "LogModem.h"
#include "core/Errores.h"
#include "core/Numero.h"

#include <limits>

namespace vorimesk {
namespace {

bool Tiene(std::string_view linea, std::string_view clave) {
    return linea.find(clave) != std::string_view::npos;
}

// The number right behind the keyword, as a decimal.
double NumeroTras(std::string_view linea, std::string_view clave) {
    return Val(linea.substr(linea.find(clave) + clave.size()));
}

// Bytes to kilobytes, halves to even, in the 32-bit field of the register.
std::int32_t Kilobytes(double bytes) {
    const double k = RedondeoBancario(bytes / 1024.0);
    if (!(k >= std::numeric_limits<std::int32_t>::min() &&
          k <= std::numeric_limits<std::int32_t>::max())) {
        throw ErrorDesbordamiento("el log del modem da un numero de bytes que no cabe en el "
                                  "registro");
    }
    return static_cast<std::int32_t>(k);
}

[[noreturn]] void Incompleta(const char* falta) {
    throw ErrorTipo(std::string("el log del modem da una llamada sin ") + falta);
}

} // namespace

LectorModemLog::LectorModemLog(cLlamada& libro, cBono& bono, const colConexion& pendientes)
    : libro_(libro), bono_(bono), pendientes_(pendientes) {}

std::optional<RegistroLlamada> LectorModemLog::Linea(std::string_view linea) {
    if (Tiene(linea, kModemEnUso)) {
        EnUso(linea);
    } else if (Tiene(linea, kModemConectado)) {
        Conectado(linea);
    } else if (Tiene(linea, kModemLeidos)) {
        Sumar(kPesoLeidos);
        recibidos_ = NumeroTras(linea, kModemLeidos);
    } else if (Tiene(linea, kModemEscritos)) {
        Sumar(kPesoEscritos);
        enviados_ = NumeroTras(linea, kModemEscritos);
    } else if (Tiene(linea, kModemCerrado)) {
        Cerrado(linea);
    }
    if (LlamadaCompleta()) {
        RegistroLlamada llamada = Llamada();
        if (bonoSesion_) {
            bono_.Copiar(*bonoSesion_);
            bonoSesion_.reset();
        }
        return llamada;
    }
    return std::nullopt;
}

void LectorModemLog::Sumar(std::int16_t peso) {
    if (contador_ > std::numeric_limits<std::int16_t>::max() - peso) {
        throw ErrorDesbordamiento("el log del modem tiene demasiadas lineas de una sesion sin "
                                  "\"in use\"");
    }
    contador_ = static_cast<std::int16_t>(contador_ + peso);
}

// A new session: everything of the last one goes but its connection name,
// which only a pending connection found for this one replaces.
void LectorModemLog::EnUso(std::string_view linea) {
    contador_ = kPesoEnUso;
    inicio_.reset();
    precio_.reset();
    bonoSesion_.reset();
    recibidos_.reset();
    enviados_.reset();
    tarifa_.clear();
    descuento_.clear();
    if (const cConexion* c = pendientes_.Buscar(FechaHoraDeLinea(linea))) {
        tarifa_ = c->Tarifa();
        descuento_ = c->Descuento();
        conexion_ = c->Conexion();
    }
}

void LectorModemLog::Conectado(std::string_view linea) {
    Sumar(kPesoConectado);
    inicio_ = FechaHoraDeLinea(linea);
    if (mesFactura_ == 0 && bono_.DiaFactura() > inicio_->Dia()) {
        mesFactura_ = static_cast<std::uint8_t>(inicio_->Mes());
    }
}

void LectorModemLog::Cerrado(std::string_view linea) {
    Sumar(kPesoCerrado);
    if (!inicio_) {
        return;
    }
    const Fecha fin = FechaHoraDeLinea(linea);
    // A call before the billing day belongs to the period that began last
    // month; the first such call of another month starts it with full bonos.
    if (bono_.DiaFactura() > inicio_->Dia() && inicio_->Mes() != mesFactura_) {
        mesFactura_ = static_cast<std::uint8_t>(inicio_->Mes());
        bono_.Reset();
    }
    const bool conBono = descuento_ == "BonoNet" || descuento_.empty();
    libro_.Datos(*inicio_, fin, conBono ? &bono_ : nullptr, tarifa_);
    // An unknown tariff leaves the book's last results, and they are taken.
    precio_ = Precio{libro_.Duracion(), libro_.importe(), libro_.Tipo(), libro_.BonoNet()};
    if (conBono) {
        // Kept aside: only a call that is appended pays with it.
        cBono despues(bono_);
        libro_.TraspasarBono(despues);
        bonoSesion_ = despues;
    }
}

RegistroLlamada LectorModemLog::Llamada() const {
    if (!inicio_) {
        Incompleta("\"CONNECT\"");
    }
    if (!precio_) {
        Incompleta("\"closed\"");
    }
    if (!recibidos_ || !enviados_) {
        Incompleta("\"Reads :\" o \"Writes:\"");
    }
    return RegistroLlamada::Crear(inicio_->SoloFecha(), inicio_->SoloHora(), precio_->duracion,
                                  TextoImporte(precio_->importe), TipoDeBanda(precio_->tipo),
                                  tarifa_, conexion_, "", precio_->bonoNet ? -1 : 0,
                                  Kilobytes(*recibidos_), Kilobytes(*enviados_));
}

} // namespace vorimesk
