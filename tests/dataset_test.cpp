#include "dataset/orv_icu.h"
#include "dataset/orv_version.h"
#include "dataset/orv_zoneinfo.h"
#include "store_tree.h"

/// Returns the fields of the version that the text gives, and how the warnings begin.
static std::string parsed(const std::string& text) {
    orv_version version("1999z.9.9");
    const auto printed = printed_by([&] { version.parse(text); });
    std::ostringstream fields;
    fields << version.year << version.letter << version.revision << "." << version.subrevision;
    return fields.str() + printed.substr(0, printed.find(" string " + text + ","));
}

TEST(Version, IsAWholeText) {
    const std::string rejected = parsed("");
    EXPECT_EQ(rejected, "-1-1.-1tzpublish: Cannot parse version");
    const std::pair<std::string, std::string> versions[] = {{"2016a.1.0", "2016a1.0"},
                                                            {"2016a.1", "2016a1.-1"},
                                                            {"2147483647z", "2147483647z-1.-1"},
                                                            {"02016ab.01.002", "2016ab1.2"},
                                                            {"2016", rejected},
                                                            {"2016A.1.0", rejected},
                                                            {"2016a.1.0.0", rejected},
                                                            {"2016a.", rejected},
                                                            {"2016a.1.0/", rejected},
                                                            {" 2016a", rejected},
                                                            {"2016a\n", rejected},
                                                            {"-2016a", rejected},
                                                            {"2016\xe4", rejected}};
    for (const auto& [text, fields] : versions)
        EXPECT_EQ(parsed(text), fields);
    for (const char* text : {"2147483648a", "2016a.99999999999", "2016a.0.2147483648"})
        EXPECT_THROW(orv_version{text}, std::out_of_range) << text;
}

TEST(Version, MayHaveMillionsOfBytes) {
    const std::string zeros(1'500'000, '0'), letters(1'500'000, 'a');
    EXPECT_EQ(orv_version(zeros + "7a").year, 7);
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
    const auto printed =
        printed_by([] { EXPECT_FALSE(orv_icu().compatible_schema(orv_zoneinfo())); });
    EXPECT_EQ(printed.find("tzpublish: orv_icu::compatible_schema: could not dynamic_cast other"),
              0);
}
