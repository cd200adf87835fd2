// The leak gate: after every test it compares what the process holds with what it held before, and fails
// the test when something grew.
//
// It counts heap blocks (see HeapTracker.h), GDI objects, windows, and counters that a test program
// registers. The span is that of the test's fixture object, from before its constructor until after its
// destructor; what a suite makes in SetUpTestSuite is not part of it. Heap blocks of a test that failed
// or was skipped are not judged: GoogleTest keeps records of it. Before it counts, the gate handles
// messages that still wait and lets MFC drop its temporary objects.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace testkit
{

inline constexpr std::string_view HeapBlocks = "heap blocks";
inline constexpr std::string_view GdiObjects = "GDI objects";
inline constexpr std::string_view Windows = "windows";

// Lets `counter` grow by up to `amount` over the running test. `reason` must say why; an empty one, or a
// name that no counter has, fails the test.
void AllowGrowth(std::string_view counter, long long amount, std::string_view reason);

// Adds a counter to those of the gate, for the rest of the program or until it is removed. `value` is
// called on the main thread, before and after every test. A registered name is replaced. Best called in
// SetUpTestSuite: the notes that it makes are heap blocks too, and a counter that a test adds is first
// judged with the next test.
void AddCounter(std::string name, std::function<long long()> value);
void RemoveCounter(std::string_view name);

// What a counter says now; fails the test when there is none of that name.
long long CountNow(std::string_view counter);

// Adds the gate to GoogleTest's listeners. Called once by the kit's main.
void InstallLeakGate();

} // namespace testkit
