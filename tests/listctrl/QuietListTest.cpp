// While nothing of a list can be seen, its setters do not have it redrawn.
#include "CellDrawing.h"

#include "kit/ReplacedImports.h"

namespace
{

// Counts the calls by which the library has a window redrawn.
class RedrawCalls
{
public:
    explicit RedrawCalls(HWND window)
    {
        s_window = window;
        s_invalidations = s_updates = 0;
    }

    bool AreCounted() const { return m_invalidate.IsReplaced() && m_update.IsReplaced(); }
    static int Invalidations() { return s_invalidations; }
    static int Updates() { return s_updates; }
    static void Forget() { s_invalidations = s_updates = 0; }

private:
    static BOOL WINAPI Invalidate(HWND window, const RECT* rect, BOOL isErased)
    {
        s_invalidations += window == s_window;
        return ::InvalidateRect(window, rect, isErased);
    }
    static BOOL WINAPI Update(HWND window)
    {
        s_updates += window == s_window;
        return ::UpdateWindow(window);
    }

    static inline HWND s_window = nullptr;
    static inline int s_invalidations = 0;
    static inline int s_updates = 0;

    CReplacedImport m_invalidate{"USER32.dll", "InvalidateRect", reinterpret_cast<void*>(Invalidate)};
    CReplacedImport m_update{"USER32.dll", "UpdateWindow", reinterpret_cast<void*>(Update)};
};

struct Setter
{
    const char* name;
    void (*set)(CXListCtrl& list, CStringArray& choices);
};

wchar_t g_text[] = L"described";

constexpr Setter Setters[] = {
    {"SetItemText", [](CXListCtrl& list, CStringArray&) { list.SetItemText(1, 1, L"new"); }},
    {"SetItemTextWithColors",
     [](CXListCtrl& list, CStringArray&) { list.SetItemText(1, 1, nullptr, RGB(255, 0, 0), 0); }},
    {"SetItem",
     [](CXListCtrl& list, CStringArray&) {
         LVITEM item = {};
         item.mask = LVIF_TEXT;
         item.iItem = 1;
         item.iSubItem = 1;
         item.pszText = g_text;
         list.SetItem(&item);
     }},
    {"SetBold", [](CXListCtrl& list, CStringArray&) { list.SetBold(1, 1, TRUE); }},
    {"SetEnabled", [](CXListCtrl& list, CStringArray&) { list.SetEnabled(1, FALSE); }},
    {"SetItemImage", [](CXListCtrl& list, CStringArray&) { list.SetItemImage(1, 1, 0); }},
    {"SetCheckbox", [](CXListCtrl& list, CStringArray&) { list.SetCheckbox(1, 1, 1); }},
    {"SetComboBox",
     [](CXListCtrl& list, CStringArray& choices) { list.SetComboBox(1, 1, TRUE, &choices, 5, 0); }},
    {"SetProgress", [](CXListCtrl& list, CStringArray&) { list.SetProgress(1, 1, TRUE, L"%d"); }},
    {"UpdateProgress", [](CXListCtrl& list, CStringArray&) { list.UpdateProgress(1, 1, 40); }},
    {"DeleteProgress", [](CXListCtrl& list, CStringArray&) { list.DeleteProgress(1, 1); }},
    {"UpdateSubItem", [](CXListCtrl& list, CStringArray&) { list.UpdateSubItem(1, 1); }},
};

} // namespace

class QuietList : public CellDrawingTest, public testing::WithParamInterface<Setter>
{
protected:
    void SetUp() override
    {
        CellDrawingTest::SetUp();
        m_choices.Add(L"choice");
    }

    void Set() { GetParam().set(m_list, m_choices); }

    // Nothing is redrawn between the two, and again after the second.
    template <class Begin, class End>
    void ExpectQuiet(Begin begin, End end)
    {
        const RedrawCalls calls(m_list.m_hWnd);
        ASSERT_TRUE(calls.AreCounted());
        begin();
        calls.Forget();
        Set();
        EXPECT_EQ(calls.Invalidations(), 0);
        EXPECT_EQ(calls.Updates(), 0);
        end();
        calls.Forget();
        Set();
        EXPECT_GT(calls.Invalidations(), 0);
        EXPECT_GT(calls.Updates(), 0);
    }

    CStringArray m_choices;
};

TEST_P(QuietList, WhileItIsHidden)
{
    ExpectQuiet([&] { m_list.ShowWindow(SW_HIDE); }, [&] { m_list.ShowWindow(SW_SHOWNA); });
}

TEST_P(QuietList, WhileItsParentIsHidden)
{
    ExpectQuiet([&] { m_parent.ShowWindow(SW_HIDE); }, [&] { m_parent.ShowWindow(SW_SHOWNA); });
}

TEST_P(QuietList, WhileItsRedrawIsOff)
{
    ExpectQuiet([&] { m_list.SetRedraw(FALSE); }, [&] { m_list.SetRedraw(TRUE); });
}

INSTANTIATE_TEST_SUITE_P(, QuietList, testing::ValuesIn(Setters),
                         [](const auto& info) { return info.param.name; });

class ListShownAgain : public CellDrawingTest
{
};

TEST_F(ListShownAgain, ShowsWhatWasSetMeanwhile)
{
    m_list.SetProgress(1, 1, TRUE, L"");
    testkit::Picture::OfClient(m_list.m_hWnd);
    m_list.ShowWindow(SW_HIDE);
    m_list.UpdateProgress(1, 1, 57);
    m_list.ShowWindow(SW_SHOWNA);
    CellPainter painter(ClientSize().cx, ClientSize().cy, m_font, GetSysColor(COLOR_WINDOW));
    painter.ProgressCell(CellOf(1, 1), 57, L"57%", Normal);
    EXPECT_TRUE(SamePixels(testkit::Picture::OfClient(m_list.m_hWnd), painter.Result(), CellOf(1, 1)));
}

TEST_F(ListShownAgain, IsDrawnAnewWhenItsRedrawIsTurnedOn)
{
    const RedrawCalls calls(m_list.m_hWnd);
    ASSERT_TRUE(calls.AreCounted());
    m_list.SetRedraw(TRUE);
    EXPECT_EQ(calls.Invalidations(), 0) << "it was on";
    m_list.SetRedraw(FALSE);
    EXPECT_EQ(calls.Invalidations(), 0);
    m_list.SetRedraw(TRUE);
    EXPECT_EQ(calls.Invalidations(), 1);
}

TEST_F(ListShownAgain, IsRedrawnInItsNextWindow)
{
    m_list.SetRedraw(FALSE);
    m_list.DestroyWindow();
    ASSERT_TRUE(m_list.Create(Style, CRect(10, 10, 310, 260), &m_parent, 1));
    m_list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    AddRows(1);
    const RedrawCalls calls(m_list.m_hWnd);
    m_list.SetBold(0, 0, TRUE);
    EXPECT_EQ(calls.Invalidations(), 1);
}
