// Saves under real faults: a full disk (a file size limit), a read-only folder, a folder
// removed while the project is open, a name the system refuses, the program killed in the
// middle of a save. Each fault is produced for real in a child process, so that a save that
// kills the process (SIGXFSZ) or leaves its temporary behind is caught as the user would meet it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"
#include "tests/core/Figlio.h"

using namespace fornax;
using namespace fornax::prova;
namespace fs = std::filesystem;

namespace {

// Everything in the folder, by name: what the user would see beside his project.
std::vector<std::string> Contenuto(const std::string& cartella) {
    std::vector<std::string> nomi;
    for (const auto& e : fs::directory_iterator(cartella)) nomi.push_back(e.path().filename().string());
    std::sort(nomi.begin(), nomi.end());
    return nomi;
}

ScrittoreTesto Testo(size_t righe, const std::string& riga) {
    ScrittoreTesto w;
    for (size_t i = 0; i < righe; ++i) w.Riga(riga);
    return w;
}

// Saves `w` into `percorso` and reports through the exit status: 0 when the save failed with
// `errore` and the message shown begins with `inizio`, 1 when it succeeded, 2 for another failure.
int SalvaERiporta(const ScrittoreTesto& w, const std::string& percorso, int errore, const std::string& inizio) {
    MessaggiRegistrati msg;
    if (w.SalvaOAvvisa(percorso, msg)) return 1;
    if (w.SalvaConErrore(percorso) != errore) return 2;
    if (msg.mostrati.size() != 1 || msg.mostrati[0].testo.rfind(inizio, 0) != 0) return 3;
    if (msg.mostrati[0].testo.find("Il file precedente non e' stato modificato") == std::string::npos) return 4;
    return 0;
}

}  // namespace

TEST(Salvataggio, DiscoPienoNonChiudeIlProgrammaENonToccaIlFile) {
    CartellaProva dir("disco-pieno");
    dir.ScriviByte("casa.RTG", "vecchio progetto\r\n");
    const ScrittoreTesto grande = Testo(20000, "una riga lunga abbastanza da superare il limite del disco");
    // The limit stands for a disk with 4 KiB left: the write crosses it, the kernel sends SIGXFSZ.
    const int esito = InFiglio([&] {
        rlimit limite{};
        ::getrlimit(RLIMIT_FSIZE, &limite);
        limite.rlim_cur = 4096;
        ::setrlimit(RLIMIT_FSIZE, &limite);
        return SalvaERiporta(grande, dir.Percorso("casa.RTG"), EFBIG, "Spazio su disco insufficiente");
    });
    EXPECT_EQ(esito, 0) << "1000+n: the child was killed by signal n";
    EXPECT_EQ(dir.LeggiByte("casa.RTG"), "vecchio progetto\r\n");
    EXPECT_EQ(Contenuto(dir.Percorso()), std::vector<std::string>{"casa.RTG"});
}

