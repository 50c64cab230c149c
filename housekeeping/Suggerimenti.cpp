#include "housekeeping/Suggerimenti.h"

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Rete.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

void SostituisciTutti(std::string& testo, const std::string& cosa, const std::string& con) {
    for (size_t p = testo.find(cosa); p != std::string::npos; p = testo.find(cosa, p + con.size()))
        testo.replace(p, cosa.size(), con);
}

// Takes every `tag` out of the text; true when there was one.
bool TogliTag(std::string& testo, const std::string& tag) {
    bool trovato = false;
    for (size_t p = testo.find(tag); p != std::string::npos; p = testo.find(tag, p)) {
        testo.erase(p, tag.size());
        trovato = true;
    }
    return trovato;
}

bool RigaDaSaltare(const std::string& riga) { return Trim(riga).empty() || riga[0] == '#'; }

std::vector<TipRecord> Leggi(FileTesto& f) {
    std::vector<TipRecord> elenco;
    while (!f.Fine()) {
        const std::string riga = f.RigaFisica();
        if (RigaDaSaltare(riga)) continue;
        TipRecord t;
        t.Testo = riga;
        if (TogliTag(t.Testo, "<SWCOMPANY=1>")) t.SoloEditore = 1;
        TogliTag(t.Testo, "<SWCOMPANY=0>");
        // A line that held only a tag has nothing to show.
        if (Trim(t.Testo).empty()) continue;
        SostituisciTutti(t.Testo, "<br>", "\r\n");
        SostituisciTutti(t.Testo, "<BR>", "\r\n");
        elenco.push_back(std::move(t));
    }
    // The slot behind the last tip stays empty: the next-tip rule counts on it.
    elenco.emplace_back();
    return elenco;
}

}  // namespace

std::vector<TipRecord> LeggiHints(const std::string& cartellaProgramma) {
    FileTesto f;
    const std::string percorso = TrovaFile(cartellaProgramma, "HINTS.CFG");
    if (EsisteFile(percorso)) f.Apri(percorso);
    return Leggi(f);
}

std::vector<TipRecord> LeggiHintsDaTesto(const std::string& contenuto) {
    FileTesto f;
    f.ApriDaTesto(contenuto);
    return Leggi(f);
}

BloccoEditore BloccoEditorePredefinito() {
    BloccoEditore b;
    b.Personalizzato = FALSO;
    b.Riga1 = "Gruppo di sviluppo Fornax";
    b.Riga2 = "Software tecnico per impianti gas";
    b.Riga3 = "Assistenza: manuale del programma (menu ?, Manuale...)";
    b.Riga4 = "Aggiornamenti: presso il proprio distributore";
    return b;
}

BloccoEditore LeggiBloccoEditore(const std::string& cartellaProgramma) {
    const std::string percorso = TrovaFile(cartellaProgramma, "SWCOMPANY.CFG");
    FileTesto f;
    if (!EsisteFile(percorso) || !f.Apri(percorso)) return BloccoEditorePredefinito();
    std::vector<std::string> righe;
    while (!f.Fine() && righe.size() < 4) {
        const std::string riga = f.RigaFisica();
        if (!RigaDaSaltare(riga)) righe.push_back(Trim(riga));
    }
    // A file of comments only is the distributor's model, not yet filled in.
    if (righe.empty()) return BloccoEditorePredefinito();
    righe.resize(4);
    BloccoEditore b;
    b.Personalizzato = VERO;
    b.Riga1 = righe[0];
    b.Riga2 = righe[1];
    b.Riga3 = righe[2];
    b.Riga4 = righe[3];
    return b;
}

void LeggiImpostazioniHints(Suggerimenti& s, const Impostazioni& imp) {
    const std::string mostra = Maiuscolo(Trim(imp.Leggi(SEZIONE_SUGGERIMENTI, CHIAVE_MOSTRA, "true")));
    s.MostraSuggerimenti = (mostra == "FALSE" || mostra == "0") ? FALSO : VERO;
    s.UltimoSuggerimento = ArrotondaI16(LeggiNumero(imp.Leggi(SEZIONE_SUGGERIMENTI, CHIAVE_ULTIMO, "0")));
}

void SalvaImpostazioniHints(const Suggerimenti& s, Impostazioni& imp) {
    imp.Scrivi(SEZIONE_SUGGERIMENTI, CHIAVE_MOSTRA, s.MostraSuggerimenti != FALSO ? "true" : "false");
    imp.Scrivi(SEZIONE_SUGGERIMENTI, CHIAVE_ULTIMO, std::to_string(s.UltimoSuggerimento));
}

const TipRecord* ProssimoSuggerimento(Suggerimenti& s, const BloccoEditore& editore) {
    // The modulus is the highest index, so the empty slot behind the last tip is never reached.
    const int u = static_cast<int>(s.ElencoTips.size()) - 1;
    if (u <= 0) return nullptr;
    int i = s.UltimoSuggerimento;
    // One pass at most: a distributor's file of publisher's tips only shows nothing rather than
    // turning for ever.
    for (int giro = 0; giro < u; ++giro) {
        const int indice = ((i % u) + u) % u;
        const TipRecord& r = s.ElencoTips[static_cast<size_t>(indice)];
        i = indice + 1;
        s.UltimoSuggerimento = static_cast<int16_t>(i);
        if (!(editore.Personalizzato != FALSO && r.SoloEditore == 1)) return &r;
    }
    return nullptr;
}

}  // namespace fornax
