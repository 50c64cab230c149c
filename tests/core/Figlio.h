#pragma once
// Runs part of a test in a child process: for faults that end a process (a file size limit, a
// kill) and for what only an ordinary user meets (root writes into any folder).
#include <grp.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace fornax::prova {

constexpr uid_t NOBODY = 65534;
constexpr uid_t STESSO_UTENTE = static_cast<uid_t>(-1);

// The user a permission test runs as: nobody when the tests run as root, else the same user.
inline uid_t UtenteComune() { return ::geteuid() == 0 ? NOBODY : STESSO_UTENTE; }

// The child's exit status, or 1000 plus the signal that ended it (90: the user could not be taken).
inline int InFiglio(const std::function<int()>& corpo, uid_t utente = STESSO_UTENTE) {
    const pid_t pid = ::fork();
    if (pid == 0) {
        if (utente != STESSO_UTENTE) {
            if (::setgroups(0, nullptr) != 0 || ::setgid(utente) != 0 || ::setuid(utente) != 0) ::_exit(90);
        }
        ::_exit(corpo());
    }
    int stato = 0;
    ::waitpid(pid, &stato, 0);
    return WIFSIGNALED(stato) ? 1000 + WTERMSIG(stato) : WEXITSTATUS(stato);
}

}  // namespace fornax::prova
