#include "schema/TargetRegistrato.h"

namespace fornax::schema {

namespace {

// Characters of a UTF-8 text (continuation bytes are not counted).
double Caratteri(const std::string& testo) {
    double n = 0;
    for (unsigned char c : testo)
        if ((c & 0xC0) != 0x80) n += 1;
    return n;
}

}  // namespace

double TargetRegistrato::LarghezzaTesto(const std::string& testo) const { return Caratteri(testo) * punti_ * 11.0; }

double TargetRegistrato::AltezzaTesto(const std::string&) const { return punti_ * 24.0; }

void TargetRegistrato::Testo(const std::string& testo, int32_t colore) {
    Tratto t;
    t.tipo = Tratto::Tipo::Testo;
    t.x1 = x_;
    t.y1 = y_;
    t.colore = colore;
    t.testo = testo;
    tratti_.push_back(t);
    x_ += LarghezzaTesto(testo);
}

void TargetRegistrato::Linea(double x1, double y1, double x2, double y2, int32_t colore) {
    Tratto t;
    t.tipo = Tratto::Tipo::Linea;
    t.x1 = x1;
    t.y1 = y1;
    t.x2 = x2;
    t.y2 = y2;
    t.colore = colore;
    tratti_.push_back(t);
}

void TargetRegistrato::Rettangolo(double x, double y, double larghezza, double altezza, int32_t colore) {
    Tratto t;
    t.tipo = Tratto::Tipo::Rettangolo;
    t.x1 = x;
    t.y1 = y;
    t.x2 = larghezza;
    t.y2 = altezza;
    t.colore = colore;
    t.pieno = true;
    tratti_.push_back(t);
}

void TargetRegistrato::Cerchio(double x, double y, double raggio, int32_t colore, bool pieno) {
    Tratto t;
    t.tipo = Tratto::Tipo::Cerchio;
    t.x1 = x;
    t.y1 = y;
    t.raggio = raggio;
    t.colore = colore;
    t.pieno = pieno;
    tratti_.push_back(t);
}

void TargetRegistrato::Immagine(const std::string& nome, double x, double y, double larghezza, double altezza) {
    Tratto t;
    t.tipo = Tratto::Tipo::Immagine;
    t.x1 = x;
    t.y1 = y;
    t.x2 = larghezza;
    t.y2 = altezza;
    t.testo = nome;
    tratti_.push_back(t);
}

void TargetRegistrato::Pulisci() {
    Tratto t;
    t.tipo = Tratto::Tipo::Pulisci;
    tratti_.push_back(t);
    x_ = 0;
    y_ = 0;
}

std::vector<Tratto> TargetRegistrato::Visibili() const {
    size_t inizio = 0;
    for (size_t k = 0; k < tratti_.size(); ++k)
        if (tratti_[k].tipo == Tratto::Tipo::Pulisci) inizio = k + 1;
    return {tratti_.begin() + static_cast<long>(inizio), tratti_.end()};
}

std::vector<std::string> TargetRegistrato::Testi() const {
    std::vector<std::string> testi;
    for (const Tratto& t : Visibili())
        if (t.tipo == Tratto::Tipo::Testo) testi.push_back(t.testo);
    return testi;
}

}  // namespace fornax::schema
