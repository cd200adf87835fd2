// Waiting for a state by handling messages, instead of sleeping.
#pragma once

#include <functional>

namespace testkit
{

// Handles messages of the calling thread, as the program's message loop would, until `predicate` holds;
// it is asked before the first message and after each. True as soon as it holds; false after
// `milliseconds`, or when WM_QUIT came, which is posted anew.
bool PumpUntil(const std::function<bool()>& predicate, unsigned milliseconds = 10000);

// Handles the messages that wait, and those that come of them. WM_QUIT is taken from the queue. False if
// there was no end of messages (10000 handled).
bool PumpPending();

} // namespace testkit
