#pragma once
// The platform's dialler as the connection monitor's telephone line, for the
// main window and the headless meter alike.

#include "monitor/LineaMonitor.h"
#include "platform/Marcador.h"

namespace vorimesk {

class LineaPlataforma final : public LineaMonitor {
public:
    explicit LineaPlataforma(Marcador& marcador) : marcador_(marcador) {}
    void Marcar(const std::string& entrada) override { marcador_.Marcar(entrada); }
    void Colgar(const std::string& entrada) override { marcador_.Colgar(entrada); }

private:
    Marcador& marcador_;
};

} // namespace vorimesk
