#pragma once
// The printer report's device on a QPrinter: a printer of the system (CUPS) or a PDF file.
// The report's twips are turned into the printer's own units here; fonts are set in points,
// which the printer scales by itself (the painter is never scaled as well). The document
// begins with the first thing drawn. The report's two documents (the text pages, then the
// landscape schema page) go out as one job, so that a PDF file holds both: the end of the
// first is a page break, and Chiudi ends the job.

#include <QFont>
#include <QPainter>
#include <memory>

#include "reports/Stampante.h"

class QPrinter;

namespace fornax::ui {

class DispositivoQPrinter final : public DispositivoStampa {
public:
    explicit DispositivoQPrinter(QPrinter& p);
    ~DispositivoQPrinter() override;
    DispositivoQPrinter(const DispositivoQPrinter&) = delete;
    DispositivoQPrinter& operator=(const DispositivoQPrinter&) = delete;

    int Larghezza() const override;
    int Altezza() const override;
    bool ImpostaFont(const Carattere& c) override;
    double LarghezzaTesto(std::string_view testo) const override;
    double AltezzaTesto(std::string_view testo) const override;
    void Testo(double x, double y, std::string_view testo) override;
    void Linea(double x1, double y1, double x2, double y2) override;
    void Immagine(double x, double y, double larghezza, double altezza, const std::string& file) override;
    void NuovaPagina() override;
    void FineDocumento() override;
    bool ImpostaOrientamento(int orientamento) override;
    // The schema's QPainter surface on the page in progress, black on white.
    schema::SchemaTarget& SuperficieSchema() override;

    // Whether the font the system gives for `nome` is that font or one made to its measures
    // ("Arial" is Liberation Sans on Linux).
    // Ends the job; false when the printer or the file did not take it.
    bool Chiudi();

    static bool FontEquivalente(const QString& nome, const QString& risolto);

private:
    void Inizia();
    double Px(double twip) const { return twip * dpi_ / 1440.0; }
    QPrinter& p_;
    QPainter painter_;
    QFont font_;
    QPen penna_;
    std::unique_ptr<schema::SchemaTarget> schema_;
    double dpi_;
    bool finito_ = false;  // a document ended: the next thing drawn starts a page
};

}  // namespace fornax::ui
