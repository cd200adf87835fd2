// Functions of the platform that fail for the modules under test at a call of choice.
#pragma once

#include "kit/Platform.h"

#include <string_view>

namespace failingtest
{

// What fails: all functions of the platform that give something of that kind, counted together.
enum class Resource
{
    Memory,    // malloc, calloc, realloc and their like, and so operator new
    Texts,     // SysAllocString and SysAllocStringLen
    Documents, // CoCreateInstance
    Windows,   // windows, dialogs, and the hook without which no window finds its object
    Gdi,       // brushes, pens, fonts, bitmaps, and device contexts of memory and of windows
    Timers,    // SetTimer
};
inline constexpr size_t ResourceCount = 6;

// While one lives, the calls of the modules under test pass through here, but for those of the test program
// itself: neither what it calls nor what the standard library allocates for it fails or counts. Nor do the
// containers of the framework, with which it finds the objects of handles: those are its own affair. What is
// allocated is tracked by the leak gate all the same. One at a time, inside one test.
class FailingCalls
{
public:
    FailingCalls();
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    // False where the modules import none of the functions by those names, which depends on the toolchain.
    static bool IsPossible(Resource resource);

    // From now on the `n`-th call for `resource` on this thread fails, as the platform's own does: 1 is the
    // next one, and 0 is none.
    static void FailAt(Resource resource, unsigned n);
    // All calls succeed again.
    static void Stop();

    // Since FailAt: the calls for any resource, and whether one has failed.
    static unsigned Calls(Resource resource);
    static bool HasFailed();
};

} // namespace failingtest
