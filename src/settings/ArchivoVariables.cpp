#include "ArchivoVariables.h"

#include "core/Archivo.h"
#include "core/ErrorFormato.h"
#include "core/Flotante.h"
#include "core/Lineas.h"
#include "core/Texto1252.h"
#include "core/TextoDelimitado.h"

#include <cstdint>
#include <vector>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// Counts are read back as signed 16-bit numbers.
constexpr std::size_t kMaximoLista = 32767;

// Reads the file one value a line, naming the value in every complaint.
class Lector {
public:
    explicit Lector(std::string_view texto) : lineas_(DividirLineas(texto)) {}

    template <typename F> auto Con(const char* que, F leer) {
        if (siguiente_ >= lineas_.size()) {
            throw ErrorFormato({}, "el archivo termina antes de " + std::string(que),
                               static_cast<int>(lineas_.size()) + 1);
        }
        linea_ = static_cast<int>(++siguiente_);
        // One value a line: anything after a comma is not part of it.
        const CampoDelimitado campo = CamposDeLinea(lineas_[siguiente_ - 1]).front();
        try {
            return leer(campo);
        } catch (const ErrorFormato& e) {
            throw ErrorFormato({}, std::string(que) + ": " + e.Detalle(), e.Linea());
        }
    }

    bool Booleano(const char* que) {
        return Con(que, [this](const CampoDelimitado& c) { return ComoBooleano(c, linea_); });
    }
    std::string Texto(const char* que) {
        return Con(que, [this](const CampoDelimitado& c) { return ComoTexto(c, linea_); });
    }
    Fecha FechaHora(const char* que) {
        return Con(que, [this](const CampoDelimitado& c) { return ComoFecha(c, linea_); });
    }
    FechaVariante FechaOpcional(const char* que) {
        return Con(que, [this](const CampoDelimitado& c) { return ComoFechaVariante(c, linea_); });
    }
    std::int64_t Entero(const char* que, std::int64_t minimo, std::int64_t maximo) {
        return Con(que,
                   [&](const CampoDelimitado& c) { return ComoEntero(c, linea_, minimo, maximo); });
    }
    std::uint8_t Byte(const char* que) { return static_cast<std::uint8_t>(Entero(que, 0, 255)); }
    std::int16_t Entero16(const char* que) {
        return static_cast<std::int16_t>(Entero(que, INT16_MIN, INT16_MAX));
    }
    std::size_t Cuenta(const char* que) {
        return static_cast<std::size_t>(Entero(que, 0, kMaximoLista));
    }
    float Flotante(const char* que) {
        return Con(que, [this](const CampoDelimitado& c) { return ComoFlotante(c, linea_); });
    }
    cTiempo Tiempo(const char* que) {
        const std::string texto = Texto(que);
        try {
            return cTiempo(texto);
        } catch (const Error&) {
            throw ErrorFormato({}, std::string(que) + ": \"" + texto + "\" no es un tiempo",
                               linea_);
        }
    }

private:
    std::vector<std::string_view> lineas_;
    std::size_t siguiente_ = 0;
    int linea_ = 0;
};

class Escritor {
public:
    void Valor(std::string_view texto) {
        texto_.append(texto);
        texto_.append(kFinDeLinea);
    }
    void Booleano(bool b) { Valor(LiteralBooleano(b)); }
    void Texto(std::string_view t) { Valor(Entrecomillar(t)); }
    void Entero(std::int64_t n) { Valor(std::to_string(n)); }
    void Cuenta(std::size_t n, const char* que) {
        if (n > kMaximoLista) {
            throw ErrorDesbordamiento("la lista de " + std::string(que) + " tiene " +
                                      std::to_string(n) + " elementos; el archivo de opciones " +
                                      "admite " + std::to_string(kMaximoLista));
        }
        Entero(static_cast<std::int64_t>(n));
    }
    std::string Bytes() const { return A1252(texto_); }

private:
    std::string texto_;
};

