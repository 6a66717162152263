#pragma once

/// The file-system operations on the store's links, marker and directories.
///
/// remove, read_symlink and create_symlink share one failure rule: it is no failure if the entry to
/// remove or read does not exist. Any other failed call is reported on standard error with warn,
/// which adds the program's name and the errno text,
///
///     tzpublish: remove: could not remove /var/db/icutz: Is a directory
///
/// and its errno is thrown as an int. No caller looks at the value: the line is printed already.
/// Nothing is retried or undone.
///
/// The wording of every diagnostic, here and elsewhere, is fixed, oddities included: people and
/// scripts search logs for it.

#include <string>

namespace store {

/// Thrown instead of an errno for a link whose target is not acceptable.
inline constexpr int invalid_target = -1;

/// Removes the link or file at `path`; a link's target is left alone. Does nothing if `path` does
/// not exist. Fails on a directory: "remove: could not remove PATH". Unlike std::remove, reports
/// its failures.
void remove(const char* path);

/// Returns the target of the link, as stored and truncated to 1024 bytes, or the empty string if
/// `path` does not exist. Fails if the entry is not a link: "read_symlink: PATH".
std::string read_symlink(const char* path);

/// Creates a link at `link_path` containing `target`, which need not exist. Fails if the entry
/// exists, and leaves it alone: "create_symlink: from LINK_PATH to TARGET". To re-point a link,
/// remove it first; until the new one is created there is none.
void create_symlink(const std::string& target, const char* link_path);

/// Creates an empty cleanup_marker; an existing one is left as it is. A failure prints "Cannot
/// touch file MARKER" and is not thrown.
void mark_needs_cleanup() noexcept;

/// Asks the platform to keep the directory's contents available at all times. Failures are ignored.
void set_path_protection_class(const char* path) noexcept;

} // namespace store
