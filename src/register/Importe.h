#pragma once
// The cost of a call as the register keeps it: text of at most 8 characters
// (the width of the field). The shortest text that reads back as the same
// float is used whenever it fits; a cost that would need more characters
// keeps as many significant digits as fit, in fixed or exponent form, so its
// magnitude is never lost ("123456.8", "-123E-32").

#include <string>
#include <string_view>

namespace vorimesk {

std::string TextoImporte(float importe);

// The number at the start of the text; "," is taken as the decimal point as
// well, since registers written under Spanish regional settings hold it.
// Text that is not a number reads as 0.
float LeerImporte(std::string_view texto);

} // namespace vorimesk
