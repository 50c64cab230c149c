// The report as one HTML file made to be printed on A4 from a browser. Pages are not left to
// the browser: the writer keeps its own count of the millimetres left in the body of the page
// and places every header, body and footer as an absolutely positioned DIV, each page 289 mm
// below the last.

#include <algorithm>
#include <string>
#include <vector>

#include "core/Cartelle.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "reports/Esecuzione.h"
#include "reports/FileRelazione.h"
#include "reports/Relazione.h"
#include "reports/Stampa.h"

namespace fornax {

namespace {

// Heights charged to the page, in millimetres.
constexpr double kAltezzaPagina = 175.0;
constexpr double kSpaziatura = 4.0;
constexpr double kTitolo = 4.2;
constexpr double kRigaTitoli = 8.0;
constexpr double kRiga = 3.15;
constexpr double kRigaDN = 6.0;
constexpr double kTitoloGrande = 8.4;
constexpr double kTitoloPiccolo = 6.3;
constexpr double kRigaCopertina = 3.5;
constexpr int kPasso = 289;  // mm from one page to the next

constexpr const char* kSpazio = "<DIV class='lineverticalspacing'>&nbsp;</DIV>";
constexpr const char* kRigaOrizzontale = "<HR noshade color='black' width='100%' size='1'>";
constexpr const char* kTabellaDati = "<TABLE align='CENTER' cellspacing=0 class='datatable'>";
constexpr const char* kTabellaDN = "<TABLE align='left' cellspacing=0>";
constexpr const char* kGrassetto = "<span style=\"font-weight: bold;\">";

// Text of the project, the archives or the settings is never markup: "&", "<" and ">" are
// written as entities, so that no project can break the page or put a script into it.
std::string H(std::string_view s) {
    std::string r;
    r.reserve(s.size());
    for (char c : s) {
        if (c == '&')
            r += "&amp;";
        else if (c == '<')
            r += "&lt;";
        else if (c == '>')
            r += "&gt;";
        else
            r += c;
    }
    return r;
}

std::string Nbsp(int n) {
    std::string s;
    for (int i = 0; i < n; ++i) s += "&nbsp;";
    return s;
}

// The style sheet, line by line, as the report has always written it.
constexpr const char* kStile[] = {
    "body",
    "{",
    "  height: 297mm;",
    "  width: 210mm;",
    "  font-family:Arial;",
    "}",
    "",
    "Table",
    "{",
    "  width: 100%;",
    "}",
    "",
    "td",
    "{",
    "  font-size : 3.5mm;",
    "}",
    "",
    "div",
    "{",
    "  width: 100%;",
    "}",
    "",
    ".headerpage",
    "{",
    "  margin-left: 15mm;",
    "  margin-rigth: 15mm;",
    "  margin-bottom: 10mm;",
    "  width: 170mm;",
    "  position: absolute;",
    "}",
    "",
    ".bodypage",
    "{",
    "  margin-left: 15mm;",
    "  margin-rigth: 15mm;",
    "  width: 170mm;",
    "  position: absolute;",
    "}",
    "",
    ".bigtitle",
    "{",
    "  font-size : 8.4mm;",
    "  align: center;",
    "}",
    "",
    ".littletitle",
    "{",
    "  font-size : 6.3mm;",
    "  align: center;",
    "}",
    "",
    ".fieldtitlebigspace",
    "{",
    "  font-size : 3.5mm;",
    "  font-weight: bold;",
    "}",
    "",
    ".fieldvaluebigspace",
    "{",
    "  font-size : 3.5mm;",
    "}",
    "",
    ".fieldtitle",
    "{",
    "  font-size : 3.5mm;",
    "  font-weight: bold;",
    "}",
    "",
    ".fieldvalue",
    "{",
    "  font-size : 3.5mm;",
    "}",
    "",
    ".footerpage",
    "{",
    "  margin-left: 15mm;",
    "  margin-rigth: 15mm;",
    "  width: 170mm;",
    "  position: absolute;",
    "}",
    "",
    ".tabletitle",
    "{",
    "  text-align: center;",
    "  font-size: 4.2mm;",
    "  font-weight: bold;",
    "}",
    "",
    ".datatable",
    "{",
    "  line-height: 3mm;",
    "  border-bottom-width: 1pt;",
    "  border-bottom-style: solid;",
    "  border-bottom-color: black;",
    "  border-top-width: 1pt;",
    "  border-top-style: solid;",
    "  border-top-color: black;",
    "}",
    "",
    ".datatablenoborder",
    "{",
    "  line-height: 3mm;",
    "}",
    "",
    ".titlecolums",
    "{",
    "  font-size : 3.5mm;",
    "  font-weight: bold;",
    "  border-left-width: 1pt;",
    "  border-left-style: solid;",
    "  border-left-color: black;",
    "  border-bottom-width: 1pt;",
    "  border-bottom-style: solid;",
    "  border-bottom-color: black;",
    "  text-align: center;",
    "  vertical-align: top;",
    "  line-height: 4mm;",
    "}",
    "",
    ".titlecolumlast",
    "{",
    "  font-size : 3.5mm;",
    "  font-weight: bold;",
    "  border-left-width: 1pt;",
    "  border-left-style: solid;",
    "  border-left-color: black;",
    "  border-right-width: 1pt;",
    "  border-right-style: solid;",
    "  border-right-color: black;",
    "  border-bottom-width: 1pt;",
    "  border-bottom-style: solid;",
    "  border-bottom-color: black;",
    "  text-align: center;",
    "  vertical-align: top;",
    "  line-height: 4mm;",
    "}",
    "",
    ".datacolums",
    "{",
    "  height: 3mm;",
    "  line-height: 3.15mm;",
    "  font-size : 3.15mm;",
    "  border-left-width: 1pt;",
    "  border-left-style: solid;",
    "  border-left-color: black;",
    "  text-align: center;",
    "}",
    "",
    ".datacolumlast",
    "{",
    "  height: 3mm;",
    "  line-height: 3.15mm;",
    "  font-size : 3.15mm;",
    "  border-left-width: 1pt;",
    "  border-left-style: solid;",
    "  border-left-color: black;",
    "  border-right-width: 1pt;",
    "  border-right-style: solid;",
    "  border-right-color: black;",
    "  text-align: center;",
    "}",
    "",
    ".lastdatacolums",
    "{",
    "  font-size : 3.15mm;",
    "  border-left-width: 1pt;",
    "  border-left-style: solid;",
    "  border-left-color: black;",
    "  text-align: center;",
    "}",
    "",
    ".lastdatacolumlast",
    "{",
    "  font-size : 3.15mm;",
    "  border-left-width: 1pt;",
    "  border-left-style: solid;",
    "  border-left-color: black;",
    "  border-right-width: 1pt;",
    "  border-right-style: solid;",
    "  border-right-color: black;",
    "  text-align: center;",
    "}",
    ".lineverticalspacing",
    "{",
    "line-height: 3mm;",
    "}",
    "",
    ".titlesection",
    "{",
    "font-size: 4.2mm;",
    "font-weight: bold;",
    "}",
    "",
    ".allbordertitle",
    "{",
    "font-size: 3.15mm;",
    "font-weight: bold;",
    "border-right-width: 1pt;",
    "border-right-style: solid;",
    "border-right-color: black;",
    "border-top-width: 1pt;",
    "border-top-style: solid;",
    "border-top-color: black;",
    "border-bottom-width: 1pt;",
    "border-bottom-style: solid;",
    "border-bottom-color: black;",
    "text-align: center;",
    "line-height: 6mm;",
    "}",
    "",
    ".allborder",
    "{",
    "font-size: 3.15mm;",
    "border-right-width: 1pt;",
    "border-right-style: solid;",
    "border-right-color: black;",
    "border-bottom-width: 1pt;",
    "border-bottom-style: solid;",
    "border-bottom-color: black;",
    "text-align: center;",
    "line-height: 6mm;",
    "}",
    "",
    ".rowtitlefirst",
    "{",
    "font-size: 3.15mm;",
    "font-weight: bold;",
    "border-right-width: 1pt;",
    "border-right-style: solid;",
    "border-right-color: black;",
    "border-bottom-width: 1pt;",
    "border-bottom-style: solid;",
    "border-bottom-color: black;",
    "text-align: center;",
    "line-height: 6mm;",
    "}",
    "",
    ".rowtitle",
    "{",
    "font-size: 3.15mm;",
    "font-weight: bold;",
    "border-right-width: 1pt;",
    "border-right-style: solid;",
    "border-right-color: black;",
    "text-align: center;",
    "line-height: 6mm;",
    "}",
    "",
    ".sectiontitlewords",
    "{",
    "font-size: 3.15mm;",
    "font-weight: bold;",
    "}",
    "",
    ".sectionwords",
    "{",
    "font-size: 3.15mm;",
    "}",
};

class ScrittoreHtml final : public Impaginatore {
public:
    ScrittoreHtml(FileRelazione& f, const Documento& d, const OpzioniStampa& o, const std::string& percorso,
                  const SalvaSchema& schema, Avanzamento& av)
        : f_(f), d_(d), o_(o), percorso_(percorso), schema_(schema), av_(av) {}

