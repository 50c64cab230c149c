#pragma once
// What every harness shares: a working folder of its own in memory (/dev/shm where there is one,
// so that the safe writer's flushes cost nothing), files written there as they are, and the
// delivered archives copied there once.
#include <signal.h>
#include <unistd.h>

#include <cerrno>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace fornax::fuzz {

inline std::string CartellaLavoro(const std::string& nome) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path base = fs::is_directory("/dev/shm", ec) ? fs::path("/dev/shm") : fs::temp_directory_path();
    const std::string prefisso = "fornax-fuzz-" + nome + "-";
    // A harness stopped by a fault leaves its folder (exit handlers don't run): the folders of
    // harnesses no longer running go.
    for (fs::directory_iterator it(base, ec), fine; !ec && it != fine; it.increment(ec)) {
        const std::string n = it->path().filename().string();
        if (n.rfind(prefisso, 0) != 0) continue;
        const long pid = std::strtol(n.c_str() + prefisso.size(), nullptr, 10);
        std::error_code ec2;
        if (pid > 0 && ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) fs::remove_all(it->path(), ec2);
    }
    const fs::path p = base / (prefisso + std::to_string(::getpid()));
    fs::remove_all(p, ec);
    fs::create_directories(p);
    // The folder goes when the harness ends, however many inputs it ran.
    static std::string daRimuovere;
    daRimuovere = p.string();
    std::atexit([] {
        std::error_code e;
        std::filesystem::remove_all(daRimuovere, e);
    });
    return p.string();
}

inline void ScriviFile(const std::string& percorso, std::string_view byte) {
    std::FILE* f = std::fopen(percorso.c_str(), "wb");
    if (!f) {
        std::fprintf(stderr, "the harness's own folder is not writable: %s\n", percorso.c_str());
        std::abort();
    }
    if (!byte.empty()) std::fwrite(byte.data(), 1, byte.size(), f);
    std::fclose(f);
}

inline std::string LeggiFile(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The delivered archives (and the column file of the build) into `cartella`.
inline void CopiaArchivi(const std::string& cartella) {
    namespace fs = std::filesystem;
    for (const char* origine : {FORNAX_SOURCE_DIR "/data", FORNAX_BUILD_DATA_DIR}) {
        std::error_code ec;
        for (fs::directory_iterator it(origine, ec), fine; !ec && it != fine; it.increment(ec))
            if (it->is_regular_file())
                fs::copy_file(it->path(), fs::path(cartella) / it->path().filename(),
                              fs::copy_options::overwrite_existing, ec);
    }
}

// A fault the sanitizers can't see (a round trip that changes the document, links that
// disagree): reported as a crash, so that libFuzzer keeps the input.
inline void Guasto(const char* cosa) {
    std::fprintf(stderr, "GUASTO: %s\n", cosa);
    std::abort();
}

// A round trip that changed the file: the first line that differs, then a crash.
inline void GuastoRiletto(const char* cosa, const std::string& prima, const std::string& dopo) {
    size_t inizio = 0;
    while (inizio < prima.size() && inizio < dopo.size() && prima[inizio] == dopo[inizio]) ++inizio;
    inizio = prima.rfind('\n', inizio) == std::string::npos ? 0 : prima.rfind('\n', inizio) + 1;
    const auto riga = [&](const std::string& t) { return t.substr(inizio, t.find('\n', inizio) - inizio); };
    std::fprintf(stderr, "written:   [%s]\nread back: [%s]\n", riga(prima).c_str(), riga(dopo).c_str());
    // FORNAX_FUZZ_TRACCIA=1: both files, whole, beside the input (to read a fault found).
    if (std::getenv("FORNAX_FUZZ_TRACCIA")) {
        ScriviFile("guasto-scritto", prima);
        ScriviFile("guasto-riletto", dopo);
        std::fprintf(stderr, "both files written to guasto-scritto and guasto-riletto\n");
    }
    Guasto(cosa);
}

}  // namespace fornax::fuzz
