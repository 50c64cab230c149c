#include <gtest/gtest.h>

#include <string>

#include "tests/comune/EseguiComando.h"

using fornax::prova::CartellaProva;
using fornax::prova::EseguiComando;
using fornax::prova::Esito;

namespace {

// Runs fornax-cli with the given arguments (already quoted for the shell).
Esito Esegui(const CartellaProva& dir, const std::string& argomenti) {
    return EseguiComando(std::string("'") + FORNAX_CLI + "' " + argomenti, dir.Percorso("stderr.txt"));
}

struct Cli : ::testing::Test {
    CartellaProva dir{"cli"};
    CartellaProva dati{"cli-dati"};
    std::string data;
    void SetUp() override {
        dati.CopiaDa(FORNAX_BUILD_DATA_DIR);
        data = "--data '" + dati.Percorso() + "' ";
    }
};

const std::string TESTA =
    "FX 5.1.0\n!PARAMETERS\nCasa\n.\nMETANO\n 100 \n 0 \n 15 \n 200 \n 150 \n 0 \n 2 \n\n~PARAMETERS\n[\n0\n";

}  // namespace

TEST_F(Cli, InfoStampaParametriETronchi) {
    dir.Scrivi("casa.RTG", TESTA + "1\t0\t0\t4,5\t2\t0\t0\t0\t.\t0\t0\t0\t0\t0\t0\t0\t0\tACCIAIOM\n]\n");
    const Esito e = Esegui(dir, data + "info '" + dir.Percorso("casa.RTG") + "'");
    EXPECT_EQ(e.stato, 0) << e.errori;
    EXPECT_EQ(e.errori, "");
    EXPECT_NE(e.uscita.find("Impianto interno gas"), std::string::npos);
    EXPECT_NE(e.uscita.find("UNI 7129 (2008)"), std::string::npos);
    EXPECT_NE(e.uscita.find("METANO"), std::string::npos);
    EXPECT_NE(e.uscita.find("4.50 ACCIAIOM"), std::string::npos) << e.uscita;
}

TEST_F(Cli, MaterialeSconosciutoFermaIlComandoSenzaRisposta) {
    dir.Scrivi("ferro.RTG", TESTA + "1\t0\t0\t4\t2\t0\t0\t0\t.\t0\t0\t0\t0\t0\t0\t0\t0\tFERRO\n]\n");
    const Esito e = Esegui(dir, data + "info '" + dir.Percorso("ferro.RTG") + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("La seguente tabella non esiste in archivio: FERRO"), std::string::npos) << e.errori;
    EXPECT_EQ(e.uscita, "");

    const Esito s = Esegui(dir, data + "save '" + dir.Percorso("ferro.RTG") + "' '" + dir.Percorso("out.RTG") +
                                    "' --sostituisci ferro=ACCIAIOM");
    EXPECT_EQ(s.stato, 0) << s.errori;
    const std::string scritto = dir.LeggiByte("out.RTG");
    EXPECT_NE(scritto.find("\tACCIAIOM\t"), std::string::npos);
    EXPECT_EQ(scritto.find("FERRO"), std::string::npos);

    // Saved again, the file doesn't change.
    const Esito t = Esegui(dir, data + "save '" + dir.Percorso("out.RTG") + "' '" + dir.Percorso("out2.RTG") + "'");
    EXPECT_EQ(t.stato, 0) << t.errori;
    EXPECT_EQ(dir.LeggiByte("out2.RTG"), scritto);
}

TEST_F(Cli, ErroriDUsoEFileNonValidi) {
    EXPECT_EQ(Esegui(dir, data + "info").stato, 2);
    EXPECT_EQ(Esegui(dir, "comando-che-non-c-e").stato, 2);
    EXPECT_EQ(Esegui(dir, data + "save '" + dir.Percorso("x.RTG") + "'").stato, 2);
    EXPECT_EQ(Esegui(dir, data + "info x.RTG --sostituisci SENZAUGUALE").stato, 2);
    const Esito v = Esegui(dir, "--version");
    EXPECT_EQ(v.stato, 0);
    EXPECT_EQ(v.uscita, "Fornax 5.1.0\n");
    EXPECT_EQ(Esegui(dir, "--help").stato, 0);

    dir.Scrivi("lista.RTG", "pane\nlatte\n");
    const Esito e = Esegui(dir, data + "info '" + dir.Percorso("lista.RTG") + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_EQ(e.errori, "Archivio non riconosciuto!\n");
    const Esito m = Esegui(dir, data + "info '" + dir.Percorso("manca.RTG") + "'");
    EXPECT_EQ(m.stato, 1);
    EXPECT_EQ(m.errori, "Il file selezionato non esiste\n");

    // A write that fails leaves the previous file as it was.
    dir.Scrivi("casa.RTG", TESTA + "]\n");
    const Esito s =
        Esegui(dir, data + "save '" + dir.Percorso("casa.RTG") + "' '" + dir.Percorso("manca/out.RTG") + "'");
    EXPECT_EQ(s.stato, 1);
    EXPECT_NE(s.errori.find("Impossibile scrivere il file"), std::string::npos);
}
