#pragma once
// Pipe-material archive: one .mat file per material in the program's folder.

#include <string>

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;
class Avanzamento;

void CaricaMateriali(Archivi& a, Avanzamento& av, Messaggi& msg);
bool CaricaMateriale(Archivi& a, int indice, const std::string& nome);
bool SalvaMateriale(const Archivi& a, int indice, Messaggi& msg);
void CalcolaDerivati(Archivi& a);
// Weight per metre and section of one row from its outer and inner diameters.
void DerivaRiga(RigaDiametro& riga, float pesoSpecifico);
int IndiceMateriale(const Archivi& a, const std::string& nome);  // exact after trimming
int IndiceRiga(const Archivi& a, int materiale, const std::string& dn);
float DiametroInterno(const Archivi& a, int materiale, const std::string& dn);
bool NomeValido(const std::string& nome);
std::string NomeDaPercorso(const std::string& percorso);

// The substitution list of unknown names (kind 1 materials, 2 gases): asks once per name and
// session through Messaggi::ScegliSostituto; 0 for an empty name or no answer.
// The list belongs to the document (Documento::Equiv); the names offered come from the archives.
int Substitute(Sostituzioni& e, const Archivi& a, const std::string& nome, int tipo, Messaggi& msg);
int SearchEquiv(const Sostituzioni& e, const std::string& nome, int tipo);
void AddEquiv(Sostituzioni& e, const std::string& nome, int tipo, int indice);
void Reset(Sostituzioni& e);

}  // namespace fornax
