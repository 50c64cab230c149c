#pragma once
// Bringing the technical archives and the projects of another folder over, as a user does when
// he installs Fornax afresh or moves to another machine. Archives are copied file by file with
// an overwrite question; the gas archive is merged instead, so that the gases of both folders
// survive. Projects go into the "Archivio Lavori" folder of the work directory.
//
// The questions are asked through DomandeCopia and the notes through Messaggi, so that the
// desktop, fornax-cli and the tests run the same rules.

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace fornax {

class Messaggi;

// The archives copied, in this order. "PDCMAX.CFG" is copied under that name alone: the limits
// of the two norm editions (PDCMAX_1992.CFG, PDCMAX_2008.CFG) stay where they are.
inline constexpr std::array<const char*, 10> ARCHIVI_DA_COPIARE = {
    "ACCIAIOL.MAT", "ACCIAIOM.MAT", "ACCIAIOP.MAT",  "PE4437.MAT", "RAME-B.MAT",
    "EQLEN.CFG",    "GAS.CFG",      "PARFAMGAS.CFG", "PDCMAX.CFG", "TENIMPTECDEF.CFG",
};

// Answers of the overwrite question (frmCopyArchievesMessage).
namespace RispostaCopia {
constexpr int16_t No = 0;        // cmdNo: this file is left as it is
constexpr int16_t Si = 1;        // cmdOK: replaced (the gas archive: merged)
constexpr int16_t SiTutti = 2;   // cmdAllOK "Si Tutti": this one and every later one, unasked
constexpr int16_t Rinomina = 3;  // cmdRename: copied under a new name
constexpr int16_t Annulla = 4;   // cmdCancel: the whole copy stops
}  // namespace RispostaCopia

// The questions of a copy run.
class DomandeCopia {
public:
    virtual ~DomandeCopia() = default;
    // The overwrite question, "Attenzione"; returns a RispostaCopia.
    virtual int16_t Sovrascrivere(const std::string& domanda) = 0;
    // The new name of the copy (frmRenameFile), without its extension; "" when the user gives up.
    virtual std::string NuovoNome(const std::string& nomeAttuale) = 0;
};

// Answers given in order, for tests; questions asked are kept. With no answer left the
// overwrite question gets Annulla and the new name is "".
class DomandeCopiaRegistrate final : public DomandeCopia {
public:
    std::deque<int16_t> risposte;
    std::deque<std::string> nomi;
    std::vector<std::string> domande;     // overwrite questions, in order
    std::vector<std::string> rinominati;  // names offered for a rename, in order

    int16_t Sovrascrivere(const std::string& domanda) override;
    std::string NuovoNome(const std::string& nomeAttuale) override;
};

enum class EsitoCopia {
    Completata,  // every file was seen (some may have been left or missing)
    Annullata,   // the user answered Annulla
    Errore,      // a file could not be read or written: logged beside the program
};

// A file that could not be read or written: the system's error number and what went wrong,
// in Italian, with the file's path.
struct ErroreFile {
    int numero = 0;
    std::string descrizione;
};

// What a run did, file by file, for the caller's summary.
struct RiepilogoCopia {
    EsitoCopia esito = EsitoCopia::Completata;
    std::vector<std::string> copiati;   // names written in the destination (a rename: the new one)
    std::vector<std::string> uniti;     // the gas archive merged
    std::vector<std::string> lasciati;  // present in both, answered No (or the rename given up)
    std::vector<std::string> mancanti;  // not in the source folder
    ErroreFile errore;                  // what was logged when esito is Errore
};

// The error messages shown and the logs written beside the program.
constexpr const char* LOG_COPIA_ARCHIVI = "copyArchievesLogFile.txt";
constexpr const char* LOG_COPIA_PROGETTI = "copyProjectsLogFile.txt";

// The checks of the "Copia" button of "Copia Archivi": "" when both folders are given, exist and
// are not one and the same, else the message to show.
std::string ControllaCartelleArchivi(const std::string& da, const std::string& a);
// The checks of "Copia File di Progetto", whose destination depends on the work directory.
std::string ControllaCartellaProgetti(const std::string& da, const std::string& cartellaLavoro);

// Copies the ten archives of `da` into `a`, merging the gas archive. Errors are logged in
// `cartellaProgramma` (copyArchievesLogFile.txt).
RiepilogoCopia CopiaArchivi(const std::string& da, const std::string& a, const std::string& cartellaProgramma,
                            Messaggi& msg, DomandeCopia& domande);

// Merges the gases of da/GAS.CFG into a/GAS.CFG: each gas line of the destination whose name a
// gas of the source has is marked with a leading "$$", then the source's lines are appended as
// they stand. False, with `errore` filled, when a file can't be read or written; the
// destination is then left as it was.
bool UnisciGas(const std::string& da, const std::string& a, ErroreFile& errore);

// Where the projects go: the folder "Archivio Lavori" of the work directory (the work
// directory itself when it already is that folder, as it is by default).
std::string CartellaArchivioLavori(const std::string& cartellaLavoro);

// Copies every .RTG file of `da` into CartellaArchivioLavori(cartellaLavoro), made when
// missing. Errors are logged in `cartellaProgramma` (copyProjectsLogFile.txt).
RiepilogoCopia CopiaProgetti(const std::string& da, const std::string& cartellaLavoro,
                             const std::string& cartellaProgramma, Messaggi& msg, DomandeCopia& domande);

// A name the rename dialog accepts: not empty, no folder separator nor a character Windows
// refuses in a file name, not "." or "..". "" when valid, else the message.
std::string ControllaNomeFile(const std::string& nome);

}  // namespace fornax
