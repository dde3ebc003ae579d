#pragma once
// Splits the text files the program reads (modem log, settings, archives)
// into lines. CR LF, LF and a lone CR each end a line, since logs and files
// copied between systems mix them; a last line without an ending is still a
// line, and a final line ending adds no empty line after it.

#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

std::vector<std::string_view> DividirLineas(std::string_view texto);

// The text without its CR and LF: a value that must not break its line in
// two (a name in a log line or in a key=value record).
std::string UnaLinea(std::string_view texto);

} // namespace vorimesk
