#include "editing/Portata.h"

#include <cmath>

#include "core/Numeri.h"
#include "core/Testo.h"

namespace fornax {

std::string CodificaComposizione(const Composizione& c) {
    std::string s;
    for (const bool b : c) s += b ? '1' : '0';
    return s;
}

bool DecodificaComposizione(const std::string& testo, Composizione& c) {
    if (testo.size() < static_cast<size_t>(NUM_APPARECCHI)) return false;
    for (size_t i = 0; i < c.size(); ++i) c[i] = testo[i] == '1';
    return true;
}

int32_t WattDi(const Composizione& c) {
    int32_t w = 0;
    for (size_t i = 0; i < c.size(); ++i)
        if (c[i]) w += WATT_APPARECCHI[i];
    return w;
}

double PotereCalorifico(const GasRecord& gas, int tipologia) { return tipologia == 1 ? gas.Pcs : gas.Pci; }

ValoriPortata Ricalcola(int fonte, double valore, double pc) {
    ValoriPortata v;
    const auto portata = [pc](double w) { return pc > 0 ? static_cast<float>(w / 1000 * 3.6 / pc) : 0.0f; };
    switch (fonte) {
        case Fonte::APPARECCHI:
        case Fonte::WATT:
            v.watt = valore;
            v.kcal = valore * 0.86;
            v.portata = portata(valore);
            break;
        case Fonte::KCAL:
            v.kcal = valore;
            v.watt = valore / 0.86;
            v.portata = portata(v.watt);
            break;
        case Fonte::PORTATA:
        default:
            v.portata = static_cast<float>(valore);
            v.watt = static_cast<double>(v.portata) * pc * 1000 / 3.6;
            v.kcal = v.watt * 0.86;
            break;
    }
    return v;
}

std::string InsertTousendSeparator(double v) {
    // Whole hundredths, half to even, then the integer part grouped by three.
    const double centesimi = std::nearbyint(std::fabs(v) * 100.0);
    const double intero = std::floor(centesimi / 100.0);
    const int resto = static_cast<int>(centesimi - intero * 100.0);
    std::string cifre = FormattaNumero(intero, "0");
    std::string gruppi;
    for (size_t i = 0; i < cifre.size(); ++i) {
        if (i > 0 && (cifre.size() - i) % 3 == 0) gruppi += '.';
        gruppi += cifre[i];
    }
    if (resto != 0) {
        gruppi += ',';
        gruppi += static_cast<char>('0' + resto / 10);
        if (resto % 10 != 0) gruppi += static_cast<char>('0' + resto % 10);
    }
    return (v < 0 && centesimi > 0 ? "-" : "") + gruppi;
}

std::string TestoPortata(double v) {
    std::string s = FormattaNumero(v, "##0.00");
    for (char& c : s)
        if (c == '.') c = ',';
    return s;
}

double LeggiPotenza(const std::string& testo) {
    std::string s;
    for (const char c : testo)
        if (c != '.') s += c;
    return LeggiNumero(s);
}

double LeggiPortata(const std::string& testo) { return LeggiNumero(testo); }

}  // namespace fornax