TEST(Salvataggio, CartellaDiventataDiSolaLettura) {
    CartellaProva dir("sola-lettura");
    dir.ScriviByte("casa.RTG", "vecchio\r\n");
    const ScrittoreTesto w = Testo(3, "nuovo");
    // Root writes anywhere: the save then runs as an ordinary user who owns the folder, which is
    // how a user meets a folder that became read-only.
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown(dir.Percorso().c_str(), NOBODY, NOBODY), 0);
    }
    fs::permissions(dir.Percorso(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                        fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec);
    const int esito = InFiglio(
        [&] {
            return SalvaERiporta(
                w, dir.Percorso("casa.RTG"), EACCES,
                "Impossibile scrivere il file '" + dir.Percorso("casa.RTG") + "': la cartella o il file sono protetti");
        },
        UtenteComune());
    fs::permissions(dir.Percorso(), fs::perms::owner_all);
    EXPECT_EQ(esito, 0);
    EXPECT_EQ(dir.LeggiByte("casa.RTG"), "vecchio\r\n");
    EXPECT_EQ(Contenuto(dir.Percorso()), std::vector<std::string>{"casa.RTG"});

    // A project the user marked read-only in a folder he can write is not replaced either.
    if (root) {
        ASSERT_EQ(::chown(dir.Percorso("casa.RTG").c_str(), NOBODY, NOBODY), 0);
    }
    fs::permissions(dir.Percorso("casa.RTG"), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const int protetto =
        InFiglio([&] { return SalvaERiporta(w, dir.Percorso("casa.RTG"), EACCES, "Impossibile scrivere il file"); },
                 UtenteComune());
    EXPECT_EQ(protetto, 0);
    EXPECT_EQ(dir.LeggiByte("casa.RTG"), "vecchio\r\n");
    EXPECT_EQ(Contenuto(dir.Percorso()), std::vector<std::string>{"casa.RTG"});
}

TEST(Salvataggio, CartellaRimossaENomiRifiutati) {
    CartellaProva dir("rimossa");
    const ScrittoreTesto w = Testo(2, "nuovo");
    struct Caso {
        std::string percorso;
        int errore;
        std::string messaggio;
    };
    fs::create_directories(dir.Percorso("lavori"));
    dir.ScriviByte("file-non-cartella", "x");
    const std::vector<Caso> casi = {
        // The project's folder removed while the project is open.
        {dir.Percorso("lavori/sparita/casa.RTG"), ENOENT, "la cartella non esiste piu'"},
        {dir.Percorso("file-non-cartella/casa.RTG"), ENOTDIR, "la cartella non esiste piu'"},
        // Names the system refuses: too long for the file system, an existing folder, nothing.
        {dir.Percorso(std::string(300, 'a') + ".RTG"), ENAMETOOLONG, "il nome del file non e' accettato dal sistema"},
        {dir.Percorso("lavori"), EISDIR, "il nome del file non e' accettato dal sistema"},
        {dir.Percorso("lavori/"), EINVAL, "il nome del file non e' accettato dal sistema"},
    };
    fs::remove_all(dir.Percorso("lavori/sparita"));
    for (const Caso& c : casi) {
        MessaggiRegistrati msg;
        EXPECT_EQ(w.SalvaConErrore(c.percorso), c.errore) << c.percorso;
        EXPECT_FALSE(w.SalvaOAvvisa(c.percorso, msg));
        ASSERT_EQ(msg.mostrati.size(), 1u);
        EXPECT_NE(msg.mostrati[0].testo.find(c.messaggio), std::string::npos) << msg.mostrati[0].testo;
        EXPECT_EQ(msg.mostrati[0].titolo, "Errore");
    }
    EXPECT_TRUE(fs::is_directory(dir.Percorso("lavori")));
    EXPECT_EQ(Contenuto(dir.Percorso()), (std::vector<std::string>{"file-non-cartella", "lavori"}));
    EXPECT_EQ(Contenuto(dir.Percorso("lavori")), std::vector<std::string>{});
}

TEST(Salvataggio, ProgrammaUccisoDuranteIlSalvataggio) {
    CartellaProva dir("ucciso");
    const std::string vecchio = "FX 5.1.0\r\nvecchio progetto\r\n";
    // Large enough that writing and flushing it to the disk takes a while.
    const ScrittoreTesto nuovo = Testo(400000, "sezione\t1\t2\t3\tACCIAIO\t1/2\"\t0.5\t12.5\t0");
    const std::string prefisso = dir.Percorso() + "/";
    for (int ritardoMs : {0, 0, 1, 3, 10, 30}) {
        dir.ScriviByte("casa.RTG", vecchio);
        const pid_t pid = ::fork();
        if (pid == 0) {
            nuovo.Salva(dir.Percorso("casa.RTG"));
            ::_exit(0);
        }
        // The save is under way once the child holds a file open in the project's folder.
        bool inCorso = false;
        const auto limite = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!inCorso && std::chrono::steady_clock::now() < limite) {
            std::error_code ec;
            for (fs::directory_iterator it("/proc/" + std::to_string(pid) + "/fd", ec), fine; !ec && it != fine;
                 it.increment(ec)) {
                std::error_code ec2;
                if (fs::read_symlink(it->path(), ec2).string().rfind(prefisso, 0) == 0) inCorso = true;
            }
            int stato = 0;
            if (::waitpid(pid, &stato, WNOHANG) == pid) break;  // done before it could be seen
        }
        if (!inCorso) {
            ::waitpid(pid, nullptr, 0);
            ADD_FAILURE() << "the save was never seen under way";
            continue;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(ritardoMs));
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
        const std::string ora = dir.LeggiByte("casa.RTG");
        // Killed before the rename: the old file; after it: the whole new one. Never a mix.
        if (ritardoMs == 0) {
            EXPECT_EQ(ora, vecchio);
        } else {
            EXPECT_TRUE(ora == vecchio || ora == Utf8ACp1252(nuovo.Contenuto())) << "delay " << ritardoMs;
        }
        // A kill between naming the finished temporary and renaming it (two system calls in a
        // row) can leave that temporary, whole; anything else leaves the folder as it was.
        std::vector<std::string> resto = Contenuto(dir.Percorso());
        if (resto.size() == 2 && resto[1] == "casa.RTG.fornax-tmp") {
            EXPECT_EQ(dir.LeggiByte("casa.RTG.fornax-tmp"), Utf8ACp1252(nuovo.Contenuto())) << "delay " << ritardoMs;
            fs::remove(dir.Percorso("casa.RTG.fornax-tmp"));
            resto.pop_back();
        }
        EXPECT_EQ(resto, std::vector<std::string>{"casa.RTG"}) << "delay " << ritardoMs;
    }
    // A temporary left by a save cut off between naming and renaming is cleared by the next save.
    dir.ScriviByte("casa.RTG.fornax-tmp", "resto");
    ASSERT_TRUE(Testo(1, "ok").Salva(dir.Percorso("casa.RTG")));
    EXPECT_EQ(dir.LeggiByte("casa.RTG"), "ok\r\n");
    EXPECT_EQ(Contenuto(dir.Percorso()), std::vector<std::string>{"casa.RTG"});
}

