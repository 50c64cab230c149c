// Archive and project copy: the order of the ten archives, the overwrite answers, the merge of
// the gas archive, the rename, the projects into "Archivio Lavori", the logs beside the program.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/ServiziProva.h"
#include "housekeeping/Copia.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;
using fornax::prova::CartellaProva;

namespace {

const std::string NOTA_MANCANTE_PDCMAX =
    "Il file PDCMAX.CFG non verrà copiato \r\npoichè non è presente nella cartella di provenienza.";
const std::string DOMANDA_GAS =
    "I gas presenti nel file GAS.CFG della cartella di provenienza verranno copiati all'interno del file GAS.CFG "
    "della cartella di destinazione.\r\nSe due gas hanno lo stesso nome verrà inserito il simbolo \"$$\" davanti al "
    "nome del gas presente nel file della cartella di destinazione.";

std::string Domanda(const std::string& nome) {
    return "La cartella di destinazione contiene già un file di nome " + nome + ".\r\nSovrascrivere il file esistente?";
}

// Every archive of the list in `dir`, each with a line that tells where it comes from.
void TuttiGliArchivi(const CartellaProva& dir, const std::string& origine) {
    for (const char* nome : ARCHIVI_DA_COPIARE) {
        if (std::string(nome) == "GAS.CFG") {
            dir.Scrivi(nome, "METANO\t0.55\t1.4e-05\t34.02\t37.78\t0\n");
        } else {
            dir.Scrivi(nome, std::string(nome) + " di " + origine + "\n");
        }
    }
}

struct Copia : ::testing::Test {
    CartellaProva da{"copia-da"};
    CartellaProva a{"copia-a"};
    CartellaProva programma{"copia-prog"};
    MessaggiRegistrati msg;
    DomandeCopiaRegistrate domande;

    RiepilogoCopia Archivi() { return CopiaArchivi(da.Percorso(), a.Percorso(), programma.Percorso(), msg, domande); }
};

}  // namespace

TEST_F(Copia, NellaCartellaVuotaCopiaIDieciArchiviInOrdineSenzaDomande) {
    TuttiGliArchivi(da, "vecchio");
    da.Scrivi("PDCMAX_2008.CFG", " 35 \n");  // the edition's limits are not on the list
    da.Scrivi("ALTRO.MAT", "1\n");
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    EXPECT_EQ(r.copiati, std::vector<std::string>(ARCHIVI_DA_COPIARE.begin(), ARCHIVI_DA_COPIARE.end()));
    EXPECT_TRUE(domande.domande.empty());
    EXPECT_TRUE(msg.mostrati.empty());
    EXPECT_EQ(a.LeggiByte("PDCMAX.CFG"), "PDCMAX.CFG di vecchio\r\n");
    EXPECT_FALSE(std::filesystem::exists(a.Percorso("PDCMAX_2008.CFG")));
    EXPECT_FALSE(std::filesystem::exists(a.Percorso("ALTRO.MAT")));
}

TEST_F(Copia, UnArchivioMancanteNellaProvenienzaEUnaNotaELaCopiaProsegue) {
    TuttiGliArchivi(da, "vecchio");
    std::filesystem::remove(da.Percorso("PDCMAX.CFG"));
    // Names are found without regard to case, as on the Windows machines the archives come from.
    std::filesystem::rename(da.Percorso("EQLEN.CFG"), da.Percorso("eqlen.cfg"));
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    ASSERT_EQ(msg.Testi(), std::vector<std::string>{NOTA_MANCANTE_PDCMAX});
    EXPECT_EQ(r.mancanti, std::vector<std::string>{"PDCMAX.CFG"});
    EXPECT_EQ(r.copiati.size(), 9u);
    EXPECT_EQ(r.copiati.back(), "TENIMPTECDEF.CFG");
    EXPECT_EQ(a.LeggiByte("EQLEN.CFG"), "EQLEN.CFG di vecchio\r\n");
}

