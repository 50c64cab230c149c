#pragma once
// Runs a shell command as a user would run fornax-cli: what it printed, where its messages
// went, and its exit status.

#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "tests/comune/CartellaProva.h"

namespace fornax::prova {

struct Esito {
    int stato = -1;
    std::string uscita;  // standard output
    std::string errori;  // standard error
};

// `comando` is already quoted for the shell; standard error is collected through `fileErrori`.
inline Esito EseguiComando(const std::string& comando, const std::string& fileErrori) {
    Esito e;
    FILE* p = popen((comando + " 2>'" + fileErrori + "'").c_str(), "r");
    if (p == nullptr) return e;
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, p)) > 0) e.uscita.append(buf, n);
    const int s = pclose(p);
    e.stato = WIFEXITED(s) ? WEXITSTATUS(s) : -1;
    e.errori = CartellaProva::LeggiFile(fileErrori);
    return e;
}

}  // namespace fornax::prova
