// The history of the edits: each kind of edit undone and redone gives back the very files the
// project saved before and after it; a long random session undone to its start gives back the
// original file; the modified mark follows the saved point; the menu's names of the steps.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "archives/Gas.h"
#include "core/ServiziProva.h"
#include "editing/Cronologia.h"
#include "editing/Modifiche.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"

namespace fornax {
namespace {

struct Banco {
    prova::CartellaProva dir{"cronologia"};
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>(*a, imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    int salvataggi = 0;

    Banco() { CaricaArchivi(*s, FORNAX_BUILD_DATA_DIR, av, msg, false); }

    void Apri(const std::string& progetto) {
        ASSERT_TRUE(ApriProgetto(*s, std::string(FORNAX_ACCETTAZIONE_DIR) + "/projects/" + progetto, msg, av));
        Ricalcola(*s, msg);
    }

    // The project as a save writes it now.
    std::string File() {
        const std::string p = dir.Percorso("p" + std::to_string(salvataggi++) + ".RTG");
        EXPECT_TRUE(SalvaProgetto(*s, p, msg));
        return prova::CartellaProva::LeggiFile(p);
    }

    // One step around an edit, then the recalculation, as the document window does.
    void Passo(const std::string& nome, const std::function<void(Sessione&)>& modifica) {
        {
            PassoModifica passo(s->Storia, s->d, nome);
            modifica(*s);
        }
        Ricalcola(*s, msg);
    }
    bool Annulla() {
        const bool ok = fornax::Annulla(*s);
        Ricalcola(*s, msg);
        return ok;
    }
    bool Ripristina() {
        const bool ok = fornax::Ripristina(*s);
        Ricalcola(*s, msg);
        return ok;
    }
};

ScegliDiametro Nessuno() {
    return [](int) { return std::string(); };
}

Rinfresco Ricalcolo(Sessione& s, Messaggi& msg) {
    return Rinfresco{[&] { Ricalcola(s, msg); }, [&] { Ricalcola(s, msg); }};
}

struct Caso {
    const char* nome;
    const char* progetto;
    std::function<void(Sessione&, Messaggi&)> modifica;
};

TEST(Cronologia, OgniModificaAnnullataERipristinataRidaGliStessiFile) {
    const char* interno = "i05_balanced_d3_2008.RTG";
    const char* pressione = "p03_contemp_junction.RTG";
    const std::vector<Caso> casi = {
        {"cella", interno,
         [](Sessione& s, Messaggi& m) { modifica::ConfermaCella(s.d, s.a, 3, 3, Id::ID_LEN, "12.5", m, Nessuno()); }},
        {"colonna su piu' righe", interno,
         [](Sessione& s, Messaggi& m) { modifica::ConfermaCella(s.d, s.a, 2, 4, Id::ID_NCURVE, "3", m, Nessuno()); }},
        {"diametro fissato", interno,
         [](Sessione& s, Messaggi& m) { modifica::ConfermaCella(s.d, s.a, 2, 2, Id::ID_DIAMETRO, "", m, Nessuno()); }},
        {"riferimento", interno,
         [](Sessione& s, Messaggi& m) { modifica::ConfermaCella(s.d, s.a, 1, 1, Id::ID_RIF, "Cucina", m, Nessuno()); }},
        {"padre", interno,
         [](Sessione& s, Messaggi& m) { modifica::ConfermaCella(s.d, s.a, 4, 4, Id::ID_PREV, "1", m, Nessuno()); }},
        {"materiale", interno, [](Sessione& s, Messaggi&) { modifica::ScegliMateriale(s.d, s.a, 1, 2, 2); }},
        {"nuovo tronco", interno, [](Sessione& s, Messaggi&) { modifica::AggiungiRiga(s.d); }},
        {"riga oltre la tabella", interno,
         [](Sessione& s, Messaggi& m) {
             modifica::ConfermaCella(s.d, s.a, s.d.NumTronchi() + 2, s.d.NumTronchi() + 2, Id::ID_LEN, "4", m,
                                     Nessuno());
         }},
        {"scollega", interno,
         [](Sessione& s, Messaggi& m) {
             modifica::CancellaSezione(s.d, 3, TipoCancellazione::SCOLLEGA, m, Ricalcolo(s, m));
         }},
        {"elimina e compatta", interno,
         [](Sessione& s, Messaggi& m) {
             modifica::CancellaSezione(s.d, 2, TipoCancellazione::ELIMINA_E_COMPATTA, m, Ricalcolo(s, m));
         }},
        {"cancella righe", interno,
         [](Sessione& s, Messaggi& m) {
             modifica::CancellaRighe(s.d, 2, 3, TipoCancellazione::CANCELLA, Ricalcolo(s, m));
         }},
        {"blocca diametri", interno, [](Sessione& s, Messaggi&) { modifica::BloccaDiametri(s.d, true); }},
        {"perdita imposta", interno, [](Sessione& s, Messaggi&) { modifica::ScegliDpMax(s.d, "75"); }},
        {"parametri", interno,
         [](Sessione& s, Messaggi& m) {
             modifica::ValoriParametri v;
             v.riferimento = "Villa Rossi";
             v.descrizioneLavoro = "Ampliamento";
             v.edizione1992 = true;
             v.indiceGas = 1;
             modifica::ImpostaParametri(s.d, s.a, v, m);
         }},
        {"gas", interno,
         [](Sessione& s, Messaggi& m) {
             // Another gas that burns.
             for (int g = 1; g <= s.a.NumGas(); ++g) {
                 const GasRecord& r = s.a.Gas[static_cast<size_t>(g)];
                 if (r.NonCombustibile == 0 && r.Nome != s.d.GasCorrente.Nome) {
                     modifica::ScegliGas(s.d, s.a, g, m);
                     return;
                 }
             }
         }},
        {"pressione iniziale", pressione,
         [](Sessione& s, Messaggi&) { modifica::ScegliPressioneIniziale(s.d, s.a, "350"); }},
        {"pressione finale", pressione,
         [](Sessione& s, Messaggi&) { modifica::ScegliPressioneFinale(s.d, s.a, "120"); }},
        {"cella di una rete in pressione", pressione,
         [](Sessione& s, Messaggi& m) { modifica::ConfermaCella(s.d, s.a, 2, 2, Id::ID_LEN, "250", m, Nessuno()); }},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        auto b = std::make_unique<Banco>();
        b->Apri(c.progetto);
        const std::string prima = b->File();
        b->Passo(c.nome, [&](Sessione& s) { c.modifica(s, b->msg); });
        ASSERT_TRUE(b->s->Storia.PuoAnnullare()) << "the edit left no step";
        EXPECT_EQ(b->s->Storia.NomeAnnulla(), c.nome);
        const std::string dopo = b->File();
        ASSERT_NE(prima, dopo) << "the edit changed nothing in the file";
        ASSERT_TRUE(b->Annulla());
        EXPECT_EQ(b->File(), prima);
        EXPECT_EQ(b->s->Storia.NomeRipristina(), c.nome);
        ASSERT_TRUE(b->Ripristina());
        EXPECT_EQ(b->File(), dopo);
        // Twice over: the steps don't wear out.
        ASSERT_TRUE(b->Annulla());
        EXPECT_EQ(b->File(), prima);
        ASSERT_TRUE(b->Ripristina());
        EXPECT_EQ(b->File(), dopo);
    }
}

TEST(Cronologia, UnaModificaCheNonCambiaNullaNonLasciaPassi) {
    auto b = std::make_unique<Banco>();
    b->Apri("i05_balanced_d3_2008.RTG");
    const double dp = b->s->d.DpMax;
    b->Passo("uguale", [&](Sessione& s) { modifica::ScegliDpMax(s.d, std::to_string(dp)); });
    // A refused gas: the message, and nothing to undo.
    const int aria = CercaGas(*b->a, "ARIA");
    ASSERT_GE(aria, 1);
    b->Passo("gas rifiutato", [&](Sessione& s) { modifica::ScegliGas(s.d, s.a, aria, b->msg); });
    EXPECT_FALSE(b->s->Storia.PuoAnnullare());
    EXPECT_FALSE(b->Annulla());
    EXPECT_EQ(b->s->Storia.NomeAnnulla(), "");
}

TEST(Cronologia, UnPassoDentroUnAltroEUnSoloPasso) {
    auto b = std::make_unique<Banco>();
    b->Apri("i05_balanced_d3_2008.RTG");
    const std::string prima = b->File();
    b->Passo("pannello del tronco 2", [&](Sessione& s) {
        for (int id : {Id::ID_LEN, Id::ID_NCURVE}) {
            PassoModifica interno(s.Storia, s.d, "una riga");
            modifica::ConfermaCella(s.d, s.a, 2, 2, id, "7", b->msg, Nessuno());
        }
        EXPECT_FALSE(s.Storia.PuoAnnullare()) << "no undo while a step is open";
    });
    EXPECT_EQ(b->s->Storia.NumeroPassi(), 1u);
    EXPECT_EQ(b->s->Storia.NomeAnnulla(), "pannello del tronco 2");
    ASSERT_TRUE(b->Annulla());
    EXPECT_EQ(b->File(), prima);
}

TEST(Cronologia, IlSegnoDiModificaSegueIlPuntoSalvato) {
    auto b = std::make_unique<Banco>();
    b->Apri("i05_balanced_d3_2008.RTG");
    Sessione& s = *b->s;
    const std::string nome = b->dir.Percorso("lavoro.RTG");
    ASSERT_TRUE(SalvaProgetto(s, nome, b->msg));
    auto chiedi = [] { return std::string(); };
    SalvaConNome(s, nome, b->msg, chiedi);
    EXPECT_EQ(s.d.ReteModificata, FALSO);
    auto cella = [&](const char* testo) {
        b->Passo("cella",
                 [&](Sessione& x) { modifica::ConfermaCella(x.d, x.a, 2, 2, Id::ID_LEN, testo, b->msg, Nessuno()); });
    };
    cella("11");
    cella("12");
    EXPECT_EQ(s.d.ReteModificata, VERO);
    // Saved after two edits: the saved point is there.
    SalvaConNome(s, nome, b->msg, chiedi);
    EXPECT_EQ(s.d.ReteModificata, FALSO);
    EXPECT_TRUE(s.Storia.PuoAnnullare()) << "saving keeps the history";
    ASSERT_TRUE(b->Annulla());
    EXPECT_EQ(s.d.ReteModificata, VERO);
    ASSERT_TRUE(b->Ripristina());
    EXPECT_EQ(s.d.ReteModificata, FALSO) << "back at the saved state";
    EXPECT_EQ(prova::CartellaProva::LeggiFile(nome), b->File());
    // Undone past the save and edited anew: the saved state can't be reached any more.
    ASSERT_TRUE(b->Annulla());
    cella("13");
    EXPECT_EQ(s.d.ReteModificata, VERO);
    EXPECT_FALSE(s.Storia.PuoRipristinare());
    ASSERT_TRUE(b->Annulla());
    EXPECT_EQ(s.d.ReteModificata, VERO);
    ASSERT_TRUE(b->Annulla());
    EXPECT_EQ(s.d.ReteModificata, VERO);
    // Opening, making or closing a project starts afresh.
    b->Apri("i05_balanced_d3_2008.RTG");
    EXPECT_FALSE(s.Storia.PuoAnnullare());
    cella("14");
    ASSERT_TRUE(NuovoProgetto(s, false, b->msg));
    EXPECT_FALSE(s.Storia.PuoAnnullare());
    cella("15");
    s.d.ReteModificata = FALSO;
    ASSERT_TRUE(ChiediSalvataggio(s, b->msg, chiedi));
    EXPECT_FALSE(s.Storia.PuoAnnullare());
}

TEST(Cronologia, LaStoriaHaUnLimite) {
    auto b = std::make_unique<Banco>();
    b->Apri("i05_balanced_d3_2008.RTG");
    const size_t n = Cronologia::LIMITE_PASSI + 20;
    for (size_t i = 0; i < n; ++i)
        b->Passo("cella", [&](Sessione& s) {
            modifica::ConfermaCella(s.d, s.a, 2, 2, Id::ID_LEN, std::to_string(10 + i), b->msg, Nessuno());
        });
    EXPECT_EQ(b->s->Storia.NumeroPassi(), Cronologia::LIMITE_PASSI);
    EXPECT_GE(Cronologia::LIMITE_PASSI, 100u);
    size_t annullati = 0;
    while (b->Annulla()) ++annullati;
    EXPECT_EQ(annullati, Cronologia::LIMITE_PASSI);
    // The oldest steps have gone: the length is the one of the first step kept.
    EXPECT_FLOAT_EQ(b->s->d.T(2).ID_LEN, static_cast<float>(10 + n - Cronologia::LIMITE_PASSI - 1));
}

TEST(Cronologia, INomiDeiPassi) {
    ColonnaTabella c;
    c.Titolo1 = " Lunghezza ";
    c.Titolo2 = "m";
    c.Chiave = "ID_LEN";
    EXPECT_EQ(modifica::NomeCella(c, 4, 4), "modifica della cella Lunghezza del tronco 4");
    EXPECT_EQ(modifica::NomeCella(c, 7, 3), "modifica della colonna Lunghezza dei tronchi 3-7");
    c.Titolo1 = "Portata";
    c.Titolo2 = "[Nmc/h]";
    EXPECT_EQ(modifica::NomeCella(c, 1, 1), "modifica della cella Portata del tronco 1");
    c.Titolo1 = ".";
    EXPECT_EQ(modifica::NomeCella(c, 1, 1), "modifica della cella [Nmc/h] del tronco 1");
    c.Titolo1 = c.Titolo2 = "";
    EXPECT_EQ(modifica::NomeCella(c, 2, 2), "modifica della cella ID_LEN del tronco 2");
    EXPECT_EQ(modifica::NomeNuovoTronco(5), "nuovo tronco 5");
    EXPECT_EQ(modifica::NomeCancellazione(TipoCancellazione::SCOLLEGA, 4, 4), "scollegamento del tronco 4");
    EXPECT_EQ(modifica::NomeCancellazione(TipoCancellazione::ELIMINA_E_COMPATTA, 4, 4), "eliminazione del tronco 4");
    EXPECT_EQ(modifica::NomeCancellazione(TipoCancellazione::CANCELLA, 3, 7), "cancellazione dei tronchi 3-7");
}

// A network of 400 sections: a main line with a consumer hanging from every section.
void Rete400(Banco& b) {
    ASSERT_TRUE(NuovoProgetto(*b.s, false, b.msg));
    Documento& d = b.s->d;
    const auto nomi = b.a->NomiMateriali();
    int16_t linea = NuovoTronco(d, 0, nomi, b.a->Default.DefaultMateriale, b.msg);
    d.T(linea).ID_LEN = 2;
    while (d.NumTronchi() < MAX_TRONCHI - 1) {
        const int16_t u = NuovoTronco(d, linea, nomi, b.a->Default.DefaultMateriale, b.msg);
        d.T(u).ID_P_UTENZE = 0.5f;
        d.T(u).ID_LEN = 1.5f;
        d.T(u).ID_NCURVE = 2;
        linea = NuovoTronco(d, linea, nomi, b.a->Default.DefaultMateriale, b.msg);
        d.T(linea).ID_LEN = 3.25f;
    }
    Ricalcola(*b.s, b.msg);
    b.s->Storia.Svuota(d);
}

TEST(Cronologia, MilleModificheACasoAnnullateRidannoIlFileDiPartenza) {
    auto b = std::make_unique<Banco>();
    Rete400(*b);
    Sessione& s = *b->s;
    s.Storia.ImpostaLimite(1000);
    const std::string inizio = b->File();
    std::mt19937 caso(20261201);
    auto tra = [&](int da, int a) { return std::uniform_int_distribution<int>(da, a)(caso); };
    const int colonne[] = {Id::ID_LEN, Id::ID_P_UTENZE, Id::ID_NCURVE, Id::ID_NGOMITI, Id::ID_RIF, Id::ID_DIAMETRO};
    int fatti = 0;
    for (int i = 0; i < 1000; ++i) {
        const int n = std::max<int>(s.d.NumTronchi(), 1);
        const int r = tra(1, n);
        const int scelta = tra(0, 99);
        b->Passo("passo " + std::to_string(i), [&](Sessione& x) {
            if (scelta < 70) {
                const int id = colonne[tra(0, 5)];
                const int r2 = std::min(n, r + (scelta < 10 ? tra(0, 5) : 0));
                std::string testo = id == Id::ID_RIF ? "R" + std::to_string(tra(0, 999)) : std::to_string(tra(0, 40));
                if (id == Id::ID_DIAMETRO) testo = scelta % 2 ? "" : "Auto";
                modifica::ConfermaCella(x.d, x.a, r, r2, id, testo, b->msg, [&](int) { return std::string("20"); });
            } else if (scelta < 80) {
                modifica::ScegliMateriale(x.d, x.a, r, r, tra(1, std::max<int>(1, x.a.NumMateriali())));
            } else if (scelta < 85) {
                modifica::AggiungiRiga(x.d);
            } else if (scelta < 90 && r > 1) {
                modifica::CancellaSezione(x.d, r, tra(1, 3), b->msg, Ricalcolo(x, b->msg));
            } else if (scelta < 95) {
                modifica::ScegliDpMax(x.d, std::to_string(tra(0, 3) * 50));
            } else {
                modifica::BloccaDiametri(x.d, scelta % 2 == 0);
            }
        });
        fatti = static_cast<int>(s.Storia.Posizione());
    }
    ASSERT_GT(fatti, 500) << "most random edits change something";
    const std::string fine = b->File();
    int annullati = 0;
    while (b->Annulla()) ++annullati;
    EXPECT_EQ(annullati, fatti);
    EXPECT_EQ(b->File(), inizio);
    while (b->Ripristina()) {}
    EXPECT_EQ(b->File(), fine);
}

}  // namespace
}  // namespace fornax
