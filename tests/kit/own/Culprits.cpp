#include "Culprits.h"

#include "kit/StackCache.h"

#include <cstdlib>
#include <stdexcept>

namespace
{

void* volatile g_pointer = nullptr;
void* volatile g_badAddress = reinterpret_cast<void*>(16);
volatile int g_number = 0; // changed at the end of functions, so that their last calls are not jumps

} // namespace

void ForgetABlock()
{
    g_pointer = std::malloc(4321);
    g_number = g_number + 1;
}

void WriteToBadAddress()
{
    // Not null: a build with checks of undefined behaviour traps that before the processor does.
    *static_cast<volatile int*>(g_badAddress) = 1;
    g_number = g_number + 1;
}

void CallNull()
{
    reinterpret_cast<void (*)()>(g_pointer)();
    g_number = g_number + 1;
}

void TurnForEver()
{
    while (g_number == 0) {
    }
    g_number = g_number + 1;
}

void AbortHere()
{
    if (g_number == 0) {
        std::abort();
    }
    g_number = g_number + 1;
}

void ThrowFromHere()
{
    if (g_number == 0) {
        throw std::runtime_error("thrown where nobody catches");
    }
}

std::vector<void*> CapturedHere()
{
    std::vector<void*> frames = testkit::CaptureStack();
    g_number = g_number + 1;
    return frames;
}

size_t WalkedHere(std::span<void*> frames)
{
    CONTEXT context{};
    RtlCaptureContext(&context);
    const size_t count = testkit::WalkStack(context, frames);
    g_number = g_number + 1;
    return count;
}

#ifdef __MINGW32__

__attribute__((noinline)) static testkit::StackFrames TakenHere()
{
    testkit::StackFrames frames = testkit::TakeStack();
    g_number = g_number + 1;
    return frames;
}

testkit::StackFrames TakenByFirst()
{
    testkit::StackFrames frames = TakenHere();
    g_number = g_number + 1;
    return frames;
}

testkit::StackFrames TakenBySecond()
{
    testkit::StackFrames frames = TakenHere();
    g_number = g_number + 2;
    return frames;
}

#endif
