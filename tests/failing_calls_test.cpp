// Makes the file-system calls of a run fail. The linker puts these in front of the C library's.

#include "startup/startup_sequence.h"
#include "store_tree.h"

#include <regex>

static int calls, failing, error;
static bool armed, for_good;

static bool next_fails() {
    if (!armed || ++calls < failing || (calls > failing && !for_good))
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
MAY_FAIL(ssize_t, -1, write, (int file, const void* from, size_t size), file, from, size)
MAY_FAIL(int, -1, fstat, (int file, void* status), file, status)
MAY_FAIL(int, (__real_close(file), -1), close, (int file), file)
MAY_FAIL(void*, nullptr, fts_open, (void* roots, int options, void* order), roots, options, order)

static void run_with_a_failure() {
    calls = 0, armed = true;
    run_startup_sequence();
    armed = false;
}

TEST(WholeRun, GoesOnWhicheverCallFails) {
    const std::string outputs =
        " | zoneinfo | localtime | /var/db/icutz | needs_cleanup | TZVersionDiffRecord";
    std::string all_printed;
    for (const std::string before :
         {"zoneinfo | localtime", "tz_latest -> @2016b.1.0", "UPDATE-B | tz_latest -> @2016c.1.0",
          "UPDATE-B | TREE/+VERSION = 2016c", "localtime -> /usr/share/zoneinfo/Europe/Paris"})
        for (const int kind : {0, 1, 2, 3}) {
            error = kind % 2 == 0 ? EIO : EROFS;
            for_good = kind / 2 == 1;
            for (calls = failing = 1; calls >= failing; ++failing) {
                SCOPED_TRACE(before + ", call " + std::to_string(failing));
                arrange_afresh(before + outputs);
                const auto untouched = stored();
                arrange_afresh(before);
                const auto printed = printed_by(run_with_a_failure);
                EXPECT_TRUE(regex_match(printed, std::regex("(tzpublish: .+: .+\n)*"))) << printed;
                all_printed += printed;
                printed_by(run_startup_sequence);
                EXPECT_TRUE(fs::exists("/var/db/timezone/localtime"));
                arrange(outputs);
                EXPECT_EQ(stored(), untouched);
            }
            EXPECT_GT(failing, 20);
        }
    EXPECT_NE(all_printed.find("/icutz failed, Input/output error: Input/output error\n"), -1);
}
