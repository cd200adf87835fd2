// Where the lives of windows take place.
#pragma once

#include <VelmUtil22.h>

#include <gtest/gtest.h>

namespace lifecycle
{

// A visible window for controls to stand in, with the mouse away from it at the beginning and the end.
class Ground : public CWnd
{
public:
    Ground()
    {
        MoveMouseAway();
        EXPECT_TRUE(CreateEx(WS_EX_TOPMOST, AfxRegisterWndClass(0), L"Ground", WS_POPUP | WS_VISIBLE,
                             CRect(CPoint(100, 100), CSize(420, 320)), nullptr, 0));
        SetActiveWindow();
        SetForegroundWindow();
    }
    ~Ground() override
    {
        CWnd::CancelToolTips();
        DestroyWindow();
        MoveMouseAway();
    }

private:
    // Nobody is there to take the move.
    static void MoveMouseAway() { ::SetCursorPos(900, 700); }
};

// Lets the mouse rest on one place and then on another until a tip shows there; false if none does.
bool ShowsTip(CWnd& window, CPoint first, CPoint second);

} // namespace lifecycle
