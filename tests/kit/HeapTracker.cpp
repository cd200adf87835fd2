#ifndef _MSC_VER

#include "kit/HeapTracker.h"

#include "kit/BlockTable.h"
#include "kit/ImportTable.h"
#include "kit/Stack.h"

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <string_view>

namespace testkit
{
namespace
{

constexpr char Crt[] = "msvcrt.dll", Cxx[] = "libstdc++-6.dll";

// How deep a thread is in the making of objects with static storage inside functions.
const DWORD g_onceDepth = TlsAlloc();

intptr_t OnceDepth()
{
    return reinterpret_cast<intptr_t>(TlsGetValue(g_onceDepth));
}

void ChangeOnceDepth(intptr_t change)
{
    TlsSetValue(g_onceDepth, reinterpret_cast<void*>(OnceDepth() + change));
}

void Note(void* memory, size_t size)
{
    if (memory && OnceDepth() == 0) {
        Block block{};
        block.size = size;
        RtlCaptureStackBackTrace(0, std::size(block.frames), block.frames, nullptr);
        BlockTable::Get().Put(memory, block);
    }
}

void Forget(void* memory)
{
    Block block;
    if (memory) {
        BlockTable::Get().Take(memory, block);
    }
}

template <class Reallocate>
void* NoteReallocation(void* old, size_t size, Reallocate reallocate)
{
    Block block{};
    const bool known = old && BlockTable::Get().Take(old, block);
    void* memory = reallocate();
    if (!known) {
        if (!old) { // one that was there before counting began, or is not counted, stays uncounted
            Note(memory, size);
        }
    } else if (memory) {
        block.size = size;
        BlockTable::Get().Put(memory, block);
    } else if (size != 0) { // failed: the old block lives on
        BlockTable::Get().Put(old, block);
    }
    return memory;
}

template <class Function>
struct Original
{
    Function* function = nullptr;
};

Original<void*(size_t)> g_malloc;
Original<void*(size_t, size_t)> g_calloc;
Original<void*(void*, size_t)> g_realloc;
Original<void(void*)> g_free;
Original<void*(size_t, size_t)> g_alignedMalloc;
Original<void*(void*, size_t, size_t)> g_alignedRealloc;
Original<void(void*)> g_alignedFree;
Original<char*(const char*)> g_strdup;
Original<wchar_t*(const wchar_t*)> g_wcsdup;
Original<int(void*)> g_guardAcquire;
Original<void(void*)> g_guardRelease;
Original<void(void*)> g_guardAbort;

void* CountedMalloc(size_t size)
{
    void* memory = g_malloc.function(size);
    Note(memory, size);
    return memory;
}

void* CountedCalloc(size_t count, size_t size)
{
    void* memory = g_calloc.function(count, size);
    Note(memory, count * size);
    return memory;
}

void* CountedRealloc(void* old, size_t size)
{
    return NoteReallocation(old, size, [&] { return g_realloc.function(old, size); });
}

void CountedFree(void* memory)
{
    Forget(memory);
    g_free.function(memory);
}

void* CountedAlignedMalloc(size_t size, size_t alignment)
{
    void* memory = g_alignedMalloc.function(size, alignment);
    Note(memory, size);
    return memory;
}

void* CountedAlignedRealloc(void* old, size_t size, size_t alignment)
{
    return NoteReallocation(old, size, [&] { return g_alignedRealloc.function(old, size, alignment); });
}

void CountedAlignedFree(void* memory)
{
    Forget(memory);
    g_alignedFree.function(memory);
}

char* CountedStrdup(const char* text)
{
    char* copy = g_strdup.function(text);
    Note(copy, copy ? std::strlen(copy) + 1 : 0);
    return copy;
}

wchar_t* CountedWcsdup(const wchar_t* text)
{
    wchar_t* copy = g_wcsdup.function(text);
    Note(copy, copy ? (std::wcslen(copy) + 1) * sizeof(wchar_t) : 0);
    return copy;
}

int NotedGuardAcquire(void* guard)
{
    const int mustInitialise = g_guardAcquire.function(guard);
    if (mustInitialise) {
        ChangeOnceDepth(1);
    }
    return mustInitialise;
}

void NotedGuardRelease(void* guard)
{
    ChangeOnceDepth(-1);
    g_guardRelease.function(guard);
}

void NotedGuardAbort(void* guard)
{
    ChangeOnceDepth(-1);
    g_guardAbort.function(guard);
}

// Fills in the original and gives the replacement.
template <class Function>
ImportReplacement Replace(const char* library, const char* name, Original<Function>& original,
                          Function* replacement)
{
    void* address = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), name));
    original.function = reinterpret_cast<Function*>(address);
    return {library, name, reinterpret_cast<void*>(replacement)};
}

std::span<const ImportReplacement> Replacements()
{
    static const ImportReplacement table[] = {
        Replace(Crt, "malloc", g_malloc, CountedMalloc),
        Replace(Crt, "calloc", g_calloc, CountedCalloc),
        Replace(Crt, "realloc", g_realloc, CountedRealloc),
        Replace(Crt, "free", g_free, CountedFree),
        Replace(Crt, "_aligned_malloc", g_alignedMalloc, CountedAlignedMalloc),
        Replace(Crt, "_aligned_realloc", g_alignedRealloc, CountedAlignedRealloc),
        Replace(Crt, "_aligned_free", g_alignedFree, CountedAlignedFree),
        Replace(Crt, "_strdup", g_strdup, CountedStrdup),
        Replace(Crt, "_wcsdup", g_wcsdup, CountedWcsdup),
        Replace(Cxx, "__cxa_guard_acquire", g_guardAcquire, NotedGuardAcquire),
        Replace(Cxx, "__cxa_guard_release", g_guardRelease, NotedGuardRelease),
        Replace(Cxx, "__cxa_guard_abort", g_guardAbort, NotedGuardAbort),
    };
    return table;
}

void Track(HMODULE module)
{
    TrackModule(module);
}

// Drops the lines of the replacements in this file from the top of a stack: how many they are depends on
// what the compiler made one.
std::string WithoutOurs(const std::string& stack)
{
    size_t start = 0;
    for (size_t end = 0; (end = stack.find('\n', start)) != std::string::npos; start = end + 1) {
        const std::string_view line = std::string_view(stack).substr(start, end - start);
        if (line.find("HeapTracker.cpp:") == std::string_view::npos) {
            break;
        }
    }
    return stack.substr(start);
}

} // namespace

bool TrackModule(HMODULE module)
{
    return ReplaceImports(module, Replacements());
}

void TrackNewModules()
{
    ForEachLoadedModuleUnderTest(Track);
}

void StartHeapTracking()
{
    BlockTable::Get();
    Replacements();
    ForEachModuleUnderTest(Track);
}

bool HeapIsTracked()
{
    return true;
}

HeapMark MarkHeap()
{
    return BlockTable::Get().Mark();
}

std::string DescribeBlocksSince(const HeapMark& mark, unsigned most)
{
    const std::vector<Block> blocks = BlockTable::Get().Since(mark.serial);
    std::string text;
    for (size_t i = 0; i < blocks.size() && i < most; ++i) {
        text += "block of " + std::to_string(blocks[i].size) + " bytes, made by\n";
        text += WithoutOurs(DescribeStack(blocks[i].frames));
    }
    if (blocks.size() > most) {
        text += "... and " + std::to_string(blocks.size() - most) + " more blocks\n";
    }
    return text;
}

} // namespace testkit

#endif
