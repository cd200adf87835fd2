// The example of docs/controls.md.
#include "TipTest.h"

#include <functional>

#include "kit/SourceTree.h"

// The example is the whole of this file.
#include "ControlsExample.h"

namespace
{

constexpr UINT SheetsDialog = 310;

class SheetsForTest : public CSheetsDialog
{
public:
    using CSheetsDialog::CSheetsDialog;

    std::function<void()> onPlot = [] {};

protected:
    void Plot(HTREEITEM sheet) override
    {
        CSheetsDialog::Plot(sheet);
        onPlot();
    }
};

class ControlsExample : public TipTest
{
protected:
    void SetUp() override
    {
        TipTest::SetUp();
        ASSERT_TRUE(m_dialog.Create(SheetsDialog, &m_parent));
        m_set = m_dialog.m_sheets.InsertItem(L"Plan set A");
        m_plan = m_dialog.AddSheet(m_set, L"Plan", L"plan.dwg, saved by Ines");
        m_details = m_dialog.AddSheet(m_set, L"Details", L"details.dwg, saved by Yuki");
        m_dialog.m_sheets.Expand(m_set, TVE_EXPAND);
    }

    void TearDown() override
    {
        CWnd::CancelToolTips();
        m_dialog.DestroyWindow();
        TipTest::TearDown();
    }

    CPoint MiddleOfLabel(HTREEITEM item)
    {
        CRect label;
        m_dialog.m_sheets.GetItemRect(item, &label, TRUE);
        return label.CenterPoint();
    }

    // The status line of the progress dialog, which is the active window.
    static CString Status()
    {
        CString text;
        ::GetDlgItemText(::GetActiveWindow(), 700, text.GetBuffer(100), 100);
        text.ReleaseBuffer();
        return text;
    }

    SheetsForTest m_dialog{SheetsDialog, &m_parent};
    HTREEITEM m_set = nullptr, m_plan = nullptr, m_details = nullptr;
};

TEST_F(ControlsExample, ShowsTheDataOfASheetAsItsTip)
{
    EXPECT_TRUE(ShowsTip(m_dialog.m_sheets, MiddleOfLabel(m_plan), L" plan.dwg, saved by Ines"));
}

TEST_F(ControlsExample, ShowsAMessageAsItsTip)
{
    m_dialog.m_messages.AddString(L"A message that is much wider than the list box that holds it");
    CRect item;
    m_dialog.m_messages.GetItemRect(0, &item);
    EXPECT_TRUE(ShowsTip(m_dialog.m_messages, item.CenterPoint(),
                         L"A message that is much wider than the list box that holds it"));
}

// What is left behind, or deleted twice, is the leak gate's matter here and below.
TEST_F(ControlsExample, RemovesAnItemWithItsData)
{
    m_dialog.m_sheets.SelectItem(m_plan);
    m_dialog.Remove(m_plan);
    EXPECT_EQ(m_dialog.m_sheets.GetCount(), 2u);
    EXPECT_EQ(m_dialog.m_sheets.GetChildItem(m_set), m_details);
}

TEST_F(ControlsExample, RemovesABranchWithItsData)
{
    m_dialog.Remove(m_set);
    EXPECT_EQ(m_dialog.m_sheets.GetCount(), 0u);
}

TEST_F(ControlsExample, CleansATreeThatIsScrolledDown)
{
    HTREEITEM last = nullptr;
    for (int sheet = 0; sheet < 40; ++sheet)
        last = m_dialog.AddSheet(TVI_ROOT, L"Loose sheet", L"loose.dwg");
    m_dialog.m_sheets.EnsureVisible(last);
    EXPECT_NE(m_dialog.m_sheets.GetFirstVisibleItem(), m_set);
}

TEST_F(ControlsExample, PlotsAllSheetsAndTellsHowFarItIs)
{
    std::vector<CString> told;
    m_dialog.onPlot = [&] { told.push_back(Status()); };
    EXPECT_EQ(m_dialog.PlotAll(m_set), 2);
    EXPECT_THAT(told, testing::ElementsAre(L"Plotting Plan", L"Plotting Details"));
    CString message;
    m_dialog.m_messages.GetText(1, message);
    EXPECT_EQ(message, L"Details: plotted");
    EXPECT_TRUE(m_dialog.IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), m_dialog.m_hWnd);
}

TEST_F(ControlsExample, EndsWithEscape)
{
    m_dialog.onPlot = [] { ::PostMessage(::GetActiveWindow(), WM_KEYDOWN, VK_ESCAPE, 0); };
    EXPECT_EQ(m_dialog.PlotAll(m_set), 1);
    EXPECT_EQ(m_dialog.m_messages.GetCount(), 1);
    EXPECT_TRUE(m_dialog.IsWindowEnabled());
}

TEST_F(ControlsExample, StaysThereAtEnter)
{
    std::vector<CString> told;
    m_dialog.onPlot = [&] {
        told.push_back(Status());
        ::PostMessage(::GetActiveWindow(), WM_KEYDOWN, VK_RETURN, 0);
    };
    EXPECT_EQ(m_dialog.PlotAll(m_set), 2);
    EXPECT_THAT(told, testing::ElementsAre(L"Plotting Plan", L"Plotting Details"));
}

TEST(ControlsExamplePage, ShowsTheCodeThatIsTested)
{
    EXPECT_EQ(testkit::FirstCodeOf(testkit::SourceText(L"docs/controls.md")),
              testkit::SourceText(L"tests/controls/ControlsExample.h"));
}

} // namespace
