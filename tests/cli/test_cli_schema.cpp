// fornax-cli schema run as a script runs it: the sample and acceptance projects laid out on the
// default picture, their JSON checked against the rules of the layout, the options and the
// usage errors.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <string>

#include "tests/calc/ConfrontoJson.h"
#include "tests/comune/EseguiComando.h"

using fornax::prova::EseguiComando;
using fornax::prova::Esito;
using fornax::prova::Json;

namespace {

const std::string kAccettazione = std::string(FORNAX_ACCETTAZIONE_DIR);
const std::string kEsempi = std::string(FORNAX_SOURCE_DIR) + "/data/esempi/";

struct CliSchema : ::testing::Test {
    fornax::prova::CartellaProva dir{"cli-schema"};

    Esito Esegui(const std::string& archivi, const std::string& argomenti) {
        return EseguiComando(std::string("'") + FORNAX_CLI + "' --data '" + archivi + "' " + argomenti,
                             dir.Percorso("errori.txt"));
    }
    // The walk of a project as JSON; `opzioni` are added to the command.
    Json Schema(const std::string& archivi, const std::string& progetto, const std::string& opzioni = "") {
        const std::string json = dir.Percorso("schema.json");
        std::filesystem::remove(json);
        const Esito e = Esegui(archivi, "schema '" + progetto + "' --json '" + json + "' " + opzioni);
        EXPECT_EQ(e.stato, 0) << e.errori;
        return fornax::prova::LeggiJson(fornax::prova::LeggiTesto(json));
    }
};

long I(const Json& j) { return j.Intero(); }

long Arrotonda(double v) { return std::lrint(v); }

// Checks one walk against the rules, for a picture W wide (normalised) and H high.
void Verifica(const Json& j, double W, double H, long X0base, long Y0base) {
    const Json& p = j["parametri"];
    const long cmin = I(j["colonne"].elenco.at(0)), cmax = I(j["colonne"].elenco.at(1));
    const long rmin = I(j["righe"].elenco.at(0)), rmax = I(j["righe"].elenco.at(1));
    EXPECT_LE(cmin, 0);
    EXPECT_GE(cmax, 0);
    const long SX = cmax > cmin ? Arrotonda(2 * W / static_cast<double>(cmax - cmin)) : 800;
    const long SY = rmax > rmin ? Arrotonda(0.9 * H / static_cast<double>(rmax - rmin)) : 800;
    EXPECT_EQ(I(p["SX"]), SX);
    EXPECT_EQ(I(p["SY"]), SY);
    const double fattore = p["fattore"].Doppio();
    const long X0 = Arrotonda(X0base + (cmin < 0 ? -cmin * (fattore * SX / 2) + 0.1 * W : 0));
    const long Y0 = Arrotonda(static_cast<double>(Y0base) - (rmin < 0 ? -rmin * SY : 0));
    EXPECT_EQ(I(p["X0"]), X0);
    EXPECT_EQ(I(p["Y0"]), Y0);

    // Every section starts where an earlier one ended (the root at the origin), by its length
    // along its direction.
    const auto& sezioni = j["sezioni"].elenco;
    ASSERT_FALSE(sezioni.empty());
    EXPECT_EQ(I(sezioni[0]["n"]), 1);
    EXPECT_EQ(I(sezioni[0]["direzione"]), 4);
    std::map<long, std::pair<long, long>> fine;
    long xmin = 0, xmax = 0, ymin = 0, ymax = 0;
    for (size_t k = 0; k < sezioni.size(); ++k) {
        const Json& s = sezioni[k];
        const long n = I(s["n"]), d = I(s["direzione"]), x = I(s["x"]), y = I(s["y"]), l = I(s["lunghezza"]);
        SCOPED_TRACE("tronco " + std::to_string(n));
        EXPECT_EQ(l, I(s["lunghezzaUtente"]) != 0 ? I(s["lunghezzaUtente"]) : SX);
        const int dx[9] = {0, 0, -1, 0, 1, -1, -1, 1, 1}, dy[9] = {0, -1, 0, 1, 0, -1, 1, 1, -1};
        ASSERT_TRUE(d >= 1 && d <= 8);
        const double passo = d >= 5 ? 0.707 * static_cast<double>(l) : static_cast<double>(l);
        bool trovato = false;
        if (k == 0) {
            trovato = x == X0 + l && y == Y0;
        } else {
            for (const auto& [m, punto] : fine)
                if (Arrotonda(static_cast<double>(punto.first) + dx[d] * passo) == x &&
                    Arrotonda(static_cast<double>(punto.second) + dy[d] * passo) == y)
                    trovato = true;
        }
        EXPECT_TRUE(trovato);
        fine[n] = {x, y};
        if (k == 0) {
            xmin = xmax = x;
            ymin = ymax = y;
        }
        xmin = std::min(xmin, x);
        xmax = std::max(xmax, x);
        ymin = std::min(ymin, y);
        ymax = std::max(ymax, y);
    }
    EXPECT_EQ(I(j["limiti"]["xmin"]), xmin);
    EXPECT_EQ(I(j["limiti"]["xmax"]), xmax);
    EXPECT_EQ(I(j["limiti"]["ymin"]), ymin);
    EXPECT_EQ(I(j["limiti"]["ymax"]), ymax);

    // Free ends sit on the far ends of their sections; a consumer's place is a free end, whose
    // seven offers start straight on.
    std::map<long, int> offerte;
    for (const Json& e : j["estremiTronco"].elenco) {
        const long t = I(e["tronco"]);
        ASSERT_TRUE(fine.count(t));
        EXPECT_EQ(I(e["x"]), fine[t].first);
        EXPECT_EQ(I(e["y"]), fine[t].second);
        EXPECT_NE(I(e["svolta"]), 6);  // never straight back
        ++offerte[t];
    }
    for (const Json& e : j["estremiUtenza"].elenco) {
        const long t = I(e["tronco"]);
        EXPECT_EQ(offerte[t], 7);
        EXPECT_EQ(I(e["x"]), fine[t].first);
    }
    EXPECT_TRUE(j["messaggi"].elenco.empty());
}

}  // namespace

