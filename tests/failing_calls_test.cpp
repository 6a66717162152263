// Makes the file-system calls of a run fail, one after another. The linker puts these definitions
// in front of the C library's.

#include "startup/startup_sequence.h"
#include "store_tree.h"

#include <fts.h>
#include <regex>
#include <sys/stat.h>

static int calls, failing, error;
static bool for_good;

static bool next_fails() {
    if (failing == 0 || ++calls < failing || (calls > failing && !for_good))
        return false;
    errno = error;
    return true;
}

#define MAY_FAIL(result, failure, call, parameters, ...)                                           \
    extern "C" result __real_##call parameters;                                                    \
    extern "C" result __wrap_##call parameters {                                                   \
        return next_fails() ? failure : __real_##call(__VA_ARGS__);                                \
    }
MAY_FAIL(int, -1, unlink, (const char* path), path)
MAY_FAIL(int, -1, remove, (const char* path), path)
MAY_FAIL(int, -1, symlink, (const char* target, const char* path), target, path)
MAY_FAIL(ssize_t, -1, readlink, (const char* path, char* to, size_t size), path, to, size)
MAY_FAIL(int, -1, access, (const char* path, int mode), path, mode)
MAY_FAIL(int, -1, open, (const char* path, int flags, mode_t mode), path, flags, mode)
MAY_FAIL(ssize_t, -1, read, (int file, void* to, size_t size), file, to, size)
MAY_FAIL(int, -1, fstat, (int file, struct stat* status), file, status)
using order = int(const FTSENT**, const FTSENT**);
MAY_FAIL(FTS*, nullptr, fts_open, (char* const* roots, int how, order* by), roots, how, by)

TEST(WholeRun, GoesOnWhicheverCallFails) {
    const std::regex diagnostics("(tzpublish: .+: .+\n)*");
    const std::string outputs =
        "zoneinfo | localtime | /var/db/icutz | needs_cleanup | TZVersionDiffRecord";
    for (const std::string before :
         {"zoneinfo | localtime", "tz_latest -> @2016b.1.0", "UPDATE-B | tz_latest -> @2016c.1.0",
          "UPDATE-B | TREE/+VERSION = 2016c", "localtime -> /usr/share/zoneinfo/Europe/Paris"})
        for (int round = 0; round < 4; ++round)
            for (int call = 1; call == 1 || calls > call; ++call) {
                SCOPED_TRACE(before + ", call " + std::to_string(call));
                arrange_afresh(before + " | " + outputs);
                const auto untouched = stored();
                arrange_afresh(before);
                const auto printed = printed_by([&] {
                    calls = 0, for_good = round % 2 == 1, error = round < 2 ? EIO : EROFS;
                    failing = call;
                    run_startup_sequence();
                    failing = 0;
                });
                EXPECT_TRUE(std::regex_match(printed, diagnostics)) << printed;
                printed_by(run_startup_sequence);
                const auto zone = fs::read_symlink("/var/db/timezone/localtime").string();
                EXPECT_TRUE(zone.starts_with("/var/db/timezone/zoneinfo/"));
                EXPECT_TRUE(fs::is_directory("/var/db/timezone/zoneinfo"));
                arrange(outputs);
                EXPECT_EQ(stored(), untouched);
            }
}
