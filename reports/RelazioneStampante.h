#pragma once
// The printer's layout of the report: the third back end of the run beside the HTML and the
// text files. It keeps the printer's current position and font in the report's scale (0, 0
// inside the margins, the drawing centred on the paper) and takes every page decision from
// the current vertical position. Print (Stampante.h) drives it; the tests drive single
// sections from a chosen position.

#include <set>
#include <string>
#include <vector>

#include "reports/Esecuzione.h"
#include "reports/Stampante.h"

namespace fornax {

class ImpaginatoreStampante final : public Impaginatore {
public:
    ImpaginatoreStampante(DispositivoStampa& dev, const Documento& d, const OpzioniStampante& o, Avanzamento& av,
                          Messaggi& msg);

    // The run's order.
    void Inizio() override;
    void Copertina(const CopertinaRelazione& c) override;
    void Tabelle(int fase, const std::vector<TabellaRelazione>& tabelle, bool dopoAltre) override;
    void Computo(const ComputoRelazione& c, bool dopoAltre) override;
    void Tenuta(const std::vector<VoceTenuta>& voci, bool dopoAltre) override;
    void FineSezioni() override;
    void Schema() override;

    // The page decisions.
    bool ControlloPagina(int righe = 0);
    void Spazio();
    void ScriviCentrato(const std::string& testo, double dimensione = 0);
    void Intestazione();
    void PiePagina();

    // The printer's state, in the report's scale.
    double CurrentX = 0;
    double CurrentY = 0;
    const GeometriaPagina& Geometria() const { return g_; }
    int Pagina() const { return pagina_; }
    int Pagine() const { return pagineFinite_ + pagina_; }
    int Documenti() const { return documenti_; }

private:
    void ImpostaFont(const std::string& nome);
    void Font(double dimensione, bool grassetto = false);
    double TextWidth(std::string_view s) const { return dev_.LarghezzaTesto(s); }
    double TextHeight(std::string_view s = "X") const { return dev_.AltezzaTesto(s); }
    void Stampa(std::string_view testo, bool aCapo = true);
    void RigaVuota(int n = 1);
    void Linea(double x1, double y1, double x2, double y2);
    void Pronto();  // the page that was asked for starts with the first thing drawn on it
    void NuovaPagina();
    void CambiaPagina();
    void Preambolo(int fase, bool dopoAltre);
    void Etichetta(const std::string& etichetta, const std::string& valore, double x);
    void ScriviCopertina(const CopertinaRelazione& c);
    void ScriviTabella(const TabellaRelazione& t);
    void ScriviComputo(const ComputoRelazione& c);
    void ScriviTenuta(const std::vector<VoceTenuta>& voci);
    std::string NomeBase() const;

    DispositivoStampa& dev_;
    const Documento& d_;
    const OpzioniStampante& o_;
    Avanzamento& av_;
    Messaggi& msg_;
    GeometriaPagina g_;
    Carattere font_;
    std::set<std::string> fontSegnalati_;
    int pagina_ = 0;                   // pages begun on the device in the document in progress
    int pagineFinite_ = 0;             // pages of the documents ended
    int documenti_ = 0;                // documents ended
    bool inSospeso_ = false;           // a new page was asked for and nothing is on it yet
    bool piede_ = false;               // the page in progress has its footer
    bool intestazioneDovuta_ = false;  // the cover's page break: the next section heads its page
    int logoL_ = 0, logoA_ = 0;
};

}  // namespace fornax
