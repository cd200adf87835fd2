#include "kit/InputQueue.h"

#include <gtest/gtest.h>

namespace testkit
{
namespace
{

constexpr ULONG_PTR FirstMark = 0x7E570000;
ULONG_PTR g_lastMark = FirstMark;

// After so many looks at an empty input queue, the event is taken to have gone elsewhere.
constexpr int QuietTicks = 25;

bool IsMove(const INPUT& event)
{
    return event.type == INPUT_MOUSE && (event.mi.dwFlags & MOUSEEVENTF_MOVE);
}

} // namespace

thread_local InputQueue* InputQueue::s_current = nullptr;

INPUT MoveEvent(POINT point)
{
    // The whole screen is 65536 units; half a pixel more lands on the pixel instead of before it.
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    event.mi.dx = MulDiv(point.x, 65536, width) + 32768 / width;
    event.mi.dy = MulDiv(point.y, 65536, height) + 32768 / height;
    return event;
}

InputQueue::InputQueue()
    : m_hook(SetWindowsHookExW(WH_GETMESSAGE, Hook, nullptr, GetCurrentThreadId())), m_outer(s_current)
{
    s_current = this;
}

InputQueue::~InputQueue()
{
    s_current = m_outer;
    UnhookWindowsHookEx(m_hook);
}

bool InputQueue::Send(InputEvents events)
{
    m_quietTicks = 0;
    ++m_missing;
    for (INPUT& event : events) {
        m_mark = ++g_lastMark;
        (event.type == INPUT_MOUSE ? event.mi.dwExtraInfo : event.ki.dwExtraInfo) = m_mark;
    }
    POINT before{}, after{};
    GetCursorPos(&before);
    const UINT sent = SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
    GetCursorPos(&after);
    if (sent != events.size()) {
        ADD_FAILURE() << "SendInput failed with error " << GetLastError();
    }
    // A move to where the pointer stands gives no message.
    m_needless = events.size() == 1 && IsMove(events[0]) && before.x == after.x && before.y == after.y;
    return true;
}

bool InputQueue::IsSettled()
{
    if (m_seen == m_mark || m_needless) {
        --m_missing;
        m_needless = false;
        return true;
    }
    if (HIWORD(GetQueueStatus(QS_INPUT)) != 0) {
        m_quietTicks = 0;
        return false;
    }
    return ++m_quietTicks >= QuietTicks;
}

LRESULT CALLBACK InputQueue::Hook(int code, WPARAM first, LPARAM second)
{
    const auto& message = *reinterpret_cast<const MSG*>(second);
    const bool isInput = (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
                         (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) ||
                         (message.message >= WM_NCMOUSEMOVE && message.message <= WM_NCXBUTTONDBLCLK);
    if (code == HC_ACTION && first == PM_REMOVE && isInput && s_current) {
        const auto mark = static_cast<ULONG_PTR>(GetMessageExtraInfo());
        if (mark == s_current->m_mark) {
            s_current->m_seen = mark;
        }
    }
    return CallNextHookEx(nullptr, code, first, second);
}

} // namespace testkit
