#pragma once
// The record of the leak test of an installation (UNI 11137-1), one per project.
// Fields stand in the order of the project file's block.

#include <cstdint>
#include <string>

namespace fornax {

struct VerificaTenuta {
    std::string RagSociale;                  // 1 firm's name
    std::string Indirizzo;                   // 2 firm's address
    std::string Telefono;                    // 3 firm's telephone
    std::string NomeTecnico;                 // 4 technician
    std::string ProprietarioNome;            // 5 occupant
    std::string ProprietarioTel;             // 6 occupant's telephone
    std::string ComuneInstallazione;         // 7 town of the installation
    std::string Provincia;                   // 8
    std::string Cap;                         // 9
    std::string Via;                         // 10
    std::string Numero;                      // 11
    std::string Scala;                       // 12
    std::string ProprietarioNome2;           // 13 owner, if not the occupant
    std::string ComuneResidenza;             // 14 owner's town
    std::string Via2;                        // 15 owner's street
    std::string NumCiv;                      // 16 owner's house number
    std::string Presente;                    // 17 person present at the test
    int16_t FamigliaGas = 0;                 // 18 family of the gas, 0..3
    std::string CapacitaImpianto;            // 19 litres, kept as typed
    std::string CapacitaContatore;           // 20 litres, kept as typed
    std::string CapacitaTotale;              // 21 litres, kept as typed
    std::string DataEsecuzione;              // 22
    std::string OraEsecuzione;               // 23
    std::string CauseIntervento;             // 24 seven fields joined by ';'
    std::string CausaAltro;                  // 25
    int16_t AppComplessivo = 0;              // 26
    int16_t AppRisc = 0;                     // 27
    int16_t AppAcquaSan = 0;                 // 28
    int16_t AppCombinati = 0;                // 29
    int16_t AppCottura = 0;                  // 30
    int16_t AppAltroNum = 0;                 // 31
    std::string AppAltroDesc;                // 32
    int16_t MetodoProva = 0;                 // 33 1 meter, 2 pressure drop, 0 none
    std::string ContModello;                 // 34
    std::string ContCalibro;                 // 35
    std::string ContMarca;                   // 36
    std::string ContMatricola;               // 37
    std::string ContQn;                      // 38
    std::string ContPprova;                  // 39
    std::string ContDispRil;                 // 40
    std::string ContPRif;                    // 41
    std::string ContDispRif;                 // 42
    std::string CdpStrumento;                // 43
    std::string CdpMarca;                    // 44
    std::string CdpMatricola;                // 45
    std::string CdpPprova;                   // 46
    std::string CdpCdp;                      // 47
    std::string CdpPrifer;                   // 48
    std::string CdpCdpMax;                   // 49
    int16_t DispositivoIntercettazione = 0;  // 50 1 tight, 2 not tight, 0 none
    int16_t EsitoProva = 0;                  // 51 1 fit, 2 temporary, 3 unfit
    std::string Note;                        // 52
};

// The firm's defaults kept beside the record (TENIMPTECDEF.CFG).
struct DefaultTenuta {
    std::string RagSociale, Indirizzo, Telefono, NomeTecnico;
};

}  // namespace fornax
