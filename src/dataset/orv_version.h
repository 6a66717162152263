#pragma once

#include <compare>
#include <cstdint>
#include <string>

/// The parsed form of a data set's version text: a year, release letters and up to two revision
/// numbers. -1 stands for a number that the text does not have:
///
///     2016a.1.0         2016  a    1   0
///     2016a             2016  a   -1  -1
///     2016ab.01.002     2016  ab   1   2
///
/// The default value, the unset version, is older than every version that a text can give.
struct orv_version {
    std::int32_t year = -1;
    std::string letter;
    std::int32_t revision = -1;
    std::int32_t subrevision = -1;

    /// The unset version.
    orv_version() = default;

    /// Whatever parse leaves, or throws, for the text.
    explicit orv_version(const std::string& text) { parse(text); }

    /// Sets all fields from a text that is, from its first byte to its last,
    ///
    ///     digits letters [ "." digits [ "." digits ] ]
    ///
    /// with letters a to z. Any other text leaves the unset version after two warnings, "Cannot
    /// parse version string TEXT, results.size() = 0" and "Cannot parse version string TEXT".
    /// Throws std::out_of_range for a number above 2147483647; the fields are then of no use.
    void parse(const std::string& text);

    /// Whether this version is strictly newer: the first field that differs decides, numbers by
    /// value, letters as byte strings. From older to newer:
    ///
    ///     2016a, 2016a.0, 2016a.9.0, 2016a.10, 2016aa, 2016z, 2017a
    bool newer_than(const orv_version& other) const { return *this > other; }

    std::strong_ordering operator<=>(const orv_version&) const = default;
};
