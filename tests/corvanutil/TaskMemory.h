// Blocks of COM's task allocator, of which automation texts are made.
#pragma once

#include <afxwin.h>

namespace companiontest
{

// While it lives, counts the blocks that the process takes from the allocator and gives back to it. The
// platform keeps some freed texts for the next ones, so only growth over many equal calls tells of a leak.
// One at a time. Rests on CoRegisterMallocSpy.
class TaskMemory
{
public:
    TaskMemory();
    ~TaskMemory();
    TaskMemory(const TaskMemory&) = delete;
    TaskMemory& operator=(const TaskMemory&) = delete;

    // Whether the platform lets the blocks be counted.
    bool Counts() const { return m_registered; }
    // Blocks taken minus blocks given back since the beginning.
    long Blocks() const;

private:
    bool m_registered;
};

} // namespace companiontest
