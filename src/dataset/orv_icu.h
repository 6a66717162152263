#pragma once

#include "dataset/orv_dataset_component.h"

/// A data set's ICU time-zone data, published as store::icu_link; the system partition's is used
/// where it stands, without a link. Its format tag, such as 44l, decides whether the installed
/// system can read it.
class orv_icu final : public orv_dataset_component {
public:
    /// Finds the format tag; without one it is empty, and nothing is reported.
    ///
    /// The system partition, the default, states it as the first word of store::icu_format_file.
    /// An update carries it in the name of a data file, such as icutz44l.dat: the first one, in the
    /// order of the directory, that is a regular file directly inside store::update_icu, may be
    /// read by everyone, and is named icutz, digits, one of the letters l, b and e, and .dat.
    ///
    /// Throws the int errno of a directory walk that cannot be opened, after "tz_icu::initialize:
    /// fts_open of DIRECTORY failed, REASON".
    explicit orv_icu(const std::string& path = {});

    /// Whether both format tags are equal, two empty ones included. False for an `other` of
    /// another kind, after "orv_icu::compatible_schema: could not dynamic_cast other component".
    bool compatible_schema(const orv_dataset_component& other) const override;

    /// Points store::icu_link at an update's data; for the system partition it only removes the
    /// link. A link that cannot be removed is reported a second time, with "unlink of ICU softlink
    /// failed". Throws the int errno of a link that cannot be made.
    void activate() const override;

private:
    void initialize();
    void find_schema_in_file_names();

    /// The format tag.
    std::string schema;
    std::string data_dir;
};
