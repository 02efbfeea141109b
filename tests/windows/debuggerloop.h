// Runs a program as a debugged child and collects the strings it sends to
// the debugger (OutputDebugString), for the Windows tests.
//
//   DebugRun run = runUnderDebugger(L"\"prog.exe\" --debuggee");
//   // run.started, run.exited, run.exitCode, run.strings
#ifndef ORVANE_TESTS_DEBUGGERLOOP_H
#define ORVANE_TESTS_DEBUGGERLOOP_H

#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

struct DebugRun
{
    bool started = false;
    bool exited = false;
    DWORD startError = 0;
    DWORD exitCode = 0xFFFFFFFF;
    std::vector<std::string> strings;
};

inline std::string readDebugString(HANDLE process, const OUTPUT_DEBUG_STRING_INFO &info)
{
    // The length is a 16-bit count that includes the closing NUL.
    const size_t length = info.nDebugStringLength;
    std::vector<char> bytes(length + 1, '\0');
    SIZE_T read = 0;
    ReadProcessMemory(process, info.lpDebugStringData, bytes.data(), length, &read);
    if (info.fUnicode)
        return "(wide string)";
    return std::string(bytes.data(), strnlen(bytes.data(), read));
}

inline DebugRun runUnderDebugger(std::wstring command)
{
    DebugRun run;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child = {};
    if (!CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS, nullptr,
                        nullptr, &startup, &child)) {
        run.startError = GetLastError();
        return run;
    }
    run.started = true;
    while (!run.exited) {
        DEBUG_EVENT event = {};
        if (!WaitForDebugEvent(&event, 30000)) {
            TerminateProcess(child.hProcess, 1);
            break;
        }
        DWORD status = DBG_CONTINUE;
        switch (event.dwDebugEventCode) {
        case CREATE_PROCESS_DEBUG_EVENT:
            if (event.u.CreateProcessInfo.hFile)
                CloseHandle(event.u.CreateProcessInfo.hFile);
            break;
        case LOAD_DLL_DEBUG_EVENT:
            if (event.u.LoadDll.hFile)
                CloseHandle(event.u.LoadDll.hFile);
            break;
        case OUTPUT_DEBUG_STRING_EVENT:
            run.strings.push_back(readDebugString(child.hProcess, event.u.DebugString));
            break;
        case EXCEPTION_DEBUG_EVENT:
            if (event.u.Exception.ExceptionRecord.ExceptionCode != EXCEPTION_BREAKPOINT)
                status = DBG_EXCEPTION_NOT_HANDLED;
            break;
        case EXIT_PROCESS_DEBUG_EVENT:
            run.exitCode = event.u.ExitProcess.dwExitCode;
            run.exited = true;
            break;
        default:
            break;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, status);
    }
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return run;
}

#endif // ORVANE_TESTS_DEBUGGERLOOP_H
