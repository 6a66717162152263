#include "startup/startup_sequence.h"

#include "startup/active_dataset_selection.h"
#include "startup/localtime_link_repair.h"
#include "store/layout.h"
#include "store/primitives.h"

#include <cstdio>

namespace {

void prepare_store_directories() {
    store::set_path_protection_class(store::store_directory);
    store::set_path_protection_class(store::updates_directory);
}

/// Runs a step. One that throws has failed in its fallback too; the run goes on.
void run_step(void (*step)()) noexcept {
    try {
        step();
    } catch (...) { // reported
    }
}

} // namespace

void run_startup_sequence() noexcept {
    prepare_store_directories();
    (void)std::remove(store::cleanup_marker);
    (void)std::remove(store::legacy_icu);
    run_step(select_active_dataset);
    run_step(repair_localtime_link);
}
