#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace icu {

struct local_time {
    int offset;    ///< seconds to add to UTC
    bool daylight; ///< whether it is called daylight-saving time
};

struct transition {
    std::int64_t time; ///< UTC, in seconds since 1970
    local_time to;
};

/// Before any transition: a year that <chrono> can tell.
inline constexpr std::int64_t beginning = -(INT64_C(1) << 39);

struct compiled_zone {
    std::vector<transition> times; ///< in order; the first one at the beginning
    std::string footer;            ///< the rule from the last one on, or empty
};

/// Parses a file of RFC 9636, version 2 or later, as zic writes it. Throws std::runtime_error with
/// the reason for any other, and for zones that count leap seconds.
compiled_zone parse_compiled_zone(std::string_view file);

} // namespace icu
