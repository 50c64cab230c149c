#pragma once
// Small networks built in memory for the calculation tests: the archives of the tests (a
// steel and a copper table, the built-in fittings or a pressure table, the default limits)
// and a document whose sections are added as the tests describe them. The same networks are
// described in tools/riferimento.py, which works out the values the tests expect.

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "archives/Archivi.h"
#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "core/Documento.h"
#include "core/ServiziProva.h"

namespace fornax::prova {

constexpr int ACCIAIO = 1;
constexpr int RAME = 2;

inline MaterialeTubo Materiale(const std::string& nome, int16_t tipo, float peso,
                               const std::vector<std::pair<std::string, float>>& righe, float spessore) {
    MaterialeTubo m;
    m.Nome = nome;
    m.TipoFormula = tipo;
    m.PesoSpecifico = peso;
    for (const auto& [dn, d] : righe) {
        RigaDiametro r;
        r.DN = dn;
        r.DiamInterno = d;
        r.Spessore = spessore;
        m.Righe.push_back(r);
    }
    return m;
}

// Archives of the tests: two materials.
inline std::unique_ptr<Archivi> ArchiviProva() {
    auto a = std::make_unique<Archivi>();
    a->Materiali.push_back(Materiale("ACCIAIO", 1, 7850,
                                     {{"3/8\"", 12.6f},
                                      {"1/2\"", 16.1f},
                                      {"3/4\"", 21.7f},
                                      {"1\"", 27.3f},
                                      {"1 1/4\"", 36.0f},
                                      {"1 1/2\"", 41.9f},
                                      {"2\"", 53.1f},
                                      {"2 1/2\"", 68.9f},
                                      {"3\"", 80.9f},
                                      {"4\"", 105.3f}},
                                     3.2f));
    a->Materiali.push_back(Materiale("RAME", 2, 8900,
                                     {{"10x1", 8.0f},
                                      {"12x1", 10.0f},
                                      {"14x1", 12.0f},
                                      {"16x1", 14.0f},
                                      {"18x1", 16.0f},
                                      {"22x1", 20.0f},
                                      {"28x1", 26.0f}},
                                     1.0f));
    CalcolaDerivati(*a);
    return a;
}

// A document with natural gas of the second family, the default limits and the built-in
// fittings; a pressure network (or `raccordiPressione`) has the pressure table in family 1.
inline std::unique_ptr<Documento> DocumentoProva(int32_t normativa = 2, bool pressione = false,
                                                 bool raccordiPressione = false) {
    auto d = std::make_unique<Documento>();
    CaricaSpecialiInterni(d->Speciali);
    if (pressione || raccordiPressione) {
        const float tabella[11][3] = {
            {0, 0, 0},       {0.7f, 1.75f, 2.8f}, {3, 7.5f, 12}, {1.5f, 3.75f, 6}, {0.15f, 0.38f, 0.6f},
            {1, 2.5f, 4},    {0.8f, 2, 3.2f},     {0, 0, 0},     {0.4f, 1, 1.6f},  {0.9f, 2.25f, 3.6f},
            {2.25f, 5.6f, 9}};
        for (size_t k = 1; k <= 10; ++k)
            for (size_t c = 1; c <= 3; ++c) d->Speciali[k].Lunghezza[1][c] = tabella[k][c - 1];
    }
    VerificaDefaultPdc(d->Pdc);
    d->Normativa = normativa;
    d->ReteInPressione = pressione ? VERO : FALSO;
    GasRecord& g = d->GasCorrente;
    g.Nome = "METANO";
    g.Viscosita = 0.00001574f;
    g.MassaVolumica = 0.6795f;
    g.Pci = 34.01f;
    g.Pcs = 37.78f;
    g.Famiglia = 2;
    return d;
}

struct Dati {
    float utenze = 0;
    float lunghezza = 1;
    int materiale = ACCIAIO;
    int16_t curve = 0, gomiti = 0, raccordi = 0, rubinetti = 0;
    std::array<int16_t, 6> speciali{};
    std::string diametro;
    bool bloccato = false;
    int16_t contemp = 100;
};

// Adds a section under `padre` (0 for the root), as the first free derivation.
inline int Aggiungi(Documento& d, const Archivi& a, int padre, const Dati& x) {
    Rete& r = d.rete();
    const int i = ++r.NumTronchi;
    Tronco& t = d.T(i);
    t.ID_PREV = static_cast<int16_t>(padre);
    t.ID_P_UTENZE = x.utenze;
    t.ID_LEN = x.lunghezza;
    t.IndiceMateriale = static_cast<int16_t>(x.materiale);
    if (x.materiale >= 1 && x.materiale <= a.NumMateriali())
        t.ID_MATERIALE = a.Materiali[static_cast<size_t>(x.materiale)].Nome;
    t.ID_NCURVE = x.curve;
    t.ID_NGOMITI = x.gomiti;
    t.ID_NRACCORDI = x.raccordi;
    t.ID_NRUBINETTI = x.rubinetti;
    t.ID_SPC5 = x.speciali[0];
    t.ID_SPC6 = x.speciali[1];
    t.ID_SPC7 = x.speciali[2];
    t.ID_SPC8 = x.speciali[3];
    t.ID_SPC9 = x.speciali[4];
    t.ID_SPC10 = x.speciali[5];
    t.ID_DIAMETRO = x.diametro;
    t.ID_DIAMCUSTOM = x.bloccato ? VERO : FALSO;
    t.ID_CONTEMP = x.contemp;
    if (padre > 0) {
        Tronco& p = d.T(padre);
        if (p.ID_LEFT == 0) {
            p.ID_LEFT = static_cast<int16_t>(i);
        } else {
            p.ID_RIGHT = static_cast<int16_t>(i);
        }
    }
    return i;
}

// The results of one section as tools/riferimento.py prints them.
struct Atteso {
    int indice;
    float portata, eqLen, lenPercorso;
    const char* diametro;
    float pdcTronco, pdcPercorso, pFinale, velocita, pressioneTesta;
};

inline std::string Bit(float v) {
    uint32_t b;
    std::memcpy(&b, &v, sizeof b);
    char t[16];
    std::snprintf(t, sizeof t, "%08x", b);
    return t;
}

// Every field exactly, with the bits of both values on a difference.
inline void ConfrontaTronchi(const Documento& d, const std::vector<Atteso>& attesi) {
    for (const Atteso& e : attesi) {
        const Tronco& t = d.T(e.indice);
        SCOPED_TRACE("tronco " + std::to_string(e.indice));
        auto uguale = [](const char* nome, float atteso, float calcolato) {
            EXPECT_EQ(Bit(atteso), Bit(calcolato)) << nome << ": atteso " << atteso << ", calcolato " << calcolato;
        };
        uguale("ID_P_TRONCO", e.portata, t.ID_P_TRONCO);
        uguale("ID_EQ_LEN", e.eqLen, t.ID_EQ_LEN);
        uguale("LenPercorso", e.lenPercorso, t.LenPercorso);
        EXPECT_EQ(t.ID_DIAMETRO, e.diametro);
        uguale("ID_PDC_TRONCO", e.pdcTronco, t.ID_PDC_TRONCO);
        uguale("ID_PDC_PERCORSO", e.pdcPercorso, t.ID_PDC_PERCORSO);
        uguale("ID_PFINALE", e.pFinale, t.ID_PFINALE);
        uguale("ID_VELOCITA", e.velocita, t.ID_VELOCITA);
        uguale("PressioneTesta", e.pressioneTesta, t.PressioneTesta);
    }
}

}  // namespace fornax::prova
