// The working session: a project opened, saved, calculated and printed through it, and the
// promises a user relies on: a refused file leaves the open work alone, a failed save changes
// nothing, a calculation or a report doesn't mark the project as modified.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>

#include "core/ServiziProva.h"
#include "core/Testo.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;
using fornax::prova::CartellaProva;

namespace {

std::string Esempio(const std::string& nome) { return std::string(FORNAX_SOURCE_DIR) + "/data/esempi/" + nome; }

// A copy of the delivered program folder (saving writes the firm's leak-test defaults there)
// and a session on it.
struct Banco : ::testing::Test {
    CartellaProva programma{"sessione-programma"};
    CartellaProva lavori{"sessione-lavori"};
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>(*a, imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;

    void SetUp() override {
        programma.CopiaDa(FORNAX_BUILD_DATA_DIR);
        ASSERT_TRUE(CaricaArchivi(*s, programma.Percorso(), av, msg));
        s->mru.Setup("MRUFileList", 4);
        msg.mostrati.clear();
    }
    // The document as it would be written now: the bytes of a save into a scratch file.
    std::string Fotografia(const std::string& nome) {
        const Documento prima = s->d;
        const StatoPaginaTenuta pagina = s->PaginaTenuta;
        EXPECT_TRUE(SalvaProgetto(*s, lavori.Percorso(nome), msg));
        s->d = prima;
        s->PaginaTenuta = pagina;
        return lavori.LeggiByte(nome);
    }
};

}  // namespace

TEST_F(Banco, UnFileRifiutatoLasciaIlLavoroApertoComEra) {
    ASSERT_TRUE(ApriProgetto(*s, Esempio("appartamento.RTG"), msg, av));
    Ricalcola(*s, msg);
    s->d.Riferimento = "Lavoro in corso";
    s->d.ReteModificata = VERO;
    const std::string nome = s->d.NomeFileProgetto;
    const std::string prima = Fotografia("prima.RTG");
    const int16_t tronchi = s->d.NumTronchi();

    const std::string buono = CartellaProva::LeggiFile(Esempio("bifamiliare-gpl.RTG"));
    // The gas is the seventh line: signature, two comments, the mark, reference, description.
    size_t gas = 0;
    for (int riga = 1; riga < 7; ++riga) gas = buono.find('\n', gas) + 1;
    ASSERT_EQ(buono.substr(gas, 3), "GPL");
    struct Caso {
        const char* nome;
        std::string testo;
        const char* messaggio;
    } casi[] = {
        {"gas sconosciuto senza sostituto",
         buono.substr(0, gas) + "GAS DI PALUDE" + buono.substr(buono.find('\r', gas)),
         "Il progetto non puo' essere aperto senza un gas in sostituzione di GAS DI PALUDE."},
        {"versione maggiore piu' recente", "FX 6.0.0" + buono.substr(buono.find('\r')),
         "Impossibile aprire il file.\r\nIl file è stato creato con la versione 6 di Fornax"},
        {"file non riconosciuto", "RETE\r\n" + buono, "Archivio non riconosciuto!"},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        lavori.ScriviByte("rifiutato.RTG", c.testo);
        msg.mostrati.clear();
        msg.scelte.clear();  // no substitute chosen
        EXPECT_FALSE(ApriProgetto(*s, lavori.Percorso("rifiutato.RTG"), msg, av));
        ASSERT_FALSE(msg.mostrati.empty());
        EXPECT_EQ(msg.Testi().back(), c.messaggio);
        EXPECT_EQ(s->d.NomeFileProgetto, nome);
        EXPECT_EQ(s->d.Riferimento, "Lavoro in corso");
        EXPECT_EQ(s->d.ReteModificata, VERO);
        EXPECT_EQ(s->d.NumTronchi(), tronchi);
        EXPECT_EQ(Fotografia("dopo.RTG"), prima);
    }
    // A file that isn't there.
    EXPECT_FALSE(ApriFile(*s, lavori.Percorso("manca.RTG"), msg, av));
    EXPECT_EQ(msg.Testi().back(), "Il file selezionato non esiste");
    EXPECT_EQ(Fotografia("dopo.RTG"), prima);
}

TEST_F(Banco, UnSalvataggioFallitoNonCambiaNeLaMemoriaNeIlFileDiPrima) {
    ASSERT_TRUE(ApriProgetto(*s, Esempio("appartamento.RTG"), msg, av));
    Ricalcola(*s, msg);
    // A derivation past the last section: saving repairs it, but only in what it wrote.
    const int ultimo = s->d.NumTronchi();
    ASSERT_EQ(s->d.T(ultimo).ID_LEFT, 0);
    s->d.T(ultimo).ID_LEFT = static_cast<int16_t>(ultimo + 1);
    // A page never filled (as in a new project) is filled by the save: the firm's defaults
    // into the empty firm.
    programma.Scrivi("TENIMPTECDEF.CFG", "4.0\nImpianti Verdi snc\nVia Po 3, Torino\n011 555 0101\nMario Verdi\n");
    s->PaginaTenuta = StatoPaginaTenuta{};
    s->d.Tenuta.RagSociale.clear();
    const VerificaTenuta tenuta = s->d.Tenuta;

    CartellaProva chiusa{"sessione-sola-lettura"};
    chiusa.ScriviByte("vecchio.RTG", "il lavoro di ieri");
    ::chmod(chiusa.Percorso().c_str(), 0555);
    const bool protetta = ::access(chiusa.Percorso().c_str(), W_OK) != 0;  // not for the superuser
    for (const std::string& dove : {lavori.Percorso("manca/nuovo.RTG"), chiusa.Percorso("vecchio.RTG")}) {
        if (dove == chiusa.Percorso("vecchio.RTG") && !protetta) continue;
        SCOPED_TRACE(dove);
        msg.mostrati.clear();
        EXPECT_FALSE(SalvaProgetto(*s, dove, msg));
        EXPECT_FALSE(msg.mostrati.empty());  // the product's message about the write
        EXPECT_EQ(s->d.T(ultimo).ID_LEFT, ultimo + 1);
        EXPECT_EQ(s->d.Tenuta.RagSociale, "");
        EXPECT_EQ(s->d.Tenuta.EsitoProva, tenuta.EsitoProva);
        EXPECT_FALSE(s->PaginaTenuta.inizializzata);
    }
    ::chmod(chiusa.Percorso().c_str(), 0755);
    EXPECT_EQ(chiusa.LeggiByte("vecchio.RTG"), "il lavoro di ieri");

    // A save that succeeds brings the repairs and the filled page into memory.
    ASSERT_TRUE(SalvaProgetto(*s, lavori.Percorso("riuscito.RTG"), msg));
    EXPECT_EQ(s->d.T(ultimo).ID_LEFT, 0);
    EXPECT_EQ(s->d.Tenuta.RagSociale, "Impianti Verdi snc");
    EXPECT_TRUE(s->PaginaTenuta.inizializzata);
    EXPECT_NE(lavori.LeggiByte("riuscito.RTG").find("Mario Verdi"), std::string::npos);
}

TEST_F(Banco, CalcoloERelazioneNonSegnanoIlProgettoComeModificato) {
    ASSERT_TRUE(ApriProgetto(*s, Esempio("appartamento.RTG"), msg, av));
    EXPECT_EQ(s->d.ReteModificata, FALSO);
    Ricalcola(*s, msg);
    EXPECT_EQ(s->d.ReteModificata, FALSO);
    EXPECT_LT(0.0f, s->d.T(1).ID_PDC_PERCORSO);

    OpzioniStampa o;
    o.selezione = ReportSelection::DaLettere("AABAAAAA");
    o.DataStampa = "01/02/2026";
    const EsitoStampa e = RelazioneSuFile(*s, false, o, lavori.Percorso("relazione.txt"), av, msg);
    EXPECT_TRUE(e.riuscita) << e.descrizione;
    EXPECT_FALSE(lavori.LeggiByte("relazione.txt").empty());
    EXPECT_EQ(s->d.ReteModificata, FALSO);
    // Closing asks nothing.
    msg.mostrati.clear();
    EXPECT_TRUE(ChiediSalvataggio(*s, msg, nullptr));
    EXPECT_TRUE(msg.mostrati.empty());

    // An edit still marks it.
    ASSERT_TRUE(ApriProgetto(*s, Esempio("appartamento.RTG"), msg, av));
    ScollegaTronco(s->d, 3);
    EXPECT_EQ(s->d.ReteModificata, VERO);
}

TEST_F(Banco, OgniProgettoPortaLeSueTabelleEGliArchiviRestanoComeCaricati) {
    const std::vector<std::string> materiali = a->NomiMateriali();
    const std::vector<std::string> gas = a->NomiGas();
    // The start-up tables: built-in fittings, 2008 limits.
    EXPECT_EQ(s->d.Pdc.NomeFilePdc, "PDCMAX_2008.CFG");
    EXPECT_EQ(s->d.Speciali[1].Nome, "CURVA");

    ASSERT_TRUE(ApriProgetto(*s, Esempio("rete-media-pressione.RTG"), msg, av));
    const TabellaSpeciali pressione = s->d.Speciali;
    Ricalcola(*s, msg);
    // A refused file keeps the open project's tables.
    lavori.ScriviByte("futuro.RTG", "FX 9.0.0\r\n");
    EXPECT_FALSE(ApriProgetto(*s, lavori.Percorso("futuro.RTG"), msg, av));
    for (size_t k = 1; k <= 10; ++k) EXPECT_EQ(s->d.Speciali[k].Nome, pressione[k].Nome);

    // A new internal installation goes back to the built-in table.
    ASSERT_TRUE(NuovoProgetto(*s, false, msg));
    EXPECT_EQ(s->d.Speciali[1].Nome, "CURVA");
    EXPECT_EQ(s->d.ReteInPressione, FALSO);
    EXPECT_EQ(s->d.NumTronchi(), 0);
    EXPECT_EQ(a->NomiMateriali(), materiali);
    EXPECT_EQ(a->NomiGas(), gas);
}

TEST_F(Banco, IlLivelloDiZoomResta) {
    struct {
        int chiesto, atteso;
    } casi[] = {{0, 0}, {5, 5}, {6, 5}, {7, 5}, {-12, -12}, {-13, -12}, {3, 3}};
    for (const auto& c : casi) {
        EXPECT_EQ(ImpostaZoom(*s, c.chiesto), c.atteso) << c.chiesto;
        EXPECT_EQ(s->Zoom, c.atteso);
    }
    // A project opened starts from the level a new window shows.
    ASSERT_TRUE(ApriProgetto(*s, Esempio("appartamento.RTG"), msg, av));
    EXPECT_EQ(s->Zoom, 0);
}

TEST(SessioneProva, FileRecentiECartellaDiLavoro) {
    Archivi a;
    ImpostazioniInMemoria imp;
    Sessione s(a, imp);
    s.mru.Setup("MRUFileList", 4);
    for (const char* f : {"a.RTG", "b.RTG", "c.RTG", "d.RTG", "e.RTG"}) s.mru.AddItem(f);
    EXPECT_EQ(s.mru.GetItem(1), "e.RTG");
    EXPECT_EQ(s.mru.GetItem(4), "b.RTG");  // at most four
    EXPECT_EQ(s.mru.GetItem(5), "");
    s.mru.AddItem("c.RTG");
    EXPECT_EQ(s.mru.GetItem(1), "c.RTG");
    EXPECT_EQ(s.mru.GetItem(2), "e.RTG");
    EXPECT_EQ(s.mru.GetItem(3), "d.RTG");
    EXPECT_EQ(s.mru.GetItem(4), "b.RTG");
    s.mru.AddItem("c.RTG");
    EXPECT_EQ(s.mru.GetItem(2), "e.RTG");
    EXPECT_EQ(imp.valori["MRUFileList/Item1"], "c.RTG");
    clsMRU altro(imp);
    altro.Setup("MRUFileList", 4);
    altro.Load();
    EXPECT_EQ(altro.GetItem(3), "d.RTG");
    EXPECT_EQ(altro.SearchItem("b.RTG"), 4);

    EXPECT_EQ(CartellaLavoro(imp, "/opt/fornax"), "/opt/fornax/Archivio Lavori");
    RicordaCartellaLavoro(imp, "/home/u/Lavori/villa.RTG");
    EXPECT_EQ(CartellaLavoro(imp, "/opt/fornax"), "/home/u/Lavori");
}

TEST_F(Banco, ChiediSalvataggioNonPerdeIlLavoro) {
    ASSERT_TRUE(ApriProgetto(*s, Esempio("appartamento.RTG"), msg, av));
    Documento& d = s->d;
    const int16_t tronchi = d.NumTronchi();
    d.NomeFileProgetto.clear();
    d.ReteModificata = VERO;

    msg.risposte = {Risposta::CANCEL};
    EXPECT_FALSE(ChiediSalvataggio(*s, msg, nullptr));
    EXPECT_EQ(d.NumTronchi(), tronchi);
    EXPECT_EQ(msg.mostrati.back().testo, "Salvare il progetto aperto");
    EXPECT_EQ(msg.mostrati.back().flags, Box::YESNOCANCEL | Box::QUESTION);

    // Yes with no name: the save-as dialog is cancelled, and the project stays.
    msg.risposte = {Risposta::YES};
    EXPECT_FALSE(ChiediSalvataggio(*s, msg, [] { return std::string(); }));
    EXPECT_EQ(d.NumTronchi(), tronchi);

    // Save as keeps the modified mark; save under the known name clears it.
    const std::string come = lavori.Percorso("come.RTG");
    EXPECT_EQ(SalvaConNome(*s, "", msg, [&] { return come; }), come);
    EXPECT_EQ(d.ReteModificata, VERO);
    EXPECT_EQ(s->Titolo, "Fornax - " + come);
    EXPECT_EQ(s->mru.GetItem(1), come);
    SalvaConNome(*s, d.NomeFileProgetto, msg, nullptr);
    EXPECT_EQ(d.ReteModificata, FALSO);

    msg.risposte.clear();
    EXPECT_TRUE(ChiediSalvataggio(*s, msg, nullptr));
    EXPECT_EQ(d.NumTronchi(), 0);
    EXPECT_EQ(s->Titolo, "Fornax  - ");
}
