#include "store/protection_class.h"

#include <fcntl.h>
#include <sys/types.h>

namespace store {

int set_protection_class(int /*descriptor*/, int /*protection_class*/) noexcept {
    return 0;
}

int create_with_protection_class(const char* path, int flags, int /*protection_class*/,
                                 int /*options*/, mode_t mode) noexcept {
    return ::open(path, flags, mode);
}

} // namespace store
