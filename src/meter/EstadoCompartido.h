#pragma once
// Keeps the data folder's state file (EstadoContador) up to date on each
// event of the meter, so a window started on the same folder can show what
// this meter is doing; the file goes when the meter stops cleanly. A file
// that cannot be written never stops the meter.

#include "meter/ObservadorContador.h"
#include "monitor/EstadoContador.h"

namespace vorimesk {

class EstadoCompartido final : public ObservadorContador {
public:
    void Comienzo(const InicioContador& inicio) override;
    void Suceso(const SucesoMonitor& s, const MomentoContador& m) override;
    void Lectura(const MomentoContador& m) override;
    void Fin() override;
    void Error(const std::string& texto) override;

private:
    void Guardar(Fecha hora);

    std::filesystem::path carpeta_;
    EstadoContador estado_;
    CambioEstado cambio_;
    Fecha ultimaHora_;
};

} // namespace vorimesk
