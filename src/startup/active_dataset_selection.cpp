#include "startup/active_dataset_selection.h"

#include "dataset/orv_dataset.h"
#include "store/layout.h"
#include "store/primitives.h"
#include "store/text_files.h"

#include <err.h>
#include <string>
#include <string_view>

namespace {

/// Returns the path of the latest update; the empty text when none is named.
std::string read_latest_link() {
    return store::read_symlink(store::latest_link);
}

/// Maps a target of store::zoneinfo_link to a data-set path. It accepts
///     updates_directory version "/" directory    giving all before the last "/", and
///     system_zoneinfo                            giving the empty text;
/// any other target is reported and thrown.
std::string dataset_path_from_zoneinfo_link(const std::string& link) {
    const auto version_and_directory = store::below_updates_directory(link);
    const auto last_slash = version_and_directory.rfind('/');
    if (last_slash != 0 && last_slash != std::string_view::npos)
        return link.substr(0, link.rfind('/'));
    if (link == store::system_zoneinfo)
        return {};
    ::warn("Bad zoneinfo link %s", link.c_str());
    throw store::invalid_target;
}

std::string read_current_dataset_path() {
    return dataset_path_from_zoneinfo_link(store::read_symlink(store::zoneinfo_link));
}

/// Publishes the system partition, read anew. Throws what that throws.
void reset_to_system_partition() {
    orv_dataset().activate();
}

/// Returns the path of the data set that is published now; of the system partition, after
/// publishing it, when the link names none.
std::string read_current_dataset_path_or_reset() {
    try {
        return read_current_dataset_path();
    } catch (...) {
        ::warn("Invalid current symlinks; resetting to system partition");
        reset_to_system_partition();
        return {};
    }
}

/// Writes which version has taken the place of which. That it cannot be written changes nothing.
void record_transition(const orv_dataset& from, const orv_dataset& to) {
    store::write_text(store::transition_record,
                      from.get_version_string() + "_" + to.get_version_string());
}

void choose_and_publish() {
    const orv_dataset system;
    const std::string latest_path = read_latest_link();
    const orv_dataset current(read_current_dataset_path_or_reset());
    const orv_dataset* in_force = &current;

    if (!current.compatible(system) || system.newer_than(current)) {
        ::warn("Symlink points at data incompatible with installed system");
        reset_to_system_partition();
        store::mark_needs_cleanup();
        in_force = &system;
    }

    if (latest_path.empty())
        return;

    const orv_dataset latest(latest_path);
    // Against the current data set even when the system partition has just taken its place.
    if (!latest.compatible(system) || !latest.newer_than(current)) {
        ::warn("New update not compatible or older version");
        return;
    }

    latest.activate();
    if (!in_force->same_path(system))
        store::mark_needs_cleanup();
    record_transition(*in_force, latest);
}

} // namespace

void select_active_dataset() {
    try {
        choose_and_publish();
    } catch (...) {
        ::warn("Unable to locate data; resetting to system partition");
        reset_to_system_partition();
    }
}
