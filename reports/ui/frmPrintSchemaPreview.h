#pragma once
// "Preview": the schema as it goes to paper, black on white, with the font of its texts and a
// zoom to look at it. "Stampa" keeps the three choices for next time and answers "print";
// "Annulla" answers "cancel" and keeps nothing. The print dialog's "Stampa avanzata" prints
// the schema page with the font chosen here.
//
// PrintSchema and SaveSchema send the schema alone to the printer and to a picture file; the
// schema tab calls them from its commands.

#include <QDialog>
#include <functional>
#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/Servizi.h"

class QFont;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QScrollBar;

namespace fornax::ui {

class frmPrintSchemaPreview final : public QDialog {
    Q_OBJECT
public:
    frmPrintSchemaPreview(Documento& d, const Archivi& a, Impostazioni& imp, Messaggi& msg, QWidget* padre = nullptr);

    // Redraws picSchema at the zoom and with the font in force.
    void pictureRepaint();
    void cmdZoomPlus_Click();
    void cmdZoomMinus_Click();
    // The number typed in TextZoom becomes the zoom (a number that is not one leaves it).
    void TextZoom_LostFocus();
    void cmdFont_Click();
    void cmdPrint_Click();
    void cmdCancel_Click();

    // The form's state and its answer.
    float Zoom = 1.0f;
    std::string NomeFont = "arial";
    double DimensioneFont = 7;
    std::string Risultato = "cancel";
    // The font the schema is drawn with: a blank name is "Arial", no size is 7.
    std::string FontEffettivo() const;
    double DimensioneEffettiva() const;

    // The platform's font dialog; replaceable by the tests. False when cancelled.
    std::function<bool(QFont& font)> ChiediFont;

    QScrollArea* picArea = nullptr;
    QLabel* picSchema = nullptr;
    QScrollBar *HpicScroll = nullptr, *VpicScroll = nullptr;
    QLineEdit* TextZoom = nullptr;
    QPushButton *cmdZoomPlus = nullptr, *cmdZoomMinus = nullptr, *cmdZoomApply = nullptr;
    QLineEdit* txtFontType = nullptr;
    QPushButton *cmdFont = nullptr, *cmdPrint = nullptr, *cmdCancel = nullptr;

    // The zoom is held to this range.
    static constexpr float ZOOM_MIN = 0.1f;
    static constexpr float ZOOM_MAX = 10.0f;

protected:
    void reject() override;

private:
    Documento& d_;
    const Archivi& a_;
    Impostazioni& imp_;
    Messaggi& msg_;
};

// PrintSchema: after "Confermi la stampa dello schema grafico?" the schema alone on a landscape
// page of the chosen printer (a PDF file where there is none: `chiediPdf` names it), headed by
// the project's name and " - Riferimento: ", fitted to the page. False when nothing was printed.
bool PrintSchema(Documento& d, const Archivi& a, Impostazioni& imp, Messaggi& msg,
                 const std::function<std::string()>& chiediPdf);

}  // namespace fornax::ui
