#include "core/Json.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace fornax {

namespace {

template <typename T>
std::string Breve(T v) {
    if (!std::isfinite(v)) return "null";
    char testo[64];
    const auto fine = std::to_chars(testo, testo + sizeof testo, v);
    return std::string(testo, fine.ptr);
}

}  // namespace

std::string NumeroJson(float v) { return Breve(v); }
std::string NumeroJson(double v) { return Breve(v); }

std::string TestoJson(const std::string& s) {
    std::string out = "\"";
    for (unsigned char c : s) {
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (c < 0x20) {
                    char u[8];
                    std::snprintf(u, sizeof u, "\\u%04x", c);
                    out += u;
                } else {
                    out += static_cast<char>(c);
                }
        }
    }
    return out + "\"";
}

}  // namespace fornax
