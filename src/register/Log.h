#pragma once
// The call register: the finished calls in memory and their file
// "RegDat.log". Records occupy indices 0 to Count() - 1; index Count() is the
// spare slot that receives the next call, and reads as an empty record. The
// same object carries the path of the modem's session log and the keywords
// the connection monitor watches for.
//
// File errors are not caught here: they reach the caller as ErrorArchivo,
// and a failed operation leaves the register in memory as it was.

#include "RegistroLlamada.h"
#include "tariff/LibroTarifas.h"
#include "tariff/cBono.h"
#include "tariff/colConexion.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

// What the register reports when it needs the modem log and has no path.
inline constexpr std::string_view kMensajeSinOrigenLog =
    "Aun no se inicializado el origen del Log.\nNo se puede crear";

// What a re-pricing could not do. A call whose tariff the book does not
// hold (renamed or deleted in the editor, or no book at all) keeps the
// importe, Tipo and Bono it had, and the user is told.
struct RecalculoLog {
    int LlamadasSinTarifa = 0;
    std::vector<std::string> TarifasDesconocidas; // each once, in register order
};

// "2 llamadas tienen una tarifa que no esta en el libro de tarifas ..." with
// the names; empty when every tariff was found.
std::string AvisoTarifasDesconocidas(const RecalculoLog& recalculo);

class Log {
public:
    static constexpr std::string_view kNombreArchivo = "RegDat.log";

    // `carpetaDatos` is where the register file lives when NombreSaveLog is
    // left empty.
    explicit Log(std::filesystem::path carpetaDatos);

    // Keywords of the modem log offered to the connection monitor.
    std::string Conectando() const;
    std::string Conectado() const;
    std::string Desconectando() const;
    std::string Desconectado() const;

    // The tariff book every pricing of the register uses: the one lent by
    // the holder of the data folder (which must outlive the register), or
    // else one of the register's own, read from its data folder.
    void PrestarLibro(const LibroTarifas& libro) { prestado_ = &libro; }
    const LibroTarifas& Libro() const { return prestado_ != nullptr ? *prestado_ : propio_; }

    // The meter saves the register after every call: from then on only the
    // session's first save makes the "bak" backup, so it keeps the register
    // as it was before the session and not a copy of the last call's.
    void CopiaUnaVezPorSesion() { copiaUnaVez_ = true; }

    const std::string& NombreLog() const { return nombreLog_; }
    void NombreLog(std::string ruta) { nombreLog_ = std::move(ruta); }
    // Empty until set or until the register file is first opened, which sets
    // it to the data folder plus "/RegDat.log".
    const std::string& NombreSaveLog() const { return nombreSaveLog_; }
    void NombreSaveLog(std::string ruta) { nombreSaveLog_ = std::move(ruta); }

    std::int16_t Count() const { return static_cast<std::int16_t>(registros_.size()); }

    // Indexed accessors: 0 to Count() (the spare slot reads as empty);
    // anything else throws ErrorIndice.
    Fecha Dia(int i) const;            // throws ErrorDesbordamiento for a value no date can hold
    Fecha Hora(int i) const;           // likewise
    std::string Duracion(int i) const; // as stored, blanks kept
    std::string importe(int i) const;  // these four trimmed of blanks
    std::string Tarifa(int i) const;
    std::string Conexion(int i) const;
    std::string Reservada(int i) const;
    std::uint8_t Tipo(int i) const; // as stored (a band of -1 is 255)
    int Banda(int i) const;         // Tipo with 255 read back as -1
    std::int16_t Bono(int i) const;
    std::int32_t Recibidos(int i) const;
    std::int32_t Enviados(int i) const;
    const RegistroLlamada& Registro(int i) const;
    const std::vector<RegistroLlamada>& Registros() const { return registros_; }

    // Sum of every Duracion as hh:mm:ss.
    std::string TotalDuracion() const;

