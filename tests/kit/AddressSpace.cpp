#ifndef _MSC_VER

#include "kit/AddressSpace.h"

#include <algorithm>

namespace testkit
{

AddressSpace::~AddressSpace()
{
    for (const Region& region : m_regions) {
        VirtualFree(reinterpret_cast<void*>(region.begin), 0, MEM_RELEASE);
    }
}

uintptr_t AddressSpace::Take(size_t pages)
{
    const uint64_t bytes = pages * PageSize;
    if (m_regions.empty() || m_regions.back().end - m_next < bytes) {
        const uint64_t size = std::min(m_regionBytes, m_left);
        void* const region = size < bytes ? nullptr : VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS);
        if (!region) {
            return 0;
        }
        m_left -= size;
        m_next = reinterpret_cast<uintptr_t>(region);
        m_regions.push_back({m_next, m_next + size});
    }
    const uintptr_t begin = m_next;
    m_next += bytes;
    return begin;
}

bool AddressSpace::Contains(uintptr_t address) const
{
    return std::any_of(m_regions.begin(), m_regions.end(),
                       [=](const Region& region) { return region.begin <= address && address < region.end; });
}

bool CommitPages(uintptr_t begin, size_t pages)
{
    return VirtualAlloc(reinterpret_cast<void*>(begin), pages * PageSize, MEM_COMMIT, PAGE_READWRITE) !=
           nullptr;
}

void DecommitPages(uintptr_t begin, size_t pages)
{
    VirtualFree(reinterpret_cast<void*>(begin), pages * PageSize, MEM_DECOMMIT);
}

} // namespace testkit

#endif
