// A text resource that the library finds in memory, whatever module it looks into.
#pragma once

#include "kit/Platform.h"

#include <string_view>

#include "kit/ReplacedImports.h"

namespace hostile
{

// For as long as it lives, every resource that VelmUtil22.dll asks for is the bytes given last.
class MemoryResource
{
public:
    MemoryResource() = default;
    ~MemoryResource() { s_bytes = {}; }

    // The bytes are not copied.
    void Give(std::string_view bytes) { s_bytes = bytes; }

    bool IsGiven() const
    {
        return m_find.IsReplaced() && m_load.IsReplaced() && m_lock.IsReplaced() && m_size.IsReplaced();
    }

private:
    // Stands for a handle; never looked into.
    static inline char s_mark = 0;
    static inline std::string_view s_bytes;

    static HRSRC WINAPI Find(HMODULE, LPCWSTR, LPCWSTR) { return reinterpret_cast<HRSRC>(&s_mark); }
    static HGLOBAL WINAPI Load(HMODULE, HRSRC) { return &s_mark; }
    static void* WINAPI Lock(HGLOBAL) { return const_cast<char*>(s_bytes.data()); }
    static DWORD WINAPI Size(HMODULE, HRSRC) { return static_cast<DWORD>(s_bytes.size()); }

    CReplacedImport m_find{"KERNEL32.dll", "FindResourceW", reinterpret_cast<void*>(&Find)};
    CReplacedImport m_load{"KERNEL32.dll", "LoadResource", reinterpret_cast<void*>(&Load)};
    CReplacedImport m_lock{"KERNEL32.dll", "LockResource", reinterpret_cast<void*>(&Lock)};
    CReplacedImport m_size{"KERNEL32.dll", "SizeofResource", reinterpret_cast<void*>(&Size)};
};

} // namespace hostile
