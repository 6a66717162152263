#pragma once

/// Data-protection classes, on a platform without them. The only class in use asks that files be
/// readable at all times; here all files on a mounted file system are. So setting the class does
/// nothing, and creating a file with it is a plain open. On a platform that has the classes, only
/// protection_class.cpp changes.

#include <sys/types.h>

namespace store {

/// Class 4: the contents stay available at all times.
inline constexpr int protection_class_always_available = 4;

/// Sets the class of an open file or directory. Returns 0, or -1 with errno set.
int set_protection_class(int descriptor, int protection_class) noexcept;

/// Like open(2); a file that the call creates gets the class. `options` must be 0. Returns a
/// descriptor, or a negative value with errno set.
int create_with_protection_class(const char* path, int flags, int protection_class, int options,
                                 mode_t mode) noexcept;

} // namespace store
