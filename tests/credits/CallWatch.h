// Notes what the code under test asks of the platform's drawing.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

enum class Call
{
    SelectObject,   // target the device context, object what is selected
    CreateDc,       // object the new memory context
    CreateBitmap,   // target the device context it is made for, object the new bitmap
    ReadMetrics,    // target the device context
    Text,           // target the device context, text what is written
    Fill,           // target the device context
    Copy,           // target and object the device contexts
    Release,        // target the window, object its device context
    Invalidate,     // target the window, object the rectangle, number whether to erase
    LookUpOfAClass, // a window class is looked for or registered
    StartTimer      // target the window, number the timer; noted by the TimerWatch
};

struct PlatformCall
{
    Call call;
    const void* target = nullptr;
    const void* object = nullptr;
    int number = 0;
    std::wstring text = {};
    bool operator==(const PlatformCall&) const = default;
};

// While an object of this class lives, these calls of the modules under test are noted and carried out. One
// at a time.
class CallWatch
{
public:
    CallWatch();
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    // In order, since the last Clear.
    const std::vector<PlatformCall>& Calls() const { return m_calls; }
    // Those of one kind.
    std::vector<PlatformCall> Calls(Call call) const;
    void Clear() { m_calls.clear(); }

    // From now on no bitmap can be made.
    void LetBitmapsFail() { m_doBitmapsFail = true; }
    // From now on new bitmaps have that colour.
    void PaintBitmaps(COLORREF color) { m_color = color; }

    // Adds a call that was noted elsewhere, to the object that lives if there is one.
    static void Add(PlatformCall call);

private:
    struct Replacements;
    friend struct Replacements;
    void Note(PlatformCall call) { m_calls.push_back(std::move(call)); }

    static CallWatch* s_current;
    std::vector<PlatformCall> m_calls;
    bool m_doBitmapsFail = false;
    COLORREF m_color = CLR_INVALID;
};
