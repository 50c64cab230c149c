#pragma once
// What the two file runs share: the phase in progress, the progress window, the leak-test
// record brought up to date, the picture names and the copy of the logo.

#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "reports/Relazione.h"

namespace fornax {

class Avanzamento;
class Messaggi;

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

// What a back end lays out. The run calls it in the report's fixed order; `dopoAltre` says
// that a section was written before this one, which is where the back ends part sections.
class Impaginatore {
public:
    virtual ~Impaginatore() = default;
    virtual void Inizio() {}  // after the calculation, before the first section
    virtual void Copertina(const CopertinaRelazione& c) = 0;
    // The sections, the localised losses (one or two tables), the worst path, the consumers.
    virtual void Tabelle(int fase, const std::vector<TabellaRelazione>& tabelle, bool dopoAltre) = 0;
    virtual void Computo(const ComputoRelazione& c, bool dopoAltre) = 0;
    virtual void Tenuta(const std::vector<VoceTenuta>& voci, bool dopoAltre) = 0;
    virtual void FineSezioni() {}  // after the leak test, before the schema
    virtual void Schema() = 0;
};

// A whole run on slot 1: the calculation, so that a report never shows stale results, then
// each section chosen in this order: cover, sections, localised losses, worst path,
// consumers, bill of pipes, leak test, schema. The schema stands last although its box is
// the third. Each section sets its phase and progress text before it begins.
void PercorriRelazione(Documento& d, const Archivi& a, const ReportSelection& s, Esecuzione& run, Impaginatore& w,
                       Messaggi& msg);

// The leak-test page hands its record over before the section is printed: the family is
// that of the current gas.
void AggiornaTenuta(Documento& d);

// The picture of the schema beside the report: the reference cut to 70 characters plus
// ".bmp", in the folder of `percorsoUscita`; `pulito` replaces ".", "\" and "/" by "_".
std::string FileSchema(const Documento& d, const std::string& percorsoUscita, bool pulito);

// Copies logo.bmp of the program's folder beside the report, replacing any file there.
void CopiaLogo(const Archivi& a, const std::string& percorsoUscita);

}  // namespace fornax