// A list is its count on a line of its own and then its elements, each read
// by `leer`.
template <typename T, typename F>
void LeerLista(Lector& l, const char* que, std::vector<T>& lista, F leer) {
    lista.resize(l.Cuenta(que));
    for (T& elemento : lista) {
        leer(elemento);
    }
}

void LeerBonos(Lector& l, Settings& s) {
    s.DiaFactura = l.Byte("DiaFactura");
    s.perFactura = l.Byte("perFactura");
    LeerLista(l, "numero de bonos", s.Bonos, [&](BonoGuardado& b) {
        b.Tipo = l.Entero16("Tipo del bono");
        b.Alta = l.FechaHora("Alta del bono");
        b.Baja = l.FechaOpcional("Baja del bono");
        b.tiempo = l.Texto("tiempo del bono");
    });
}

void LeerListas(Lector& l, Settings& s) {
    s.Reservado1 = l.Entero16("Reservado1");
    s.Reservado2 = l.Entero16("Reservado2");
    s.Reservado3 = l.Byte("Reservado3");
    LeerLista(l, "numero de entradas de conexion", s.EntradasConexion, [&](EntradaConexion& e) {
        e.Entrada = l.Texto("nombre de la entrada de conexion");
        e.Tarifa = l.Texto("tarifa de la entrada de conexion");
        e.Descuento = l.Texto("descuento de la entrada de conexion");
    });
    s.Impuestos = l.Flotante("Impuestos");
    s.AnadirImpuestos = l.Booleano("AnadirImpuestos");
    LeerLista(l, "numero de festivos", s.Festivos, [&](Fecha& f) { f = l.FechaHora("festivo"); });
    LeerLista(l, "numero de perfiles de conexion", s.Conexiones, [&](PerfilConexion& p) {
        p.Conexion = l.Texto("Conexion del perfil");
        p.Descuento = l.Texto("Descuento del perfil");
        p.fecha = l.FechaHora("fecha del perfil");
        p.Tarifa = l.Texto("Tarifa del perfil");
    });
}

// A free name beside the file for a damaged copy; an identical copy made
// earlier is reused.
fs::path NombreDañado(const fs::path& ruta, const std::string& contenido) {
    const std::string base = ruta.string() + ".dañado";
    for (int n = 1;; ++n) {
        const fs::path candidato =
            n == 1 ? fs::path(base) : fs::path(base + "." + std::to_string(n));
        std::error_code ec;
        if (!fs::exists(candidato, ec)) {
            return candidato;
        }
        if (ExisteArchivo(candidato) && LeerArchivo(candidato) == contenido) {
            return candidato;
        }
    }
}

} // namespace

Settings LeerTextoVariables(std::string_view bytes) {
    const std::string texto = De1252(bytes);
    Lector l(texto);
    Settings s;
    s.SiempreVisible = l.Booleano("SiempreVisible");
    s.CargarAlIniciar = l.Booleano("CargarAlIniciar");
    s.ColorSegunTarifa = l.Booleano("ColorSegunTarifa");
    s.MiniAlConectar = l.Booleano("MiniAlConectar");
    s.ProgramasAlConectar = l.Booleano("ProgramasAlConectar");
    LeerLista(l, "numero de programas", s.Programas,
              [&](std::string& p) { p = l.Texto("programa"); });
    s.AvisoConectar = l.Booleano("AvisoConectar");
    s.AvisoDesconectar = l.Booleano("AvisoDesconectar");
    s.AvisoHora = l.Booleano("AvisoHora");
    s.AvisoTiempo = l.Booleano("AvisoTiempo");
    s.AvisoImporte = l.Booleano("AvisoImporte");
    s.AvisoBono = l.Booleano("AvisoBono");
    s.HoraAviso = l.FechaHora("HoraAviso");
    s.TiempoAviso = l.Tiempo("TiempoAviso");
    s.ImporteAviso = l.Texto("ImporteAviso");
    s.BonoAviso = l.Tiempo("BonoAviso");
    s.SonidoAviso = l.Texto("SonidoAviso");
    s.MesReinicio = l.Byte("MesReinicio");
    LeerBonos(l, s);
    LeerListas(l, s);
    return s;
}

