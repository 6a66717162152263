#pragma once

/// Puts the store in order, whatever state it is in:
///
///  1. asks the platform to keep the contents of the store's two directories always available;
///  2. deletes the previous run's marker, and the entry where older systems published ICU data;
///  3. selects a data set and publishes it;
///  4. repairs the local-time link.
///
/// Always runs to the end: whatever fails in a step, the next one follows. Steps 1 and 2 fail
/// silently; steps 3 and 4 report it on standard error.
void run_startup_sequence() noexcept;
