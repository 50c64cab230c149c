#pragma once
// What the tests of fornax-cli that need a program folder of their own share: a copy of the
// delivered archives (a command may write into it), a private settings folder, and the command
// run as a user runs it. FORNAX_CLI, FORNAX_SOURCE_DIR and FORNAX_BUILD_DATA_DIR come from CMake.

#include <gtest/gtest.h>

#include <string>

#include "tests/comune/EseguiComando.h"

namespace fornax::prova {

struct BancoCli : ::testing::Test {
    CartellaProva dir;
    CartellaProva dati;
    CartellaProva config;

    explicit BancoCli(const std::string& nome) : dir(nome), dati(nome + "-dati"), config(nome + "-config") {}
    void SetUp() override { dati.CopiaDa(FORNAX_BUILD_DATA_DIR); }

    Esito Esegui(const std::string& argomenti) {
        return EseguiComando("XDG_CONFIG_HOME='" + config.Percorso() + "' '" + FORNAX_CLI + "' --data '" +
                                 dati.Percorso() + "' " + argomenti,
                             dir.Percorso("stderr.txt"));
    }
    Esito Shell(const std::string& comando) { return EseguiComando(comando, dir.Percorso("stderr-shell.txt")); }
    // A sample project's path, quoted for the shell.
    static std::string Esempio(const std::string& nome) {
        return "'" + std::string(FORNAX_SOURCE_DIR) + "/data/esempi/" + nome + "'";
    }
};

}  // namespace fornax::prova
