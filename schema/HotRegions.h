#pragma once
// Hit regions of the painted schema: every element painted leaves a region, and the mouse finds
// the element through them. A fixed table of entries 0..300; `Reset` sets the count to 1 and
// entry 1 is never filled, so the first region added sits at position 2 and at most 298 are in
// use. When the table is full each further attempt shows "Esaurito spazio per regioni attive"
// and leaves the count raised, until the next Reset.

#include <array>
#include <cstdint>
#include <string>

namespace fornax {
class Messaggi;
}

namespace fornax::schema {

namespace TipoRegione {
constexpr int16_t RETTANGOLO = 1;
constexpr int16_t CERCHIO = 2;
constexpr int16_t TRIANGOLO = 3;
constexpr int16_t RETTANGOLO_LIBERO = 4;  // four corners of any slant
}  // namespace TipoRegione

struct Regione {
    int16_t Tipo = 0;
    int32_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    int32_t X3 = 0, Y3 = 0, X4 = 0, Y4 = 0;
    int32_t VerticeX = 0, VerticeY = 0;
    int32_t Raggio = 0;
    std::string Tag;
    int16_t Indice = 0;
};

class clsHotRegions {
public:
    static constexpr int LIMITE = 300;  // upper bound of the table

    // `msg` receives the message of a full table; it must outlive the object (may be null:
    // then the message is not shown).
    explicit clsHotRegions(Messaggi* msg = nullptr) : msg_(msg) {}
    void ImpostaMessaggi(Messaggi* msg) { msg_ = msg; }

    // Appends without looking for a duplicate.
    void AddCircle(int32_t x, int32_t y, int32_t raggio, int16_t indice, const std::string& tag);
    // These three append unless an entry with the same (indice, tag) exists.
    void AddRectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int16_t indice, const std::string& tag);
    void AddCustomRectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t x3, int32_t y3, int32_t x4,
                            int32_t y4, int16_t indice, const std::string& tag);
    void AddTriangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t vx, int32_t vy, int16_t indice,
                     const std::string& tag);

    // Element number and tag of the entry at `posizione` (0 and "" outside the table).
    int16_t GetIndex(int posizione) const;
    std::string GetTag(int posizione) const;
    void Reset() { conteggio_ = 1; }
    // Position of the first entry with that tag and index, from 1 up; 0 if none.
    int SearchIndex(int16_t indice, const std::string& tag) const;
    // Position of the first region holding the point, border included; 0 if none.
    int TestHit(double x, double y) const;
    // The same over regions of kind `tipo` only (rectangles and circles).
    int TestHitWhitShape(double x, double y, int16_t tipo) const;

    int16_t Conteggio() const { return conteggio_; }
    const Regione& Voce(int posizione) const { return tabella_[static_cast<size_t>(posizione)]; }
    // The last position that may hold a region: the count, or 299 past a full table.
    int UltimaPosizione() const { return conteggio_ < LIMITE ? conteggio_ : LIMITE - 1; }

    // The hit test of one region, border included.
    static bool Contiene(const Regione& r, double x, double y);

private:
    // Raises the count and returns the position to fill, or 0 (with the message) when full.
    int Nuova();
    // The region in a new place of the table (nothing when the table is full).
    void Inserisci(const Regione& r);

    std::array<Regione, LIMITE + 1> tabella_{};
    int16_t conteggio_ = 0;
    Messaggi* msg_ = nullptr;
};

}  // namespace fornax::schema
