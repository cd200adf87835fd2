#ifndef _MSC_VER

#include "kit/BlockTable.h"

#include <algorithm>

namespace testkit
{

HANDLE BlockTableHeap()
{
    static const HANDLE heap = HeapCreate(0, 0, 0);
    return heap;
}

BlockTable& BlockTable::Get()
{
    static BlockTable& table = *new (HeapAlloc(BlockTableHeap(), 0, sizeof(BlockTable))) BlockTable;
    return table;
}

void BlockTable::Put(void* memory, Block block)
{
    std::lock_guard lock(m_lock);
    block.serial = m_serial++;
    m_blocks.insert_or_assign(memory, block);
}

bool BlockTable::Take(void* memory, Block& block)
{
    std::lock_guard lock(m_lock);
    const auto found = m_blocks.find(memory);
    if (found == m_blocks.end()) {
        return false;
    }
    block = found->second;
    m_blocks.erase(found);
    return true;
}

HeapMark BlockTable::Mark()
{
    std::lock_guard lock(m_lock);
    return {static_cast<long long>(m_blocks.size()), m_serial};
}

std::vector<Block> BlockTable::Since(unsigned long long serial)
{
    // Collected in the table's own memory: while the lock is held, nothing may be added to the table.
    std::vector<Block, BlockTableAllocator<Block>> found;
    {
        std::lock_guard lock(m_lock);
        for (const auto& [memory, block] : m_blocks) {
            if (block.serial >= serial) {
                found.push_back(block);
            }
        }
    }
    std::sort(found.begin(), found.end(), [](const Block& a, const Block& b) { return a.serial < b.serial; });
    return {found.begin(), found.end()};
}

} // namespace testkit

#endif
