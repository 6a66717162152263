#include "dataset/orv_icu.h"
#include "dataset/orv_version.h"
#include "dataset/orv_zoneinfo.h"
#include "store/text_files.h"

#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

// The linker puts this in front of the C library's.
extern "C" void* __wrap_fts_open() { // NOLINT: the linker's name
    errno = EIO;
    return nullptr;
}

TEST(TextFiles, GiveTheFirstWord) {
    const std::string spaces(4090, ' '), word(128 << 10, '7');
    std::ofstream("word") << spaces << "\t\v\f\r\n" << word << "\xa0 \n" << word;
    EXPECT_EQ(store::read_first_word("word"), word + "\xa0");
    std::ofstream("blank") << spaces;
    ::mkfifo("pipe", 0600);
    store::write_text("pipe", "for no reader");
    for (const char* path : {"blank", "pipe", "/", "missing"})
        EXPECT_EQ(store::read_first_word(path), "") << path;
}

TEST(Version, IsAWholeTextOfAnyLength) {
    EXPECT_EQ(orv_version("02016ab.01.002"), orv_version("2016ab.1.2"));
    for (const char* text : {"", "2016", "2016A.1.0", "2016a.1.0.0", "2016a.", "2016a.1/0", ".1.0",
                             " 2016a", "2016a\n", "2016a/1", "2016\xe4"})
        EXPECT_EQ(orv_version(text), orv_version()) << text;
    orv_version version("1999z.9.9");
    version.parse("x");
    EXPECT_EQ(version, orv_version());
    const std::string zeros(128 << 10, '0'), letters(128 << 10, 'a');
    EXPECT_EQ(orv_version(zeros + "7" + letters).letter, letters);
}

TEST(Version, IsOrderedByEachFieldInTurn) {
    std::vector<orv_version> ascending(1);
    for (const char* text : {"2016a", "2016a.0", "2016a.9.9", "2016a.10", "2016a.10.0", "2016aa",
                             "2016b", "2016z.9.9", "9999a.1.0", "2147483647a"})
        ascending.emplace_back(text);
    for (const auto& a : ascending)
        for (const auto& b : ascending)
            EXPECT_EQ(a.newer_than(b), &a > &b) << a.letter << a.revision << " " << b.letter;
}

TEST(Component, ReportsWhatNoRunMeets) {
    EXPECT_TRUE(orv_zoneinfo().compatible_schema(orv_icu()));
    ::close(STDERR_FILENO);
    ASSERT_EQ(::creat("printed", 0600), STDERR_FILENO);
    EXPECT_FALSE(orv_icu().compatible_schema(orv_zoneinfo()));
    EXPECT_THROW(orv_icu("/update"), int);
    std::ifstream printed("printed");
    std::string cast, walk;
    std::getline(std::getline(printed, cast), walk);
    EXPECT_TRUE(cast.starts_with(
        "tzpublish: orv_icu::compatible_schema: could not dynamic_cast other component: "));
    EXPECT_EQ(walk, "tzpublish: tz_icu::initialize: fts_open of /update/icutz failed, Input/output "
                    "error: Input/output error");
}
