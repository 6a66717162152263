#include "store/primitives.h"

#include "store/layout.h"
#include "store/protection_class.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <err.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace store {

namespace {

/// Creates the file if it is missing; leaves it alone otherwise. Returns whether it could be
/// opened, queried and closed.
bool touch(const char* path) {
    const int file = create_with_protection_class(path, O_RDWR | O_CREAT,
                                                  protection_class_always_available, 0, 0666);
    if (file < 0)
        return false;
    struct stat status;
    const bool queried = ::fstat(file, &status) == 0;
    return ::close(file) == 0 && queried;
}

} // namespace

void remove(const char* path) {
    if (::unlink(path) == 0 || errno == ENOENT)
        return;
    const int error = errno;
    ::warn("remove: could not remove %s", path);
    throw error;
}

std::string read_symlink(const char* path) {
    std::array<char, 1024> target{};
    const ssize_t length = ::readlink(path, target.data(), target.size());
    if (length >= 0)
        return {target.data(), static_cast<std::size_t>(length)};
    if (errno == ENOENT)
        return {};
    const int error = errno;
    ::warn("read_symlink: %s", path);
    throw error;
}

void create_symlink(const std::string& target, const char* link_path) {
    if (::symlink(target.c_str(), link_path) == 0)
        return;
    const int error = errno;
    ::warn("create_symlink: from %s to %s", link_path, target.c_str());
    throw error;
}

void mark_needs_cleanup() noexcept {
    if (!touch(cleanup_marker))
        ::warn("Cannot touch file %s", cleanup_marker);
}

void set_path_protection_class(const char* path) noexcept {
    const int directory = ::open(path, O_RDONLY | O_CLOEXEC);
    if (directory < 0)
        return;
    set_protection_class(directory, protection_class_always_available);
    ::close(directory);
}

} // namespace store
