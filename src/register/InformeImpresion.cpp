#include "InformeImpresion.h"

#include "ListadoRegistro.h"
#include "core/FormatoNumero.h"
#include "tariff/cLlamada.h"

namespace vorimesk {
namespace {

constexpr int kAnchoColumna = 12;
constexpr int kColumnaReducida = 40;

std::string Primeros(const std::string& texto, std::size_t n) {
    return texto.substr(0, n);
}

std::string LineaValores(const cLlamada& libro, std::int16_t t, const std::string& banda) {
    const auto valor = [&](const char* campo) { return libro.ValorTexto(t, banda + campo); };
    return "Coste: " + Primeros(valor(".Importe"), 3) +
           " Inicio: " + Primeros(valor(".Inicio"), 5) + " Final: " + Primeros(valor(".Fin"), 5);
}

} // namespace

LineaInforme& LineaInforme::En(int columna, const std::string& texto) {
    const std::size_t inicio = columna > 1 ? static_cast<std::size_t>(columna - 1) : 0;
    if (texto_.size() < inicio) {
        texto_.resize(inicio, ' ');
    } else if (!texto_.empty()) {
        // The previous cell reached this column: one blank keeps them apart.
        texto_ += ' ';
    }
    texto_ += texto;
    return *this;
}

LineaInforme& LineaInforme::Texto(const std::string& texto) {
    texto_ += texto;
    return *this;
}

std::vector<std::string> InformeRegistro(const std::vector<FilaRegistro>& filas,
                                         const std::string& rango, const Listado& totales) {
    std::vector<std::string> lineas;
    lineas.push_back("Registro de llamadas");
    lineas.push_back(rango);
    LineaInforme titulos;
    for (int c = 0; c < static_cast<int>(kTitulosRegistro.size()); ++c) {
        titulos.En(c * kAnchoColumna, Primeros(kTitulosRegistro[c], 10));
    }
    lineas.push_back(titulos.Valor());
    for (const FilaRegistro& fila : filas) {
        LineaInforme linea;
        for (int c = 0; c < static_cast<int>(fila.size()); ++c) {
            linea.En(c * kAnchoColumna, fila[c]);
        }
        lineas.push_back(linea.Valor());
    }
    lineas.push_back("");
    lineas.push_back(
        "Total  Llamadas: " + std::to_string(totales.NumeroLlamadas) +
        "  Duracion: " + (totales.NumeroLlamadas == 0 ? "00:00:00" : totales.TotalTiempo.Valor()) +
        "  Gasto: " + (totales.TotalCoste == 0 ? "0" : FormatoMiles(totales.TotalCoste)));
    return lineas;
}

std::vector<std::string> InformeTarifas(const cLlamada& libro) {
    std::vector<std::string> lineas = {"", "", "Tarifas"};
    for (std::int16_t t = 0; t < libro.Count(); ++t) {
        lineas.push_back(libro.ValorTexto(t, "Nombre"));
        lineas.push_back("Importe conexion: " + libro.ValorTexto(t, "Conexion.Importe"));
        lineas.push_back("Tiempo incluido " + Primeros(libro.ValorTexto(t, "Conexion.Tiempo"), 5) +
                         " (mm:ss)");
        for (const std::string dia : {"Semana", "Sabado", "Festivo"}) {
            lineas.push_back(LineaInforme()
                                 .Texto(dia + " tarifa normal")
                                 .En(kColumnaReducida, dia + " tarifa reducida")
                                 .Valor());
            lineas.push_back(LineaInforme()
                                 .Texto(LineaValores(libro, t, dia + ".Normal"))
                                 .En(kColumnaReducida, LineaValores(libro, t, dia + ".Reducida"))
                                 .Valor());
        }
    }
    return lineas;
}

std::string TextoInforme(const std::vector<std::string>& lineas) {
    std::string texto;
    for (const std::string& l : lineas) {
        texto += l;
        texto += "\r\n";
    }
    return texto;
}

} // namespace vorimesk