TEST_F(CliSchema, ProgettiDiEsempioEDiAccettazioneSeguonoLeRegole) {
    // Default picture 19200 x 9000 on the reference screen: W = 15360, H = 7560, origin
    // (620, 8040) before the shift.
    for (const char* nome : {"appartamento.RTG", "bifamiliare-gpl.RTG", "rete-media-pressione.RTG"}) {
        SCOPED_TRACE(nome);
        const Json j = Schema(FORNAX_BUILD_DATA_DIR, kEsempi + nome);
        EXPECT_EQ(j["parametri"]["fattore"].testo, "1");
        EXPECT_EQ(I(j["parametri"]["B"]), 480);
        Verifica(j, 15360, 7560, 620, 8040);
    }
    for (const char* nome :
         {"i03_chain4_2008", "i05_balanced_d3_2008", "i11_custom_locked_2008", "p02_chain5", "p03_contemp_junction"}) {
        SCOPED_TRACE(nome);
        const Json j = Schema(kAccettazione + "/archives", kAccettazione + "/projects/" + nome + ".RTG");
        Verifica(j, 15360, 7560, 620, 8040);
    }
}

TEST_F(CliSchema, AreaSchermoEZoom) {
    const std::string progetto = kAccettazione + "/projects/i03_chain4_2008.RTG";
    const std::string archivi = kAccettazione + "/archives";
    // A chain of four sections to the right: columns 0..8.
    const Json base = Schema(archivi, progetto);
    EXPECT_EQ(I(base["colonne"].elenco[1]), 8);
    EXPECT_EQ(I(base["parametri"]["SX"]), 3840);  // 2 x 15360 / 8
    // Half the width: W = 7680, SX = 1920. A screen twice as wide halves it again.
    EXPECT_EQ(I(Schema(archivi, progetto, "--area 9600x9000")["parametri"]["SX"]), 1920);
    EXPECT_EQ(I(Schema(archivi, progetto, "--area 9600x9000 --schermo 24000x9000")["parametri"]["SX"]), 960);
    // Zoom 2: factor 0.81, B = 389, Y0 = 0.81 x 9000 - 778 = 6512.
    const Json z = Schema(archivi, progetto, "--zoom 2");
    EXPECT_EQ(z["parametri"]["fattore"].testo, "0.81");
    EXPECT_EQ(I(z["parametri"]["B"]), 389);
    EXPECT_EQ(I(z["parametri"]["Y0"]), 6512);
    Verifica(z, 15360, 9000 - 3 * 389, 620, 6512);
}

TEST_F(CliSchema, ErroriDUso) {
    const std::string progetto = "'" + kAccettazione + "/projects/i03_chain4_2008.RTG'";
    const std::string archivi = kAccettazione + "/archives";
    for (const char* opzioni : {"--zoom 6", "--zoom -13", "--zoom 1.5", "--zoom x", "--area 100", "--area 0x10",
                                "--schermo 12000", "--json", "--png a.jpg", "--svg"}) {
        SCOPED_TRACE(opzioni);
        EXPECT_EQ(Esegui(archivi, "schema " + progetto + " " + opzioni).stato, 2);
    }
    EXPECT_EQ(Esegui(archivi, "schema").stato, 2);
    EXPECT_EQ(Esegui(archivi, "schema '" + dir.Percorso("manca.RTG") + "'").stato, 1);
    EXPECT_EQ(Esegui(archivi, "schema " + progetto + " --json '" + dir.Percorso("no/dir/s.json") + "'").stato, 1);
    const Esito ok = Esegui(archivi, "schema " + progetto);
    EXPECT_EQ(ok.stato, 0);
    EXPECT_NE(ok.uscita.find("Tronchi disegnati: 4"), std::string::npos) << ok.uscita;
}
