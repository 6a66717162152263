#include "dataset/orv_zoneinfo.h"

#include "dataset/orv_dataset_component.h"
#include "store/layout.h"
#include "store/primitives.h"
#include "store/text_files.h"

#include <err.h>
#include <string>

orv_zoneinfo::orv_zoneinfo(const std::string& path)
    : orv_dataset_component(path),
      data_dir(path.empty() ? store::system_zoneinfo : path + store::update_zoneinfo) {
    read_version();
}

void orv_zoneinfo::read_version() {
    version = store::read_first_word(data_dir + store::version_file);
}

bool orv_zoneinfo::compatible_schema(const orv_dataset_component& /*other*/) const {
    return true;
}

void orv_zoneinfo::activate() const {
    try {
        store::remove(store::zoneinfo_link);
    } catch (...) {
        ::warn("Unlink of zoneinfo softlink failed");
    }
    store::create_symlink(data_dir, store::zoneinfo_link);
}
