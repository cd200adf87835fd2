// The live heap blocks of the modules under test, with who made them.
#pragma once

#include "kit/HeapTracker.h"
#include "kit/Stack.h"

#include <functional>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace testkit
{

struct Block
{
    unsigned long long serial; // of the allocation
    size_t size;               // in bytes
    StackFrames frames;        // who made it
};

// The table's own memory comes from a heap of its own, so that it is neither counted nor in the way of
// the run-time library's.
HANDLE BlockTableHeap();

template <class T>
struct BlockTableAllocator
{
    using value_type = T;
    BlockTableAllocator() = default;
    template <class U>
    BlockTableAllocator(const BlockTableAllocator<U>&)
    {
    }
    T* allocate(size_t count)
    {
        void* memory = HeapAlloc(BlockTableHeap(), 0, count * sizeof(T));
        if (!memory) {
            throw std::bad_alloc();
        }
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, size_t) { HeapFree(BlockTableHeap(), 0, memory); }
    template <class U>
    bool operator==(const BlockTableAllocator<U>&) const
    {
        return true;
    }
};

// Safe to use from any thread.
class BlockTable
{
public:
    // The one table. Never destroyed: blocks are freed until the very end of the process.
    static BlockTable& Get();

    void Put(void* memory, Block block);
    // Takes a block out; false if it is not in the table. To be called before the memory is freed:
    // afterwards another thread may get its address.
    bool Take(void* memory, Block& block);

    HeapMark Mark();
    // The blocks with that or a later number, in order.
    std::vector<Block> Since(unsigned long long serial);

private:
    std::mutex m_lock;
    unsigned long long m_serial = 1;
    std::unordered_map<void*, Block, std::hash<void*>, std::equal_to<>,
                       BlockTableAllocator<std::pair<void* const, Block>>>
        m_blocks;
};

} // namespace testkit
