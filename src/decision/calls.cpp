#include "decision/calls.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <fts.h>
#include <linux/openat2.h>
#include <map>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

// Here, the system's are meant.
#undef open
#undef readlink
#undef unlink
#undef symlink
#undef fts_open

namespace {

int root_directory = -1;

/// The links that were created, and with an empty target those that were removed.
std::map<std::string, std::string> changed;

bool is_missing(const char* path) {
    std::array<char, 1> target;
    return decision_readlink(path, target.data(), target.size()) < 0 && errno == ENOENT;
}

bool is_directory(const char* path) {
    const int directory = decision_open(path, O_PATH | O_NOFOLLOW | O_DIRECTORY | O_CLOEXEC);
    return directory >= 0 && ::close(directory) == 0;
}

int fail_with(int error) {
    errno = error;
    return -1;
}

} // namespace

bool decision::enter(const std::string& root) {
    if (!root.empty())
        root_directory = ::open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    return root.empty() || root_directory >= 0;
}

std::string decision::target_of(const char* path) {
    if (const auto link = changed.find(path); link != changed.end())
        return link->second;
    std::array<char, 4096> target;
    const ssize_t length = decision_readlink(path, target.data(), target.size());
    return length < 0 ? "" : std::string(target.data(), static_cast<std::size_t>(length));
}

int decision_open(const char* path, int flags, mode_t /*mode*/) {
    if ((flags & O_CREAT) != 0)
        return ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (root_directory < 0)
        return ::open(path, flags);
    open_how how{};
    how.flags = static_cast<unsigned>(flags);
    how.resolve = RESOLVE_IN_ROOT;
    return static_cast<int>(::syscall(SYS_openat2, root_directory, path, &how, sizeof how));
}

ssize_t decision_readlink(const char* path, char* target, std::size_t size) {
    if (root_directory < 0)
        return ::readlink(path, target, size);
    const int link = decision_open(path, O_PATH | O_NOFOLLOW | O_CLOEXEC);
    if (link < 0)
        return -1;
    struct stat status {};
    const bool is_link = ::fstat(link, &status) == 0 && S_ISLNK(status.st_mode);
    const ssize_t length = is_link ? ::readlinkat(link, "", target, size) : fail_with(EINVAL);
    const int error = errno;
    ::close(link);
    errno = error;
    return length;
}

int decision_unlink(const char* path) {
    if (is_missing(path))
        return -1;
    if (is_directory(path))
        return fail_with(EISDIR);
    changed[path].clear();
    return 0;
}

int decision_symlink(const char* target, const char* path) {
    if (!changed.contains(path) && !is_missing(path))
        return fail_with(EEXIST);
    changed[path] = target;
    return 0;
}

FTS* decision_fts_open(char* const* paths, int options,
                       int (*compare)(const FTSENT**, const FTSENT**)) {
    if (root_directory < 0)
        return ::fts_open(paths, options, compare);
    // What is no directory has nothing that counts, and neither has a walk of this device.
    const int directory = decision_open(paths[0], O_PATH | O_DIRECTORY | O_CLOEXEC);
    std::string path = ::fchdir(directory) == 0 ? "." : "/dev/null";
    ::close(directory);
    char* const in_root[] = {path.data(), nullptr};
    return ::fts_open(in_root, options, compare);
}
