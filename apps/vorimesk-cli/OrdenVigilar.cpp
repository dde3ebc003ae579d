// vigilar: the headless meter. Watches the dial-up link (or plays a scripted
// modem), prices the call live once a second of meter time and puts each
// finished call in the register, saved at once with the ledger and the
// pending list. Ctrl-C, SIGTERM or SIGHUP stop it cleanly, saving the register
// and the settings.

#include "ArgumentosCli.h"
#include "ObservadoresVigilar.h"
#include "Ordenes.h"
#include "Vigilancia.h"
#include "platform/Plataforma.h"

#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <thread>
#include <unistd.h>

namespace vorimesk::cli {
namespace {

volatile std::sig_atomic_t parar = 0;

extern "C" void AlParar(int) {
    parar = 1;
}

// Handles SIGINT, SIGTERM and SIGHUP (the terminal closed) while alive and
// puts the old handlers back: each stops the meter, which saves and exits 0.
class SeñalesDeParada {
public:
    SeñalesDeParada() {
        parar = 0;
        struct sigaction sa = {};
        sa.sa_handler = AlParar;
        sigemptyset(&sa.sa_mask);
        sigaction(SIGINT, &sa, &antesInt_);
        sigaction(SIGTERM, &sa, &antesTerm_);
        sigaction(SIGHUP, &sa, &antesHup_);
    }
    ~SeñalesDeParada() {
        sigaction(SIGINT, &antesInt_, nullptr);
        sigaction(SIGTERM, &antesTerm_, nullptr);
        sigaction(SIGHUP, &antesHup_, nullptr);
    }
    SeñalesDeParada(const SeñalesDeParada&) = delete;
    SeñalesDeParada& operator=(const SeñalesDeParada&) = delete;

private:
    struct sigaction antesInt_ = {};
    struct sigaction antesTerm_ = {};
    struct sigaction antesHup_ = {};
};

using Instante = std::chrono::steady_clock::time_point;

// Sleeps in short slices so a stop request is answered at once.
void EsperarHasta(Instante hasta) {
    while (!parar) {
        const auto falta = hasta - std::chrono::steady_clock::now();
        if (falta <= std::chrono::steady_clock::duration::zero()) {
            return;
        }
        std::this_thread::sleep_for(
            std::min<std::chrono::steady_clock::duration>(falta, std::chrono::milliseconds(50)));
    }
}

void Vigilar(Vigilancia& v, const OpcionesVigilar& o) {
    const auto paso = std::chrono::microseconds(1'000'000 / o.velocidad);
    const Instante comienzo = std::chrono::steady_clock::now();
    for (long segundo = 0; !parar; ++segundo) {
        if (segundo > 0 && v.Simulada()) {
            v.Avanzar();
        }
        v.Paso();
        if (o.segundos && segundo >= *o.segundos) {
            return;
        }
        EsperarHasta(comienzo + paso * (segundo + 1));
    }
}

int Ejecutar(ContextoCli& contexto, const OpcionesVigilar& o, std::ostream& salida,
             std::ostream& errores) {
    const bool terminal = &salida == &std::cout && ::isatty(STDOUT_FILENO);
    const std::unique_ptr<Observadores> observadores =
        CrearObservadores(o, salida, errores, terminal);
    // From before the lock is taken: whoever finds the folder taken may ask
    // this meter to stop as soon as its pid is in the lock file.
    SeñalesDeParada señales;
    Vigilancia v(contexto.Carpeta(), o, *observadores);
    if (!v.Adquirir()) {
        throw ErrorOrden("Vorimesk ya esta vigilando las conexiones de esta carpeta de datos en "
                         "otro programa; solo puede haber uno por carpeta.");
    }
    v.Iniciar();
    try {
        Vigilar(v, o);
    } catch (const std::exception& e) {
        observadores->Error(e.what());
        v.Guardar(); // what the meter took so far is kept
        throw;
    }
    v.Guardar();
    observadores->Fin();
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenVigilar(AplicacionCli& aplicacion) {
    auto o = std::make_shared<OpcionesVigilar>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden = aplicacion.Orden(
        "vigilar", "Contador en vivo: vigila las conexiones y anota las llamadas en el registro",
        [o, &contexto](std::ostream& salida, std::ostream& errores) {
            return Ejecutar(contexto, *o, salida, errores);
        });
    CLI::Option* simular =
        orden->add_option("--simular", o->guion, "Usa un modem simulado que sigue este guion")
            ->type_name("GUION");
    orden
        ->add_option("--velocidad", o->velocidad,
                     "Con --simular, el tiempo corre N veces mas deprisa")
        ->type_name("N")
        ->check(EnteroEntre(1, 100000))
        ->needs(simular);
    orden
        ->add_option("--inicio", o->inicio,
                     "Con --simular, el momento en que empieza el guion (AAAA-MM-DD hh:mm:ss)")
        ->type_name("FECHA")
        ->check(FechaHoraValida())
        ->needs(simular);
    orden->add_flag("--json", o->json, "Escribe cada suceso como una linea JSON");
    orden->add_option("--segundos", o->segundos, "Termina tras S segundos de contador")
        ->type_name("S")
        ->check(EnteroEntre(0, 100000000));
    // Asked only when the help is shown: it looks for NetworkManager on the bus.
    orden->footer([] { return OrigenConexiones(OpcionesPlataforma{}) + "."; });
}

} // namespace vorimesk::cli
