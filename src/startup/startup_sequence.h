#pragma once

/// Puts the store in order, whatever state it is in:
///
///  1. asks the platform to keep the contents of the store's two directories always available;
///  2. deletes the previous run's marker, and the entry where older systems published ICU data;
///  3. selects a data set and publishes it;
///  4. repairs the local-time link.
///
/// Always runs to the end: a step that fails is reported on standard error, and the next one
/// follows.
void run_startup_sequence() noexcept;
