#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>

#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "core/ServiziProva.h"
#include "core/Testo.h"
#include "documento/Campi.h"
#include "documento/Progetto.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;
using fornax::prova::CartellaProva;

namespace {

const std::string ACCETTAZIONE = FORNAX_ACCETTAZIONE_DIR;

// A program folder with the acceptance archives, where saving may write the firm's defaults.
struct Progetti : ::testing::Test {
    CartellaProva dir{"progetti"};
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    std::unique_ptr<Documento> d = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    AvanzamentoNullo av;

    void SetUp() override {
        dir.CopiaDa(ACCETTAZIONE + "/archives");
        ASSERT_TRUE(CaricaArchivi(*a, *d, dir.Percorso(), av, msg, false));
        // These archives hold pure propane, whose Wobbe index at 15 °C fits no family.
        ASSERT_EQ(msg.Testi(), std::vector<std::string>{"Errore di Attribuzione famiglia del gas: indice Wobbe-Inf = "
                                                        "70.70 non associabile a nessuna famiglia"});
        msg.mostrati.clear();
    }
    bool Leggi(const std::string& percorso) {
        d = std::make_unique<Documento>();
        AzzeraRete(*d, a->Default);
        return LeggiProgetto(*d, *a, percorso, msg, av);
    }
    std::string Salva(const std::string& nome) {
        EXPECT_TRUE(ScriviProgetto(*d, *a, dir.Percorso(nome), msg));
        return dir.LeggiByte(nome);
    }
};

std::vector<std::string> Righe(const std::string& testo) {
    std::vector<std::string> r;
    size_t i = 0;
    while (i < testo.size()) {
        size_t j = testo.find("\r\n", i);
        if (j == std::string::npos) j = testo.size();
        r.push_back(testo.substr(i, j - i));
        i = j + 2;
    }
    return r;
}

}  // namespace

