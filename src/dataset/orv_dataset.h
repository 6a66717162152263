#pragma once

#include "dataset/orv_dataset_component.h"
#include "dataset/orv_version.h"

#include <memory>
#include <string>
#include <vector>

/// One complete copy of the time-zone data: the system partition's, or an installed update. It is
/// complete once constructed and does not change afterwards.
class orv_dataset {
public:
    /// `path` is an update's directory, store::updates_directory followed by its version text;
    /// empty, the default, for the system partition, whose version text is the first word of its
    /// version file with ".1.0" appended. A version text that does not parse leaves the unset
    /// version (see orv_version). Throws std::invalid_argument for any other path, after
    /// "orv_dataset::create_components: bad path PATH", and whatever parsing the version or
    /// constructing a component throws.
    explicit orv_dataset(std::string path = {});

    /// Whether each component accepts the one at the same position in `other`.
    bool compatible(const orv_dataset& other) const;

    /// Publishes the components, zoneinfo first. What one throws ends it, with nothing undone.
    void activate() const;

    /// Whether both paths are equal, byte for byte.
    bool same_path(const orv_dataset& other) const { return dataset_path == other.dataset_path; }

    bool newer_than(const orv_dataset& other) const { return version.newer_than(other.version); }

    /// Returns the whole version text, such as 2016a.1.0.
    std::string get_version_string() const { return version_string; }

private:
    void create_components();

    orv_version version;
    std::string version_string;
    std::string dataset_path;
    std::vector<std::shared_ptr<orv_dataset_component>> components; // zoneinfo, ICU
};
