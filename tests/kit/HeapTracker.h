// Counts the heap blocks that our own modules hold, with the call stack that made each.
//
// With MinGW-w64 the import tables of our modules are patched: their malloc, calloc, realloc, free,
// _aligned_malloc, _aligned_realloc, _aligned_free, _strdup and _wcsdup (and so new and delete, which
// libstdc++ makes of them) pass through a table of live blocks. Our modules are the program and every
// module from its folder, from folders below and from those above it, but the compiler's own support
// libraries; modules that are loaded later are patched before their code runs. What the system's
// libraries allocate for themselves is not counted, nor are blocks made before the start, nor what the
// first call of a function makes for its static local objects: that is made once and kept on purpose.
// Where a guard heap is asked for, these functions take their blocks from it (see HeapChecks.h and
// GuardHeap.h). With Visual C++ the debug run-time's own book-keeping counts instead; a release build counts
// nothing.
#pragma once

#include "kit/Platform.h"

#include <string>

#if defined(_MSC_VER) && defined(_DEBUG)
#include <crtdbg.h>
#endif

namespace testkit
{

struct HeapMark
{
    long long blocks = 0;          // live now
    unsigned long long serial = 0; // number of allocations so far
#if defined(_MSC_VER) && defined(_DEBUG)
    _CrtMemState state{};
#endif
};

void StartHeapTracking();

// Tells whether blocks are counted in this build.
bool HeapIsTracked();

// Counts also what `module` allocates from now on, wherever it lies. False if it was patched before
// already, or calls none of the counted functions.
bool TrackModule(HMODULE module);

// Patches whatever was loaded since, should the loader not have told.
void TrackNewModules();

HeapMark MarkHeap();

// The blocks made since `mark` that still live: size and call stack of the first `most` of them.
std::string DescribeBlocksSince(const HeapMark& mark, unsigned most = 10);

} // namespace testkit
