// The directions and the turns between them, on every code and outside the ring.
#include <gtest/gtest.h>

#include "schema/Direzioni.h"

using namespace fornax::schema;

TEST(Direzioni, SvolteSulCerchioEFuoriDalCerchio) {
    // code: left, right, reverse
    const int attese[9][3] = {{0, 0, 0}, {5, 8, 3}, {6, 5, 4}, {7, 6, 1}, {8, 7, 2},
                              {2, 1, 7}, {3, 2, 8}, {4, 3, 5}, {1, 4, 6}};
    for (int16_t d = 0; d <= 8; ++d) {
        SCOPED_TRACE(d);
        EXPECT_EQ(SvoltaSinistra(d), attese[d][0]);
        EXPECT_EQ(SvoltaDestra(d), attese[d][1]);
        EXPECT_EQ(DirezioneOpposta(d), attese[d][2]);
    }
    for (int16_t d : {-1, 9, 100}) {
        EXPECT_EQ(SvoltaSinistra(d), 0);
        EXPECT_EQ(SvoltaDestra(d), 0);
        EXPECT_EQ(DirezioneOpposta(d), 0);
    }
}

TEST(Direzioni, CodiciDiSvoltaEIlLoroInverso) {
    // From "R" (4): straight, 90 left, 90 right, 45 left, 135 left, 180, 45 right, 135 right.
    const int16_t daDestra[9] = {0, 4, 1, 3, 8, 5, 2, 7, 6};
    // From "UL" (5).
    const int16_t daAltoSinistra[9] = {0, 5, 6, 8, 2, 3, 7, 1, 4};
    for (int16_t c = 1; c <= 8; ++c) {
        EXPECT_EQ(RuotaDirezione(4, c), daDestra[c]) << c;
        EXPECT_EQ(RuotaDirezione(5, c), daAltoSinistra[c]) << c;
    }
    EXPECT_EQ(RuotaDirezione(4, 0), 0);
    EXPECT_EQ(RuotaDirezione(4, 9), 0);
    EXPECT_EQ(RuotaDirezione(0, 1), 0);
    EXPECT_EQ(RuotaDirezione(9, 2), 0);
    // The inverse gives back every code from every base.
    for (int16_t base = 1; base <= 8; ++base)
        for (int16_t c = 1; c <= 8; ++c) EXPECT_EQ(CodiceSvolta(RuotaDirezione(base, c), base), c) << base << " " << c;
    EXPECT_EQ(CodiceSvolta(0, 4), 0);
    EXPECT_EQ(CodiceSvolta(4, 0), 0);
    EXPECT_EQ(CodiceSvolta(0, 0), 1);  // equal codes are "straight on", whatever they are
}

TEST(Direzioni, NomiDeiTag) {
    const char* nomi[9] = {"", "U", "L", "D", "R", "UL", "DL", "DR", "UR"};
    for (int16_t d = 0; d <= 8; ++d) {
        EXPECT_EQ(NomeDirezione(d), nomi[d]);
        if (d > 0) {
            EXPECT_EQ(DirezioneDaNome(nomi[d]), d);
        }
    }
    EXPECT_EQ(NomeDirezione(9), "");
    EXPECT_EQ(DirezioneDaNome("T"), 0);
}
