// The editing of the grid: the editors laid over the cells, their keys, the commits and the
// deletion of rows.

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableView>
#include <QToolButton>
#include <algorithm>
#include <vector>

#include "archives/ui/ViewDiametriFrm.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"
#include "editing/Modifiche.h"
#include "editing/RegoleGriglia.h"
#include "editing/ui/DialoghiTronco.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "editing/ui/frmDelete.h"

namespace fornax::ui {

namespace {

// Holds the focus rules off while a commit or a dialog runs: a message box taking the focus
// must not commit the cell a second time.
class Blocco {
public:
    explicit Blocco(int& n) : n_(n) { ++n_; }
    ~Blocco() { --n_; }
    Blocco(const Blocco&) = delete;
    Blocco& operator=(const Blocco&) = delete;

private:
    int& n_;
};

bool Numerica(const ColonnaTabella& c) {
    const std::string f = Trim(c.Formato);
    return !f.empty() && f != "@";
}

}  // namespace

// ---- Cursor and selection ----

int GasGrid::Row() const {
    const QModelIndex i = Grid->currentIndex();
    return i.isValid() ? i.row() + 1 : 0;
}

int GasGrid::Col() const {
    const QModelIndex i = Grid->currentIndex();
    return i.isValid() ? i.column() + 1 : 0;
}

// The other corner of the selected block that holds the current cell.
int GasGrid::RowSel() const {
    const QModelIndex cur = Grid->currentIndex();
    for (const QItemSelectionRange& r : Grid->selectionModel()->selection()) {
        if (!r.contains(cur)) continue;
        return (cur.row() == r.top() ? r.bottom() : r.top()) + 1;
    }
    return Row();
}

int GasGrid::ColSel() const {
    const QModelIndex cur = Grid->currentIndex();
    for (const QItemSelectionRange& r : Grid->selectionModel()->selection()) {
        if (!r.contains(cur)) continue;
        return (cur.column() == r.left() ? r.right() : r.left()) + 1;
    }
    return Col();
}

void GasGrid::VaiA(int riga, int colonna) {
    riga = std::clamp(riga, 1, std::max(1, modello_->Righe() - 1));
    colonna = std::clamp(colonna, 1, std::max(1, modello_->UltimaColonna()));
    const QModelIndex i = modello_->index(riga - 1, colonna - 1);
    if (!i.isValid()) return;
    Grid->selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect);
    Grid->scrollTo(i);
    ImmagineDiametro(riga);
    AggiornaPannello();
}

// ---- Opening an editor ----

void GasGrid::GridEditing(const QString& tasto) {
    const int r = Row();
    const int c = Col();
    if (r < 1 || c < 1 || c > modello_->UltimaColonna()) return;
    const ColonnaTabella& col = modello_->Colonna(c);
    if (col.Bloccata != 0) return;
    RigaEdit = r;
    ColonnaEdit = c;
    TestoEdit = modello_->cella(r, c).testo;
    if (col.Id == Id::ID_P_UTENZE) {
        // A node has no flow of its own.
        const bool nodo = r <= d_.NumTronchi() && HaFigli(r);
        if (nodo && d_.T(r).ID_P_UTENZE == 0) return;
    }
    if (col.Id == Id::ID_MATERIALE) {
        ApriMateriale(r, c);
        return;
    }
    ApriTesto(r, c, tasto);
}

void GasGrid::ApriMateriale(int riga, int colonna) {
    StatoEdit = 2;
    QSignalBlocker b(Combo1);
    int scelta = Combo1->findText(Q(a_.Default.DefaultMateriale).trimmed(), Qt::MatchFixedString);
    const Tronco& t = d_.T(riga);
    if (riga <= d_.NumTronchi() && a_.HaMateriale(t.IndiceMateriale)) scelta = t.IndiceMateriale - 1;
    if (riga == d_.NumTronchi() + 1 && riga > 1) {
        const Tronco& sopra = d_.T(riga - 1);
        if (a_.HaMateriale(sopra.IndiceMateriale)) scelta = sopra.IndiceMateriale - 1;
    }
    Combo1->setCurrentIndex(scelta >= 0 ? scelta : (Combo1->count() > 0 ? 0 : -1));
    modificaMateriale_ = false;
    RigaEdit = riga;
    ColonnaEdit = colonna;
    PosizionaEditor();
    Combo1->show();
    Combo1->raise();
    Combo1->setFocus(Qt::OtherFocusReason);
    AggiornaPannello();
}

