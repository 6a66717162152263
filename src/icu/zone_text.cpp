#include "icu/zone_text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace icu {

void require(bool fulfilled, const std::string& reason) {
    if (!fulfilled)
        throw std::runtime_error(reason);
}

namespace {

using std::chrono::sys_days, std::chrono::sys_seconds;

constexpr auto beginning = -(INT64_C(1) << 39); // no zone's; in a year that <chrono> can tell

std::string_view take(std::string_view& bytes, std::uint64_t count) {
    require(count <= bytes.size(), "ends too early");
    const auto taken = bytes.substr(0, static_cast<std::size_t>(count));
    bytes.remove_prefix(taken.size());
    return taken;
}

/// Big-endian.
template <typename Number>
Number take_number(std::string_view& bytes) {
    std::uint64_t value = 0;
    for (const char byte : take(bytes, sizeof(Number)))
        value = value << 8 | static_cast<unsigned char>(byte);
    return static_cast<Number>(value);
}

/// "TZif" version:1 reserved:15 count:4... time... type:1... (utoff:4 isdst:1 desigidx:1)... rest
std::array<std::string_view, 3> take_block(std::string_view& file, unsigned size_of_time) {
    require(take(file, 4) == "TZif", "is no compiled zone");
    require(take(file, 1) >= "2", "has a format older than version 2");
    take(file, 15);
    const auto count = [&] { return std::uint64_t{take_number<std::uint32_t>(file)}; };
    const auto ut_flags = count(), standard_flags = count(), leaps = count(), times = count(),
               types = count(), characters = count();
    require(leaps == 0, "counts leap seconds");
    const std::array found{take(file, times * size_of_time), take(file, times),
                           take(file, types * 6)};
    take(file, characters + standard_flags + ut_flags);
    return found;
}

struct transition {
    std::int64_t time; ///< UTC, in seconds since 1970
    int offset;        ///< from then on, in seconds to add to UTC
    bool daylight;     ///< whether that is called daylight-saving time
};

/// Takes all but the footer: block block64 "\n". Returns the transitions in order, the first one
/// before any time of a zone's. The first block is for programs whose time has 32 bits.
std::vector<transition> take_transitions(std::string_view& file) {
    take_block(file, 4);
    auto [times, indexes, locals] = take_block(file, 8);
    require(take(file, 1) == "\n", "has no footer where its counts end");
    std::vector<transition> types;
    while (!locals.empty()) {
        const auto offset = take_number<std::int32_t>(locals);
        require(-25 * 3600 < offset && offset < 26 * 3600, "has an offset of more than a day");
        types.push_back({beginning, offset, take_number<std::uint16_t>(locals) >= 0x100});
    }
    require(!types.empty(), "has no local time");
    std::vector<transition> all{types[0]};
    while (!times.empty()) {
        const auto time = take_number<std::int64_t>(times);
        const auto type = take_number<std::uint8_t>(indexes);
        require(all.back().time < time && time < -beginning && type < types.size(),
                "has a transition too early, too late or to no local time");
        all.push_back({time, types[type].offset, types[type].daylight});
    }
    return all;
}

/// A transition of every year, as footers tell it.
struct yearly {
    int month, week, weekday; ///< from 1; 5 is the last; from 0, Sunday
    int seconds;              ///< of the local time until then, -167 to 167 hours
    int before, after;        ///< offsets
    bool daylight;            ///< afterwards
};

constexpr const char* unspeakable = "has a footer that ICU cannot say";

std::int64_t time_of(const yearly& each, int year) {
    const auto month = std::chrono::year(year) / each.month;
    const std::chrono::weekday day(static_cast<unsigned>(each.weekday));
    const sys_days first = month / day[1], last = month / day[std::chrono::last];
    const sys_seconds midnight = std::min(first + std::chrono::weeks(each.week - 1), last);
    return midnight.time_since_epoch().count() + each.seconds - each.before;
}

/// [name offset [name [offset] "," moment "," moment]]
/// Offsets are told west of UTC; the second is an hour less by default. A moment is "M" month "."
/// week "." weekday ["/" time], at 2 by default. Daylight saving all year, which zic tells by
/// moments of another form, needs no rule.
std::vector<yearly> parse_rule(const std::string& footer) {
    static const std::string name = "(?:[A-Za-z]{3,}|<[A-Za-z0-9+-]{3,}>)",
                             time = "(?:([+-]?)([0-9]{1,3})(?::([0-5][0-9])(?::([0-5][0-9]))?)?)",
                             moment = ",M([1-9]|1[0-2])\\.([1-5])\\.([0-6])(?:/" + time + ")?",
                             period = "(?:" + moment + moment + "|,0/0,J365/" + time + ")";
    static const std::regex form("(?:" + name + time + "(?:" + name + time + "?" + period + ")?)?");
    std::smatch found;
    require(footer.size() <= 100 && std::regex_match(footer, found, form), unspeakable);
    const auto number = [&](std::size_t group) { return std::stoi('0' + found.str(group)); };
    const auto time_in = [&](std::size_t group, int by_default) { // sign hours minutes seconds
        const int told = number(group + 1) * 3600 + number(group + 2) * 60 + number(group + 3);
        const int sign = found.str(group) == "-" ? -1 : 1;
        return found[group].matched ? sign * told : by_default;
    };
    const int standard = -time_in(1, 0), daylight = -time_in(5, -standard - 3600);
    if (!found[9].matched || standard == daylight)
        return {};
    std::vector<yearly> rule{
        {number(9), number(10), number(11), time_in(12, 7200), standard, daylight, true},
        {number(16), number(17), number(18), time_in(19, 7200), daylight, standard, false}};
    std::ranges::sort(rule, {}, [](const auto& each) { return time_of(each, 2000); });
    return rule;
}

int year_of(std::int64_t time) {
    const sys_days day(std::chrono::floor<std::chrono::days>(std::chrono::seconds(time)));
    return static_cast<int>(std::chrono::year_month_day(day).year());
}

/// Lets the rule go on from the last transition, which it may correct, as in the C library. Two
/// years suffice: from the next year on, ICU asks the rule.
void extend(std::vector<transition>& all, const std::vector<yearly>& rule) {
    const auto last = all.back().time;
    for (int year = year_of(last) - 2; year <= year_of(last) + 2; ++year)
        for (const auto& each : rule) {
            const auto time = time_of(each, year);
            if (time <= last)
                all.pop_back();
            all.push_back({std::max(time, last), each.after, each.daylight});
        }
}

/// Guesses what is saved in a period, as the file tells only the sum of it and the standard offset:
/// what it has more than the nearest one of standard time, if that is at most two hours. ICU knows
/// no negative saving: where winters have one, they are standard, and the summers between save.
int saving(const std::vector<transition>& all, std::size_t period) {
    const auto& told = all[period];
    const auto above = [&](std::size_t step) {           // what is nearest of the other kind
        for (auto i = period; i < all.size(); i += step) // below 0 is beyond the end
            if (all[i].daylight != told.daylight)
                return told.offset - all[i].offset;
        return told.daylight ? 3600 : 0;
    };
    const auto [low, high] = std::minmax({above(SIZE_MAX), above(1)});
    if (!told.daylight || high < 0)
        return std::max(0, low);
    const int saved = low > 0 && high != 3600 ? low : high;
    return 0 < saved && saved <= 7200 ? saved : 3600;
}

std::string list(const std::vector<std::int64_t>& numbers) {
    std::string text;
    for (const auto number : numbers)
        text += std::to_string(number) + ", ";
    return text;
}

/// month day weekday seconds 0: the first such weekday from a day on, or the last one until it if
/// the day is negative. Months count from 0, weekdays from -1 down, and the time is local.
///
/// Moves a time that ICU does not take to the day that has it; ICU looks for that in the month.
std::string moment_text(const yearly& each) {
    static constexpr int lengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int length = lengths[each.month - 1], time = each.seconds,
              moved = time < 0 ? (time + 1) / 86400 - 1 : (time - 1) / 86400,
              first = (each.week == 5 ? length - 6 : each.week * 7 - 6) + moved;
    require(moved == 0 || (0 < first && first + 6 <= length && each.month != 2), unspeakable);
    return list({each.month - 1, each.week == 5 ? -first - 6 : first,
                 -1 - (each.weekday + moved + 7) % 7, time - moved * 86400, 0});
}

/// finalRule { "R0" } finalRaw:int { standard offset } finalYear:int { the rule's first year }
/// R0:intvector { moment, its end, seconds saved }
std::string final_rule(const std::vector<yearly>& rule, int year, texts& rules) {
    const auto [end, start] = std::ranges::minmax(rule, {}, &yearly::after);
    const auto told = moment_text(start) + moment_text(end) + list({start.after - start.before});
    const auto number = rules.emplace(told, std::to_string(rules.size())).first->second;
    return "finalRule { \"R" + number + "\" }\nfinalRaw:int { " + std::to_string(start.before) +
           " }\nfinalYear:int { " + std::to_string(year) + " }\n";
}

} // namespace

