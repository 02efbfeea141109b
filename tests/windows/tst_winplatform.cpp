// The library's Windows calls, run on Windows (under wine in CI): version
// resources of real executables and debugger output seen by a real debugger.
//
// run.sh links this program three times: as tst_winplatform.exe with file
// version 3.1.0.25, as version-2.0.7.0.exe and as no-version.exe without a
// version resource, and once more with a version resource that has no fixed
// record (no-fixed-record.exe). Only tst_winplatform.exe runs the checks;
// started with --debuggee it writes the debugger lines that its parent,
// attached as the debugger, compares.
//
// Prints one line per check and ends with "N passed, N failed"; the exit code
// is 0 only when every check passed.

#include "debuggerloop.h"
#include "winplatform_p.h"

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

int passed = 0;
int failed = 0;

// Bytes outside printable ASCII are shown as \xNN, so that the log is the
// same whatever the console's code page.
std::string printable(const std::string &bytes)
{
    std::string out;
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b >= 0x20 && b < 0x7F) {
            out += c;
        } else {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", b);
            out += hex;
        }
    }
    return out;
}

void check(bool ok, const std::string &name, const std::string &detail = std::string())
{
    (ok ? passed : failed)++;
    std::printf("%s %s%s%s\n", ok ? "PASS" : "FAIL", name.c_str(), detail.empty() ? "" : ": ",
                printable(detail).c_str());
}

void checkEqual(const std::string &actual, const std::string &expected, const std::string &name)
{
    check(actual == expected, name, "got \"" + actual + "\", expected \"" + expected + "\"");
}

std::string toUtf8(const std::wstring &text)
{
    if (text.empty())
        return std::string();
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), int(text.size()), nullptr, 0, nullptr, nullptr);
    std::string out(size_t(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), int(text.size()), &out[0], size, nullptr, nullptr);
    return out;
}

std::wstring fromCodePage(UINT codePage, const std::string &bytes)
{
    if (bytes.empty())
        return std::wstring();
    const int size = MultiByteToWideChar(codePage, 0, bytes.data(), int(bytes.size()), nullptr, 0);
    std::wstring out(size_t(size), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), int(bytes.size()), &out[0], size);
    return out;
}

std::wstring ownPath()
{
    std::vector<wchar_t> buffer(32768);
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), DWORD(buffer.size()));
    return std::wstring(buffer.data(), length);
}

