#include "SenalesTerminar.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace vorimesk {
namespace {

int extremos[2] = {-1, -1};
constexpr int kSenales[] = {SIGTERM, SIGHUP, SIGINT};

extern "C" void AlRecibir(int senal) {
    const unsigned char byte = static_cast<unsigned char>(senal);
    [[maybe_unused]] const auto escrito = ::write(extremos[0], &byte, 1);
}

} // namespace

SenalesTerminar::SenalesTerminar(QObject* padre) : QObject(padre) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, extremos) != 0) {
        return;
    }
    notificador_ = new QSocketNotifier(extremos[1], QSocketNotifier::Read, this);
    connect(notificador_, &QSocketNotifier::activated, this, &SenalesTerminar::Leer);
    struct sigaction accion {};
    accion.sa_handler = AlRecibir;
    sigemptyset(&accion.sa_mask);
    accion.sa_flags = SA_RESTART;
    for (int senal : kSenales) {
        ::sigaction(senal, &accion, nullptr);
    }
}

SenalesTerminar::~SenalesTerminar() {
    if (notificador_ == nullptr) {
        return;
    }
    for (int senal : kSenales) {
        std::signal(senal, SIG_DFL);
    }
    ::close(extremos[0]);
    ::close(extremos[1]);
    extremos[0] = extremos[1] = -1;
}

void SenalesTerminar::Leer() {
    unsigned char byte = 0;
    if (::read(extremos[1], &byte, 1) == 1) {
        emit Terminar(byte);
    }
}

} // namespace vorimesk
