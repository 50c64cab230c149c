#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Testo.h"

using namespace fornax;
namespace fs = std::filesystem;

static fs::path CartellaTemporanea(const std::string& nome) {
    fs::path p = fs::temp_directory_path() / ("fornax-test-" + nome + "-" + std::to_string(::getpid()));
    fs::remove_all(p);
    fs::create_directories(p);
    return p;
}

static std::string LeggiByte(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(Testo, TrimToglieSoloGliSpazi) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Testo, Windows1252AndataERitorno) {
    const std::string cp = "Citt\xE0 \x80 \x93pi\xF9\x94";  // "Città € “più”"
    const std::string utf8 = Cp1252AUtf8(cp);
    EXPECT_EQ(utf8, "Citt\xC3\xA0 \xE2\x82\xAC \xE2\x80\x9Cpi\xC3\xB9\xE2\x80\x9D");
    EXPECT_EQ(Utf8ACp1252(utf8), cp);
    EXPECT_EQ(Utf8ACp1252("\xE2\x88\x9A"), "?");  // √ has no code in the page
    EXPECT_EQ(Utf8ACp1252("\xFF\xFE"), "??");     // broken UTF-8 never faults
    std::string tutti;
    for (int c = 1; c < 256; ++c) tutti += static_cast<char>(c);
    EXPECT_EQ(Utf8ACp1252(Cp1252AUtf8(tutti)), tutti);
}

TEST(Testo, MaiuscoloConLettereAccentate) {
    EXPECT_EQ(Maiuscolo("acciaio"), "ACCIAIO");
    EXPECT_EQ(Maiuscolo("citt\xC3\xA0"), "CITT\xC3\x80");
    EXPECT_TRUE(UgualiSenzaMaiuscole("Metano", "METANO"));
}

TEST(FileTesto, LettoriDiRighe) {
    FileTesto f;
    f.ApriDaTesto("# commento\r\n\r\n   \r\nprima,riga\r\n#x\r\n\r\nultima senza a capo");
    EXPECT_EQ(f.LeggiRiga(), "prima.riga");
    EXPECT_EQ(f.LeggiRigaVuota(), "");  // the empty line after the comment
    EXPECT_EQ(f.LeggiRigaGrezza(), "ultima senza a capo");
    EXPECT_TRUE(f.Fine());
    EXPECT_EQ(f.LeggiRiga(), "");

    FileTesto g;
    g.ApriDaTesto("a\nb,c\n# fine\n");  // LF only is accepted
    EXPECT_EQ(g.LeggiRigaGrezza(), "a");
    EXPECT_EQ(g.LeggiRigaGrezza(), "b,c");
    EXPECT_EQ(g.LeggiRiga(), "");  // only a comment left
    EXPECT_TRUE(g.Fine());
}

TEST(FileTesto, SeparaCampiSaltaLeTabulazioniRipetute) {
    std::vector<std::string> c;
    EXPECT_EQ(SeparaCampi("METANO\t0,55\t\t1.4E-05\t", c), 2);
    EXPECT_EQ(c, (std::vector<std::string>{"METANO", "0.55", "1.4E-05"}));
    EXPECT_EQ(SeparaCampi("\t\tx", c), 0);
    EXPECT_EQ(c[0], "x");
    EXPECT_EQ(SeparaCampi("", c), 0);
    EXPECT_EQ(c, std::vector<std::string>{""});
    EXPECT_EQ(SeparaCampi("\t\t", c), 0);
}

TEST(FileTesto, SalvataggioSicuro) {
    const fs::path dir = CartellaTemporanea("salva");
    const fs::path p = dir / "prova.txt";
    ScrittoreTesto w;
    w.Riga("Citt\xC3\xA0");
    w.Riga();
    ASSERT_TRUE(w.Salva(p.string()));
    EXPECT_EQ(LeggiByte(p), "Citt\xE0\r\n\r\n");  // Windows-1252, CR LF

    // A write that fails leaves the previous file as it was and no temporary behind.
    ScrittoreTesto altro;
    altro.Riga("nuovo");
    EXPECT_FALSE(altro.Salva((dir / "manca" / "prova.txt").string()));
    fs::create_directories(dir / "cartella");
    EXPECT_FALSE(altro.Salva((dir / "cartella").string()));
    EXPECT_TRUE(fs::is_directory(dir / "cartella"));
    EXPECT_EQ(LeggiByte(p), "Citt\xE0\r\n\r\n");
    for (const auto& e : fs::directory_iterator(dir)) {
        EXPECT_EQ(e.path().string().find("fornax-tmp"), std::string::npos);
    }
    fs::remove_all(dir);
}

TEST(Cartelle, NomiTrovatiSenzaRiguardoAlleMaiuscole) {
    const fs::path dir = CartellaTemporanea("cartelle");
    std::ofstream(dir / "GAS.CFG") << "x";
    std::ofstream(dir / "rame.MAT") << "x";
    std::ofstream(dir / "Acciaio.mat") << "x";
    std::ofstream(dir / "note.txt") << "x";
    EXPECT_EQ(TrovaFile(dir.string(), "gas.cfg"), (dir / "GAS.CFG").string());
    EXPECT_EQ(TrovaFile(dir.string(), "manca.cfg"), (dir / "manca.cfg").string());
    const auto mat = ElencaFile(dir.string(), ".mat");
    ASSERT_EQ(mat.size(), 2u);
    EXPECT_EQ(fs::path(mat[0]).filename(), "Acciaio.mat");
    EXPECT_EQ(fs::path(mat[1]).filename(), "rame.MAT");
    EXPECT_TRUE(EsisteFile(mat[0]));
    EXPECT_FALSE(EsisteFile(dir.string()));
    fs::remove_all(dir);
}
