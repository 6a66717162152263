#pragma once

/// Decides which data set is published, and publishes it. Three take part: the system partition's;
/// the current one, which store::zoneinfo_link names; and the latest update, which
/// store::latest_link names. An update fits the system if the system can read its ICU format.
///
/// First the current data set is judged:
///
///     the link is missing or        "Invalid current symlinks; resetting to system partition":
///     names no data set             the system partition is published, and is current
///     it does not fit, or is        "Symlink points at data incompatible with installed system":
///     older than the system's       the system partition is published, the marker is made
///     else                          it stays
///
/// Then the latest update, if one is named:
///
///     it does not fit, or is not    "New update not compatible or older version":
///     newer than the current one    nothing changes
///     else                          it is published; the marker is made if it takes the place of
///                                   an update; the transition is recorded
///
/// Whatever else fails ends the selection: "Unable to locate data; resetting to system partition".
/// Before such a decision stands the failure that led to it, where the failing step reports it:
/// "Bad zoneinfo link TARGET" here, and what the headers of the steps say.
///
/// Throws only what that last reset throws; the links then stay as it has left them.
void select_active_dataset();
