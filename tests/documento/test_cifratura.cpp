// The scrambled column file: unscrambling, scrambling, the tool that builds the delivered file,
// and what the grids and the reports need from the delivered column layout.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/ServiziProva.h"
#include "core/Testo.h"
#include "documento/Campi.h"

namespace fornax {
namespace {

std::string LeggiTutto(const std::filesystem::path& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// Lines of a file, without their CR LF or LF ends (a last line without an end counts).
std::vector<std::string> Righe(const std::string& testo) {
    std::vector<std::string> righe;
    size_t inizio = 0;
    while (inizio < testo.size()) {
        size_t fine = testo.find('\n', inizio);
        if (fine == std::string::npos) fine = testo.size();
        std::string r = testo.substr(inizio, fine - inizio);
        if (!r.empty() && r.back() == '\r') r.pop_back();
        righe.push_back(std::move(r));
        inizio = fine + 1;
    }
    return righe;
}

std::vector<std::string> Decodificate(const std::filesystem::path& cne) {
    std::vector<std::string> righe = Righe(LeggiTutto(cne));
    for (std::string& r : righe) r = DecodificaRiga(r);
    return righe;
}

void StesseRighe(const std::vector<std::string>& ottenute, const std::vector<std::string>& attese) {
    ASSERT_EQ(ottenute.size(), attese.size());
    for (size_t i = 0; i < attese.size(); ++i) EXPECT_EQ(ottenute[i], attese[i]) << "riga " << i + 1;
}

size_t Caratteri(const std::string& utf8) {
    size_t n = 0;
    for (unsigned char c : utf8) n += (c & 0xC0) != 0x80;
    return n;
}

TEST(Cifratura, UnFileDiColonneScrittoAltroveSiLeggeComeIlSuoTestoInChiaro) {
    const std::filesystem::path cartella = std::filesystem::path(FORNAX_ACCETTAZIONE_DIR) / "reports";
    const std::vector<std::string> attese = Righe(LeggiTutto(cartella / "gridgas-source.txt"));
    ASSERT_GT(attese.size(), 100u);
    StesseRighe(Decodificate(cartella / "program" / "gridgas.cne"), attese);
}

TEST(Cifratura, OgniCarattereSiSpostaSecondoLaSuaPosizione) {
    // Worked by hand: 'L' 76 + 3 + 1, 'u' 117 + 3 + 2, 'n' 110 + 3 + 3; a tab is always 254.
    EXPECT_EQ(CodificaRiga("Lun"), "Pzt");
    EXPECT_EQ(CodificaRiga("L\tn"), "P\xFEt");
    EXPECT_EQ(DecodificaRiga("Pzt"), "Lun");
    EXPECT_EQ(DecodificaRiga("P\xFEt"), "L\tn");
    // The shift runs 4, 5 ... 9, then 3 at position 7 (7 mod 7 = 0), and starts again.
    EXPECT_EQ(CodificaRiga("aaaaaaaa"), "efghijde");
    EXPECT_EQ(CodificaRiga(""), "");
    EXPECT_EQ(DecodificaRiga(""), "");
    // Decoded text is UTF-8: "à" (224 in Windows-1252) stored at position 1 as 228.
    EXPECT_EQ(DecodificaRiga("\xE4"), "\xC3\xA0");
    EXPECT_EQ(CodificaRiga("\xC3\xA0"), "\xE4");
}

TEST(Cifratura, CodificaEDecodificaSonoInverseSuTuttoIlCodiceWindows1252) {
    // Every character of the code page at every position of the shift cycle, except the one
    // per position that would be stored as 254 and read back as a tab: worked by hand from the
    // shifts 4, 5 ... 9, 3 of positions 1 to 7.
    constexpr int kScambiatoPerTab[7] = {250, 249, 248, 247, 246, 245, 251};
    for (int posizione = 0; posizione < 7; ++posizione) {
        for (int codice = 1; codice < 256; ++codice) {
            if (codice == '\r' || codice == '\n') continue;
            const std::string byte = std::string(static_cast<size_t>(posizione), 'x') + static_cast<char>(codice);
            const std::string testo = Cp1252AUtf8(byte);
            const std::string cifrata = CodificaRiga(testo);
            ASSERT_EQ(cifrata.size(), byte.size());
            const bool sembraTab = codice == kScambiatoPerTab[posizione];
            if (sembraTab) {
                EXPECT_NE(DecodificaRiga(cifrata), testo) << codice << " in posizione " << posizione;
            } else {
                EXPECT_EQ(DecodificaRiga(cifrata), testo) << codice << " in posizione " << posizione;
                // Text never becomes a line end (control characters may: the tool refuses them).
                if (codice >= 32) {
                    EXPECT_EQ(cifrata.find_first_of("\r\n"), std::string::npos) << codice;
                }
            }
        }
    }
    // A damaged file unscrambles to something, whatever its bytes.
    std::string tutti;
    for (int c = 0; c < 256; ++c) tutti += static_cast<char>(c);
    EXPECT_EQ(Utf8ACp1252(DecodificaRiga(tutti)).size(), tutti.size());
}

// ---- The tool that builds the delivered file ----

struct Esito {
    int stato;
    std::string errori;
};

Esito Cifra(const std::filesystem::path& sorgente, const std::filesystem::path& destinazione) {
    const std::filesystem::path log = destinazione.string() + ".log";
    const std::string comando = std::string("\"") + FORNAX_CIFRA_COLONNE + "\" \"" + sorgente.string() + "\" \"" +
                                destinazione.string() + "\" 2> \"" + log.string() + "\"";
    const int stato = std::system(comando.c_str());
    return {stato, LeggiTutto(log)};
}

class StrumentoCifra : public ::testing::Test {
protected:
    void SetUp() override {
        cartella_ = std::filesystem::temp_directory_path() /
                    ("fornax-cifra-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::remove_all(cartella_);
        std::filesystem::create_directories(cartella_);
    }
    void TearDown() override { std::filesystem::remove_all(cartella_); }

    std::filesystem::path Scrivi(const std::string& nome, const std::string& testo) {
        const std::filesystem::path p = cartella_ / nome;
        std::ofstream(p, std::ios::binary) << testo;
        return p;
    }

    std::filesystem::path cartella_;
};

std::string SorgenteMinima(const std::string& colonna) {
    std::string s = "# prova\n" + colonna + "\n+\n";
    for (int t = 1; t < 11; ++t) s += "N.\t##0\t1\t.\t4\tID_NUM\tNumero\n+\n";
    return s + "@\n";
}

TEST_F(StrumentoCifra, IlFileConsegnatoRiportaIlSorgenteRigaPerRiga) {
    const std::filesystem::path sorgente = std::filesystem::path(FORNAX_SOURCE_DIR) / "data" / "gridgas-sorgente.txt";
    const std::vector<std::string> attese = Righe(LeggiTutto(sorgente));
    StesseRighe(Decodificate(std::filesystem::path(FORNAX_BUILD_DATA_DIR) / "gridgas.cne"), attese);
    // Stored in Windows-1252 with CR LF: as many line ends as lines, no bare LF.
    const std::string cne = LeggiTutto(std::filesystem::path(FORNAX_BUILD_DATA_DIR) / "gridgas.cne");
    size_t crlf = 0;
    for (size_t i = 1; i < cne.size(); ++i) crlf += cne[i] == '\n' && cne[i - 1] == '\r';
    EXPECT_EQ(crlf, attese.size());
    EXPECT_EQ(std::count(cne.begin(), cne.end(), '\n'), static_cast<long>(attese.size()));
}

TEST_F(StrumentoCifra, UnaColonnaCorrettaDiventaUnFileLeggibile) {
    const std::string colonna = "Velocità\t#0.00\t1\tm/s\t8\tID_VELOCITA\tVelocità del gas";
    const std::filesystem::path cne = cartella_ / "gridgas.cne";
    const Esito e = Cifra(Scrivi("buono.txt", SorgenteMinima(colonna)), cne);
    ASSERT_EQ(e.stato, 0) << e.errori;
    const std::vector<std::string> righe = Decodificate(cne);
    ASSERT_GE(righe.size(), 2u);
    EXPECT_EQ(righe[1], colonna);
    EXPECT_FALSE(std::filesystem::exists(cartella_ / "gridgas.cne.tmp"));
}

TEST_F(StrumentoCifra, UnSorgenteErratoFermaLaCompilazioneSenzaToccareIlFile) {
    const std::filesystem::path cne = Scrivi("gridgas.cne", "precedente");
    // Line 2: six fields; line 4: a comma; line 6: "ù" (249) at the 2nd place, where the shift of 5
    // would store it as 254, a tab.
    std::string s = SorgenteMinima("N.\t##0\t1\t.\t4\tID_NUM");
    s.insert(s.find("+\n") + 2, "Q\t##0,0\t1\t.\t4\tID_P_TRONCO\tPortata\n+\nxù\t@\t1\t.\t4\tID_RIF\tRif\n");
    const Esito e = Cifra(Scrivi("errato.txt", s), cne);
    EXPECT_NE(e.stato, 0);
    EXPECT_NE(e.errori.find("errato.txt:2: 6 campi invece di 7"), std::string::npos) << e.errori;
    EXPECT_NE(e.errori.find("errato.txt:4: virgola"), std::string::npos) << e.errori;
    EXPECT_NE(e.errori.find("errato.txt:6: un carattere non si puo' cifrare"), std::string::npos) << e.errori;
    EXPECT_NE(e.errori.find("12 tabelle"), std::string::npos) << e.errori;
    EXPECT_EQ(LeggiTutto(cne), "precedente");

    EXPECT_NE(
        Cifra(Scrivi("senza-fine.txt", "N.\t##0\t1\t.\t4\tID_NUM\tNumero\n+\n"), cne).errori.find("manca la riga"),
        std::string::npos);
}

// ---- What the program needs from the delivered layout ----

class ColonneConsegnate : public ::testing::Test {
protected:
    void SetUp() override {
        archivi_.Cartella = FORNAX_BUILD_DATA_DIR;
        AvanzamentoNullo avanzamento;
        ASSERT_TRUE(LeggiColonne(archivi_, messaggi_, avanzamento));
    }
    const ColonnaTabella& Colonna(int tabella, int colonna) const {
        return archivi_.Colonne.Tabelle[static_cast<size_t>(tabella)][static_cast<size_t>(colonna)];
    }
    int Ultima(int tabella) const { return archivi_.Colonne.NumColonne[static_cast<size_t>(tabella)]; }

    Archivi archivi_;
    MessaggiRegistrati messaggi_;
};

bool Numerico(const std::string& formato) { return formato.find_first_of("#0") != std::string::npos; }

TEST_F(ColonneConsegnate, SiLeggonoSenzaMessaggiUndiciTabelleConUnaChiaveNotaPerColonna) {
    EXPECT_TRUE(messaggi_.Testi().empty()) << messaggi_.Testi().front();
    const std::set<int> testi = {1, 10, 19, 20, 27, 30, 33};
    for (int t = 0; t < NUM_TABELLE; ++t) {
        ASSERT_GE(Ultima(t), 0) << "tabella " << t;
        EXPECT_EQ(Colonna(t, 0).Id, 2) << "la colonna 0 mostra il numero del tronco, tabella " << t;
        for (int c = 0; c <= Ultima(t); ++c) {
            const ColonnaTabella& k = Colonna(t, c);
            EXPECT_GT(k.Id, 0) << "tabella " << t << " colonna " << c;
            EXPECT_GT(k.Larghezza, 0);
            // Text fields print as they stand; numbers need digit placeholders.
            EXPECT_EQ(Numerico(k.Formato), testi.count(k.Id) == 0) << k.Chiave << " " << k.Formato;
        }
    }
}

TEST_F(ColonneConsegnate, OgniFormatoNumericoStampaComeLoLeggeUnTecnico) {
    // Every numeric pattern of the delivered file with a value of the kind it shows. A new
    // pattern must bring its example here.
    struct Esempio {
        double valore;
        const char* atteso;
    };
    const std::map<std::string, std::vector<Esempio>> esempi = {
        {"##0", {{12, "12"}, {0, "0"}, {400, "400"}}},
        {"##0.000", {{2.5404294f, "2.540"}, {0.85759664f, "0.858"}}},
        {"##0.00", {{6.5f, "6.50"}, {0, "0.00"}}},
        {"##0.0", {{48.507275f, "48.5"}, {-1, "-1.0"}}},
        {"#0.00", {{2.552362f, "2.55"}, {19.330332f, "19.33"}}},
        {"#######0", {{23999.99945994068, "24000"}, {7739.999965206152, "7740"}}},
        {"###0.00", {{193.5f, "193.50"}, {1250, "1250.00"}}},
        {"###0.0", {{324.5f, "324.5"}, {2.8f, "2.8"}}},
        {"#########0", {{2892500.4, "2892500"}}},
    };
    for (int t = 0; t < NUM_TABELLE; ++t) {
        for (int c = 0; c <= Ultima(t); ++c) {
            const std::string& formato = Colonna(t, c).Formato;
            if (!Numerico(formato)) continue;
            ASSERT_EQ(esempi.count(formato), 1u) << "formato senza esempio: " << formato;
            for (const Esempio& e : esempi.at(formato))
                EXPECT_EQ(FormattaNumero(e.valore, formato), e.atteso) << formato;
        }
    }
}

TEST_F(ColonneConsegnate, IlTotaleDelPercorsoEQuelloDelleUtenzeHannoLaLoroColonna) {
    for (int t : {3, 7}) {
        ASSERT_GE(Ultima(t), 7);
        EXPECT_EQ(Colonna(t, 7).Chiave, "ID_PDC_TRONCO") << "tabella " << t;
        EXPECT_TRUE(Numerico(Colonna(t, 7).Formato));
    }
    ASSERT_GE(Ultima(4), 4);
    EXPECT_EQ(Colonna(4, 4).Chiave, "ID_P_UTENZE");
    ASSERT_GE(Ultima(8), 2);
    EXPECT_EQ(Colonna(8, 2).Chiave, "ID_P_UTENZE");
}

TEST_F(ColonneConsegnate, NelleGriglieSiModificanoSoloLeColonneCheIlProgrammaRegistra) {
    // The grid commits flows, lengths, references, diameters, parents and materials; fitting
    // counts and contemporaneity go through the section's panel, results are computed.
    const std::set<std::string> modificabili = {"ID_P_UTENZE", "ID_LEN",  "ID_RIF",
                                                "ID_DIAMETRO", "ID_PREV", "ID_MATERIALE"};
    for (int t : {0, 5}) {
        EXPECT_NE(Colonna(t, 0).Bloccata, 0);
        std::set<std::string> trovate;
        for (int c = 0; c <= Ultima(t); ++c)
            if (Colonna(t, c).Bloccata == 0) trovate.insert(Colonna(t, c).Chiave);
        EXPECT_EQ(trovate, modificabili) << "tabella " << t;
        for (int c = 0; c <= Ultima(t); ++c) {
            const ColonnaTabella& k = Colonna(t, c);
            const size_t titolo = std::max(Caratteri(k.Titolo1), k.Titolo2 == "." ? 0 : Caratteri(k.Titolo2));
            EXPECT_LE(titolo, static_cast<size_t>(k.Larghezza)) << k.Chiave;
            EXPECT_GT(k.Suggerimento.size(), 10u) << k.Chiave;
        }
    }
}

TEST_F(ColonneConsegnate, NelleTabelleDellaRelazioneTitoliEValoriStannoNelLoroSpazio) {
    // The report gives a column weight x unit millimetres, unit = 170 / total weight rounded half
    // to even, and (width / 2) - 1 characters. Typical values must not be cut.
    const std::set<std::string> interni = {"1 1/2\"", "76.1x2", "108x2.5", "110x10"};
    const std::set<std::string> pressione = {"1 1/2\"", "108x2.5", "250x22.7"};
    for (int t : {1, 2, 3, 4, 6, 7, 8, 9, 10}) {
        int somma = 0;
        for (int c = 0; c <= Ultima(t); ++c) somma += Colonna(t, c).Larghezza;
        const int unita = static_cast<int>(std::nearbyint(170.0 / somma));
        EXPECT_LE(somma * unita, 170) << "tabella " << t << " piu' larga della pagina";
        for (int c = 0; c <= Ultima(t); ++c) {
            const ColonnaTabella& k = Colonna(t, c);
            const size_t spazio = static_cast<size_t>(k.Larghezza * unita / 2 - 1);
            const bool nomiPezzi = t == 9 && k.Chiave.rfind("ID_SPC", 0) == 0;  // titled by EQLEN.CFG
            if (!nomiPezzi) {
                EXPECT_LE(Caratteri(k.Titolo1), spazio) << "tabella " << t << " " << k.Titolo1;
            }
            EXPECT_LE(k.Titolo2 == "." ? 0 : Caratteri(k.Titolo2), spazio) << "tabella " << t << " " << k.Titolo2;
            if (k.Chiave == "ID_DIAMETRO") {
                for (const std::string& dn : t < 5 ? interni : pressione)
                    EXPECT_LE(dn.size(), spazio) << "tabella " << t;
            }
            if (k.Chiave == "ID_MATERIALE") {
                EXPECT_LE(std::string("ACCIAIOM").size(), spazio);
            }
            if (k.Chiave == "ID_NOMETIPOUTENZA") {
                EXPECT_LE(std::string("Riscaldamento").size(), spazio);
            }
            if (Numerico(k.Formato)) {
                // The pattern's own width; a flow with its contemporaneity needs room for "[50%]"
                // (its trailing blank may go).
                const size_t valore = k.Formato.size() + (k.Chiave == "ID_P_TRONCO" && (t == 6 || t == 7) ? 5 : 0);
                EXPECT_LE(valore, spazio) << "tabella " << t << " " << k.Chiave;
            }
        }
    }
}

}  // namespace
}  // namespace fornax
