#include "Ground.h"

#include <commctrl.h>

#include "kit/Input.h"
#include "kit/Pump.h"

namespace lifecycle
{
namespace
{

// Calls `take` with each tip control of this thread until it returns true; that one, or null.
template <class Take>
HWND FindTip(Take take)
{
    struct Search
    {
        Take take;
        HWND found;
    } search{take, nullptr};
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            auto& now = *reinterpret_cast<Search*>(data);
            wchar_t name[40]{};
            ::GetClassNameW(window, name, 40);
            if (::lstrcmpiW(name, TOOLTIPS_CLASSW) == 0 && now.take(window))
                now.found = window;
            return now.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool IsTipVisible()
{
    return FindTip([](HWND tip) { return ::IsWindowVisible(tip) != FALSE; }) != nullptr;
}

} // namespace

bool ShowsTip(CWnd& window, CPoint first, CPoint second)
{
    testkit::Mouse::MoveTo(testkit::ScreenPoint(window, first));
    FindTip([](HWND tip) {
        ::SendMessage(tip, TTM_SETDELAYTIME, TTDT_INITIAL, 1);
        ::SendMessage(tip, TTM_SETDELAYTIME, TTDT_RESHOW, 1);
        return false;
    });
    testkit::Mouse::MoveTo(testkit::ScreenPoint(window, second));
    return testkit::PumpUntil(&IsTipVisible, 5000);
}

} // namespace lifecycle
