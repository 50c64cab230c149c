#pragma once
// A printer that draws nothing and remembers everything: each text, line and picture with its
// page, position and font, so that the tests see the pages, the positions and the breaks.
// Its text is measured by a fixed rule: every character is 0.55 of the font size wide and a
// line is 1.15 of it high (Arial's proportions).

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "reports/Stampante.h"
#include "schema/TargetRegistrato.h"

namespace fornax {

class DispositivoRegistrato final : public DispositivoStampa {
public:
    struct Operazione {
        enum class Tipo { Testo, Linea, Immagine, Schema } tipo = Tipo::Testo;
        int pagina = 1;  // 1-based, in the document in progress
        int documento = 1;
        double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        std::string testo;  // the text, or the picture's file
        Carattere font;
    };

    // A4 portrait in twips by default.
    DispositivoRegistrato(int larghezza = 11906, int altezza = 16838) : larghezza_(larghezza), altezza_(altezza) {}

    int Larghezza() const override { return orientamento_ == 2 ? altezza_ : larghezza_; }
    int Altezza() const override { return orientamento_ == 2 ? larghezza_ : altezza_; }
    bool ImpostaFont(const Carattere& c) override;
    double LarghezzaTesto(std::string_view testo) const override;
    double AltezzaTesto(std::string_view testo) const override;
    void Testo(double x, double y, std::string_view testo) override;
    void Linea(double x1, double y1, double x2, double y2) override;
    void Immagine(double x, double y, double larghezza, double altezza, const std::string& file) override;
    void NuovaPagina() override;
    void FineDocumento() override;
    bool ImpostaOrientamento(int orientamento) override;
    // A recording surface of the paper's size; an operation of type Schema marks its page.
    schema::SchemaTarget& SuperficieSchema() override;

    // What the device offers and how it fails.
    std::set<std::string> fontDisponibili = {"Arial"};
    bool landscapePossibile = true;
    int guastoDopo = -1;  // the operation (0-based) at which the device fails; -1 never

    std::vector<Operazione> operazioni;
    // The schema's surfaces handed out, in order; the operation of type Schema of each holds
    // its index in `x1`.
    std::vector<std::unique_ptr<schema::TargetRegistrato>> schemi;
    int pagine = 0;  // pages of all documents
    int documenti = 0;
    int orientamento = 1;

    // The texts of a page, in order; the lines of a page.
    std::vector<Operazione> TestiPagina(int pagina, int documento = 1) const;
    std::vector<Operazione> LineePagina(int pagina, int documento = 1) const;
    // The first text equal to `testo`, or null.
    const Operazione* Trova(const std::string& testo) const;

private:
    void Registra(Operazione op);
    int larghezza_, altezza_;
    int orientamento_ = 1;
    Carattere font_;
    Carattere fontDispositivo_;
    int pagina_ = 0;  // 0: nothing drawn in the document in progress
};

}  // namespace fornax
