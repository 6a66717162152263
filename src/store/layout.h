#pragma once

/// Every fixed path of the program, with what stands there. None can be configured.

#include <string_view>

namespace store {

// The store's directories. The program creates no directories: both must exist.

/// The store itself.
inline constexpr const char* store_directory = "/var/db/timezone/";

/// Holds one directory for each installed update, named after its version:
///
///     2016b.1.0/zoneinfo/+VERSION         the version of its zone data, 2016b
///     2016b.1.0/zoneinfo/Europe/Paris     a zone, among others
///     2016b.1.0/icutz/icutz44l.dat        its ICU data; 44l is the tag of the ICU format
///
/// This path, closing slash included, is the prefix of every update's path.
inline constexpr const char* updates_directory = "/var/db/timezone/tz/";

// The links that publish the chosen data set.

/// Link to the zoneinfo tree in use. Its target is exactly system_zoneinfo or a directory inside an
/// update, such as /var/db/timezone/tz/2016b.1.0/zoneinfo; anything else is invalid.
inline constexpr const char* zoneinfo_link = "/var/db/timezone/zoneinfo";

/// Link to the ICU data of the update in use; absent while the system partition is in use.
inline constexpr const char* icu_link = "/var/db/icutz";

/// Link to the local zone. The target leads through zoneinfo_link, so that the zone comes from the
/// tree in use: /var/db/timezone/zoneinfo/Europe/Paris.
inline constexpr const char* localtime_link = "/var/db/timezone/localtime";

// Exchanged with the programs that install updates and clean up after them.

/// Link to the latest update, such as /var/db/timezone/tz/2016b.1.0; absent while none is
/// installed. Only read.
inline constexpr const char* latest_link = "/var/db/timezone/tz_latest";

/// Empty file: the last run found the published update incompatible or older than the system's, or
/// replaced it with a newer one. Every run begins by deleting it.
inline constexpr const char* cleanup_marker = "/var/db/timezone/needs_cleanup";

/// File recording the last adoption: the version replaced, "_", the version adopted, no newline:
/// 2016a.1.0_2016b.1.0. A version that parses contains no "_", so the first one separates them.
inline constexpr const char* transition_record = "/var/db/timezone/TZVersionDiffRecord";

// The system partition. Only read.

/// The system partition's zoneinfo tree, and the target of zoneinfo_link while it is in use.
inline constexpr const char* system_zoneinfo = "/usr/share/zoneinfo.default";

/// The system partition's ICU data, including icu_format_file.
inline constexpr const char* system_icu = "/usr/share/icu";

// Names inside a data set, each with a leading "/" for appending to a path.

/// In an update: its zoneinfo tree.
inline constexpr const char* update_zoneinfo = "/zoneinfo";

/// In an update: its ICU data.
inline constexpr const char* update_icu = "/icutz";

/// In a zoneinfo tree: a text file whose first word is the version of the data.
inline constexpr const char* version_file = "/+VERSION";

/// In system_icu: a text file whose first word is the tag of the ICU format that the system reads.
inline constexpr const char* icu_format_file = "/icutzformat.txt";

// Left by older systems.

/// Older systems published ICU data here. Every run deletes it.
inline constexpr const char* legacy_icu = "/var/db/icu";

/// Prefix of the local-time targets that older systems made, such as
/// /usr/share/zoneinfo/Europe/Paris. Nothing is opened there.
inline constexpr std::string_view legacy_zoneinfo = "/usr/share/zoneinfo";

// The last resort for the local time.

/// The zone that an irreparable local-time link is reset to.
inline constexpr const char* fallback_zone = "America/Los_Angeles";

/// The target of the link then.
inline constexpr const char* fallback_localtime = "/var/db/timezone/zoneinfo/America/Los_Angeles";

/// Returns the part of a path after updates_directory, such as 2016b.1.0/zoneinfo; empty if there
/// is none.
constexpr std::string_view below_updates_directory(std::string_view path) {
    constexpr std::string_view prefix = updates_directory;
    return path.starts_with(prefix) ? path.substr(prefix.size()) : std::string_view();
}

} // namespace store
