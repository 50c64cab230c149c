#pragma once
// The cells of the grid of sections. Like the product's grid, a cell holds the text and the
// colours last written into it: rows are written from the records through the field access
// by column (ScriviRiga), and the editors write their texts and colours into single cells until
// the next refresh. The columns are those of one table of the column definition file; the
// table's column 0 is the fixed column of row numbers, shown as the vertical header.

#include <QAbstractTableModel>
#include <QColor>
#include <QString>
#include <vector>

#include "archives/Archivi.h"

namespace fornax::ui {

class ModelloTronchi : public QAbstractTableModel {
    Q_OBJECT
public:
    struct Cella {
        QString testo;
        QColor inchiostro;  // invalid: the default
        QColor fondo;       // invalid: white
    };

    ModelloTronchi(const Archivi& a, QObject* padre = nullptr);

    // The column layout (TipoGriglia): table 0 for an internal installation, 5 for a pressure
    // network.
    void ImpostaTabella(int tabella);
    int Tabella() const { return tabella_; }
    // Grid column c (1-based, as the table numbers them) of the layout in use.
    const ColonnaTabella& Colonna(int c) const;
    // Highest column number of the layout.
    int UltimaColonna() const { return colonne_; }
    // The grid column showing field `id`, 0 when the layout has none.
    int ColonnaDi(int id) const;

    // Grid rows, header included (the product's Grid.Rows).
    int Righe() const { return righe_ + 1; }
    void ImpostaRighe(int righeGriglia);

    // Cell of grid row r (1-based) and grid column c (1-based).
    const Cella& cella(int r, int c) const;
    void ScriviCella(int r, int c, const Cella& x);
    void ScriviTesto(int r, int c, const QString& testo);
    void ScriviInchiostro(int r, int c, const QColor& colore);
    void ScriviFondo(int r, int c, const QColor& colore);
    // A whole row at once, without telling the view (see Annuncia).
    void ScriviRigaMuta(int r, std::vector<Cella> celle);
    void SvuotaRigaMuta(int r);
    // Tells the view that rows da..a changed (one repaint for a whole refresh).
    void Annuncia(int da, int a);
    // Empties every cell.
    void Svuota();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    Cella& at(int r, int c);

    const Archivi& a_;
    int tabella_ = 0;
    int colonne_ = 0;
    int righe_ = 0;
    std::vector<Cella> celle_;
};

// The colours of the grid.
namespace Colori {
const QColor NERO(0, 0, 0);
const QColor BLU(0, 0, 192);
const QColor ROSSO(220, 0, 0);
const QColor ROSSO_SCURO(192, 0, 0);
const QColor BIANCO(255, 255, 255);
const QColor GIALLO_PALLIDO(255, 255, 128);
const QColor ROSSO_CUPO(192, 0, 0);
}  // namespace Colori

}  // namespace fornax::ui