TEST_F(Copia, LeRisposteAllaDomandaDiSovrascrittura) {
    TuttiGliArchivi(da, "vecchio");
    TuttiGliArchivi(a, "nuovo");
    // ACCIAIOL No, ACCIAIOM Sì, ACCIAIOP Annulla: the rest is not touched.
    domande.risposte = {RispostaCopia::No, RispostaCopia::Si, RispostaCopia::Annulla};
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Annullata);
    EXPECT_EQ(domande.domande,
              (std::vector<std::string>{Domanda("ACCIAIOL.MAT"), Domanda("ACCIAIOM.MAT"), Domanda("ACCIAIOP.MAT")}));
    EXPECT_EQ(a.LeggiByte("ACCIAIOL.MAT"), "ACCIAIOL.MAT di nuovo\r\n");
    EXPECT_EQ(a.LeggiByte("ACCIAIOM.MAT"), "ACCIAIOM.MAT di vecchio\r\n");
    EXPECT_EQ(a.LeggiByte("ACCIAIOP.MAT"), "ACCIAIOP.MAT di nuovo\r\n");
    EXPECT_EQ(a.LeggiByte("PE4437.MAT"), "PE4437.MAT di nuovo\r\n");
    EXPECT_EQ(r.copiati, std::vector<std::string>{"ACCIAIOM.MAT"});
    EXPECT_EQ(r.lasciati, std::vector<std::string>{"ACCIAIOL.MAT"});
}

TEST_F(Copia, SiTuttiSostituisceIlRestoEUnisceIGasSenzaLaSuaDomanda) {
    TuttiGliArchivi(da, "vecchio");
    TuttiGliArchivi(a, "nuovo");
    a.Scrivi("GAS.CFG", "# gas della ditta\nMETANO\t0.56\t1.4e-05\t34\t37\t0\nGPL\t1.9\t3e-06\t107\t116\t0\n");
    domande.risposte = {RispostaCopia::SiTutti};
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    EXPECT_EQ(domande.domande, std::vector<std::string>{Domanda("ACCIAIOL.MAT")});
    EXPECT_EQ(r.uniti, std::vector<std::string>{"GAS.CFG"});
    EXPECT_EQ(r.copiati.size(), 9u);
    for (const char* nome : ARCHIVI_DA_COPIARE)
        if (std::string(nome) != "GAS.CFG") {
            EXPECT_EQ(a.LeggiByte(nome), std::string(nome) + " di vecchio\r\n");
        }
    EXPECT_EQ(a.LeggiByte("GAS.CFG"),
              "# gas della ditta\r\n$$METANO\t0.56\t1.4e-05\t34\t37\t0\r\nGPL\t1.9\t3e-06\t107\t116\t0\r\n"
              "METANO\t0.55\t1.4e-05\t34.02\t37.78\t0\r\n");
}

TEST_F(Copia, LaDomandaDelGasHaIlSuoTestoESiUnisce) {
    da.Scrivi("GAS.CFG", "METANO\t0.55\t1.4e-05\t34.02\t37.78\t0\n");
    a.Scrivi("gas.cfg", "METANO\t0.56\t1.4e-05\t34\t37\t0\n");
    domande.risposte = {RispostaCopia::Si};
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    EXPECT_EQ(domande.domande, std::vector<std::string>{DOMANDA_GAS});
    // The destination's own file (lower case) is the one merged into; no second file appears.
    EXPECT_EQ(a.LeggiByte("gas.cfg"),
              "$$METANO\t0.56\t1.4e-05\t34\t37\t0\r\nMETANO\t0.55\t1.4e-05\t34.02\t37.78\t0\r\n");
    EXPECT_FALSE(std::filesystem::exists(a.Percorso("GAS.CFG")));
    EXPECT_EQ(msg.mostrati.size(), 9u);  // the nine other archives are missing in the source
}

