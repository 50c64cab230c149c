// The recovery copy of unsaved work: when it is written and removed, and what the next start
// gets back after the program was killed while the user had unsaved edits.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "core/Cartelle.h"
#include "core/ServiziProva.h"
#include "editing/Modifiche.h"
#include "sessione/Recupero.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"

namespace fornax {
namespace {

struct Banco {
    prova::CartellaProva dir{"recupero"};
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>(*a, imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    std::string progetto = dir.Percorso("Impianto Rossi.RTG");
    std::string cartella = dir.Percorso("dati/Fornax/Recupero");

    Banco() {
        CaricaArchivi(*s, FORNAX_BUILD_DATA_DIR, av, msg, false);
        std::filesystem::copy_file(std::string(FORNAX_ACCETTAZIONE_DIR) + "/projects/i05_balanced_d3_2008.RTG",
                                   progetto);
        EXPECT_TRUE(ApriProgetto(*s, progetto, msg, av));
        Ricalcola(*s, msg);
    }

    void Lunghezza(int riga, const std::string& testo) {
        {
            PassoModifica passo(s->Storia, s->d, "cella");
            modifica::ConfermaCella(s->d, *a, riga, riga, Id::ID_LEN, testo, msg, [](int) { return std::string(); });
        }
        Ricalcola(*s, msg);
    }

    bool CopiaPresente() const { return Recupero::Trova(cartella).has_value(); }
};

TEST(Recupero, QuandoLaCopiaVieneScrittaETolta) {
    auto b = std::make_unique<Banco>();
    Recupero r(b->cartella);
    // Nothing unsaved: no copy.
    EXPECT_FALSE(r.Controlla(*b->s, 0));
    EXPECT_FALSE(b->CopiaPresente());

    // An edit at 0: written after a pause of 5 s, not before.
    b->Lunghezza(2, "11");
    EXPECT_FALSE(r.Controlla(*b->s, 0));
    EXPECT_FALSE(r.Controlla(*b->s, 4));
    EXPECT_TRUE(r.Controlla(*b->s, 5));
    EXPECT_TRUE(b->CopiaPresente());
    EXPECT_FALSE(r.Controlla(*b->s, 20)) << "an up-to-date copy is not written again";

    // Another edit at 21: never sooner than 30 s after the last write.
    b->Lunghezza(2, "12");
    EXPECT_FALSE(r.Controlla(*b->s, 21));
    EXPECT_FALSE(r.Controlla(*b->s, 34));
    EXPECT_TRUE(r.Controlla(*b->s, 35));

    // Edits without a pause, every 2 s from 40: written at the latest 90 s after the first.
    double scritta = -1;
    for (double t = 40; t < 200 && scritta < 0; t += 2) {
        b->Lunghezza(2, std::to_string(static_cast<int>(t)));
        if (r.Controlla(*b->s, t)) scritta = t;
    }
    EXPECT_GE(scritta, 40 + Recupero::INTERVALLO_MINIMO);
    EXPECT_LE(scritta, 40 + 120);

    // The copy is never the user's file, and holds the work as a save would write it.
    const std::string utente = prova::CartellaProva::LeggiFile(b->progetto);
    const auto copia = Recupero::Trova(b->cartella);
    ASSERT_TRUE(copia);
    EXPECT_EQ(copia->nome, b->progetto);
    EXPECT_NE(copia->progetto, b->progetto);
    EXPECT_EQ(prova::CartellaProva::LeggiFile(b->progetto), utente);

    // A save removes it at once.
    SalvaConNome(*b->s, b->progetto, b->msg, [] { return std::string(); });
    EXPECT_FALSE(r.Controlla(*b->s, 200));
    EXPECT_FALSE(b->CopiaPresente());

    // An undo back to the saved state leaves nothing to recover either.
    b->Lunghezza(3, "9");
    EXPECT_FALSE(r.Controlla(*b->s, 300));
    EXPECT_TRUE(r.Controlla(*b->s, 306));
    ASSERT_TRUE(Annulla(*b->s));
    r.Controlla(*b->s, 301);
    EXPECT_FALSE(b->CopiaPresente());
    // Unsaved again by a redo: a new copy after the pause, without waiting for the 30 s that
    // follow the copy removed.
    ASSERT_TRUE(Ripristina(*b->s));
    EXPECT_FALSE(r.Controlla(*b->s, 302));
    EXPECT_TRUE(r.Controlla(*b->s, 308));
}

// The desktop killed while the user had unsaved work: a child process works on the project and
// keeps its recovery copy, and is killed; the next start gets the work back.
TEST(Recupero, DopoCheIlProgrammaEStatoUcciso) {
    auto b = std::make_unique<Banco>();
    const std::string utente = prova::CartellaProva::LeggiFile(b->progetto);
    const std::string pronto = b->dir.Percorso("pronto");
    const std::string atteso = b->dir.Percorso("atteso.RTG");
    const pid_t figlio = fork();
    ASSERT_GE(figlio, 0);
    if (figlio == 0) {
        // The killed session: two edits, each followed by its turn of the timer.
        Recupero r(b->cartella);
        b->Lunghezza(2, "17.5");
        r.Controlla(*b->s, 10);
        r.Controlla(*b->s, 16);
        b->Lunghezza(3, "4.25");
        r.Controlla(*b->s, 50);
        if (!r.Controlla(*b->s, 56)) _exit(3);
        // What a save would have written, for the parent to compare.
        SalvaProgetto(*b->s, atteso, b->msg);
        std::ofstream(pronto) << "1";
        for (;;) pause();
    }
    for (int i = 0; i < 500 && !EsisteFile(pronto); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(20));
    kill(figlio, SIGKILL);
    int stato = 0;
    waitpid(figlio, &stato, 0);
    ASSERT_TRUE(WIFSIGNALED(stato));
    ASSERT_TRUE(EsisteFile(pronto)) << "the child never got its work done";

    // The next start.
    auto dopo = std::make_unique<Banco>();
    std::filesystem::remove(dopo->progetto);
    const auto copia = Recupero::Trova(b->cartella);
    ASSERT_TRUE(copia);
    EXPECT_EQ(Recupero::Domanda(*copia), "Recuperare il lavoro non salvato di Impianto Rossi.RTG?");
    ASSERT_TRUE(Recupero::Apri(*dopo->s, *copia, dopo->msg, dopo->av));
    Sessione& s = *dopo->s;
    EXPECT_EQ(s.d.NomeFileProgetto, b->progetto);
    EXPECT_EQ(s.d.ReteModificata, VERO);
    EXPECT_FALSE(s.Storia.PuoAnnullare());
    EXPECT_FLOAT_EQ(s.d.T(2).ID_LEN, 17.5f);
    EXPECT_FLOAT_EQ(s.d.T(3).ID_LEN, 4.25f);
    EXPECT_EQ(s.Titolo, "Fornax - " + b->progetto);
    // The user's file was never touched; the work comes back as the killed session would have
    // saved it.
    EXPECT_EQ(prova::CartellaProva::LeggiFile(b->progetto), utente);
    // Opened as the desktop opens it: recalculated.
    Ricalcola(s, dopo->msg);
    const std::string recuperato = dopo->dir.Percorso("recuperato.RTG");
    ASSERT_TRUE(SalvaProgetto(s, recuperato, dopo->msg));
    EXPECT_EQ(prova::CartellaProva::LeggiFile(recuperato), prova::CartellaProva::LeggiFile(atteso));
    // A normal end removes the copy.
    Recupero(b->cartella).Rimuovi();
    EXPECT_FALSE(Recupero::Trova(b->cartella));
}

TEST(Recupero, UnaCopiaSenzaLaSuaNotaNonVieneOfferta) {
    auto b = std::make_unique<Banco>();
    std::filesystem::create_directories(b->cartella);
    std::filesystem::copy_file(b->progetto, b->cartella + "/recupero.rtg");
    EXPECT_FALSE(Recupero::Trova(b->cartella));
    std::ofstream(b->cartella + "/recupero.txt") << "\n";
    const auto copia = Recupero::Trova(b->cartella);
    ASSERT_TRUE(copia);
    EXPECT_EQ(Recupero::Domanda(*copia), "Recuperare il lavoro non salvato di un progetto mai salvato?");
    // A damaged copy: the product's message, and the session goes on with what it had.
    std::ofstream(b->cartella + "/recupero.rtg", std::ios::trunc) << "rotto\r\n";
    const std::string prima = b->s->d.T(2).ID_NAME;
    EXPECT_FALSE(Recupero::Apri(*b->s, *copia, b->msg, b->av));
    EXPECT_FALSE(b->msg.mostrati.empty());
    EXPECT_EQ(b->s->d.T(2).ID_NAME, prima);
}

}  // namespace
}  // namespace fornax
