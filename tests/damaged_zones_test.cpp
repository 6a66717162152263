#include "icu/zone_text.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>

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
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): so that failures come again
    for (const std::string name : {"Europe/Dublin", "America/New_York", "Africa/Casablanca"}) {
        std::ifstream file("/usr/share/zoneinfo/" + name);
        const std::string whole(std::istreambuf_iterator<char>(file), {});
        EXPECT_TRUE(is_zone(whole));
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(is_zone(whole.substr(0, size))) << size;
        int zones = 0;
        for (int i = 0; i < 1000; ++i) {
            auto damaged = whole;
            for (auto changes = random() % 4 + 1; changes > 0; --changes)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            zones += is_zone(damaged) ? 1 : 0;
        }
        EXPECT_TRUE(0 < zones && zones < 1000) << zones << " of 1000 are zones: " << name;
    }
}
