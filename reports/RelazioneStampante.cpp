#include "reports/RelazioneStampante.h"

#include <algorithm>
#include <cmath>

#include "core/Cartelle.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

// The logo is measured in twips: 15 to the pixel of a 96 dpi screen.
constexpr int kTwipPerPixel = 15;

int Intero(double v) { return static_cast<int>(std::floor(v)); }

}  // namespace

std::string FontNonDisponibile(const std::string& nome) {
    return "Il font '" + nome + "' non e' disponibile per la stampante corrente";
}

GeometriaPagina ImpostaPagina(int larghezza, int altezza, const ProporzioniPagina& p) {
    const int px = p.PercentoX > 0 ? p.PercentoX : 100;
    const int py = p.PercentoY > 0 ? p.PercentoY : 100;
    GeometriaPagina g;
    g.AltezzaStampa = ArrotondaI32(static_cast<double>(altezza - 100) * py / 100.0);
    g.LarghezzaStampa = ArrotondaI32(static_cast<double>(larghezza - 2000) * px / 100.0);
    g.FondoPagina = g.AltezzaStampa - 2000;
    g.CimaPagina = 800;
    g.SogliaSezione = ArrotondaI32(altezza * 0.75);
    g.ScaleLeft = (g.LarghezzaStampa - larghezza) / 2.0;
    g.ScaleTop = -600.0;
    return g;
}

std::vector<std::string> ACapo(std::string_view testo, int budget) {
    std::vector<std::string> righe;
    const size_t n = static_cast<size_t>(std::max(1, budget));
    std::string riga;
    size_t i = 0;
    while (i < testo.size()) {
        while (i < testo.size() && testo[i] == ' ') ++i;
        size_t fine = testo.find(' ', i);
        if (fine == std::string_view::npos) fine = testo.size();
        std::string parola(testo.substr(i, fine - i));
        i = fine;
        if (parola.empty()) break;
        const std::string prova = riga.empty() ? parola : riga + " " + parola;
        if (static_cast<size_t>(NumeroCaratteri(prova)) <= n) {
            riga = prova;
            continue;
        }
        if (!riga.empty()) righe.push_back(riga);
        // A word longer than the line is cut where the line ends.
        while (static_cast<size_t>(NumeroCaratteri(parola)) > n) {
            const std::string testa = Sinistra(parola, static_cast<int>(n));
            righe.push_back(testa);
            parola = parola.substr(testa.size());
        }
        riga = parola;
    }
    if (!riga.empty() || righe.empty()) righe.push_back(riga);
    return righe;
}

ImpaginatoreStampante::ImpaginatoreStampante(DispositivoStampa& dev, const Documento& d, const OpzioniStampante& o,
                                             Avanzamento& av, Messaggi& msg)
    : dev_(dev), d_(d), o_(o), av_(av), msg_(msg) {
    g_ = ImpostaPagina(dev_.Larghezza(), dev_.Altezza(), o_.proporzioni);
    if (o_.stampa.logo && !o_.fileLogo.empty()) {
        int32_t l = 0, a = 0;
        if (DimensioniBmp(o_.fileLogo, l, a)) {
            logoL_ = l * kTwipPerPixel;
            logoA_ = a * kTwipPerPixel;
        }
    }
}

// ---- The printer's state ----

namespace {

void ImpostaFontSuDispositivo(DispositivoStampa& dev, const Carattere& c, std::set<std::string>& segnalati,
                              Messaggi& msg) {
    // A font the printer lacks is reported once a run; the printer goes on with its own.
    if (!dev.ImpostaFont(c) && segnalati.insert(c.nome).second) msg.Mostra(FontNonDisponibile(c.nome));
}

}  // namespace

void ImpaginatoreStampante::ImpostaFont(const std::string& nome) {
    font_.nome = nome;
    ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
}

void ImpaginatoreStampante::Font(double dimensione, bool grassetto) {
    font_.dimensione = dimensione;
    font_.grassetto = grassetto;
    font_.corsivo = false;
    ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
}

void ImpaginatoreStampante::Pronto() {
    if (pagina_ == 0) {
        pagina_ = 1;
    } else if (inSospeso_) {
        dev_.NuovaPagina();
        ++pagina_;
    } else {
        return;
    }
    inSospeso_ = false;
    piede_ = false;
}

