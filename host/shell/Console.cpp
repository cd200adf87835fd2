#include "shell/Console.h"

#include <afxwin.h>

namespace velmhost
{

namespace
{

bool IsUsable(HANDLE handle)
{
    return handle && handle != INVALID_HANDLE_VALUE;
}

HANDLE StandardHandle(DWORD which)
{
    HANDLE handle = ::GetStdHandle(which);
    if (!IsUsable(handle) && ::AttachConsole(ATTACH_PARENT_PROCESS))
        handle = ::GetStdHandle(which);
    return handle;
}

void Print(DWORD which, const std::wstring& text)
{
    const HANDLE handle = StandardHandle(which);
    if (!IsUsable(handle) || text.empty())
        return;
    DWORD mode = 0;
    DWORD written = 0;
    if (::GetConsoleMode(handle, &mode)) {
        ::WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr,
                                                                     0, nullptr, nullptr)),
                      '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                          nullptr, nullptr);
    ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace

void PrintOutput(const std::wstring& text)
{
    Print(STD_OUTPUT_HANDLE, text);
}

void PrintError(const std::wstring& text)
{
    Print(STD_ERROR_HANDLE, text);
}

} // namespace velmhost
