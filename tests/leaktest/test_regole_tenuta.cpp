#include <gtest/gtest.h>

#include <memory>

#include "core/ServiziProva.h"
#include "leaktest/RegoleTenuta.h"

using namespace fornax;

namespace {

constexpr float kPr = 2200.0f;  // reference pressure of the second family, Pa
constexpr float kCr = 68.0f;    // reference drop

VerificaTenuta ProvaContatore(const char* qn, const char* pProva, const char* rilevata) {
    VerificaTenuta r;
    r.MetodoProva = 1;
    r.DispositivoIntercettazione = 1;
    r.CapacitaImpianto = "2,5";
    r.ContQn = qn;
    r.ContPprova = pProva;
    r.ContDispRil = rilevata;
    return r;
}

int16_t Giudica(VerificaTenuta& r) {
    StatoPaginaTenuta s;
    ValutaTenuta(r, s, kPr, kCr);
    return r.EsitoProva;
}

}  // namespace

TEST(RegoleTenuta, MetodoDelContatore) {
    auto r = ProvaContatore("0,6", "2200", "0,8");
    EXPECT_EQ(Giudica(r), Esito::IDONEO);
    EXPECT_EQ(r.ContPRif, "2200");
    EXPECT_EQ(r.ContDispRif, "0.8");
    EXPECT_EQ(r.CapacitaTotale, "2.5");

    auto esattamenteUno = ProvaContatore("1", "2200", "1");
    EXPECT_EQ(Giudica(esattamenteUno), Esito::IDONEO);
    auto esattamenteCinque = ProvaContatore("0.5", "1100", "2.5");  // 2.5 * 2200 / 1100 = 5
    EXPECT_EQ(Giudica(esattamenteCinque), Esito::TEMPORANEO);
    auto oltre = ProvaContatore("0.5", "2200", "5.01");
    EXPECT_EQ(Giudica(oltre), Esito::NON_IDONEO);

    auto qnTroppoAlta = ProvaContatore("1.01", "2200", "0.1");
    StatoPaginaTenuta s;
    ValutaTenuta(qnTroppoAlta, s, kPr, kCr);
    EXPECT_EQ(qnTroppoAlta.EsitoProva, Esito::NON_IDONEO);
    EXPECT_NE(s.erroreContatore.find("Portata nominale > 1 o pari a 0."), std::string::npos);
    EXPECT_EQ(qnTroppoAlta.ContPRif, "");

    auto senzaPressione = ProvaContatore("0.5", "abc", "0.1");
    EXPECT_EQ(Giudica(senzaPressione), Esito::NON_IDONEO);
    EXPECT_EQ(senzaPressione.ContDispRif, "NC");
}

TEST(RegoleTenuta, DispositivoEContatoreDecidonoComunque) {
    auto r = ProvaContatore("0.6", "2200", "0.8");
    r.DispositivoIntercettazione = 2;
    EXPECT_EQ(Giudica(r), Esito::NON_IDONEO);
    auto grande = ProvaContatore("0.6", "2200", "0.8");
    grande.CapacitaContatore = "3,1";
    EXPECT_EQ(Giudica(grande), Esito::NON_IDONEO);
    auto nessunMetodo = ProvaContatore("0.6", "2200", "0.8");
    nessunMetodo.MetodoProva = 0;
    EXPECT_EQ(Giudica(nessunMetodo), Esito::NON_IDONEO);
}

TEST(RegoleTenuta, CadutaDiPressioneEVenticinqueLitri) {
    VerificaTenuta r;
    r.MetodoProva = 2;
    r.DispositivoIntercettazione = 1;
    r.CapacitaImpianto = "22";
    r.CapacitaContatore = "3";  // exactly 25 litres keeps the method
    r.CdpPprova = "2200";
    r.CdpCdp = "68";
    r.CdpStrumento = "Manometro";
    EXPECT_EQ(Giudica(r), Esito::IDONEO);
    EXPECT_EQ(r.CdpPrifer, "2200");
    EXPECT_EQ(r.CdpCdpMax, "68");
    r.CdpCdp = "68.5";
    EXPECT_EQ(Giudica(r), Esito::NON_IDONEO);

    r.CapacitaImpianto = "22,1";  // 25.1 litres: the method is withdrawn and its data cleared
    StatoPaginaTenuta s;
    ValutaTenuta(r, s, kPr, kCr);
    EXPECT_FALSE(s.metodoCdpDisponibile);
    EXPECT_EQ(r.MetodoProva, 0);
    EXPECT_EQ(r.CdpPprova, "0");
    EXPECT_EQ(r.CdpStrumento, "");
    EXPECT_EQ(r.EsitoProva, Esito::NON_IDONEO);
}

TEST(RegoleTenuta, FamigliaEReteInPressione) {
    auto d = std::make_unique<Documento>();
    Archivi a;
    a.ParFam[2] = {kPr, kCr};
    MessaggiRegistrati msg;
    StatoPaginaTenuta s;
    DefaultTenuta ditta{"Impianti Rossi", "Via Roma 5", "030 1", "Mario Rossi"};

    d->GasCorrente.Famiglia = 2;
    d->Tenuta = ProvaContatore("0.6", "2200", "0.8");
    TenutaImpiantoInit(*d, a, ditta, s, 99.0, msg);
    EXPECT_EQ(d->Tenuta.EsitoProva, Esito::IDONEO);
    EXPECT_EQ(d->Tenuta.RagSociale, "Impianti Rossi");  // the firm's defaults fill an empty record
    EXPECT_EQ(d->Tenuta.CapacitaImpianto, "2,5");       // as recorded, until the page is loaded
    EXPECT_EQ(d->Tenuta.FamigliaGas, 2);
    TenutaImpiantoRefresh(*d, a, s, 3.14159, msg);
    EXPECT_EQ(d->Tenuta.CapacitaImpianto, "3.1");

    // The third family has no reference values: the verdict stays as recorded.
    d->GasCorrente.Famiglia = 3;
    d->Tenuta.EsitoProva = Esito::TEMPORANEO;
    TenutaImpiantoRefresh(*d, a, s, 1.0, msg);
    EXPECT_EQ(d->Tenuta.EsitoProva, Esito::TEMPORANEO);
    EXPECT_FALSE(s.abilitata);
    EXPECT_EQ(d->Tenuta.FamigliaGas, 3);

    d->GasCorrente.Famiglia = 7;
    TenutaImpiantoRefresh(*d, a, s, 1.0, msg);
    EXPECT_EQ(msg.Testi().back(), "Assertion error: Famiglia di gas sconoscuta");

    d->ReteInPressione = VERO;
    TenutaImpiantoRefresh(*d, a, s, 1.0, msg);
    EXPECT_EQ(s.descrizione, "Rete gas in pressione: verifica non disponibile");
    EXPECT_FALSE(s.abilitata);
}
