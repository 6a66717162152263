#pragma once

/// Makes store::localtime_link point into the published zoneinfo tree. A target that begins with
/// store::zoneinfo_link is kept. One that begins with store::legacy_zoneinfo is rewritten, after
/// "Correcting localtime link to TARGET", to name the same zone in the published tree, if it is
/// there. Anything else is replaced by store::fallback_localtime, after "localtime link invalid;
/// resetting to ZONE".
///
/// To be called once the tree is published. Throws only when the fallback link cannot be made
/// either, reported like any other failure.
void repair_localtime_link();
