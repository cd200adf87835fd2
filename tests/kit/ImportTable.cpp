#include "kit/ImportTable.h"

#include <winternl.h>
#include <psapi.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <iterator>

namespace testkit
{
namespace
{

void (*g_found)(HMODULE) = nullptr;

void Overwrite(ULONGLONG& slot, void* function)
{
    DWORD before = 0;
    VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &before);
    slot = reinterpret_cast<ULONGLONG>(function);
    VirtualProtect(&slot, sizeof slot, before, &before);
}

// The folder of a module's file, in lower case, with a backslash at its end; fixed storage, because
// this runs inside the loader.
bool FolderOf(HMODULE module, wchar_t (&folder)[MAX_PATH], const wchar_t*& file, wchar_t (&path)[MAX_PATH])
{
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return false;
    }
    CharLowerBuffW(path, length);
    wchar_t* end = std::wcsrchr(path, L'\\');
    if (!end) {
        return false;
    }
    file = end + 1;
    std::wmemcpy(folder, path, static_cast<size_t>(file - path));
    folder[file - path] = 0;
    return true;
}

bool StartsWith(const wchar_t* text, const wchar_t* start)
{
    return std::wcsncmp(text, start, std::wcslen(start)) == 0;
}

void CALLBACK ModuleLoaded(ULONG reason, const void* data, void*)
{
    // The loader's notification: full name, base name, base address.
    struct Loaded
    {
        ULONG flags;
        const UNICODE_STRING* path;
        const UNICODE_STRING* name;
        void* base;
    };
    constexpr ULONG loaded = 1;
    const auto module = static_cast<HMODULE>(static_cast<const Loaded*>(data)->base);
    if (reason == loaded && IsModuleUnderTest(module)) {
        g_found(module);
    }
}

void NotifyOfLoads()
{
    using Register = LONG(NTAPI*)(ULONG, void(CALLBACK*)(ULONG, const void*, void*), void*, void**);
    const auto subscribe = reinterpret_cast<Register>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "LdrRegisterDllNotification")));
    static void* cookie = nullptr;
    if (subscribe) {
        subscribe(0, ModuleLoaded, nullptr, &cookie);
    }
}

} // namespace

bool ReplaceImports(HMODULE module, std::span<const ImportReplacement> replacements)
{
    auto* const base = reinterpret_cast<BYTE*>(module);
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    const auto& directory = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.VirtualAddress == 0) {
        return false;
    }
    bool changed = false;
    const auto* import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; import->Name; ++import) {
        const auto* library = reinterpret_cast<const char*>(base + import->Name);
        if (import->OriginalFirstThunk == 0) {
            continue; // the names are gone: bound by a tool of old
        }
        auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + import->OriginalFirstThunk);
        auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + import->FirstThunk);
        for (; name->u1.AddressOfData; ++name, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                continue;
            }
            const auto* imported =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            for (const ImportReplacement& replacement : replacements) {
                if (std::strcmp(imported->Name, replacement.name) == 0 &&
                    _stricmp(library, replacement.library) == 0 &&
                    slot->u1.Function != reinterpret_cast<ULONGLONG>(replacement.function))
                {
                    Overwrite(slot->u1.Function, replacement.function);
                    changed = true;
                }
            }
        }
    }
    return changed;
}

bool IsModuleUnderTest(HMODULE module)
{
    wchar_t program[MAX_PATH], folder[MAX_PATH], path[MAX_PATH];
    const wchar_t* file = nullptr;
    if (!FolderOf(nullptr, program, file, path) || !FolderOf(module, folder, file, path)) {
        return false;
    }
    if (StartsWith(file, L"libgcc_s") || StartsWith(file, L"libwinpthread") || StartsWith(file, L"libssp")) {
        return false;
    }
    return StartsWith(program, folder) || StartsWith(folder, program);
}

void ForEachLoadedModuleUnderTest(void (*found)(HMODULE))
{
    HMODULE modules[400];
    DWORD bytes = 0;
    if (!K32EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &bytes)) {
        return;
    }
    const size_t count = std::min<size_t>(bytes / sizeof(HMODULE), std::size(modules));
    for (size_t i = 0; i < count; ++i) {
        if (IsModuleUnderTest(modules[i])) {
            found(modules[i]);
        }
    }
}

void ForEachModuleUnderTest(void (*found)(HMODULE))
{
    g_found = found;
    NotifyOfLoads();
    ForEachLoadedModuleUnderTest(found);
}

} // namespace testkit
