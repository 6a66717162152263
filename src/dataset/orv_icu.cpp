#include "dataset/orv_icu.h"

#include "dataset/orv_dataset_component.h"
#include "dataset/scan.h"
#include "store/layout.h"
#include "store/primitives.h"
#include "store/text_files.h"

#include <cerrno>
#include <cstring>
#include <err.h>
#include <fts.h>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace {

using directory_walk = std::unique_ptr<FTS, decltype([](FTS* walk) { ::fts_close(walk); })>;

/// A regular file, directly inside the root of the walk, that everyone may read.
bool may_be_data_file(const FTSENT& entry) {
    return entry.fts_errno == 0 && entry.fts_level == 1 && entry.fts_namelen != 0 &&
           entry.fts_info == FTS_F && (entry.fts_statp->st_mode & S_IROTH) != 0;
}

/// icutz([0-9]+[lbe])\.dat
///
/// Returns the group, the tag; empty if the name does not match.
std::string_view tag_in_file_name(std::string_view name) {
    if (!dataset::take(name, "icutz"))
        return {};
    const std::string_view tag_and_rest = name;
    const bool digits = !dataset::take_run(name, '0', '9').empty();
    const bool letter =
        dataset::take(name, "l") || dataset::take(name, "b") || dataset::take(name, "e");
    if (!digits || !letter || name != ".dat")
        return {};
    return tag_and_rest.substr(0, tag_and_rest.size() - name.size());
}

} // namespace

orv_icu::orv_icu(const std::string& path)
    : orv_dataset_component(path),
      data_dir(path.empty() ? store::system_icu : path + store::update_icu) {
    initialize();
}

void orv_icu::initialize() {
    if (dataset_path.empty())
        schema = store::read_first_word(data_dir + store::icu_format_file);
    else
        find_schema_in_file_names();
}

// Unsorted: the first match in directory order wins. Subdirectories are walked too, but nothing in
// them counts, and one entry is read after the match: the sequence of system calls is fixed.
void orv_icu::find_schema_in_file_names() {
    char* const roots[] = {data_dir.data(), nullptr};
    const directory_walk walk(::fts_open(roots, FTS_COMFOLLOW | FTS_PHYSICAL | FTS_XDEV, nullptr));
    if (!walk) {
        const int error = errno;
        ::warn("tz_icu::initialize: fts_open of %s failed, %s", data_dir.c_str(),
               std::strerror(error));
        throw error;
    }
    while (const FTSENT* entry = ::fts_read(walk.get())) {
        if (!schema.empty())
            break;
        if (may_be_data_file(*entry))
            schema = tag_in_file_name(entry->fts_name);
    }
}

bool orv_icu::compatible_schema(const orv_dataset_component& other) const {
    const auto* icu = dynamic_cast<const orv_icu*>(&other);
    if (icu == nullptr) {
        ::warn("orv_icu::compatible_schema: could not dynamic_cast other component");
        return false;
    }
    return schema == icu->schema;
}

void orv_icu::activate() const {
    try {
        store::remove(store::icu_link);
    } catch (...) {
        ::warn("unlink of ICU softlink failed");
    }
    if (!dataset_path.empty())
        store::create_symlink(data_dir, store::icu_link);
}
