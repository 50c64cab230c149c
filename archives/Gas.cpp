#include "archives/Gas.h"

#include <cmath>
#include <vector>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

// Air at 15 °C and 1013 mbar weighs 1.22566 kg/m3: the relative density times this is the
// gas's own density.
constexpr double MASSA_VOLUMICA_ARIA = 1.22566;

// Wobbe ranges of the three families (MJ/m3, open at both ends), compared as single values
// with the single Wobbe index, so that a bound met exactly falls outside.
struct IntervalloFamiglia {
    float minimo, massimo;
    int16_t famiglia;
};
constexpr IntervalloFamiglia INTERVALLI[] = {
    {20.5f, 26.8f, 1},
    {37.1f, 52.4f, 2},
    {72.0f, 85.3f, 3},
};

// One character class of a pattern, "[...]" already stripped of its brackets.
bool InClasse(unsigned char c, const std::string& classe) {
    size_t i = 0;
    bool negata = false;
    if (!classe.empty() && classe[0] == '!') {
        negata = true;
        i = 1;
    }
    bool trovato = false;
    for (; i < classe.size(); ++i) {
        const auto da = static_cast<unsigned char>(classe[i]);
        if (i + 2 < classe.size() && classe[i + 1] == '-') {
            const auto a = static_cast<unsigned char>(classe[i + 2]);
            if (c >= da && c <= a) trovato = true;
            i += 2;
        } else if (c == da) {
            trovato = true;
        }
    }
    return trovato != negata;
}

// Pattern match on single-byte text: '*' any run, '?' one character, '#' one digit,
// "[abc]", "[a-z]", "[!abc]" a class; an unclosed '[' stands for itself.
bool Corrisponde(const std::string& t, size_t ti, const std::string& p, size_t pi) {
    while (pi < p.size()) {
        const char c = p[pi];
        if (c == '*') {
            while (pi < p.size() && p[pi] == '*') ++pi;
            if (pi == p.size()) return true;
            for (size_t k = ti; k <= t.size(); ++k)
                if (Corrisponde(t, k, p, pi)) return true;
            return false;
        }
        if (ti >= t.size()) return false;
        const auto tc = static_cast<unsigned char>(t[ti]);
        if (c == '?') {
            ++ti;
            ++pi;
        } else if (c == '#') {
            if (tc < '0' || tc > '9') return false;
            ++ti;
            ++pi;
        } else if (c == '[' && p.find(']', pi + 1) != std::string::npos) {
            const size_t chiusa = p.find(']', pi + 1);
            if (!InClasse(tc, p.substr(pi + 1, chiusa - pi - 1))) return false;
            ++ti;
            pi = chiusa + 1;
        } else {
            if (static_cast<unsigned char>(c) != tc) return false;
            ++ti;
            ++pi;
        }
    }
    return ti == t.size();
}

}  // namespace

bool Somiglia(const std::string& testo, const std::string& pattern) {
    // Matched on the Windows-1252 bytes, so that '?' takes one accented letter as one character.
    return Corrisponde(Utf8ACp1252(testo), 0, Utf8ACp1252(pattern), 0);
}

bool CalcolaGas(GasRecord& g, Messaggi& msg) {
    if (!(g.Densita > 0)) {
        g.FamigliaErrata = FALSO;
        g.MassaVolumica = 0;
        g.WobbeInf = 0;
        g.WobbeSup = 0;
        return false;
    }
    g.MassaVolumica = static_cast<float>(g.Densita * MASSA_VOLUMICA_ARIA);
    // A gas that doesn't burn (air, nitrogen for pressure tests) has no Wobbe index of its own.
    if (g.NonCombustibile != 0) return true;
    const double radice = std::sqrt(static_cast<double>(g.Densita));
    g.WobbeInf = static_cast<float>(g.Pci / radice);
    g.WobbeSup = static_cast<float>(g.Pcs / radice);
    const float w = g.WobbeInf;
    for (const auto& r : INTERVALLI) {
        if (w > r.minimo && w < r.massimo) {
            g.Famiglia = r.famiglia;
            return true;
        }
    }
    msg.Mostra("Errore di Attribuzione famiglia del gas: indice Wobbe-Inf = " + FormattaNumero(w, "0.00") +
               " non associabile a nessuna famiglia");
    g.Famiglia = 1;
    g.FamigliaErrata = VERO;
    return false;
}

