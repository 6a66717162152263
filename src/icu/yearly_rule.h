#pragma once

#include "icu/compiled_zone.h"

#include <array>
#include <string>

namespace icu {

/// The first such weekday of a month from a day on, or the last one until it, as ICU tells them.
struct yearly_moment {
    int month;   ///< from 0
    int day;     ///< negative for "until"; 29 February is the month's last day
    int weekday; ///< from -1, Sunday, to -7
    int seconds; ///< 0 to 86400, in the local time until then
};

/// What goes on after a zone's last transition.
struct yearly_rule {
    local_time standard{}, daylight{};
    yearly_moment to_daylight{}, to_standard{}; ///< unused if both offsets are equal

    /// Parses a footer, such as "EST5EDT,M3.2.0,M11.1.0". Throws std::runtime_error for one that
    /// ICU cannot say, or that is malformed.
    explicit yearly_rule(const std::string& footer);

    /// Returns a year's transitions, in order.
    std::array<transition, 2> transitions(int year) const;
};

} // namespace icu