void ImpaginatoreStampante::Stampa(std::string_view testo, bool aCapo) {
    if (!testo.empty()) {
        Pronto();
        dev_.Testo(CurrentX - g_.ScaleLeft, CurrentY - g_.ScaleTop, testo);
    }
    if (aCapo) {
        CurrentX = 0;
        CurrentY += TextHeight();
    } else {
        CurrentX += TextWidth(testo);
    }
}

void ImpaginatoreStampante::RigaVuota(int n) {
    for (int i = 0; i < n; ++i) Stampa({});
}

void ImpaginatoreStampante::Linea(double x1, double y1, double x2, double y2) {
    Pronto();
    dev_.Linea(x1 - g_.ScaleLeft, y1 - g_.ScaleTop, x2 - g_.ScaleLeft, y2 - g_.ScaleTop);
}

// The next page begins with the next thing drawn, so that a run never ends on a blank page.
void ImpaginatoreStampante::NuovaPagina() {
    if (pagina_ > 0) inSospeso_ = true;
    CurrentX = 0;
    CurrentY = 0;
}

void ImpaginatoreStampante::CambiaPagina() {
    if (!inSospeso_) {
        PiePagina();
        NuovaPagina();
    }
    Intestazione();
}

bool ImpaginatoreStampante::ControlloPagina(int righe) {
    av_.Respira();
    if (CurrentY + righe * TextHeight() < g_.FondoPagina - 400) return false;
    CambiaPagina();
    return true;
}

void ImpaginatoreStampante::Spazio() {
    for (int i = 0; i < 3; ++i) {
        RigaVuota();
        ControlloPagina();
    }
}

void ImpaginatoreStampante::ScriviCentrato(const std::string& testo, double dimensione) {
    const Carattere prima = font_;
    if (dimensione > 0) Font(dimensione, font_.grassetto);
    CurrentX = (g_.LarghezzaStampa - TextWidth(testo)) / 2;
    Stampa(testo);
    if (dimensione > 0) {
        font_ = prima;
        ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
    }
}

// The project's base name: the file name less its folder and its extension; a long one gives
// way to the tail of the whole path.
std::string ImpaginatoreStampante::NomeBase() const {
    const std::string nome = NomeDi(d_.NomeFileProgetto);
    const std::string base = Trim(Sinistra(nome, std::max(0, NumeroCaratteri(nome) - 4)));
    return NumeroCaratteri(base) > 40 ? Destra(d_.NomeFileProgetto, 40) : base;
}

void ImpaginatoreStampante::Intestazione() {
    const Carattere prima = font_;
    font_ = Carattere{};
    ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
    CurrentX = 0;
    CurrentY = 0;
    double x = 0;
    if (logoL_ > 0) {
        Pronto();
        dev_.Immagine(-g_.ScaleLeft, -g_.ScaleTop, logoL_, logoA_, o_.fileLogo);
        x = std::nearbyint(logoL_ * 1.3);
    }
    CurrentX = x;
    Stampa(o_.stampa.DittaRiga1);
    CurrentX = x;
    Stampa(o_.stampa.DittaRiga2);
    CurrentY = 0;
    const std::string nome = NomeBase();
    CurrentX = g_.LarghezzaStampa - TextWidth(nome) - 10;
    Stampa(nome);
    const double y = g_.CimaPagina - 200;
    Linea(0, y, g_.LarghezzaStampa, y);
    CurrentY = g_.CimaPagina;
    CurrentX = 0;
    font_ = prima;
    ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
}

void ImpaginatoreStampante::PiePagina() {
    const Carattere prima = font_;
    font_ = Carattere{};
    ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
    const double y = g_.FondoPagina + 100;
    CurrentY = y;
    Linea(0, y, g_.LarghezzaStampa, y);
    CurrentY = y + 200;
    CurrentX = 0;
    Stampa(o_.stampa.DataStampa, false);
    CurrentX = (g_.LarghezzaStampa - TextWidth(o_.stampa.VersioneProgramma)) / 2;
    Stampa(o_.stampa.VersioneProgramma, false);
    CurrentX = g_.LarghezzaStampa - TextWidth("Pagina: 999999");
    Stampa("Pagina: " + std::to_string(pagina_));
    piede_ = true;
    font_ = prima;
    ImpostaFontSuDispositivo(dev_, font_, fontSegnalati_, msg_);
}

