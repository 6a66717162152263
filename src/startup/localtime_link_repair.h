#pragma once

/// Makes store::localtime_link lead into the published tree. What happens depends on its target:
///
///     zoneinfo_link...          is kept, even if dangling
///     legacy_zoneinfo...        is rewritten to name the same zone in the published tree, after
///                               "Correcting localtime link to TARGET"; if that zone does not
///                               exist or the link cannot be created, as below:
///     anything else, or no      is replaced with store::fallback_localtime, after "localtime link
///     link                      invalid; resetting to America/Los_Angeles"
///
/// Call after publishing: the zone is looked up through the published tree. Whatever stands in the
/// link's place is removed, except a non-empty directory.
///
/// Throws only if the fallback link cannot be created; that has been reported.
void repair_localtime_link();
