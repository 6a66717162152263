#pragma once

#include "dataset/orv_dataset_component.h"

/// A data set's ICU time-zone data, published as store::icu_link; the system partition's is used
/// where it stands, without a link. Its format tag, such as 44l, decides whether the installed
/// system can read it.
class orv_icu final : public orv_dataset_component {
public:
    /// Finds the format tag. The system partition, the default, states it in
    /// store::icu_format_file; an update carries it in the name of a data file, such as
    /// icutz44l.dat. Without either the tag is empty. Throws the int errno of a directory walk that
    /// cannot be opened, after "tz_icu::initialize: fts_open of DIRECTORY failed, REASON".
    explicit orv_icu(const std::string& path = {});

    /// Whether both format tags are equal, two empty ones included. False for an `other` of
    /// another kind, after "orv_icu::compatible_schema: could not dynamic_cast other component".
    bool compatible_schema(const orv_dataset_component& other) const override;

    /// Points store::icu_link at an update's data; for the system partition it only removes the
    /// link. Reports a removal that failed with "unlink of ICU softlink failed".
    void activate() const override;

private:
    void initialize();
    void find_schema_in_file_names();

    std::string schema;
    std::string data_dir;
};
