// What the library gets from the platform that time and other programs decide: timers, the place of the mouse
// and of the last message. While this lives, the test decides them, so that a sequence is the same each time.
#pragma once

#include "kit/ReplacedImports.h"

#include <afxwin.h>

#include <utility>
#include <vector>

namespace randomplay
{

class QuietPlatform
{
public:
    using Timer = std::pair<HWND, UINT_PTR>;

    QuietPlatform()
    {
        s_timers.clear();
        s_cursor = CPoint(0, 0);
    }
    ~QuietPlatform() { std::vector<Timer>().swap(s_timers); }
    QuietPlatform(const QuietPlatform&) = delete;
    QuietPlatform& operator=(const QuietPlatform&) = delete;
    bool IsReplaced() const
    {
        return m_setTimer.IsReplaced() && m_killTimer.IsReplaced() && m_getCursorPos.IsReplaced() &&
               m_getMessagePos.IsReplaced();
    }

    // The timers that the library has started and not ended, of windows that are there, oldest first.
    static std::vector<Timer> Timers()
    {
        std::erase_if(s_timers, [](const Timer& timer) { return !::IsWindow(timer.first); });
        return s_timers;
    }
    static bool Runs(HWND window, UINT_PTR id)
    {
        return std::find(s_timers.begin(), s_timers.end(), Timer(window, id)) != s_timers.end();
    }
    static void PutMouse(CPoint screen) { s_cursor = screen; }

private:
    static UINT_PTR WINAPI Start(HWND window, UINT_PTR id, UINT, TIMERPROC)
    {
        if (!Runs(window, id))
            s_timers.emplace_back(window, id);
        return id;
    }
    static BOOL WINAPI End(HWND window, UINT_PTR id) { return std::erase(s_timers, Timer(window, id)) != 0; }
    static BOOL WINAPI Cursor(POINT* point)
    {
        *point = s_cursor;
        return TRUE;
    }
    static DWORD WINAPI MessagePlace() { return static_cast<DWORD>(MAKELONG(s_cursor.x, s_cursor.y)); }

    static inline std::vector<Timer> s_timers;
    static inline CPoint s_cursor;

    CReplacedImport m_setTimer{"user32.dll", "SetTimer", reinterpret_cast<void*>(&Start)};
    CReplacedImport m_killTimer{"user32.dll", "KillTimer", reinterpret_cast<void*>(&End)};
    CReplacedImport m_getCursorPos{"user32.dll", "GetCursorPos", reinterpret_cast<void*>(&Cursor)};
    CReplacedImport m_getMessagePos{"user32.dll", "GetMessagePos", reinterpret_cast<void*>(&MessagePlace)};
};

} // namespace randomplay
