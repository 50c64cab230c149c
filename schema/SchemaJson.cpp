#include "schema/SchemaJson.h"

#include <cstdio>

#include "core/Json.h"
#include "core/Numeri.h"

namespace fornax::schema {

namespace {

std::string N(int32_t v) { return std::to_string(v); }

template <typename T, typename F>
std::string Elenco(const std::vector<T>& voci, F voce) {
    std::string out = "[";
    for (size_t k = 0; k < voci.size(); ++k) out += (k > 0 ? ",\n    " : "\n    ") + voce(voci[k]);
    return out + (voci.empty() ? "]" : "\n  ]");
}

}  // namespace

std::string SchemaJson(const StatoSchema& s, const std::vector<std::string>& messaggi) {
    const ParametriWalk& p = s.Parametri;
    std::string j = "{\n";
    j += "  \"parametri\": {\"fattore\": " + TestoBreve(p.Fattore) + ", \"B\": " + N(p.B) + ", \"SX\": " + N(p.SX) +
         ", \"SY\": " + N(p.SY) + ", \"X0\": " + N(p.X0) + ", \"Y0\": " + N(p.Y0) + "},\n";
    j += "  \"colonne\": [" + N(p.ColonnaMin) + ", " + N(p.ColonnaMax) + "],\n";
    j += "  \"righe\": [" + N(p.RigaMin) + ", " + N(p.RigaMax) + "],\n";
    j += "  \"limiti\": {\"xmin\": " + N(s.SchemaXMin) + ", \"ymin\": " + N(s.SchemaYMin) +
         ", \"xmax\": " + N(s.SchemaXMax) + ", \"ymax\": " + N(s.SchemaYMax) + "},\n";
    j += "  \"sezioni\": " +
         Elenco(s.Sezioni,
                [](const SezioneDisegnata& x) {
                    return "{\"n\": " + N(x.n) + ", \"direzione\": " + N(x.direzione) + ", \"x\": " + N(x.x) +
                           ", \"y\": " + N(x.y) + ", \"lunghezza\": " + N(x.lunghezza) +
                           ", \"lunghezzaUtente\": " + N(x.lunghezzaUtente) + "}";
                }) +
         ",\n";
    j += "  \"estremiTronco\": " +
         Elenco(s.EstremiTronco,
                [](const EstremoLibero& e) {
                    return "{\"tronco\": " + N(e.tronco) + ", \"direzione\": " + N(e.direzione) +
                           ", \"svolta\": " + N(e.svolta) + ", \"x\": " + N(e.x) + ", \"y\": " + N(e.y) + "}";
                }) +
         ",\n";
    j += "  \"estremiUtenza\": " +
         Elenco(s.EstremiUtenza,
                [](const EstremoLibero& e) {
                    return "{\"tronco\": " + N(e.tronco) + ", \"direzione\": " + N(e.direzione) + ", \"x\": " + N(e.x) +
                           ", \"y\": " + N(e.y) + "}";
                }) +
         ",\n";
    j += "  \"messaggi\": " + Elenco(messaggi, [](const std::string& m) { return TestoJson(m); }) + "\n";
    return j + "}\n";
}

}  // namespace fornax::schema
