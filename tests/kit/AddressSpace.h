// Addresses that are handed out once and never again.
#pragma once

#include "kit/BlockTable.h"

#include <cstdint>

namespace testkit
{

inline constexpr size_t PageSize = 4096;

// Reserves addresses of the process as they are needed, without memory behind them. Not safe to use from
// several threads.
class AddressSpace
{
public:
    // Reserves `regionBytes` at a time and `mostBytes` in all.
    AddressSpace(uint64_t regionBytes, uint64_t mostBytes) : m_regionBytes(regionBytes), m_left(mostBytes) {}
    ~AddressSpace(); // gives all of them back
    AddressSpace(const AddressSpace&) = delete;
    AddressSpace& operator=(const AddressSpace&) = delete;

    // The first of so many pages in a row, which cannot be accessed; 0 when there are none left.
    uintptr_t Take(size_t pages);
    // Whether an address lies in what was reserved.
    bool Contains(uintptr_t address) const;

private:
    struct Region
    {
        uintptr_t begin, end;
    };

    uint64_t m_regionBytes;
    uint64_t m_left;
    uintptr_t m_next = 0; // in the last region
    std::vector<Region, BlockTableAllocator<Region>> m_regions;
};

// Puts memory behind pages, zeroed, or takes it away again.
bool CommitPages(uintptr_t begin, size_t pages);
void DecommitPages(uintptr_t begin, size_t pages);

} // namespace testkit