std::wstring folderOf(const std::wstring &path)
{
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

// What the library does for a path: fileVersionString on the UTF-8 bytes,
// with the debug message it would emit.
struct VersionResult
{
    std::string version;
    std::string message; // empty when the library emits none
};

VersionResult libraryVersionOf(const std::string &utf8Path)
{
    const char *message = nullptr;
    VersionResult result;
    result.version = Orvane::fileVersionString(utf8Path.c_str(), &message);
    if (message)
        result.message = message;
    return result;
}

const char versionError[] = "error in GetFileVersionInfo";

void checkVersion(const std::string &utf8Path, const std::string &expectedVersion,
                  const std::string &expectedMessage, const std::string &name)
{
    const VersionResult result = libraryVersionOf(utf8Path);
    checkEqual(result.version, expectedVersion, name + ": version");
    checkEqual(result.message, expectedMessage, name + ": debug message");
}

void checkFields(const std::string &utf8Path, const Orvane::FileVersionFields &expected,
                 const std::string &name)
{
    Orvane::FileVersionFields fields = {{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}};
    const bool ok = Orvane::readFileVersionFields(utf8Path.c_str(), fields) == Orvane::FileVersionRead::Ok;
    std::string got;
    for (const auto f : fields.field)
        got += std::to_string(f) + ' ';
    std::string want;
    for (const auto f : expected.field)
        want += std::to_string(f) + ' ';
    check(ok && got == want, name + ": four fields", "got " + got + "expected " + want);
}

void formatting()
{
    checkEqual(Orvane::formatFileVersion({{3, 1, 0, 25}}), "3.1.25", "format 3.1.0.25");
    checkEqual(Orvane::formatFileVersion({{2, 0, 7, 0}}), "2.0.0", "format 2.0.7.0");
    checkEqual(Orvane::formatFileVersion({{1, 2, 3, 4}}), "1.2.4", "format skips the third field");
    checkEqual(Orvane::formatFileVersion({{0, 0, 0, 0}}), "0.0.0", "format zeros");
    checkEqual(Orvane::formatFileVersion({{65535, 65535, 65535, 65535}}), "65535.65535.65535",
               "format largest fields");
}

void versionResources(const std::wstring &folder)
{
    const std::string self = toUtf8(ownPath());
    const std::string dir = toUtf8(folder);

    checkVersion(self, "3.1.25", "", "running executable 3.1.0.25");
    checkFields(self, {{3, 1, 0, 25}}, "running executable 3.1.0.25");
    checkVersion(dir + "version-2.0.7.0.exe", "2.0.0", "", "executable 2.0.7.0");
    checkFields(dir + "version-2.0.7.0.exe", {{2, 0, 7, 0}}, "executable 2.0.7.0");
    // Forward slashes are what QCoreApplication::applicationFilePath() gives.
    std::string forward = dir + "version-2.0.7.0.exe";
    for (char &c : forward)
        if (c == '\\')
            c = '/';
    checkVersion(forward, "2.0.0", "", "executable 2.0.7.0, path with forward slashes");

    checkVersion(dir + "no-version.exe", "", versionError, "executable without version resource");
    checkVersion(dir + "missing.exe", "", versionError, "missing file");
    checkVersion(dir + "not-a-program.txt", "", versionError, "file that is not a program");
    checkVersion("", "", versionError, "empty path");
    checkVersion(dir, "", versionError, "a folder");
    // A resource without its fixed record fails only at VerQueryValueA,
    // which the library does not report.
    checkVersion(dir + "no-fixed-record.exe", "", "", "version resource without fixed record");

    const char *message = "untouched";
    check(Orvane::fileVersionString(nullptr, &message).empty() && message
              && std::string(message) == versionError,
          "null path reads as a failed GetFileVersionInfoA");
    check(Orvane::fileVersionString(self.c_str(), nullptr) == "3.1.25",
          "no message pointer needed");
    Orvane::FileVersionFields untouched = {{7, 7, 7, 7}};
    check(Orvane::readFileVersionFields((dir + "no-version.exe").c_str(), untouched)
                  == Orvane::FileVersionRead::NoVersionInfo
              && untouched.field[0] == 7 && untouched.field[3] == 7,
          "fields untouched on failure");
}

// The 8-bit calls read the path in the ANSI code page, not as UTF-8. Under a
// code page other than UTF-8 the UTF-8 bytes of "é" name another file ("Ã©"
// in code page 1252): that file's version is read if it exists, else the
// read fails as for a missing file.
void nonAsciiPaths(const std::wstring &folder)
{
    const std::wstring dir = folder + L"non-ascii\\";
    CreateDirectoryW(dir.c_str(), nullptr);
    const std::wstring name = L"Gr\u00F6\u00DFe v\u00E9rsion \u6F22\u5B57.exe";
    const std::wstring real = dir + name;
    DeleteFileW(real.c_str());
    check(CopyFileW(ownPath().c_str(), real.c_str(), FALSE) != 0, "non-ASCII copy made");
    DWORD ignored = 0;
    check(GetFileVersionInfoSizeW(real.c_str(), &ignored) != 0,
          "non-ASCII copy has a version resource (read through the wide call)");

    const std::string utf8 = toUtf8(real);
    const UINT acp = GetACP();
    const std::wstring asSeen = fromCodePage(CP_ACP, utf8);
    std::printf("INFO ANSI code page %u; the UTF-8 path reads in it as %s\n", acp,
                printable(toUtf8(asSeen)).c_str());

    if (asSeen == real) {
        // A UTF-8 code page: the path is found as it is.
        checkVersion(utf8, "3.1.25", "", "non-ASCII path under a UTF-8 code page");
        return;
    }
    checkVersion(utf8, "", versionError, "non-ASCII UTF-8 path is not found");

    // Put a 2.0.7.0 executable where the 8-bit calls look: they read that one.
    DeleteFileW(asSeen.c_str());
    const bool made = CopyFileW((folder + L"version-2.0.7.0.exe").c_str(), asSeen.c_str(), FALSE) != 0;
    check(made, "copy at the name the code page makes of the UTF-8 bytes");
    if (made)
        checkVersion(utf8, "2.0.0", "", "non-ASCII UTF-8 path reads the file the code page names");
    DeleteFileW(asSeen.c_str());
    DeleteFileW(real.c_str());
}

// The lines the debuggee writes and the debugger strings they must produce:
// each line, then "\r\n" on its own.
const char *const debugLines[] = {"plain line", "gr\xC3\xBC\xC3\x9F" "e \xE6\xBC\xA2", "", nullptr};

std::vector<std::string> expectedDebugStrings()
{
    std::vector<std::string> out;
    for (const char *line : debugLines) {
        if (line)
            out.emplace_back(line);
        out.emplace_back("\r\n");
    }
    return out;
}

int runDebuggee()
{
    for (const char *line : debugLines)
        Orvane::sendDebuggerLine(line);
    return 0;
}

// Without a debugger the calls do nothing visible; they must not fail.
void debuggerOutputAlone()
{
    for (const char *line : debugLines)
        Orvane::sendDebuggerLine(line);
    check(true, "debugger output without a debugger returns");
}

// Starts this program with --debuggee as a debugged child and collects what
// it sends to the debugger.
void debuggerOutputSeenByDebugger()
{
    const std::wstring command = L"\"" + ownPath() + L"\" --debuggee";
    const DebugRun run = runUnderDebugger(command);
    if (!run.started) {
        check(false, "debuggee started", "CreateProcessW error " + std::to_string(run.startError));
        return;
    }
    const std::vector<std::string> &seen = run.strings;
    const bool exited = run.exited;
    const DWORD exitCode = run.exitCode;

    check(exited && exitCode == 0, "debuggee ran to its end", "exit code " + std::to_string(exitCode));
    const std::vector<std::string> expected = expectedDebugStrings();
    std::string got;
    for (const std::string &s : seen)
        got += "[" + s + "]";
    std::string want;
    for (const std::string &s : expected)
        want += "[" + s + "]";
    check(seen == expected, "debugger sees each line, then \"\\r\\n\" in a second call",
          "got " + got + ", expected " + want);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--debuggee") == 0)
        return runDebuggee();

    const std::wstring folder = folderOf(ownPath());
    formatting();
    versionResources(folder);
    nonAsciiPaths(folder);
    debuggerOutputAlone();
    debuggerOutputSeenByDebugger();

    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}
