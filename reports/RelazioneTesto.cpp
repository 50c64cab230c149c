// The report as a plain text file for other tools: no pages, no header and no footer, lines
// in order with tabs between the fields, so that a spreadsheet reads the tables as columns.

#include <string>
#include <vector>

#include "core/Servizi.h"
#include "reports/Esecuzione.h"
#include "reports/FileRelazione.h"
#include "reports/Relazione.h"
#include "reports/Stampa.h"

namespace fornax {

namespace {

constexpr char kTab = '\t';  // SeparatoreTxt

class ScrittoreTxt final : public Impaginatore {
public:
    ScrittoreTxt(FileRelazione& f, const Documento& d, const std::string& percorso, const SalvaSchema& schema)
        : f_(f), d_(d), percorso_(percorso), schema_(schema) {}

    // The run's order: from the table of sections on, a rule parts a section from the one
    // before it.
    void Copertina(const CopertinaRelazione& c) override;
    void Tabelle(int, const std::vector<TabellaRelazione>& tabelle, bool dopoAltre) override {
        if (dopoAltre) Separatore();
        for (const TabellaRelazione& t : tabelle) Tabella(t);
    }
    void Computo(const ComputoRelazione& c, bool dopoAltre) override {
        if (dopoAltre) Separatore();
        ScriviComputo(c);
    }
    void Tenuta(const std::vector<VoceTenuta>& voci, bool dopoAltre) override {
        if (dopoAltre) Separatore();
        ScriviTenuta(voci);
    }
    // The picture is saved beside the text, which does not refer to it; its name keeps the
    // reference as it stands.
    void Schema() override {
        if (schema_) schema_(FileSchema(d_, percorso_, false));
    }

private:
    void Separatore();
    void Tabella(const TabellaRelazione& t);
    void ScriviComputo(const ComputoRelazione& c);
    void ScriviTenuta(const std::vector<VoceTenuta>& voci);
    void Riga(std::string_view s = {}) { f_.Riga(s); }
    void Vuote(int n) {
        for (int i = 0; i < n; ++i) Riga();
    }
    FileRelazione& f_;
    const Documento& d_;
    const std::string& percorso_;
    const SalvaSchema& schema_;
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

void ScrittoreTxt::ScriviComputo(const ComputoRelazione& c) {
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

void ScrittoreTxt::ScriviTenuta(const std::vector<VoceTenuta>& voci) {
    using T = VoceTenuta::Tipo;
    for (const VoceTenuta& v : voci) {
        switch (v.tipo) {
            case T::Spazio:
                Riga();
                break;
            case T::Titolo:
            case T::Intestazione:
            case T::Riga:
                Riga(v.testo);
                break;
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

EsitoStampa PrintTXTFile(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso,
                         Avanzamento& av, Messaggi& msg, const SalvaSchema& schema) {
    Esecuzione run(o.selezione, av);
    FileRelazione f;
    EsitoStampa esito;
    try {
        f.Apri(percorso);
        ScrittoreTxt w(f, d, percorso, schema);
        PercorriRelazione(d, a, o.selezione, run, w, msg);
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
