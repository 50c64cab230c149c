// The leak-test record field by field: the table the page and fornax-cli use agrees with the
// project file's block, the causes' boxes, the numeric check, the named edits of the page, the
// JSON of fornax-cli, and the judgement the writer makes before a save.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "calc/Computo.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/ServiziProva.h"
#include "documento/Tenuta.h"
#include "editing/Modifiche.h"
#include "leaktest/CampiTenuta.h"
#include "leaktest/TenutaJson.h"
#include "sessione/Sessione.h"
#include "tests/calc/JsonMinimo.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;

namespace {

// A record with a different text in every field: strings name their field, integers count.
VerificaTenuta RecordDistinto() {
    VerificaTenuta r;
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c)
        ImpostaCampoTenuta(r, c, CampoTenutaIntero(c) ? std::to_string(c % 4) : "campo " + std::to_string(c));
    return r;
}

std::vector<std::string> RigheBlocco(const VerificaTenuta& r) {
    ScrittoreTesto w;
    SalvaTenuta(w, r);
    std::vector<std::string> righe;
    const std::string& t = w.Contenuto();
    for (size_t i = 0; i < t.size();) {
        const size_t f = t.find("\r\n", i);
        righe.push_back(t.substr(i, f - i));
        i = f + 2;
    }
    return righe;
}

}  // namespace

TEST(CampiTenuta, LaTabellaSegueIlBloccoDelFileDiProgetto) {
    const VerificaTenuta r = RecordDistinto();
    const std::vector<std::string> righe = RigheBlocco(r);
    ASSERT_EQ(righe.size(), 53u);
    EXPECT_EQ(righe[0], MARCA_TENUTA);
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
        SCOPED_TRACE(c);
        EXPECT_EQ(TestoCampoTenuta(r, c), righe[static_cast<size_t>(c)]);
        EXPECT_FALSE(NomeCampoTenuta(c).empty());
    }
    // Read back field by field, the record writes the same block.
    VerificaTenuta letto;
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) ImpostaCampoTenuta(letto, c, righe[static_cast<size_t>(c)]);
    EXPECT_EQ(RigheBlocco(letto), righe);
    // And the block's reader reads the table's texts into the same record.
    std::string blocco;
    for (const auto& x : righe) blocco += x + "\r\n";
    FileTesto f;
    f.ApriDaTesto(blocco);
    VerificaTenuta caricato;
    CaricaTenuta(f, caricato);
    EXPECT_EQ(RigheBlocco(caricato), righe);

    EXPECT_EQ(NomeCampoTenuta(1), "txtTenutaImpiantoRagSociale");
    EXPECT_EQ(NomeCampoTenuta(CampoTenuta::ESITO), "EsitoProva");
    EXPECT_EQ(NomeCampoTenuta(52), "txtTenutaImpiantoNote");
    EXPECT_EQ(NomeCampoTenuta(0), "");
    EXPECT_EQ(NomeCampoTenuta(53), "");
    EXPECT_EQ(TestoCampoTenuta(r, 53), "");
    // The integers are the family, the six counts and the three codes.
    int interi = 0;
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) interi += CampoTenutaIntero(c) ? 1 : 0;
    EXPECT_EQ(interi, 10);
}

TEST(CampiTenuta, CauseDellIntervento) {
    struct Caso {
        const char* testo;
        std::array<bool, NUM_CAUSE> segnate;
    } casi[] = {
        {"1;;3;;;;", {true, false, true, false, false, false, false}},
        {";;;;;;7", {false, false, false, false, false, false, true}},
        {"1;2;3;4;5;6;7", {true, true, true, true, true, true, true}},
        {"x;;;;;;", {true, false, false, false, false, false, false}},  // any text ticks its box
        {";;;;;;", {}},
        {"", {}},                 // one field
        {"1;;3", {}},             // three fields: nothing ticked
        {"1;;3;;;;;", {}},        // eight fields
        {"1;2;3;4;5;6;7;8", {}},  // eight fields
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.testo);
        EXPECT_EQ(CauseSegnate(c.testo), c.segnate);
    }
    EXPECT_EQ(TestoCause({true, false, true, false, false, false, false}), "1;;3;;;;");
    EXPECT_EQ(TestoCause({}), ";;;;;;");
    EXPECT_EQ(TestoCause({true, true, true, true, true, true, true}), "1;2;3;4;5;6;7");
}

