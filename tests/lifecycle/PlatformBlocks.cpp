#include "PlatformBlocks.h"

#include "PlatformFunction.h"

#include <objbase.h>

#include <functional>
#include <mutex>
#include <span>
#include <unordered_set>

#include "kit/BlockTable.h"
#include "kit/ImportTable.h"

namespace lifecycle
{
namespace
{

// The addresses of blocks that live; its own memory is not counted.
class Blocks
{
public:
    void* Put(void* block)
    {
        const std::lock_guard lock(m_lock);
        if (block)
            m_blocks.insert(block);
        return block;
    }
    // Before the block is freed: another thread may get its address then.
    bool Take(void* block)
    {
        const std::lock_guard lock(m_lock);
        return m_blocks.erase(block) != 0;
    }
    long long Count()
    {
        const std::lock_guard lock(m_lock);
        return static_cast<long long>(m_blocks.size());
    }

    // A block that was not counted, or could not be changed, stays as it was.
    template <class Change>
    void* Reallocate(void* block, size_t size, Change change)
    {
        const bool isKnown = !block || Take(block);
        void* const changed = change();
        if (isKnown && changed)
            Put(changed);
        else if (isKnown && block && size != 0)
            Put(block);
        return changed;
    }

private:
    std::mutex m_lock;
    std::unordered_set<void*, std::hash<void*>, std::equal_to<>, testkit::BlockTableAllocator<void*>>
        m_blocks;
};

Blocks& Strings()
{
    static Blocks blocks;
    return blocks;
}

Blocks& Documents()
{
    static Blocks blocks;
    return blocks;
}

// COM's strings come from the task allocator.

LPVOID WINAPI TaskAlloc(SIZE_T size)
{
    return Strings().Put(::CoTaskMemAlloc(size));
}

LPVOID WINAPI TaskRealloc(LPVOID block, SIZE_T size)
{
    return Strings().Reallocate(block, size, [&] { return ::CoTaskMemRealloc(block, size); });
}

void WINAPI TaskFree(LPVOID block)
{
    Strings().Take(block);
    ::CoTaskMemFree(block);
}

// The document model takes its memory from heaps and from its run-time library.

constexpr char Crt[] = "ucrtbase.dll";

LPVOID WINAPI AllocFromHeap(HANDLE heap, DWORD flags, SIZE_T size)
{
    return Documents().Put(::HeapAlloc(heap, flags, size));
}

LPVOID WINAPI ReallocInHeap(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size)
{
    return Documents().Reallocate(block, 1, [&] { return ::HeapReAlloc(heap, flags, block, size); });
}

BOOL WINAPI FreeInHeap(HANDLE heap, DWORD flags, LPVOID block)
{
    Documents().Take(block);
    return ::HeapFree(heap, flags, block);
}

void* Malloc(size_t size)
{
    static const auto original = PlatformFunction<void*(size_t)>(Crt, "malloc");
    return Documents().Put(original(size));
}

void* Calloc(size_t count, size_t size)
{
    static const auto original = PlatformFunction<void*(size_t, size_t)>(Crt, "calloc");
    return Documents().Put(original(count, size));
}

void* Realloc(void* block, size_t size)
{
    static const auto original = PlatformFunction<void*(void*, size_t)>(Crt, "realloc");
    return Documents().Reallocate(block, size, [&] { return original(block, size); });
}

void Free(void* block)
{
    static const auto original = PlatformFunction<void(void*)>(Crt, "free");
    Documents().Take(block);
    original(block);
}

char* Duplicate(const char* text)
{
    static const auto original = PlatformFunction<char*(const char*)>(Crt, "_strdup");
    return static_cast<char*>(Documents().Put(original(text)));
}

bool CountIn(const wchar_t* library, std::span<const testkit::ImportReplacement> replacements)
{
    const HMODULE module = ::LoadLibrary(library);
    return module && testkit::ReplaceImports(module, replacements);
}

} // namespace

bool StartCountingPlatformBlocks()
{
    const testkit::ImportReplacement strings[] = {
        {"ole32.dll", "CoTaskMemAlloc", reinterpret_cast<void*>(&TaskAlloc)},
        {"ole32.dll", "CoTaskMemRealloc", reinterpret_cast<void*>(&TaskRealloc)},
        {"ole32.dll", "CoTaskMemFree", reinterpret_cast<void*>(&TaskFree)},
    };
    const testkit::ImportReplacement documents[] = {
        {"kernel32.dll", "HeapAlloc", reinterpret_cast<void*>(&AllocFromHeap)},
        {"kernel32.dll", "HeapReAlloc", reinterpret_cast<void*>(&ReallocInHeap)},
        {"kernel32.dll", "HeapFree", reinterpret_cast<void*>(&FreeInHeap)},
        {Crt, "malloc", reinterpret_cast<void*>(&Malloc)},
        {Crt, "calloc", reinterpret_cast<void*>(&Calloc)},
        {Crt, "realloc", reinterpret_cast<void*>(&Realloc)},
        {Crt, "free", reinterpret_cast<void*>(&Free)},
        {Crt, "_strdup", reinterpret_cast<void*>(&Duplicate)},
    };
    if (!CountIn(L"oleaut32.dll", strings) || !CountIn(L"msxml3.dll", documents))
        return false;
    const auto cacheOff = PlatformFunction<void()>("oleaut32.dll", "SetOaNoCache");
    if (cacheOff)
        cacheOff();
    return cacheOff != nullptr;
}

long long CountStrings()
{
    return Strings().Count();
}

long long CountDocumentBlocks()
{
    return Documents().Count();
}

} // namespace lifecycle