// ---- The run's order ----

void ImpaginatoreStampante::Inizio() {
    font_ = Carattere{};
    ImpostaFont("Arial");
    if (o_.stampa.selezione.AltreDalloSchema()) Intestazione();
}

// A section after the cover heads the page the cover left; the leak test always starts a page
// of its own; the others start a page when they would begin in the last quarter.
void ImpaginatoreStampante::Preambolo(int fase, bool dopoAltre) {
    bool paginaNuova = false;
    if (intestazioneDovuta_) {
        Intestazione();
        intestazioneDovuta_ = false;
        paginaNuova = true;
    }
    if (fase == Fase::TENUTA && dopoAltre && !paginaNuova) {
        CambiaPagina();
        paginaNuova = true;
    }
    if (fase != Fase::TRONCHI && !paginaNuova && CurrentY >= g_.SogliaSezione) CambiaPagina();
    if (fase != Fase::TENUTA) Spazio();
}

void ImpaginatoreStampante::Etichetta(const std::string& etichetta, const std::string& valore, double x) {
    CurrentX = x;
    Font(font_.dimensione, true);
    Stampa(etichetta, false);
    Font(font_.dimensione, false);
    Stampa(valore, false);
}

// The cover has a page of its own: its footer, then the next section heads a new page.
void ImpaginatoreStampante::Copertina(const CopertinaRelazione& c) {
    ScriviCopertina(c);
    PiePagina();
    NuovaPagina();
    intestazioneDovuta_ = true;
}

void ImpaginatoreStampante::ScriviCopertina(const CopertinaRelazione& c) {
    ScriviCentrato(c.titolo, 24);
    ScriviCentrato(SOTTOTITOLO_COPERTINA, 18);
    ImpostaFont("Arial");
    RigaVuota(5);
    const double meta = g_.LarghezzaStampa / 2.0;
    auto riga = [&](const std::string& etichetta, const std::string& valore) {
        RigaVuota();
        Etichetta(etichetta, valore, 0);
    };
    auto fine = [&] { Stampa({}); };
    riga("Riferimento: ", c.riferimento);
    fine();
    // The job's description runs over as many lines as it needs, each flush under the first.
    RigaVuota();
    CurrentX = 0;
    Font(font_.dimensione, true);
    Stampa("Lavoro: ", false);
    Font(font_.dimensione, false);
    const double rientro = CurrentX;
    const int budget = Intero(g_.LarghezzaStampa / TextWidth("H")) - 10;
    for (const std::string& r : ACapo(c.lavoro, budget)) {
        CurrentX = rientro;
        Stampa(r);
    }
    riga("Normativa di riferimento: ", c.normativa);
    fine();
    riga("Tipo gas: ", c.tipoGas);
    fine();
    if (!c.pressione) {
        riga("Densità: ", c.densita);
        Etichetta("Famiglia: ", std::to_string(c.famiglia), meta);
        fine();
        riga("Massa volumica: ", c.massaVolumica + " kg/mc");
        Etichetta("Viscosita': ", c.viscosita + " mmq/s", meta);
        fine();
        riga("Potere Calorifico inferiore: ", c.pci);
        Etichetta("Potere Calorifico superiore: ", c.pcs, meta);
        fine();
        riga("Perdita di pressione massima ammessa: ",
             c.limitePa + " (" + FormattaNumero(c.limite / 100.0, "##0.00 mbar)"));
        fine();
        riga("Portata totale gas: ", c.portataTotale);
        fine();
        return;
    }
    const double terzo = g_.LarghezzaStampa / 3.0;
    riga("Densità: ", c.densita);
    Etichetta("Massa volumica: ", c.massaVolumica + " kg/mc", terzo);
    Etichetta("Viscosita': ", c.viscosita + " mmq/s", 2 * terzo);
    fine();
    riga("Pressione relativa iniziale: ",
         FormattaNumero(c.pIniziale, " ##0.00 kPa") + " (" + FormattaNumero(c.pIniziale / 100.0, "##0.000 bar)"));
    fine();
    riga("Pressione relativa minima finale: ",
         c.pressioneFinale + " (" + FormattaNumero(c.pFinale / 100.0, "##0.000 bar)"));
    Etichetta("Velocità massima impostata: ", c.velocitaImpostata, meta + terzo / 2);
    fine();
    riga("Velocità massima calcolata: ", c.velocitaCalcolata);
    fine();
    riga("Portata gas totale: ", c.portataNominale);
    fine();
    riga("Portata gas massima contemporanea: ", c.portataContemporanea);
    fine();
}