TEST(CampiTenuta, InvioSuUnCampoNumerico) {
    using namespace CampoTenuta;
    EXPECT_EQ(ControllaCampoNumerico(CAPACITA_CONTATORE, "3,5"), "3");
    EXPECT_EQ(ControllaCampoNumerico(CAPACITA_CONTATORE, "3,01"), "3");
    EXPECT_EQ(ControllaCampoNumerico(CAPACITA_CONTATORE, "3"), "3");
    EXPECT_EQ(ControllaCampoNumerico(CAPACITA_CONTATORE, "2,9"), "2,9");
    EXPECT_EQ(ControllaCampoNumerico(CAPACITA_CONTATORE, ""), "");
    EXPECT_EQ(ControllaCampoNumerico(CONT_QN, "3,5"), "3,5");
    EXPECT_EQ(ControllaCampoNumerico(CDP_PPROVA, "9999"), "9999");
    for (int c : {CAPACITA_CONTATORE, CONT_QN, CONT_PPROVA, CONT_DISP_RIL, CDP_PPROVA, CDP_CDP})
        EXPECT_TRUE(CampoTenutaNumerico(c)) << c;
    for (int c : {CAPACITA_IMPIANTO, CAPACITA_TOTALE, CONT_PRIF, CDP_CDPMAX, APP_COMPLESSIVO, NOTE})
        EXPECT_FALSE(CampoTenutaNumerico(c)) << c;
}

TEST(ModificheTenuta, LaPaginaScriveSoloCioCheSiDigitaESegnaIlProgetto) {
    auto d = std::make_unique<Documento>();
    d->ReteModificata = FALSO;
    EXPECT_TRUE(modifica::ScriviCampoTenuta(*d, 5, "Anna Bianchi"));
    EXPECT_EQ(d->Tenuta.ProprietarioNome, "Anna Bianchi");
    EXPECT_EQ(d->ReteModificata, VERO);
    d->ReteModificata = FALSO;
    EXPECT_FALSE(modifica::ScriviCampoTenuta(*d, 5, "Anna Bianchi"));  // the same text: no edit
    EXPECT_EQ(d->ReteModificata, FALSO);
    // A count keeps the number its text begins with.
    EXPECT_TRUE(modifica::ScriviCampoTenuta(*d, CampoTenuta::APP_COMPLESSIVO, "3 apparecchi"));
    EXPECT_EQ(d->Tenuta.AppComplessivo, 3);
    EXPECT_FALSE(modifica::ScriviCampoTenuta(*d, CampoTenuta::APP_COMPLESSIVO, "3"));
    // What the rules work out and the options' codes are not typed.
    d->ReteModificata = FALSO;
    for (int c :
         {CampoTenuta::FAMIGLIA_GAS, CampoTenuta::CAPACITA_IMPIANTO, CampoTenuta::CAPACITA_TOTALE, CampoTenuta::CAUSE,
          CampoTenuta::METODO, CampoTenuta::CONT_PRIF, CampoTenuta::CONT_DISP_RIF, CampoTenuta::CDP_PRIFER,
          CampoTenuta::CDP_CDPMAX, CampoTenuta::DISPOSITIVO, CampoTenuta::ESITO, 0, 53}) {
        EXPECT_FALSE(modifica::ScriviCampoTenuta(*d, c, "1")) << c;
    }
    EXPECT_EQ(d->Tenuta.EsitoProva, 0);
    EXPECT_EQ(d->Tenuta.CapacitaImpianto, "");
    EXPECT_EQ(d->ReteModificata, FALSO);

    // The boxes of the causes: a damaged text shows nothing ticked, and the first tick starts
    // a sound one.
    d->Tenuta.CauseIntervento = "1;3";
    EXPECT_TRUE(modifica::SegnaCausaIntervento(*d, 4, true));
    EXPECT_EQ(d->Tenuta.CauseIntervento, ";;;4;;;");
    EXPECT_TRUE(modifica::SegnaCausaIntervento(*d, 7, true));
    EXPECT_TRUE(modifica::SegnaCausaIntervento(*d, 4, false));
    EXPECT_EQ(d->Tenuta.CauseIntervento, ";;;;;;7");
    EXPECT_FALSE(modifica::SegnaCausaIntervento(*d, 4, false));
    EXPECT_FALSE(modifica::SegnaCausaIntervento(*d, 8, true));

    d->ReteModificata = FALSO;
    EXPECT_TRUE(modifica::ScegliMetodoProva(*d, 2));
    EXPECT_FALSE(modifica::ScegliMetodoProva(*d, 2));
    EXPECT_FALSE(modifica::ScegliMetodoProva(*d, 3));
    EXPECT_TRUE(modifica::ScegliDispositivoIntercettazione(*d, 1));
    EXPECT_FALSE(modifica::ScegliDispositivoIntercettazione(*d, 0));
    EXPECT_EQ(d->Tenuta.MetodoProva, 2);
    EXPECT_EQ(d->Tenuta.DispositivoIntercettazione, 1);
    EXPECT_EQ(d->ReteModificata, VERO);
}

