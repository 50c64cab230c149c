// The rules of the two archive editors, without their windows: what a save refuses, what it
// writes, what deleting and adding do to the tables and the files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <filesystem>
#include <memory>

#include "archives/Archivi.h"
#include "archives/EditoriArchivi.h"
#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "core/ServiziProva.h"
#include "core/Testo.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;
using fornax::prova::CartellaProva;

namespace {

const char* const GAS_CFG =
    "METANO\t0.5547\t0.00001574\t34.01\t37.78\t0\n"
    "BUTANO\t2.0761\t0.000002835\t116.34\t126.06\t0\n"
    "ARIA\t1\t0.00001461\t0\t0\t1\n";

const char* const RAME_MAT =
    " 2 \n 8900 \nTubi di rame\n"
    "#    DN    Spess   Diam Int. \n"
    "12x1\t 1 \t 10 \t\n"
    "14x1\t 1 \t 12 \t\n";

struct Editori : ::testing::Test {
    CartellaProva dir{"editori"};
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    MessaggiRegistrati msg;
    AvanzamentoNullo av;

    void SetUp() override {
        a->Cartella = dir.Percorso();
        dir.Scrivi("GAS.CFG", GAS_CFG);
        dir.Scrivi("RAME.mat", RAME_MAT);
        CaricaGas(*a, msg);
        CaricaMateriali(*a, av, msg);
        msg.mostrati.clear();
    }
};

TestiGas Testi(const std::string& densita, const std::string& viscosita, const std::string& pci, const std::string& pcs,
               bool nonCombustibile = false) {
    return TestiGas{densita, viscosita, pci, pcs, nonCombustibile};
}

}  // namespace

TEST_F(Editori, GasIncompletoRifiutatoSenzaToccareIlFile) {
    struct Caso {
        const char* nome;
        TestiGas testi;
    };
    const Caso casi[] = {
        {"densita' 0", Testi("0", "15,74", "34.01", "37.78")},
        {"densita' vuota", Testi("", "15.74", "34.01", "37.78")},
        {"viscosita' 0", Testi("0.5547", "0", "34.01", "37.78")},
        {"pci 0", Testi("0.5547", "15.74", "0", "37.78")},
        {"pcs 0", Testi("0.5547", "15.74", "34.01", "")},
        {"pci negativo", Testi("0.5547", "15.74", "-3", "37.78")},
    };
    const std::string prima = dir.LeggiByte("GAS.CFG");
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        msg.mostrati.clear();
        EditorGas e(*a);
        e.Mostra(1);
        e.SegnaModifica();
        EXPECT_FALSE(e.Salva(c.testi, msg));
        EXPECT_EQ(msg.Testi(), std::vector<std::string>{"Impossibile salvare il gas. Dati incompleti"});
        EXPECT_EQ(dir.LeggiByte("GAS.CFG"), prima);
        EXPECT_EQ(a->Gas[1].Densita, 0.5547f);
        EXPECT_EQ(a->Gas[1].Pci, 34.01f);
        EXPECT_TRUE(e.Modificato());
        EXPECT_TRUE(e.Salvati().empty());
    }
}

