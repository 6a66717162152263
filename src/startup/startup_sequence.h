#pragma once

/// Brings the store in order, from whatever state it is in: prepares its directories, deletes the
/// stale marker and the legacy ICU entry, selects and publishes a data set, repairs the local-time
/// link. Always runs to its end; whatever fails is reported on standard error.
void run_startup_sequence() noexcept;
