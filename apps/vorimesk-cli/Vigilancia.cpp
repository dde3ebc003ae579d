#include "Vigilancia.h"

#include "AjustesCli.h"
#include "ArgumentosCli.h"

namespace vorimesk::cli {
namespace {

Fecha Comienzo(const OpcionesVigilar& o) {
    return o.inicio ? LeerFechaHora(*o.inicio) : RelojSistema().Ahora();
}

} // namespace

Vigilancia::Vigilancia(std::filesystem::path carpeta, const OpcionesVigilar& o,
                       ObservadorContador& observador)
    : simulada_(o.guion.has_value()), relojSimulado_(Comienzo(o)) {
    OpcionesPlataforma op;
    op.carpetaDatos = std::move(carpeta);
    op.reloj = simulada_ ? static_cast<const Reloj*>(&relojSimulado_) : &relojSistema_;
    if (o.guion) {
        op.guion = *o.guion;
    }
    contador_ = std::make_unique<Contador>(op, CrearPlataforma(op));
    contador_->Observar(&observador);
    // A damaged settings file stops the meter: it is never rewritten from
    // defaults.
    LeerAjustes(contador_->DatosUsuario());
    contador_->AñadirEntradasNuevas(contador_->EntradasDelSistema());
    // With several modems the first one's log is read; they all share the
    // data folder's.
    contador_->ElegirLogModem({});
}

Vigilancia::~Vigilancia() = default;

bool Vigilancia::Adquirir() {
    return contador_->Sistema().instancia->Adquirir();
}

void Vigilancia::Iniciar() {
    contador_->Arrancar();
}

} // namespace vorimesk::cli
