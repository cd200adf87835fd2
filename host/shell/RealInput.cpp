#include "shell/RealInput.h"

#include <vector>

namespace velmhost
{

namespace
{

void Send(std::vector<INPUT>& inputs)
{
    if (!inputs.empty())
        ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void AddButton(std::vector<INPUT>& inputs, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    inputs.push_back(input);
}

void AddKey(std::vector<INPUT>& inputs, WORD virtualKey, WORD character, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    inputs.push_back(input);
}

// Keys of the block beside the letters, which are told from those of the number pad by a flag.
bool IsExtended(WORD virtualKey)
{
    return virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN;
}

} // namespace

void MovePointer(CPoint at)
{
    ::SetCursorPos(at.x, at.y);
}

void ClickAt(CPoint at)
{
    MovePointer(at);
    std::vector<INPUT> inputs;
    AddButton(inputs, MOUSEEVENTF_LEFTDOWN);
    AddButton(inputs, MOUSEEVENTF_LEFTUP);
    Send(inputs);
}

void PressKey(WORD virtualKey, int times)
{
    const DWORD extended = IsExtended(virtualKey) ? KEYEVENTF_EXTENDEDKEY : 0;
    std::vector<INPUT> inputs;
    for (int i = 0; i < times; ++i) {
        AddKey(inputs, virtualKey, 0, extended);
        AddKey(inputs, virtualKey, 0, extended | KEYEVENTF_KEYUP);
    }
    Send(inputs);
}

void TypeCharacters(const std::wstring& text)
{
    std::vector<INPUT> inputs;
    for (const wchar_t ch : text) {
        AddKey(inputs, 0, ch, KEYEVENTF_UNICODE);
        AddKey(inputs, 0, ch, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    Send(inputs);
}

} // namespace velmhost
