#include "SplitPage.h"

#include <algorithm>

namespace
{

constexpr int LeastControlWidth = 240;
constexpr int MostControlWidth = 280;

} // namespace

CRect CSplitPage::LayOutLeft(CSize size, CWnd& label, CWnd& control)
{
    const int width = std::clamp(static_cast<int>(size.cx) * 2 / 5, LeastControlWidth, MostControlWidth);
    const int top = Margin + LineHeight + Gap / 2;
    label.MoveWindow(Margin, Margin, width, LineHeight);
    control.MoveWindow(Margin, top, width, size.cy - Margin - top);
    return CRect(Margin + width + 2 * Margin, Margin, size.cx - Margin, size.cy - Margin);
}

void CSplitPage::PlaceText(CRect& rest, CStatic& heading, CStatic& text, int lines)
{
    heading.MoveWindow(rest.left, rest.top, rest.Width(), LineHeight);
    rest.top += LineHeight;
    text.MoveWindow(rest.left, rest.top, rest.Width(), lines * LineHeight);
    rest.top += lines * LineHeight + Gap;
}

void CSplitPage::PoseMouse(const CWnd& control, CPoint place)
{
    control.ClientToScreen(&place);
    ::SetCursorPos(place.x, place.y);
}

bool CSplitPage::IsPosed() const
{
    bool isTipShown = false;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[40] = {};
            ::GetClassName(window, name, static_cast<int>(std::size(name)));
            if (::lstrcmpi(name, TOOLTIPS_CLASS) != 0 || !::IsWindowVisible(window))
                return TRUE;
            *reinterpret_cast<bool*>(result) = true;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&isTipShown));
    return isTipShown;
}