/// typeOffsets:intvector { standard offset, saving, ... }: pairs, the first one until a transition
/// transPre32, trans, transPost32:intvector { UTC, ... }: trans in 32 bits; what is before and
/// after these in 64, the high half first
/// typeMap:bin { "02..." }: the number of the pair from each transition on
std::string zone_text(std::string_view file, texts& rules) {
    auto all = take_transitions(file);
    const auto rule = parse_rule(std::string(take(file, file.find('\n'))));
    const int end = year_of(rule.empty() ? -beginning : all.back().time) + 1;
    extend(all, rule);
    std::string pairs, map, trans[3]; // before, within and after 32 bits
    std::map<std::string, std::size_t> numbers;
    for (std::size_t i = 0, last = 0; i < all.size() && year_of(all[i].time) < end; ++i) {
        require(i <= 10000 && numbers.size() < 256, "has more transitions than ICU takes");
        const auto [time, offset, daylight] = all[i];
        const int saved = saving(all, i);
        const auto pair = list({offset - saved, saved});
        const auto [number, is_new] = numbers.emplace(pair, numbers.size());
        pairs += is_new ? pair : "";
        if (number->second == last) // the first, or only the abbreviation changes
            continue;
        last = number->second;
        map += {"0123456789abcdef"[last / 16], "0123456789abcdef"[last % 16]};
        const auto kind = (time < INT32_MIN ? 0U : 1U) + (time > INT32_MAX ? 1U : 0U);
        trans[kind] += kind == 1 ? list({time}) : list({time >> 32, time & UINT32_MAX});
    }
    return (rule.empty() ? "" : final_rule(rule, end, rules)) + "typeMap:bin { \"" + map +
           "\" }\ntypeOffsets:intvector { " + pairs + "}\ntransPre32:intvector { " + trans[0] +
           "}\ntrans:intvector { " + trans[1] + "}\ntransPost32:intvector { " + trans[2] + "}\n";
}

} // namespace icu