void GasGrid::ApriTesto(int riga, int colonna, const QString& tasto) {
    const ColonnaTabella& col = modello_->Colonna(colonna);
    const bool diametro = col.Id == Id::ID_DIAMETRO;
    if (diametro) {
        modello_->ScriviFondo(riga, colonna, Colori::BIANCO);
        ColonnaDiametro = colonna;
        RigaDiametro = riga;
    }
    RigaEdit = riga;
    ColonnaEdit = colonna;
    StatoEdit = 2;
    modificaTesto_ = false;
    const QChar primo = tasto.isEmpty() ? QChar() : tasto.at(0);
    const bool digitato = !tasto.isEmpty() && primo != QChar(13) && primo != QChar(8);
    if (digitato) {
        Text1->setText(tasto);
        Text1->end(false);
        modificaTesto_ = true;
    } else {
        const QString filtrato = Q(FiltraTestoCella(S(modello_->cella(riga, colonna).testo), Numerica(col)));
        Text1->setText(filtrato);
        Text1->selectAll();
        // A new row's length starts from the length of the row above, as if typed.
        if (riga == d_.NumTronchi() + 1 && riga > 1 && primo == QChar(13) && col.Id == Id::ID_LEN) {
            Text1->setText(Q(Trim(TestoBreve(d_.T(riga - 1).ID_LEN))));
            Text1->selectAll();
            modificaTesto_ = true;
        }
    }
    modello_->ScriviTesto(riga, colonna, Text1->text());
    cmdDettagliDiametro->setVisible(diametro);
    PosizionaEditor();
    Text1->show();
    Text1->raise();
    Text1->setFocus(Qt::OtherFocusReason);
    AggiornaPannello();
}

void GasGrid::PosizionaEditor() {
    if (StatoEdit != 2 || RigaEdit < 1 || ColonnaEdit < 1) return;
    const QRect cella = Grid->visualRect(modello_->index(RigaEdit - 1, ColonnaEdit - 1));
    if (Combo1->isVisible() || IdColonna(ColonnaEdit) == Id::ID_MATERIALE) {
        QRect r = cella;
        r.setHeight(std::max(cella.height(), Combo1->sizeHint().height()));
        r.setWidth(std::max(cella.width(), Combo1->sizeHint().width()));
        Combo1->setGeometry(r);
        return;
    }
    QRect r = cella;
    if (cmdDettagliDiametro->isVisible() || IdColonna(ColonnaEdit) == Id::ID_DIAMETRO) {
        const int b = cella.height();
        cmdDettagliDiametro->setGeometry(cella.right() - b + 1, cella.top(), b, b);
        r.setWidth(cella.width() - b);
    }
    Text1->setGeometry(r);
}

// Hides the editors without committing anything.
void GasGrid::ChiudiEditor() {
    StatoEdit = 1;
    modificaTesto_ = false;
    NascondiEditori();
}

// The grid takes the focus before the editors go: hiding the widget that has the focus would
// pass it on as a Tab does, and the grid would move its cursor one cell on.
void GasGrid::NascondiEditori() {
    Blocco b(bloccoFuoco_);
    Grid->setFocus(Qt::OtherFocusReason);
    Text1->hide();
    Combo1->hide();
    cmdDettagliDiametro->hide();
}

// ---- Keys of the editors ----