TEST(TenutaJson, IlRecordComeLaPaginaLoMostra) {
    VerificaTenuta r = RecordDistinto();
    r.RagSociale = "Impianti \"Rossi\" & C.";
    r.EsitoProva = 2;
    r.FamigliaGas = 1;
    StatoPaginaTenuta st;
    st.descrizione = "Verifica di tenuta dell'impianto in base alla normativa UNI 11137-1";
    st.erroreCdp = "caduta";
    st.metodoCdpDisponibile = false;
    st.abilitata = true;
    const prova::Json j = prova::LeggiJson(TenutaJson(r, st));
    EXPECT_EQ(j["EsitoProva"].Intero(), 2);
    EXPECT_EQ(j["FamigliaGas"].Intero(), 1);
    ASSERT_EQ(j["campi"].elenco.size(), 52u);
    EXPECT_EQ(j["campi"].elenco[0].testo, "Impianti \"Rossi\" & C.");
    EXPECT_EQ(j["campi"].elenco[50].testo, "2");
    EXPECT_EQ(j["campi"].elenco[51].testo, "campo 52");
    EXPECT_EQ(j["descrizione"].testo, st.descrizione);
    ASSERT_EQ(j["errori"].elenco.size(), 1u);  // only the labels that show a text
    EXPECT_EQ(j["errori"].elenco[0].testo, "caduta");
    EXPECT_FALSE(j["metodoCdpDisponibile"].booleano);
    EXPECT_TRUE(j["paginaAbilitata"].booleano);
    std::vector<std::string> chiavi;
    for (const auto& [k, v] : j.oggetto) chiavi.push_back(k);
    EXPECT_EQ(chiavi, (std::vector<std::string>{"EsitoProva", "FamigliaGas", "campi", "descrizione", "errori",
                                                "metodoCdpDisponibile", "paginaAbilitata"}));
}

TEST(RegoleTenuta, CasiLimiteDelleRegole) {
    auto d = std::make_unique<Documento>();
    Archivi a;
    a.ParFam[1] = {800.0f, 25.0f};
    a.ParFam[2] = {2200.0f, 68.0f};
    MessaggiRegistrati msg;
    StatoPaginaTenuta st;
    st.inizializzata = true;
    d->GasCorrente.Famiglia = 2;
    VerificaTenuta& r = d->Tenuta;
    r.DispositivoIntercettazione = 1;
    r.MetodoProva = 1;
    r.ContQn = "1";
    r.ContPprova = "3";
    r.ContDispRil = "0,5";
    // The pipes' capacity follows the network with one decimal; the total and the referred
    // leak are doubles written with 15 significant digits.
    TenutaImpiantoRefresh(*d, a, st, 1.23456, msg);
    EXPECT_EQ(r.CapacitaImpianto, "1.2");
    EXPECT_EQ(r.CapacitaTotale, "1.2");
    EXPECT_EQ(r.ContDispRif, "366.666666666667");
    EXPECT_EQ(r.EsitoProva, Esito::NON_IDONEO);
    EXPECT_FALSE(EsitoInRosso(VerificaTenuta{}));
    EXPECT_TRUE(EsitoInRosso(r));

    // Exactly 25 litres keeps the pressure-drop method; a pressure of 0 gives no admissible drop.
    r.MetodoProva = 2;
    r.CapacitaContatore = "3";
    r.CdpPprova = "0";
    r.CdpCdp = "0";
    TenutaImpiantoRefresh(*d, a, st, 22.0, msg);
    EXPECT_TRUE(st.metodoCdpDisponibile);
    EXPECT_EQ(r.CapacitaTotale, "25");
    EXPECT_EQ(r.CdpCdpMax, "0");
    EXPECT_EQ(r.EsitoProva, Esito::NON_IDONEO);
    EXPECT_TRUE(MetodoAperto(r, 2));
    EXPECT_FALSE(MetodoAperto(r, 1));
    // First family: its own reference values.
    d->GasCorrente.Famiglia = 1;
    r.CdpPprova = "1600";
    r.CdpCdp = "50";
    TenutaImpiantoRefresh(*d, a, st, 22.0, msg);
    EXPECT_EQ(r.CdpPrifer, "800");
    EXPECT_EQ(r.CdpCdpMax, "50");
    EXPECT_EQ(r.EsitoProva, Esito::IDONEO);
    EXPECT_EQ(r.FamigliaGas, 1);
    EXPECT_EQ(st.opzioneFamiglia, 1);
    // 22.05 shows as 22.1 (one decimal): 25.1 litres withdraws the method.
    TenutaImpiantoRefresh(*d, a, st, 22.06, msg);
    EXPECT_FALSE(st.metodoCdpDisponibile);
    EXPECT_EQ(r.MetodoProva, 0);
    EXPECT_EQ(r.CdpPprova, "0");
    EXPECT_EQ(r.CdpCdp, "0");
    EXPECT_TRUE(CoppiaSenzaRisposta(r.MetodoProva));
    EXPECT_EQ(r.EsitoProva, Esito::NON_IDONEO);

    // A gas that doesn't burn: the page is closed and the verdict stays as recorded.
    d->GasCorrente.Famiglia = 0;
    r.EsitoProva = Esito::IDONEO;
    TenutaImpiantoRefresh(*d, a, st, 1.0, msg);
    EXPECT_EQ(st.descrizione, "Gas non combustibile");
    EXPECT_TRUE(st.descrizioneRossa);
    EXPECT_FALSE(st.abilitata);
    EXPECT_EQ(st.opzioneFamiglia, 0);
    EXPECT_EQ(r.EsitoProva, Esito::IDONEO);
    EXPECT_EQ(r.FamigliaGas, 0);
    EXPECT_TRUE(msg.mostrati.empty());
}

