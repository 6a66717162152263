#pragma once

/// Regular expressions in the ECMAScript grammar, for matching whole texts of any length.

#include <regex>

namespace dataset {

/// The standard traits without what only the bracket forms [[=x=]] and [[:class:]] need. The
/// library asks for both once for each of the 256 characters of every bracket expression, which
/// makes up five sixths of the cost of compiling a pattern.
struct plain_bracket_traits : std::regex_traits<char> {
    template <typename Iterator>
    string_type transform_primary(Iterator /*first*/, Iterator /*last*/) const {
        return {};
    }
    bool isctype(char character, char_class_type mask) const {
        return mask != char_class_type() && std::regex_traits<char>::isctype(character, mask);
    }
};

/// A compiled pattern. Compile a constant one in a function's static variable: a run that does not
/// need it then never pays for it.
using pattern = std::basic_regex<char, plain_bracket_traits>;

#ifdef __GLIBCXX__
/// This library matches by recursion unless told otherwise: a text of some 50,000 characters would
/// overflow the stack.
inline constexpr auto pattern_syntax =
    std::regex_constants::ECMAScript | std::regex_constants::__polynomial;
#else
inline constexpr auto pattern_syntax = std::regex_constants::ECMAScript;
#endif

} // namespace dataset
