// fornax-cli report and ditta as a user runs them: files written, exit statuses, messages.

#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

#include "tests/comune/EseguiComando.h"

using fornax::prova::CartellaProva;
using fornax::prova::EseguiComando;
using fornax::prova::Esito;

namespace {

struct CliRelazione : ::testing::Test {
    CartellaProva dir{"cli-relazione"};
    CartellaProva dati{"cli-relazione-dati"};
    CartellaProva config{"cli-relazione-config"};  // the user's settings of this test only

    void SetUp() override { dati.CopiaDa(FORNAX_BUILD_DATA_DIR); }

    // Runs fornax-cli with the given arguments (already quoted for the shell) on the copy of
    // the delivered program folder.
    Esito Esegui(const std::string& argomenti) {
        return EseguiComando("XDG_CONFIG_HOME='" + config.Percorso() + "' '" + FORNAX_CLI + "' --data '" +
                                 dati.Percorso() + "' " + argomenti,
                             dir.Percorso("stderr.txt"));
    }
    std::string Esempio(const std::string& nome) const {
        return "'" + std::string(FORNAX_SOURCE_DIR) + "/data/esempi/" + nome + "'";
    }
};

TEST_F(CliRelazione, DittaSiImpostaESiRilegge) {
    Esito e = Esegui("ditta 'Studio Termotecnico Rossi' 'Via Roma 1, Milano'");
    EXPECT_EQ(e.stato, 0) << e.errori;
    e = Esegui("ditta");
    EXPECT_EQ(e.stato, 0);
    EXPECT_EQ(e.uscita, "Studio Termotecnico Rossi\nVia Roma 1, Milano\n");
    EXPECT_NE(CartellaProva::LeggiFile(config.Percorso("Fornax/Fornax.ini")).find("[Ditta]"), std::string::npos);

    // At most 50 characters a line (accented letters count once); two lines or none.
    e = Esegui("ditta '" + std::string(50, 'x') + "' 'Città'");
    EXPECT_EQ(e.stato, 0) << e.errori;
    e = Esegui("ditta '" + std::string(51, 'x') + "' 'b'");
    EXPECT_EQ(e.stato, 2);
    EXPECT_NE(e.errori.find("la riga 1 supera i 50 caratteri"), std::string::npos) << e.errori;
    e = Esegui("ditta 'solo una'");
    EXPECT_EQ(e.stato, 2);
    EXPECT_EQ(Esegui("ditta").uscita, std::string(50, 'x') + "\nCittà\n");
}

TEST_F(CliRelazione, RelazioneHtmlETestoConDittaEData) {
    ASSERT_EQ(Esegui("ditta 'Impianti Bianchi' 'Via Po 2, Torino'").stato, 0);
    Esito e = Esegui("report " + Esempio("appartamento.RTG") + " --format html --out '" + dir.Percorso("r.html") +
                     "' --data-stampa 03/04/2026");
    EXPECT_EQ(e.stato, 0) << e.errori;
    EXPECT_EQ(e.uscita, "Stampa su file HTML conclusa con successo.\n");
    const std::string html = dir.LeggiByte("r.html");
    EXPECT_NE(html.find("<TD ALIGN='Left'>Impianti Bianchi<BR>Via Po 2, Torino</TD>\r\n"), std::string::npos);
    EXPECT_NE(html.find("<TD ALIGN='Left'>03/04/2026</TD>"), std::string::npos);
    EXPECT_NE(html.find("<TD ALIGN='Right'>appartamento</TD>"), std::string::npos);
    EXPECT_NE(html.find("Verifica di tenuta dell'impianto"), std::string::npos);  // default: all but the schema

    // Text, a chosen set of sections, today's date by default (not printed in a text file).
    e = Esegui("report " + Esempio("appartamento.RTG") + " --format txt --out '" + dir.Percorso("r.txt") +
               "' --sezioni BABBBBBB");
    EXPECT_EQ(e.stato, 0) << e.errori;
    const std::string txt = dir.LeggiByte("r.txt");
    EXPECT_EQ(txt.rfind("\r\nTabella dati tronchi\r\n\r\n", 0), 0u);
    EXPECT_EQ(txt.find("Perdite di carico"), std::string::npos);

    e = Esegui("report " + Esempio("appartamento.RTG") + " --format html --out '" + dir.Percorso("oggi.html") +
               "' --sezioni ABBBBBBB");
    EXPECT_EQ(e.stato, 0) << e.errori;
    char oggi[16];
    const std::time_t t = std::time(nullptr);
    std::strftime(oggi, sizeof oggi, "%d/%m/%Y", std::localtime(&t));
    EXPECT_NE(dir.LeggiByte("oggi.html").find(std::string("<TD ALIGN='Left'>") + oggi + "</TD>"), std::string::npos);
}

TEST_F(CliRelazione, UnFileEsistenteSiSostituisceSoloSeRichiesto) {
    dir.ScriviByte("r.txt", "vecchio");
    const std::string base =
        "report " + Esempio("rete-media-pressione.RTG") + " --format txt --out '" + dir.Percorso("r.txt") + "'";
    Esito e = Esegui(base);
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("Un file con lo stesso nome è gia presente nella cartella selezionata.\n"
                            "Si desidera sovrascriverlo?"),
              std::string::npos)
        << e.errori;
    EXPECT_EQ(dir.LeggiByte("r.txt"), "vecchio");
    e = Esegui(base + " --sovrascrivi");
    EXPECT_EQ(e.stato, 0) << e.errori;
    EXPECT_EQ(dir.LeggiByte("r.txt").rfind("Rete gas in pressione\r\n", 0), 0u);
}