bool GasValido(const GasRecord& g) {
    if (g.NonCombustibile != 0) return true;
    return !Trim(g.Nome).empty() && g.Densita > 0 && g.Viscosita > 0 && g.Pci > 0 && g.Pcs > 0;
}

void CaricaGas(Archivi& a, Messaggi& msg) {
    a.Gas.assign(1, GasRecord{});
    FileTesto f;
    const std::string percorso = TrovaFile(a.Cartella, "GAS.CFG");
    if (!EsisteFile(percorso) || !f.Apri(percorso)) return;
    std::vector<std::string> campi;
    while (!f.Fine()) {
        const std::string riga = f.RigaFisica();
        if (!riga.empty() && riga[0] == '#') continue;
        if (Trim(riga).empty()) continue;
        SeparaCampi(riga, campi);
        campi.resize(6);
        GasRecord g;
        g.Nome = campi[0];
        g.Densita = Singolo(LeggiNumero(campi[1]));
        g.Viscosita = Singolo(LeggiNumero(campi[2]));
        g.Pci = Singolo(LeggiNumero(campi[3]));
        g.Pcs = Singolo(LeggiNumero(campi[4]));
        g.NonCombustibile = ArrotondaI16(LeggiNumero(campi[5]));
        CalcolaGas(g, msg);
        a.Gas.push_back(g);
    }
}

bool SalvaGas(const Archivi& a, Messaggi& msg) {
    ScrittoreTesto w;
    for (int i = 1; i <= a.NumGas(); ++i) {
        const GasRecord& g = a.Gas[static_cast<size_t>(i)];
        if (g.Cancellato != 0) continue;
        w.Riga(PrimoCampo(g.Nome) + "\t" + NumeroFile(g.Densita) + "\t" + NumeroFile(g.Viscosita) + "\t" +
               NumeroFile(g.Pci) + "\t" + NumeroFile(g.Pcs) + "\t" +
               NumeroFile(static_cast<int32_t>(g.NonCombustibile)));
    }
    return w.SalvaOAvvisa(TrovaFile(a.Cartella, "GAS.CFG"), msg);
}

int NuovoGas(Archivi& a, const std::string& nome) {
    GasRecord g;
    g.Nome = nome;
    a.Gas.push_back(g);
    return a.NumGas();
}

int CercaGas(const Archivi& a, const std::string& nome) {
    const std::string pattern = Maiuscolo(nome);
    for (int i = 1; i <= a.NumGas(); ++i)
        if (Somiglia(Maiuscolo(a.Gas[static_cast<size_t>(i)].Nome), pattern)) return i;
    return 0;
}

void CaricaParFamGas(Archivi& a) {
    a.ParFam.fill(ParFamGas{});
    FileTesto f;
    const std::string percorso = TrovaFile(a.Cartella, "PARFAMGAS.CFG");
    if (!EsisteFile(percorso) || !f.Apri(percorso)) return;
    std::vector<std::string> campi;
    // One physical line per family: a comment or a blank line uses up its family.
    for (size_t famiglia = 1; famiglia <= 3 && !f.Fine(); ++famiglia) {
        const std::string riga = f.RigaFisica();
        if ((!riga.empty() && riga[0] == '#') || Trim(riga).empty()) continue;
        SeparaCampi(riga, campi);
        campi.resize(2);
        a.ParFam[famiglia].PressioneRiferimento = Singolo(LeggiNumero(campi[0]));
        a.ParFam[famiglia].DispersioneRiferimento = Singolo(LeggiNumero(campi[1]));
    }
}

std::string NomeFamiglia(int famiglia) {
    switch (famiglia) {
        case 1:
            return "1° Famiglia";
        case 2:
            return "2° Famiglia";
        case 3:
            return "3° Famiglia";
        default:
            return "";
    }
}

std::string DescrizioneFamiglia(int famiglia) {
    switch (famiglia) {
        case 1:
            return "(Gas manifatturato)";
        case 2:
            return "(Gas naturale, metano)";
        case 3:
            return "(Gas di petrolio liquefatto)";
        default:
            return "";
    }
}

}  // namespace fornax
