#include "TextoAviso.h"

namespace vorimesk {

const char* ClaseAviso(MotivoAviso motivo) {
    switch (motivo) {
    case MotivoAviso::Conectar:
        return "conectar";
    case MotivoAviso::Desconectar:
        return "desconectar";
    case MotivoAviso::Tiempo:
        return "tiempo";
    case MotivoAviso::Importe:
        return "importe";
    case MotivoAviso::Bono:
        return "bono";
    case MotivoAviso::Hora:
        return "hora";
    }
    return "";
}

std::string TextoAviso(MotivoAviso motivo, const PantallaMonitor& p) {
    const std::string con = p.Conectado.empty() ? "" : " con " + p.Conectado;
    switch (motivo) {
    case MotivoAviso::Conectar:
        return "Conexion establecida" + con + ".";
    case MotivoAviso::Desconectar:
        return "Conexion terminada" + con + ".";
    case MotivoAviso::Tiempo:
        return "Tiempo de llamada superado: la llamada" + con + " dura ya " + p.Tiempo + ".";
    case MotivoAviso::Importe:
        return "Importe superado: la llamada" + con + " cuesta ya " + p.Gasto + ".";
    case MotivoAviso::Bono:
        return "Queda poco bono: quedan " + (p.BonoQueda.empty() ? "00:00:00" : p.BonoQueda) +
               " de BonoNet.";
    case MotivoAviso::Hora:
        return "Es la hora: son las " + p.HoraAhora + ".";
    }
    return "";
}

} // namespace vorimesk
