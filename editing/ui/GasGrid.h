#pragma once
// The document window: a tabbed form whose first tab is the grid of sections ("Tabella
// tronchi"). Editing follows the product's grid: typing, Enter or a click open an editor laid
// over the current cell (Text1 for texts and numbers, Combo1 for the material), Enter commits
// and moves to the next editable cell, the arrows commit and move, Esc gives the cell back, "?"
// or a double click open the cell's detail. Every commit goes through ConfermaCella, and the
// network is recalculated after it when the automatic recalculation is on.

#include <QString>
#include <QWidget>
#include <memory>

#include "archives/Archivi.h"
#include "calc/Calcolo.h"
#include "core/ui/PaginaDocumento.h"
#include "sessione/Sessione.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;
class QToolButton;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class ModelloTronchi;

class GasGrid : public PaginaDocumento {
    Q_OBJECT
public:
    // The window shows the session's document; the work table, the zoom and the selection are
    // the session's, shared with the other pages.
    GasGrid(Sessione& s, Messaggi& msg, QWidget* padre = nullptr);
    ~GasGrid() override;

    // ---- Public operations ----
    // Recalculates and repaints the page in view.
    void Elaborazione();
    // Runs the calculation and writes every row of the grid.
    void AggiornaCalcoli();
    // Empties every cell and puts the cursor on the first cell.
    void ResetGrid();
    // Opens the editor on the current cell; `tasto` is the typed character, "\r" for Enter, or "".
    void GridEditing(const QString& tasto);
    // The Delete key on the grid.
    void DeleteKeyGrid();
    // Deletes one section after asking how.
    void ConfermaCancellazione(int tronco);
    // Applies the schema's zoom level, limited to -12..5.
    void Rescale();
    // Fills the material list of the grid.
    void LoadCombos();
    // Writes every row from the records, then recalculates.
    void ReLoadTubi();
    // Shows the document: the layout of its kind of network and all its rows.
    void NewRete();
    // The pressure combos of the page, filled and showing the document's values.
    void InitInitialPressureCombo();
    void InitDPMaxCombo();
    void SelectItemInInitialPressureList();
    void SelectItemInFinalPressureList();
    void SelectItemInDpMaxList();
    // Commits what an open editor holds, as when it loses the focus (the main frame calls it
    // before its commands).
    void TerminaModifica() override;
    // The grid shows the document again (recalculating it first).
    void Aggiorna() override { Elaborazione(); }
    // Fixes (true) or frees (false) the diameter of every section, then recalculates.
    void BloccaDiametri(bool bloccati);
    // True when every section that has a diameter has it fixed by the user.
    bool DiametriBloccati() const;

    // ---- The section panel and the consumer dialogs ----
    // F11 and "Parametri Tronco Selezionato": "Parametri Tronco" on the current row, or given to
    // every section of the rows selected; then the recalculation. False when nothing changed.
    bool ParametriTronco();
    // The schema's double click on a section: the grid's cursor goes to its row, the panel
    // opens on it alone, and the network is recalculated.
    bool ParametriTroncoDi(int tronco);
    // The consumer dialog of a terminal section's row; then the recalculation when it is
    // automatic. False when nothing changed.
    bool DialogoUtenza(int riga);

    // ---- State of the form ----
    int StatoEdit = 0;  // 1 the grid has the focus, 2 an editor is open
    int RigaEdit = 0;
    int ColonnaEdit = 0;
    QString TestoEdit;
    int ColonnaDiametro = 0;
    int RigaDiametro = 0;
    int TipoGriglia = 0;
    int& Zoom;                   // the session's zoom level
    bool InElaborazione = true;  // false while Elaborazione runs
    int& TroncoSelezionato;      // the section selected on the schema (the session's)

    // ---- Parts, for the main frame and the tests ----
    QTableView* Griglia() const { return Grid; }
    ModelloTronchi* Modello() const { return modello_; }
    QLineEdit* EditorTesto() const { return Text1; }
    QComboBox* EditorMateriale() const { return Combo1; }
    StatoCalcolo& Calcolo() { return *s_.calcolo; }
    // Current cell (1-based grid row and column) and the other end of the selection.
    int Row() const;
    int Col() const;
    int RowSel() const;
    int ColSel() const;
    void VaiA(int riga, int colonna);

signals:
    // After each recalculation and repaint.
    void elaborato();
    // The zoom level and the scale text shown by the main frame.
    void zoomCambiato(int livello, const QString& scala);

protected:
    bool eventFilter(QObject* o, QEvent* e) override;
    void showEvent(QShowEvent* e) override;

private:
    void Costruisci();
    void ScriviRiga(int r);
    void ScriviTutte();
    void MostraCalcoli();  // the results into every row, the title, the diameter's picture
    void NuovaRiga();
    void ConfermaCella(int riga = 0, int colonna = 0);
    void ApriDettaglio();
    void AggiornaTitolo();
    void AggiornaPannello();
    void ImmagineDiametro(int riga);

    // Editors.
    void ApriTesto(int riga, int colonna, const QString& tasto);
    void ApriMateriale(int riga, int colonna);
    void PosizionaEditor();
    void ChiudiEditor();
    void NascondiEditori();
    void Invio();
    void Esc();
    void Freccia(int tasto);
    void PerditaFuocoTesto();
    void ChiudiMateriale(bool avanza);
    void Avanza();
    bool HaFigli(int riga) const;
    int IdColonna(int c) const;

    // Pressure combos.
    void ApplicaPressione(QComboBox* combo);

    Sessione& s_;
    Documento& d_;
    Archivi& a_;
    Messaggi& msg_;

    QTableView* Grid = nullptr;
    ModelloTronchi* modello_ = nullptr;
    QLineEdit* Text1 = nullptr;
    QComboBox* Combo1 = nullptr;
    QToolButton* cmdDettagliDiametro = nullptr;
    QLabel* Panel3D2 = nullptr;
    QLabel* imgDiametro = nullptr;
    QLabel* lblTitolo = nullptr;
    QLabel* lblLimite = nullptr;
    QWidget* barraPressione = nullptr;
    QWidget* barraInterna = nullptr;
    QComboBox* ComboInitPres = nullptr;
    QComboBox* ComboFinalPres = nullptr;
    QComboBox* ComboDpMax = nullptr;

    bool modificaTesto_ = false;      // Text1's tag: a change is pending
    bool modificaMateriale_ = false;  // the material list was changed by the user
    int bloccoFuoco_ = 0;             // a commit or a dialog is running: focus changes commit nothing
    bool grigliaRinviata_ = false;    // a second recalculation follows at once: write the grid then
    bool righeDaScrivere_ = false;    // recalculated while another page was in view
};

}  // namespace fornax::ui
