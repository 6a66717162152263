#pragma once

/// The small text files of the system: files of one word that are read, and a file that is written.
/// Every failure is silent. A pipe in a file's place does not hold up the run.

#include <string>

namespace store {

/// Returns the first word of the file, of whatever length: the bytes after any leading white space
/// (space, \t, \n, \v, \f, \r) up to the next white space or the end of the file. "\n 2016a x"
/// gives 2016a. A missing, unreadable or blank file gives the empty text.
std::string read_first_word(const std::string& path);

/// Makes `text` the whole contents of the file, which is created when missing.
void write_text(const char* path, const std::string& text);

} // namespace store
