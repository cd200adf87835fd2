#include "frame/ModulePath.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

// The room that callers of GetAppPath must give, its final zero included.
constexpr size_t AppPathCapacity = 512;

// The full file name of a loaded module; empty if there is none.
std::wstring FileNameOf(HMODULE module)
{
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(name.size() * 2);
    }
}

// The full file name of the loaded module of that name, or the name itself if there is none.
std::wstring FileNameOrName(const wchar_t* moduleName)
{
    const HMODULE module = GetModuleHandleW(moduleName);
    if (module != nullptr)
        return FileNameOf(module);
    return moduleName != nullptr ? moduleName : L"";
}

void SplitFolder(const std::wstring& path, CString& drive, CString& dir)
{
    wchar_t drivePart[_MAX_DRIVE] = {};
    std::vector<wchar_t> dirPart(path.size() + 1);
    _wsplitpath_s(path.c_str(), drivePart, _MAX_DRIVE, dirPart.data(), dirPart.size(), nullptr, 0, nullptr,
                  0);
    // Both or none.
    const CString newDrive(drivePart);
    dir = dirPart.data();
    drive = newDrive;
}

} // namespace

void GetAppPath(wchar_t* nameInOut)
{
    if (nameInOut == nullptr)
        return;
    const HMODULE module = GetModuleHandleW(nameInOut);
    if (module == nullptr)
        return;
    const std::wstring path = FileNameOf(module);
    if (!path.empty() && path.size() < AppPathCapacity)
        *std::copy(path.begin(), path.end(), nameInOut) = L'\0';
}

CString GetProjectPath(wchar_t* moduleName)
{
    CString drive;
    CString dir;
    SplitFolder(FileNameOrName(moduleName), drive, dir);
    return drive + dir;
}

void GetAppDriveAndDir(CString& drive, CString& dir)
{
    SplitFolder(FileNameOrName(L"VelmUtil"), drive, dir);
}
