#pragma once
// What every harness shares: a working folder of its own in memory (/dev/shm where there is one,
// so that the safe writer's flushes cost nothing), files written there as they are, and the
// delivered archives copied there once.
#include <unistd.h>

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
    const fs::path p = base / ("fornax-fuzz-" + nome + "-" + std::to_string(::getpid()));
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
    if (!f) std::abort();  // the harness's own folder must be writable
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

// A fault the sanitizers can't see (a round trip that changes the document): reported as a crash.
[[noreturn]] inline void Guasto(const char* cosa) {
    std::fprintf(stderr, "GUASTO: %s\n", cosa);
    std::abort();
}

}  // namespace fornax::fuzz
