#pragma once

/// Makes store::localtime_link lead into the published zoneinfo tree, by its target:
///
///     zoneinfo_link...                 is kept, whether or not it exists
///     legacy_zoneinfo...               is rewritten to name the same zone in the published tree,
///                                      after "Correcting localtime link to TARGET"; if that zone
///                                      is not there, it counts as the next
///     anything else, or no link        is replaced by store::fallback_localtime, after "localtime
///                                      link invalid; resetting to America/Los_Angeles"
///
/// To be called once the tree is published, as the zone is looked up through it. What stands in the
/// link's place is removed, unless it is a directory that is not empty.
///
/// Throws only if the fallback cannot be made either, after create_symlink has reported it.
void repair_localtime_link();
