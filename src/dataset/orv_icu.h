#pragma once

#include "dataset/orv_dataset_component.h"

/// A data set's ICU time-zone data. An update's is published as store::icu_link; the system
/// partition's is used in place. The tag of its ICU format, such as 44l, tells whether the
/// installed system can read the data.
class orv_icu final : public orv_dataset_component {
public:
    /// Finds the tag; if there is none, it is empty and nothing is reported.
    ///
    /// For the system partition, the default, it is the first word of store::icu_format_file. For
    /// an update it is part of a file name:
    ///
    ///     "icutz" digits ( "l" | "b" | "e" ) ".dat"
    ///
    /// The first such name, in directory order, of a regular file directly inside store::update_icu
    /// that everyone may read counts.
    ///
    /// Throws the errno of a directory walk that cannot be opened, as an int, after
    /// "tz_icu::initialize: fts_open of DIRECTORY failed, REASON".
    explicit orv_icu(const std::string& path = {});

    /// Returns whether the tags are equal; two empty ones are. Prints "orv_icu::compatible_schema:
    /// could not dynamic_cast other component" and returns false if `other` is no orv_icu.
    bool compatible_schema(const orv_dataset_component& other) const override;

    /// For an update, points store::icu_link at its data; for the system partition, only removes
    /// the link. A failed removal is reported again, as "unlink of ICU softlink failed". Throws the
    /// errno of a failed creation, as an int.
    void activate() const override;

private:
    void initialize();
    void find_schema_in_file_names();

    /// The tag of the ICU format.
    std::string schema;
    std::string data_dir;
};
