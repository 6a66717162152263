#include "store/text_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>

// Plain calls, as opening a stream waits for the other end of a pipe, and a boot would wait too.

namespace store {

std::string read_first_word(const std::string& path) {
    constexpr std::string_view white_space = " \t\n\v\f\r";
    std::string word;
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return word;
    std::array<char, 4096> buffer;
    ssize_t length = 0;
    while ((length = ::read(file, buffer.data(), buffer.size())) > 0) {
        std::string_view bytes(buffer.data(), static_cast<std::size_t>(length));
        if (word.empty())
            bytes.remove_prefix(std::min(bytes.find_first_not_of(white_space), bytes.size()));
        const auto end = bytes.find_first_of(white_space);
        word += bytes.substr(0, end);
        if (end != std::string_view::npos)
            break;
    }
    ::close(file);
    return word;
}

void write_text(const char* path, const std::string& text) {
    const int file = ::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file < 0)
        return;
    [[maybe_unused]] const ssize_t written = ::write(file, text.data(), text.size());
    ::close(file);
}

} // namespace store
