#include "dataset/orv_icu.h"
#include "dataset/orv_version.h"
#include "dataset/orv_zoneinfo.h"
#include "store/primitives.h"
#include "store_tree.h"

#include <sys/stat.h>

static int error_of(void (*action)()) try {
    action();
    return 0;
} catch (int error) {
    return error;
}

TEST(Primitives, ThrowTheErrorOfACallAndKeepAMarker) {
    EXPECT_EQ(error_of([] { store::remove("/tmp"); }), EISDIR);
    EXPECT_EQ(error_of([] { store::read_symlink("/tmp"); }), EINVAL);
    EXPECT_EQ(error_of([] { store::create_symlink("x", "/tmp"); }), EEXIST);
    arrange_afresh("needs_cleanup = kept");
    EXPECT_EQ(printed_by(store::mark_needs_cleanup), "");
    EXPECT_EQ(store::read_first_word("/var/db/timezone/needs_cleanup"), "kept");
}

TEST(TextFiles, GiveTheFirstWord) {
    arrange_afresh();
    const std::string spaces(4091, ' '), word(4096 * 250 - 1, '7');
    std::ofstream("/var/db/word") << spaces << "\t\v\f\r\n" << word << "\xa0\nx";
    EXPECT_EQ(store::read_first_word("/var/db/word"), word + "\xa0");
    std::ofstream("/var/db/blank") << spaces;
    ASSERT_EQ(::mkfifo("/var/db/pipe", 0600), 0);
    store::write_text("/var/db/pipe", "for no reader");
    for (const char* path : {"/var/db/blank", "/var/db/pipe", "/tmp", "/tmp/none"})
        EXPECT_EQ(store::read_first_word(path), "");
}

/// Returns the fields of the version that the text gives, and how the warnings begin.
static std::string parsed(const std::string& text) {
    orv_version version("1999z.9.9");
    const auto printed = printed_by([&] { version.parse(text); });
    std::ostringstream fields;
    fields << version.year << version.letter << version.revision << "." << version.subrevision;
    return fields.str() + " " + printed.substr(0, printed.find(" string " + text + ","));
}

TEST(Version, IsAWholeTextOfAnyLength) {
    EXPECT_EQ(parsed("2016a.1.0") + parsed("2016a.1"), "2016a1.0 2016a1.-1 ");
    EXPECT_EQ(parsed("02016ab.01.002") + parsed("2147483647z"), "2016ab1.2 2147483647z-1.-1 ");
    for (const char* text : {"", "2016", "2016A.1.0", "2016a.1.0.0", "2016a.", "2016a.1.0/", ".1.0",
                             " 2016a", "2016a\n", "-2016a", "2016\xe4"})
        EXPECT_EQ(parsed(text), "-1-1.-1 tzpublish: Cannot parse version") << text;
    for (const char* text : {"2147483648a", "2016a.99999999999", "2016a.0.2147483648"})
        EXPECT_THROW(orv_version{text}, std::out_of_range) << text;
    const std::string zeros(1 << 20, '0'), letters(1 << 20, 'a');
    EXPECT_EQ(orv_version(zeros + zeros + "7a").year, 7);
    EXPECT_EQ(orv_version("7" + letters).letter, letters);
    EXPECT_THROW(orv_version("1" + zeros + "a"), std::out_of_range);
}

TEST(Version, IsOrderedByEachFieldInTurn) {
    std::vector<orv_version> ascending(1);
    for (const char* text : {"2016a", "2016a.0", "2016a.9.9", "2016a.10", "2016a.10.0", "2016aa",
                             "2016b", "2016z.9.9", "2017a.1.0"})
        ascending.emplace_back(text);
    for (const auto& a : ascending)
        for (const auto& b : ascending)
            EXPECT_EQ(a.newer_than(b), &a > &b) << a.letter << a.revision << " " << b.letter;
}

TEST(Component, IsComparedWithItsKind) {
    EXPECT_TRUE(orv_zoneinfo().compatible_schema(orv_icu()));
    const auto compare = [] { EXPECT_FALSE(orv_icu().compatible_schema(orv_zoneinfo())); };
    const std::string line = "orv_icu::compatible_schema: could not dynamic_cast other component: ";
    EXPECT_TRUE(printed_by(compare).starts_with("tzpublish: " + line));
}