void ImpaginatoreStampante::Tabelle(int fase, const std::vector<TabellaRelazione>& tabelle, bool dopoAltre) {
    Preambolo(fase, dopoAltre);
    for (size_t i = 0; i < tabelle.size(); ++i) {
        if (i > 0) Spazio();
        ScriviTabella(tabelle[i]);
    }
}

void ImpaginatoreStampante::Computo(const ComputoRelazione& c, bool dopoAltre) {
    Preambolo(Fase::COMPUTO, dopoAltre);
    ScriviComputo(c);
}

void ImpaginatoreStampante::Tenuta(const std::vector<VoceTenuta>& voci, bool dopoAltre) {
    Preambolo(Fase::TENUTA, dopoAltre);
    ScriviTenuta(voci);
    PiePagina();
}

// Every page the text sections drew ends with its footer; then the document goes to the
// printer, before the schema's landscape page.
void ImpaginatoreStampante::FineSezioni() {
    if (!o_.stampa.selezione.AltreDalloSchema()) return;
    if (pagina_ > 0 && !inSospeso_ && !piede_) PiePagina();
    if (pagina_ > 0) {
        dev_.FineDocumento();
        ++documenti_;
        // The schema's page, if any, begins a document of its own.
        pagineFinite_ += pagina_;
        pagina_ = 0;
        inSospeso_ = false;
    }
}

// The schema's page is drawn by the schema's own painting, on a landscape page of its own.
void ImpaginatoreStampante::Schema() {
    if (!o_.schema) return;
    if (!dev_.ImpostaOrientamento(2)) msg_.Mostra(LANDSCAPE_IMPOSSIBILE);
    g_ = ImpostaPagina(dev_.Larghezza(), dev_.Altezza(), o_.proporzioni);
    font_ = Carattere{};
    ImpostaFont("Arial");
    Pronto();
    o_.schema(PaginaSchemaStampa{dev_, g_, o_.adattaSchema});
    dev_.FineDocumento();
    ++documenti_;
    dev_.ImpostaOrientamento(1);
}

// ---- Tables ----