// Opening keeps the capacity the record holds; the writer judges the record once more with the
// capacity of the network, and what the user typed is written as it stands.
TEST(RegoleTenuta, IlSalvataggioGiudicaConLaCapacitaDellaRete) {
    prova::CartellaProva programma{"tenuta-programma"};
    programma.CopiaDa(FORNAX_BUILD_DATA_DIR);
    Archivi a;
    ImpostazioniInMemoria imp;
    auto s = std::make_unique<Sessione>(a, imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    ASSERT_TRUE(CaricaArchivi(*s, programma.Percorso(), av, msg));
    ASSERT_TRUE(
        ApriProgetto(*s, std::string(FORNAX_ACCETTAZIONE_DIR) + "/projects/i25_leaktest_meter_ok.RTG", msg, av));
    EXPECT_EQ(s->d.Tenuta.CapacitaImpianto, "");  // as recorded
    EXPECT_EQ(s->d.Tenuta.CapacitaContatore, "2,5");
    EXPECT_EQ(s->d.Tenuta.CapacitaTotale, "2.5");
    EXPECT_EQ(s->d.Tenuta.EsitoProva, Esito::IDONEO);  // the file says 3: the rules say 1
    EXPECT_EQ(s->d.Tenuta.ContDispRif, "0.8");
    const VerificaTenuta aperto = s->d.Tenuta;

    Ricalcola(*s, msg);  // the sections get their diameters
    ASSERT_TRUE(SalvaProgetto(*s, programma.Percorso("salvato.RTG"), msg));
    const std::string rete = FormattaNumero(VolumeTubazioni(s->d, a) / 1000.0, "0.0");
    ASSERT_NE(rete, "0.0");
    EXPECT_EQ(s->d.Tenuta.CapacitaImpianto, rete);
    EXPECT_EQ(LeggiNumero(s->d.Tenuta.CapacitaTotale), LeggiNumero(rete) + 2.5);
    const std::string salvato = programma.LeggiByte("salvato.RTG");
    EXPECT_NE(salvato.find("\r\n" + rete + "\r\n2,5\r\n" + s->d.Tenuta.CapacitaTotale + "\r\n12/03/2024\r\n"),
              std::string::npos);

    // Reopened, every field reads as saved.
    const VerificaTenuta primaDiRiaprire = s->d.Tenuta;
    ASSERT_TRUE(ApriProgetto(*s, programma.Percorso("salvato.RTG"), msg, av));
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
        SCOPED_TRACE(c);
        EXPECT_EQ(TestoCampoTenuta(s->d.Tenuta, c), TestoCampoTenuta(primaDiRiaprire, c));
        if (c != CampoTenuta::CAPACITA_IMPIANTO && c != CampoTenuta::CAPACITA_TOTALE) {
            EXPECT_EQ(TestoCampoTenuta(s->d.Tenuta, c), TestoCampoTenuta(aperto, c));
        }
    }
}
