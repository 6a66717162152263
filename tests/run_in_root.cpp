// Runs the program it is linked with in a root directory without libraries, its argument. Keeps its
// working directory outside, so that `leave` can chroot back: the leak checker needs /proc.

#include <err.h>
#include <unistd.h>

namespace {

[[gnu::constructor]] void enter(int /*argc*/, char** argv) {
    if (::chdir("/") != 0 || ::chroot(argv[1]) != 0)
        ::err(2, "%s", argv[1]);
}

[[gnu::destructor]] void leave() {
    [[maybe_unused]] const int error = ::chroot(".");
}

} // namespace