bool GasGrid::eventFilter(QObject* o, QEvent* e) {
    if (o == Grid && e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        if (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
        switch (k->key()) {
            case Qt::Key_Delete:
                DeleteKeyGrid();
                return true;
            case Qt::Key_Return:
            case Qt::Key_Enter:
                GridEditing(QStringLiteral("\r"));
                return true;
            case Qt::Key_Backspace:
                GridEditing(QStringLiteral("\b"));
                return true;
            case Qt::Key_F2:
                GridEditing(QString());
                return true;
            case Qt::Key_F11:
                ParametriTronco();
                return true;
            default:
                break;
        }
        const QString t = k->text();
        if (!t.isEmpty() && t.at(0).isPrint()) {
            GridEditing(t);
            return true;
        }
        return false;
    }
    if (o == Grid && e->type() == QEvent::FocusIn) {
        if (StatoEdit == 0) StatoEdit = 1;
        return false;
    }
    if (o == Grid->viewport()) {
        if (e->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton) {
            // A click with one column selected opens the editor; a wider selection only
            // shows the state of the row's diameter.
            if (Col() == ColSel()) {
                GridEditing(QString());
            } else {
                ImmagineDiametro(Row());
            }
            return false;
        }
        if (e->type() == QEvent::MouseButtonDblClick) {
            ApriDettaglio();
            return true;
        }
        return false;
    }
    if (o == Text1) {
        switch (e->type()) {
            case QEvent::KeyPress: {
                auto* k = static_cast<QKeyEvent*>(e);
                switch (k->key()) {
                    case Qt::Key_Left:
                    case Qt::Key_Right:
                    case Qt::Key_Up:
                    case Qt::Key_Down:
                        Freccia(k->key());
                        return true;
                    case Qt::Key_Escape:
                        Esc();
                        return true;
                    case Qt::Key_Return:
                    case Qt::Key_Enter:
                        Invio();
                        return true;
                    case Qt::Key_Question:
                        ApriDettaglio();
                        return true;
                    case Qt::Key_F11:
                        ParametriTronco();
                        return true;
                    default:
                        return false;
                }
            }
            case QEvent::MouseButtonDblClick:
                ApriDettaglio();
                return true;
            case QEvent::FocusOut: {
                const auto ragione = static_cast<QFocusEvent*>(e)->reason();
                if (ragione != Qt::PopupFocusReason && ragione != Qt::ActiveWindowFocusReason && bloccoFuoco_ == 0)
                    PerditaFuocoTesto();
                return false;
            }
            default:
                return false;
        }
    }
    if (o == Combo1) {
        switch (e->type()) {
            case QEvent::KeyPress: {
                auto* k = static_cast<QKeyEvent*>(e);
                if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
                    if (StatoEdit == 2) ChiudiMateriale(true);
                    return true;
                }
                if (k->key() == Qt::Key_Escape) {
                    modello_->ScriviTesto(RigaEdit, ColonnaEdit, TestoEdit);
                    ChiudiEditor();
                    return true;
                }
                return false;
            }
            case QEvent::FocusOut: {
                const auto ragione = static_cast<QFocusEvent*>(e)->reason();
                if (ragione != Qt::PopupFocusReason && ragione != Qt::ActiveWindowFocusReason && bloccoFuoco_ == 0 &&
                    StatoEdit == 2)
                    ChiudiMateriale(false);
                return false;
            }
            default:
                return false;
        }
    }
    return QWidget::eventFilter(o, e);
}

void GasGrid::Esc() {
    modello_->ScriviTesto(RigaEdit, ColonnaEdit, TestoEdit);
    StatoEdit = 1;
    ChiudiEditor();
    QSignalBlocker b(Text1);
    Text1->clear();
}

void GasGrid::Freccia(int tasto) {
    {
        Blocco b(bloccoFuoco_);
        ConfermaCella();
    }
    int r = Row();
    int c = Col();
    switch (tasto) {
        case Qt::Key_Left:
            c = std::max(c - 1, 1);
            break;
        case Qt::Key_Up:
            r = std::max(r - 1, 1);
            break;
        case Qt::Key_Right:
            c = std::min(c + 1, modello_->UltimaColonna());
            break;
        case Qt::Key_Down:
            r = std::min(r + 1, modello_->Righe() - 1);
            break;
        default:
            break;
    }
    ChiudiEditor();
    VaiA(r, c);
}

