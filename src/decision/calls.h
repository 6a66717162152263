#pragma once

/// Stands between the selection and the system. A source that includes this first, as the
/// compiler's option -include lets it, reads a system's files with these calls, and what it changes
/// is only noted. They return what those of the system do, and set errno alike.

#include <cstddef>
#include <fcntl.h>
#include <fts.h>
#include <string>
#include <sys/types.h>
#include <unistd.h>

namespace decision {

/// Lets the calls read the system in the directory `root`, as a process would that has it as its
/// root: no link there leads out of it. Empty for the running system. Returns whether there is one.
bool enter(const std::string& root);

/// Returns the target of the link at `path` after the calls so far; empty if there is none.
std::string target_of(const char* path);

} // namespace decision

/// Opens a file to read it. One that may be created is not, and what is written to it is lost.
int decision_open(const char* path, int flags, mode_t mode = 0);

ssize_t decision_readlink(const char* path, char* target, std::size_t size);
int decision_unlink(const char* path);
int decision_symlink(const char* target, const char* path);

/// Walks the first of `paths`; changes the working directory.
FTS* decision_fts_open(char* const* paths, int options,
                       int (*compare)(const FTSENT**, const FTSENT**));

#define open decision_open
#define readlink decision_readlink
#define unlink decision_unlink
#define symlink decision_symlink
#define fts_open decision_fts_open
