// A heap that finds misuse of memory where it happens.
//
// A block's end lies at a page that cannot be accessed, as near as its alignment allows: whoever goes
// beyond it crashes there and then. When it is freed, its memory is taken away, and its addresses are not
// given out again: whoever still uses it crashes. The bytes between the block and the borders of its
// pages carry a pattern, which is looked at when the block is freed and whenever all are asked for.
//
// Every such block costs two of the mappings that the system may allow a process (65,530 on Linux), so
// only so many live at a time. What comes beyond them shares pages: it has the pattern on both sides, and
// its addresses are not given out again either, but its memory is only filled when it is freed and taken
// away once nothing lives in its pages; writes after the end of its life are found then, reads are not.
#pragma once

#include "kit/AddressSpace.h"
#include "kit/Stack.h"

#include <cstdint>
#include <deque>
#include <map>
#include <unordered_map>
#include <utility>

namespace testkit
{

// The function that made a block, and so the one that frees it.
enum class BlockMaker : unsigned char
{
    Malloc,       // also calloc, realloc, new, ...: freed by free
    AlignedMalloc // freed by _aligned_free
};

// What is wrong with a block or with a call.
struct HeapMisuse
{
    enum class Kind : unsigned char
    {
        None,
        Foreign,          // no block of this heap: not known to be wrong
        FreedTwice,       // also used by realloc after it was freed
        NotTheStart,      // the address lies within a block
        Forgotten,        // the address belonged to a block that was freed long ago
        OtherMaker,       // made by one family of functions and freed by the other
        WrittenBehind,    // the pattern behind the block is damaged
        WrittenBefore,    // the pattern before it is damaged
        WrittenAfterFree, // the filling of a freed block is damaged
    };
    Kind kind = Kind::None;
    uintptr_t address = 0; // of the call, or the first damaged byte

    // The block, where there is one.
    uintptr_t block = 0;
    size_t size = 0;
    StackFrames madeBy{}, freedBy{};
};

struct GuardHeapLimits
{
    size_t guardedBlocks = 20000; // live at a time
    uint64_t addressSpace = uint64_t{1} << 40;
    uint64_t region = uint64_t{1} << 32; // reserved at a time; also what no block is larger than
    size_t sharedPages = 256;            // for blocks that have no page of their own
    size_t freedBlocks = 200000;         // remembered, with their stacks
};

struct GuardHeapCounts
{
    unsigned long long guarded = 0, shared = 0; // blocks made so far, of each kind
    unsigned long long refused = 0;             // for lack of addresses or memory
    size_t liveGuarded = 0, live = 0;
};

// Safe to use from any thread.
class GuardHeap
{
public:
    explicit GuardHeap(const GuardHeapLimits& limits = {});
    ~GuardHeap();
    GuardHeap(const GuardHeap&) = delete;
    GuardHeap& operator=(const GuardHeap&) = delete;

    // Filled with a pattern. Null: there are no addresses or no memory left, or the size is beyond all
    // bounds; the caller makes the block elsewhere.
    void* Allocate(size_t size, size_t alignment, BlockMaker maker, const StackFrames& stack);
    // Frees the block, or tells why not. A block that is damaged is not freed.
    HeapMisuse Free(void* memory, BlockMaker maker, const StackFrames& stack);
    // Gives the size of a live block, or tells why not.
    HeapMisuse SizeOf(void* memory, BlockMaker maker, size_t& size);

    // Looks at the patterns of every live block: the first that is damaged.
    HeapMisuse Check();
    bool Contains(uintptr_t address);
    // Whose address this is: of kind None with the block at or beside it, Forgotten, or Foreign.
    HeapMisuse Locate(uintptr_t address);
    GuardHeapCounts Counts();

private:
    struct Arena // pages that blocks share
    {
        uintptr_t number;     // where it began
        uintptr_t begin, end; // of what has memory
        uintptr_t next;       // where the next block goes
        size_t live;
    };
    struct Block
    {
        size_t size;
        uintptr_t begin, end; // what is filled and checked, the block included; nobody else's
        uint64_t madeBy, freedBy;
        Arena* arena; // null for a block with a guard page, which begins at `end`
        BlockMaker maker;
        bool isLive;
    };
    template <class Value>
    using Map =
        std::map<uintptr_t, Value, std::less<>, BlockTableAllocator<std::pair<const uintptr_t, Value>>>;
    using Blocks = Map<Block>;

    bool PlaceAtGuardPage(size_t size, size_t alignment, uintptr_t& start, Block& block);
    bool PlaceInArena(size_t size, size_t alignment, uintptr_t& start, Block& block);
    bool OpenArena(size_t bytes);
    void CloseArena(Arena& arena);
    HeapMisuse RetireBlocks(Arena& arena);
    void Remember(uintptr_t start);
    uint64_t Keep(const StackFrames& stack);
    HeapMisuse Tell(HeapMisuse::Kind kind, uintptr_t address, const Blocks::value_type& block) const;
    HeapMisuse Find(uintptr_t address, BlockMaker maker, Blocks::iterator& found);
    HeapMisuse FindDamage(const Blocks::value_type& block) const;
    Blocks::const_iterator BlockAround(uintptr_t address) const;

    const GuardHeapLimits m_limits;
    CRITICAL_SECTION m_lock;
    AddressSpace m_guardedSpace, m_sharedSpace;
    Blocks m_blocks; // by address: the live ones, and the freed ones that are remembered
    std::deque<uintptr_t, BlockTableAllocator<uintptr_t>> m_freed;
    Map<Arena> m_arenas;      // by number
    Arena* m_arena = nullptr; // where the next block goes
    std::unordered_map<uint64_t, StackFrames, std::hash<uint64_t>, std::equal_to<>,
                       BlockTableAllocator<std::pair<const uint64_t, StackFrames>>>
        m_stacks;
    GuardHeapCounts m_counts;
};

} // namespace testkit
