#pragma once
// A surface without a window: it records every drawing call, in order, so that tests and the
// command line can see what the schema paints. Its text metrics follow a fixed model, the
// same on every machine: each character is 0.55 of the point size wide and a line is 1.2 of
// it high (in twips: 11 and 24 per point).

#include <cstdint>
#include <string>
#include <vector>

#include "schema/SchemaTarget.h"

namespace fornax::schema {

struct Tratto {
    enum class Tipo { Testo, Linea, Rettangolo, Cerchio, Immagine, Pulisci };
    Tipo tipo = Tipo::Linea;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // line ends; rectangle origin and extent; circle centre
    double raggio = 0;
    int32_t colore = 0;
    bool pieno = false;
    std::string testo;  // the text, or the picture's name
};

class TargetRegistrato final : public SchemaTarget {
public:
    TargetRegistrato(double larghezza, double altezza) : larghezza_(larghezza), altezza_(altezza) {}

    double Larghezza() const override { return larghezza_; }
    double Altezza() const override { return altezza_; }
    void ImpostaPenna(double x, double y) override {
        x_ = x;
        y_ = y;
    }
    double PennaX() const override { return x_; }
    double PennaY() const override { return y_; }
    void ImpostaFont(const std::string& nome, double dimensione) override {
        font_ = nome;
        punti_ = dimensione;
    }
    double LarghezzaTesto(const std::string& testo) const override;
    double AltezzaTesto(const std::string& testo) const override;
    void Testo(const std::string& testo, int32_t colore) override;
    void Linea(double x1, double y1, double x2, double y2, int32_t colore) override;
    void Rettangolo(double x, double y, double larghezza, double altezza, int32_t colore) override;
    void Cerchio(double x, double y, double raggio, int32_t colore, bool pieno) override;
    void Immagine(const std::string& nome, double x, double y, double larghezza, double altezza) override;
    void Pulisci() override;

    const std::vector<Tratto>& Tratti() const { return tratti_; }
    // What has been drawn since the last Pulisci.
    std::vector<Tratto> Visibili() const;
    // The texts drawn since the last Pulisci, in order.
    std::vector<std::string> Testi() const;
    const std::string& Font() const { return font_; }
    double Punti() const { return punti_; }
    void Svuota() { tratti_.clear(); }

private:
    double larghezza_, altezza_;
    double x_ = 0, y_ = 0;
    std::string font_ = "Arial";
    double punti_ = 7;
    std::vector<Tratto> tratti_;
};

}  // namespace fornax::schema
