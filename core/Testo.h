#pragma once
// Text helpers shared by every file reader and writer.
//
// In memory every text is UTF-8. Files on disk are Windows-1252 with CR LF line ends,
// because projects and archives travel to and from the users' Windows machines.

#include <string>
#include <string_view>
#include <vector>

namespace fornax {

// Removes leading and trailing blanks (spaces only: a tab is data in our files).
std::string Trim(std::string_view s);
// The same, as a view into `s` (no copy).
std::string_view SenzaSpazi(std::string_view s);

// Upper case for names compared without regard to case (ASCII letters and the
// accented Latin letters of Windows-1252, in UTF-8).
std::string Maiuscolo(std::string_view s);

// Every ',' becomes '.': files may carry the decimal comma of the user's regional setting.
std::string VirgolePunti(std::string_view s);

// Windows-1252 bytes -> UTF-8, and back. Characters with no Windows-1252 code become '?'.
std::string Cp1252AUtf8(std::string_view s);
std::string Utf8ACp1252(std::string_view s);

// True when a and b are equal without regard to case.
bool UgualiSenzaMaiuscole(std::string_view a, std::string_view b);

// The 1-based position of `nome` in `nomi`, both trimmed and compared without regard to case;
// 0 when it is not there or is empty. This is how a name typed or stored by a user (a default
// material, a project's material) finds its archive entry.
int PosizioneNome(const std::vector<std::string>& nomi, std::string_view nome);

}  // namespace fornax