TEST(UnisciGas, UnGasDueVolteNellaDestinazioneHaIlPrefissoSuEntrambeLeRighe) {
    CartellaProva da{"gas-da"}, a{"gas-a"};
    da.Scrivi("GAS.CFG", "# nuovo archivio\nmetano \t0,55\t1.4e-05\t34\t37\t0\n\nARIA\t1\t1.5e-05\t0\t0\t1\n");
    a.Scrivi("GAS.CFG",
             "METANO\t0.5\t1e-05\t30\t33\t0\nBUTANO\t2\t3e-06\t116\t126\t0\n\nMETANO\t0.6\t1e-05\t31\t34\t0\n"
             "# METANO commentato\n");
    ErroreFile e;
    ASSERT_TRUE(UnisciGas(da.Percorso(), a.Percorso(), e)) << e.descrizione;
    // Names meet as the program looks gases up: without regard to case or blanks around them.
    // Comment and blank lines are no gas: they stay as they stand.
    const std::string primo =
        "$$METANO\t0.5\t1e-05\t30\t33\t0\r\nBUTANO\t2\t3e-06\t116\t126\t0\r\n\r\n$$METANO\t0.6\t1e-05\t31\t34\t0\r\n"
        "# METANO commentato\r\n"
        "# nuovo archivio\r\nmetano \t0,55\t1.4e-05\t34\t37\t0\r\n\r\nARIA\t1\t1.5e-05\t0\t0\t1\r\n";
    EXPECT_EQ(a.LeggiByte("GAS.CFG"), primo);

    // A second merge of the same source marks the gases the first one appended, and appends them
    // again; a line marked once is not marked twice.
    ASSERT_TRUE(UnisciGas(da.Percorso(), a.Percorso(), e));
    const std::string secondo =
        "$$METANO\t0.5\t1e-05\t30\t33\t0\r\nBUTANO\t2\t3e-06\t116\t126\t0\r\n\r\n$$METANO\t0.6\t1e-05\t31\t34\t0\r\n"
        "# METANO commentato\r\n"
        "# nuovo archivio\r\n$$metano \t0,55\t1.4e-05\t34\t37\t0\r\n\r\n$$ARIA\t1\t1.5e-05\t0\t0\t1\r\n"
        "# nuovo archivio\r\nmetano \t0,55\t1.4e-05\t34\t37\t0\r\n\r\nARIA\t1\t1.5e-05\t0\t0\t1\r\n";
    EXPECT_EQ(a.LeggiByte("GAS.CFG"), secondo);
    EXPECT_FALSE(std::filesystem::exists(a.Percorso("tmpgas.cfg")));
}

TEST_F(Copia, RinominaCopiaAccantoConLEstensioneERichiedeSeIlNomeEPreso) {
    da.Scrivi("ACCIAIOL.MAT", "nuova serie\n");
    da.Scrivi("GAS.CFG", "METANO\t0.55\t1.4e-05\t34.02\t37.78\t0\n");
    a.Scrivi("ACCIAIOL.MAT", "serie in uso\n");
    a.Scrivi("VECCHIO.MAT", "altro\n");
    a.Scrivi("GAS.CFG", "GPL\t1.9\t3e-06\t107\t116\t0\n");
    // ACCIAIOL: Rinomina "VECCHIO" (taken: the question comes again for VECCHIO.MAT), then
    // Rinomina "nuova.mat" (typed with its extension: not doubled). GAS.CFG: Rinomina "GAS2".
    domande.risposte = {RispostaCopia::Rinomina, RispostaCopia::Rinomina, RispostaCopia::Rinomina};
    domande.nomi = {"VECCHIO", " nuova.mat ", "GAS2"};
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    EXPECT_EQ(domande.domande,
              (std::vector<std::string>{Domanda("ACCIAIOL.MAT"), Domanda("VECCHIO.MAT"), DOMANDA_GAS}));
    EXPECT_EQ(domande.rinominati, (std::vector<std::string>{"ACCIAIOL.MAT", "VECCHIO.MAT", "GAS.CFG"}));
    EXPECT_EQ(r.copiati, (std::vector<std::string>{"nuova.mat", "GAS2.CFG"}));
    EXPECT_EQ(a.LeggiByte("ACCIAIOL.MAT"), "serie in uso\r\n");
    EXPECT_EQ(a.LeggiByte("VECCHIO.MAT"), "altro\r\n");
    EXPECT_EQ(a.LeggiByte("nuova.mat"), "nuova serie\r\n");
    // A renamed gas archive is a plain copy: the one in use is left as it is.
    EXPECT_EQ(a.LeggiByte("GAS2.CFG"), "METANO\t0.55\t1.4e-05\t34.02\t37.78\t0\r\n");
    EXPECT_EQ(a.LeggiByte("GAS.CFG"), "GPL\t1.9\t3e-06\t107\t116\t0\r\n");
}

