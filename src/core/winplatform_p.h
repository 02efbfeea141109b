#ifndef ORVANE_WINPLATFORM_P_H
#define ORVANE_WINPLATFORM_P_H

// The library's Windows system calls (version resources, debugger output)
// behind a plain C++ interface without Qt, so that this file alone can be
// cross-built for Windows and run there by tests/windows, although the whole
// library cannot be built for Windows on every machine. The library calls the
// Windows part under Q_OS_WIN and wraps it in Qt types; the formatting is
// shared by every platform.
//
// Paths and lines are 8-bit strings handed to the "A" calls unchanged. The
// library passes UTF-8, which those calls read in the ANSI code page: a path
// with non-ASCII characters then names another file (or none) unless the
// code page is UTF-8, and a non-ASCII debugger line shows as its UTF-8 bytes.

#include <cstdint>
#include <string>

namespace Orvane {

// The four 16-bit fields of a file version, most significant first:
// version 3.1.0.25 is {3, 1, 0, 25}.
struct FileVersionFields
{
    std::uint16_t field[4];
};

// "major.minor.build": the first, second and fourth field in decimal without
// leading zeros. The third field is skipped on purpose: 1.2.3.4 gives "1.2.4".
std::string formatFileVersion(const FileVersionFields &fields);

#ifdef _WIN32

enum class FileVersionRead {
    Ok,
    NoVersionInfo, // GetFileVersionInfoA failed: no such file, or no resource
    NoFixedRecord  // the resource has no usable fixed version record
};

// Reads the fixed version record of the file at `path` into `fields`, which
// is left untouched unless the result is Ok. A null path reads as failure.
FileVersionRead readFileVersionFields(const char *path, FileVersionFields &fields);

// The version of the file at `path` as formatFileVersion() gives it, or an
// empty string. When GetFileVersionInfoA fails, *failureMessage (if given)
// is set to the debug message the library emits for it, "error in
// GetFileVersionInfo"; otherwise it is set to null.
std::string fileVersionString(const char *path, const char **failureMessage);

// Sends `line` to the debugger, then "\r\n" in a second call, so that a
// debugger that shows each call as it comes sees whole lines. A null line
// sends only the line break; the line ends at its first NUL byte.
void sendDebuggerLine(const char *line);

#endif // _WIN32

} // namespace Orvane

#endif // ORVANE_WINPLATFORM_P_H
