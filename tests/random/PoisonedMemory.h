// Memory of the list control that is of no use once it is freed, so that whoever touches it then crashes or
// fails a rule instead of finding what was there.
#pragma once

#include "kit/ReplacedImports.h"

#include <afxwin.h>

#include <cstring>
#include <malloc.h>

namespace randomplay
{

// For the operators new and delete of a class: pages that are gone when they are freed.
class OwnPages
{
public:
    static void* Take(size_t size)
    {
        return ::VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    static void Free(void* memory) { ::VirtualFree(memory, 0, MEM_RELEASE); }
};

// While it lives, what the library frees, records and drop-downs among it, is overwritten. The names are
// those of one toolchain; the debug heap of the other overwrites by itself.
class PoisonedMemory
{
public:
#ifdef __MINGW32__
    bool IsReplaced() const
    {
        return m_delete.IsReplaced() && m_deleteObject.IsReplaced();
    }

private:
    static void Poison(void* memory)
    {
        if (memory != nullptr)
            std::memset(memory, 0xDD, _msize(memory));
    }
    static void Delete(void* memory)
    {
        Poison(memory);
        ::operator delete(memory);
    }
    static void DeleteObject(void* memory)
    {
        Poison(memory);
        CObject::operator delete(memory);
    }

    CReplacedImport m_delete{"libstdc++-6.dll", "_ZdlPv", reinterpret_cast<void*>(&Delete)};
    CReplacedImport m_deleteObject{"VelmAfx22.dll", "_ZN7CObjectdlEPv",
                                   reinterpret_cast<void*>(&DeleteObject)};
#else
    bool IsReplaced() const
    {
        return true;
    }
#endif
};

} // namespace randomplay