TEST_F(Editori, GasSalvatoConIValoriDerivati) {
    EditorGas e(*a);
    e.Mostra(1);
    // The boxes show what the file holds, the viscosity in mm²/s.
    const TestiGas t = e.Testi();
    EXPECT_EQ(t.densita, "0.5547");
    EXPECT_EQ(t.viscosita, "15.74");
    EXPECT_EQ(t.pcs, "37.78");
    // A new calorific value with a decimal comma; the rest as shown keeps its exact value.
    TestiGas nuovi = t;
    nuovi.pci = "36,5";
    e.SegnaModifica();
    ASSERT_TRUE(e.Salva(nuovi, msg));
    EXPECT_FALSE(e.Modificato());
    EXPECT_EQ(a->Gas[1].Pci, 36.5f);
    EXPECT_EQ(a->Gas[1].Viscosita, 0.00001574f);
    EXPECT_EQ(a->Gas[1].WobbeInf, static_cast<float>(36.5f / std::sqrt(static_cast<double>(0.5547f))));
    EXPECT_EQ(a->Gas[1].Famiglia, 2);
    EXPECT_EQ(e.Salvati(), std::set<std::string>{"METANO"});
    EXPECT_EQ(dir.LeggiByte("GAS.CFG"),
              "METANO\t 0.5547 \t 1.574e-05 \t 36.5 \t 37.78 \t 0 \r\n"
              "BUTANO\t 2.0761 \t 2.835e-06 \t 116.34 \t 126.06 \t 0 \r\n"
              "ARIA\t 1 \t 1.461e-05 \t 0 \t 0 \t 1 \r\n");

    // A gas that doesn't burn needs no calorific value, nor even a density.
    e.Mostra(3);
    ASSERT_TRUE(e.Salva(Testi("0", "14.61", "", "", true), msg));
    EXPECT_EQ(a->Gas[3].Densita, 0.0f);
    EXPECT_EQ(a->Gas[3].NonCombustibile, 1);  // the file's 1 stays 1
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST_F(Editori, RicalcolaMostraFamigliaEMessaggioWobbe) {
    EditorGas e(*a);
    e.Mostra(1);
    // W = 26.8 exactly is outside the first family.
    e.Ricalcola(Testi("1", "15", "26.8", "30"), msg);
    EXPECT_EQ(msg.Testi(), std::vector<std::string>{"Errore di Attribuzione famiglia del gas: indice Wobbe-Inf = "
                                                    "26.80 non associabile a nessuna famiglia"});
    EXPECT_EQ(e.Lavoro().Famiglia, 1);
    EXPECT_NE(e.Lavoro().FamigliaErrata, 0);
    EXPECT_EQ(e.Lavoro().MassaVolumica, static_cast<float>(1.22566));
    // The archive is untouched until "Salva".
    EXPECT_EQ(a->Gas[1].Pci, 34.01f);
}

TEST_F(Editori, CancellazioneDelGas) {
    GasRecord corrente = a->Gas[1];
    corrente.Nome = "metano";  // the project may spell it in lower case
    const std::string prima = dir.LeggiByte("GAS.CFG");
    Sostituzioni scelte;  // what the open project chose for names the archive lacks
    AddEquiv(scelte, "PROPANO", 2, 3);
    AddEquiv(scelte, "G20", 2, 2);

    EditorGas e(*a);
    e.Mostra(1);
    EXPECT_FALSE(e.Cancella(corrente, msg));
    EXPECT_EQ(msg.Testi(), std::vector<std::string>{"Non è possibile cancellare il gas correntemente in uso"});
    EXPECT_EQ(dir.LeggiByte("GAS.CFG"), prima);

    // Another gas, answered No: nothing changes.
    msg.mostrati.clear();
    e.Mostra(2);
    msg.risposte = {Risposta::NO};
    EXPECT_FALSE(e.Cancella(corrente, msg));
    ASSERT_EQ(msg.mostrati.size(), 1u);
    EXPECT_EQ(msg.mostrati[0].testo, "Confermi la cancellazione del gas : \rBUTANO");
    EXPECT_EQ(msg.mostrati[0].flags, 36);
    EXPECT_EQ(dir.LeggiByte("GAS.CFG"), prima);
    EXPECT_EQ(a->NumGas(), 3);

    // Yes: the file loses it and is read again; the substitutions follow the new numbering.
    ASSERT_TRUE(e.Cancella(corrente, msg));
    EXPECT_EQ(dir.LeggiByte("GAS.CFG"),
              "METANO\t 0.5547 \t 1.574e-05 \t 34.01 \t 37.78 \t 0 \r\n"
              "ARIA\t 1 \t 1.461e-05 \t 0 \t 0 \t 1 \r\n");
    EXPECT_EQ(a->NomiGas(), (std::vector<std::string>{"METANO", "ARIA"}));
    EXPECT_EQ(e.Indice(), 2);
    EXPECT_EQ(e.Cancellati(), std::vector<int>{2});
    RinumeraSostituzioniGas(scelte, e.Cancellati());
    EXPECT_EQ(SearchEquiv(scelte, "PROPANO", 2), 2);
    EXPECT_EQ(SearchEquiv(scelte, "G20", 2), 0);
}

TEST_F(Editori, GasNuovoNonSalvatoLasciaLaTabella) {
    EditorGas e(*a);
    EXPECT_EQ(e.Nuovo("   "), 0);
    EXPECT_EQ(e.Nuovo("G25"), 4);
    EXPECT_EQ(e.Indice(), 4);
    EXPECT_EQ(e.Lavoro().Nome, "G25");
    EXPECT_EQ(e.Nuovo("PROVA"), 5);
    e.SegnaModifica();
    ASSERT_TRUE(e.Salva(Testi("0.612", "15.2", "29.25", "32.49"), msg));
    e.Chiudi();
    // The one saved stays, the other was never in the file.
    EXPECT_EQ(a->NomiGas(), (std::vector<std::string>{"METANO", "BUTANO", "ARIA", "PROVA"}));
    Archivi riletto;
    riletto.Cartella = dir.Percorso();
    CaricaGas(riletto, msg);
    EXPECT_EQ(riletto.NomiGas(), a->NomiGas());
}

TEST_F(Editori, DomandaPrimaDiLasciareIlGas) {
    EditorGas e(*a);
    e.Mostra(1);
    const TestiGas cambiati = Testi("0", "15.74", "34.01", "37.78");
    EXPECT_TRUE(e.PrimaDiCambiare(cambiati, msg));  // nothing changed: no question
    EXPECT_TRUE(msg.mostrati.empty());
    e.SegnaModifica();
    msg.risposte = {Risposta::CANCEL};
    EXPECT_FALSE(e.PrimaDiCambiare(cambiati, msg));
    EXPECT_EQ(msg.mostrati.back().testo, "Salvare le modifiche?");
    EXPECT_EQ(msg.mostrati.back().flags, 35);
    // Yes with incomplete data: refused, the user stays on the gas.
    msg.risposte = {Risposta::YES};
    EXPECT_FALSE(e.PrimaDiCambiare(cambiati, msg));
    EXPECT_EQ(msg.mostrati.back().testo, "Impossibile salvare il gas. Dati incompleti");
    msg.risposte = {Risposta::NO};
    EXPECT_TRUE(e.PrimaDiCambiare(cambiati, msg));
    EXPECT_FALSE(e.Modificato());
    EXPECT_EQ(a->Gas[1].Densita, 0.5547f);
}

TEST_F(Editori, IlProgettoSegueIlSuoGasSalvato) {
    Documento d;
    d.GasCorrente = a->Gas[1];
    d.DpMax = 80;
    EditorGas e(*a);
    e.Mostra(2);
    e.SegnaModifica();
    ASSERT_TRUE(e.Salva(Testi("2.0761", "2.835", "116", "126.06"), msg));
    // Another gas was saved: the project keeps its gas and its limit.
    EXPECT_FALSE(DopoGestioneGas(d, *a, e.Salvati(), msg));
    EXPECT_EQ(d.DpMax, 80);
    EXPECT_NE(d.ReteModificata, 0);

    e.Mostra(1);
    e.SegnaModifica();
    ASSERT_TRUE(e.Salva(Testi("0.5547", "15.74", "35", "37.78"), msg));
    EXPECT_TRUE(DopoGestioneGas(d, *a, e.Salvati(), msg));
    EXPECT_EQ(d.GasCorrente.Pci, 35.0f);
    EXPECT_EQ(d.DpMax, 0);
    EXPECT_TRUE(msg.mostrati.empty());

    // An internal installation whose gas was made one that doesn't burn is told so.
    e.Mostra(1);
    ASSERT_TRUE(e.Salva(Testi("0.5547", "15.74", "35", "37.78", true), msg));
    EXPECT_TRUE(DopoGestioneGas(d, *a, e.Salvati(), msg));
    EXPECT_EQ(msg.Testi(),
              std::vector<std::string>{
                  "Nel calcolo dell'impianto interno gas non può essere utilizzato un gas non combustibile"});
    msg.mostrati.clear();
    d.ReteInPressione = VERO;
    DopoGestioneGas(d, *a, e.Salvati(), msg);
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST_F(Editori, NomiDeiNuoviMateriali) {
    struct Caso {
        const char* risposta;
        std::deque<int> risposte;
        const char* atteso;  // name added, "" when none
        std::vector<std::string> messaggi;
    };
    const std::string lungo =
        "Il nome del tipo di tubazione e' piu' lungo di 8 caratteri.Ignoro i caratteri eccedenti?";
    const std::string esiste = "Un tipo di tubazione con questo nome esite gia'";
    const Caso casi[] = {
        {"  ", {}, "", {}},
        {" pe100 ", {}, "PE100", {}},
        {"MULTISTRA", {Risposta::YES}, "MULTISTR", {lungo}},  // nine characters cut to eight
        {"MULTISTRATO", {Risposta::NO}, "", {lungo}},
        {"rame", {}, "", {esiste}},
        {"RAMEXXXXZ", {Risposta::YES}, "RAMEXXXX", {lungo}},
        {"ACCIAIO-1", {Risposta::YES}, "", {lungo, "Nome del file di archivio non valido"}},
        {"PE 100", {}, "", {"Nome del file di archivio non valido"}},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.risposta);
        msg.mostrati.clear();
        msg.risposte = c.risposte;
        EditorMateriali e(*a);
        const int prima = a->NumMateriali();
        const int indice = e.Nuovo(c.risposta, msg);
        EXPECT_EQ(msg.Testi(), c.messaggi);
        if (std::string(c.atteso).empty()) {
            EXPECT_EQ(indice, 0);
            EXPECT_EQ(a->NumMateriali(), prima);
        } else {
            ASSERT_EQ(indice, prima + 1);
            EXPECT_EQ(a->Materiali[static_cast<size_t>(indice)].Nome, c.atteso);
            EXPECT_EQ(e.Indice(), indice);
            EXPECT_EQ(e.RigheGriglia(), 1);
            EXPECT_TRUE(e.Modificato());
            // Saved, it stays; the file is named after it.
            ASSERT_TRUE(e.Salva(msg));
            EXPECT_TRUE(std::filesystem::exists(dir.Percorso(std::string(c.atteso) + ".mat")));
            e.Chiudi();
            EXPECT_EQ(a->NumMateriali(), prima + 1);
        }
    }
    // A new material never saved leaves the table when the editor closes.
    EditorMateriali e(*a);
    const int prima = a->NumMateriali();
    ASSERT_GT(e.Nuovo("PROVA", msg), 0);
    e.Chiudi();
    EXPECT_EQ(a->NumMateriali(), prima);
}

TEST_F(Editori, ControlloDelloSpessore) {
    EditorMateriali e(*a);
    ASSERT_EQ(e.RigheGriglia(), 3);  // two rows and an empty one
    EXPECT_EQ(e.TestoCella(1, ColonnaMateriale::ESTERNO), "12");
    EXPECT_EQ(e.TestoCella(1, ColonnaMateriale::PESO), "0.31");
    EXPECT_EQ(e.TestoCella(3, ColonnaMateriale::DN), "");
    EXPECT_FALSE(e.ImpostaCella(1, ColonnaMateriale::INTERNO, "5", msg));
    EXPECT_FALSE(e.ImpostaCella(1, ColonnaMateriale::PESO, "5", msg));

    struct Caso {
        const char* esterno;
        const char* spessore;
        bool rifiutato;
        float interno;
    };
    const Caso casi[] = {
        {"20", "10", true, 20.0f},  // half the outer diameter
        {"20", "12", true, 20.0f},   {"20", "9,5", false, 1.0f},
        {"", "1", true, 0.0f},  // no outer diameter yet: any wall is too thick
        {"22", "1.2", false, 19.6f},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(std::string(c.esterno) + " / " + c.spessore);
        msg.mostrati.clear();
        ASSERT_TRUE(e.ImpostaCella(3, ColonnaMateriale::ESTERNO, c.esterno, msg));
        ASSERT_TRUE(e.ImpostaCella(3, ColonnaMateriale::SPESSORE, c.spessore, msg));
        const RigaDiametro r = e.Riga(3);
        if (c.rifiutato) {
            EXPECT_EQ(msg.Testi(), std::vector<std::string>{"Spessore non compatibile"});
            EXPECT_EQ(r.Spessore, 0.0f);
            EXPECT_EQ(e.TestoCella(3, ColonnaMateriale::SPESSORE), "");
        } else {
            EXPECT_TRUE(msg.mostrati.empty());
        }
        EXPECT_EQ(r.DiamInterno, c.interno);
    }
    // The row typed into the empty row became a row, and a new empty row follows it.
    EXPECT_EQ(e.RigheInUso(), 3);
    EXPECT_EQ(e.RigheGriglia(), 4);
    const RigaDiametro r = e.Riga(3);
    const double esterna = 22.0 * 22.0 / 4.0 * 3.1415;
    const double interna = static_cast<double>(r.DiamInterno) * r.DiamInterno / 4.0 * 3.1415;
    EXPECT_EQ(r.PesoMetro, static_cast<float>((esterna - interna) * 8900 / 1000000.0));
}

TEST_F(Editori, MaterialeSalvatoSenzaLeRigheSenzaNome) {
    EditorMateriali e(*a);
    e.ImpostaTipoFormula(1);
    e.ImpostaPesoSpecifico("7850");
    e.ImpostaDescrizione("");
    ASSERT_TRUE(e.ImpostaCella(2, ColonnaMateriale::DN, "", msg));  // a size without a name
    ASSERT_TRUE(e.ImpostaCella(3, ColonnaMateriale::DN, "16x1", msg));
    ASSERT_TRUE(e.ImpostaCella(3, ColonnaMateriale::ESTERNO, "16", msg));
    ASSERT_TRUE(e.ImpostaCella(3, ColonnaMateriale::SPESSORE, "1", msg));
    ASSERT_TRUE(e.Salva(msg));
    EXPECT_FALSE(e.Modificato());
    EXPECT_TRUE(e.Salvato());
    const MaterialeTubo& m = a->Materiali[1];
    EXPECT_EQ(m.TipoFormula, 1);
    ASSERT_EQ(m.NumRighe(), 2);
    EXPECT_EQ(m.Righe[2].DN, "16x1");
    EXPECT_EQ(m.Righe[2].DiamEsterno, 16.0f);
    EXPECT_EQ(m.Righe[2].PesoMetro,
              static_cast<float>((16.0 * 16 / 4.0 * 3.1415 - 14.0 * 14 / 4.0 * 3.1415) * 7850 / 1000000.0));
    const std::string testo = dir.LeggiByte("RAME.mat");
    EXPECT_NE(testo.find("---\r\n 1 \r\n#\r\n# Peso Specifico\r\n"), std::string::npos);
    EXPECT_NE(testo.find("---\r\n 7850 \r\n"), std::string::npos);
    EXPECT_NE(testo.find("\r\n.\r\n"), std::string::npos);  // an empty description is written "."
    EXPECT_NE(testo.find("12x1\t 1 \t 10 \t\r\n16x1\t 1 \t 14 \t\r\n"), std::string::npos);
    EXPECT_EQ(testo.find("14x1"), std::string::npos);

    // The file reads back to what the table holds.
    Archivi riletto;
    riletto.Cartella = dir.Percorso();
    CaricaMateriali(riletto, av, msg);
    ASSERT_EQ(riletto.Materiali[1].NumRighe(), 2);
    EXPECT_EQ(riletto.Materiali[1].Righe[2].PesoMetro, m.Righe[2].PesoMetro);
}

TEST_F(Editori, SalvataggioFallitoLasciaTabellaEFile) {
    // A folder where the file should go: the write fails, as on a full or read-only disk.
    EditorMateriali e(*a);
    ASSERT_GT(e.Nuovo("BLOCCATO", msg), 0);
    std::filesystem::create_directory(dir.Percorso("BLOCCATO.mat"));
    ASSERT_TRUE(e.ImpostaCella(1, ColonnaMateriale::DN, "20x2", msg));
    msg.mostrati.clear();
    EXPECT_FALSE(e.Salva(msg));
    EXPECT_EQ(msg.mostrati.size(), 1u);  // the writer's own message
    EXPECT_EQ(a->Materiali[static_cast<size_t>(e.Indice())].NumRighe(), 0);
    EXPECT_TRUE(e.Modificato());
    EXPECT_TRUE(std::filesystem::is_directory(dir.Percorso("BLOCCATO.mat")));
}

TEST_F(Editori, MaterialeCancellatoRestaFinoAlRiavvio) {
    EditorMateriali e(*a);
    msg.risposte = {Risposta::NO};
    EXPECT_FALSE(e.Cancella(msg));
    EXPECT_EQ(msg.mostrati.back().testo, "Confermi cancellazione  dall'archivio");
    EXPECT_EQ(msg.mostrati.back().flags, 36);
    EXPECT_TRUE(std::filesystem::exists(dir.Percorso("RAME.mat")));

    msg.mostrati.clear();
    ASSERT_TRUE(e.Cancella(msg));
    EXPECT_EQ(msg.Testi(),
              (std::vector<std::string>{"Confermi cancellazione  dall'archivio",
                                        "L'archivio e' stato cancellato!Solo al prossimo riavvio del programma non "
                                        "sara' piu' presente"}));
    EXPECT_FALSE(std::filesystem::exists(dir.Percorso("RAME.mat")));
    EXPECT_EQ(IndiceMateriale(*a, "RAME"), 1);
    EXPECT_EQ(a->Materiali[1].NumRighe(), 2);
    e.Chiudi();
    EXPECT_EQ(IndiceMateriale(*a, "RAME"), 1);

    msg.mostrati.clear();
    EXPECT_FALSE(e.Cancella(msg));
    EXPECT_EQ(msg.mostrati.back().testo, "Il file non esiste, e' gia' stato eliminato!");
}

TEST_F(Editori, CheckBeforeChange) {
    EditorMateriali e(*a);
    EXPECT_TRUE(e.CheckBeforeChange(msg));
    EXPECT_TRUE(msg.mostrati.empty());
    e.ImpostaDescrizione("Rame crudo");
    msg.risposte = {Risposta::CANCEL};
    EXPECT_FALSE(e.CheckBeforeChange(msg));
    EXPECT_EQ(msg.mostrati.back().testo, "Salvare le modifiche?");
    EXPECT_EQ(msg.mostrati.back().flags, 35);
    msg.risposte = {Risposta::YES};
    EXPECT_TRUE(e.CheckBeforeChange(msg));
    EXPECT_EQ(a->Materiali[1].Descrizione, "Rame crudo");
    EXPECT_NE(dir.LeggiByte("RAME.mat").find("Rame crudo"), std::string::npos);
    // No drops the change.
    e.ImpostaTipoFormula(3);
    msg.risposte = {Risposta::NO};
    EXPECT_TRUE(e.CheckBeforeChange(msg));
    e.Mostra(1);
    EXPECT_EQ(e.TipoFormula(), 2);
}

TEST(Manuali, ConsegnatiNellaCartellaDelProgramma) {
    // The build puts both manuals beside the archives; the text one is read line by line as
    // Windows text, the HTML one is opened by the browser whatever its code page.
    const std::string cartella = FORNAX_BUILD_DATA_DIR;
    const std::string testo = CartellaProva::LeggiFile(cartella + "/fornax.txt");
    const std::string html = CartellaProva::LeggiFile(cartella + "/Fornax5.htm");
    ASSERT_FALSE(testo.empty());
    ASSERT_FALSE(html.empty());
    for (size_t i = testo.find('\n'); i != std::string::npos; i = testo.find('\n', i + 1))
        ASSERT_TRUE(i > 0 && testo[i - 1] == '\r') << "riga senza CR LF alla posizione " << i;
    // Accented letters are single Windows-1252 bytes, not UTF-8 pairs.
    EXPECT_NE(Cp1252AUtf8(testo).find("perché"), std::string::npos);
    EXPECT_TRUE(std::all_of(html.begin(), html.end(), [](char c) { return static_cast<unsigned char>(c) < 128; }));
    // What a user looks for in either: the command line, the two editions, the leak test.
    for (const char* s : {"fornax-cli", "--sostituisci", "UNI 7129", "2008", "UNI 11137-1"}) {
        EXPECT_NE(testo.find(s), std::string::npos) << s;
        EXPECT_NE(html.find(s), std::string::npos) << s;
    }
}
