#pragma once

#include "icu/compiled_zone.h"

#include <map>
#include <string>

namespace icu {

/// What R0, R1 and so on are: the number of each rule, by its text.
using rule_numbers = std::map<std::string, std::string>;

/// Returns what ICU's text has in a zone's table, and adds the zone's rule to the others. Throws
/// std::runtime_error with the reason for a zone that ICU cannot say.
std::string zone_text(compiled_zone zone, rule_numbers& rules);

} // namespace icu
