#ifndef _MSC_VER

#include "kit/GuardHeap.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <new>

namespace testkit
{
namespace
{

constexpr unsigned char Fresh = 0xCB, Border = 0xFB, Freed = 0xDD;
constexpr size_t BorderBytes = 16; // at least, on both sides of a block that shares its pages

class Lock
{
public:
    explicit Lock(CRITICAL_SECTION& section) : m_section(section) { EnterCriticalSection(&m_section); }
    ~Lock() { LeaveCriticalSection(&m_section); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    CRITICAL_SECTION& m_section;
};

uintptr_t RoundUp(uintptr_t value, size_t step)
{
    return (value + step - 1) & ~(step - 1);
}

void Fill(uintptr_t begin, uintptr_t end, unsigned char pattern)
{
    std::memset(reinterpret_cast<void*>(begin), pattern, end - begin);
}

// The first byte that is not `pattern`, or `end`.
uintptr_t FindOther(uintptr_t begin, uintptr_t end, unsigned char pattern)
{
    const auto* const first = reinterpret_cast<const unsigned char*>(begin);
    const auto* const last = reinterpret_cast<const unsigned char*>(end);
    return reinterpret_cast<uintptr_t>(
        std::find_if(first, last, [=](unsigned char byte) { return byte != pattern; }));
}

} // namespace

GuardHeap::GuardHeap(const GuardHeapLimits& limits)
    : m_limits(limits), m_guardedSpace(limits.region, limits.addressSpace),
      m_sharedSpace(limits.region, limits.addressSpace)
{
    InitializeCriticalSection(&m_lock);
}

GuardHeap::~GuardHeap()
{
    DeleteCriticalSection(&m_lock);
}

void* GuardHeap::Allocate(size_t size, size_t alignment, BlockMaker maker, const StackFrames& stack)
{
    const Lock lock(m_lock);
    uintptr_t start = 0;
    Block block{};
    const bool fits = size <= m_limits.region / 2 && std::has_single_bit(alignment) && alignment <= PageSize;
    if (!fits ||
        (!PlaceAtGuardPage(size, alignment, start, block) && !PlaceInArena(size, alignment, start, block)))
    {
        ++m_counts.refused;
        return nullptr;
    }
    block.size = size;
    block.maker = maker;
    block.isLive = true;
    block.madeBy = Keep(stack);
    Fill(block.begin, start, Border);
    Fill(start, start + size, Fresh);
    Fill(start + size, block.end, Border);
    m_blocks.emplace(start, block);
    ++m_counts.live;
    return reinterpret_cast<void*>(start);
}

bool GuardHeap::PlaceAtGuardPage(size_t size, size_t alignment, uintptr_t& start, Block& block)
{
    if (m_counts.liveGuarded >= m_limits.guardedBlocks) {
        return false;
    }
    const size_t pages = RoundUp(size, PageSize) / PageSize;
    block.begin = m_guardedSpace.Take(pages + 1);
    if (block.begin == 0 || (pages != 0 && !CommitPages(block.begin, pages))) {
        return false;
    }
    block.end = block.begin + pages * PageSize;
    start = (block.end - size) & ~(alignment - 1);
    ++m_counts.guarded;
    ++m_counts.liveGuarded;
    return true;
}

bool GuardHeap::PlaceInArena(size_t size, size_t alignment, uintptr_t& start, Block& block)
{
    const auto place = [&] {
        block.begin = m_arena->next;
        start = RoundUp(block.begin + BorderBytes, alignment);
        block.end = RoundUp(start + size, BorderBytes) + BorderBytes;
        return block.end <= m_arena->end;
    };
    if ((!m_arena || !place()) && (!OpenArena(size + alignment + 3 * BorderBytes) || !place())) {
        return false;
    }
    m_arena->next = block.end;
    ++m_arena->live;
    block.arena = m_arena;
    ++m_counts.shared;
    return true;
}

bool GuardHeap::OpenArena(size_t bytes)
{
    if (m_arena && m_arena->live == 0) {
        CloseArena(*m_arena);
    }
    const size_t pages = std::max(m_limits.sharedPages, RoundUp(bytes, PageSize) / PageSize);
    const uintptr_t begin = m_sharedSpace.Take(pages + 1);
    m_arena = nullptr;
    if (begin == 0 || !CommitPages(begin, pages)) {
        return false;
    }
    m_arena = &m_arenas.emplace(begin, Arena{begin, begin, begin + pages * PageSize, begin, 0}).first->second;
    return true;
}

void GuardHeap::CloseArena(Arena& arena)
{
    DecommitPages(arena.begin, (arena.end - arena.begin) / PageSize);
    m_arenas.erase(arena.number);
}

// Nothing lives in the arena: looks at what was freed in it and takes the memory of its used pages away.
HeapMisuse GuardHeap::RetireBlocks(Arena& arena)
{
    HeapMisuse damage;
    std::vector<uintptr_t, BlockTableAllocator<uintptr_t>> retired;
    const auto last = m_blocks.lower_bound(arena.next);
    for (auto block = m_blocks.lower_bound(arena.begin); block != last; ++block) {
        if (!block->second.arena) {
            continue; // seen before: it shares the page that was still in use then
        }
        if (damage.kind == HeapMisuse::Kind::None) {
            damage = FindDamage(*block);
        }
        block->second.arena = nullptr;
        retired.push_back(block->first);
    }
    for (const uintptr_t start : retired) { // not above: others are forgotten for them
        Remember(start);
    }
    if (&arena != m_arena) {
        CloseArena(arena);
    } else if (const size_t pages = (arena.next - arena.begin) / PageSize) {
        DecommitPages(arena.begin, pages);
        arena.begin += pages * PageSize;
    }
    return damage;
}

HeapMisuse GuardHeap::Free(void* memory, BlockMaker maker, const StackFrames& stack)
{
    const Lock lock(m_lock);
    Blocks::iterator found;
    if (const HeapMisuse misuse = Find(reinterpret_cast<uintptr_t>(memory), maker, found);
        misuse.kind != HeapMisuse::Kind::None)
    {
        return misuse;
    }
    Block& block = found->second;
    if (const HeapMisuse damage = FindDamage(*found); damage.kind != HeapMisuse::Kind::None) {
        return damage;
    }
    block.isLive = false;
    block.freedBy = Keep(stack);
    --m_counts.live;
    if (Arena* const arena = block.arena) {
        Fill(block.begin, block.end, Freed);
        return --arena->live == 0 ? RetireBlocks(*arena) : HeapMisuse{};
    }
    --m_counts.liveGuarded;
    if (block.begin != block.end) {
        DecommitPages(block.begin, (block.end - block.begin) / PageSize);
    }
    Remember(found->first);
    return {};
}

HeapMisuse GuardHeap::SizeOf(void* memory, BlockMaker maker, size_t& size)
{
    const Lock lock(m_lock);
    Blocks::iterator found;
    const HeapMisuse misuse = Find(reinterpret_cast<uintptr_t>(memory), maker, found);
    if (misuse.kind == HeapMisuse::Kind::None) {
        size = found->second.size;
    }
    return misuse;
}

HeapMisuse GuardHeap::Check()
{
    const Lock lock(m_lock);
    for (const auto& block : m_blocks) {
        if (block.second.isLive || block.second.arena) {
            if (const HeapMisuse damage = FindDamage(block); damage.kind != HeapMisuse::Kind::None) {
                return damage;
            }
        }
    }
    return {};
}

bool GuardHeap::Contains(uintptr_t address)
{
    const Lock lock(m_lock);
    return m_guardedSpace.Contains(address) || m_sharedSpace.Contains(address);
}

HeapMisuse GuardHeap::Locate(uintptr_t address)
{
    const Lock lock(m_lock);
    const auto block = BlockAround(address);
    if (block != m_blocks.end()) {
        return Tell(HeapMisuse::Kind::None, address, *block);
    }
    HeapMisuse none;
    none.kind = Contains(address) ? HeapMisuse::Kind::Forgotten : HeapMisuse::Kind::Foreign;
    none.address = address;
    return none;
}

GuardHeapCounts GuardHeap::Counts()
{
    const Lock lock(m_lock);
    return m_counts;
}

void GuardHeap::Remember(uintptr_t start)
{
    m_freed.push_back(start);
    if (m_freed.size() > m_limits.freedBlocks) {
        m_blocks.erase(m_freed.front());
        m_freed.pop_front();
    }
}

// Programs allocate from few places, so each stack is kept once. Two stacks of the same number would need
// some four thousand million of them.
uint64_t GuardHeap::Keep(const StackFrames& stack)
{
    uint64_t number = 0xcbf29ce484222325;
    for (const void* frame : stack) {
        number = (number ^ reinterpret_cast<uintptr_t>(frame)) * 0x100000001b3;
        number ^= number >> 29;
    }
    m_stacks.try_emplace(number, stack);
    return number;
}

HeapMisuse GuardHeap::Tell(HeapMisuse::Kind kind, uintptr_t address, const Blocks::value_type& block) const
{
    HeapMisuse misuse{kind, address, block.first, block.second.size, {}, {}};
    const auto stack = [&](uint64_t number) {
        const auto found = m_stacks.find(number);
        return found == m_stacks.end() ? StackFrames{} : found->second;
    };
    misuse.madeBy = stack(block.second.madeBy);
    if (!block.second.isLive) {
        misuse.freedBy = stack(block.second.freedBy);
    }
    return misuse;
}

HeapMisuse GuardHeap::Find(uintptr_t address, BlockMaker maker, Blocks::iterator& found)
{
    found = m_blocks.find(address);
    if (found == m_blocks.end()) {
        HeapMisuse misuse = Locate(address);
        if (misuse.kind == HeapMisuse::Kind::None) {
            misuse.kind = HeapMisuse::Kind::NotTheStart;
        }
        return misuse;
    }
    if (!found->second.isLive) {
        return Tell(HeapMisuse::Kind::FreedTwice, address, *found);
    }
    if (found->second.maker != maker) {
        return Tell(HeapMisuse::Kind::OtherMaker, address, *found);
    }
    return {};
}

HeapMisuse GuardHeap::FindDamage(const Blocks::value_type& entry) const
{
    const auto& [start, block] = entry;
    const uintptr_t end = start + block.size;
    if (!block.isLive) {
        const uintptr_t other = FindOther(block.begin, block.end, Freed);
        return other == block.end ? HeapMisuse{} : Tell(HeapMisuse::Kind::WrittenAfterFree, other, entry);
    }
    if (const uintptr_t other = FindOther(end, block.end, Border); other != block.end) {
        return Tell(HeapMisuse::Kind::WrittenBehind, other, entry);
    }
    if (const uintptr_t other = FindOther(block.begin, start, Border); other != start) {
        return Tell(HeapMisuse::Kind::WrittenBefore, other, entry);
    }
    return {};
}

GuardHeap::Blocks::const_iterator GuardHeap::BlockAround(uintptr_t address) const
{
    auto block = m_blocks.upper_bound(address);
    if (block != m_blocks.end() && block->second.begin <= address) {
        return block;
    }
    if (block != m_blocks.begin()) {
        --block;
        const uintptr_t guard = m_sharedSpace.Contains(block->first) ? 0 : PageSize;
        if (address < block->second.end + guard) {
            return block;
        }
    }
    return m_blocks.end();
}

} // namespace testkit

#endif
