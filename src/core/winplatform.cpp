#include "winplatform_p.h"

#include <cstdio>

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <winver.h>

#include <vector>
#endif

namespace Orvane {

std::string formatFileVersion(const FileVersionFields &fields)
{
    // snprintf rather than std::to_string, whose digit table would be
    // exported from the shared library as a unique symbol.
    char text[24];
    std::snprintf(text, sizeof text, "%u.%u.%u", unsigned(fields.field[0]), unsigned(fields.field[1]),
                  unsigned(fields.field[3]));
    return text;
}

#ifdef _WIN32

FileVersionRead readFileVersionFields(const char *path, FileVersionFields &fields)
{
    if (!path)
        return FileVersionRead::NoVersionInfo;
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &handle);
    std::vector<char> buffer(size);
    if (size == 0 || !GetFileVersionInfoA(path, handle, size, buffer.data()))
        return FileVersionRead::NoVersionInfo;
    void *record = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(buffer.data(), "\\", &record, &length) || !record
        || length < sizeof(VS_FIXEDFILEINFO))
        return FileVersionRead::NoFixedRecord;
    const auto *info = static_cast<const VS_FIXEDFILEINFO *>(record);
    fields.field[0] = HIWORD(info->dwFileVersionMS);
    fields.field[1] = LOWORD(info->dwFileVersionMS);
    fields.field[2] = HIWORD(info->dwFileVersionLS);
    fields.field[3] = LOWORD(info->dwFileVersionLS);
    return FileVersionRead::Ok;
}

std::string fileVersionString(const char *path, const char **failureMessage)
{
    FileVersionFields fields = {};
    const FileVersionRead result = readFileVersionFields(path, fields);
    if (failureMessage)
        *failureMessage = result == FileVersionRead::NoVersionInfo ? "error in GetFileVersionInfo" : nullptr;
    return result == FileVersionRead::Ok ? formatFileVersion(fields) : std::string();
}

void sendDebuggerLine(const char *line)
{
    if (line)
        OutputDebugStringA(line);
    OutputDebugStringA("\r\n");
}

#endif // _WIN32

} // namespace Orvane
