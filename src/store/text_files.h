#pragma once

/// The small text files of the system: files of one word, which are read, and the record, which is
/// written. Every failure is silent. A pipe in a file's place is not waited for: it counts as blank
/// to read, and as one that cannot be opened to write.

#include <string>

namespace store {

/// Returns the first word of the file at `path`, of whatever length: the bytes after any leading
/// white space, up to the next white space or the end of the file. White space is space, tab and
/// \n, \v, \f, \r, never a byte above 127. A file of "\n 2016a x" gives 2016a; one that is missing,
/// unreadable or blank gives the empty text.
std::string read_first_word(const std::string& path);

/// Makes `text` the whole contents of the file at `path`, which is created when missing. If it
/// cannot be opened, what stands there stays as it is.
void write_text(const char* path, const std::string& text);

} // namespace store
