#pragma once

#include "dataset/orv_dataset_component.h"

/// A data set's tree of compiled zone files, published as store::zoneinfo_link.
class orv_zoneinfo final : public orv_dataset_component {
public:
    /// Reads the version file of the tree, which is store::system_zoneinfo for the system
    /// partition, the default, and store::update_zoneinfo inside an update. Never fails, and
    /// reports nothing: without a tree, or a file in it that can be read, the version is empty.
    explicit orv_zoneinfo(const std::string& path = {});

    /// True, whatever the other is: the system reads any tree.
    bool compatible_schema(const orv_dataset_component& other) const override;

    /// Points store::zoneinfo_link at the tree, the system partition's too. A link that cannot be
    /// removed is reported a second time, with "Unlink of zoneinfo softlink failed". Throws the int
    /// errno of a link that cannot be made; until a caller mends that, no tree is published.
    void activate() const override;

    /// Returns the first word of the tree's version file, such as 2016a. It is the version of the
    /// zone data alone, and only the system partition's counts: an update is named by its
    /// directory.
    std::string get_version() const { return version; }

private:
    void read_version();

    std::string data_dir;
    std::string version;
};
