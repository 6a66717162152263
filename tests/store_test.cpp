#include "store/primitives.h"
#include "store/text_files.h"
#include "store_tree.h"

#include <sys/stat.h>

TEST(Primitives, ThrowTheErrorOfTheFailedCall) {
    const std::pair<int, void (*)()> failures[] = {
        {EISDIR, [] { store::remove("/tmp"); }},
        {EINVAL, [] { store::read_symlink("/tmp"); }},
        {EEXIST, [] { store::create_symlink("x", "/tmp"); }}};
    for (const auto& [error, action] : failures)
        try {
            action();
            ADD_FAILURE();
        } catch (int thrown) {
            EXPECT_EQ(thrown, error);
        }
}

TEST(Primitives, AreQuietAboutWhatIsMissingOrThere) {
    arrange("/tmp/x | needs_cleanup = kept");
    EXPECT_EQ(printed_by([] {
                  store::remove("/tmp/x");
                  store::create_symlink(std::string(1500, 'y'), "/tmp/x");
                  EXPECT_EQ(store::read_symlink("/tmp/x"), std::string(1024, 'y'));
                  store::remove("/tmp/x");
                  EXPECT_EQ(store::read_symlink("/tmp/x"), "");
                  store::set_path_protection_class("/tmp/x");
                  store::mark_needs_cleanup();
              }),
              "");
    EXPECT_EQ(store::read_first_word("/var/db/timezone/needs_cleanup"), "kept");
}

TEST(TextFiles, GiveTheFirstWord) {
    const std::string spaces(5000, ' '), word(1'000'000, '7');
    for (const auto& [text, first] : {std::pair<std::string, std::string>{spaces + word, word},
                                      {"\n \t\v\f\r2016\xa0 b", "2016\xa0"},
                                      {spaces, ""}}) {
        std::ofstream("/tmp/word") << text;
        EXPECT_EQ(store::read_first_word("/tmp/word"), first);
    }
    ASSERT_EQ(::mkfifo("/tmp/pipe", 0600), 0);
    store::write_text("/tmp/pipe", "for no reader");
    for (const char* path : {"/tmp/pipe", "/tmp", "/tmp/none"})
        EXPECT_EQ(store::read_first_word(path), "");
}
