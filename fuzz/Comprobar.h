#pragma once
// What a fuzz target may do with bad input: refuse it with one of the
// program's own errors. Anything else (another exception, a broken
// property) stops the run so the input is kept.

#include <cstdio>
#include <cstdlib>

namespace vorimesk::fuzz {

inline void Comprobar(bool condicion, const char* que) {
    if (!condicion) {
        std::fprintf(stderr, "propiedad rota: %s\n", que);
        std::abort();
    }
}

} // namespace vorimesk::fuzz