    // Reads the register file. A missing file is created empty (readable by
    // the user only). Throws ErrorDesbordamiento for a file of more than
    // 32,767 calls and leaves the register unchanged.
    void CargarLog();
    // Writes the register file after copying the previous one over its "bak"
    // name. An empty register leaves no register file, only the backup.
    void SalvarLog();
    // Puts the register file aside under its "BAK" name. Nothing happens
    // while NombreSaveLog is empty.
    void EliminarLog();
    // Empties the register (one spare slot): an archive read into it takes
    // the place of what it held, with no merging.
    void BorrarLog() { registros_.clear(); }
    // Removes record i; an index outside 0 to Count() - 1 changes nothing.
    void BorrarItem(int i);
    // Appends a call, each text cut or blank-padded to its width. Throws
    // ErrorDesbordamiento when the register already holds 32,767 calls.
    void AñadirItem(Fecha Dia, Fecha Hora, std::string_view Duracion, std::string_view importe,
                    std::uint8_t Tipo, std::string_view Tarifa, std::string_view Conexion,
                    std::string_view Reservada, std::int16_t Bono, std::int32_t Recibidos,
                    std::int32_t Enviados);
    void AñadirItem(const RegistroLlamada& registro);
    // Empties the register, as a fresh read of the modem log starts.
    void Vaciar() { BorrarLog(); }
    // Gives every call of tariff `viejo` the tariff `nuevo` (cut or padded
    // to the field), after the tariff is renamed; the rest of each record
    // keeps its bytes. The number of calls changed.
    int RenombrarTarifa(std::string_view viejo, std::string_view nuevo);

    // Appends the calls of the modem log at NombreLog, each priced with the
    // tariff book (Libro; default tariff "Metropolitana"), the
    // holidays and, when its discount is "BonoNet" or none, the program's
    // ledger `bono`, which keeps the bundle time the calls used. Each
    // session's tariff, discount and connection come from the pending
    // connection recorded at its "in use" moment.
    //
    // True when the log held finished sessions: the log is then deleted and
    // `pendientes` emptied. False, with the log kept for a later run, when
    // there is no log, it is empty, or its last session is unfinished; the
    // calls of an unfinished run are not kept and the ledger is left as it
    // was. While it reads and deletes, the log's lock (core/CerrojoArchivo.h)
    // is held, so a block a modem writes meanwhile waits and survives.
    //
    // Throws Error with kMensajeSinOrigenLog while NombreLog is empty; a log
    // text that does not form dates or numbers where the calls need them
    // throws ErrorTipo or ErrorDesbordamiento, and file errors ErrorArchivo.
    // Whatever it throws, the register, the ledger, the pending connections
    // and the log are left as they were.
    bool AñadirLog(cBono& bono, const std::vector<Fecha>& festivos, colConexion& pendientes);
    // Empties the register, then as AñadirLog.
    bool CrearLog(cBono& bono, const std::vector<Fecha>& festivos, colConexion& pendientes);

    // Prices every call again with its own tariff, the holidays and the
    // ledger, which starts full and is refilled at the first call before
    // the billing day of each new month; the ledger ends with the bundle
    // time the calls used. Only importe, Tipo and Bono change, and not for a
    // call whose tariff the book does not hold: it keeps them and draws
    // nothing from the ledger (see RecalculoLog). A failure (a date no
    // calendar holds, a duration too long) changes nothing.
    RecalculoLog ModificarLog(cBono& bono, const std::vector<Fecha>& festivos);

    // Start of the last session in the modem log; the date value 1 when the
    // log is missing, empty or holds no session. Throws Error with
    // kMensajeSinOrigenLog while NombreLog is empty.
    Fecha DateConexion() const;

private:
    // The modem log reader; true when the log may be deleted.
    bool LeerModemLog(cBono& bono, const std::vector<Fecha>& festivos,
                      const colConexion& pendientes);
    const RegistroLlamada& En(int i) const;
    std::filesystem::path RutaRegistro();

    std::filesystem::path carpeta_;
    LibroTarifas propio_;
    const LibroTarifas* prestado_ = nullptr;
    std::string nombreLog_;
    bool copiaUnaVez_ = false;
    bool copiaHecha_ = false;
    std::string nombreSaveLog_;
    std::vector<RegistroLlamada> registros_;
};

} // namespace vorimesk
