#pragma once
// What the two file runs share: the phase in progress, the progress window, the leak-test
// record brought up to date, the picture names and the copy of the logo.

#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "reports/Relazione.h"

namespace fornax {

class Avanzamento;

class Esecuzione {
public:
    Esecuzione(const ReportSelection& s, Avanzamento& av);
    // A section begins: its phase (for the error line) and its progress text.
    void Inizia(int fase, const std::string& testo);
    // The bar advances after each step.
    void Avanza();
    int fase = Fase::APERTURA;

private:
    Avanzamento& av_;
    int passi_ = 0;
    int fatti_ = 0;
};

// The leak-test page hands its record over before the section is printed: the family is
// that of the current gas.
void AggiornaTenuta(Documento& d);

// The picture of the schema beside the report: the reference cut to 70 characters plus
// ".bmp", in the folder of `percorsoUscita`; `pulito` replaces ".", "\" and "/" by "_".
std::string FileSchema(const Documento& d, const std::string& percorsoUscita, bool pulito);

// Copies logo.bmp of the program's folder beside the report, replacing any file there.
void CopiaLogo(const Archivi& a, const std::string& percorsoUscita);

// The folder part of a path ("" for a bare name) and the name part.
std::string Cartella(const std::string& percorso);
std::string NomeFile(const std::string& percorso);

}  // namespace fornax