void ImpaginatoreStampante::ScriviTabella(const TabellaRelazione& t) {
    int somma = 0;
    for (const ColonnaRelazione& k : t.colonne) somma += k.peso;
    const int unita = somma > 0 ? ArrotondaI32(static_cast<double>(g_.LarghezzaStampa) / somma) : 0;
    const int cx = std::max(1, Intero(TextWidth("X")));
    const int mezzariga = Intero(TextHeight() / 2);
    const size_t n = t.colonne.size();
    std::vector<double> bordo(n + 1, 0);  // the x of each column boundary
    std::vector<int> budget(n, 0);
    for (size_t c = 0; c < n; ++c) {
        const int larghezza = t.colonne[c].peso * unita;
        bordo[c + 1] = bordo[c] + larghezza;
        budget[c] = larghezza / cx + 1;
    }
    const double destra = bordo[n];

    Font(9, true);
    ScriviCentrato(t.titolo + " ");
    Font(8);
    RigaVuota();
    ControlloPagina(2);

    // The title block: two lines of titles, each centred in its column.
    const double th = TextHeight();
    const double cima = CurrentY;
    const double altezzaTitoli = 2.3 * th;
    Linea(0, cima, destra, cima);
    Font(8, true);
    for (size_t c = 0; c < n; ++c) {
        const double larghezza = bordo[c + 1] - bordo[c];
        std::string titoli[2] = {Sinistra(t.colonne[c].titolo1, budget[c]), Sinistra(t.colonne[c].titolo2, budget[c])};
        for (int r = 0; r < 2; ++r) {
            // A title in bold may be wider than its budget of characters: it keeps to its column.
            while (NumeroCaratteri(titoli[r]) > 1 && TextWidth(titoli[r]) > larghezza - cx / 2.0)
                titoli[r] = Sinistra(titoli[r], NumeroCaratteri(titoli[r]) - 1);
            CurrentX = bordo[c] + (larghezza - TextWidth(titoli[r])) / 2;
            CurrentY = cima + 0.15 * th + r * th;
            Stampa(titoli[r], false);
        }
    }
    Font(8);
    for (double x : bordo) Linea(x, cima, x, cima + altezzaTitoli);
    Linea(0, cima + altezzaTitoli, destra, cima + altezzaTitoli);
    CurrentY = cima + altezzaTitoli;
    CurrentX = 0;

    // The rows, right-aligned two "X" from the line; a page change takes up the frame at the
    // top of the new body without the titles.
    const double altezzaRiga = 1.5 * th;
    auto aDestra = [&](const std::string& v, size_t c) {
        CurrentX = bordo[c + 1] - TextWidth(v + "XX");
        Stampa(v, false);
    };
    for (const RigaRelazione& riga : t.righe) {
        if (ControlloPagina(2)) Linea(0, CurrentY, destra, CurrentY);
        const double y = CurrentY;
        for (size_t c = 0; c < n && c < riga.valori.size(); ++c) {
            const std::string v = Sinistra(riga.valori[c], budget[c]);
            if (v.empty()) continue;
            CurrentY = y + 0.25 * th;
            aDestra(v, c);
        }
        for (double x : bordo) Linea(x, y, x, y + altezzaRiga);
        CurrentY = y + altezzaRiga;
        CurrentX = 0;
    }
    Linea(0, CurrentY, destra, CurrentY);
    const double chiusura = CurrentY;
    CurrentY += mezzariga;
    if (t.totale && t.totale->colonna < n) {
        CurrentY = chiusura + 3.0 * mezzariga;
        CurrentX = 0;
        Stampa(t.totale->etichetta, false);
        aDestra(Sinistra(t.totale->valore, budget[t.totale->colonna]), t.totale->colonna);
        Stampa({});
        for (int i = 0; i < 3; ++i) ControlloPagina();
    }
    Font(9);
}

// ---- Bill of pipes ----

void ImpaginatoreStampante::ScriviComputo(const ComputoRelazione& c) {
    Font(9, true);
    ScriviCentrato("Computo tubazioni");
    Font(9);
    const double th = TextHeight();
    const int budgetDescrizione = Intero(g_.LarghezzaStampa / TextWidth("H")) - 5;
    // A DN cell holds six "X": the widest names and lengths of the archives fit.
    const double cella = TextWidth("XXXXXX");
    const double primaColonna = TextWidth("XXXX");
    const int perRiga = std::max(1, Intero((g_.LarghezzaStampa - primaColonna) / cella));
    auto linea = [&](const std::string& etichetta, const std::string& valore) {
        ControlloPagina();
        CurrentX = 0;
        Font(9, true);
        Stampa(etichetta, false);
        Font(9);
        Stampa(valore);
    };
    auto vuote = [&](int k) {
        for (int i = 0; i < k; ++i) {
            RigaVuota();
            ControlloPagina();
        }
    };
    for (const MaterialeComputo& m : c.materiali) {
        vuote(3);
        linea("Tipo tubazione: ", m.nome);
        vuote(1);
        const std::vector<std::string> descrizione = ACapo(m.descrizione, budgetDescrizione);
        linea("Descrizione: ", descrizione.front());
        for (size_t i = 1; i < descrizione.size(); ++i) {
            ControlloPagina();
            Stampa(descrizione[i]);
        }
        vuote(1);
        if (m.acciaio) {
            linea("Peso totale: ", m.peso + " Kg");
            vuote(1);
        }
        // The grid: "DN" over "mt", then a cell per diameter, continued below when full.
        const double altezza = 1.5 * th;
        for (size_t inizio = 0; inizio < m.diametri.size() || inizio == 0; inizio += static_cast<size_t>(perRiga)) {
            ControlloPagina(4);
            const size_t fine = std::min(m.diametri.size(), inizio + static_cast<size_t>(perRiga));
            const double y = CurrentY;
            const double destra = primaColonna + static_cast<double>(fine - inizio) * cella;
            for (int r = 0; r <= 2; ++r) Linea(0, y + r * altezza, destra, y + r * altezza);
            Linea(0, y, 0, y + 2 * altezza);
            auto centrato = [&](const std::string& s, double x0, double largh, int r) {
                CurrentX = x0 + (largh - TextWidth(s)) / 2;
                CurrentY = y + r * altezza + 0.25 * th;
                Stampa(s, false);
            };
            Font(9, true);
            centrato("DN", 0, primaColonna, 0);
            centrato("mt", 0, primaColonna, 1);
            Linea(primaColonna, y, primaColonna, y + 2 * altezza);
            for (size_t k = inizio; k < fine; ++k) {
                const double x0 = primaColonna + static_cast<double>(k - inizio) * cella;
                std::string dn = m.diametri[k].first;
                while (!dn.empty() && TextWidth(dn) > cella - 60) dn = Sinistra(dn, NumeroCaratteri(dn) - 1);
                Font(9, true);
                centrato(dn, x0, cella, 0);
                Font(9);
                centrato(m.diametri[k].second, x0, cella, 1);
                Linea(x0 + cella, y, x0 + cella, y + 2 * altezza);
            }
            Font(9);
            CurrentY = y + 2 * altezza;
            CurrentX = 0;
            if (m.diametri.empty()) break;
        }
        vuote(1);
    }
    vuote(3);
    if (!c.pesoAcciaio.empty()) linea("Peso totale tubazioni in acciaio: ", c.pesoAcciaio + " Kg");
}