TEST_F(Copia, UnaRinominaAbbandonataONonValidaLasciaIlFile) {
    da.Scrivi("ACCIAIOL.MAT", "nuova\n");
    da.Scrivi("ACCIAIOM.MAT", "nuova\n");
    a.Scrivi("ACCIAIOL.MAT", "in uso\n");
    a.Scrivi("ACCIAIOM.MAT", "in uso\n");
    domande.risposte = {RispostaCopia::Rinomina, RispostaCopia::Rinomina};
    domande.nomi = {"", "../fuori"};
    const RiepilogoCopia r = Archivi();
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    EXPECT_EQ(r.lasciati, (std::vector<std::string>{"ACCIAIOL.MAT", "ACCIAIOM.MAT"}));
    EXPECT_TRUE(r.copiati.empty());
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(a.Percorso()).parent_path() / "fuori.MAT"));
}

TEST(NomiEControlli, MessaggiDelProdotto) {
    EXPECT_EQ(ControllaCartelleArchivi("", " "),
              "Inserire un valore sia per la directory\r\ndi provenienza che per quella di destinazione.");
    EXPECT_EQ(ControllaCartelleArchivi("", "/tmp"), "Inserire un valore per la directory di provenienza.");
    EXPECT_EQ(ControllaCartelleArchivi("/tmp", ""), "Inserire un valore per la directory di destinazione.");
    EXPECT_EQ(ControllaCartelleArchivi("/tmp", "/tmp/"),
              "La cartella di provenienza e quella di destinazione coincidono.");
    EXPECT_EQ(ControllaCartelleArchivi("/tmp", "/"), "");
    EXPECT_EQ(ControllaCartelleArchivi("/tmp/fornax-manca-davvero", "/"), "La cartella di provenienza non esiste.");
    EXPECT_EQ(ControllaCartelleArchivi("/tmp", "/tmp/fornax-manca-davvero"), "La cartella di destinazione non esiste.");
    EXPECT_EQ(ControllaCartellaProgetti("/tmp/fornax-manca-davvero", "/tmp"), "La cartella di provenienza non esiste.");
    EXPECT_EQ(ControllaCartellaProgetti("  ", "/tmp"), "Inserire un valore per la directory di provenienza.");
    EXPECT_EQ(ControllaNomeFile("  "), "E' necessario inserire un nome per il file.");
    for (const char* cattivo : {"a/b", "a\\b", "..", "c:x", "a*", "a?", "a|b", "<a>"})
        EXPECT_FALSE(ControllaNomeFile(cattivo).empty()) << cattivo;
    EXPECT_EQ(ControllaNomeFile("Acciaio vecchio"), "");

    EXPECT_EQ(CartellaArchivioLavori("/opt/fornax/Archivio Lavori"), "/opt/fornax/Archivio Lavori");
    EXPECT_EQ(CartellaArchivioLavori("/opt/fornax/archivio lavori/"), "/opt/fornax/archivio lavori");
    EXPECT_EQ(CartellaArchivioLavori("/home/u/Lavori"), "/home/u/Lavori/Archivio Lavori");
}

TEST_F(Copia, ProgettiInArchivioLavoriConLeStesseDomande) {
    da.Scrivi("villa.RTG", "villa nuova\n");
    da.Scrivi("casa.rtg", "casa\n");
    da.Scrivi("note.txt", "non un progetto\n");
    CartellaProva lavoro{"copia-lavoro"};
    const std::string dest = lavoro.Percorso() + "/Archivio Lavori";
    std::filesystem::create_directories(dest);
    { std::ofstream(dest + "/villa.RTG", std::ios::binary) << "villa in uso\r\n"; }
    domande.risposte = {RispostaCopia::Rinomina};
    domande.nomi = {"villa-vecchia"};
    const RiepilogoCopia r = CopiaProgetti(da.Percorso(), lavoro.Percorso(), programma.Percorso(), msg, domande);
    EXPECT_EQ(r.esito, EsitoCopia::Completata);
    EXPECT_EQ(domande.domande, std::vector<std::string>{Domanda("villa.RTG")});
    EXPECT_EQ(r.copiati, (std::vector<std::string>{"casa.rtg", "villa-vecchia.RTG"}));
    EXPECT_EQ(CartellaProva::LeggiFile(dest + "/villa-vecchia.RTG"), "villa nuova\r\n");
    EXPECT_EQ(CartellaProva::LeggiFile(dest + "/villa.RTG"), "villa in uso\r\n");
    EXPECT_FALSE(std::filesystem::exists(dest + "/note.txt"));

    // The work directory's "Archivio Lavori" is made when missing.
    CartellaProva altro{"copia-lavoro2"};
    const RiepilogoCopia r2 =
        CopiaProgetti(da.Percorso(), altro.Percorso() + "/nuova", programma.Percorso(), msg, domande);
    EXPECT_EQ(r2.esito, EsitoCopia::Completata);
    EXPECT_EQ(CartellaProva::LeggiFile(altro.Percorso() + "/nuova/Archivio Lavori/casa.rtg"), "casa\r\n");
}

