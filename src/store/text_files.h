#pragma once

/// Reads the first word of small text files and writes the record. Failures are silent. Neither
/// call waits for the other end of a pipe: one without a writer reads as blank, and one without a
/// reader is not written.

#include <string>

namespace store {

/// Returns the first word of the file at `path`, of any length: the bytes after leading white
/// space, up to the next white space or the end. White space is space, \t, \n, \v, \f and \r only.
/// A file containing "\n 2016a x" gives 2016a. A file that is missing, unreadable or blank gives
/// the empty string; a read that fails halfway counts as the end.
std::string read_first_word(const std::string& path);

/// Replaces the contents of the file with `text`, creating it if necessary; of a link, those of the
/// file that it names. A file that cannot be opened is left as it is.
void write_text(const char* path, const std::string& text);

} // namespace store
