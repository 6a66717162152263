#include "icu/compiled_zone.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace icu {

namespace {

void require(bool fulfilled, const char* else_it) {
    if (!fulfilled)
        throw std::runtime_error(else_it);
}

std::string_view take(std::string_view& bytes, std::uint64_t count) {
    require(count <= bytes.size(), "ends too early");
    const auto taken = bytes.substr(0, static_cast<std::size_t>(count));
    bytes.remove_prefix(taken.size());
    return taken;
}

/// Big-endian.
template <typename Number>
Number take_number(std::string_view& bytes) {
    std::uint64_t value = 0;
    for (const char byte : take(bytes, sizeof(Number)))
        value = value << 8 | static_cast<unsigned char>(byte);
    return static_cast<Number>(value);
}

/// "TZif" version:1 reserved:15 isutcnt:4 isstdcnt:4 leapcnt:4 timecnt:4 typecnt:4 charcnt:4
struct header {
    std::uint64_t ut_flags, standard_flags, leaps, times, types, characters;

    explicit header(std::string_view& file) {
        require(take(file, 4) == "TZif", "is no compiled zone");
        require(take(file, 1) >= "2", "has a format older than version 2");
        take(file, 15);
        for (auto* count : {&ut_flags, &standard_flags, &leaps, &times, &types, &characters})
            *count = take_number<std::uint32_t>(file);
    }
};

} // namespace

/// header block header64 time:8... type:1... (utoff:4 isdst:1 desigidx:1)... rest "\n" footer "\n"
///
/// The first block is as the second, with times of 4 bytes, and not needed. utoff is in seconds.
compiled_zone parse_compiled_zone(std::string_view file) {
    const header old(file);
    take(file, old.times * 5 + old.types * 6 + old.leaps * 8);
    take(file, old.characters + old.standard_flags + old.ut_flags);
    const header counts(file);
    auto times = take(file, counts.times * 8), indexes = take(file, counts.times);
    auto type_bytes = take(file, counts.types * 6);
    take(file, counts.characters + counts.standard_flags + counts.ut_flags);
    require(counts.leaps == 0, "counts leap seconds");
    require(counts.types > 0, "has no local time");
    require(take(file, 1) == "\n", "has no footer where its counts end");

    std::vector<local_time> types;
    while (!type_bytes.empty()) {
        const auto offset = take_number<std::int32_t>(type_bytes);
        require(-25 * 3600 < offset && offset < 26 * 3600, "has an offset of more than a day");
        types.push_back({offset, take_number<std::uint16_t>(type_bytes) >= 0x100});
    }
    compiled_zone zone{{{beginning, types[0]}}, std::string(take(file, file.find('\n')))};
    while (!times.empty()) {
        const auto time = take_number<std::int64_t>(times);
        const auto index = take_number<std::uint8_t>(indexes);
        require(zone.times.back().time < time && time < -beginning,
                "has a transition too early or too late");
        require(index < types.size(), "has a transition to no local time");
        zone.times.push_back({time, types[index]});
    }
    return zone;
}

} // namespace icu
