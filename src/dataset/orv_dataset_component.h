#pragma once

#include <string>
#include <utility>

/// One kind of data in a data set. A component reads all it needs in its constructor and is
/// immutable afterwards.
///
///                     on the system partition    in an update    published as
///     orv_zoneinfo    store::system_zoneinfo     zoneinfo        store::zoneinfo_link
///     orv_icu         store::system_icu          icutz           store::icu_link, an update's only
///
/// No virtual destructor is needed: components are owned by shared_ptrs made for the concrete type.
class orv_dataset_component {
public:
    /// Returns whether this component's data format agrees with that of `other`, the component at
    /// the same position in another data set. For two components of one kind the answer is
    /// symmetric.
    virtual bool compatible_schema(const orv_dataset_component& other) const = 0;

    /// Publishes this component: removes its link and, if the kind calls for one, creates it again.
    /// A failed removal is reported and otherwise ignored; a failed creation is reported and its
    /// errno thrown as an int.
    virtual void activate() const = 0;

protected:
    /// `path` is the directory of the update that owns the component; empty for the system
    /// partition.
    explicit orv_dataset_component(std::string path = {}) : dataset_path(std::move(path)) {}
    ~orv_dataset_component() = default;

    const std::string dataset_path;
};
