#pragma once
// Splits the text files the program reads (modem log, settings, archives)
// into lines. CR LF, LF and a lone CR each end a line, since logs and files
// copied between systems mix them; a last line without an ending is still a
// line, and a final line ending adds no empty line after it.

#include <string_view>
#include <vector>

namespace vorimesk {

std::vector<std::string_view> DividirLineas(std::string_view texto);

} // namespace vorimesk
