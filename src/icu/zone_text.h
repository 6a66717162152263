#pragma once

#include <map>
#include <string>
#include <string_view>

namespace icu {

using texts = std::map<std::string, std::string>;

/// Throws std::runtime_error with the reason, unless that is fulfilled.
void require(bool fulfilled, const std::string& reason);

/// Returns what ICU's text has in the table of a compiled zone, a file of RFC 9636 as zic writes
/// it. Adds its rule's text to `rules`, with the next number, unless it is there. Throws
/// std::runtime_error with the reason if the file is no zone, or one that ICU cannot say.
std::string zone_text(std::string_view file, texts& rules);

} // namespace icu