    void Prologo();
    void Epilogo();

    // The run's order.
    void Inizio() override {
        if (o_.selezione.AltreDalloSchema()) Intestazione();
    }
    void Copertina(const CopertinaRelazione& c) override {
        // The cover charges its lines but never checks the page: it has a page of its own.
        ScriviCopertina(c);
        NuovaPagina();
    }
    void Tabelle(int fase, const std::vector<TabellaRelazione>& tabelle, bool dopoAltre) override {
        // The table of sections follows the cover's page break without a separator.
        if (dopoAltre && fase != Fase::TRONCHI) Separatore();
        for (const TabellaRelazione& t : tabelle) ScriviTabella(t);
    }
    void Computo(const ComputoRelazione& c, bool dopoAltre) override {
        if (dopoAltre) Separatore();
        ScriviComputo(c);
    }
    void Tenuta(const std::vector<VoceTenuta>& voci, bool dopoAltre) override {
        // The record always starts a page of its own, unless it is the first section.
        if (dopoAltre) NuovaPagina();
        ScriviTenuta(voci);
    }
    void FineSezioni() override {
        if (o_.selezione.AltreDalloSchema()) PiePagina();
    }
    void Schema() override {
        if (!schema_) return;
        const std::string file = FileSchema(d_, percorso_, true);
        schema_(file);
        PaginaSchema(file, o_.selezione.AltreDalloSchema());
    }

private:
    void Intestazione();
    void PiePagina();
    void NuovaPagina();
    void Separatore();
    void ScriviCopertina(const CopertinaRelazione& c);
    void ScriviTabella(const TabellaRelazione& t);
    void ScriviComputo(const ComputoRelazione& c);
    void ScriviTenuta(const std::vector<VoceTenuta>& voci);
    void PaginaSchema(const std::string& fileSchema, bool altreSezioni);

