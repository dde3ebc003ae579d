#include "MedidorLlamada.h"

#include "FormatoCoste.h"
#include "PerfilEntrada.h"
#include "core/cTiempo.h"

namespace vorimesk {

MedidorLlamada::MedidorLlamada(const Settings& ajustes, const cBono& bono)
    : ajustes_(ajustes), bono_(bono) {}

LecturaMedidor MedidorLlamada::Medir(cLlamada& libro, Fecha inicio, Fecha ahora,
                                     const std::string& entrada, std::int16_t grupoBono) const {
    const PerfilEntrada perfil = BuscarPerfilEntrada(ajustes_, entrada);
    LecturaMedidor l;
    l.Entrada = entrada;
    l.NombreTarifa = perfil.Tarifa;
    l.ConBono = perfil.Descuento == kDescuentoBonoNet;
    libro.NombreTarifa(perfil.Tarifa);
    l.Tasada = libro.Datos(inicio, ahora, l.ConBono ? &bono_ : nullptr);
    if (!l.Tasada) {
        // The book's results belong to another call: only the time is known.
        cTiempo tiempo;
        tiempo.ConvTiempo(static_cast<std::int32_t>(ahora.Segundos() - inicio.Segundos()));
        l.Duracion = tiempo.Valor();
        l.TextoCoste = kTarifaDesconocida;
        return l;
    }
    l.Duracion = libro.Duracion();
    l.importe = libro.importe();
    l.Coste = CosteMostrado(l.importe, ajustes_);
    l.TextoCoste = TextoCoste(l.Coste);
    l.BandaAhora = libro.Tipo();
    l.BonoAhora = libro.BonoNet();
    if (l.ConBono) {
        // The working copy holds what this call has drawn so far.
        const cBono& enLlamada = libro.Bono();
        l.BonosGrupo = enLlamada.CountGrupo(grupoBono);
        l.BonoGastado = enLlamada.TiempoGastadoGrupo(grupoBono);
        l.BonoQueda = enLlamada.TotalTiempoGrupo(grupoBono);
    }
    return l;
}

std::string MedidorLlamada::TextoBanda(std::int16_t tipo) {
    return tipo == 1 ? "Reducida" : "Normal";
}

std::string MedidorLlamada::PuntaBandeja(const LecturaMedidor& l) {
    if (!l.Tasada) {
        return std::string(kTituloVentana) + "  Conectado a " + l.Entrada + "\n" + l.Duracion +
               "  " + kTarifaDesconocida + " (\"" + l.NombreTarifa + "\")";
    }
    std::string punta = std::string(kTituloVentana) + "  Conectado a " + l.Entrada + "\n" +
                        l.Duracion + "  " + l.TextoCoste + "  " + TextoBanda(l.BandaAhora);
    if (l.BonoAhora) {
        punta += "  BonoNet";
    }
    return punta;
}

void MedidorLlamada::Mostrar(const LecturaMedidor& l, PantallaMonitor& p) const {
    if (l.ConBono && l.Tasada) {
        p.BonoGastado = l.BonoGastado;
        p.BonoQueda = l.BonoQueda;
    }
    if (ajustes_.ColorSegunTarifa) {
        p.ColorTiempo = l.BandaAhora == 1 ? kColorBandaReducida : kColorBandaNormal;
    } else {
        p.ColorTiempo = kColorNegro;
    }
    p.Tiempo = l.Duracion;
    p.Gasto = l.TextoCoste;
    p.Tarifa = l.Tasada ? TextoBanda(l.BandaAhora) : std::string();
    p.Bono = l.BonoAhora ? "BonoNet" : "";
    p.PuntaBandeja = PuntaBandeja(l);
}

} // namespace vorimesk
