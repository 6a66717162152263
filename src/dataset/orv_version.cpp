#include "dataset/orv_version.h"

#include "dataset/scan.h"

#include <cstdint>
#include <err.h>
#include <string>
#include <string_view>

namespace {

/// (?:\.([0-9]+))?
///
/// Returns the group, the digits; empty if it takes no part.
std::string_view take_dotted_number(std::string_view& text) {
    std::string_view rest = text;
    if (!dataset::take(rest, "."))
        return {};
    const auto digits = dataset::take_run(rest, '0', '9');
    if (!digits.empty())
        text = rest;
    return digits;
}

std::int32_t number_or_absent(std::string_view digits) {
    return digits.empty() ? -1 : std::stoi(std::string(digits));
}

} // namespace

/// ([0-9]+)([a-z]+)(?:\.([0-9]+))?(?:\.([0-9]+))?
void orv_version::parse(const std::string& text) {
    std::string_view rest = text;
    const auto year_digits = dataset::take_run(rest, '0', '9');
    const auto letters = dataset::take_run(rest, 'a', 'z');
    const auto revision_digits = take_dotted_number(rest);
    const auto subrevision_digits = take_dotted_number(rest);
    if (year_digits.empty() || letters.empty() || !rest.empty()) {
        ::warn("Cannot parse version string %s, results.size() = 0", text.c_str());
        ::warn("Cannot parse version string %s", text.c_str());
        *this = {};
        return;
    }
    year = number_or_absent(year_digits);
    letter = letters;
    revision = number_or_absent(revision_digits);
    subrevision = number_or_absent(subrevision_digits);
}
