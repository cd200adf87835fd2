#ifndef _MSC_VER

#include "kit/HeapTracker.h"

#include "kit/BlockTable.h"
#include "kit/HeapChecks.h"
#include "kit/ImportTable.h"
#include "kit/StackCache.h"

#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace testkit
{
namespace
{

constexpr char Crt[] = "msvcrt.dll", Cxx[] = "libstdc++-6.dll";
constexpr size_t MallocAlignment = 16;

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

void Note(void* memory, size_t size, const StackFrames& stack)
{
    if (memory && OnceDepth() == 0) {
        BlockTable::Get().Put(memory, {0, size, stack});
    }
}

void Forget(void* memory)
{
    Block block;
    if (memory) {
        BlockTable::Get().Take(memory, block);
    }
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

void Require(const HeapMisuse& misuse, const StackFrames& stack)
{
    if (misuse.kind != HeapMisuse::Kind::None) {
        StopForMisuse(misuse, stack);
    }
}

// A block of the guard heap, or of the run-time library by the original function.
template <class MakePlain>
void* Make(size_t size, size_t alignment, BlockMaker maker, const StackFrames& stack, MakePlain makePlain)
{
    GuardHeap* const heap = ActiveGuardHeap();
    void* const memory = heap ? heap->Allocate(size, alignment, maker, stack) : nullptr;
    return memory ? memory : makePlain();
}

template <class MakePlain>
void* Counted(size_t size, size_t alignment, BlockMaker maker, MakePlain makePlain)
{
    const StackFrames stack = TakeStack();
    void* const memory = Make(size, alignment, maker, stack, makePlain);
    Note(memory, size, stack);
    return memory;
}

bool IsGuarded(void* memory)
{
    GuardHeap* const heap = ActiveGuardHeap();
    return heap && heap->Contains(reinterpret_cast<uintptr_t>(memory));
}

// What is left of the run-time library's heap when there is a guard heap: blocks from before its start, its
// own, and those that the guard heap had no room for.
void RequirePlainBlock(void* memory, const StackFrames& stack)
{
    if (!HeapValidate(reinterpret_cast<HANDLE>(_get_heap_handle()), 0, memory)) {
        HeapMisuse misuse;
        misuse.kind = HeapMisuse::Kind::Foreign;
        misuse.address = reinterpret_cast<uintptr_t>(memory);
        StopForMisuse(misuse, stack);
    }
}

template <class FreePlain>
void Release(void* memory, BlockMaker maker, FreePlain freePlain)
{
    if (IsGuarded(memory)) {
        const StackFrames stack = TakeStack();
        Forget(memory);
        Require(ActiveGuardHeap()->Free(memory, maker, stack), stack);
        return;
    }
    Forget(memory);
    if (ActiveGuardHeap() && memory && maker == BlockMaker::Malloc) {
        RequirePlainBlock(memory, TakeStack());
    }
    freePlain();
}

// Where the run-time library made the old block, it also makes the new one.
template <class ReallocatePlain>
void* Reallocate(void* old, size_t size, size_t alignment, BlockMaker maker, const StackFrames& stack,
                 ReallocatePlain reallocatePlain)
{
    if (!old) {
        return Make(size, alignment, maker, stack, reallocatePlain);
    }
    if (!IsGuarded(old)) {
        if (ActiveGuardHeap() && maker == BlockMaker::Malloc) {
            RequirePlainBlock(old, stack);
        }
        return reallocatePlain();
    }
    GuardHeap& heap = *ActiveGuardHeap();
    size_t oldSize = 0;
    Require(heap.SizeOf(old, maker, oldSize), stack);
    void* memory = nullptr;
    if (size != 0) {
        memory = Make(size, alignment, maker, stack, [&] {
            return maker == BlockMaker::Malloc ? g_malloc.function(size)
                                               : g_alignedMalloc.function(size, alignment);
        });
        if (!memory) {
            return nullptr;
        }
        std::memcpy(memory, old, std::min(size, oldSize));
    }
    Require(heap.Free(old, maker, stack), stack);
    return memory;
}

template <class ReallocatePlain>
void* CountedReallocation(void* old, size_t size, size_t alignment, BlockMaker maker,
                          ReallocatePlain reallocatePlain)
{
    const StackFrames stack = TakeStack();
    Block block{};
    const bool known = old && BlockTable::Get().Take(old, block);
    void* memory = Reallocate(old, size, alignment, maker, stack, reallocatePlain);
    if (!known) {
        if (!old) { // one that was there before counting began, or is not counted, stays uncounted
            Note(memory, size, stack);
        }
    } else if (memory) {
        block.size = size;
        BlockTable::Get().Put(memory, block);
    } else if (size != 0) { // failed: the old block lives on
        BlockTable::Get().Put(old, block);
    }
    return memory;
}

void* CountedMalloc(size_t size)
{
    return Counted(size, MallocAlignment, BlockMaker::Malloc, [=] { return g_malloc.function(size); });
}

void* CountedCalloc(size_t count, size_t size)
{
    if (size != 0 && count > SIZE_MAX / size) {
        return g_calloc.function(count, size); // fails, with its error number
    }
    const size_t bytes = count * size;
    void* const memory =
        Counted(bytes, MallocAlignment, BlockMaker::Malloc, [=] { return g_calloc.function(count, size); });
    if (IsGuarded(memory)) {
        std::memset(memory, 0, bytes);
    }
    return memory;
}

void* CountedRealloc(void* old, size_t size)
{
    return CountedReallocation(old, size, MallocAlignment, BlockMaker::Malloc,
                               [=] { return g_realloc.function(old, size); });
}

void CountedFree(void* memory)
{
    Release(memory, BlockMaker::Malloc, [=] { g_free.function(memory); });
}

void* CountedAlignedMalloc(size_t size, size_t alignment)
{
    return Counted(size, alignment, BlockMaker::AlignedMalloc,
                   [=] { return g_alignedMalloc.function(size, alignment); });
}

void* CountedAlignedRealloc(void* old, size_t size, size_t alignment)
{
    return CountedReallocation(old, size, alignment, BlockMaker::AlignedMalloc,
                               [=] { return g_alignedRealloc.function(old, size, alignment); });
}

void CountedAlignedFree(void* memory)
{
    Release(memory, BlockMaker::AlignedMalloc, [=] { g_alignedFree.function(memory); });
}

// The original makes the copy where there is no guard heap, so that it sees what it always sees.
template <class Character, class Copy>
Character* CountedCopy(const Character* text, Copy copyPlain)
{
    const size_t size = text ? (std::char_traits<Character>::length(text) + 1) * sizeof(Character) : 0;
    void* const copy =
        text ? Counted(size, MallocAlignment, BlockMaker::Malloc, [=]() -> void* { return copyPlain(text); })
             : nullptr;
    if (IsGuarded(copy)) {
        std::memcpy(copy, text, size);
    }
    return static_cast<Character*>(copy);
}

char* CountedStrdup(const char* text)
{
    return CountedCopy(text, g_strdup.function);
}

wchar_t* CountedWcsdup(const wchar_t* text)
{
    return CountedCopy(text, g_wcsdup.function);
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
    StartGuardHeap();
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
        text += DescribeCallers(blocks[i].frames, "HeapTracker.cpp:");
    }
    if (blocks.size() > most) {
        text += "... and " + std::to_string(blocks.size() - most) + " more blocks\n";
    }
    return text;
}

} // namespace testkit

#endif
