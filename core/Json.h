#pragma once
// The pieces of the JSON that fornax-cli writes (results, schema layout, leak-test record).

#include <string>

namespace fornax {

// A number as JSON: the shortest text of its own width; null when not finite.
std::string NumeroJson(float v);
std::string NumeroJson(double v);
// A string as JSON, quoted and escaped.
std::string TestoJson(const std::string& s);

}  // namespace fornax
