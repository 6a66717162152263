// Linked with the program, runs it in the root directory that its argument names.

#include <err.h>
#include <unistd.h>

namespace {

[[gnu::constructor]] void enter(int /*argc*/, char** argv) {
    if (::chdir("/") != 0 || ::chroot(argv[1]) != 0)
        ::err(2, "%s", argv[1]);
}

// Out again, by the working directory: the leak checker, which follows, needs /proc.
[[gnu::destructor]] void leave() {
    [[maybe_unused]] const int error = ::chroot(".");
}

} // namespace
