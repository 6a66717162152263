/// zoneinfo64 DIRECTORY writes the text that ICU's genrb compiles to zoneinfo64.res, of a
/// directory's compiled zones, with the names in its tzdata.zi and the regions in its zone.tab.

#include "icu/zone_text.h"

#include <csignal>
#include <err.h>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <system_error>

namespace {

using icu::require, icu::texts;

/// The names of ICU's that the tz database lacks, each after its target.
constexpr const char* names_of_icu =
    "Australia/Darwin ACT Australia/Sydney AET America/Argentina/Buenos_Aires AGT Africa/Cairo ART "
    "America/Anchorage AST America/Sao_Paulo BET Asia/Dhaka BST Africa/Maputo CAT America/St_Johns "
    "CNT America/Chicago CST Asia/Shanghai CTT Africa/Nairobi EAT Europe/Paris ECT "
    "America/Indiana/Indianapolis IET Asia/Kolkata IST Asia/Tokyo JST Pacific/Apia MIT "
    "Asia/Yerevan NET Pacific/Auckland NST Asia/Karachi PLT America/Phoenix PNT "
    "America/Puerto_Rico PRT America/Los_Angeles PST Pacific/Guadalcanal SST Asia/Ho_Chi_Minh VST "
    "America/Regina Canada/East-Saskatchewan America/Los_Angeles US/Pacific-New";

constexpr const char* unknown = "Etc/Unknown"; ///< ICU's own, for what it does not know

/// A pipe is refused: nothing is waited for.
std::string read_file(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    require(!error, error.message());
    require(size <= 1 << 20, "is too large");
    std::string bytes(size, '\0');
    require(!!std::ifstream(path).read(bytes.data(), std::ssize(bytes)), "cannot be read");
    return bytes;
}

/// Whether ICU's text can quote this.
bool is_plain(const std::string& text) {
    return text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                  "0123456789_+-./") == std::string::npos;
}

/// "Z" name ..., "L" target name: letters that begin words of any length, and may be small. Returns
/// the zone that each name leads to, with the names that only ICU has.
texts zones_of(std::istringstream tzdata_zi) {
    texts zones{{unknown, unknown}};
    std::string line, target, name;
    while (std::getline(tzdata_zi, line)) {
        std::string kind;
        std::istringstream(line) >> kind >> target >> name;
        if (kind.find_first_of("ZzLl") != 0)
            continue;
        if (kind.find_first_of("Zz") == 0)
            name = target;
        require(is_plain(name) && name.find('.') == std::string::npos,
                "has a name that no zone has");
        zones[name] = target;
    }
    std::istringstream icu_words(names_of_icu);
    while (icu_words >> target >> name)
        if (zones.contains(target))
            zones.emplace(name, target);
    for (auto& [link, zone] : zones)
        for (int links = 0; zones[zone] != zone; zone = zones[zone]) // that of a zone is itself
            require(!zones[zone].empty() && links++ < 100, "links " + link + " to no zone");
    return zones;
}

/// zoneinfo64 { TZVersion Zones Names Rules Regions }: an entry for each name in three of them, the
/// number of its zone's name for a link. ICU does not look at the key tzpublish: it is for grep,
/// and tells who has made the compiled file. Sets `path` to the file at work, for error messages.
std::string resource_text(const std::string& directory, std::string& path) {
    const auto read = [&](const auto& name) { return read_file(path = directory + "/" + name); };
    std::istringstream zone_tab(read("zone.tab")); // region coordinates name ...
    texts regions, numbers, links, rules;
    for (std::string line, region, coordinates, name; std::getline(zone_tab, line);) {
        std::istringstream(line) >> region >> coordinates >> name;
        if (region.size() == 2 && is_plain(region))
            regions[name] = region;
    }
    const auto list = read("tzdata.zi");
    const auto release = list.substr(0, list.find('\n'));
    require(release.starts_with("# version ") && is_plain(release.substr(10)),
            "does not begin with \"# version RELEASE\"");
    const auto zones = zones_of(std::istringstream(list));
    for (const auto& [name, zone] : zones) {
        numbers.emplace(name, std::to_string(numbers.size()));
        links[zone] += numbers[name] + ", ";
    }
    std::string text, names, region_list;
    for (const auto& [name, zone] : zones) {
        if (zone != name)
            text += ":int { " + numbers[zone] + " }\n";
        else
            text += ":table {\nlinks:intvector { " + links[name] + "}\n" +
                    (name == unknown ? "typeOffsets:intvector { 0, 0 }\n"
                                     : icu::zone_text(read(name), rules)) +
                    "}\n";
        names += "\"" + name + "\",\n";
        const auto& region = regions[regions.contains(name) ? name : zone];
        region_list += "\"" + (region.empty() ? "001" : region) + "\",\n";
    }
    text += "}\nNames {\n" + names + "}\nRules {\n";
    for (const auto& [rule, number] : rules)
        text += "R" + number + ":intvector { " + rule + "}\n";
    return "zoneinfo64:table(nofallback) {\ntzpublish:int { 1 }\nTZVersion { \"" +
           release.substr(10) + "\" }\nZones:array {\n" + text + "}\nRegions:array {\n" +
           region_list + "}\n}\n";
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: zoneinfo64 DIRECTORY\n";
        return 2;
    }
    (void)std::signal(SIGPIPE, SIG_IGN); // so that a reader that is gone is reported
    std::string path;
    try {
        if (!(std::cout << resource_text(arguments[1], path) << std::flush))
            ::err(1, "standard output");
    } catch (const std::exception& failure) {
        ::errx(1, "%s: %s", path.c_str(), failure.what());
    }
}