TEST_F(Copia, UnErroreVaNelLogAccantoAlProgrammaEFermaLaCopia) {
    TuttiGliArchivi(da, "vecchio");
    // A destination that isn't there (a disconnected drive): the first write fails.
    const std::string manca = a.Percorso("disco-scollegato");
    const auto Prova = [&] { return CopiaArchivi(da.Percorso(), manca, programma.Percorso(), msg, domande); };
    const RiepilogoCopia r = Prova();
    EXPECT_EQ(r.esito, EsitoCopia::Errore);
    EXPECT_TRUE(r.copiati.empty());
    ASSERT_EQ(msg.mostrati.size(), 1u);
    EXPECT_EQ(msg.mostrati[0].testo,
              "Si è verificato un errore durante la copia del file degli archivi.\r\nNon è possibile completare "
              "l'operazione di copia.");
    EXPECT_EQ(msg.mostrati[0].flags, Box::CRITICAL);
    // Two failed runs, two lines: number, description with the folder, date and time.
    Prova();
    const std::string log = programma.LeggiByte("copyArchievesLogFile.txt");
    const std::string attesa = std::to_string(ENOENT) + "   #   File o cartella inesistente: " + manca + "   #   ";
    ASSERT_EQ(log.find(attesa), 0u) << log;
    const size_t secondo = log.find("\r\n") + 2;
    EXPECT_EQ(log.find(attesa, secondo), secondo) << log;
    EXPECT_EQ(log.size(), 2 * (attesa.size() + 19 + 2));
    // "gg/mm/aaaa hh:mm:ss" closes each line.
    const std::string data = log.substr(attesa.size(), 19);
    EXPECT_EQ(data[2], '/');
    EXPECT_EQ(data[5], '/');
    EXPECT_EQ(data[13], ':');
    EXPECT_EQ(log.substr(attesa.size() + 19, 2), "\r\n");

    // A read-only folder (not for root, who writes anyway).
    if (::geteuid() != 0) {
        std::filesystem::create_directories(a.Percorso("sola-lettura"));
        ::chmod(a.Percorso("sola-lettura").c_str(), 0555);
        const RiepilogoCopia ro =
            CopiaArchivi(da.Percorso(), a.Percorso("sola-lettura"), programma.Percorso(), msg, domande);
        ::chmod(a.Percorso("sola-lettura").c_str(), 0755);
        EXPECT_EQ(ro.esito, EsitoCopia::Errore);
        EXPECT_EQ(ro.errore.numero, EACCES);
        EXPECT_EQ(ro.errore.descrizione, "Permesso negato: " + a.Percorso("sola-lettura"));
    }

    // The projects' own log and message, when "Archivio Lavori" can't be made.
    MessaggiRegistrati m2;
    programma.Scrivi("bloccata", "un file, non una cartella\n");
    da.Scrivi("villa.RTG", "villa\n");
    const RiepilogoCopia p =
        CopiaProgetti(da.Percorso(), programma.Percorso("bloccata"), programma.Percorso(), m2, domande);
    EXPECT_EQ(p.esito, EsitoCopia::Errore);
    EXPECT_EQ(m2.Testi(),
              std::vector<std::string>{"Si è verificato un errore durante la copia del file di progetto.\r\n"
                                       "Non è possibile completare l'operazione di copia."});
    EXPECT_NE(programma.LeggiByte("copyProjectsLogFile.txt").find("   #   "), std::string::npos);
}
