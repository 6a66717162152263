#include "icu/zone_text.h"

#include "icu/compiled_zone.h"
#include "icu/yearly_rule.h"

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace icu {

namespace {

using numbers = std::vector<std::int64_t>;

int year_of(std::int64_t time) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(time)};
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    return static_cast<int>(std::chrono::year_month_day(day).year());
}

/// Lets the rule go on from the last transition, which it may correct, as in the C library. Two
/// years suffice: from the next year on, ICU asks the rule.
void extend(std::vector<transition>& all, const yearly_rule& rule) {
    const auto last = all.back().time;
    for (int year = year_of(last) - 2; year <= year_of(last) + 2; ++year)
        for (const auto& found : rule.transitions(year))
            if (found.time <= last)
                all.back().to = found.to;
            else
                all.push_back(found);
}

/// Guesses what is saved in a period, as the file tells only the sum of it and the standard offset:
/// an hour, if that gives the standard offset before or after, or else at most two. ICU knows no
/// negative saving: where the winters have one, they are standard, and the summers between save.
int saving(const std::vector<transition>& all, std::size_t period) {
    const auto saved_to = [&all](std::size_t from, std::size_t step) {
        for (auto i = from; i < all.size(); i += step) // below 0 is beyond the end
            if (!all[i].to.daylight)
                return all[from].to.offset - all[i].to.offset;
        return 3600;
    };
    const auto since = [&](std::size_t i) { return saved_to(i, SIZE_MAX); };
    const auto until = [&](std::size_t i) { return saved_to(i, 1); };
    const auto negative = [&](std::size_t i) { return std::max(since(i), until(i)) < 0; };
    if (!all[period].to.daylight && negative(period - 1) && negative(period + 1))
        return all[period].to.offset - all[period + 1].to.offset;
    if (!all[period].to.daylight || negative(period))
        return 0;
    for (const int saved : {until(period) == 3600 ? 3600 : since(period), until(period)})
        if (0 < saved && saved <= 7200)
            return saved;
    return 3600;
}

/// name:intvector { number, ... }, or nothing without numbers
std::string entry(const std::string& name, const numbers& values) {
    std::string text;
    for (const auto value : values)
        text += (text.empty() ? "" : ", ") + std::to_string(value);
    return text.empty() ? "" : name + " { " + text + " }\n";
}

/// finalRule { "R0" } finalRaw:int { standard offset } finalYear:int { the rule's first year }
///
/// R0:intvector { moment, 0 for local time, its end, 0, seconds saved }
std::string final_rule(const yearly_rule& rule, int year, rule_numbers& rules) {
    auto start = rule.to_daylight, end = rule.to_standard;
    if (rule.daylight.offset < rule.standard.offset)
        std::swap(start, end);
    const int saved = std::abs(rule.daylight.offset - rule.standard.offset);
    const auto told = entry(":intvector", {start.month, start.day, start.weekday, start.seconds, 0,
                                           end.month, end.day, end.weekday, end.seconds, 0, saved});
    const auto number = rules.emplace(told, std::to_string(rules.size())).first->second;
    return "finalRule { \"R" + number + "\" }\n" +
           entry("finalRaw:int", {std::min(rule.standard.offset, rule.daylight.offset)}) +
           entry("finalYear:int", {year});
}

} // namespace

/// typeOffsets:intvector { standard offset, saving, ... }: pairs, the first one until a transition
/// transPre32, trans, transPost32:intvector { UTC, ... }: trans in 32 bits; what is before and
/// after
///     these in 64, the high half first
/// typeMap:bin { "02..." }: the number of the pair from each transition on
std::string zone_text(compiled_zone zone, rule_numbers& rules) {
    auto& all = zone.times;
    const yearly_rule rule(zone.footer);
    std::string text, map;
    int end = INT_MAX;
    if (rule.standard.offset != rule.daylight.offset) {
        end = year_of(all.back().time) + 1;
        extend(all, rule);
        text = final_rule(rule, end, rules);
    }
    numbers pairs, early, usual, late;
    for (std::size_t i = 0, last = 0; i < all.size() && year_of(all[i].time) < end; ++i) {
        if (i > 10000 || pairs.size() > 510)
            throw std::runtime_error("has more transitions than ICU takes");
        const int saved = saving(all, i);
        const numbers split{all[i].to.offset - saved, saved};
        std::size_t pair = 0;
        while (pair < pairs.size() && !std::equal(split.begin(), split.end(), &pairs[pair]))
            pair += 2;
        if (pair == pairs.size())
            pairs.insert(pairs.end(), split.begin(), split.end());
        if (pair == std::exchange(last, pair)) // the first, or only the abbreviation changes
            continue;
        map += "0123456789abcdef"[pair / 32 % 16];
        map += "0123456789abcdef"[pair / 2 % 16];
        if (all[i].time == static_cast<std::int32_t>(all[i].time))
            usual.push_back(all[i].time);
        else
            for (const auto half : {all[i].time >> 32, all[i].time & UINT32_MAX})
                (all[i].time < 0 ? early : late).push_back(half);
    }
    if (!map.empty())
        text += "typeMap:bin { \"" + map + "\" }\n";
    return text + entry("typeOffsets:intvector", pairs) + entry("transPre32:intvector", early) +
           entry("trans:intvector", usual) + entry("transPost32:intvector", late);
}

} // namespace icu
