#include "dataset/orv_icu.h"
#include "dataset/orv_version.h"
#include "store/text_files.h"

#include <fstream>
#include <fts.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

// Takes the place of the C library's, under whatever name fts.h gives it on this platform.
FTS* fts_open(char* const* /*roots*/, int /*options*/,
              int (* /*order*/)(const FTSENT**, const FTSENT**)) {
    errno = EPIPE;
    return nullptr;
}

TEST(TextFiles, GiveTheFirstWord) {
    const std::string spaces(4475, ' '); // so many that the word ends with a buffer of 4096 bytes
    std::string word;                    // of all bytes but white space
    for (int i = 0; i < 1 << 14; ++i)
        if (std::isspace(i % 256) == 0)
            word += static_cast<char>(i);
    std::ofstream("word") << spaces << "\t\v\f\r\n" << word << " \n" << word;
    const std::string found = store::read_first_word("word");
    EXPECT_TRUE(found == word) << found.size() << " bytes, expected " << word.size();
    std::ofstream("blank") << spaces;
    ::mkfifo("pipe", 0600);
    store::write_text("pipe", "for no reader");
    for (const char* path : {"blank", "pipe", "/", "missing"})
        EXPECT_EQ(store::read_first_word(path), "") << path;
}

TEST(Version, IsAWholeTextOfAnyLength) {
    EXPECT_EQ(orv_version("02016ab.01.002"), orv_version("2016ab.1.2"));
    for (const char* text :
         {"", "2016", "2016A.1.0", "2016a.1.0.0", "2016a.", "2016a.1/0", "2016a.1:0", ".1.0",
          "2016`", "2016{", "2016:a", " 2016a", "2016a\n", "2016a/1", "2016\xe4"}) {
        orv_version version("1999z.9.9");
        version.parse(text);
        EXPECT_EQ(version, orv_version()) << text;
    }
    const std::string zeros(128 << 10, '0'), letters(128 << 10, 'a');
    EXPECT_EQ(orv_version(zeros + "7" + letters).letter.size(), letters.size());
}

TEST(Version, IsOrderedByEachFieldInTurn) {
    const char* const ascending[] = {"0a",         "2016a",  "2016a.0", "2016a.9.9", "2016a.10",
                                     "2016a.10.0", "2016aa", "2016b",   "9999a.1.0", "2147483647a"};
    for (const auto& a : ascending)
        for (const auto& b : ascending)
            EXPECT_EQ(orv_version(a).newer_than(orv_version(b)), &a > &b) << a << " and " << b;
}

TEST(Icu, ReportsAWalkThatCannotBegin) {
    testing::internal::CaptureStderr();
    EXPECT_THROW(orv_icu("/update"), int);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "tzpublish: tz_icu::initialize: fts_open of /update/icutz failed, Broken pipe: "
              "Broken pipe\n");
}
