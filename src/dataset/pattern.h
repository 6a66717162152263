#pragma once

/// Regular expressions in the ECMAScript grammar, for matching whole texts of any length.

#include <regex>

namespace dataset {

/// The standard traits, less the support for [[=x=]] and [[:class:]]. Compiling a bracket
/// expression asks about both for each of 256 characters, five sixths of its time.
struct plain_bracket_traits : std::regex_traits<char> {
    template <typename Iterator>
    string_type transform_primary(Iterator /*first*/, Iterator /*last*/) const {
        return {};
    }
    bool isctype(char character, char_class_type mask) const {
        return mask != char_class_type() && std::regex_traits<char>::isctype(character, mask);
    }
};

/// A compiled pattern. Make constant patterns function-local statics: a run that does not use one
/// does not pay for it.
using pattern = std::basic_regex<char, plain_bracket_traits>;

#ifdef __GLIBCXX__
/// By default this library matches by recursion, and a text of some 50,000 characters overflows the
/// stack. This option, a reserved name of the library, makes it match without. No scanner takes the
/// patterns' place: they are the system's own texts, checked as they stand.
inline constexpr auto pattern_syntax =
    std::regex_constants::ECMAScript | std::regex_constants::__polynomial;
#else
inline constexpr auto pattern_syntax = std::regex_constants::ECMAScript;
#endif

} // namespace dataset
