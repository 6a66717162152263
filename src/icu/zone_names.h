#pragma once

#include <map>
#include <string>

namespace icu {

/// What the lists beside the zones say of each name, sorted by bytes as ICU wants it.
struct zone_names {
    std::string release;                        ///< such as 2026f
    std::map<std::string, std::string> zones;   ///< the zone that a link leads to, or itself
    std::map<std::string, std::string> regions; ///< such as DE, for some

    /// Reads tzdata.zi, and adds the names that only ICU has. Throws std::runtime_error with the
    /// reason for another text, and for names that no zone has.
    void parse_zones(const std::string& tzdata_zi);

    /// Reads zone.tab. Lines of another form do not count.
    void parse_regions(const std::string& zone_tab);
};

} // namespace icu
