// The calls that a drop-down list makes to the platform when it is activated and when it ends.
#include "ComboListTest.h"

#include "kit/ReplacedImports.h"

#include <utility>

namespace
{

struct Started
{
    HWND window;
    UINT_PTR id;
    UINT period;
    bool operator==(const Started&) const = default;
};

std::vector<Started> g_started;

UINT_PTR WINAPI NoteTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure)
{
    g_started.push_back({window, id, period});
    return ::SetTimer(window, id, period, procedure);
}

// What happened to scroll bars, in order.
std::vector<std::string> g_scrolled;

#ifdef __MINGW32__
int WINAPI NotePosition(HWND window, int bar, int position, BOOL redraw)
{
    g_scrolled.push_back("position " + std::to_string(position) + (redraw ? ", drawn" : ""));
    return ::SetScrollPos(window, bar, position, redraw);
}

int WINAPI NoteInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw)
{
    constexpr UINT wanted = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    g_scrolled.push_back(std::string(info->fMask == wanted ? "" : "not ") + "all of " +
                         std::to_string(info->nMin) + " to " + std::to_string(info->nMax) + ", position " +
                         std::to_string(info->nPos) + (redraw ? ", drawn" : ""));
    return ::SetScrollInfo(window, bar, info, redraw);
}

// The framework's calls of SetScrollInfo, noted for as long as it lives.
class NotedInfos
{
public:
    NotedInfos() { EXPECT_TRUE(Replace(reinterpret_cast<void*>(&NoteInfo))); }
    ~NotedInfos() { Replace(reinterpret_cast<void*>(&::SetScrollInfo)); }
    NotedInfos(const NotedInfos&) = delete;
    NotedInfos& operator=(const NotedInfos&) = delete;

private:
    static bool Replace(void* function)
    {
        const testkit::ImportReplacement replacement[] = {{"user32.dll", "SetScrollInfo", function}};
        return testkit::ReplaceImports(::GetModuleHandle(L"VelmAfx22.dll"), replacement);
    }
};
#endif

// Notes its end, step by step.
class EndingComboList : public OpenComboList
{
public:
    using OpenComboList::OpenComboList;

    static inline HWND list = nullptr;
    static inline std::vector<std::string> steps;

    static void Note(const std::string& step)
    {
        steps.push_back(step + (::IsWindow(list) ? ", with list box" : ", without list box"));
    }

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_DESTROY)
            Note("base");
        return OpenComboList::DefWindowProc(message, wParam, lParam);
    }
};

BOOL WINAPI NoteKilledTimer(HWND window, UINT_PTR id)
{
    EndingComboList::Note("timer " + std::to_string(id));
    return ::KillTimer(window, id);
}

class ComboListActivation : public ComboListTest
{
protected:
    void TearDown() override
    {
        std::vector<Started>().swap(g_started);
        std::vector<std::string>().swap(g_scrolled);
        std::vector<std::string>().swap(EndingComboList::steps);
        ComboListTest::TearDown();
    }
};

using ComboListEnd = ComboListActivation;

// Gives another bar than its own.
class OtherBarList : public CXComboList
{
public:
    using CXComboList::CXComboList;
    CScrollBar* GetScrollBarCtrl(INT_PTR) override { return nullptr; }
};

} // namespace

using testing::ElementsAre;

TEST_F(ComboListActivation, StartsATimerOf80Milliseconds)
{
    Open(5);
    {
        const CReplacedImport timers("USER32.dll", "SetTimer", reinterpret_cast<void*>(&NoteTimer));
        ASSERT_TRUE(timers.IsReplaced());
        m_combo->SetActive(BarWidth);
        m_combo->SetActive(BarWidth);
    }
    EXPECT_THAT(g_started, ElementsAre(Started{m_combo->m_hWnd, 1, 80}));
}

#ifdef __MINGW32__
TEST_F(ComboListActivation, GivesTheBarARangeThatNeverHidesItAndThePositionOnceMore)
{
    Open(30);
    m_combo->SetCurSel(7);
    {
        const NotedInfos infos;
        const CReplacedImport positions("USER32.dll", "SetScrollPos", reinterpret_cast<void*>(&NotePosition));
        ASSERT_TRUE(positions.IsReplaced());
        m_combo->SetActive(BarWidth);
    }
    EXPECT_THAT(g_scrolled, ElementsAre("all of 0 to 30, position 7, drawn", "position 7, drawn"));
}
#endif

TEST_F(ComboListEnd, KillsTheTimerThenDestroysTheListBoxThenGoesOnWithTheBase)
{
    EndingComboList combo(&m_opener);
    CreateWindowOf(combo);
    combo.SetActive(BarWidth);
    EndingComboList::list = combo.m_ListBox.m_hWnd;
    {
        const CReplacedImport timers("USER32.dll", "KillTimer", reinterpret_cast<void*>(&NoteKilledTimer));
        ASSERT_TRUE(timers.IsReplaced());
        combo.DestroyWindow();
    }
    EXPECT_THAT(EndingComboList::steps, ElementsAre("timer 1, with list box", "base, without list box"));
}

TEST_F(ComboListActivation, ScrollBarIsAskedForThroughAVirtualFunction)
{
    OtherBarList other(nullptr);
    CXComboList& list = other;
    EXPECT_EQ(list.GetScrollBarCtrl(SB_VERT), nullptr);
    EXPECT_NE(list.CXComboList::GetScrollBarCtrl(SB_VERT), nullptr);
}
