// fornax-cli tenuta as a script runs it: the record of each sample project and of the
// acceptance project with a meter test, as the page holds it once the project is open.

#include <gtest/gtest.h>

#include <string>

#include "tests/calc/JsonMinimo.h"
#include "tests/comune/CartellaProva.h"
#include "tests/comune/EseguiComando.h"

using fornax::prova::CartellaProva;
using fornax::prova::EseguiComando;
using fornax::prova::Esito;
using fornax::prova::Json;

namespace {

struct CliTenuta : ::testing::Test {
    CartellaProva programma{"cli-tenuta-programma"};
    CartellaProva lavori{"cli-tenuta-lavori"};
    void SetUp() override { programma.CopiaDa(FORNAX_BUILD_DATA_DIR); }

    Esito Esegui(const std::string& dati, const std::string& argomenti) {
        return EseguiComando(std::string("'") + FORNAX_CLI + "' --data '" + dati + "' tenuta " + argomenti,
                             lavori.Percorso("errori.txt"));
    }
    // The JSON of a project; fails the test when the command fails.
    Json Tenuta(const std::string& dati, const std::string& progetto) {
        const std::string json = lavori.Percorso("tenuta.json");
        const Esito e = Esegui(dati, "'" + progetto + "' --json '" + json + "'");
        EXPECT_EQ(e.stato, 0) << e.errori;
        return fornax::prova::LeggiJson(CartellaProva::LeggiFile(json));
    }
    static std::string Esempio(const std::string& nome) {
        return std::string(FORNAX_SOURCE_DIR) + "/data/esempi/" + nome;
    }
};

std::string Campo(const Json& j, int n) { return j["campi"].elenco.at(static_cast<size_t>(n - 1)).testo; }

}  // namespace

TEST_F(CliTenuta, ProvaConIlContatore) {
    const std::string acc = std::string(FORNAX_ACCETTAZIONE_DIR);
    const Json j = Tenuta(acc + "/archives", acc + "/projects/i25_leaktest_meter_ok.RTG");
    EXPECT_EQ(j["EsitoProva"].Intero(), 1);  // the file holds 3: the rules judge it suitable
    EXPECT_EQ(j["FamigliaGas"].Intero(), 2);
    ASSERT_EQ(j["campi"].elenco.size(), 52u);
    EXPECT_EQ(Campo(j, 1), "Impianti Rossi s.r.l.");
    EXPECT_EQ(Campo(j, 4), "Mario Rossi");
    EXPECT_EQ(Campo(j, 18), "2");
    EXPECT_EQ(Campo(j, 19), "");  // the pipes' capacity recorded, as opening keeps it
    EXPECT_EQ(Campo(j, 20), "2,5");
    EXPECT_EQ(Campo(j, 21), "2.5");
    EXPECT_EQ(Campo(j, 22), "12/03/2024");
    EXPECT_EQ(Campo(j, 24), "1;;3;;;;");
    EXPECT_EQ(Campo(j, 33), "1");
    EXPECT_EQ(Campo(j, 38), "0,6");
    EXPECT_EQ(Campo(j, 41), "2200");
    EXPECT_EQ(Campo(j, 42), "0.8");
    EXPECT_EQ(Campo(j, 48), "");
    EXPECT_EQ(Campo(j, 51), "1");
    EXPECT_EQ(j["descrizione"].testo, "Verifica di tenuta dell'impianto in base alla normativa UNI 11137-1");
    EXPECT_TRUE(j["errori"].elenco.empty());
    EXPECT_TRUE(j["metodoCdpDisponibile"].booleano);
    EXPECT_TRUE(j["paginaAbilitata"].booleano);

    // The listing says the same.
    const Esito e = Esegui(acc + "/archives", "'" + acc + "/projects/i25_leaktest_meter_ok.RTG'");
    ASSERT_EQ(e.stato, 0);
    EXPECT_NE(e.uscita.find(" 1 txtTenutaImpiantoRagSociale: Impianti Rossi s.r.l.\n"), std::string::npos);
    EXPECT_NE(e.uscita.find("42 txtTenutaImpiantoProvaContDispRif: 0.8\n"), std::string::npos);
    EXPECT_NE(e.uscita.find("\nEsito: 1 Tenuta idonea al funzionamento\n"), std::string::npos);
}

TEST_F(CliTenuta, GliEsempiConsegnati) {
    // The delivered firm's defaults are empty: no record is given a firm that isn't the user's.
    const Json metano = Tenuta(programma.Percorso(), Esempio("appartamento.RTG"));
    EXPECT_EQ(Campo(metano, 1), "");
    EXPECT_EQ(Campo(metano, 4), "");
    EXPECT_EQ(metano["FamigliaGas"].Intero(), 2);
    EXPECT_EQ(metano["EsitoProva"].Intero(), 3);  // no method, no device
    EXPECT_TRUE(metano["paginaAbilitata"].booleano);
    EXPECT_TRUE(metano["errori"].elenco.empty());

    const Json gpl = Tenuta(programma.Percorso(), Esempio("bifamiliare-gpl.RTG"));
    EXPECT_EQ(gpl["FamigliaGas"].Intero(), 3);
    EXPECT_EQ(gpl["EsitoProva"].Intero(), 0);  // as the record holds it
    EXPECT_FALSE(gpl["paginaAbilitata"].booleano);
    EXPECT_EQ(gpl["descrizione"].testo,
              "III Famiglia: Norma in corso di elaborazione alla data di aggiornamento del software");

    const Json rete = Tenuta(programma.Percorso(), Esempio("rete-media-pressione.RTG"));
    EXPECT_FALSE(rete["paginaAbilitata"].booleano);
    EXPECT_EQ(rete["descrizione"].testo, "Rete gas in pressione: verifica non disponibile");
    EXPECT_EQ(rete["FamigliaGas"].Intero(), 0);

    // A firm of the program's folder fills an empty one.
    programma.Scrivi("TENIMPTECDEF.CFG", "4.0\nImpianti Verdi snc\nVia Po 3, Torino\n011 555 0101\nMario Verdi\n");
    const Json ditta = Tenuta(programma.Percorso(), Esempio("appartamento.RTG"));
    EXPECT_EQ(Campo(ditta, 1), "Impianti Verdi snc");
    EXPECT_EQ(Campo(ditta, 4), "Mario Verdi");
}

TEST_F(CliTenuta, UsoErrato) {
    EXPECT_EQ(Esegui(programma.Percorso(), "").stato, 2);
    const Esito senzaFile = Esegui(programma.Percorso(), "'" + Esempio("appartamento.RTG") + "' --json");
    EXPECT_EQ(senzaFile.stato, 2);
    EXPECT_NE(senzaFile.errori.find("uso: tenuta PROGETTO.RTG [--json USCITA.json]"), std::string::npos);
    const Esito manca = Esegui(programma.Percorso(), "'" + lavori.Percorso("manca.RTG") + "'");
    EXPECT_EQ(manca.stato, 1);
    EXPECT_NE(manca.errori.find("Il file selezionato non esiste"), std::string::npos);
    const Esito nonScrive = Esegui(
        programma.Percorso(), "'" + Esempio("appartamento.RTG") + "' --json '" + lavori.Percorso("no/x.json") + "'");
    EXPECT_EQ(nonScrive.stato, 1);
    EXPECT_NE(nonScrive.errori.find("impossibile scrivere"), std::string::npos);
}