TEST_F(Progetti, ApriSalvaApriSalvaDaFileIdentici) {
    for (const auto& e : std::filesystem::directory_iterator(ACCETTAZIONE + "/projects")) {
        SCOPED_TRACE(e.path().filename().string());
        ASSERT_TRUE(Leggi(e.path().string()));
        const std::string primo = Salva("uno.RTG");
        ASSERT_TRUE(Leggi(dir.Percorso("uno.RTG")));
        EXPECT_EQ(Salva("due.RTG"), primo);

        // Against the original: only the signature and the automatic limit, which a save
        // stores as the value in force, may differ.
        const auto orig = Righe(CartellaProva::LeggiFile(e.path().string()));
        const auto nuovo = Righe(primo);
        ASSERT_EQ(orig.size(), nuovo.size());
        EXPECT_EQ(nuovo[0].substr(0, 3), orig[0].substr(0, 3));
        EXPECT_EQ(nuovo[0].substr(3), "5.1.0");
        for (size_t i = 1; i < orig.size(); ++i)
            // A ',' in a text of the parameters or of a section comes back as '.'.
            if (i != 7 || orig[i] != " 0 ") {
                EXPECT_TRUE(nuovo[i] == orig[i] || nuovo[i] == VirgolePunti(orig[i]))
                    << "riga " << i + 1 << ": " << nuovo[i];
            }
    }
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST_F(Progetti, ProgettoScrittoDalVecchioProgrammaWindows) {
    // Version 2 signature (no extended parameters), comments everywhere, decimal commas,
    // print-style numbers, an accented reference, no leak-test block.
    dir.Scrivi("vecchio.rtg",
               "FX 2.1.0\n#\n# commento\n!PARAMETERS\nCasa Verdi, località Sàn Vito\nRistrutturazione\nmetano\n"
               " 1,5E+02 \n\n~PARAMETERS\n#\n%\n[\n"
               "0\t0\t0\t0\t0\t0\t0\t0\t.\t0\t0\t0\t0\t0\t0\t0\t0\t.\t.\n"
               "1\t0\t0\t 12,5 \t2\t1\t0\t0\t.\t0\t0\t0\t0\t0\t0\t2\t0\tacciaiom\tR,1\n"
               "# una riga di commento tra i tronchi\n"
               "2\t1,42E-05\t0\t3\t0\t0\t0\t0\t1\"\t-1\t0\t0\t0\t0\t1\t0\t0\tACCIAIOM\t.\n"
               "]\n!PARAMETERS-DOCUMENTPATH\nC:\\Lavori\\Verdi\n\n~PARAMETERS-DOCUMENTPATH\n!END\n");
    d->ReteInPressione = VERO;
    d->VelocitaMassima = 9;
    ASSERT_TRUE(Leggi(dir.Percorso("vecchio.rtg")));
    EXPECT_TRUE(msg.mostrati.empty());
    EXPECT_EQ(d->Riferimento, "Casa Verdi. località Sàn Vito");
    EXPECT_EQ(d->GasCorrente.Nome, "METANO");
    EXPECT_EQ(d->DpMax, 150.0);
    EXPECT_EQ(d->ReteInPressione, FALSO);
    EXPECT_EQ(d->OrientamentoSorgente, 0);
    EXPECT_EQ(d->VelocitaMassima, 15.0f);  // kept as it was: not in a version 2 file
    EXPECT_EQ(d->NumTronchi(), 2);
    EXPECT_EQ(d->T(1).ID_LEN, 12.5f);
    EXPECT_EQ(d->T(1).ID_NCURVE, 2);
    EXPECT_EQ(d->T(1).ID_NGOMITI, 1);
    EXPECT_EQ(d->T(1).ID_LEFT, 2);
    EXPECT_EQ(d->T(1).ID_MATERIALE, "acciaiom");
    EXPECT_EQ(d->T(1).IndiceMateriale, IndiceMateriale(*a, "ACCIAIOM"));
    EXPECT_EQ(d->T(1).ID_RIF, "R.1");
    EXPECT_EQ(d->T(2).ID_P_UTENZE, 1.42e-05f);
    EXPECT_EQ(d->T(2).ID_DIAMETRO, "1\"");
    EXPECT_EQ(d->T(2).ID_DIAMCUSTOM, VERO);
    EXPECT_EQ(d->T(2).ID_RIF, "");
    EXPECT_EQ(d->ArchivioDocumenti, "C:\\Lavori\\Verdi");
    EXPECT_EQ(d->NomeFileProgetto, dir.Percorso("vecchio.rtg"));
    EXPECT_EQ(d->ReteModificata, FALSO);

    // Saved in today's format: accents in Windows-1252, the reference on one line.
    d->Riferimento = "Casa Verdi\r\nlocalità Sàn Vito";
    const std::string scritto = Salva("nuovo.RTG");
    EXPECT_EQ(scritto.substr(0, 20), "FX 5.1.0\r\n#\r\n#\r\n!PAR");
    EXPECT_NE(scritto.find("\r\nCasa Verdi  localit\xe0 S\xe0n Vito\r\nRistrutturazione\r\nMETANO\r\n 150 \r\n 0 \r\n"),
              std::string::npos);
    EXPECT_NE(
        scritto.find(
            "\r\n!PARAMETERS-DOCUMENTPATH\r\nC:\\Lavori\\Verdi\r\n\r\n~PARAMETERS-DOCUMENTPATH\r\n#\r\n#\r\n!END\r\n"),
        std::string::npos);
    EXPECT_NE(scritto.find("\r\n!VERIFICATENUTA1137-1\r\n"), std::string::npos);
}

TEST_F(Progetti, FileRifiutatiConIlMessaggioDelProdotto) {
    dir.Scrivi("testo.RTG", "Lista della spesa\n");
    EXPECT_FALSE(Leggi(dir.Percorso("testo.RTG")));
    EXPECT_EQ(msg.Testi().back(), "Archivio non riconosciuto!");
    EXPECT_EQ(d->CaricamentoProgetto, FALSO);

    dir.Scrivi("futuro.RTG", "FX 6.0.0\n!PARAMETERS\n.\n.\nMETANO\n");
    EXPECT_FALSE(Leggi(dir.Percorso("futuro.RTG")));
    EXPECT_EQ(msg.mostrati.back().testo,
              "Impossibile aprire il file.\r\nIl file è stato creato con la versione 6 di Fornax");
    EXPECT_EQ(msg.mostrati.back().titolo, "Errore");
    EXPECT_EQ(msg.mostrati.back().flags, Box::INFORMATION);

    EXPECT_FALSE(Leggi(dir.Percorso("non-esiste.RTG")));
    EXPECT_EQ(msg.Testi().back(), "Il file selezionato non esiste");

    // A fourth character that isn't a digit skips the version check.
    dir.Scrivi("strano.RTG", "FXPX\n!PARAMETERS\n.\n.\nMETANO\n 0 \n[\n]\n");
    msg.mostrati.clear();
    EXPECT_TRUE(Leggi(dir.Percorso("strano.RTG")));
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST_F(Progetti, RigheDiTroppiCampiEIndiciFuoriTabella) {
    const std::string testa =
        "FX 5.0.7\n!PARAMETERS\n.\n.\nMETANO\n 100 \n 0 \n 15 \n 200 \n 150 \n 0 \n 2 \n\n~PARAMETERS\n[\n";
    std::string cinquanta = "1";
    for (int i = 1; i < 50; ++i) cinquanta += "\t" + std::to_string(i == 14 ? 0 : 7);
    dir.Scrivi("cinquanta.RTG", testa + "0\n" + cinquanta + "\n]\n");
    ASSERT_TRUE(Leggi(dir.Percorso("cinquanta.RTG")));
    EXPECT_EQ(d->NumTronchi(), 1);  // 50 fields: the last two are dropped
    EXPECT_TRUE(msg.mostrati.empty());

    dir.Scrivi("cinquantuno.RTG", testa + "0\n" + cinquanta + "\t1\n]\n");
    ASSERT_TRUE(Leggi(dir.Percorso("cinquantuno.RTG")));
    EXPECT_EQ(msg.Testi().back(), "Troppo campi nel tronco");
    EXPECT_EQ(d->NumTronchi(), 0);  // the count isn't updated

    // Links far outside the table are dropped on reading; a derivation past the last section
    // survives in memory and is repaired by saving.
    dir.Scrivi("collegamenti.RTG", testa + "0\n1\t0\t0\t1\t0\t0\t0\t0\t.\t0\t0\t0\t0\t0\t-7\t2\t30000\tACCIAIOM\n]\n");
    ASSERT_TRUE(Leggi(dir.Percorso("collegamenti.RTG")));
    EXPECT_EQ(d->T(1).ID_PREV, 0);
    EXPECT_EQ(d->T(1).ID_LEFT, 2);
    EXPECT_EQ(d->T(1).ID_RIGHT, 0);
    Salva("riparato.RTG");
    EXPECT_EQ(d->T(1).ID_LEFT, 0);
}

TEST_F(Progetti, GasEMaterialeSconosciutiSostituitiUnaVolta) {
    const std::string testo =
        "FX 5.0.7\n!PARAMETERS\n.\n.\nPROPANO PURO\n 100 \n 0 \n 15 \n 200 \n 150 \n 0 \n 2 \n\n[\n"
        "0\n1\t0\t0\t1\t0\t0\t0\t0\t.\t0\t0\t0\t0\t0\t0\t2\t0\tFERRO\n"
        "2\t1\t1\t1\t0\t0\t0\t0\t.\t0\t0\t0\t0\t0\t1\t0\t0\tferro\n]\n";
    dir.Scrivi("ignoti.RTG", testo);
    msg.scelte = {3, 1};  // GPL for the gas, the first material for FERRO
    ASSERT_TRUE(Leggi(dir.Percorso("ignoti.RTG")));
    EXPECT_EQ(msg.Testi().at(0),
              "Attenzione! Il gas PROPANO PURO selezionato non è disponibile, verrà impostato un gas alternativo");
    EXPECT_EQ(msg.mostrati.at(0).flags, Box::CRITICAL);
    EXPECT_EQ(d->GasCorrente.Nome, a->Gas[3].Nome);
    EXPECT_EQ(msg.sostituzioniChieste.size(), 2u);  // FERRO asked once for both rows
    EXPECT_EQ(d->T(1).ID_MATERIALE, a->Materiali[1].Nome);
    EXPECT_EQ(d->T(2).ID_MATERIALE, a->Materiali[1].Nome);
    EXPECT_EQ(d->T(2).IndiceMateriale, 1);
    EXPECT_EQ(d->ReteModificata, VERO);

    // Without an answer for the gas the project can't be used.
    msg.scelte.clear();
    EXPECT_FALSE(Leggi(dir.Percorso("ignoti.RTG")));
    EXPECT_EQ(d->CaricamentoProgetto, FALSO);
}

TEST_F(Progetti, FileTroncatiOCasualiNonFannoDanni) {
    const std::string buono = CartellaProva::LeggiFile(ACCETTAZIONE + "/projects/i25_leaktest_meter_ok.RTG");
    for (size_t taglio = 0; taglio < buono.size(); taglio += 7) {
        dir.ScriviByte("tronco.RTG", buono.substr(0, taglio));
        Leggi(dir.Percorso("tronco.RTG"));
        EXPECT_LE(d->NumTronchi(), MAX_TRONCHI);
    }
    std::mt19937 caso(12345);
    for (int prova = 0; prova < 200; ++prova) {
        std::string byte = buono;
        for (int k = 0; k < 20; ++k) byte[caso() % byte.size()] = static_cast<char>(caso() % 256);
        if (prova % 2 == 1) {
            byte.clear();
            for (int k = 0; k < 500; ++k) byte += static_cast<char>(caso() % 256);
        }
        dir.ScriviByte("caso.RTG", byte);
        Leggi(dir.Percorso("caso.RTG"));
        for (int i = 0; i <= MAX_TRONCHI; ++i) {
            ASSERT_GE(d->T(i).ID_LEFT, 0);
            ASSERT_LE(d->T(i).ID_RIGHT, MAX_TRONCHI);
        }
    }
}

TEST_F(Progetti, LimiteAutomaticoSalvatoComeValoreFisso) {
    ASSERT_TRUE(Leggi(ACCETTAZIONE + "/projects/i03_chain4_2008.RTG"));
    EXPECT_EQ(d->DpMax, 0.0);
    const auto righe = Righe(Salva("fisso.RTG"));
    EXPECT_EQ(righe[7], " 100 ");  // second family, below the threshold, 2008 edition
    ASSERT_TRUE(Leggi(dir.Percorso("fisso.RTG")));
    EXPECT_EQ(d->DpMax, 100.0);
}

TEST_F(Progetti, CampiPerColonna) {
    ASSERT_TRUE(Leggi(ACCETTAZIONE + "/projects/i03_chain4_2008.RTG"));
    // Computed fields: power in W on the inferior calorific value (superior for a cooker).
    d->T(4).ID_P_TRONCO = 3.1f;
    EXPECT_EQ(std::get<double>(LeggiCampo(*d, *a, 4, Id::ID_P_KW)), 29286.386542585205);
    EXPECT_EQ(std::get<double>(LeggiCampo(*d, *a, 4, Id::ID_P_KCAL)), 25186.292426623277);
    EXPECT_EQ(std::get<std::string>(LeggiCampo(*d, *a, 4, Id::ID_NOMETIPOUTENZA)), "Riscaldamento");
    d->T(4).ID_TIPOUTENZA = TipoUtenza::FORNELLO;
    EXPECT_EQ(std::get<std::string>(LeggiCampo(*d, *a, 4, Id::ID_NOMETIPOUTENZA)), "Cottura");
    EXPECT_GT(std::get<double>(LeggiCampo(*d, *a, 4, Id::ID_P_KW)), 29286.4);
    d->T(4).ID_EQ_LEN = 10.0f;
    d->T(4).ID_LEN = 2.0f;
    d->T(4).ID_EQLENNOTA = 0.5f;
    EXPECT_EQ(std::get<float>(LeggiCampo(*d, *a, 4, Id::ID_EQLENLOC)), 7.5f);
    const int acc = IndiceMateriale(*a, "ACCIAIOM");
    const std::string dn = a->Materiali[static_cast<size_t>(acc)].Righe[2].DN;
    ScriviCampo(*d, *a, 4, Id::ID_DIAMETRO, dn, msg);
    EXPECT_EQ(std::get<float>(LeggiCampo(*d, *a, 4, Id::ID_DIAMETRO_INTERNO)),
              a->Materiali[static_cast<size_t>(acc)].Righe[2].DiamInterno);
    EXPECT_FALSE(LeggiCampo(*d, *a, 4, 0).index() != 0);
    EXPECT_FALSE(LeggiCampo(*d, *a, 4, 50).index() != 0);

    // Numbers from text: the numeric prefix, rounded half to even for integers.
    ScriviCampo(*d, *a, 4, Id::ID_NCURVE, std::string("12.7abc"), msg);
    EXPECT_EQ(d->T(4).ID_NCURVE, 13);
    ScriviCampo(*d, *a, 4, Id::ID_NGOMITI, std::string("2.5"), msg);
    EXPECT_EQ(d->T(4).ID_NGOMITI, 2);
    ScriviCampo(*d, *a, 4, Id::ID_LEN, std::string(""), msg);
    EXPECT_EQ(d->T(4).ID_LEN, 0.0f);
    ScriviCampo(*d, *a, 4, Id::ID_RACCORDO_BIS, 1.25, msg);
    EXPECT_EQ(d->T(4).ID_RACCORDO, 1.25f);
    ScriviCampo(*d, *a, 4, Id::ID_SCOLLEGATO, std::string("5"), msg);
    EXPECT_EQ(d->T(4).ID_SCOLLEGATO, VERO);
    // Computed and read-only fields can't be set.
    const Tronco prima = d->T(4);
    for (int id : {int{Id::ID_P_KW}, int{Id::ID_P_KCAL}, int{Id::ID_NOMETIPOUTENZA}, int{Id::ID_DIAMETRO_INTERNO},
                   int{Id::ID_PFINALE}, int{Id::ID_EQLENLOC}, 0, 50})
        ScriviCampo(*d, *a, 4, id, std::string("99"), msg);
    EXPECT_EQ(d->T(4).ID_PFINALE, prima.ID_PFINALE);
    EXPECT_EQ(d->T(4).ID_EQ_LEN, prima.ID_EQ_LEN);
    // The material is found without regard to case by column.
    ScriviCampo(*d, *a, 4, Id::ID_MATERIALE, std::string("acciaiom"), msg);
    EXPECT_EQ(d->T(4).IndiceMateriale, acc);
    EXPECT_TRUE(msg.mostrati.empty());

    // The final pressure is written but doesn't come back.
    d->T(4).ID_PFINALE = 1.5f;
    Salva("pf.RTG");
    ASSERT_TRUE(Leggi(dir.Percorso("pf.RTG")));
    EXPECT_EQ(d->T(4).ID_PFINALE, 0.0f);

    MessaggiRegistrati m;
    EXPECT_EQ(IdDaChiave(" id_len ", m), Id::ID_LEN);
    EXPECT_EQ(IdDaChiave("ID_PFINALE", m), Id::ID_PFINALE);
    EXPECT_EQ(IdDaChiave("ID_LUNGHEZZA", m), 0);
    EXPECT_EQ(m.Testi(), std::vector<std::string>{"ID_LUNGHEZZANon trovato:"});
}

TEST_F(Progetti, BloccoDellaProvaDiTenuta) {
    ASSERT_TRUE(Leggi(ACCETTAZIONE + "/projects/i25_leaktest_meter_ok.RTG"));
    const VerificaTenuta& t = d->Tenuta;
    EXPECT_EQ(t.RagSociale, "Impianti Rossi s.r.l.");
    EXPECT_EQ(t.ProprietarioTel, "");
    EXPECT_EQ(t.FamigliaGas, 2);
    EXPECT_EQ(t.CapacitaContatore, "2,5");  // kept as typed, comma and all
    EXPECT_EQ(t.CauseIntervento, "1;;3;;;;");
    EXPECT_EQ(t.AppComplessivo, 2);
    EXPECT_EQ(t.MetodoProva, 1);
    EXPECT_EQ(t.ContDispRif, "");
    EXPECT_EQ(t.DispositivoIntercettazione, 1);
    EXPECT_EQ(t.EsitoProva, 3);  // as recorded; the leak-test rules judge it again on the page

    // Saving writes the firm's four lines as the defaults of the next project.
    Salva("tenuta.RTG");
    const auto ditta = Righe(dir.LeggiByte("TENIMPTECDEF.CFG"));
    EXPECT_EQ(ditta,
              (std::vector<std::string>{"4.0", "Impianti Rossi s.r.l.", "Via Roma 5", "030 123456", "Mario Rossi"}));

    // A project without the block keeps the record as it was, and its document path.
    dir.Scrivi("senza.RTG",
               "FX 2.0.0\n!PARAMETERS\n.\n.\nMETANO\n 0 \n[\n0\n]\n"
               "!PARAMETERS-DOCUMENTPATH\n/lavori/x\n\n~PARAMETERS-DOCUMENTPATH\n!END\n");
    d->Tenuta.Note = "resta";
    ASSERT_TRUE(LeggiProgetto(*d, *a, dir.Percorso("senza.RTG"), msg, av));
    EXPECT_EQ(d->Tenuta.Note, "resta");
    EXPECT_EQ(d->ArchivioDocumenti, "/lavori/x");
}

TEST(Colonne, FileDelleColonneDecifratoInUndiciTabelle) {
    auto a = std::make_unique<Archivi>();
    a->Cartella = ACCETTAZIONE + "/reports/program";
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    ASSERT_TRUE(LeggiColonne(*a, msg, av));
    EXPECT_TRUE(msg.mostrati.empty());
    for (int t = 0; t < NUM_TABELLE; ++t) EXPECT_GE(a->Colonne.NumColonne[static_cast<size_t>(t)], 1) << t;
    const ColonnaTabella& c = a->Colonne.Tabelle[0][0];
    EXPECT_NE(c.Id, 0);
    EXPECT_FALSE(c.Titolo1.empty());

    // A damaged column line stops the reading; an unknown key shows itself.
    CartellaProva dir("colonne");
    dir.ScriviByte("GRIDGAS.CNE", CodificaRiga("# prova") + "\r\n" +
                                      CodificaRiga("Lungh.\t#0,00\t0\tm\t8\tID_LUNGO\tLunghezza, in metri") + "\r\n" +
                                      CodificaRiga("+") + "\r\n" + CodificaRiga("Solo\tsei\t0\t.\t8\tID_LEN") + "\r\n" +
                                      CodificaRiga("Mai\t#\t0\t.\t8\tID_LEN\tletta") + "\r\n");
    a->Cartella = dir.Percorso();
    ASSERT_TRUE(LeggiColonne(*a, msg, av));
    EXPECT_EQ(msg.Testi(), (std::vector<std::string>{"ID_LUNGONon trovato:", "Numero campi nella tabella errato"}));
    EXPECT_EQ(a->Colonne.NumColonne[0], 0);
    EXPECT_EQ(a->Colonne.Tabelle[0][0].Formato, "#0.00");
    EXPECT_EQ(a->Colonne.Tabelle[0][0].Suggerimento, "Lunghezza. in metri");
    EXPECT_EQ(a->Colonne.NumColonne[1], -1);
}

// What a user types may hold a line break, a tab, or begin with '#' (a house number): none of it
// may turn a line into a comment or split it, or every line after it would shift on reading.
TEST_F(Progetti, TestiDellUtenteNonSpostanoLeRighe) {
    ASSERT_TRUE(Leggi(ACCETTAZIONE + "/projects/i25_leaktest_meter_ok.RTG"));
    d->Riferimento = "#12 Casa Rossi";
    d->DescrizioneLavoro = "primo piano\r\nsecondo piano";
    d->ArchivioDocumenti = "#archivio";
    d->T(1).ID_NAME = "Cucina\tpiano #1";
    d->Tenuta.Note = "#nota";
    d->Tenuta.RagSociale = "#1 Impianti\n";
    const float lunghezza = d->T(2).ID_LEN;
    const VerificaTenuta prima = d->Tenuta;
    const std::string scritto = Salva("testi.RTG");
    // The firm's defaults are read line by line, comments and all: the firm stays as typed.
    EXPECT_EQ(Righe(dir.LeggiByte("TENIMPTECDEF.CFG")).at(1), "#1 Impianti ");

    ASSERT_TRUE(Leggi(dir.Percorso("testi.RTG")));
    EXPECT_EQ(d->Riferimento, " #12 Casa Rossi");
    EXPECT_EQ(d->DescrizioneLavoro, "primo piano  secondo piano");
    EXPECT_EQ(d->ArchivioDocumenti, " #archivio");
    EXPECT_EQ(d->T(1).ID_NAME, "Cucina piano #1");
    EXPECT_EQ(d->T(2).ID_LEN, lunghezza);
    EXPECT_EQ(d->Tenuta.Note, " #nota");
    EXPECT_EQ(d->Tenuta.RagSociale, " #1 Impianti ");
    EXPECT_EQ(d->Tenuta.EsitoProva, prima.EsitoProva);
    EXPECT_EQ(d->Tenuta.CapacitaContatore, prima.CapacitaContatore);
    EXPECT_EQ(Salva("testi2.RTG"), scritto);

    // A size in a row is read without the blanks at its ends, as it is written: it is found in
    // the pipe's table at once, not only after a save.
    const std::string misura = a->Materiali[1].Righe[1].DN;
    std::string riga = "1";
    for (int id = 3; id <= Id::ID_DIAMETRO; ++id) riga += id == Id::ID_DIAMETRO ? "\t " + misura + " " : "\t0";
    dir.Scrivi("spazi.RTG", "FX 2.0.0\n!PARAMETERS\n.\n.\nMETANO\n 0 \n[\n0\n" + riga + "\n]\n!END\n");
    ASSERT_TRUE(Leggi(dir.Percorso("spazi.RTG")));
    EXPECT_EQ(d->T(1).ID_DIAMETRO, misura);
}
