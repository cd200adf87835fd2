#include "kit/ChildProgram.h"

#include "kit/Platform.h"

#include <memory>

namespace testkit
{
namespace
{

struct CloseTheHandle
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseTheHandle>;

std::wstring CommandLine(const std::filesystem::path& program, const std::vector<std::wstring>& arguments)
{
    std::wstring line = L"\"" + program.wstring() + L"\"";
    for (const std::wstring& argument : arguments) {
        line += L" \"" + argument + L"\"";
    }
    return line;
}

// Reads what there is, without waiting for more.
void ReadAvailable(HANDLE pipe, std::string& text)
{
    DWORD available = 0;
    while (PeekNamedPipe(pipe, nullptr, 0, nullptr, &available, nullptr) && available > 0) {
        char buffer[4096];
        DWORD count = 0;
        if (!ReadFile(pipe, buffer, sizeof buffer, &count, nullptr)) {
            return;
        }
        text.append(buffer, count);
    }
}

} // namespace

ProgramResult RunProgram(const std::filesystem::path& program, const std::vector<std::wstring>& arguments,
                         unsigned milliseconds)
{
    ProgramResult result;
    SECURITY_ATTRIBUTES inherited{};
    inherited.nLength = sizeof inherited;
    inherited.bInheritHandle = TRUE;
    HANDLE readEnd = nullptr, writeEnd = nullptr;
    if (!CreatePipe(&readEnd, &writeEnd, &inherited, 1 << 16)) {
        result.output = "there is no pipe: error " + std::to_string(GetLastError());
        return result;
    }
    const Handle reader(readEnd);
    Handle writer(writeEnd);
    SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = writeEnd;
    PROCESS_INFORMATION process{};
    std::wstring line = CommandLine(program, arguments);
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process))
    {
        result.output = "the program does not start: error " + std::to_string(GetLastError());
        return result;
    }
    const Handle thread(process.hThread), child(process.hProcess);
    writer.reset();

    // The pipe is emptied while the child runs: a full one would stop it. Its end is that of the
    // process, not of the pipe, which grandchildren may hold open.
    const ULONGLONG end = GetTickCount64() + milliseconds;
    DWORD state = WAIT_TIMEOUT;
    while ((state = WaitForSingleObject(child.get(), 10)) == WAIT_TIMEOUT && GetTickCount64() < end) {
        ReadAvailable(readEnd, result.output);
    }
    result.ended = state == WAIT_OBJECT_0;
    if (!result.ended) {
        TerminateProcess(child.get(), 1);
        WaitForSingleObject(child.get(), 5000);
    }
    ReadAvailable(readEnd, result.output);
    DWORD code = NotStarted;
    GetExitCodeProcess(child.get(), &code);
    result.exitCode = code;
    std::erase(result.output, '\r');
    return result;
}

std::filesystem::path ThisProgram()
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

} // namespace testkit
