#pragma once
// Keeps the data folder's state file (EstadoContador) up to date on each
// event of the meter, so a window started on the same folder can show what
// this meter is doing; the file goes when the meter stops cleanly. A file
// that cannot be written never stops the meter.

#include "ObservadorVigilancia.h"
#include "monitor/EstadoContador.h"

namespace vorimesk::cli {

class EstadoCompartido final : public ObservadorVigilancia {
public:
    void Comienzo(const InicioVigilancia& inicio) override;
    void Suceso(const SucesoMonitor& s, const MomentoVigilancia& m) override;
    void Lectura(const MomentoVigilancia& m) override;
    void Fin() override;
    void Error(const std::string& texto) override;

private:
    void Guardar(Fecha hora);

    std::filesystem::path carpeta_;
    EstadoContador estado_;
    CambioEstado cambio_;
    Fecha ultimaHora_;
};

} // namespace vorimesk::cli
