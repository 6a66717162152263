#pragma once

/// Data-protection classes, for a platform that has none. Its files are available once they are
/// mounted, which is all that the one class in use asks for. So giving a file the class does
/// nothing and succeeds, and creating a file with it is a plain open.

#include <sys/types.h>

namespace store {

/// Class 4: the contents stay available at all times.
inline constexpr int protection_class_always_available = 4;

/// Gives the open file or directory the class. Returns 0, or -1 with errno set.
int set_protection_class(int descriptor, int protection_class) noexcept;

/// Opens `path` as open does with the same flags and mode, and gives a file that this creates the
/// class. `options` is 0. Returns a descriptor, or a negative value with errno set.
int create_with_protection_class(const char* path, int flags, int protection_class, int options,
                                 mode_t mode) noexcept;

} // namespace store
