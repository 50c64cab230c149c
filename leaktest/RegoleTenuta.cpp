#include "leaktest/RegoleTenuta.h"

#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

constexpr double kCapacitaMaxCdp = 25.0;       // litres: above it the pressure-drop method is not allowed
constexpr double kCapacitaMaxContatore = 3.0;  // litres
const char* const kDescrizioneNorma = "Verifica di tenuta dell'impianto in base alla normativa UNI 11137-1";

// The texts of a text box holding a single or a double value.
std::string TestoSingolo(float v) { return TestoGenerale(static_cast<double>(v), 7); }
std::string TestoDoppio(double v) { return TestoGenerale(v, 15); }

void AzzeraMetodoCdp(VerificaTenuta& r) {
    r.CdpPprova = "0";
    r.CdpPrifer = "0";
    r.CdpCdp = "0";
    r.CdpCdpMax = "0";
    r.CdpStrumento.clear();
    r.CdpMarca.clear();
    r.CdpMatricola.clear();
}

int16_t ProvaConContatore(VerificaTenuta& r, StatoPaginaTenuta& stato, float pr) {
    const double qn = LeggiNumero(r.ContQn);
    if (qn == 0 || qn > 1) {
        stato.erroreContatore =
            "Portata nominale > 1 o pari a 0. L'idoneità della tenuta non può essere attestata con questo "
            "metodo ma tramite C.D.P.";
        return Esito::NON_IDONEO;
    }
    r.ContPRif = TestoSingolo(pr);
    const double pProva = LeggiNumero(r.ContPprova);
    const double rilevata = LeggiNumero(r.ContDispRil);
    double riferita = -1;
    if (pProva == 0) {
        r.ContDispRif = "NC";
    } else {
        riferita = rilevata * static_cast<double>(pr) / pProva;
        r.ContDispRif = TestoDoppio(riferita);
    }
    if (riferita >= 0) {
        if (riferita <= 1) return Esito::IDONEO;
        if (riferita <= 5) return Esito::TEMPORANEO;
    }
    return Esito::NON_IDONEO;
}

int16_t ProvaConCdp(VerificaTenuta& r, float pr, float cr) {
    const double pProva = LeggiNumero(r.CdpPprova);
    const double cadutaRilevata = LeggiNumero(r.CdpCdp);
    r.CdpPrifer = TestoSingolo(pr);
    // Without a reference pressure for the family no admissible drop can be worked out.
    const double cadutaMax = pr != 0 ? pProva * static_cast<double>(cr) / static_cast<double>(pr) : 0.0;
    r.CdpCdpMax = TestoDoppio(cadutaMax);
    return (cadutaMax != 0 && cadutaRilevata <= cadutaMax) ? Esito::IDONEO : Esito::NON_IDONEO;
}

}  // namespace

void ValutaTenuta(VerificaTenuta& r, StatoPaginaTenuta& stato, float pr, float cr) {
    int16_t esito = Esito::NON_IDONEO;
    r.ContPRif.clear();
    r.ContDispRif.clear();
    r.CdpPrifer.clear();
    r.CdpCdpMax.clear();
    stato.erroreContatore.clear();
    stato.erroreCdp.clear();

    const double totale = LeggiNumero(r.CapacitaImpianto) + LeggiNumero(r.CapacitaContatore);
    r.CapacitaTotale = TestoDoppio(totale);
    stato.metodoCdpDisponibile = totale <= kCapacitaMaxCdp;
    if (!stato.metodoCdpDisponibile) {
        if (r.MetodoProva == 2) r.MetodoProva = 0;
        AzzeraMetodoCdp(r);
    }

    if (r.MetodoProva == 1) {
        esito = ProvaConContatore(r, stato, pr);
    } else if (r.MetodoProva == 2) {
        esito = ProvaConCdp(r, pr, cr);
    }
    if (r.DispositivoIntercettazione != 1) esito = Esito::NON_IDONEO;
    if (LeggiNumero(r.CapacitaContatore) > kCapacitaMaxContatore) esito = Esito::NON_IDONEO;
    r.EsitoProva = esito;
}

void TenutaImpiantoRefresh(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, double volumeLitri,
                           Messaggi& msg) {
    VerificaTenuta& r = d.Tenuta;
    if (d.ReteInPressione) {
        stato.descrizione = "Rete gas in pressione: verifica non disponibile";
        stato.descrizioneRossa = true;
        stato.abilitata = false;
        return;
    }
    if (stato.inizializzata) r.CapacitaImpianto = FormattaNumero(volumeLitri, "0.0");

    const int famiglia = d.GasCorrente.Famiglia;
    bool valuta = false;
    switch (famiglia) {
        case 0:
            stato.descrizione = "Gas non combustibile";
            stato.descrizioneRossa = true;
            stato.abilitata = false;
            stato.opzioneFamiglia = 0;
            break;
        case 1:
        case 2:
            stato.descrizione = kDescrizioneNorma;
            stato.descrizioneRossa = false;
            stato.abilitata = true;
            stato.opzioneFamiglia = famiglia;
            valuta = true;
            break;
        case 3:
            stato.descrizione = "III Famiglia: Norma in corso di elaborazione alla data di aggiornamento del software";
            stato.descrizioneRossa = true;
            stato.abilitata = false;
            stato.opzioneFamiglia = 3;
            break;
        default:
            msg.Mostra("Assertion error: Famiglia di gas sconoscuta");
            return;
    }
    // A gas that doesn't burn and the third family (no reference values in the 2004 edition
    // of the norm) leave the verdict as the record holds it.
    if (valuta) {
        const ParFamGas& p = a.ParFam[static_cast<size_t>(famiglia)];
        ValutaTenuta(r, stato, p.PressioneRiferimento, p.DispersioneRiferimento);
    }
    r.FamigliaGas = static_cast<int16_t>(famiglia);
}

void TenutaImpiantoInit(Documento& d, const Archivi& a, const DefaultTenuta& ditta, StatoPaginaTenuta& stato,
                        double volumeLitri, Messaggi& msg) {
    VerificaTenuta& r = d.Tenuta;
    if (r.RagSociale.empty() && r.Indirizzo.empty() && r.Telefono.empty() && r.NomeTecnico.empty()) {
        r.RagSociale = ditta.RagSociale;
        r.Indirizzo = ditta.Indirizzo;
        r.Telefono = ditta.Telefono;
        r.NomeTecnico = ditta.NomeTecnico;
    }
    // The first judgement runs while the page is being filled: the capacity of the pipes is
    // the one recorded; from then on it follows the network.
    TenutaImpiantoRefresh(d, a, stato, volumeLitri, msg);
    stato.inizializzata = true;
}

}  // namespace fornax
