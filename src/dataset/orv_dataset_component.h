#pragma once

#include <string>
#include <utility>

/// One kind of data in a data set. A component reads what it needs while it is constructed, and
/// does not change afterwards.
///
///                     on the system partition    in an update    published as
///     orv_zoneinfo    store::system_zoneinfo     zoneinfo        store::zoneinfo_link
///     orv_icu         store::system_icu          icutz           store::icu_link, an update's only
///
/// There is no virtual destructor: a component is owned through a shared handle that was made for
/// its concrete type, and is never destroyed through this interface.
class orv_dataset_component {
public:
    /// Whether this component's data format agrees with that of `other`, the component at the same
    /// position in another data set. Neither is changed. Between two of one kind it makes no
    /// difference which is asked.
    virtual bool compatible_schema(const orv_dataset_component& other) const = 0;

    /// Publishes this component: removes the well-known link of its kind and makes it again where
    /// the kind asks for one. A link that cannot be removed is reported and the operation goes on;
    /// one that cannot be made is reported and thrown as its int errno.
    virtual void activate() const = 0;

protected:
    /// `path` is the directory of the update that owns the component; empty for the system
    /// partition.
    explicit orv_dataset_component(std::string path = {}) : dataset_path(std::move(path)) {}
    ~orv_dataset_component() = default;

    const std::string dataset_path;
};
