#include "platform/OrdenSistema.h"

#include <cerrno>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace vorimesk {

int EjecutarEnSistema(const std::vector<std::string>& argv) {
    if (argv.empty()) {
        return -1;
    }
    std::vector<char*> args;
    for (const auto& a : argv) {
        args.push_back(const_cast<char*>(a.c_str()));
    }
    args.push_back(nullptr);
    pid_t pid = 0;
    if (::posix_spawnp(&pid, args[0], nullptr, nullptr, args.data(), environ) != 0) {
        return -1;
    }
    // pon and poff hand the link to pppd and return at once.
    int estado = 0;
    while (::waitpid(pid, &estado, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}

} // namespace vorimesk
