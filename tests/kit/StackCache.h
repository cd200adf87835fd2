// The stack of a thread, taken cheaply where the same one is taken again and again.
#pragma once

#include "kit/Stack.h"

namespace testkit
{

// The stack of the caller, from the caller on. Walking it takes a microsecond for each frame, and most
// allocations of a program have been made before from the very same place: a stack that was walked is kept
// with where on the stack its return addresses lie, and taken for the same if all of them lie there still.
StackFrames TakeStack();

} // namespace testkit
