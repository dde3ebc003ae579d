#pragma once
// Keeps a second copy of the program from running beside the first.

namespace vorimesk {

class InstanciaUnica {
public:
    virtual ~InstanciaUnica() = default;
    // True when this process is now the only instance; false when another
    // one already runs (the caller then ends silently). Holding lasts until
    // the object is destroyed or the process ends, a crash included.
    virtual bool Adquirir() = 0;
};

} // namespace vorimesk
