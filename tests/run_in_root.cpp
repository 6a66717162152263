// Linked with the program, runs it in the root directory that its argument names. Unlike chroot(8),
// needs no libraries in there, and leaves by the working directory: the leak checker needs /proc.

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
