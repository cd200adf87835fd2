// Call stacks of this process: taking them cheaply, and turning addresses into text.
#pragma once

#include "kit/Platform.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace testkit
{

// A stack as it is noted for a heap block: return addresses, innermost first; null after the last.
using StackFrames = std::array<void*, 24>;

// Return addresses of the calling thread, innermost first, without this function itself and `skip`
// further callers. At most `most` of them. About 0.2 microseconds per frame (RtlCaptureStackBackTrace).
std::vector<void*> CaptureStack(unsigned skip = 0, unsigned most = 60);

// The stack that belongs to the register values in `context`: the point of execution first, then return
// addresses. The thread to which they belong must stand still or be the caller. Allocates nothing, so it
// may be called while another thread is suspended inside an allocation. Returns the number of addresses
// written to `frames`. `places`, as many or none, tells where on the stack each return address lies.
size_t WalkStack(CONTEXT context, std::span<void*> frames, std::span<void**> places = {});

// One line for each address: "  module!Function+0x12  file:line". A part that the debug information does
// not give is left out. `returnAddresses` tells that the addresses after the first are return addresses;
// they are then looked up one byte earlier, so that the line is that of the call. `firstIsReturn` tells
// the same of the first one. Safe to call from any thread; the first call loads the debug information.
std::string DescribeStack(std::span<void* const> frames, bool firstIsReturn = true);

// The same without the first lines that lie in source files of such a name. How many of a function's own
// frames lead a stack depends on what the compiler made one.
std::string DescribeCallers(const StackFrames& frames, std::string_view ownSource);

} // namespace testkit
