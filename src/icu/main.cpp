/// zoneinfo64 DIRECTORY writes the text that ICU's genrb compiles to zoneinfo64.res, of the
/// compiled zones in a directory, by the names in its tzdata.zi and with the regions in its
/// zone.tab.

#include "icu/compiled_zone.h"
#include "icu/zone_names.h"
#include "icu/zone_text.h"

#include <csignal>
#include <cstdio>
#include <err.h>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <system_error>

namespace {

/// A pipe is refused: nothing is waited for.
std::string read_file(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error)
        throw std::runtime_error(error.message());
    if (size > 1 << 20)
        throw std::runtime_error("is too large");
    std::string bytes(size, '\0');
    if (!std::ifstream(path).read(bytes.data(), static_cast<std::streamsize>(size)))
        throw std::runtime_error("cannot be read");
    return bytes;
}

/// Returns what `parse` makes of a file. Its path precedes the reason of a failure.
template <typename Parse>
auto parse_file(const std::string& path, Parse parse) {
    try {
        return parse(read_file(path));
    } catch (const std::exception& failure) {
        throw std::runtime_error(path + ": " + failure.what());
    }
}

/// zoneinfo64 { TZVersion Zones Names Rules Regions }: an entry for each name in three of them, the
/// number of its zone's name for a link. ICU does not look at the key tzpublish: it is for grep,
/// and tells who has made the compiled file.
std::string resource_text(const std::string& directory) {
    icu::zone_names names;
    parse_file(directory + "/tzdata.zi", [&](const auto& text) { names.parse_zones(text); });
    parse_file(directory + "/zone.tab", [&](const auto& text) { names.parse_regions(text); });
    std::map<std::string, std::string> numbers, links;
    for (const auto& [name, zone] : names.zones) {
        numbers.emplace(name, std::to_string(numbers.size()));
        links[zone] += numbers[name] + ", ";
    }
    icu::rule_numbers rules;
    std::string zone_list, name_list, rule_list, region_list;
    const auto table = [&](const std::string& zone) {
        if (zone == "Etc/Unknown") // ICU's own, for what it does not know
            return icu::zone_text({{{icu::beginning, {0, false}}}, ""}, rules);
        return parse_file(directory + "/" + zone, [&](const auto& file) {
            return icu::zone_text(icu::parse_compiled_zone(file), rules);
        });
    };
    for (const auto& [name, zone] : names.zones) {
        zone_list += zone == name ? ":table {\n" + table(name) + "links:intvector { " +
                                        links[name] + "}\n}\n"
                                  : ":int { " + numbers[zone] + " }\n";
        name_list += "\"" + name + "\",\n";
        const auto& region = names.regions[names.regions.contains(name) ? name : zone];
        region_list += "\"" + (region.empty() ? "001" : region) + "\",\n";
    }
    for (const auto& [rule, number] : rules)
        rule_list.append("R").append(number).append(rule);
    return "zoneinfo64:table(nofallback) {\ntzpublish:int { 1 }\nTZVersion { \"" + names.release +
           "\" }\nZones:array {\n" + zone_list + "}\nNames {\n" + name_list + "}\nRules {\n" +
           rule_list + "}\nRegions:array {\n" + region_list + "}\n}\n";
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        (void)std::fputs("usage: zoneinfo64 DIRECTORY\n", stderr);
        return 2;
    }
    (void)std::signal(SIGPIPE, SIG_IGN); // so that a reader that is gone is reported
    try {
        const auto text = resource_text(arguments[1]);
        if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() ||
            std::fflush(stdout) != 0)
            ::err(1, "standard output");
        return 0;
    } catch (const std::exception& failure) {
        ::errx(1, "%s", failure.what());
    }
}
