#include "dataset/orv_version.h"

#include "dataset/pattern.h"

#include <cstdint>
#include <err.h>
#include <regex>
#include <string>

namespace {

std::int32_t number_or_absent(const std::ssub_match& digits) {
    return digits.matched ? std::stoi(digits) : -1;
}

} // namespace

void orv_version::parse(const std::string& text) {
    static const dataset::pattern version_pattern(
        R"(([0-9]+)([a-z]+)(?:\.([0-9]+))?(?:\.([0-9]+))?)", dataset::pattern_syntax);
    std::smatch results;
    if (!std::regex_match(text, results, version_pattern)) {
        ::warn("Cannot parse version string %s, results.size() = %d", text.c_str(),
               static_cast<int>(results.size()));
        ::warn("Cannot parse version string %s", text.c_str());
        *this = {};
        return;
    }
    year = number_or_absent(results[1]);
    letter = results[2];
    revision = number_or_absent(results[3]);
    subrevision = number_or_absent(results[4]);
}
