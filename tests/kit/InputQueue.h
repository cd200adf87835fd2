// Sends input events and finds out when the thread has taken them.
#pragma once

#include "kit/Platform.h"

#include <vector>

namespace testkit
{

using InputEvents = std::vector<INPUT>;

// A move of the mouse to a point of the screen.
INPUT MoveEvent(POINT point);

// Every event is marked with a number of its own (dwExtraInfo); a WH_GETMESSAGE hook of the thread sees
// the mark come out of the queue, whoever's message loop takes it.
class InputQueue
{
public:
    InputQueue();
    ~InputQueue();
    InputQueue(const InputQueue&) = delete;
    InputQueue& operator=(const InputQueue&) = delete;

    // Sends one group; true, so that it can be a step of a script.
    bool Send(InputEvents events);

    // The last event of the last group was delivered, or no input waits for the thread and none came for a
    // while.
    bool IsSettled();

    // Every group that could be delivered was: the last event of each came out of this thread's queue,
    // or it was a move to where the pointer stood.
    bool AllDelivered() const { return m_missing == 0; }

private:
    static LRESULT CALLBACK Hook(int code, WPARAM first, LPARAM second);

    static thread_local InputQueue* s_current;

    HHOOK m_hook;
    InputQueue* m_outer;
    ULONG_PTR m_mark = 0; // of the event that is waited for
    ULONG_PTR m_seen = 0;
    int m_quietTicks = 0;
    int m_missing = 0;
    bool m_needless = false;
};

} // namespace testkit