TEST_F(CliRelazione, UsoErratoEsito2) {
    const std::string p = "report " + Esempio("appartamento.RTG");
    const std::string out = " --out '" + dir.Percorso("r.html") + "'";
    struct Caso {
        std::string argomenti;
        std::string messaggio;
    };
    const Caso casi[] = {
        {p + " --format rtf" + out, "--format richiede html, txt o pdf"},
        {p + " --format html", "--out FILE"},
        {p + " --format html" + out + " --sezioni AAB", "otto lettere"},
        {p + " --format html" + out + " --sezioni AAXAAAAA", "otto lettere"},
        {p + " --format html" + out + " --sezioni AAAAAAAA --adatta-schema", "--adatta-schema vale solo"},
        {p + " --format pdf" + out + " --adatta-schema", "--adatta-schema vale solo"},
        {p + " --format html" + out + " --sezioni BBBBBBBB", "Nessuna opzione selezionata.Selezionarne almeno una."},
        {p + " --format html" + out + " --data-stampa 2026-02-01", "gg/mm/aaaa"},
        {p + " --format html" + out + " --colori", "opzione sconosciuta --colori"},
        {"report --format html" + out, "manca il file del progetto"},
    };
    for (const Caso& c : casi) {
        const Esito e = Esegui(c.argomenti);
        EXPECT_EQ(e.stato, 2) << c.argomenti;
        EXPECT_NE(e.errori.find(c.messaggio), std::string::npos) << c.argomenti << "\n" << e.errori;
    }
    EXPECT_FALSE(std::ifstream(dir.Percorso("r.html")).good());
    EXPECT_NE(Esegui("--help").uscita.find("Lo schema grafico (A in terza posizione) e' un'immagine .bmp"),
              std::string::npos);
}

TEST_F(CliRelazione, ProgettoMancanteOFileNonScrivibileEsito1) {
    Esito e = Esegui("report '" + dir.Percorso("nessuno.RTG") + "' --format txt --out '" + dir.Percorso("r.txt") + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("Il file selezionato non esiste"), std::string::npos) << e.errori;

    e = Esegui("report " + Esempio("appartamento.RTG") + " --format html --out '" + dir.Percorso("manca/r.html") + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("Stampa su file HTML.\nErrore nell'apertura del file.\nCodice d'errore: 76\n"),
              std::string::npos)
        << e.errori;
}

}  // namespace
