#include "icu/zone_text.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

/// Returns whether the bytes are a zone. Anything but a std::runtime_error fails the test.
static bool is_zone(const std::string& bytes) {
    try {
        icu::texts rules;
        return !icu::zone_text(bytes, rules).empty();
    } catch (const std::runtime_error&) {
        return false;
    }
}

TEST(DamagedZone, IsAnErrorOrAnotherZone) {
    std::ifstream file("/usr/share/zoneinfo/Antarctica/Troll");
    const std::string whole(std::istreambuf_iterator<char>(file), {});
    EXPECT_TRUE(is_zone(whole));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        EXPECT_FALSE(is_zone(whole.substr(0, at))) << at;
        for (const int more : {1, 128, 255}) {
            auto damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] + more);
            is_zone(damaged);
        }
    }
}
