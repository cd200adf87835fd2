// The ground of the progress dialog's tests: a parent, the dialog with its protected members open, and what
// can be asked of its windows.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "kit/Text.h"

constexpr int DialogNumber = 300;
constexpr int BarNumber = 701;
constexpr int StatusNumber = 700;

class OpenProgress : public CDlgProgressBar
{
public:
    using CDlgProgressBar::CDlgProgressBar;
    using CDlgProgressBar::DoDataExchange;
    using CDlgProgressBar::GetThisMessageMap;
    using CDlgProgressBar::m_lpszTemplateName;
    using CDlgProgressBar::m_pParentWnd;
    static const AFX_MSGMAP* BaseMap() { return CDialog::GetThisMessageMap(); }
};

// A parent near a corner of the screen.
class ProgressDialog : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                                      CRect(CPoint(10, 10), CSize(200, 100)), nullptr, 0));
    }
    void TearDown() override
    {
        m_dialog.reset();
        m_parent.DestroyWindow();
    }

    void Create()
    {
        m_dialog = std::make_unique<OpenProgress>(&m_parent);
        ASSERT_TRUE(m_dialog->CreateNonModal(&m_parent));
    }
    void Show()
    {
        m_dialog->ShowWindow(SW_SHOW);
        m_dialog->SetForegroundWindow();
        m_dialog->SetFocus();
    }

    HWND Control(int number) { return ::GetDlgItem(*m_dialog, number); }
    CString Status() { return TextOf(Control(StatusNumber)); }
    int Position() { return static_cast<int>(::SendMessageW(Control(BarNumber), PBM_GETPOS, 0, 0)); }

    static CString TextOf(HWND window)
    {
        CString text;
        GetWindowTextW(window, text.GetBuffer(200), 200);
        text.ReleaseBuffer();
        return text;
    }
    static CString ClassOf(HWND window)
    {
        CString name;
        GetClassNameW(window, name.GetBuffer(200), 200);
        name.ReleaseBuffer();
        return name;
    }
    static DWORD StyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)); }
    static DWORD ExStyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)); }

    CRect InDialog(HWND control)
    {
        CRect rect;
        ::GetWindowRect(control, &rect);
        m_dialog->ScreenToClient(&rect);
        return rect;
    }
    // A place and a size in dialog units, each of them rounded to pixels.
    CRect Pixels(int x, int y, int width, int height)
    {
        CRect rect(x, y, width, height);
        MapDialogRect(*m_dialog, &rect);
        return CRect(rect.TopLeft(), CSize(rect.right, rect.bottom));
    }

    CWnd m_parent;
    std::unique_ptr<OpenProgress> m_dialog;
};
