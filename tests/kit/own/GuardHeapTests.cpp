// The guard heap by itself, with limits that are soon reached.
#include "kit/GuardHeap.h"

#ifdef __MINGW32__

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <latch>
#include <set>
#include <thread>
#include <vector>

using testkit::BlockMaker;
using testkit::GuardHeap;
using testkit::GuardHeapLimits;
using testkit::HeapMisuse;
using testkit::PageSize;
using Kind = testkit::HeapMisuse::Kind;

namespace
{

// Both sides of the bound between blocks with a guard page and those that share pages.
constexpr GuardHeapLimits Roomy{1000, uint64_t{1} << 30, uint64_t{1} << 24, 4, 1000};
constexpr GuardHeapLimits Shared{0, uint64_t{1} << 30, uint64_t{1} << 24, 4, 1000};

const testkit::StackFrames NoStack{};

char* Make(GuardHeap& heap, size_t size, size_t alignment = 16)
{
    return static_cast<char*>(heap.Allocate(size, alignment, BlockMaker::Malloc, NoStack));
}

Kind Free(GuardHeap& heap, void* block)
{
    return heap.Free(block, BlockMaker::Malloc, NoStack).kind;
}

bool IsAccessible(const void* address)
{
    MEMORY_BASIC_INFORMATION information{};
    VirtualQuery(address, &information, sizeof information);
    return information.State == MEM_COMMIT && information.Protect == PAGE_READWRITE;
}

TEST(GuardHeap, PutsTheEndOfABlockAtAPageThatCannotBeAccessed)
{
    GuardHeap heap(Roomy);
    for (const size_t size : {16u, 48u, 4096u, 100000u}) {
        char* const block = Make(heap, size);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(IsAccessible(block)) << size;
        EXPECT_TRUE(IsAccessible(block + size - 1)) << size;
        EXPECT_FALSE(IsAccessible(block + size)) << size;
        EXPECT_EQ(Free(heap, block), Kind::None);
    }
}

TEST(GuardHeap, LeavesLessThanTheAlignmentToThePage)
{
    GuardHeap heap(Roomy);
    for (size_t size = 0; size < 70; ++size) {
        for (const size_t alignment : {1u, 8u, 16u, 64u, 4096u}) {
            char* const block = Make(heap, size, alignment);
            ASSERT_NE(block, nullptr);
            const auto address = reinterpret_cast<uintptr_t>(block);
            EXPECT_EQ(address % alignment, 0u) << size;
            EXPECT_LT((PageSize - (address + size) % PageSize) % PageSize, alignment) << size;
            EXPECT_EQ(Free(heap, block), Kind::None);
        }
    }
}

TEST(GuardHeap, FillsFreshMemoryWithSomethingElseThanZeros)
{
    for (const GuardHeapLimits& limits : {Roomy, Shared}) {
        GuardHeap heap(limits);
        const char* const block = Make(heap, 40);
        for (int i = 0; i < 40; ++i) {
            EXPECT_NE(block[i], 0) << i;
        }
    }
}

TEST(GuardHeap, TakesTheMemoryOfAFreedBlockAway)
{
    for (const GuardHeapLimits& limits : {Roomy, Shared}) {
        GuardHeap heap(limits);
        char* const block = Make(heap, 5000); // more than the page that stays in use
        EXPECT_TRUE(IsAccessible(block));
        EXPECT_EQ(Free(heap, block), Kind::None);
        EXPECT_FALSE(IsAccessible(block));
    }
}

TEST(GuardHeap, NeverGivesAnAddressTwice)
{
    for (const GuardHeapLimits& limits : {Roomy, Shared}) {
        GuardHeap heap(limits);
        std::set<char*> seen;
        for (int i = 0; i < 2000; ++i) {
            char* const block = Make(heap, 100);
            EXPECT_TRUE(seen.insert(block).second) << i;
            ASSERT_EQ(Free(heap, block), Kind::None) << i;
        }
    }
}

TEST(GuardHeap, FindsDamageOnBothSides)
{
    for (const GuardHeapLimits& limits : {Roomy, Shared}) {
        GuardHeap heap(limits);
        char* const behind = Make(heap, 21);
        EXPECT_EQ(heap.Check().kind, Kind::None);
        behind[21] = 1;
        const HeapMisuse misuse = heap.Check();
        EXPECT_EQ(misuse.kind, Kind::WrittenBehind);
        EXPECT_EQ(misuse.address, reinterpret_cast<uintptr_t>(behind) + 21);
        EXPECT_EQ(misuse.block, reinterpret_cast<uintptr_t>(behind));
        EXPECT_EQ(misuse.size, 21u);
        EXPECT_EQ(Free(heap, behind), Kind::WrittenBehind);
        behind[21] = static_cast<char>(0xFB);
        EXPECT_EQ(Free(heap, behind), Kind::None) << "a damaged block was not freed";

        char* const before = Make(heap, 21);
        before[-1] = 1;
        EXPECT_EQ(Free(heap, before), Kind::WrittenBefore);
    }
}

TEST(GuardHeap, KnowsWhatItIsCalledWith)
{
    for (const GuardHeapLimits& limits : {Roomy, Shared}) {
        GuardHeap heap(limits);
        char* const block = Make(heap, 64);
        char other = 0;
        size_t size = 0;
        EXPECT_EQ(Free(heap, &other), Kind::Foreign);
        EXPECT_EQ(Free(heap, block + 16), Kind::NotTheStart);
        EXPECT_EQ(heap.Free(block, BlockMaker::AlignedMalloc, NoStack).kind, Kind::OtherMaker);
        EXPECT_EQ(heap.SizeOf(block, BlockMaker::Malloc, size).kind, Kind::None);
        EXPECT_EQ(size, 64u);
        EXPECT_EQ(Free(heap, block), Kind::None);
        EXPECT_EQ(Free(heap, block), Kind::FreedTwice);
        EXPECT_EQ(heap.SizeOf(block, BlockMaker::Malloc, size).kind, Kind::FreedTwice);
    }
}

TEST(GuardHeap, KeepsTheStacksOfABlock)
{
    GuardHeap heap(Roomy);
    int made = 0, freed = 0;
    const testkit::StackFrames maker{&made, &freed}, releaser{&freed};
    void* const block = heap.Allocate(5, 16, BlockMaker::Malloc, maker);
    heap.Free(block, BlockMaker::Malloc, releaser);
    const HeapMisuse place = heap.Locate(reinterpret_cast<uintptr_t>(block) + 2);
    EXPECT_EQ(place.kind, Kind::None);
    EXPECT_EQ(place.block, reinterpret_cast<uintptr_t>(block));
    EXPECT_EQ(place.madeBy, maker);
    EXPECT_EQ(place.freedBy, releaser);
}

TEST(GuardHeap, LocatesTheGuardPageAsTheBlocksBeforeIt)
{
    GuardHeap heap(Roomy);
    char* const first = Make(heap, 32);
    Make(heap, 32);
    EXPECT_EQ(heap.Locate(reinterpret_cast<uintptr_t>(first) + 32 + PageSize - 1).block,
              reinterpret_cast<uintptr_t>(first));
    EXPECT_NE(heap.Locate(reinterpret_cast<uintptr_t>(first) + 32 + PageSize).block,
              reinterpret_cast<uintptr_t>(first));
}

TEST(GuardHeap, LetsBlocksSharePagesBeyondItsBound)
{
    GuardHeapLimits limits = Roomy;
    limits.guardedBlocks = 2;
    GuardHeap heap(limits);
    std::array<char*, 4> blocks{};
    for (char*& block : blocks) {
        block = Make(heap, 32);
    }
    EXPECT_FALSE(IsAccessible(blocks[1] + 32));
    EXPECT_TRUE(IsAccessible(blocks[2] + 32));
    EXPECT_EQ(heap.Counts().guarded, 2u);
    EXPECT_EQ(heap.Counts().shared, 2u);
    EXPECT_EQ(Free(heap, blocks[0]), Kind::None);
    EXPECT_FALSE(IsAccessible(Make(heap, 32) + 32)) << "there is room again";
    EXPECT_EQ(heap.Counts().liveGuarded, 2u);
    EXPECT_EQ(heap.Counts().live, 4u);
}

TEST(GuardHeap, FindsAWriteToAFreedBlockInSharedPages)
{
    GuardHeap heap(Shared);
    char* const lives = Make(heap, 32);
    char* const block = Make(heap, 32);
    EXPECT_EQ(Free(heap, block), Kind::None);
    EXPECT_EQ(heap.Check().kind, Kind::None);
    block[7] = 1;
    EXPECT_EQ(heap.Check().kind, Kind::WrittenAfterFree);
    const HeapMisuse misuse = heap.Free(lives, BlockMaker::Malloc, NoStack); // the last in the pages
    EXPECT_EQ(misuse.kind, Kind::WrittenAfterFree);
    EXPECT_EQ(misuse.address, reinterpret_cast<uintptr_t>(block) + 7);
}

TEST(GuardHeap, RefusesBlocksWhenItsAddressesAreUsedUp)
{
    GuardHeapLimits limits = Roomy;
    limits.region = 1 << 20;
    limits.addressSpace = 2 << 20;
    GuardHeap heap(limits);
    std::set<char*> seen;
    char* block = nullptr;
    while ((block = Make(heap, 32)) != nullptr) {
        ASSERT_TRUE(seen.insert(block).second);
        ASSERT_EQ(Free(heap, block), Kind::None);
        ASSERT_LT(seen.size(), 100000u);
    }
    EXPECT_GE(seen.size(), 256u) << "pairs of pages";
    EXPECT_EQ(heap.Counts().refused, 1u);
    EXPECT_EQ(heap.Counts().live, 0u);
}

TEST(GuardHeap, RefusesSizesAndAlignmentsThatMakeNoSense)
{
    GuardHeap heap(Roomy);
    EXPECT_EQ(Make(heap, SIZE_MAX), nullptr);
    EXPECT_EQ(Make(heap, SIZE_MAX - PageSize), nullptr);
    EXPECT_EQ(Make(heap, 16, 0), nullptr);
    EXPECT_EQ(Make(heap, 16, 24), nullptr);
}

TEST(GuardHeap, ForgetsTheOldestOfTheFreedBlocks)
{
    GuardHeapLimits limits = Roomy;
    limits.freedBlocks = 3;
    GuardHeap heap(limits);
    std::vector<char*> blocks;
    for (int i = 0; i < 6; ++i) {
        blocks.push_back(Make(heap, 32));
        EXPECT_EQ(Free(heap, blocks.back()), Kind::None);
    }
    for (size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_EQ(Free(heap, blocks[i]), i < 3 ? Kind::Forgotten : Kind::FreedTwice) << i;
    }
}

TEST(GuardHeap, ServesThreadsSideBySide)
{
    GuardHeapLimits limits = Roomy;
    limits.guardedBlocks = 50; // so that both kinds of blocks occur
    GuardHeap heap(limits);
    std::latch start(4);
    const auto use = [&](char mark) {
        std::array<char*, 40> blocks{};
        start.arrive_and_wait();
        for (int i = 0; i < 5000; ++i) {
            char*& block = blocks[static_cast<size_t>(i) % blocks.size()];
            if (block) {
                EXPECT_EQ(block[31], mark);
                EXPECT_EQ(Free(heap, block), Kind::None);
            }
            block = Make(heap, 32);
            std::memset(block, mark, 32);
        }
        for (char* const block : blocks) {
            EXPECT_EQ(Free(heap, block), Kind::None);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (char mark = 1; mark <= 4; ++mark) {
            threads.emplace_back(use, mark);
        }
    }
    const testkit::GuardHeapCounts counts = heap.Counts();
    EXPECT_EQ(counts.live, 0u);
    EXPECT_EQ(counts.liveGuarded, 0u);
    EXPECT_EQ(counts.guarded + counts.shared, 20000u);
    EXPECT_EQ(heap.Check().kind, Kind::None);
}

} // namespace

#endif