TEST(Salvataggio, IlProgettoInMemoriaRestaDopoUnSalvataggioFallito) {
    CartellaProva dir("progetto");
    dir.CopiaDa(FORNAX_BUILD_DATA_DIR);
    Archivi a;
    Documento d;
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    CaricaArchivi(a, d, dir.Percorso(), av, msg);
    ASSERT_TRUE(LeggiProgetto(d, a, FORNAX_SOURCE_DIR "/data/esempi/appartamento.RTG", msg, av));
    ASSERT_GT(d.NumTronchi(), 1);
    fs::create_directories(dir.Percorso("lavori"));
    ASSERT_TRUE(ScriviProgetto(d, a, dir.Percorso("lavori/casa.RTG"), msg));
    const std::string salvato = dir.LeggiByte("lavori/casa.RTG");

    const int esito = InFiglio([&] {
        rlimit limite{};
        ::getrlimit(RLIMIT_FSIZE, &limite);
        const rlim_t prima = limite.rlim_cur;
        limite.rlim_cur = 512;
        ::setrlimit(RLIMIT_FSIZE, &limite);
        MessaggiRegistrati m;
        d.ReteModificata = VERO;
        if (ScriviProgetto(d, a, dir.Percorso("lavori/casa.RTG"), m)) return 1;
        if (m.Testi().empty() || m.Testi()[0].rfind("Spazio su disco insufficiente", 0) != 0) return 2;
        // The disk has room again: what was in memory is saved whole, as it was.
        limite.rlim_cur = prima;
        ::setrlimit(RLIMIT_FSIZE, &limite);
        if (d.ReteModificata != VERO) return 3;
        return ScriviProgetto(d, a, dir.Percorso("lavori/dopo.RTG"), m) ? 0 : 4;
    });
    ASSERT_EQ(esito, 0);
    EXPECT_EQ(dir.LeggiByte("lavori/casa.RTG"), salvato);
    EXPECT_EQ(dir.LeggiByte("lavori/dopo.RTG"), salvato);
    EXPECT_EQ(Contenuto(dir.Percorso("lavori")), (std::vector<std::string>{"casa.RTG", "dopo.RTG"}));
}

TEST(Salvataggio, PermessiDelFileConservati) {
    CartellaProva dir("permessi");
    dir.ScriviByte("casa.RTG", "vecchio\r\n");
    fs::permissions(dir.Percorso("casa.RTG"), fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(Testo(1, "nuovo").Salva(dir.Percorso("casa.RTG")));
    EXPECT_EQ(dir.LeggiByte("casa.RTG"), "nuovo\r\n");
    EXPECT_EQ(fs::status(dir.Percorso("casa.RTG")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

// Found by fuzzing the project reader: a section's number beyond the single-precision range was
// written as "inf" and read back as 0. Saved, read again and saved again, a project gives the
// same file.
TEST(Salvataggio, ProgettoConNumeroFuoriScalaRilettoUguale) {
    CartellaProva dir("fuori-scala");
    dir.CopiaDa(FORNAX_BUILD_DATA_DIR);
    Archivi a;
    Documento d;
    MessaggiRegistrati msg;
    msg.scelte.assign(100, 1);
    AvanzamentoNullo av;
    CaricaArchivi(a, d, dir.Percorso(), av, msg);
    ASSERT_TRUE(LeggiProgetto(d, a, FORNAX_SOURCE_DIR "/tests/data/guasti/progetto-inf-in-un-tronco.RTG", msg, av));
    ASSERT_TRUE(ScriviProgetto(d, a, dir.Percorso("uno.RTG"), msg));
    Documento d2;
    ASSERT_TRUE(LeggiProgetto(d2, a, dir.Percorso("uno.RTG"), msg, av));
    ASSERT_TRUE(ScriviProgetto(d2, a, dir.Percorso("due.RTG"), msg));
    const std::string uno = dir.LeggiByte("uno.RTG");
    EXPECT_EQ(uno.find("inf"), std::string::npos);
    EXPECT_NE(uno.find("3.4028235e+38"), std::string::npos);
    EXPECT_EQ(dir.LeggiByte("due.RTG"), uno);
}
