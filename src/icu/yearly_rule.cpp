#include "icu/yearly_rule.h"

#include "icu/compiled_zone.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace icu {

namespace {

/// [+-]hours[:minutes[:seconds]]
int time_in(const std::string& text) {
    int hours = 0, minutes = 0, seconds = 0;
    char separator = 0;
    std::istringstream(text) >> hours >> separator >> minutes >> separator >> seconds;
    const int rest = minutes * 60 + seconds;
    return hours * 3600 + (text[0] == '-' ? -rest : rest);
}

/// Returns the moment that these groups tell: month, week (5 is the last), weekday, time. Moves a
/// time that ICU does not take to the day that has it; ICU looks for that in the same month.
yearly_moment moment_in(const std::smatch& footer, std::size_t group) {
    static constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const auto number = [&](std::size_t i) { return std::stoi(footer[group + i]); };
    const int month = number(0) - 1, length = lengths.at(static_cast<std::size_t>(month));
    const bool until = number(1) == 5, february = month == 1;
    int seconds = footer[group + 3].matched ? time_in(footer[group + 3]) : 7200, moved = 0;
    for (; seconds < 0; seconds += 86400)
        --moved;
    for (; seconds > 86400; seconds -= 86400)
        ++moved;
    const int day = (until ? length + (february ? 1 : 0) : number(1) * 7 - 6) + moved;
    if (moved != 0 && (until ? february || day > length : day < 1 || day + 6 > length))
        throw std::runtime_error("has a footer that ICU cannot say");
    return {month, until ? -day : day, -1 - (number(2) + moved + 7) % 7, seconds};
}

/// UTC.
std::int64_t time_of(const yearly_moment& moment, int year, const local_time& before) {
    const auto month = std::chrono::year(year) / (moment.month + 1);
    const std::chrono::sys_days first = month / 1, last = month / std::chrono::last;
    auto date = std::min(first + std::chrono::days(std::abs(moment.day) - 1), last);
    const std::chrono::weekday wanted(static_cast<unsigned>(-1 - moment.weekday)), found(date);
    date += moment.day > 0 ? wanted - found : -(found - wanted);
    const std::chrono::sys_seconds midnight(date);
    return midnight.time_since_epoch().count() + moment.seconds - before.offset;
}

} // namespace

/// name offset [name [offset] "," moment "," moment]
///
/// Offsets are told west of UTC; the second is an hour less by default. A moment is "M" month "."
/// week "." weekday ["/" time], at 2 by default.
yearly_rule::yearly_rule(const std::string& footer) {
    static const std::string name = "(?:[A-Za-z]{3,}|<[A-Za-z0-9+-]{3,}>)",
                             time = "([+-]?[0-9]{1,3}(?::[0-5][0-9]){0,2})",
                             moment = ",M([1-9]|1[0-2])\\.([1-5])\\.([0-6])(?:/" + time + ")?";
    static const std::regex form(name + time + "(?:" + name + time + "?" + moment + moment + ")?");
    std::smatch found;
    if (footer.empty())
        return;
    if (footer.size() > 100 || !std::regex_match(footer, found, form))
        throw std::runtime_error("has a footer that ICU cannot say");
    standard = daylight = {-time_in(found[1]), false};
    if (!found[3].matched)
        return;
    daylight = {found[2].matched ? -time_in(found[2]) : standard.offset + 3600, true};
    to_daylight = moment_in(found, 3);
    to_standard = moment_in(found, 7);
}

std::array<transition, 2> yearly_rule::transitions(int year) const {
    std::array found{transition{time_of(to_daylight, year, standard), daylight},
                     transition{time_of(to_standard, year, daylight), standard}};
    if (found[1].time < found[0].time)
        std::swap(found[0], found[1]);
    return found;
}

} // namespace icu
