#pragma once

#include "store/text_files.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

/// Returns the text with the names in it filled in.
inline std::string filled_in(std::string text) {
    for (const auto& [name, meaning] : std::vector<std::pair<std::string, std::string>>{
             {"SYSTEM", "zoneinfo -> TREE | /var/db/icutz"},
             {"UPDATE-B", "zoneinfo -> @2016b.1.0/zoneinfo | /var/db/icutz -> @2016b.1.0/icutz"},
             {"UPDATE-C", "zoneinfo -> @2016c.1.0/zoneinfo | /var/db/icutz -> @2016c.1.0/icutz"},
             {"FALLBACK", "localtime -> ~/zoneinfo/America/Los_Angeles"},
             {"INVALID", "Invalid current symlinks; resetting to system partition"},
             {"UNUSABLE", "Symlink points at data incompatible with installed system"},
             {"NOT-NEWER", "New update not compatible or older version"},
             {"NO-DATA", "Unable to locate data; resetting to system partition"},
             {"NO-ZONE", "localtime link invalid; resetting to America/Los_Angeles"},
             {"TREE", "/usr/share/zoneinfo.default"},
             {"@", "~/tz/"},
             {"~", "/var/db/timezone"}})
        for (std::size_t at = 0; (at = text.find(name)) != std::string::npos;)
            text.replace(at, name.size(), meaning);
    return text;
}

/// Puts things on the disk: "PATH -> TARGET" a link, "PATH = TEXT" a file, "PATH /" a directory,
/// "PATH" nothing; with "|" between them. Relative paths start in the store.
inline void arrange(const std::string& things) {
    std::istringstream rest(filled_in(things));
    for (std::string thing; std::getline(rest, thing, '|');) {
        std::istringstream fields(thing);
        std::string name, kind, content;
        if (!(fields >> name))
            continue;
        std::getline(fields >> kind >> std::ws, content);
        content.erase(content.find_last_not_of(' ') + 1);
        const fs::path path = "/var/db/timezone" / fs::path(name);
        fs::remove_all(path);
        fs::create_directories(kind == "/" ? path : path.parent_path());
        if (kind == "->")
            fs::create_symlink(content, path);
        else if (kind == "=")
            std::ofstream(path) << content;
    }
}

/// Puts a system partition 2016a of format 44l in use, with the updates B and C, 2016b.1.0 and
/// 2016c.1.0, and 2016d.1.0 of another format; then the given things.
inline void arrange_afresh(const std::string& things = "") {
    arrange("/usr | /var | TREE/+VERSION = 2016a | /usr/share/icu/icutzformat.txt = 44l | SYSTEM |"
            "localtime -> ~/zoneinfo/Europe/Paris | TREE/Europe/Paris = |"
            "@2016b.1.0/icutz/icutz44l.dat = | @2016b.1.0/zoneinfo -> TREE |"
            "@2016c.1.0/icutz/icutz44l.dat = | @2016c.1.0/zoneinfo -> TREE |"
            "@2016d.1.0/icutz/icutz52l.dat = | TREE/America/Los_Angeles =");
    arrange(things);
}

/// Returns a line for each thing below /var/db: a link's target, a file's first word and size.
inline std::set<std::string> stored() {
    std::set<std::string> things;
    for (const auto& entry : fs::recursive_directory_iterator("/var/db"))
        things.insert(entry.path().string() +
                      (entry.is_symlink()        ? " -> " + fs::read_symlink(entry).string()
                       : entry.is_regular_file() ? " = " + store::read_first_word(entry.path()) +
                                                       ", " + std::to_string(entry.file_size())
                                                 : " /"));
    return things;
}

/// Returns what the action prints.
inline std::string printed_by(const std::function<void()>& action) {
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}