    void Riga(std::string_view s) { f_.Riga(s); }
    void Carica(double mm) { spazio_ -= mm; }
    void ControllaPagina(std::string_view tag = {});
    void Spazio() {
        Riga(kSpazio);
        Carica(kSpaziatura);
        ControllaPagina();
    }
    void TitoloSezione(const std::string& titolo);
    void IntestazioneDi(int16_t p, const char* chiusuraLogo, const std::string& coda);
    void PiePaginaDi(int16_t p, int posizione);
    std::string NomeBase() const;
    void RigaCopertina(const std::string& s) {
        Riga(kSpazio);
        Riga(kSpazio);
        Carica(2 * kSpaziatura);
        Riga(s + "<BR>");
        Carica(kRigaCopertina);
    }

    FileRelazione& f_;
    const Documento& d_;
    const OpzioniStampa& o_;
    const std::string& percorso_;
    const SalvaSchema& schema_;
    Avanzamento& av_;
    double spazio_ = kAltezzaPagina;
    int16_t pagina_ = 1;
};

// A 16-bit quantity of the page stack: past its range the run fails (about page 114).
int Posizione(long v) {
    if (v < -32768 || v > 32767) Fallisci(CodiceErrore::OVERFLOW_);
    return static_cast<int>(v);
}

// The position of a DIV of page p: `scarto` millimetres below the top of the page.
int Sotto(int16_t p, int scarto) { return Posizione(Posizione(static_cast<long>(p - 1) * kPasso) + scarto); }

void ScrittoreHtml::Prologo() {
    Riga("<HTML>");
    Riga("<HEAD>");
    Riga("<TITLE>");
    Riga("File printed: " + H(d_.NomeFileProgetto));
    Riga("</TITLE>");
    Riga("<STYLE>");
    for (const char* s : kStile) Riga(s);
    Riga("</STYLE>");
    Riga("</HEAD>");
    Riga("<BODY>");
}

// The project's base name: the file name less its folder and its last four characters; a
// long one gives way to the tail of the whole path.
std::string ScrittoreHtml::NomeBase() const {
    const std::string nome = NomeDi(d_.NomeFileProgetto);
    const std::string base = Trim(Sinistra(nome, std::max(0, NumeroCaratteri(nome) - 4)));
    return NumeroCaratteri(base) > 28 ? Destra(d_.NomeFileProgetto, 28) : base;
}

void ScrittoreHtml::IntestazioneDi(int16_t p, const char* chiusuraLogo, const std::string& coda) {
    const int top = p <= 1 ? 1 : Sotto(p, 0);
    Riga("<DIV class='headerpage' style='top:" + std::to_string(top) + "mm'>");
    Riga("<TABLE align='CENTER'>");
    Riga("<TR>");
    Riga("<TD ALIGN='Left'>");
    if (o_.logo)
        Riga(std::string("<IMG src='logo.bmp") + chiusuraLogo);
    else
        Riga("&nbsp;");
    Riga("</TD>");
    Riga("<TD ALIGN='Left'>" + H(o_.DittaRiga1) + "<BR>" + H(o_.DittaRiga2) + "</TD>");
    Riga("<TD ALIGN='Right'>" + H(NomeBase()) + "</TD>");
    Riga("</TR>");
    Riga("</TABLE>");
    Riga(kRigaOrizzontale);
    Riga("</DIV>");
    Riga("<DIV class='bodypage' style='top:" + std::to_string(Sotto(p, 17)) + coda);
}

void ScrittoreHtml::Intestazione() { IntestazioneDi(pagina_, "' width='80' height='40' >", "mm'>"); }

void ScrittoreHtml::PiePaginaDi(int16_t p, int posizione) {
    Riga("<DIV class='footerpage' style='top:" + std::to_string(posizione) + "mm'>");
    Riga(kRigaOrizzontale);
    Riga("<TABLE WIDTH='100' Align='CENTER'>");
    Riga("<TR>");
    Riga("<TD ALIGN='Left'>" + H(o_.DataStampa) + "</TD>");
    Riga("<TD ALIGN='CENTER'>" + H(o_.VersioneProgramma) + "</TD>");
    Riga("<TD ALIGN='Right'>Pagina: " + std::to_string(p) + "</TD>");
    Riga("</TR>");
    Riga("</TABLE>");
    Riga("</DIV>");
}

void ScrittoreHtml::PiePagina() {
    Riga("</DIV>");  // the body
    PiePaginaDi(pagina_, Sotto(pagina_, 265));
}

void ScrittoreHtml::NuovaPagina() {
    PiePagina();
    pagina_ = static_cast<int16_t>(Posizione(pagina_ + 1L));
    spazio_ = kAltezzaPagina;
    Intestazione();
}

// After every charge: when the page is full, an open table is closed at the foot of the page
// and opened again at the head of the next one; its title row is not repeated.
void ScrittoreHtml::ControllaPagina(std::string_view tag) {
    av_.Respira();
    if (spazio_ > 0) return;
    if (!tag.empty()) {
        std::string_view nome = tag.substr(1);
        nome = nome.substr(0, nome.find(' '));
        Riga("</" + std::string(nome) + "><BR>");
    }
    NuovaPagina();
    if (!tag.empty()) Riga(tag);
}

void ScrittoreHtml::ScriviCopertina(const CopertinaRelazione& c) {
    const std::string agrave = "&agrave";  // without its semicolon, as the report writes it
    auto campo = [](const std::string& classe, const std::string& etichetta, const std::string& valore) {
        return "<SPAN class='" + classe + "'>" + etichetta + "</SPAN><SPAN class='" +
               (classe == "fieldtitle" ? std::string("fieldvalue") : std::string("fieldvaluebigspace")) + "'>" +
               valore + "</SPAN>";
    };
    const std::string titolo = "fieldtitle";
    Riga("<CENTER>");
    Riga("<SPAN class='bigtitle'>" + c.titolo + "</SPAN><BR>");
    Carica(kTitoloGrande);
    Riga("<SPAN class='littletitle'>" + std::string(SOTTOTITOLO_COPERTINA) + "</SPAN>");
    Carica(kTitoloPiccolo);
    Riga("</CENTER>");
    Riga("<BR>");
    RigaCopertina(campo("fieldtitlebigspace", "Riferimento :", H(c.riferimento)));
    RigaCopertina(campo("fieldtitlebigspace", "Lavoro" + Nbsp(6) + ":", H(c.lavoro)));
    RigaCopertina(campo(titolo, "Normativa di riferimento:&nbsp;", H(c.normativa)));
    RigaCopertina(campo(titolo, "Tipo gas" + Nbsp(8) + ":&nbsp;", H(c.tipoGas)));
    const std::string densita = campo(titolo, "Densit" + agrave + "&nbsp;:&nbsp;", H(c.densita));
    const std::string massa = campo(titolo, "Massa volumica&nbsp;:&nbsp;", H(c.massaVolumica) + " kg/mc");
    const std::string viscosita = campo(titolo, "Viscosit" + agrave + "&nbsp;:&nbsp;", H(c.viscosita) + " mm&#178;/s");
    if (!c.pressione) {
        RigaCopertina(densita + Nbsp(23) + campo(titolo, "Famiglia&nbsp;&nbsp;:&nbsp;", std::to_string(c.famiglia)));
        RigaCopertina(massa + Nbsp(20) + viscosita);
        RigaCopertina(campo(titolo, "Potere Calorifico inferiore&nbsp;:&nbsp;", H(c.pci) + " MJ/mc") + Nbsp(12) +
                      campo(titolo, "Potere Calorifico superiore&nbsp;:&nbsp;", H(c.pcs) + " MJ/mc"));
        RigaCopertina(campo(titolo, "Perdita di pressione massima ammessa&nbsp;:&nbsp;",
                            H(c.limitePa) + " Pa" + Nbsp(4) + "(" + H(c.limiteMbar) + ")"));
        RigaCopertina(campo(titolo, "Portata totale gas&nbsp;:&nbsp;", H(c.portataTotale) + " Nmc/h"));
        return;
    }
    RigaCopertina(densita + Nbsp(16) + massa + Nbsp(16) + viscosita);
    RigaCopertina(campo(titolo, "Pressione relativa iniziale&nbsp;:&nbsp;",
                        H(c.pressioneIniziale) + Nbsp(4) + "(" + H(c.pressioneInizialeBar) + ")"));
    RigaCopertina(campo(titolo, "Pressione relativa minima finale&nbsp;:&nbsp;",
                        H(c.pressioneFinale) + Nbsp(4) + "(" + H(c.pressioneFinaleBar) + ")") +
                  Nbsp(3) +
                  campo(titolo, "Velocit" + agrave + " massima impostata&nbsp;:&nbsp;", H(c.velocitaImpostata)));
    RigaCopertina(Nbsp(88) + campo(titolo, "Velocità massima calcolata&nbsp;:&nbsp;", H(c.velocitaCalcolata)));
    RigaCopertina(campo(titolo, "Portata gas : totale = ", H(c.portataNominale) + " Nmc/h") + Nbsp(16) +
                  campo(titolo, "massima contemporanea : ", H(c.portataContemporanea) + " Nmc/h"));
}

void ScrittoreHtml::Separatore() {
    Spazio();
    Spazio();
    Spazio();
}

void ScrittoreHtml::TitoloSezione(const std::string& titolo) {
    Spazio();
    Riga("<CENTER><SPAN class='tabletitle'>" + titolo + "</SPAN></CENTER><BR>");
    Carica(kTitolo);
    ControllaPagina();
    Spazio();
}

void ScrittoreHtml::ScriviTabella(const TabellaRelazione& t) {
    TitoloSezione(t.titolo);
    // A table never starts with its title row as the last thing on the page.
    if (spazio_ - kRigaTitoli <= 0) {
        Carica(kRigaTitoli);
        ControllaPagina();
    }
    Riga(kTabellaDati);
    Riga("<TR>");
    const size_t n = t.colonne.size();
    for (size_t c = 0; c < n; ++c) {
        const ColonnaRelazione& k = t.colonne[c];
        const std::string titolo1 = Sinistra(k.titolo1, k.budget);
        Riga(std::string("<TD class='") + (c + 1 == n ? "titlecolumlast" : "titlecolums") + "' style='width:" +
             std::to_string(k.larghezza) + "mm;'>" + (titolo1.empty() ? std::string("&nbsp;") : H(titolo1)) + "<BR>" +
             H(Sinistra(k.titolo2, k.budget)) + "</TD>");
    }
    Riga("</TR>");
    Carica(kRigaTitoli);
    ControllaPagina(kTabellaDati);
    for (const RigaRelazione& r : t.righe) {
        Riga("<TR>");
        for (size_t c = 0; c < n; ++c) {
            const char* classe = r.ultima ? (c + 1 == n ? "lastdatacolumlast" : "lastdatacolums")
                                          : (c + 1 == n ? "datacolumlast" : "datacolums");
            const std::string v = c < r.valori.size() ? Sinistra(r.valori[c], t.colonne[c].budget) : std::string();
            Riga(std::string("<TD class='") + classe + "' style='width:" + std::to_string(t.colonne[c].larghezza) +
                 "mm;'>" + (v.empty() ? std::string("&nbsp;") : H(v)) + "</TD>");
        }
        Riga("</TR>");
        Carica(kRiga);
        ControllaPagina(kTabellaDati);
    }
    Riga("</TABLE><BR>");
    if (t.totale) {
        Spazio();
        Riga("<SPAN class='sectionwords'>" + t.totale->etichetta + Nbsp(4) +
             H(Sinistra(t.totale->valore, t.colonne[t.totale->colonna].budget)) + "</SPAN><BR>");
        Carica(kRiga);
        ControllaPagina();
    }
}

void ScrittoreHtml::ScriviComputo(const ComputoRelazione& c) {
    TitoloSezione(TITOLO_COMPUTO);
    const int larghezzaDN = 170 / 14 + 25;
    for (const MaterialeComputo& m : c.materiali) {
        Spazio();
        Spazio();
        Spazio();
        Riga("<SPAN class='sectiontitlewords'>Tipo tubazione:</SPAN>" + Nbsp(4));
        Riga("<SPAN class='sectionwords'>" + H(m.nome) + "</SPAN><BR>");
        Carica(kRiga);
        ControllaPagina();
        Spazio();
        Riga("<SPAN class='sectiontitlewords'>Descrizione:</SPAN><BR>");
        Carica(kRiga);
        ControllaPagina();
        Riga("<SPAN class='sectionwords'>" + H(m.descrizione) + "</SPAN><BR>");
        Carica(kRiga);
        ControllaPagina();
        Spazio();
        if (m.acciaio) {
            Riga("<SPAN class='sectionwords'>Peso totale:</SPAN>" + Nbsp(4));
            Riga("<SPAN class='sectionwords'>" + H(m.peso) + " Kg</SPAN><BR>");
            Carica(kRiga);
            ControllaPagina();
            Spazio();
        }
        if (spazio_ - kRigaDN <= 0) {
            Carica(kRigaDN);
            ControllaPagina(kTabellaDN);
        }
        Riga("<TABLE align='left' cellspacing=0 style='width:" + std::to_string(larghezzaDN) + "mm;'>");
        Riga("<TD class='rowtitlefirst'>DN</TD>");
        for (const auto& [dn, mt] : m.diametri) Riga("<TD class='allbordertitle'> " + H(Sinistra(dn, 7)) + "</TD>");
        Carica(kRigaDN);
        ControllaPagina(kTabellaDN);
        Riga("<TD class='rowtitle'>mt</TD>");
        for (const auto& [dn, mt] : m.diametri) Riga("<TD class='allborder'> " + H(mt) + "</TD>");
        Riga("</TABLE><BR>");
        Carica(kRigaDN);
        ControllaPagina();
        Spazio();
    }
    Spazio();
    Spazio();
    Spazio();
    if (!c.pesoAcciaio.empty()) {
        Riga("<SPAN class='sectiontitlewords'>Peso totale tubazioni in acciaio:</SPAN>" + Nbsp(4));
        Riga("<SPAN class='sectionwords'>" + H(c.pesoAcciaio) + " Kg</SPAN><BR>");
        Carica(kSpaziatura);
        ControllaPagina();
    }
}

void ScrittoreHtml::ScriviTenuta(const std::vector<VoceTenuta>& voci) {
    using T = VoceTenuta::Tipo;
    auto testo = [&](const std::string& s, bool aCapo) {
        Riga("<span class=\"sectionwords\">" + H(s) + "</span>" + (aCapo ? "<br>" : ""));
    };
    for (const VoceTenuta& v : voci) {
        switch (v.tipo) {
            case T::Spazio:
                Spazio();
                break;
            case T::Titolo:
                Riga("<CENTER><SPAN class='tabletitle'>" + H(v.testo) + "</SPAN></CENTER>");
                Carica(kTitolo);
                ControllaPagina();
                break;
            case T::Intestazione:
                Riga(kGrassetto);
                testo(v.testo, true);
                Riga("</span>");
                break;
            case T::Riga:
                testo(v.testo, true);
                break;
            case T::Elenco: {
                Riga("<TABLE align='CENTER' cellspacing=0 class='datatablenoborder' border='0'>");
                Riga("<td width=50%></td><td width=50%></td>");
                for (size_t k = 0; k < v.elementi.size(); ++k) {
                    if (k % 2 == 0) Riga("<tr>");
                    Riga("<td>" + H(v.elementi[k]) + "</td>");
                    if (k % 2 == 1) Riga("</tr>");
                }
                Riga("</TABLE>");
                break;
            }
            case T::Apparecchi: {
                Riga("<TABLE align='CENTER' cellspacing=0 class='datatablenoborder' border='0'>");
                Riga("<td width=5%></td><td width=45%></td><td width=5%></td><td width=45%></td>");
                for (size_t k = 0; k < v.coppie.size(); ++k) {
                    if (k % 2 == 0) Riga("<tr>");
                    Riga("<td>" + H(v.coppie[k].first) + "</td><td>" + H(v.coppie[k].second) + "</td>");
                    // An odd last item stands alone in its row.
                    if (k % 2 == 0 && k + 1 == v.coppie.size()) Riga("<td></td>");
                    if (k % 2 == 1 || k + 1 == v.coppie.size()) Riga("</tr>");
                }
                Riga("</TABLE>");
                break;
            }
            case T::Firme:
                Riga("<table><tr>");
                for (const std::string& s : v.elementi) {
                    Riga("<td width=50% align=center>");
                    Riga(kGrassetto);
                    testo(s, false);
                    Riga("</span>");
                    Riga("</td>");
                }
                Riga("</tr></table>");
                break;
        }
    }
}

// The schema on a page of its own, numbered after the pages already written (1 when it is
// the only section).
void ScrittoreHtml::PaginaSchema(const std::string& fileSchema, bool altreSezioni) {
    if (!altreSezioni) pagina_ = static_cast<int16_t>(pagina_ - 1);
    const int16_t q = pagina_;
    const int16_t p = static_cast<int16_t>(Posizione(q + 1L));
    IntestazioneDi(p, "' width='80' height='40'>", "mm; width:170mm'>");
    Riga("<IMG src='" + H(NomeDi(fileSchema)) + "' align='middle' style='width:200mm'></IMG><BR>");
    Riga(kSpazio);
    Carica(kSpaziatura);
    Riga("<TABLE align='center'>");
    Riga("<TR style='font-family:Arial; font-size:3.5mm;'>");
    Riga("<TD style='text-align:left'>" + H(d_.NomeFileProgetto) +
         " - Riferimento: " + H(Sinistra(d_.Riferimento, 70)) + "</TD>");
    Riga("</TR>");
    Riga("</TABLE>");
    Riga("</DIV>");
    PiePaginaDi(p, Sotto(p, 265));
}

void ScrittoreHtml::Epilogo() {
    Riga("</BODY>");
    Riga("</HTML>");
}

}  // namespace

EsitoStampa PrintHTMLFile(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso,
                          Avanzamento& av, Messaggi& msg, const SalvaSchema& schema) {
    Esecuzione run(o.selezione, av);
    FileRelazione f;
    EsitoStampa esito;
    try {
        f.Apri(percorso);
        ScrittoreHtml w(f, d, o, percorso, schema, av);
        w.Prologo();
        PercorriRelazione(d, a, o.selezione, run, w, msg);
        w.Epilogo();
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
