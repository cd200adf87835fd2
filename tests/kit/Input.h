// The real mouse and keyboard, moved from inside the program (SendInput). There is one of each on a
// desktop: test programs that use them run alone.
//
// Every function handles messages until the thread has taken the last event of the gesture out of its
// queue, also when a modal loop of the platform (a scroll bar, a drag, a menu) took it. True if that
// happened; false if the event went to no window of this thread.
#pragma once

#include "kit/Platform.h"

#include <initializer_list>
#include <string_view>

namespace testkit
{

enum class MouseButton
{
    Left,
    Right,
    Middle
};

// A point of a window's client area, in pixels of the screen.
POINT ScreenPoint(HWND window, POINT client);
// The middle of a window.
POINT MiddleOf(HWND window);

// Points are in pixels of the screen.
namespace Mouse
{
bool MoveTo(POINT point);
// Down alone is not for controls in which the platform runs a loop until the button is up again, such as
// scroll bars: it would never return. Drag and Click go on inside such loops.
bool Down(POINT point, MouseButton button = MouseButton::Left);
bool Up(POINT point, MouseButton button = MouseButton::Left);
bool Click(POINT point, MouseButton button = MouseButton::Left);
bool DoubleClick(POINT point, MouseButton button = MouseButton::Left);
// Presses at `from`, moves to `to` in four steps and releases there.
bool Drag(POINT from, POINT to, MouseButton button = MouseButton::Left);
// Turns the wheel by `notches`; positive: away from the user.
bool Wheel(POINT point, int notches);
} // namespace Mouse

// Goes to the window that has the focus.
namespace Keyboard
{
// Presses and releases a key (VK_...), while `modifiers` (VK_SHIFT, VK_CONTROL, VK_MENU) are held.
bool Press(WORD key, std::initializer_list<WORD> modifiers = {});
// Types text: keys of the keyboard layout where it has them, else Unicode events.
bool Type(std::wstring_view text);
} // namespace Keyboard

} // namespace testkit
