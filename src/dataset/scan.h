#pragma once

/// Scanning a text from its front. Each function takes what it finds off the text.

#include <cstddef>
#include <string_view>

namespace dataset {

/// Takes and returns the characters from `first` to `last` that the text begins with.
inline std::string_view take_run(std::string_view& text, char first, char last) {
    std::size_t length = 0;
    while (length < text.size() && first <= text[length] && text[length] <= last)
        ++length;
    const auto run = text.substr(0, length);
    text.remove_prefix(length);
    return run;
}

/// Takes the literal if the text begins with it; returns whether it does.
inline bool take(std::string_view& text, std::string_view literal) {
    const bool found = text.starts_with(literal);
    if (found)
        text.remove_prefix(literal.size());
    return found;
}

} // namespace dataset