std::string EscribirTextoVariables(const Settings& s) {
    Escritor e;
    for (bool b : {s.SiempreVisible, s.CargarAlIniciar, s.ColorSegunTarifa, s.MiniAlConectar,
                   s.ProgramasAlConectar}) {
        e.Booleano(b);
    }
    e.Cuenta(s.Programas.size(), "programas");
    for (const std::string& p : s.Programas) {
        e.Texto(p);
    }
    for (bool b : {s.AvisoConectar, s.AvisoDesconectar, s.AvisoHora, s.AvisoTiempo, s.AvisoImporte,
                   s.AvisoBono}) {
        e.Booleano(b);
    }
    e.Valor(LiteralFecha(s.HoraAviso));
    e.Texto(s.TiempoAviso.Valor());
    e.Texto(s.ImporteAviso);
    e.Texto(s.BonoAviso.Valor());
    e.Texto(s.SonidoAviso);
    e.Entero(s.MesReinicio);
    e.Entero(s.DiaFactura);
    e.Entero(s.perFactura);
    e.Cuenta(s.Bonos.size(), "bonos");
    for (const BonoGuardado& b : s.Bonos) {
        e.Entero(b.Tipo);
        e.Valor(LiteralFecha(b.Alta));
        e.Valor(LiteralFechaVariante(b.Baja));
        e.Texto(b.tiempo);
    }
    e.Entero(s.Reservado1);
    e.Entero(s.Reservado2);
    e.Entero(s.Reservado3);
    e.Cuenta(s.EntradasConexion.size(), "entradas de conexion");
    for (const EntradaConexion& c : s.EntradasConexion) {
        e.Texto(c.Entrada);
        e.Texto(c.Tarifa);
        e.Texto(c.Descuento);
    }
    e.Valor(TextoFlotante(s.Impuestos));
    e.Booleano(s.AnadirImpuestos);
    e.Cuenta(s.Festivos.size(), "festivos");
    for (Fecha f : s.Festivos) {
        e.Valor(LiteralFecha(f));
    }
    e.Cuenta(s.Conexiones.size(), "perfiles de conexion");
    for (const PerfilConexion& p : s.Conexiones) {
        e.Texto(p.Conexion);
        e.Texto(p.Descuento);
        e.Valor(LiteralFecha(p.fecha));
        e.Texto(p.Tarifa);
    }
    return e.Bytes();
}

LecturaVariables LeerVariables(const fs::path& ruta) {
    LecturaVariables r;
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        r.valores = ValoresPorDefecto();
        return r;
    }
    try {
        r.valores = LeerTextoVariables(LeerArchivo(ruta));
    } catch (const Error& e) {
        r.valores = ValoresPorDefecto();
        r.dañado = true;
        const ErrorFormato* formato = dynamic_cast<const ErrorFormato*>(&e);
        const std::string motivo = formato ? formato->ConRuta(ruta.string()).what() : e.what();
        r.aviso = motivo +
                  ".\nSe usan las opciones por defecto. El archivo no se ha modificado; "
                  "al guardar las opciones se conservara una copia como \"" +
                  ruta.filename().string() + ".dañado\".";
    }
    return r;
}

std::optional<fs::path> GuardarVariables(const fs::path& ruta, const Settings& valores) {
    const std::string bytes = EscribirTextoVariables(valores);
    std::optional<fs::path> apartado;
    std::error_code ec;
    if (fs::exists(ruta, ec)) {
        const std::string actual = LeerArchivo(ruta);
        try {
            LeerTextoVariables(actual);
        } catch (const ErrorFormato&) {
            apartado = NombreDañado(ruta, actual);
            EscribirArchivoSeguro(*apartado, actual, kSoloUsuario);
        }
    }
    EscribirArchivoSeguro(ruta, bytes, kSoloUsuario);
    return apartado;
}

} // namespace vorimesk
