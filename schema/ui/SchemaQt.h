#pragma once
// The schema's surface on a QPainter: the schema page, a picture file (PNG, BMP, SVG) and the
// printer all paint through this one class.
//
// Coordinates are twips of the schema; a twip becomes `scala` device units, and the twip point
// `origine` sits at the device's top-left corner. Text metrics come from the font at a pixel
// size of one twip per unit, so they are the same on the screen, on a picture and on paper, and
// so is the layout they decide.
//
// Two looks: on the screen the schema is white on a dark picture; on paper the background is
// white and white ink comes out black, so that a walk painted for the screen reads on paper too.

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QPointF>
#include <QString>
#include <functional>
#include <memory>

#include "schema/SchemaTarget.h"

class QPainter;

namespace fornax {
struct Archivi;
struct Documento;
}  // namespace fornax

namespace fornax::schema {
struct ChiamataSchema;
struct StatoSchema;
}  // namespace fornax::schema

namespace fornax::schema::ui {

enum class Aspetto {
    Schermo,  // dark background, colours as given, pictures in white
    Carta,    // white background, white drawn black, pictures in black
};

// The background of the schema page.
QColor SfondoSchermo();
// A product colour 0x00BBGGRR as a QColor.
QColor ColoreQt(int32_t colore);

class SchemaQt final : public SchemaTarget {
public:
    // `painter` must be active on its device and outlive the surface. The surface measures
    // `larghezza` × `altezza` twips (what the walk reads as the picture's size).
    SchemaQt(QPainter& painter, double larghezza, double altezza, double scala, Aspetto aspetto = Aspetto::Schermo);
    ~SchemaQt() override;
    SchemaQt(const SchemaQt&) = delete;
    SchemaQt& operator=(const SchemaQt&) = delete;

    // The twip point shown at the device's top-left corner (0, 0 unless the view scrolls).
    void ImpostaOrigine(double x, double y);
    // The rectangle Pulisci clears, in twips; by default the surface itself from the origin.
    void ImpostaAreaPulita(double x, double y, double larghezza, double altezza);
    double Scala() const { return scala_; }
    Aspetto AspettoSuperficie() const { return aspetto_; }
    // Twips to device units and back.
    QPointF ADispositivo(double x, double y) const;
    QPointF ATwip(QPointF dispositivo) const;

    double Larghezza() const override { return larghezza_; }
    double Altezza() const override { return altezza_; }
    void ImpostaPenna(double x, double y) override {
        x_ = x;
        y_ = y;
    }
    double PennaX() const override { return x_; }
    double PennaY() const override { return y_; }
    void ImpostaFont(const std::string& nome, double dimensione) override;
    double LarghezzaTesto(const std::string& testo) const override;
    double AltezzaTesto(const std::string& testo) const override;
    void Testo(const std::string& testo, int32_t colore) override;
    void Linea(double x1, double y1, double x2, double y2, int32_t colore) override;
    void Rettangolo(double x, double y, double larghezza, double altezza, int32_t colore) override;
    void Cerchio(double x, double y, double raggio, int32_t colore, bool pieno) override;
    void Immagine(const std::string& nome, double x, double y, double larghezza, double altezza) override;
    void Pulisci() override;

    // The colour a product colour takes on this surface (white becomes black on paper).
    QColor Colore(int32_t colore) const;

private:
    double SpessoreTratto() const;

    QPainter& p_;
    double larghezza_, altezza_, scala_;
    Aspetto aspetto_;
    bool raster_;
    double ox_ = 0, oy_ = 0;
    bool areaImpostata_ = false;
    double ax_ = 0, ay_ = 0, al_ = 0, aa_ = 0;
    double x_ = 0, y_ = 0;
    QFont font_;
};

// The SVG source of a picture of Immagini.h (and of the palette), empty for an unknown name.
QByteArray SorgenteImmagine(const QString& nome);
// A picture drawn in `inchiostro` at `dimensione` device pixels (the palette's icons).
QPixmap PixmapImmagine(const QString& nome, QSize dimensione, const QColor& inchiostro,
                       const QColor& sfondo = Qt::transparent);

// A picture file of the schema: PNG or BMP (a raster at `dpi`) or SVG (vector), chosen by the
// file's extension. `disegna` paints on the surface, normally a DisegnaSchema call. White
// background; Aspetto::Carta draws black on white, Aspetto::Schermo keeps the screen's look.
// Returns false when the file can't be written or the extension is not png, bmp or svg.
bool SalvaImmagineSchema(const QString& percorso, double larghezzaTwip, double altezzaTwip, double dpi, Aspetto aspetto,
                         const std::function<void(SchemaTarget&)>& disegna);
// The same with the walk: DisegnaSchema of the document on the picture with `chiamata`.
bool SalvaImmagineSchema(const QString& percorso, StatoSchema& s, Documento& d, const Archivi& a,
                         const ChiamataSchema& chiamata, double larghezzaTwip, double altezzaTwip, double dpi,
                         Aspetto aspetto = Aspetto::Carta);

}  // namespace fornax::schema::ui
