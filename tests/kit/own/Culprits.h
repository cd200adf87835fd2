// Functions that tests look for in call stacks. They stand in a source file of their own so that each
// keeps its frame: the compiler cannot merge them into their callers.
#pragma once

#include "kit/Stack.h"

#include <span>
#include <vector>

void ForgetABlock();      // 4321 bytes
void WriteToBadAddress(); // 0x10
void CallNull();
void TurnForEver();
void AbortHere();
void ThrowFromHere(); // std::runtime_error("thrown where nobody catches")

// The stack at this function by the two ways of taking it.
std::vector<void*> CapturedHere();
size_t WalkedHere(std::span<void*> frames);

// The stack at the same place, called by one function or by another.
testkit::StackFrames TakenByFirst();
testkit::StackFrames TakenBySecond();
