#pragma once
// The output file of a report, written line by line as the report goes: Windows-1252 text
// with CR LF line ends. A run that fails leaves the file as far as it was written.

#include <cstdio>
#include <string>
#include <string_view>

namespace fornax {

class FileRelazione {
public:
    FileRelazione() = default;
    ~FileRelazione();
    FileRelazione(const FileRelazione&) = delete;
    FileRelazione& operator=(const FileRelazione&) = delete;

    // Creates the file, replacing any file of that name. Throws ErroreEsecuzione on failure.
    void Apri(const std::string& percorso);
    // One line: the text (UTF-8 in memory) and CR LF.
    void Riga(std::string_view testo = {});
    // Text that does not end the line.
    void Testo(std::string_view testo);
    // Closes the file; a failure to write what was left is an error of the run.
    void Chiudi();
    bool Aperto() const { return f_ != nullptr; }

private:
    void Scrivi(std::string_view byte);
    std::FILE* f_ = nullptr;
};

}  // namespace fornax
