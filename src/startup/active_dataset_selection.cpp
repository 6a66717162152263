#include "startup/active_dataset_selection.h"

#include "dataset/orv_dataset.h"
#include "store/layout.h"
#include "store/primitives.h"
#include "store/text_files.h"

#include <err.h>
#include <string>
#include <string_view>

namespace {

/// Returns the path of the latest update; empty if there is none.
std::string read_latest_link() {
    return store::read_symlink(store::latest_link);
}

/// Returns the path of the data set that a target of store::zoneinfo_link names:
///
///     updates_directory version "/" directory    all before the last "/"
///     system_zoneinfo                            the empty string
///
/// Any other target is reported and thrown as store::invalid_target.
std::string dataset_path_from_zoneinfo_link(const std::string& link) {
    const auto below = store::below_updates_directory(link);
    const auto slash = below.rfind('/');
    if (slash != std::string_view::npos && slash > 0)
        return store::updates_directory + std::string(below.substr(0, slash));
    if (link == store::system_zoneinfo)
        return {};
    ::warn("Bad zoneinfo link %s", link.c_str());
    throw store::invalid_target;
}

std::string read_current_dataset_path() {
    return dataset_path_from_zoneinfo_link(store::read_symlink(store::zoneinfo_link));
}

/// Publishes the system partition. Reads it anew, as this is also the way out when it could not be
/// read.
void reset_to_system_partition() {
    orv_dataset().activate();
}

/// Returns the path of the published data set. If the link names none, publishes the system
/// partition and returns its path, the empty string.
std::string read_current_dataset_path_or_reset() {
    try {
        return read_current_dataset_path();
    } catch (...) {
        ::warn("Invalid current symlinks; resetting to system partition");
        reset_to_system_partition();
        return {};
    }
}

/// Records which version replaced which. A failure to write is ignored.
void record_transition(const orv_dataset& from, const orv_dataset& to) {
    store::write_text(store::transition_record,
                      from.get_version_string() + "_" + to.get_version_string());
}

void choose_and_publish() {
    const orv_dataset system;
    const std::string latest_path = read_latest_link();
    const orv_dataset current(read_current_dataset_path_or_reset());
    const orv_dataset* in_use = &current;

    if (!current.compatible(system) || system.newer_than(current)) {
        ::warn("Symlink points at data incompatible with installed system");
        reset_to_system_partition();
        store::mark_needs_cleanup();
        in_use = &system;
    }

    if (latest_path.empty())
        return;

    const orv_dataset latest(latest_path);
    // Compared with the current data set even if the system partition has just replaced it.
    if (!latest.compatible(system) || !latest.newer_than(current)) {
        ::warn("New update not compatible or older version");
        return;
    }

    latest.activate();
    const bool replaces_update = !in_use->same_path(system);
    if (replaces_update)
        store::mark_needs_cleanup();
    record_transition(*in_use, latest);
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
