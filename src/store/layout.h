#pragma once

/// The fixed paths of the system partition and of the data store, each written once, with what
/// stands there. All are absolute; nothing configures them.

#include <string_view>

namespace store {

// Directories of the data store. They have to be there: the program makes no directory.

/// The data store.
inline constexpr const char* store_directory = "/var/db/timezone/";
/// One subdirectory per installed update, named by its version text:
///
///     2016b.1.0/zoneinfo/+VERSION         the version of its zoneinfo data, 2016b
///     2016b.1.0/zoneinfo/Europe/Paris     a zone, and so on
///     2016b.1.0/icutz/icutz44l.dat        its ICU data, of the format 44l
///
/// The text is also the prefix of every update's data-set path.
inline constexpr const char* updates_directory = "/var/db/timezone/tz/";

// Links that publish the choice.

/// Link to the zoneinfo tree in use. Its target is system_zoneinfo, to the byte, or a directory
/// inside an update, such as /var/db/timezone/tz/2016b.1.0/zoneinfo; any other is invalid.
inline constexpr const char* zoneinfo_link = "/var/db/timezone/zoneinfo";
/// Link to "icutz" inside the update in use; absent while the system partition is in use.
inline constexpr const char* icu_link = "/var/db/icutz";
/// Link to the local zone's file, as a path through zoneinfo_link, so that the zone follows the
/// tree in use: /var/db/timezone/zoneinfo/Europe/Paris for example.
inline constexpr const char* localtime_link = "/var/db/timezone/localtime";

// What the installer of updates leaves for this program, and this program for the clean-up.

/// Link to the directory of the most recently installed update, such as
/// /var/db/timezone/tz/2016b.1.0; absent when none is installed. Read only.
inline constexpr const char* latest_link = "/var/db/timezone/tz_latest";
/// Empty file: the last run moved publication away from a data set that was in force. Each run
/// begins by deleting that of the one before.
inline constexpr const char* cleanup_marker = "/var/db/timezone/needs_cleanup";
/// File that tells of the last adoption: the version text before it, "_", the adopted version text
/// and no line end, such as 2016a.1.0_2016b.1.0. A version that parses holds no "_".
inline constexpr const char* transition_record = "/var/db/timezone/TZVersionDiffRecord";

// The system partition; read only.

/// The system partition's zoneinfo tree, as zoneinfo_link names it.
inline constexpr const char* system_zoneinfo = "/usr/share/zoneinfo.default";
/// The system partition's ICU data; holds icu_format_file.
inline constexpr const char* system_icu = "/usr/share/icu";

// Names inside a data set, with the separator, as they are appended to a path.

/// The zoneinfo tree inside an update's directory.
inline constexpr const char* update_zoneinfo = "/zoneinfo";
/// The ICU data inside an update's directory.
inline constexpr const char* update_icu = "/icutz";
/// Inside a zoneinfo tree: a text whose first word is the version of the data.
inline constexpr const char* version_file = "/+VERSION";
/// Inside system_icu: a text whose first word is the format tag of the ICU data.
inline constexpr const char* icu_format_file = "/icutzformat.txt";

// Older layouts, and the local zone of last resort.

/// Older systems published ICU data here; deleted on every run.
inline constexpr const char* legacy_icu = "/var/db/icu";
/// Local-time targets of older systems begin with this, /usr/share/zoneinfo/Europe/Paris for
/// example; nothing is opened there.
inline constexpr const char* legacy_zoneinfo = "/usr/share/zoneinfo";
/// The zone that a local-time link beyond repair is reset to, and the target that this means.
inline constexpr const char* fallback_zone = "America/Los_Angeles";
inline constexpr const char* fallback_localtime = "/var/db/timezone/zoneinfo/America/Los_Angeles";

/// Returns what follows updates_directory in a path below it, 2016b.1.0/zoneinfo for example;
/// empty when the path is updates_directory itself or does not begin with it.
constexpr std::string_view below_updates_directory(std::string_view path) {
    if (path.starts_with(updates_directory))
        path.remove_prefix(std::string_view(updates_directory).size());
    else
        path = {};
    return path;
}

} // namespace store
