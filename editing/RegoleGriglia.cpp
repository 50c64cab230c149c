#include "editing/RegoleGriglia.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "documento/Campi.h"

namespace fornax {

namespace {

bool Cifra(char c) { return c >= '0' && c <= '9'; }

// A number as the product prints it in a message: a blank in place of the plus sign.
std::string NumeroConSegno(int n) { return (n < 0 ? "" : " ") + std::to_string(n); }

// True when the whole text (blanks aside) is one number, as a grid cell of a size such as
// "20" or "32.5"; "3/4\"" is a name, not a number.
bool TuttoNumerico(const std::string& testo) {
    const std::string t = Trim(testo);
    if (t.empty()) return false;
    char* fine = nullptr;
    std::strtod(t.c_str(), &fine);
    return fine != nullptr && *fine == '\0';
}

// The table grows to `fino`: the records between its end and `fino` have not been written in this
// document and start blank, whatever an earlier document left in them; `fino` is the caller's.
void AllungaTabella(Documento& d, int fino) {
    for (int k = d.NumTronchi() + 1; k < fino; ++k) d.T(k) = Tronco{};
    d.rete().NumTronchi = static_cast<int16_t>(fino);
}

// A record named as a parent becomes a section of the table: beyond the table's count the table
// grows to it (the rows between blank), a freed record is taken back as a section without a
// parent. The deletes, the new sections and the renumbering keep the links of the table's
// records only, and sweep or reuse the freed ones: a branch hung from a record outside the
// table would be left naming a parent that no longer derives it.
void PrendiInTabella(Documento& d, int16_t sezione) {
    if (sezione < 1 || sezione > MAX_TRONCHI) return;
    if (sezione > d.NumTronchi()) {
        d.T(sezione) = Tronco{};
        AllungaTabella(d, sezione);
    }
    Tronco& t = d.T(sezione);
    t.ID_SCOLLEGATO = FALSO;
    t.ID_CANCELLATO = FALSO;
}

}  // namespace

std::string FiltraTestoCella(std::string_view testo, bool numerica) {
    std::string out;
    out.reserve(testo.size());
    for (size_t i = 0; i < testo.size(); ++i) {
        const char c = testo[i];
        if (numerica) {
            if (Cifra(c) || c == '.' || c == ',' || c == '-' || c == '+' || c == 'e' || c == 'E') out += c;
        } else {
            // Control characters and the stars of a failed value go; UTF-8 bytes stay.
            if (static_cast<unsigned char>(c) < 32 || c == 127 || c == '*') continue;
            out += c;
        }
    }
    return Trim(out);
}

std::string NormalizzaTesto(std::string_view testo) { return VirgolePunti(testo); }

std::vector<std::string> ElencoDiametri(const Archivi& a, int materiale) {
    std::vector<std::string> elenco;
    if (!a.HaMateriale(materiale)) return elenco;
    elenco.emplace_back("Auto");
    const MaterialeTubo& m = a.Materiali[static_cast<size_t>(materiale)];
    for (int r = 1; r <= m.NumRighe(); ++r) elenco.push_back(m.Righe[static_cast<size_t>(r)].DN);
    return elenco;
}

int MaterialeNuovaRiga(Documento& d, const Archivi& a, int riga) {
    int m = 0;
    if (riga > 1 && a.HaMateriale(d.T(riga - 1).IndiceMateriale)) m = d.T(riga - 1).IndiceMateriale;
    if (m == 0) m = PosizioneNome(a.NomiMateriali(), a.Default.DefaultMateriale);
    if (m == 0 && a.NumMateriali() > 0) m = 1;
    Tronco& t = d.T(riga);
    t.IndiceMateriale = static_cast<int16_t>(m);
    t.ID_MATERIALE = m > 0 ? a.Materiali[static_cast<size_t>(m)].Nome : std::string();
    return m;
}

EsitoCella ConfermaCampo(Documento& d, Archivi& a, int riga, int id, const std::string& testo, Messaggi& msg,
                         const ScegliDiametro& scegli) {
    EsitoCella e;
    e.riga = riga;
    e.testo = testo;
    if (riga < 1 || riga > MAX_TRONCHI) {
        e.interrompi = true;
        return e;
    }
    // The step works on a copy of the record, written back only when the row's step completes.
    Tronco c = d.T(riga);
    // Writing in a row brings a cut record back.
    c.ID_SCOLLEGATO = FALSO;
    c.ID_CANCELLATO = FALSO;

    switch (id) {
        case Id::ID_P_UTENZE: {
            const auto v = Singolo(LeggiNumero(testo));
            if (v != c.ID_P_UTENZE || v == 0) {
                c.ID_P_UTENZE = v;
                c.ID_P_TRONCO = v;
            }
            break;
        }
        case Id::ID_LEN:
            c.ID_LEN = Singolo(LeggiNumero(testo));
            break;
        case Id::ID_EQ_LEN:
            c.ID_EQ_LEN = Singolo(LeggiNumero(testo));
            break;
        case Id::ID_RIF:
            c.ID_RIF = Maiuscolo(Trim(testo));
            e.testo = c.ID_RIF;
            break;
        case Id::ID_DIAMETRO: {
            std::string dn = Trim(testo);
            if (dn == "?" && scegli) {
                const std::string scelto = scegli(c.IndiceMateriale);
                if (!scelto.empty()) dn = scelto;
            }
            e.testo = dn;
            const bool misura = DiametroInterno(a, c.IndiceMateriale, dn) > 0 && dn != "0" && Maiuscolo(dn) != "AUTO";
            if (misura && (dn != c.ID_DIAMETRO || c.ID_DIAMCUSTOM != FALSO)) {
                c.ID_DIAMETRO = dn;
                c.ID_DIAMCUSTOM = VERO;
                e.diametro = 1;
            } else if (!misura && dn != c.ID_DIAMETRO) {
                // Back to automatic: the next calculation chooses the size.
                c.ID_DIAMCUSTOM = FALSO;
                e.diametro = -1;
            }
            // Anything else (the same text as the record) changes nothing.
            break;
        }
        case Id::ID_PREV: {
            // The parent is a section number: a fraction can't name one.
            const double letto = LeggiNumero(testo);
            const double v = std::nearbyint(letto);
            if (v == riga) {
                msg.Mostra("Il tronco non puo' provenire da se stesso!");
                e.interrompi = true;
                return e;
            }
            if (v > MAX_TRONCHI) {
                msg.Mostra("Valore di provenienza troppo alto");
                e.testo.clear();
                e.interrompi = true;
                return e;
            }
            if (v < 0) {
                msg.Mostra("Valori  negativi non validi");
                e.testo.clear();
                e.interrompi = true;
                return e;
            }
            int16_t nuovo = static_cast<int16_t>(v);
            // The first section always leaves from the source.
            if (riga == 1) {
                nuovo = 0;
                e.testo = "0";
            }
            // Off the old parent first.
            if (c.ID_PREV > 0 && c.ID_PREV <= MAX_TRONCHI) {
                Tronco& vecchio = d.T(c.ID_PREV);
                if (vecchio.ID_LEFT == riga) {
                    vecchio.ID_LEFT = 0;
                } else if (vecchio.ID_RIGHT == riga) {
                    vecchio.ID_RIGHT = 0;
                }
            }
            if (nuovo != 0) {
                PrendiInTabella(d, nuovo);
                const Tronco& p = d.T(nuovo);
                if (p.IsUtenza() && p.ID_P_UTENZE > 0) {
                    const int r = msg.Mostra("Il tronco di provenienza e' una utenza!\r\n Azzero la portata?",
                                             Box::YESNO | Box::QUESTION);
                    if (r == Risposta::NO) {
                        // This row stops here: the old link is gone, the record keeps its parent.
                        return e;
                    }
                }
            }
            c.ID_PREV = nuovo;
            if (c.ID_PREV != 0) {
                Tronco& p = d.T(c.ID_PREV);
                if (p.ID_LEFT == 0) {
                    p.ID_LEFT = static_cast<int16_t>(riga);
                } else if (p.ID_RIGHT == 0) {
                    p.ID_RIGHT = static_cast<int16_t>(riga);
                } else {
                    msg.Mostra("Errore! Il tronco" + NumeroConSegno(c.ID_PREV) + " ha gia' due derivazioni");
                    c.ID_PREV = 0;
                }
            }
            break;
        }
        default:
            break;
    }
    d.T(riga) = c;
    return e;
}

EsitoConferma ConfermaCelle(Documento& d, Archivi& a, int da, int a_, int id, const std::string& testo, Messaggi& msg,
                            const ScegliDiametro& scegli) {
    EsitoConferma esito;
    const std::string normale = NormalizzaTesto(testo);
    for (int r = da; r <= a_; ++r) {
        if (r < 1 || r > MAX_TRONCHI) continue;
        // A row beyond the table has not been written in this document: it starts blank,
        // whatever an earlier document left in the record.
        if (r > d.NumTronchi()) d.T(r) = Tronco{};
        EsitoCella e = ConfermaCampo(d, a, r, id, normale, msg, scegli);
        const bool fermo = e.interrompi;
        esito.righe.push_back(std::move(e));
        if (fermo) {
            esito.interrotto = true;
            return esito;
        }
        if (r > d.NumTronchi()) AllungaTabella(d, r);
        if (!a.HaMateriale(d.T(r).IndiceMateriale)) MaterialeNuovaRiga(d, a, r);
    }
    d.ReteModificata = VERO;
    return esito;
}

void ConfermaMateriale(Documento& d, const Archivi& a, int da, int a_, int materiale) {
    if (!a.HaMateriale(materiale)) return;
    for (int r = std::max(da, 1); r <= a_ && r <= MAX_TRONCHI; ++r) {
        if (r > d.NumTronchi()) {
            d.T(r) = Tronco{};
            AllungaTabella(d, r);
        }
        Tronco& t = d.T(r);
        t.IndiceMateriale = static_cast<int16_t>(materiale);
        t.ID_MATERIALE = a.Materiali[static_cast<size_t>(materiale)].Nome;
    }
    d.ReteModificata = VERO;
}

// ---- How a cell shows its value ----

std::string TestoCampo(const Documento& d, const Archivi& a, int sezione, const ColonnaTabella& c) {
    const Valore v = LeggiCampo(d, a, sezione, c.Id);
    if (const auto* s = std::get_if<std::string>(&v)) return *s;
    if (std::holds_alternative<std::monostate>(v)) return "";
    const std::string formato = Trim(c.Formato);
    if (formato.empty() || formato == "@") return TestoValore(v);
    double n = 0;
    if (const auto* i = std::get_if<int16_t>(&v))
        n = *i;
    else if (const auto* l = std::get_if<int32_t>(&v))
        n = *l;
    else if (const auto* f = std::get_if<float>(&v))
        n = *f;
    else if (const auto* x = std::get_if<double>(&v))
        n = *x;
    return FormattaNumero(n, c.Formato);
}

AspettoCella AspettoDi(const Documento& d, const Archivi& a, int sezione, const ColonnaTabella& c, const Verdetti& v) {
    AspettoCella s;
    s.testo = TestoCampo(d, a, sezione, c);
    const Tronco& t = d.T(sezione);
    const bool pressione = d.ReteInPressione != 0;
    switch (c.Id) {
        case Id::ID_VELOCITA:
            s.inchiostro = v.velocitaOltre ? Inchiostro::Rosso : Inchiostro::Blu;
            break;
        case Id::ID_PDC_TRONCO:
            if (v.perditaFallita) {
                s.testo = "***";
                s.inchiostro = Inchiostro::Rosso;
            } else {
                s.inchiostro = Inchiostro::Blu;
            }
            break;
        case Id::ID_PDC_PERCORSO:
            // -1 is the failure value: the section or one before it has no valid drop.
            if (t.ID_PDC_PERCORSO < 0) {
                s.testo = "***";
                s.inchiostro = Inchiostro::Rosso;
            } else {
                s.inchiostro = v.percorsoOltre ? Inchiostro::Rosso : Inchiostro::Nero;
            }
            break;
        case Id::ID_PFINALE:
            if (!pressione) break;
            if (v.pressioneFallita) {
                s.testo = "***";
                s.inchiostro = Inchiostro::Rosso;
            } else {
                s.inchiostro = v.pressioneBassa ? Inchiostro::Rosso : Inchiostro::Blu;
            }
            break;
        case Id::ID_DIAMETRO:
            s.fondo = v.diametroInsufficiente ? Fondo::GialloPallido : Fondo::Bianco;
            s.inchiostro = t.ID_DIAMCUSTOM != FALSO ? Inchiostro::RossoScuro : Inchiostro::Nero;
            break;
        case Id::ID_P_TRONCO:
            if (v.contemporaneita) s.inchiostro = Inchiostro::Rosso;
            break;
        default:
            break;
    }
    return s;
}

Fondo FondoDiametroModificato(const Documento& d, const Archivi& a, int sezione, const std::string& testo) {
    if (sezione < 1 || sezione > MAX_TRONCHI) return Fondo::GialloPallido;
    const Tronco& t = d.T(sezione);
    const std::string dn = Trim(testo);
    if (!TuttoNumerico(dn) || Maiuscolo(dn) == "AUTO" || !a.HaMateriale(t.IndiceMateriale)) return Fondo::GialloPallido;
    const MaterialeTubo& m = a.Materiali[static_cast<size_t>(t.IndiceMateriale)];
    if (m.NumRighe() < 1) return Fondo::GialloPallido;
    const bool piuGrande = m.Righe[static_cast<size_t>(m.NumRighe())].DN == dn;
    const bool fuoriTabella = IndiceRiga(a, t.IndiceMateriale, dn) == 0;
    const bool oltre = d.ReteInPressione != 0 ? t.ID_VELOCITA > d.VelocitaMassima : t.ID_PDC_PERCORSO > LimitePdc(d);
    return (piuGrande || fuoriTabella) && oltre ? Fondo::RossoCupo : Fondo::GialloPallido;
}

// ---- Pressure combos ----

std::vector<std::string> VociComboPressione() {
    std::vector<std::string> voci{"Auto"};
    for (int p = 10; p <= 500; p += 10) voci.push_back(std::to_string(p));
    return voci;
}

namespace {
bool Automatico(const std::string& testo) {
    const std::string t = Maiuscolo(Trim(testo));
    return t == "0" || t == "AUTO";
}
}  // namespace

double ValoreComboPressione(const std::string& testo, const std::string& predefinito) {
    if (Automatico(testo)) return LeggiNumero(predefinito);
    return std::fabs(LeggiNumero(testo));
}

double ValoreComboDpMax(const std::string& testo) {
    if (Automatico(testo)) return 0.0;
    return LeggiNumero(testo);
}

bool PressioneDiversaDaDefault(double valore, const std::string& predefinito) {
    return valore != LeggiNumero(predefinito);
}

std::string TestoDpMax(const Documento& d) { return d.DpMax > 0 ? TestoBreve(d.DpMax) : std::string("Auto"); }

bool DpMaxDiversoDaTabella(const Documento& d) {
    if (d.DpMax <= 0) return false;
    // The table's limit for this network: LimitePdc as it reads with an automatic limit.
    const float potenza = static_cast<float>(static_cast<double>(d.GasCorrente.Pci) * d.T(1).ID_P_TRONCO / 3.6);
    const int fam = d.GasCorrente.Famiglia;
    float tabella = 0;
    if (fam >= 0 && fam <= 3) {
        const size_t fascia = potenza > d.Pdc.SogliaPotenza ? 2 : 1;
        tabella = d.Pdc.PdcMax[fascia][static_cast<size_t>(fam)];
    }
    return static_cast<float>(d.DpMax) != tabella;
}

}  // namespace fornax
