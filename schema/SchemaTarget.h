#pragma once
// The surface the schema is painted on, in twips (1440 to the inch), Y growing downward.
// The desktop implements it with QPainter on the schema page, on a picture to save and on the
// printer; TargetRegistrato records what is drawn, for the tests and the command line.
//
// Colours are the product's 24-bit values 0x00BBGGRR (255 is red, 0xFF00 green, 33023 orange).

#include <cstdint>
#include <string>

namespace fornax::schema {

namespace Colore {
constexpr int32_t NERO = 0;
constexpr int32_t BIANCO = 0xFFFFFF;
constexpr int32_t ROSSO = 255;
constexpr int32_t VERDE = 0xFF00;
constexpr int32_t ARANCIO = 33023;
}  // namespace Colore

class SchemaTarget {
public:
    virtual ~SchemaTarget() = default;

    // Size of the surface, twips (the control's Width and Height, the page's printable area).
    virtual double Larghezza() const = 0;
    virtual double Altezza() const = 0;

    // The pen: where the next text goes. Text leaves the pen at the end of what it wrote, on
    // the same line.
    virtual void ImpostaPenna(double x, double y) = 0;
    virtual double PennaX() const = 0;
    virtual double PennaY() const = 0;

    // Font of the texts that follow; `dimensione` in points.
    virtual void ImpostaFont(const std::string& nome, double dimensione) = 0;
    virtual double LarghezzaTesto(const std::string& testo) const = 0;  // twips
    virtual double AltezzaTesto(const std::string& testo) const = 0;    // twips

    // Text (UTF-8) at the pen, transparent background; its top-left corner is the pen.
    virtual void Testo(const std::string& testo, int32_t colore) = 0;
    virtual void Linea(double x1, double y1, double x2, double y2, int32_t colore) = 0;
    // Filled rectangle from (x, y), extending by `larghezza` and `altezza` (either may be
    // negative: the rectangle then extends left or up).
    virtual void Rettangolo(double x, double y, double larghezza, double altezza, int32_t colore) = 0;
    // Circle of centre (x, y); radius 0 is a single dot.
    virtual void Cerchio(double x, double y, double raggio, int32_t colore, bool pieno) = 0;
    // One of the pictures of Immagini.h, stretched into the rectangle.
    virtual void Immagine(const std::string& nome, double x, double y, double larghezza, double altezza) = 0;
    // Clears the surface to its background (dark on the screen, white on paper).
    virtual void Pulisci() = 0;
};

}  // namespace fornax::schema
