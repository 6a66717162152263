#pragma once

/// The operations that change or inspect the links and the marker of the store.
///
/// One failure rule: the absence of the thing to be removed or read is no failure. Any other failed
/// call is reported on standard error with warn, which puts the program's name before the message
/// and the text of errno behind it,
///
///     tzpublish: remove: could not remove /var/db/icutz: Is a directory
///
/// and its errno is then thrown as an int. Nothing is retried or undone.

#include <string>

namespace store {

/// Thrown by whoever judges a link and finds that its target will not do.
inline constexpr int invalid_target = -1;

/// Removes the link or file at `path`, never what a link points at. Returns quietly when nothing is
/// there. A directory is a failure: "remove: could not remove PATH". Unlike the C library's remove,
/// it is loud.
void remove(const char* path);

/// Returns the target of the link at `path` as stored, cut to its first 1024 bytes; the empty text
/// when nothing is there. An entry that is no link is a failure: "read_symlink: PATH".
std::string read_symlink(const char* path);

/// Makes a link at `link_path` that holds `target`, which need not exist. An entry already there
/// stays and is a failure: "create_symlink: from LINK_PATH to TARGET". To re-point a link, remove
/// it first; in between it is absent.
void create_symlink(const std::string& target, const char* link_path);

/// Creates cleanup_marker, empty, or leaves one that is there as it is. Any failure is one line,
/// "Cannot touch file MARKER"; nothing is thrown.
void mark_needs_cleanup() noexcept;

/// Keeps the contents of the directory at `path` available at all times. Prints nothing and throws
/// nothing, whatever fails.
void set_path_protection_class(const char* path) noexcept;

} // namespace store
