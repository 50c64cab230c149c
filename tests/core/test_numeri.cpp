#include <gtest/gtest.h>

#include <limits>

#include "core/Numeri.h"

using namespace fornax;

TEST(Numeri, LetturaPrendeIlPrefissoNumericoPiuLungo) {
    EXPECT_DOUBLE_EQ(LeggiNumero(" 15 "), 15.0);
    EXPECT_DOUBLE_EQ(LeggiNumero("12.7abc"), 12.7);
    EXPECT_DOUBLE_EQ(LeggiNumero("0,55"), 0.55);          // decimal comma of Italian Windows
    EXPECT_DOUBLE_EQ(LeggiNumero("1.42E-05"), 1.42e-05);  // print-style exponent
    EXPECT_DOUBLE_EQ(LeggiNumero("-0.5 "), -0.5);
    EXPECT_DOUBLE_EQ(LeggiNumero("+3"), 3.0);
    EXPECT_DOUBLE_EQ(LeggiNumero(".5"), 0.5);
    EXPECT_DOUBLE_EQ(LeggiNumero("7e"), 7.0);  // an exponent without digits is not read
    EXPECT_DOUBLE_EQ(LeggiNumero("3/4\""), 3.0);
    EXPECT_EQ(LeggiNumero(""), 0.0);
    EXPECT_EQ(LeggiNumero("abc"), 0.0);
    EXPECT_EQ(LeggiNumero("."), 0.0);
    EXPECT_EQ(LeggiNumero("-"), 0.0);
    EXPECT_GT(LeggiNumero("1e999"), 1e300);  // out of range never faults
}

TEST(Numeri, ArrotondamentoAlPariESaturato) {
    EXPECT_EQ(ArrotondaI16(2.5), 2);
    EXPECT_EQ(ArrotondaI16(3.5), 4);
    EXPECT_EQ(ArrotondaI16(-2.5), -2);
    EXPECT_EQ(ArrotondaI16(12.7), 13);
    EXPECT_EQ(ArrotondaI16(1e9), 32767);
    EXPECT_EQ(ArrotondaI16(-1e9), -32768);
    EXPECT_EQ(ArrotondaI32(0.0 / 0.0), 0);
}

TEST(Numeri, ScritturaComeLaStampa) {
    EXPECT_EQ(NumeroFile(15.0f), " 15 ");
    EXPECT_EQ(NumeroFile(-0.5f), "-0.5 ");
    EXPECT_EQ(NumeroFile(0.1f), " 0.1 ");  // shortest text of the float, not 0.100000001
    EXPECT_EQ(NumeroFile(0.1), " 0.1 ");
    EXPECT_EQ(NumeroFile(int32_t{-1}), "-1 ");
    EXPECT_EQ(NumeroFile(-0.0f), " 0 ");
    EXPECT_EQ(TestoBreve(1.42e-05f), "1.42e-05");
    EXPECT_EQ(TestoGenerale(0.1 + 0.2, 15), "0.3");  // a text box shows 15 digits, not 17
    EXPECT_EQ(TestoGenerale(static_cast<double>(2200.0f), 7), "2200");
    EXPECT_EQ(TestoGenerale(static_cast<double>(0.8f), 7), "0.8");
    // Every float survives the trip through its text.
    for (float v : {1.0f / 3.0f, 123456.78f, 2.5e-7f, 3.4e38f}) {
        EXPECT_EQ(static_cast<float>(LeggiNumero(TestoBreve(v))), v);
    }
}

TEST(Numeri, FormatiDiVisualizzazione) {
    EXPECT_EQ(FormattaNumero(3.14159, "##0.00"), "3.14");
    EXPECT_EQ(FormattaNumero(0.0, "##0.00"), "0.00");
    EXPECT_EQ(FormattaNumero(1234.5, "##0.0"), "1234.5");                   // extra integer digits all print
    EXPECT_EQ(FormattaNumero(static_cast<double>(1.25f), "##0.0"), "1.2");  // exact tie, to even
    EXPECT_EQ(FormattaNumero(static_cast<double>(0.15f), "0.0"), "0.2");    // 0.15f is above the tie
    EXPECT_EQ(FormattaNumero(1.0, "##0.###"), "1.");                        // point written with no digit after
    EXPECT_EQ(FormattaNumero(1.5, "##0.###"), "1.5");
    EXPECT_EQ(FormattaNumero(12.3, " ##0.0  Nmc/h"), " 12.3  Nmc/h");
    EXPECT_EQ(FormattaNumero(-12.34, "##0.0"), "-12.3");
    EXPECT_EQ(FormattaNumero(-0.04, "##0.0"), "0.0");  // a rounded zero has no sign
    EXPECT_EQ(FormattaNumero(-3.0, "0000"), "-0003");
    EXPECT_EQ(FormattaNumero(0.0, "###"), "");  // # only: nothing for 0
    EXPECT_EQ(FormattaNumero(7.0, "###"), "7");
    EXPECT_EQ(FormattaNumero(42.0, "0 Pa"), "42 Pa");
    EXPECT_EQ(FormattaNumero(2.0, "##0.0#"), "2.0");
    EXPECT_EQ(FormattaNumero(2.25, "##0.0#"), "2.25");
}

// Found by fuzzing the archives: a number beyond the single-precision range read from a file
// became infinity, was written as "inf" and read back as 0. Written, every stored value reads
// back to what was written.
TEST(Numeri, ScritturaDiValoriFuoriScalaRiletta) {
    const float inf = std::numeric_limits<float>::infinity();
    const float grande = static_cast<float>(LeggiNumero("2077777777777777777777777777777777777777777777770"));
    EXPECT_EQ(grande, inf);
    EXPECT_EQ(NumeroFile(grande), " 3.4028235e+38 ");
    EXPECT_EQ(NumeroFile(-inf), "-3.4028235e+38 ");
    EXPECT_EQ(NumeroFile(std::numeric_limits<float>::quiet_NaN()), " 0 ");
    EXPECT_EQ(NumeroFile(std::numeric_limits<double>::quiet_NaN()), " 0 ");
    for (float v : {inf, -inf}) {
        const std::string scritto = NumeroFile(v);
        EXPECT_EQ(NumeroFile(static_cast<float>(LeggiNumero(scritto))), scritto);
    }
}
