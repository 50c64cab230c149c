#pragma once
// Networks for the schema tests, built in memory as the tests describe them, and one walk on a
// recording surface of the schema tab's default size (19200 x 9000 twips, reference screen).
//
// With those sizes and zoom 0: factor 1, B = 480, W = 0.8 x 19200 = 15360, H = 9000 - 3 x 480
// = 7560, X0 = 620, Y0 = 9000 - 2 x 480 = 8040 before any shift.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/ServiziProva.h"
#include "schema/Schema.h"
#include "schema/TargetRegistrato.h"

namespace fornax::prova {

struct ReteSchema {
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    std::unique_ptr<Documento> d = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    std::unique_ptr<schema::StatoSchema> s = std::make_unique<schema::StatoSchema>(msg);
    schema::TargetRegistrato t{19200, 9000};

    ReteSchema() {
        d->Normativa = 2;
        d->GasCorrente.Famiglia = 2;
    }

    // A section under `padre` (0 for the root) as its first free derivation, reached by the
    // calculation (Visitato), with a turn code, a drawn length and a flow.
    int Sezione(int padre, int16_t svolta = 0, int32_t lunghezza = 0, float portata = 0) {
        Rete& r = d->rete();
        const int i = ++r.NumTronchi;
        Tronco& x = d->T(i);
        x.ID_PREV = static_cast<int16_t>(padre);
        x.ID_LEN = 1.0f;
        x.ID_SCHEMA_SVOLTA = svolta;
        x.ID_SCHEMA_LEN = lunghezza;
        x.ID_P_TRONCO = portata;
        x.ID_P_UTENZE = portata;
        x.Visitato = VERO;
        if (padre > 0) {
            Tronco& p = d->T(padre);
            (p.ID_LEFT == 0 ? p.ID_LEFT : p.ID_RIGHT) = static_cast<int16_t>(i);
        }
        return i;
    }
    // A chain of `n` sections straight on from `padre`; returns the last.
    int Catena(int padre, int n) {
        for (int k = 0; k < n; ++k) padre = Sezione(padre);
        return padre;
    }

    void Disegna(const schema::ChiamataSchema& c = {}) { schema::DisegnaSchema(*s, *d, *a, t, c); }

    const Tronco& T(int i) const { return d->T(i); }
};

inline bool operator==(const schema::EstremoLibero& a, const schema::EstremoLibero& b) {
    return a.tronco == b.tronco && a.direzione == b.direzione && a.svolta == b.svolta && a.x == b.x && a.y == b.y;
}
inline std::ostream& operator<<(std::ostream& o, const schema::EstremoLibero& e) {
    return o << "{" << e.tronco << ", " << e.direzione << ", " << e.svolta << ", " << e.x << ", " << e.y << "}";
}

}  // namespace fornax::prova

namespace fornax::schema {
using prova::operator==;
using prova::operator<<;
}  // namespace fornax::schema
