#include "kit/Input.h"

#include "kit/InputQueue.h"
#include "kit/Pump.h"
#include "kit/Script.h"

namespace testkit
{
namespace
{

DWORD FlagOf(MouseButton button, bool down)
{
    switch (button) {
    case MouseButton::Right:
        return down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
    case MouseButton::Middle:
        return down ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP;
    case MouseButton::Left:
        break;
    }
    return down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
}

INPUT MouseEvent(DWORD flags, DWORD data = 0)
{
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = flags;
    event.mi.mouseData = data;
    return event;
}

INPUT KeyEvent(WORD key, bool down)
{
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    return event;
}

INPUT UnicodeEvent(wchar_t character, bool down)
{
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wScan = static_cast<WORD>(character);
    event.ki.dwFlags = KEYEVENTF_UNICODE | (down ? 0 : KEYEVENTF_KEYUP);
    return event;
}

// Sends the groups of events one after another, each when the one before was delivered.
bool Play(std::initializer_list<InputEvents> groups)
{
    InputQueue queue;
    Script script;
    for (const InputEvents& group : groups) {
        script.Add([&queue, group] { return queue.Send(group); });
        script.Add([&queue] { return queue.IsSettled(); });
    }
    return script.Finish() && queue.AllDelivered();
}

} // namespace

POINT ScreenPoint(HWND window, POINT client)
{
    ClientToScreen(window, &client);
    return client;
}

POINT MiddleOf(HWND window)
{
    RECT box{};
    GetWindowRect(window, &box);
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

namespace Mouse
{

bool MoveTo(POINT point)
{
    return Play({{MoveEvent(point)}});
}

bool Down(POINT point, MouseButton button)
{
    return Play({{MoveEvent(point)}, {MouseEvent(FlagOf(button, true))}});
}

bool Up(POINT point, MouseButton button)
{
    return Play({{MoveEvent(point)}, {MouseEvent(FlagOf(button, false))}});
}

bool Click(POINT point, MouseButton button)
{
    return Play({{MoveEvent(point)}, {MouseEvent(FlagOf(button, true)), MouseEvent(FlagOf(button, false))}});
}

bool DoubleClick(POINT point, MouseButton button)
{
    const INPUT down = MouseEvent(FlagOf(button, true)), up = MouseEvent(FlagOf(button, false));
    return Play({{MoveEvent(point)}, {down, up, down, up}});
}

bool Drag(POINT from, POINT to, MouseButton button)
{
    const auto between = [&](int quarters) {
        return MoveEvent({from.x + (to.x - from.x) * quarters / 4, from.y + (to.y - from.y) * quarters / 4});
    };
    return Play({{MoveEvent(from)},
                 {MouseEvent(FlagOf(button, true))},
                 {between(1)},
                 {between(2)},
                 {between(3)},
                 {between(4)},
                 {MouseEvent(FlagOf(button, false))}});
}

bool Wheel(POINT point, int notches)
{
    return Play(
        {{MoveEvent(point)}, {MouseEvent(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA))}});
}

} // namespace Mouse

namespace Keyboard
{

bool Press(WORD key, std::initializer_list<WORD> modifiers)
{
    InputEvents events;
    for (const WORD modifier : modifiers) {
        events.push_back(KeyEvent(modifier, true));
    }
    events.push_back(KeyEvent(key, true));
    events.push_back(KeyEvent(key, false));
    for (auto modifier = modifiers.end(); modifier != modifiers.begin();) {
        events.push_back(KeyEvent(*--modifier, false));
    }
    return Play({events});
}

bool Type(std::wstring_view text)
{
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        // The high byte holds the modifiers: 1 Shift; with others the character goes as it is.
        const int shift = HIBYTE(key);
        bool delivered = false;
        if (key == -1 || shift > 1) {
            delivered = Play({{UnicodeEvent(character, true), UnicodeEvent(character, false)}});
        } else if (shift == 1) {
            delivered = Press(LOBYTE(key), {VK_SHIFT});
        } else {
            delivered = Press(LOBYTE(key));
        }
        if (!delivered) {
            return false;
        }
    }
    return true;
}

} // namespace Keyboard

} // namespace testkit
