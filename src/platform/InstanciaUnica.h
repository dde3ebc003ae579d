#pragma once
// Keeps a second meter from watching the same data folder as the first.

#include <chrono>
#include <optional>

namespace vorimesk {

class InstanciaUnica {
public:
    virtual ~InstanciaUnica() = default;
    // True when this process is now the only meter of its data folder;
    // false when another one already watches it. Holding lasts until the
    // object is destroyed or the process ends, a crash included.
    virtual bool Adquirir() = 0;
    // The process id of the meter that holds the folder, when it is known
    // and still a meter of this program.
    virtual std::optional<long> Titular() const = 0;
    // Asks the holder to stop (SIGTERM: it saves and ends) and waits up to
    // `espera` to take its place; true when this process now holds it.
    virtual bool Relevar(std::chrono::milliseconds espera) = 0;
};

} // namespace vorimesk
