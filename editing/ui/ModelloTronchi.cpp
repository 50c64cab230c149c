#include "editing/ui/ModelloTronchi.h"

#include <QBrush>
#include <algorithm>

#include "core/Testo.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {
// A title field of "." is an empty text.
QString Titolo(const std::string& t) { return Trim(t) == "." ? QString() : Q(Trim(t)); }

bool Numerica(const ColonnaTabella& c) {
    const std::string f = Trim(c.Formato);
    return !f.empty() && f != "@";
}
}  // namespace

ModelloTronchi::ModelloTronchi(const Archivi& a, QObject* padre) : QAbstractTableModel(padre), a_(a) {}

void ModelloTronchi::ImpostaTabella(int tabella) {
    beginResetModel();
    tabella_ = std::clamp(tabella, 0, NUM_TABELLE - 1);
    colonne_ = std::max<int>(0, a_.Colonne.NumColonne[static_cast<size_t>(tabella_)]);
    celle_.assign(static_cast<size_t>(righe_) * static_cast<size_t>(colonne_), Cella{});
    endResetModel();
}

const ColonnaTabella& ModelloTronchi::Colonna(int c) const {
    static const ColonnaTabella vuota{};
    if (c < 0 || c > colonne_) return vuota;
    return a_.Colonne.Tabelle[static_cast<size_t>(tabella_)][static_cast<size_t>(c)];
}

int ModelloTronchi::ColonnaDi(int id) const {
    for (int c = 1; c <= colonne_; ++c)
        if (Colonna(c).Id == id) return c;
    return 0;
}

void ModelloTronchi::ImpostaRighe(int righeGriglia) {
    const int nuove = std::max(0, righeGriglia - 1);
    if (nuove == righe_) return;
    if (nuove > righe_) {
        beginInsertRows({}, righe_, nuove - 1);
        righe_ = nuove;
        celle_.resize(static_cast<size_t>(righe_) * static_cast<size_t>(colonne_));
        endInsertRows();
    } else {
        beginRemoveRows({}, nuove, righe_ - 1);
        righe_ = nuove;
        celle_.resize(static_cast<size_t>(righe_) * static_cast<size_t>(colonne_));
        endRemoveRows();
    }
}

ModelloTronchi::Cella& ModelloTronchi::at(int r, int c) {
    return celle_[static_cast<size_t>(r - 1) * static_cast<size_t>(colonne_) + static_cast<size_t>(c - 1)];
}

const ModelloTronchi::Cella& ModelloTronchi::cella(int r, int c) const {
    static const Cella vuota{};
    if (r < 1 || r > righe_ || c < 1 || c > colonne_) return vuota;
    return celle_[static_cast<size_t>(r - 1) * static_cast<size_t>(colonne_) + static_cast<size_t>(c - 1)];
}

void ModelloTronchi::ScriviCella(int r, int c, const Cella& x) {
    if (r < 1 || r > righe_ || c < 1 || c > colonne_) return;
    at(r, c) = x;
    const QModelIndex i = index(r - 1, c - 1);
    emit dataChanged(i, i);
}

void ModelloTronchi::ScriviTesto(int r, int c, const QString& testo) {
    if (r < 1 || r > righe_ || c < 1 || c > colonne_) return;
    Cella x = at(r, c);
    x.testo = testo;
    ScriviCella(r, c, x);
}

void ModelloTronchi::ScriviInchiostro(int r, int c, const QColor& colore) {
    if (r < 1 || r > righe_ || c < 1 || c > colonne_) return;
    Cella x = at(r, c);
    x.inchiostro = colore;
    ScriviCella(r, c, x);
}

void ModelloTronchi::ScriviFondo(int r, int c, const QColor& colore) {
    if (r < 1 || r > righe_ || c < 1 || c > colonne_) return;
    Cella x = at(r, c);
    x.fondo = colore;
    ScriviCella(r, c, x);
}

void ModelloTronchi::ScriviRigaMuta(int r, std::vector<Cella> celle) {
    if (r < 1 || r > righe_) return;
    for (int c = 1; c <= colonne_ && static_cast<size_t>(c) <= celle.size(); ++c)
        at(r, c) = std::move(celle[static_cast<size_t>(c - 1)]);
}

void ModelloTronchi::SvuotaRigaMuta(int r) {
    if (r < 1 || r > righe_) return;
    for (int c = 1; c <= colonne_; ++c) at(r, c) = Cella{};
}

void ModelloTronchi::Annuncia(int da, int a) {
    da = std::max(da, 1);
    a = std::min(a, righe_);
    if (da > a || colonne_ == 0) return;
    emit dataChanged(index(da - 1, 0), index(a - 1, colonne_ - 1));
}

void ModelloTronchi::Svuota() {
    std::fill(celle_.begin(), celle_.end(), Cella{});
    Annuncia(1, righe_);
}

int ModelloTronchi::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : righe_; }

int ModelloTronchi::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : colonne_; }

QVariant ModelloTronchi::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int r = index.row() + 1;
    const int c = index.column() + 1;
    const Cella& x = cella(r, c);
    switch (role) {
        case Qt::DisplayRole:
            return x.testo;
        case Qt::ForegroundRole:
            // Text on the dark red of an incurable diameter is written in white to stay legible.
            if (x.fondo.isValid() && x.fondo.lightness() < 110) return QBrush(Qt::white);
            if (x.inchiostro.isValid()) return QBrush(x.inchiostro);
            return {};
        case Qt::BackgroundRole:
            if (x.fondo.isValid() && x.fondo != Colori::BIANCO) return QBrush(x.fondo);
            return {};
        case Qt::ToolTipRole:
            return Q(Colonna(c).Suggerimento);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::AlignVCenter | (Numerica(Colonna(c)) ? Qt::AlignRight : Qt::AlignLeft));
        default:
            return {};
    }
}

QVariant ModelloTronchi::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        if (role == Qt::DisplayRole) return section + 1;
        if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignCenter);
        return {};
    }
    const ColonnaTabella& col = Colonna(section + 1);
    switch (role) {
        case Qt::DisplayRole: {
            const QString t2 = Titolo(col.Titolo2);
            return Titolo(col.Titolo1) + QStringLiteral("\n") + t2;
        }
        case Qt::ToolTipRole:
            return Q(col.Suggerimento);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::AlignCenter);
        default:
            return {};
    }
}

Qt::ItemFlags ModelloTronchi::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    // Cells are never edited in place: the grid's own editors are laid over them.
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

}  // namespace fornax::ui