void GasGrid::Invio() {
    if (StatoEdit != 2) return;
    const int c = Col();
    if (IdColonna(c) == Id::ID_DIAMETRO) modello_->ScriviFondo(Row(), c, Colori::GIALLO_PALLIDO);
    {
        Blocco b(bloccoFuoco_);
        grigliaRinviata_ = s_.RicalcoloAutomatico != FALSO;
        ConfermaCella();
        grigliaRinviata_ = false;
    }
    Avanza();
}

// After a commit by Enter: the next editable cell of the row, or the first cell of the next
// row past the last column; then the recalculation.
void GasGrid::Avanza() {
    int r = Row();
    int c = Col();
    int prossima = 0;
    for (int k = c + 1; k <= modello_->UltimaColonna() && prossima == 0; ++k) {
        const ColonnaTabella& col = modello_->Colonna(k);
        if (col.Bloccata != 0) continue;
        if (col.Id == Id::ID_P_UTENZE && r <= d_.NumTronchi() && HaFigli(r)) continue;
        prossima = k;
    }
    if (prossima == 0) {
        if (modello_->Righe() < d_.NumTronchi() + 1) {
            NuovaRiga();
        } else if (r > d_.NumTronchi()) {
            PassoModifica passo(s_.Storia, d_, modifica::NomeNuovoTronco(r));
            modifica::AccogliRiga(d_, r);
        }
        if (s_.CursorLocked == FALSO) {
            if (r + 1 < modello_->Righe()) ++r;
            c = 1;
        }
    } else if (s_.CursorLocked == FALSO) {
        c = prossima;
    }
    if (s_.RicalcoloAutomatico != FALSO) Elaborazione();
    ChiudiEditor();
    VaiA(r, c);
}

void GasGrid::PerditaFuocoTesto() {
    if (ColonnaEdit >= 1 && IdColonna(ColonnaEdit) != Id::ID_DIAMETRO)
        modello_->ScriviFondo(RigaEdit, ColonnaEdit, Colori::BIANCO);
    if (ColonnaDiametro >= 1 && RigaDiametro >= 1 && IdColonna(ColonnaEdit) == Id::ID_DIAMETRO) {
        const Fondo f = FondoDiametroModificato(d_, a_, RigaDiametro, S(Text1->text()));
        modello_->ScriviFondo(RigaDiametro, ColonnaDiametro,
                              f == Fondo::RossoCupo ? Colori::ROSSO_CUPO : Colori::GIALLO_PALLIDO);
    }
    {
        Blocco b(bloccoFuoco_);
        if (Text1->hasFocus()) Grid->setFocus(Qt::OtherFocusReason);
        Text1->hide();
        cmdDettagliDiametro->hide();
    }
    // A pending change of a single row is committed; a block of rows is committed only by Enter.
    if (StatoEdit == 2 && Row() == RowSel()) {
        if (modificaTesto_) {
            Grid->setUpdatesEnabled(false);
            {
                Blocco b(bloccoFuoco_);
                ConfermaCella(RigaEdit, ColonnaEdit);
            }
            Grid->setUpdatesEnabled(true);
            modificaTesto_ = false;
        }
    }
    StatoEdit = 1;
}

void GasGrid::TerminaModifica() {
    if (StatoEdit != 2) return;
    if (Text1->isVisible()) {
        PerditaFuocoTesto();
    } else if (Combo1->isVisible()) {
        ChiudiMateriale(false);
    }
}

