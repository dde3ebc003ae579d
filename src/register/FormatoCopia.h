#pragma once
// Archive files (".CPR"): a text export of register records, one call a line,
// eleven comma-separated fields, CR LF line ends, Windows-1252 text:
//   #1999-10-10#,#14:05:00#,"00:05:00","125",0,"Metropolitana","Casa","",#FALSE#,12,3
// date, start time, duration, cost, band, tariff, connection, reserved, bono
// used, kilobytes received, kilobytes sent.

#include "RegistroLlamada.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

// One record as its archive line, without the line end. The texts are taken
// trimmed as the register's accessors give them (the duration as stored).
// Throws ErrorDesbordamiento when Dia or Hora holds no date.
std::string LineaCopia(const RegistroLlamada& registro);

// The calls of an archive file, in file order. Blank lines are skipped. A
// band written as -1 is taken as 255, the register's form of it. Throws
// ErrorFormato (naming the line, not the file) for a line that is not a call.
std::vector<RegistroLlamada> LeerCopia(std::string_view bytes);

} // namespace vorimesk
