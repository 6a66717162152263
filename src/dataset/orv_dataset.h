#pragma once

#include "dataset/orv_dataset_component.h"
#include "dataset/orv_version.h"

#include <memory>
#include <string>
#include <vector>

/// One complete copy of the time-zone data: the system partition's, or an installed update.
/// Immutable once constructed.
class orv_dataset {
public:
    /// `path` is one of
    ///
    ///     store::updates_directory VERSION    an update, with this version text;
    ///     the empty string (default)          the system partition, whose version text is the
    ///                                         first word of its version file plus ".1.0".
    ///
    /// Any other path throws std::invalid_argument, after "orv_dataset::create_components: bad path
    /// PATH". A version text that does not parse is reported, and counts as older than any that
    /// does. Errors from parsing or from a component propagate.
    explicit orv_dataset(std::string path = {});

    /// Returns whether each component accepts the one at the same position in `other`. Callers ask
    /// the candidate and pass the system partition.
    bool compatible(const orv_dataset& other) const;

    /// Publishes the components, zoneinfo first. If one throws, the rest are not published and
    /// nothing is undone.
    void activate() const;

    /// Returns whether both paths are equal, byte for byte; a "/" at the end makes a difference.
    bool same_path(const orv_dataset& other) const { return dataset_path == other.dataset_path; }

    /// Returns whether this data set's version is strictly newer than that of `other`.
    bool newer_than(const orv_dataset& other) const { return version.newer_than(other.version); }

    /// Returns the whole version text, such as 2016a.1.0, even if it does not parse.
    std::string get_version_string() const { return version_string; }

private:
    void create_components();

    /// Parsed from version_string, or unset.
    orv_version version;
    std::string version_string;
    std::string dataset_path;
    /// The zoneinfo component, then the ICU component.
    std::vector<std::shared_ptr<orv_dataset_component>> components;
};
