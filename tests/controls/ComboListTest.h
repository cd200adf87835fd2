// The ground of the drop-down list's tests: a parent that notes what it is told.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kit/Text.h"

// A drop-down list with its protected members open to the tests. It lives on pages of its own, so that
// whoever touches it after its end crashes.
class OpenComboList : public CXComboList
{
public:
    static void* operator new(size_t size)
    {
        return VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    static void operator delete(void* memory) { VirtualFree(memory, 0, MEM_RELEASE); }

    using CXComboList::CXComboList;
    using CXComboList::GetThisMessageMap;
    using CXComboList::m_bFirstActivation;
    using CXComboList::m_ListBox;
    using CXComboList::m_nKillFocusCount;
    using CXComboList::m_pParent;
    using CXComboList::m_wndSBVert;
    using CXComboList::SendRegisteredMessage;
};

// An opener that notes the four messages, and may do something when one comes.
class ComboOpener : public CWnd
{
public:
    std::vector<std::string> told;
    std::vector<std::pair<WPARAM, LPARAM>> parameters;
    std::function<void()> react;
    std::function<void()> reactToLostFocus;
    HFONT font = nullptr;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_GETFONT)
            return reinterpret_cast<LRESULT>(font);
        if (message == WM_KILLFOCUS && reactToLostFocus)
            reactToLostFocus();
        const char* const name = message == WM_XCOMBOLIST_VK_RETURN   ? "return"
                                 : message == WM_XCOMBOLIST_VK_ESCAPE ? "escape"
                                 : message == WM_XCOMBOLIST_KEYDOWN   ? "key"
                                 : message == WM_XCOMBOLIST_LBUTTONUP ? "button"
                                                                      : nullptr;
        if (name == nullptr)
            return CWnd::WindowProc(message, wParam, lParam);
        told.push_back(name);
        parameters.push_back({wParam, lParam});
        if (react)
            react();
        return 0;
    }
};

// While it lives, notes the messages of one kind that are sent in this thread.
class SentMessages
{
public:
    explicit SentMessages(UINT message) : m_message(message)
    {
        s_current = this;
        m_hook = SetWindowsHookExW(WH_CALLWNDPROC, &Hook, nullptr, GetCurrentThreadId());
    }
    ~SentMessages()
    {
        UnhookWindowsHookEx(m_hook);
        s_current = nullptr;
    }
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;

    std::vector<CWPSTRUCT> To(HWND window) const
    {
        std::vector<CWPSTRUCT> messages;
        for (const CWPSTRUCT& message : m_messages) {
            if (message.hwnd == window)
                messages.push_back(message);
        }
        return messages;
    }

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam)
    {
        const auto message = reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code == HC_ACTION && message->message == s_current->m_message)
            s_current->m_messages.push_back(*message);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline SentMessages* s_current = nullptr;
    UINT m_message;
    HHOOK m_hook;
    std::vector<CWPSTRUCT> m_messages;
};

// A visible opener, the cursor away from it, and a drop-down list that has no window yet.
class ComboListTest : public testing::Test
{
protected:
    void SetUp() override
    {
        SetCursorPos(0, 0);
        m_opener.CreateEx(0, AfxRegisterWndClass(0), L"Opener", WS_POPUP | WS_VISIBLE,
                          CRect(20, 20, 420, 320), nullptr, 0);
        m_opener.SetFocus();
        // Without a main window the framework takes the active one for it, which is asked a second time.
        AfxGetApp()->m_pMainWnd = &m_opener;
        m_combo = std::make_unique<OpenComboList>(&m_opener);
    }

    // The windows go before the objects, as in a program.
    void TearDown() override
    {
        m_opener.react = nullptr;
        m_opener.reactToLostFocus = nullptr;
        if (m_combo && m_combo->GetSafeHwnd() != nullptr)
            m_combo->DestroyWindow();
        AfxGetApp()->m_pMainWnd = nullptr;
        m_opener.DestroyWindow();
    }

    void CreateWindowOf(CXComboList& combo, int height = 200, DWORD style = WS_BORDER)
    {
        ASSERT_TRUE(combo.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE | style,
                                   CRect(CPoint(100, 60), CSize(150, height)), &m_opener, 0));
    }

    // Creates the window with that many items, "item 0" and so on.
    void Open(int items, int height = 200, DWORD style = WS_BORDER)
    {
        CreateWindowOf(*m_combo, height, style);
        for (int item = 0; item < items; ++item) {
            CString text;
            text.Format(L"item %d", item);
            ASSERT_EQ(m_combo->AddString(text), item);
        }
    }

    // As Open, laid out so that `visible` items are seen.
    void OpenActive(int items, int visible, int selection)
    {
        CreateWindowOf(*m_combo, 0);
        const int itemHeight = ItemHeight();
        m_combo->SetWindowPos(nullptr, 0, 0, 150, visible * itemHeight, SWP_NOMOVE | SWP_NOZORDER);
        for (int item = 0; item < items; ++item)
            m_combo->AddString(L"item");
        m_combo->SetCurSel(selection);
        m_combo->SetActive(BarWidth);
    }

    HWND List() { return m_combo->m_ListBox.GetSafeHwnd(); }
    HWND Bar() { return m_combo->m_wndSBVert.GetSafeHwnd(); }

    int ItemHeight() { return static_cast<int>(::SendMessageW(List(), LB_GETITEMHEIGHT, 0, 0)); }
    int Selection() { return static_cast<int>(::SendMessageW(List(), LB_GETCURSEL, 0, 0)); }
    int TopItem() { return static_cast<int>(::SendMessageW(List(), LB_GETTOPINDEX, 0, 0)); }

    SCROLLINFO BarInfo()
    {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        ::GetScrollInfo(Bar(), SB_CTL, &info);
        return info;
    }
    int BarPosition() { return BarInfo().nPos; }
    void MoveBar(int position) { ::SetScrollPos(Bar(), SB_CTL, position, FALSE); }

    // Where the platform lets a scroll bar stand.
    int Reachable(int position)
    {
        const SCROLLINFO info = BarInfo();
        return std::max(0, std::min(position, info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0)));
    }

    BOOL PreTranslate(UINT message, WPARAM wParam)
    {
        MSG msg{};
        msg.hwnd = List();
        msg.message = message;
        msg.wParam = wParam;
        return m_combo->PreTranslateMessage(&msg);
    }
    BOOL Key(WPARAM key) { return PreTranslate(WM_KEYDOWN, key); }

    static constexpr int BarWidth = 17;
    ComboOpener m_opener;
    std::unique_ptr<OpenComboList> m_combo;
};
