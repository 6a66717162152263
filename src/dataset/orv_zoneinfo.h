#pragma once

#include "dataset/orv_dataset_component.h"

/// A data set's tree of compiled zone files, published as store::zoneinfo_link.
class orv_zoneinfo final : public orv_dataset_component {
public:
    /// Reads the tree's version file. Never fails: without a readable file the version is empty.
    /// The default is the system partition's tree.
    explicit orv_zoneinfo(const std::string& path = {});

    /// True: any tree serves.
    bool compatible_schema(const orv_dataset_component& other) const override;

    /// Points store::zoneinfo_link at the tree. Reports a removal that failed with "Unlink of
    /// zoneinfo softlink failed".
    void activate() const override;

    /// Returns the first word of the tree's version file, such as 2016a.
    std::string get_version() const { return version; }

private:
    void read_version();

    std::string data_dir;
    std::string version;
};
