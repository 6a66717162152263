#pragma once

#include "dataset/orv_dataset_component.h"

/// A data set's tree of compiled zone files, published as store::zoneinfo_link.
class orv_zoneinfo final : public orv_dataset_component {
public:
    /// Reads the version file of the tree: store::system_zoneinfo by default, else
    /// store::update_zoneinfo inside the update. If it cannot be read, the version is empty and
    /// nothing is reported.
    explicit orv_zoneinfo(const std::string& path = {});

    /// Always true: the system can read any tree.
    bool compatible_schema(const orv_dataset_component& other) const override;

    /// Points store::zoneinfo_link at the tree, the system partition's too. A failed removal is
    /// reported again, as "Unlink of zoneinfo softlink failed". Throws the errno of a failed
    /// creation; no tree is then published.
    void activate() const override;

    /// Returns the first word of the tree's version file, such as 2016a. It is the version of the
    /// zone data alone and used only for the system partition; an update is named by its directory.
    std::string get_version() const { return version; }

private:
    void read_version();

    std::string data_dir;
    std::string version;
};
