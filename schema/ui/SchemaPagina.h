#pragma once
// The schema page of the document window: the drawn network on a dark picture (picDisplay),
// with the palette of elements to drag onto it, the two scroll bars and the zoom.
//
// The picture is a buffer the walk paints into, as the product's picture with its own memory:
// the arrows of a drag, the selection and the rubber line of a stretch are painted over the
// last walk and wiped by the next one. Every change of the document goes through the named
// edits of editing/Modifiche.h and ends in richiestaElaborazione(); the window recalculates
// and calls Aggiorna(), which walks the tree again.

#include <QImage>
#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "core/ui/PaginaDocumento.h"
#include "schema/Modifica.h"
#include "schema/Schema.h"

class QScrollBar;
class QLabel;

namespace fornax {
class Messaggi;
struct Sessione;
}  // namespace fornax

namespace fornax::schema::ui {

class SchemaQt;
class MessaggiDelWalk;

// The MIME type of a palette element being dragged; the data is its tag ("TRONCO", ...).
inline constexpr const char* MIME_PALETTE = "application/x-fornax-palette";

class SchemaPagina : public fornax::ui::PaginaDocumento {
    Q_OBJECT
public:
    SchemaPagina(Sessione& s, Messaggi& msg, QWidget* padre = nullptr);
    ~SchemaPagina() override;

    // Walks the tree again on picDisplay ("Rigenera Schema" too).
    void Aggiorna() override;
    // Applies the session's zoom level (held to -12..5): the picture's scale, the scroll bars,
    // a new walk, and zoomCambiato for the main frame's txtScaleW.
    void Rescale();
    void ImpostaZoom(int livello);
    // The Delete key and "Cancella tronco selezionato": the selected section, asking how.
    void CancellaSelezionato();

    // ---- What the window wires ----
    // The section panel for a section (double click on a section).
    std::function<void(int tronco)> ApriParametriTronco;
    // The consumer dialog for the free end of a section (a consumer dropped, or a double click
    // on a consumer). Its OK stores the values through editing/Modifiche.h; the page asks for
    // a recalculation afterwards either way. Unset: no dialog opens.
    std::function<void(int tronco)> ApriUtenza;
    // How a section is deleted (TipoCancellazione, 0 when cancelled); by default frmDelete.
    std::function<int()> ChiediTipoCancellazione;

    // What the last consumer request was: which dialog, and whether from a drop.
    struct RichiestaUtenza {
        int tronco = 0;
        DialogoUtenza dialogo = DialogoUtenza::Cportata;
        bool daDrop = false;
    };
    const RichiestaUtenza& UltimaRichiestaUtenza() const { return richiesta_; }

    // ---- Parts, for the main frame and the tests ----
    QWidget* Display() const { return picDisplay_; }
    QWidget* Palette(const QString& tag) const;
    QScrollBar* BarraVerticale() const { return VScroll_; }
    QScrollBar* BarraOrizzontale() const { return HScroll_; }
    StatoSchema& Stato() { return *stato_; }
    const QImage& Immagine() const { return buffer_; }
    // Twips of the schema at a point of picDisplay, and back.
    QPointF ATwip(QPointF pixel) const;
    QPointF APixel(double x, double y) const;
    // The picture's size in twips (Width, Height) and twips per pixel at zoom 0.
    double TwipPerPixel() const;

signals:
    void zoomCambiato(int livello, const QString& scala);

private:
    friend class AreaSchema;
    template <class F>
    void SuBuffer(F&& f);
    template <class F>
    void Protetto(F&& f);
    void Ridisegna();
    void DopoWalk();
    void Adatta();

    // Events of picDisplay.
    void Premuto(QPointF p, Qt::MouseButton b);
    void Rilasciato(QPointF p, Qt::MouseButton b);
    void Mosso(QPointF p);
    void DoppioClick(QPointF p);
    void DragEntra(const std::string& tag);
    void DragEsce();
    void Rilascia(QPointF p, const std::string& tag);

    Sessione& s_;
    Messaggi& msg_;
    std::unique_ptr<MessaggiDelWalk> msgWalk_;
    std::unique_ptr<StatoSchema> stato_;
    QWidget* picDisplay_ = nullptr;
    QScrollBar* VScroll_ = nullptr;
    QScrollBar* HScroll_ = nullptr;
    QImage buffer_;
    double scala_ = 1.0;  // ScaleWidth / Width
    RichiestaUtenza richiesta_;

    // Form state of the mouse.
    int16_t ManigliaSottoMouse = 0;
    int16_t ManigliaTrascinata = 0;
    std::string TagManiglia;
    double MouseX = 0, MouseY = 0;
    bool clickSuManiglia_ = false;
};

}  // namespace fornax::schema::ui
