// Lets the program under test run out of memory on purpose.
#pragma once

namespace hosttest
{

// While one lives, every operator new of this program throws std::bad_alloc, on all threads; one at a
// time. What the system's libraries allocate is not touched. Only builds that can be hooked do it: those
// of MinGW-w64, and debug builds of Visual C++.
class FailingMemory
{
public:
    FailingMemory();
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    static bool IsPossible();
};

} // namespace hosttest
