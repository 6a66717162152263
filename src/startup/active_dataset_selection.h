#pragma once

/// Decides which data set is published and publishes it: keeps the one that store::zoneinfo_link
/// names when the system can use it, falls back to the system partition otherwise, and adopts the
/// update that store::latest_link names when the system can use it and it is newer.
///
/// Each decision and each failure is a line on standard error. A failure ends with the system
/// partition published; only when that fails too is it thrown, reported like any other.
void select_active_dataset();
