#include "icu/zone_names.h"

#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>

namespace icu {

namespace {

/// The names of ICU's that the tz database lacks, each after its target.
constexpr const char* names_of_icu =
    "Australia/Darwin ACT Australia/Sydney AET America/Argentina/Buenos_Aires AGT Africa/Cairo ART "
    "America/Anchorage AST America/Sao_Paulo BET Asia/Dhaka BST Africa/Maputo CAT America/St_Johns "
    "CNT America/Chicago CST Asia/Shanghai CTT Africa/Nairobi EAT Europe/Paris ECT "
    "America/Indiana/Indianapolis IET Asia/Kolkata IST Asia/Tokyo JST Pacific/Apia MIT "
    "Asia/Yerevan NET Pacific/Auckland NST Asia/Karachi PLT America/Phoenix PNT "
    "America/Puerto_Rico PRT America/Los_Angeles PST Pacific/Guadalcanal SST Asia/Ho_Chi_Minh VST "
    "America/Regina Canada/East-Saskatchewan America/Los_Angeles US/Pacific-New";

/// A long text would take a deep stack.
bool matches(const std::string& text, const std::regex& form) {
    return text.size() <= 100 && std::regex_match(text, form);
}

} // namespace

/// "# version " release, then among other lines "Z" name ..., "L" target name: letters that begin
/// words of any length, and may be small.
void zone_names::parse_zones(const std::string& tzdata_zi) {
    std::istringstream lines(tzdata_zi), icu_words(names_of_icu);
    std::string line, target, name;
    std::getline(lines, line);
    if (!matches(line, std::regex("# version [A-Za-z0-9._+-]+")))
        throw std::runtime_error("does not begin with \"# version RELEASE\"");
    release = line.substr(line.rfind(' ') + 1);
    const std::regex form("[A-Za-z][A-Za-z0-9_+-]*(/[A-Za-z][A-Za-z0-9_+-]*)*");
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string kind;
        words >> kind >> target >> name;
        if (kind.find_first_of("ZzLl") != 0)
            continue;
        if (kind.find_first_of("Zz") == 0)
            name = target;
        if (!matches(name, form))
            throw std::runtime_error("has a name that no zone has");
        zones[name] = target;
    }
    zones["Etc/Unknown"] = "Etc/Unknown";
    while (icu_words >> target >> name)
        if (zones.contains(target))
            zones.emplace(name, target);
    for (auto& [link, zone] : zones) {
        for (int links = 0; links < 100 && zones.contains(zone); ++links)
            zone = zones.at(zone); // that of a zone is itself
        if (!zones.contains(zone) || zones.at(zone) != zone)
            throw std::runtime_error("links " + link + " to no zone");
    }
}

/// region coordinates name ...
void zone_names::parse_regions(const std::string& zone_tab) {
    std::istringstream lines(zone_tab);
    const std::regex form("[A-Z][A-Z]");
    for (std::string line, region, coordinates, name; std::getline(lines, line);) {
        std::istringstream(line) >> region >> coordinates >> name;
        if (matches(region, form))
            regions[name] = region;
    }
}

} // namespace icu