void GasGrid::ChiudiMateriale(bool avanza) {
    const int materiale = Combo1->currentIndex() + 1;
    const int da = std::min(Row(), RowSel());
    const int a = std::max(Row(), RowSel());
    // Leaving the list without touching it writes nothing: a glance at a row past the table
    // must not make it a section.
    const bool scritto = avanza || modificaMateriale_;
    {
        Blocco b(bloccoFuoco_);
        if (Combo1->hasFocus()) Grid->setFocus(Qt::OtherFocusReason);
        Combo1->hide();
    }
    StatoEdit = 1;
    modificaMateriale_ = false;
    if (!scritto) return;
    if (materiale >= 1) {
        PassoModifica passo(s_.Storia, d_, modifica::NomeCella(modello_->Colonna(Col()), da, a));
        modifica::ScegliMateriale(d_, a_, da, a, materiale);
        for (int r = da; r <= a; ++r) ScriviRiga(r);
    }
    if (avanza) {
        Avanza();
        return;
    }
    if (s_.RicalcoloAutomatico != FALSO) Elaborazione();
}

// ---- Commit ----

void GasGrid::ConfermaCella(int riga, int colonna) {
    const bool argomenti = riga > 0 && colonna > 0;
    const int col = argomenti ? colonna : Col();
    const int rigaTesto = argomenti ? riga : Row();
    const int da = argomenti ? riga : std::min(Row(), RowSel());
    const int a = argomenti ? riga : std::max(Row(), RowSel());
    if (col < 1 || rigaTesto < 1) return;
    const ColonnaTabella& c = modello_->Colonna(col);
    const std::string testo = NormalizzaTesto(S(modello_->cella(rigaTesto, col).testo));
    modello_->ScriviTesto(rigaTesto, col, Q(testo));
    const int primaDellaTabella = d_.NumTronchi();
    EsitoConferma esito;
    {
        Blocco b(bloccoFuoco_);
        PassoModifica passo(s_.Storia, d_, modifica::NomeCella(c, da, a));
        esito = modifica::ConfermaCella(d_, a_, da, a, c.Id, testo, msg_, [this](int materiale) {
            return S(ViewDiametriFrm::Scegli(this, a_, materiale));
        });
    }
    for (const EsitoCella& e : esito.righe) {
        // Rows that have just joined the table show their record (the material they took).
        if (e.riga > primaDellaTabella && !esito.interrotto) ScriviRiga(e.riga);
        modello_->ScriviTesto(e.riga, col, Q(e.testo));
        if (e.diametro > 0) modello_->ScriviInchiostro(e.riga, col, Colori::ROSSO_SCURO);
        if (e.diametro < 0) modello_->ScriviInchiostro(e.riga, col, Colori::NERO);
    }
    ImmagineDiametro(Row());
    if (esito.interrotto) return;
    if (s_.RicalcoloAutomatico != FALSO) Elaborazione();
}

// ---- Details ----

