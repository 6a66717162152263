#pragma once

#include <compare>
#include <cstdint>
#include <string>

/// The parsed form of a data set's version text. -1 marks a number the text lacks:
///
///     text             year    letter    revision    subrevision
///     2016a.1.0        2016    a         1           0
///     2016a            2016    a         -1          -1
///     2016ab.01.002    2016    ab        1           2
///
/// A default-constructed version is unset, and older than any parsed one.
struct orv_version {
    std::int32_t year = -1;
    std::string letter;
    std::int32_t revision = -1;
    std::int32_t subrevision = -1;

    /// Constructs the unset version.
    orv_version() = default;

    /// Parses the text.
    explicit orv_version(const std::string& text) { parse(text); }

    /// Sets all fields from a text that matches as a whole:
    ///
    ///     digits letters [ "." digits [ "." digits ] ]
    ///
    /// with letters from a to z. Any other text leaves the unset version after two warnings,
    /// "Cannot parse version string TEXT, results.size() = 0" and "Cannot parse version string
    /// TEXT". Throws std::out_of_range for a number above 2147483647; the fields are then of no
    /// use.
    void parse(const std::string& text);

    /// Returns whether this version is strictly newer than `other`. The first differing field
    /// decides; letters compare as byte strings. Oldest to newest:
    ///
    ///     2016a, 2016a.0, 2016a.9.0, 2016a.10, 2016aa, 2016z, 2017a
    bool newer_than(const orv_version& other) const { return *this > other; }

    std::strong_ordering operator<=>(const orv_version&) const = default;
};
