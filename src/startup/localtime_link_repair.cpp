#include "startup/localtime_link_repair.h"

#include "store/layout.h"
#include "store/primitives.h"

#include <cstdio>
#include <err.h>
#include <string>
#include <unistd.h>

namespace {

void replace_link(const std::string& target) {
    (void)std::remove(store::localtime_link); // a failure that matters shows in the next call
    store::create_symlink(target, store::localtime_link);
}

void keep_or_correct_link() {
    std::string target = store::read_symlink(store::localtime_link);
    if (target.starts_with(store::zoneinfo_link))
        return;
    if (!target.starts_with(store::legacy_zoneinfo))
        throw store::invalid_target;
    target.replace(0, store::legacy_zoneinfo.size(), store::zoneinfo_link);
    ::warn("Correcting localtime link to %s", target.c_str());
    if (::access(target.c_str(), F_OK) != 0)
        throw store::invalid_target;
    replace_link(target);
}

} // namespace

void repair_localtime_link() {
    try {
        keep_or_correct_link();
    } catch (...) {
        ::warn("localtime link invalid; resetting to %s", store::fallback_zone);
        replace_link(store::fallback_localtime);
    }
}
