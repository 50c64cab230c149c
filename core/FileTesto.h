#pragma once
// Line readers and the tab splitter shared by the project file and every archive.

#include <string>
#include <string_view>
#include <vector>

namespace fornax {

class Messaggi;

// A text file read whole into memory, as UTF-8 lines. Accepts CR LF or LF line ends;
// a last line without a line end is read whole.
class FileTesto {
public:
    // Reads the file; false when it can't be opened (the object is then empty).
    bool Apri(const std::string& percorso);
    // Reads from a buffer of Windows-1252 bytes (tests, fuzzing).
    void ApriDaTesto(std::string_view contenuto);

    bool Fine() const { return pos_ >= righe_.size(); }
    // Where the next line will be read from, and back there: a reader that scans for an
    // optional block returns to where it started when the block isn't there.
    size_t Posizione() const { return pos_; }
    void Riposiziona(size_t posizione) { pos_ = posizione < righe_.size() ? posizione : righe_.size(); }
    // The next physical line, unchanged; "" at the end of the file.
    std::string RigaFisica();

    // Lines until one is neither empty after trimming nor begins with '#'; every ',' becomes '.'.
    // "" when the end of the file comes first.
    std::string LeggiRiga();
    // Lines until one does not begin with '#'; an empty line is returned; ',' becomes '.'.
    std::string LeggiRigaVuota();
    // As LeggiRigaVuota, but the line comes back unchanged.
    std::string LeggiRigaGrezza();

private:
    std::vector<std::string> righe_;
    size_t pos_ = 0;
};

// Splits a line at tabs: a run of tabs is one separator, leading tabs give no field,
// every ',' becomes '.'. Returns the index of the last field (the count less one);
// an empty line gives 0 with one empty field.
int SeparaCampi(std::string_view riga, std::vector<std::string>& campi);

// Texts written where the readers above read them back. A reader skips a line that begins
// with '#' and splits at tabs and line ends, so a text written as it stands could read back as
// a comment, or as several fields or lines, and every line after it would shift.
// A text that is a line of its own: line breaks become blanks.
std::string UnaRiga(std::string_view testo);
// A text that is a line of its own in a file that has comments: as UnaRiga, and one that
// begins with '#' gets a blank before it.
std::string RigaNonCommento(std::string_view testo);
// A line of text read where blank lines are passed over too (LeggiRiga): as RigaNonCommento,
// and one that would be blank is written as ".".
std::string RigaDiLeggiRiga(std::string_view testo);
// A text between tabs: tabs and line feeds become blanks (a carriage return alone inside a line
// reads back as it is).
std::string CampoDiRiga(std::string_view testo);
// The first field of a line: as CampoDiRiga; one that begins with '#' is written after a tab,
// which the splitter passes over, so that it reads back unchanged; an empty one (a line can hold
// no empty field: the next would take its place) is written as "-".
std::string PrimoCampo(std::string_view testo);

// A process-wide file size limit (ulimit -f, a quota) sends SIGXFSZ to a write that crosses it,
// and by default that signal ends the program with the user's work. Both programs call this at
// start (and every safe write does), so the write fails with EFBIG and the user is told. A
// handler the program installed itself is left in place.
void IgnoraLimiteDimensione();

// Writes `byte` as the whole content of `percorso`, never leaving a half-written file: the
// bytes go to a file with no name in the target's folder (or, where the file system can't make
// one, to `percorso` + ".fornax-tmp"), are flushed to the disk, and only then take the target's
// name in one step. Returns 0 when written, else the system's error number of the failure; the
// previous file is then byte for byte as it was and nothing is left beside it. A file size limit
// of the process (SIGXFSZ) makes the write fail with EFBIG instead of ending the program.
int ScriviFileSicuro(const std::string& percorso, std::string_view byte);

// The Italian message the user sees when a write of `percorso` failed with `errore`.
std::string MessaggioScritturaFallita(const std::string& percorso, int errore);

// A text file built in memory and written in Windows-1252 with CR LF line ends through
// ScriviFileSicuro: a failure never destroys the previous file.
class ScrittoreTesto {
public:
    void Riga(std::string_view testo = {});                  // one line, CR LF added
    const std::string& Contenuto() const { return testo_; }  // UTF-8, "\r\n" line ends
    std::string Byte() const;                                // what the file holds: Windows-1252
    // Writes the file; false on any failure, with the previous file left untouched.
    bool Salva(const std::string& percorso) const { return SalvaConErrore(percorso) == 0; }
    // As Salva, with the system's error number of the failure (0 when written).
    int SalvaConErrore(const std::string& percorso) const;
    // As Salva; on failure tells the user, in Italian, why the file was not written and that the
    // previous one is untouched.
    bool SalvaOAvvisa(const std::string& percorso, Messaggi& msg) const;

private:
    std::string testo_;
};

}  // namespace fornax
