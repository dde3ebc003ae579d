#include "FuenteConexionesNM.h"

#include <algorithm>

namespace vorimesk {
namespace {

// The counters refresh once a second while a call is up, like the tick.
constexpr std::uint32_t kRefrescoMs = 1000;

bool Viva(const ActivaNM& a) {
    return a.estado == ClienteNM::kActivando || a.estado == ClienteNM::kActivada;
}

} // namespace

FuenteConexionesNM::FuenteConexionesNM(std::shared_ptr<ClienteNM> cliente,
                                       std::filesystem::path sys)
    : cliente_(std::move(cliente)), sys_(std::move(sys)) {}

// The only thing left to tell while NetworkManager is away.
bool FuenteConexionesNM::InterfazPerdida() const {
    std::error_code ec;
    return !vigilada_->interfaz.empty() &&
           !std::filesystem::exists(sys_ / "class" / "net" / vigilada_->interfaz, ec);
}

LecturaConexion FuenteConexionesNM::Fijar(int count, int estado, const std::string& entrada,
                                          const std::string& interfaz,
                                          std::optional<Trafico> bytes) {
    count_ = count;
    LecturaConexion l = Lectura(count, estado, entrada, bytes);
    l.Interfaz = interfaz;
    return l;
}

LecturaConexion FuenteConexionesNM::FinDeLlamada(int count) {
    cliente_->Refresco(vigilada_->dispositivo, 0);
    ultima_ = *vigilada_;
    vigilada_.reset();
    trasLlamada_ = true;
    return Fijar(count, LecturaConexion::kDesconectado, ultima_.id, ultima_.interfaz,
                 ultima_.bytes);
}

// Finds the watched call among the links and puts it first. The same
// active object is the same link; after a restart of NetworkManager the
// objects are new, and the connection's uuid tells it again.
bool FuenteConexionesNM::SigueArriba(std::vector<ActivaNM>& enlaces) {
    const bool reiniciado = cliente_->Reinicios() != vigilada_->reinicios;
    const auto sigue = std::find_if(enlaces.begin(), enlaces.end(), [&](const ActivaNM& a) {
        return a.estado == ClienteNM::kActivada && a.uuid == vigilada_->uuid &&
               (a.ruta == vigilada_->ruta || reiniciado);
    });
    if (sigue == enlaces.end()) {
        return false;
    }
    std::rotate(enlaces.begin(), sigue, sigue + 1);
    return true;
}

void FuenteConexionesNM::Vigilar(const ActivaNM& a) {
    if (!vigilada_ || vigilada_->dispositivo != a.dispositivo) {
        cliente_->Refresco(a.dispositivo, kRefrescoMs);
    }
    if (!vigilada_) {
        vigilada_.emplace(); // a new call: nothing of the last one carries over
    }
    vigilada_->ruta = a.ruta;
    vigilada_->uuid = a.uuid;
    vigilada_->id = a.id;
    vigilada_->dispositivo = a.dispositivo;
    if (!a.interfaz.empty()) {
        vigilada_->interfaz = a.interfaz;
    }
    if (a.bytes) {
        vigilada_->bytes = a.bytes;
    }
    vigilada_->reinicios = cliente_->Reinicios();
}

LecturaConexion FuenteConexionesNM::Leer() {
    LecturaConexion l = Mirar();
    l.Aviso = cliente_->Aviso();
    l.ConDiario = false;
    return l;
}

LecturaConexion FuenteConexionesNM::Mirar() {
    cliente_->Bombear();
    if (vigilada_ && (!cliente_->Presente() || cliente_->Iniciando())) {
        if (InterfazPerdida()) {
            return FinDeLlamada(0);
        }
        // Nothing more can be told until NetworkManager is back: the call goes on.
        return Fijar(std::max(count_, 1), LecturaConexion::kConectado, vigilada_->id,
                     vigilada_->interfaz, vigilada_->bytes);
    }
    std::vector<ActivaNM> enlaces;
    std::copy_if(cliente_->Activas().begin(), cliente_->Activas().end(),
                 std::back_inserter(enlaces), Viva);
    const int count = static_cast<int>(enlaces.size());
    if (vigilada_ && !SigueArriba(enlaces)) {
        return FinDeLlamada(count);
    }
    if (enlaces.empty()) {
        return trasLlamada_ ? Fijar(0, LecturaConexion::kDesconectado, ultima_.id, ultima_.interfaz,
                                    ultima_.bytes)
                            : Fijar(0, LecturaConexion::kNada, {}, {}, std::nullopt);
    }
    trasLlamada_ = false;
    const ActivaNM& primero = enlaces.front();
    if (primero.estado != ClienteNM::kActivada) {
        return Fijar(count, LecturaConexion::kConectando, primero.id, primero.interfaz,
                     std::nullopt);
    }
    Vigilar(primero);
    return Fijar(count, LecturaConexion::kConectado, vigilada_->id, vigilada_->interfaz,
                 vigilada_->bytes);
}

} // namespace vorimesk
