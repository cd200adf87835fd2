// The example of docs/list-control.md.
#include "ListTest.h"

#include "kit/SourceTree.h"

// The example is the whole of this file.
#include "ListExample.h"

namespace
{

class ListExample : public testing::Test
{
protected:
    void SetUp() override
    {
        // A dialog without controls, 300 by 200 dialog units.
        struct
        {
            DLGTEMPLATE head;
            WORD menu, windowClass, title;
        } source = {{WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, 300, 200}, 0, 0, 0};
        ASSERT_TRUE(m_dialog.CreateIndirect(&source.head));
        ASSERT_TRUE(
            m_dialog.m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(5, 5, 400, 200), &m_dialog, 1));
        m_dialog.FillList();
    }

    void TearDown() override { m_dialog.DestroyWindow(); }

    LPARAM MiddleOf(int row, int column)
    {
        CRect cell;
        m_dialog.m_list.GetSubItemRect(row, column, LVIR_BOUNDS, cell);
        return MAKELPARAM(cell.CenterPoint().x, cell.CenterPoint().y);
    }

    CPartsDialog m_dialog;
};

TEST_F(ListExample, FillsTheList)
{
    EXPECT_EQ(m_dialog.m_list.GetItemCount(), 3);
    EXPECT_EQ(m_dialog.m_list.GetComboText(1, 1), L"Oak");
    EXPECT_EQ(m_dialog.m_list.GetItemToolTipText(2, 0), L"Not in stock");
}

TEST_F(ListExample, HearsOfAClickOnACheckBox)
{
    m_dialog.m_list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MiddleOf(1, 0));
    m_dialog.m_list.SendMessage(WM_LBUTTONUP, 0, MiddleOf(1, 0));
    EXPECT_EQ(m_dialog.m_told, L"Frame is checked");
}

TEST_F(ListExample, HearsOfAChoice)
{
    m_dialog.SendMessage(WM_XLISTCTRL_COMBO_SELECTION, 0, 1);
    EXPECT_EQ(m_dialog.m_told, L"Oak was chosen");
}

TEST(ListExamplePage, ShowsTheCodeThatIsTested)
{
    EXPECT_EQ(testkit::FirstCodeOf(testkit::SourceText(L"docs/list-control.md")),
              testkit::SourceText(L"tests/listctrl/ListExample.h"));
}

} // namespace