void GasGrid::ApriDettaglio() {
    const int r = Row();
    const int c = Col();
    if (r < 1 || c < 1 || c > modello_->UltimaColonna()) return;
    const int id = IdColonna(c);
    // The flow of a consumer opens its dialog, the length the section panel; the diameter
    // column lists the sizes of the row's material.
    if (id == Id::ID_P_UTENZE) {
        if (r <= d_.NumTronchi() && !HaFigli(r)) DialogoUtenza(r);
        return;
    }
    if (id == Id::ID_LEN) {
        if (r <= d_.NumTronchi()) ParametriTronco();
        return;
    }
    if (id != Id::ID_DIAMETRO || modello_->Colonna(c).Bloccata != 0) return;
    QString scelta;
    {
        Blocco b(bloccoFuoco_);
        scelta = ViewDiametriFrm::Scegli(this, a_, r <= MAX_TRONCHI ? d_.T(r).IndiceMateriale : 0);
    }
    if (scelta.isEmpty()) {
        if (StatoEdit == 2 && Text1->isVisible()) Text1->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (StatoEdit != 2) {
        RigaEdit = r;
        ColonnaEdit = c;
        TestoEdit = modello_->cella(r, c).testo;
    }
    modello_->ScriviTesto(r, c, scelta);
    {
        Blocco b(bloccoFuoco_);
        QSignalBlocker sb(Text1);
        Text1->setText(scelta);
        ConfermaCella();
    }
    ChiudiEditor();
    VaiA(r, c);
}

// ---- The section panel and the consumer dialogs ----

bool GasGrid::ParametriTronco() {
    // What an editor holds is committed first: the panel shows the record as it stands.
    TerminaModifica();
    const int r = Row();
    const int c = Col();
    std::vector<int> tronchi;
    if (r >= 1 && r <= d_.NumTronchi()) {
        // The section in view first, then the other rows selected that are sections.
        tronchi.push_back(r);
        const int da = std::min(r, RowSel());
        const int a = std::min<int>(std::max(r, RowSel()), d_.NumTronchi());
        for (int k = da; k <= a; ++k)
            if (k != r) tronchi.push_back(k);
    }
    if (tronchi.empty()) return false;
    bool fatto = false;
    {
        Blocco b(bloccoFuoco_);
        fatto = ApriPTronchi(this, s_, msg_, tronchi);
    }
    if (fatto) Elaborazione();
    if (r >= 1 && c >= 1) {
        ChiudiEditor();
        Grid->setFocus(Qt::OtherFocusReason);
    }
    return fatto;
}

bool GasGrid::ParametriTroncoDi(int tronco) {
    if (tronco < 1 || tronco > d_.NumTronchi()) return false;
    TerminaModifica();
    VaiA(tronco, std::max(1, Col()));
    bool fatto = false;
    {
        Blocco b(bloccoFuoco_);
        fatto = ApriPTronchi(this, s_, msg_, {tronco});
    }
    QApplication::processEvents();
    QApplication::processEvents();
    Elaborazione();
    return fatto;
}

bool GasGrid::DialogoUtenza(int riga) {
    if (riga < 1 || riga > d_.NumTronchi() || HaFigli(riga)) return false;
    TerminaModifica();
    bool fatto = false;
    {
        Blocco b(bloccoFuoco_);
        fatto = ApriDialogoUtenza(this, s_, msg_, riga);
    }
    ChiudiEditor();
    if (!fatto) return false;
    ScriviRiga(riga);
    SelectItemInDpMaxList();
    if (s_.RicalcoloAutomatico != FALSO) Elaborazione();
    return true;
}

// ---- Deleting ----

void GasGrid::ConfermaCancellazione(int tronco) {
    frmDelete f(this);
    f.ShowUnlink();
    {
        Blocco b(bloccoFuoco_);
        f.exec();
    }
    if (!f.Fatto) return;
    Rinfresco rinfresco{[this] { Elaborazione(); },
                        [this] {
                            ResetGrid();
                            Elaborazione();
                        }};
    PassoModifica passo(s_.Storia, d_, modifica::NomeCancellazione(f.TipoCancellazione, tronco, tronco));
    modifica::CancellaSezione(d_, tronco, f.TipoCancellazione, msg_, rinfresco);
    TroncoSelezionato = 0;
}

void GasGrid::DeleteKeyGrid() {
    TerminaModifica();
    if (Col() == ColSel()) {
        if (TroncoSelezionato >= 1) ConfermaCancellazione(TroncoSelezionato);
        return;
    }
    const int da = std::min(Row(), RowSel());
    const int a = std::max(Row(), RowSel());
    frmDelete f(this);
    f.ShowUnlink();
    {
        Blocco b(bloccoFuoco_);
        f.exec();
    }
    if (!f.Fatto) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Rinfresco rinfresco{[this] { Elaborazione(); },
                        [this] {
                            ResetGrid();
                            Elaborazione();
                        }};
    {
        PassoModifica passo(s_.Storia, d_, modifica::NomeCancellazione(f.TipoCancellazione, da, a));
        modifica::CancellaRighe(d_, da, a, f.TipoCancellazione, rinfresco);
    }
    QApplication::restoreOverrideCursor();
    TroncoSelezionato = 0;
}

}  // namespace fornax::ui
