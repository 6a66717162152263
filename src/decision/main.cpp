/// decision next ROOT           what the next run of tzpublish decides about the system in ROOT,
///                              empty for this one. Changes nothing. Prints what the run prints,
///                              and then four lines, with nothing after a name for what is missing:
///
///                                  system 2016a.1.0      the system's version
///                                  format 44l            and its ICU format
///                                  zoneinfo /var/...     the target of this link after the run
///                                  icutz /var/...        and of this one
///
/// decision order VERSION...    prints those that are versions, the newest last

#include "dataset/orv_version.h"
#include "dataset/orv_zoneinfo.h"
#include "decision/calls.h"
#include "startup/active_dataset_selection.h"
#include "store/layout.h"
#include "store/text_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <err.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Prints a text on one line, whatever is in it.
void print(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c < ' ' || c > '~'; }, '?');
    (void)std::puts(text.c_str());
}

void print_next(const std::string& root) {
    if (!decision::enter(root))
        ::err(1, "%s", root.c_str());
    static std::string name = "tzpublish"; // which each line begins with
    program_invocation_short_name = name.data();
    try {
        select_active_dataset();
    } catch (...) { // it has ended where it failed, as the run does
    }
    print("system " + orv_zoneinfo().get_version() + ".1.0");
    print("format " +
          store::read_first_word(std::string(store::system_icu) + store::icu_format_file));
    print("zoneinfo " + decision::target_of(store::zoneinfo_link));
    print("icutz " + decision::target_of(store::icu_link));
}

/// Prints the texts that are versions, ordered. Of one with a number that is too large, tzpublish
/// makes nothing either.
void print_in_order(const std::vector<std::string>& texts) {
    std::vector<std::pair<orv_version, std::string>> versions;
    for (const auto& text : texts) {
        try {
            if (orv_version version(text); version.year >= 0)
                versions.emplace_back(version, text);
        } catch (const std::out_of_range&) {
        }
    }
    std::ranges::stable_sort(versions, {}, [](const auto& pair) { return pair.first; });
    for (const auto& [version, text] : versions)
        print(text);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "next")
        print_next(arguments[1]);
    else if (!arguments.empty() && arguments[0] == "order")
        print_in_order({arguments.begin() + 1, arguments.end()});
    else
        ::errx(2, "usage: decision next ROOT, or decision order VERSION...");
    return 0;
}
