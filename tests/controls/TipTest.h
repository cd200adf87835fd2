// The ground of the tests of controls with tips: a visible parent, the mouse away from it, and what a tip
// control asks and shows.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kit/Input.h"
#include "kit/Pump.h"
#include "kit/Text.h"

// One entry of a message map that handles a notification, or a message with zeros.
struct MapEntry
{
    UINT message, code, first, last;
    bool operator==(const MapEntry&) const = default;
};

inline std::vector<MapEntry> EntriesOf(const AFX_MSGMAP* map)
{
    std::vector<MapEntry> entries;
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage != 0; ++entry)
        entries.push_back({entry->nMessage, entry->nCode, entry->nID, entry->nLastID});
    return entries;
}

inline MapEntry TipEntry(UINT code)
{
    return {WM_NOTIFY, code & 0xFFFF, 0, 0xFFFF};
}

// What a tip control sends when it wants a text, in one of the two character sets. All of it but the head is
// filled with a pattern.
template <class Info, UINT Code>
class TipRequest
{
public:
    using Char = std::remove_extent_t<decltype(Info::szText)>;
    using String = std::basic_string<Char>;

    explicit TipRequest(UINT_PTR tool, HWND from = nullptr, UINT flags = 0)
    {
        std::memset(&m_info, 0x5A, sizeof m_info);
        m_info.hdr = {from, tool, Code};
        m_info.uFlags = flags;
        m_before = m_info;
    }

    NMHDR* Head() { return &m_info.hdr; }

    // The text up to the final zero, which must lie in the buffer.
    String Text() const
    {
        const Char* const end = std::char_traits<Char>::find(m_info.szText, std::size(m_info.szText), Char{});
        if (end == nullptr) {
            ADD_FAILURE() << "the text is not ended";
            return {};
        }
        return String(static_cast<const Char*>(m_info.szText), end);
    }

    // All of the buffer.
    String Buffer() const { return String(m_info.szText, std::size(m_info.szText)); }

    // Everything but the buffer is as it was.
    bool IsElseUntouched() const
    {
        Info comparable = m_info;
        std::memcpy(comparable.szText, m_before.szText, sizeof comparable.szText);
        return std::memcmp(&comparable, &m_before, sizeof comparable) == 0;
    }
    bool IsUntouched() const { return std::memcmp(&m_info, &m_before, sizeof m_info) == 0; }

private:
    Info m_info;
    Info m_before;
};

using WideRequest = TipRequest<TOOLTIPTEXTW, TTN_NEEDTEXTW>;
using NarrowRequest = TipRequest<TOOLTIPTEXTA, TTN_NEEDTEXTA>;

// A tool description full of a pattern, to see what is filled in.
inline TOOLINFO PatternedTool()
{
    TOOLINFO tool;
    std::memset(&tool, 0x5A, sizeof tool);
    return tool;
}

inline bool IsSameTool(const TOOLINFO& a, const TOOLINFO& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// The thread's locale, and with it the code page of its narrow texts, until the end of the scope.
class ThreadLocale
{
public:
    explicit ThreadLocale(LCID locale) : m_before(GetThreadLocale()) { SetThreadLocale(locale); }
    ~ThreadLocale() { SetThreadLocale(m_before); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    LCID m_before;
};

class TipTest : public testing::Test
{
protected:
    void SetUp() override
    {
        testkit::Mouse::MoveTo({700, 600});
        ASSERT_TRUE(m_parent.CreateEx(WS_EX_TOPMOST, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                                      CRect(CPoint(100, 100), CSize(260, 220)), nullptr, 0));
        m_parent.SetActiveWindow();
        m_parent.SetForegroundWindow();
    }

    void TearDown() override
    {
        CWnd::CancelToolTips();
        m_parent.DestroyWindow();
        testkit::Mouse::MoveTo({700, 600});
    }

    // The visible tip of this thread, or null.
    static HWND VisibleTip()
    {
        HWND found = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                wchar_t name[40]{};
                GetClassNameW(window, name, 40);
                if (lstrcmpiW(name, TOOLTIPS_CLASSW) != 0 || !IsWindowVisible(window))
                    return TRUE;
                *reinterpret_cast<HWND*>(result) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    // The text that is shown as a tip; empty without a tip.
    static CString ShownTip()
    {
        CString text;
        const HWND tip = VisibleTip();
        if (tip != nullptr)
            GetWindowTextW(tip, text.GetBuffer(500), 500);
        text.ReleaseBuffer();
        return text;
    }

    // Moves the mouse over the window and waits for a tip with that text.
    static testing::AssertionResult ShowsTip(HWND window, POINT client, const CString& text)
    {
        testkit::Mouse::MoveTo(testkit::ScreenPoint(window, client));
        if (testkit::PumpUntil([&] { return VisibleTip() != nullptr && ShownTip() == text; }, 5000))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "the tip shown is " << testkit::Quoted(ShownTip().GetString());
    }

    CWnd m_parent;
};
