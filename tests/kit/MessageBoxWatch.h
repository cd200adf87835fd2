// Reads and closes message boxes that the code under test shows.
#pragma once

#include "kit/Platform.h"

#include <deque>
#include <string>
#include <vector>

namespace testkit
{

struct MessageBoxRecord
{
    std::wstring caption;
    std::wstring text;
    UINT icon = 0;            // MB_ICONERROR, MB_ICONQUESTION, MB_ICONWARNING, MB_ICONINFORMATION, or 0
    std::vector<int> buttons; // IDOK, IDYES, ... as they stand from left to right
    int pressed = 0;          // the button that closed it
};

// While an object of this class lives, every message box that its thread shows (MessageBox,
// AfxMessageBox) is noted and closed by one of its buttons, in the box's own message loop. Of nested
// objects on one thread the innermost takes the box. Rests on a WH_CBT hook of the thread: the box is
// taken when it is activated. Other dialogs are left alone. Under Wine a box with MB_SYSTEMMODAL is
// activated before it has its text and icon, so it is noted without them.
class MessageBoxWatch
{
public:
    MessageBoxWatch();
    ~MessageBoxWatch();
    MessageBoxWatch(const MessageBoxWatch&) = delete;
    MessageBoxWatch& operator=(const MessageBoxWatch&) = delete;

    // The button to press in the next box that has no answer yet; may be called several times ahead.
    // Without an answer the first button is pressed. A button that a box does not have fails the test,
    // and its first one is pressed.
    void Answer(int button);

    // The boxes so far, in order.
    const std::vector<MessageBoxRecord>& Boxes() const { return m_boxes; }
    // Their texts, in order.
    std::vector<std::wstring> Texts() const;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM first, LPARAM second);
    void Take(HWND box);

    static thread_local MessageBoxWatch* s_innermost;

    HHOOK m_hook;
    MessageBoxWatch* m_outer;
    std::deque<int> m_answers;
    std::vector<MessageBoxRecord> m_boxes;
};

} // namespace testkit
