#pragma once

/// Brings the store in order, from whatever state it is in:
///
///  1. keeps the contents of the store's two directories available at all times;
///  2. deletes the marker of the run before, and the entry where older systems published ICU data;
///  3. selects and publishes a data set;
///  4. repairs the local-time link.
///
/// Always runs to its end: a step that fails is reported on standard error, and the next one
/// follows.
void run_startup_sequence() noexcept;
