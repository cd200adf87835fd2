// Mouse and keyboard input as a user's hand makes it.
//
// All input goes through the system's own queue: it arrives at whatever window is below the pointer, or has
// the focus, once messages are dispatched. Rests on SetCursorPos and SendInput.
#pragma once

#include <afxwin.h>

#include <string>

namespace velmhost
{

// Moves the pointer to a point of the screen.
void MovePointer(CPoint at);
// Moves the pointer there and presses and releases the left button.
void ClickAt(CPoint at);
// Presses and releases a key, a number of times.
void PressKey(WORD virtualKey, int times = 1);
// Types characters, whatever keys the keyboard has.
void TypeCharacters(const std::wstring& text);

} // namespace velmhost
