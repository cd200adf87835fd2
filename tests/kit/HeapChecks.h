// Stops a test program where it misuses memory, and asks the platform's heaps whether they are whole.
#pragma once

#include "kit/GuardHeap.h"

#include <string>

namespace testkit
{

// The heap that the modules under test allocate from (see HeapTracker.h). There is one in the checked
// build, and wherever the environment has VELM_GUARD_HEAP=1; with VELM_GUARD_HEAP=0 there is none. Null
// then, and where heap blocks are not tracked.
GuardHeap* ActiveGuardHeap();
// Makes it, if there shall be one. Called once, by the tracking of the heap.
void StartGuardHeap();

// Prints what is wrong, with the running test and the stacks of the call, of who made the block and of who
// freed it, and ends the process with ExitHeapMisuse.
[[noreturn]] void StopForMisuse(const HeapMisuse& misuse, const StackFrames& call);

// What the active heap knows of an address that cannot be accessed; empty if it is none of its own.
std::string DescribeGuardedAddress(uintptr_t address);

// After a test: stops if a block of the active heap is damaged, or if one of the platform's heaps says so of
// itself. What those look at depends on the system's settings. Does nothing without an active heap.
void CheckHeaps();

// One line about how many blocks had a guard page, when there is an active heap.
void PrintGuardHeapFigures();

} // namespace testkit
