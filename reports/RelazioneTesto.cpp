// The report as a plain text file for other tools: no pages, no header and no footer, lines
// in order with tabs between the fields, so that a spreadsheet reads the tables as columns.

#include <string>
#include <vector>

#include "calc/Calcolo.h"
#include "core/Servizi.h"
#include "reports/Esecuzione.h"
#include "reports/FileRelazione.h"
#include "reports/Relazione.h"
#include "reports/Stampa.h"

namespace fornax {

namespace {

constexpr char kTab = '\t';  // SeparatoreTxt

class ScrittoreTxt {
public:
    explicit ScrittoreTxt(FileRelazione& f) : f_(f) {}

    void Copertina(const CopertinaRelazione& c);
    void Separatore();
    void Tabella(const TabellaRelazione& t);
    void Computo(const ComputoRelazione& c);
    void Tenuta(const std::vector<VoceTenuta>& voci);

private:
    void Riga(std::string_view s = {}) { f_.Riga(s); }
    void Vuote(int n) {
        for (int i = 0; i < n; ++i) Riga();
    }
    FileRelazione& f_;
};

void ScrittoreTxt::Copertina(const CopertinaRelazione& c) {
    const std::string t(1, kTab);
    Riga(c.titolo);
    Riga(SOTTOTITOLO_COPERTINA);
    Vuote(3);
    Riga("Riferimento :" + t + c.riferimento);
    Vuote(2);
    Riga((c.pressione ? "Lavoro : " : "Lavoro: ") + t + c.lavoro);
    Vuote(2);
    Riga("Normativa di riferimento: " + t + c.normativa);
    Vuote(1);
    Riga("Tipo gas : " + t + c.tipoGas);
    Vuote(1);
    const std::string massaViscosita =
        "Massa volumica : " + t + c.massaVolumica + " kg/mc Viscosità : " + t + c.viscosita + " mmq/s";
    if (!c.pressione) {
        Riga("Densità : " + t + c.densita + t + "Famiglia : " + std::to_string(c.famiglia));
        Vuote(1);
        Riga(massaViscosita);
        Vuote(1);
        Riga("Potere Calorifico inferiore : " + t + c.pci + " MJ/mc Potere Calorifico superiore : " + t + c.pcs +
             " MJ/mc");
        Vuote(1);
        Riga("Perdita di pressione massima ammessa : " + t + c.limitePa + " Pa(" + c.limiteMbar + ")");
        Vuote(1);
        Riga("Portata totale gas : " + t + c.portataTotale + " Nmc/h");
        return;
    }
    Riga("Densità : " + t + c.densita + t + massaViscosita);
    Vuote(1);
    Riga("Pressione relativa iniziale : " + t + c.pressioneIniziale + "(" + c.pressioneInizialeBar + ")");
    Vuote(1);
    Riga("Pressione relativa minima finale : " + t + c.pressioneFinale + "(" + c.pressioneFinaleBar +
         ") Velocità massima impostata: " + t + c.velocitaImpostata);
    Vuote(1);
    Riga("Velocità massima calcolata: " + t + c.velocitaCalcolata);
    Vuote(1);
    Riga("Portata gas : totale = " + t + c.portataNominale + " Nmc/h massima contemporanea : " + t +
         c.portataContemporanea + " Nmc/h");
}

void ScrittoreTxt::Separatore() {
    Vuote(3);
    Riga(std::string(63, '='));
    Vuote(3);
}

// Every line of a table ends in a tab, so a spreadsheet sees one empty column at the right.
void ScrittoreTxt::Tabella(const TabellaRelazione& t) {
    Riga();
    Riga(t.titolo);
    Riga();
    std::string titoli;
    for (const ColonnaRelazione& c : t.colonne)
        titoli += Sinistra(c.titolo1, c.budget) + " " + Sinistra(c.titolo2, c.budget) + kTab;
    Riga(titoli);
    for (const RigaRelazione& r : t.righe) {
        std::string riga;
        for (size_t c = 0; c < r.valori.size(); ++c) riga += Sinistra(r.valori[c], t.colonne[c].budget) + kTab;
        Riga(riga);
    }
    if (t.totale) {
        Riga();
        Riga(t.totale->etichetta + " " + Sinistra(t.totale->valore, t.colonne[t.totale->colonna].budget));
    }
}

void ScrittoreTxt::Computo(const ComputoRelazione& c) {
    Riga();
    Riga(TITOLO_COMPUTO);
    Riga();
    for (const MaterialeComputo& m : c.materiali) {
        Riga();
        Riga("Tipo tubazione: " + m.nome);
        Riga();
        Riga("Descrizione: " + m.descrizione);
        Riga();
        if (m.acciaio) Riga("Peso totale: " + m.peso + " Kg");
        Riga();
        Riga(std::string("DN") + kTab + "mt");
        for (const auto& [dn, mt] : m.diametri) Riga(Sinistra(dn, 7) + kTab + mt);
        Riga();
    }
    Riga();
    if (!c.pesoAcciaio.empty()) Riga("Peso totale tubazioni in acciaio: " + c.pesoAcciaio + " Kg");
    Vuote(2);
}

void ScrittoreTxt::Tenuta(const std::vector<VoceTenuta>& voci) {
    using T = VoceTenuta::Tipo;
    for (const VoceTenuta& v : voci) {
        switch (v.tipo) {
            case T::Spazio: Riga(); break;
            case T::Titolo:
            case T::Intestazione:
            case T::Riga: Riga(v.testo); break;
            case T::Elenco:
            case T::Firme:
                for (const std::string& s : v.elementi) Riga(s);
                break;
            case T::Apparecchi:
                for (const auto& [conteggio, etichetta] : v.coppie) Riga(conteggio + etichetta);
                break;
        }
    }
}

}  // namespace

EsitoStampa PrintTXTFile(Documento& d, Archivi& a, const OpzioniStampa& o, const std::string& percorso,
                         Avanzamento& av, Messaggi& msg, const SalvaSchema& schema) {
    const ReportSelection& s = o.selezione;
    Esecuzione run(s, av);
    FileRelazione f;
    EsitoStampa esito;
    try {
        f.Apri(percorso);
        ScrittoreTxt w(f);
        CalcolaRete(d, a, msg);
        int scritte = 0;
        if (s.Copertina) {
            run.Inizia(Fase::COPERTINA, "Frontespizio");
            w.Copertina(Copertina(d, a));
            ++scritte;
            run.Avanza();
        }
        // From the table of sections on, a rule parts each section from the one before.
        auto sezione = [&](int fase, const char* testo, const auto& scrivi) {
            run.Inizia(fase, testo);
            if (scritte > 0) w.Separatore();
            scrivi();
            ++scritte;
            run.Avanza();
        };
        if (s.Tronchi) sezione(Fase::TRONCHI, "Tabella dati tronchi", [&] { w.Tabella(TabellaTronchi(d, a)); });
        if (s.PDCLocalizzate)
            sezione(Fase::PERDITE, "Tabella PDC localizzate", [&] {
                for (const TabellaRelazione& t : TabellePerdite(d, a)) w.Tabella(t);
            });
        if (s.Verifica)
            sezione(Fase::PERCORSO, "Verifica percorso piu' sfavorito", [&] { w.Tabella(TabellaPercorso(d, a)); });
        if (s.Utenze) sezione(Fase::UTENZE, "Riepilogo utenze", [&] { w.Tabella(TabellaUtenze(d, a)); });
        if (s.Computo) {
            run.Inizia(Fase::COMPUTO, "Calcolo totale computo ");
            const ComputoRelazione c = Computo(d, a);
            sezione(Fase::COMPUTO, "Tabella totale computo ", [&] { w.Computo(c); });
        }
        if (s.TenutaImpianto)
            sezione(Fase::TENUTA, "Verifica Tenuta impianto", [&] {
                AggiornaTenuta(d);
                w.Tenuta(TenutaRelazione(d.Tenuta, d.GasCorrente.Nome));
            });
        if (s.DiagrammaRete && schema) {
            // The picture is saved beside the text, which does not refer to it.
            run.Inizia(Fase::SCHEMA, "DiagrammaRete");
            schema(FileSchema(d, percorso, false));
            run.Avanza();
        }
        if (o.logo) CopiaLogo(a, percorso);
        f.Chiudi();
    } catch (const ErroreEsecuzione& e) {
        esito = {false, run.fase, e.Codice(), e.what()};
    } catch (const std::exception& e) {
        esito = {false, run.fase, CodiceErrore::INTERNO, e.what()};
    }
    return esito;
}

}  // namespace fornax
