#pragma once
// `vigilar --json`: one JSON object per line for each event, nothing per
// tick, so a script can follow calls and alerts with a line reader (jq, ...).
// The fields are a contract, listed in the manual page; every object has
// "suceso" (its kind) and "hora" (the meter's clock, "AAAA-MM-DD hh:mm:ss").

#include "meter/ObservadorContador.h"

#include <iosfwd>
#include <nlohmann/json.hpp>

namespace vorimesk::cli {

class SalidaJson final : public ObservadorContador {
public:
    explicit SalidaJson(std::ostream& salida);

    void Comienzo(const InicioContador& inicio) override;
    void Suceso(const SucesoMonitor& s, const MomentoContador& m) override;
    void Lectura(const MomentoContador& m) override;
    void Error(const std::string& texto) override;
    void Fin() override;

private:
    void Escribir(const char* suceso, Fecha hora, nlohmann::json campos = nlohmann::json::object());

    std::ostream& salida_;
    CambioEstado cambio_;
    Fecha ultimaHora_;
};

} // namespace vorimesk::cli
