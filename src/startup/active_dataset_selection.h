#pragma once

/// Decides which data set is published, and publishes it. Three take part: the system partition's;
/// the current one, named by store::zoneinfo_link; and the latest update, named by
/// store::latest_link. A data set is compatible if its ICU format is the system partition's.
///
/// First the current data set:
///
///     the link is missing or        "Bad zoneinfo link TARGET" or "read_symlink: PATH", then
///     names no data set             "Invalid current symlinks; resetting to system partition":
///                                   the system partition is published, and is current
///     it is not compatible, or      "Symlink points at data incompatible with installed system":
///     older than the system's       the system partition is published, the marker created
///     otherwise                     it stays published
///
/// Then the latest update, if there is one:
///
///     it is not compatible, or      "New update not compatible or older version":
///     not newer than the current    nothing changes
///     otherwise                     it is published, and the transition recorded; the marker is
///                                   created if it replaces an update
///
/// It is compared with the current data set even if that has just been found unusable.
///
/// If a data set cannot be constructed, store::latest_link cannot be read or a link cannot be
/// created, the selection ends: "Unable to locate data; resetting to system partition". The line
/// before gives the cause, as the headers of src/dataset and src/store quote it; none does if a
/// number in a version is too large or memory runs out.
///
/// Throws only if that last reset fails. The links are then as it left them: the zoneinfo link may
/// be missing.
void select_active_dataset();