// ---- Leak-test record ----

void ImpaginatoreStampante::ScriviTenuta(const std::vector<VoceTenuta>& voci) {
    using T = VoceTenuta::Tipo;
    const double meta = g_.LarghezzaStampa / 2.0;
    Font(9);
    auto dueColonne = [&](const std::vector<std::string>& elementi, bool grassetto) {
        for (size_t k = 0; k < elementi.size(); ++k) {
            if (k % 2 == 0) ControlloPagina();
            Font(9, grassetto);
            CurrentX = k % 2 == 0 ? 0 : meta;
            Stampa(elementi[k], false);
            if (k % 2 == 1 || k + 1 == elementi.size()) Stampa({});
        }
        Font(9);
    };
    for (const VoceTenuta& v : voci) {
        switch (v.tipo) {
            case T::Spazio:
                RigaVuota();
                ControlloPagina();
                break;
            case T::Titolo:
                Font(10, true);
                ScriviCentrato(v.testo);
                Font(9);
                ControlloPagina();
                break;
            case T::Intestazione:
                Font(9, true);
                Stampa(v.testo);
                Font(9);
                ControlloPagina();
                break;
            case T::Riga:
                for (const std::string& r : ACapo(v.testo, Intero(g_.LarghezzaStampa / TextWidth("H")) - 5)) {
                    Stampa(r);
                    ControlloPagina();
                }
                break;
            case T::Elenco:
                dueColonne(v.elementi, false);
                break;
            case T::Apparecchi: {
                std::vector<std::string> voce;
                for (const auto& [conteggio, etichetta] : v.coppie) voce.push_back(conteggio + etichetta);
                dueColonne(voce, false);
                break;
            }
            case T::Firme:
                dueColonne(v.elementi, true);
                break;
        }
    }
}

// ---- The run ----

EsitoStampante Print(Documento& d, Archivi& a, const OpzioniStampante& o, DispositivoStampa& dev, Avanzamento& av,
                     Messaggi& msg) {
    EsitoStampante esito;
    // The coordinates of the printer stop at 32000.
    if (dev.Altezza() >= 32001 || dev.Larghezza() >= 32001) {
        msg.Mostra(PAGINA_TROPPO_GRANDE);
        esito.riuscita = false;
        return esito;
    }
    Esecuzione run(o.stampa.selezione, av);
    try {
        ImpaginatoreStampante w(dev, d, o, av, msg);
        PercorriRelazione(d, a, o.stampa.selezione, run, w, msg);
        esito.pagine = w.Pagine();
        esito.documenti = w.Documenti();
    } catch (const std::exception&) {
        msg.Mostra(ERRORE_DI_STAMPA);
        esito.riuscita = false;
    }
    return esito;
}

}  // namespace fornax
