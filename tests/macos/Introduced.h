#pragma once

/// INTRODUCED(10.4) after a declaration: the first version of macOS that has it. When the sources are read as
/// on macOS, clang refuses what is newer than the deployment target outside an availability check.

#if defined(__clang__)
// NOLINTNEXTLINE(bugprone-macro-parentheses): the attribute takes none.
#define INTRODUCED(version) __attribute__((availability(macos, introduced = version)))
#else
#define INTRODUCED(version)
#endif
