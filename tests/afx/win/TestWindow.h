// A window for tests.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <gtest/gtest.h>

// A top-level window of 200 by 150 pixels at (100, 100); hidden unless shown.
template <class Base = CWnd>
class TestWindow : public Base
{
public:
    TestWindow() = default;
    virtual ~TestWindow() { this->DestroyWindow(); }

    BOOL Make(DWORD style = WS_POPUP, CWnd* parent = nullptr)
    {
        return this->CreateEx(0, nullptr, _T("test"), style, CRect(CPoint(100, 100), CSize(200, 150)), parent,
                              0);
    }
};
