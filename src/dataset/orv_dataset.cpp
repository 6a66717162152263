#include "dataset/orv_dataset.h"

#include "dataset/orv_icu.h"
#include "dataset/orv_zoneinfo.h"
#include "store/layout.h"

#include <algorithm>
#include <err.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

orv_dataset::orv_dataset(std::string path) : dataset_path(std::move(path)) {
    create_components();
}

// The order shows in the diagnostics and in the files read: the tree is read even if the path is
// then rejected.
void orv_dataset::create_components() {
    const auto zoneinfo = std::make_shared<orv_zoneinfo>(dataset_path);
    if (dataset_path.empty())
        version_string = zoneinfo->get_version() + ".1.0";
    else
        version_string = store::below_updates_directory(dataset_path);
    if (version_string.empty()) {
        ::warn("orv_dataset::create_components: bad path %s", dataset_path.c_str());
        throw std::invalid_argument("badpath");
    }
    version.parse(version_string);
    components.push_back(zoneinfo);
    components.push_back(std::make_shared<orv_icu>(dataset_path));
}

bool orv_dataset::compatible(const orv_dataset& other) const {
    return std::ranges::equal(
        components, other.components,
        [](const auto& ours, const auto& theirs) { return ours->compatible_schema(*theirs); });
}

void orv_dataset::activate() const {
    for (const auto& component : components)
        component->activate();
}
