// The release of a drop button, and what may happen to rows, list and parent while a drop-down list is open.
#include "InputTest.h"

namespace
{

class ButtonRelease : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
    }
    void SetDown(int row, int column, bool isDown) { m_list.Record(row, column)->bComboButtonDown = isDown; }
    bool IsDown(int row, int column) { return m_list.Record(row, column)->bComboButtonDown != FALSE; }
    // Everything that an open list may still be told.
    void TellAll()
    {
        for (const UINT notice : {WM_XCOMBOLIST_KEYDOWN, WM_XCOMBOLIST_LBUTTONUP, WM_XCOMBOLIST_VK_RETURN,
                                  WM_XCOMBOLIST_VK_ESCAPE})
            m_list.SendMessage(notice);
        for (const UINT_PTR timer : {1, 4, 3, 2, 1})
            Tick(timer);
    }
    void Choose(int entry)
    {
        m_list.m_pCombo->SetCurSel(entry);
        Tick(3);
    }
};

using OpenListWithoutRow = ButtonRelease;
using ChoiceReaction = ButtonRelease;
using OpenListEnd = ButtonRelease;

// Releases the button once more from within the drawing that the release asks for.
class NestedReleaseList : public OpenList
{
public:
    bool releasesInPaint = false;
    std::vector<BOOL> heldAfterNested;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_PAINT && releasesInPaint) {
            UnpressComboButton();
            heldAfterNested.push_back(m_bComboButtonHeld);
        }
        return OpenList::WindowProc(message, wParam, lParam);
    }
};

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ButtonRelease, RaisesTheButtonAndDrawsItAtOnce)
{
    OpenCombo(1, 1);
    m_list.UnpressComboButton();
    EXPECT_FALSE(IsDown(1, 1));
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_FALSE(m_list.GetUpdateRect(nullptr));
    EXPECT_NE(m_list.m_pCombo, nullptr) << "the list stays";
}

TEST_F(ButtonRelease, LeavesAButtonThatIsNotHeld)
{
    MakeCombo(1, 1);
    SetDown(1, 1, true);
    m_list.m_nComboItem = 1;
    m_list.m_nComboSubItem = 1;
    m_list.UnpressComboButton();
    EXPECT_TRUE(IsDown(1, 1));
}

TEST_F(ButtonRelease, ForgetsTheButtonOfACellThatIsNotThere)
{
    AddPlainRow();
    for (const auto& [row, column] :
         std::vector<std::pair<int, int>>{{-1, 1}, {4, 1}, {1, -1}, {1, 3}, {3, 1}}) {
        SetDown(1, 1, true);
        m_list.m_bComboButtonHeld = TRUE;
        m_list.m_nComboItem = row;
        m_list.m_nComboSubItem = column;
        m_list.UnpressComboButton();
        EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE) << row << ", " << column;
        EXPECT_TRUE(IsDown(1, 1));
    }
}

TEST_F(ButtonRelease, WithinAReleaseDoesNothing)
{
    NestedReleaseList list;
    ASSERT_TRUE(list.Create(Style, CRect(0, 0, 200, 100), &m_parent, 2));
    list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    list.InsertItem(0, L"row");
    list.UpdateWindow();
    list.Record(0, 0)->bComboButtonDown = TRUE;
    list.m_bComboButtonHeld = TRUE;
    list.releasesInPaint = true;
    list.UnpressComboButton();
    EXPECT_THAT(list.heldAfterNested, ElementsAre(TRUE));
    EXPECT_EQ(list.m_bComboButtonHeld, FALSE);
    EXPECT_EQ(list.Record(0, 0)->bComboButtonDown, FALSE);
    list.DestroyWindow();
}

TEST_F(ButtonRelease, ComesWithTheClick)
{
    MakeCombo(1, 1);
    m_list.SetCurSel(1);
    Click(Button(1, 1));
    EXPECT_FALSE(IsDown(1, 1));
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_THAT(m_parent.notifications, testing::Contains(static_cast<UINT>(NM_CLICK)));
}

TEST_F(ButtonRelease, ClickIsPassedOnToTheParent)
{
    HandlingParent parent;
    ASSERT_TRUE(
        parent.CreateEx(0, AfxRegisterWndClass(0), L"Other", WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0));
    MakeCombo(1, 1);
    Press(Button(1, 1));
    NMITEMACTIVATE click = {};
    click.hdr = {m_list.m_hWnd, HandlingParent::ListId, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, HandlingParent::ListId, reinterpret_cast<LPARAM>(&click)), 0);
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_THAT(parent.heard, ElementsAre(static_cast<UINT>(NM_CLICK)));
    parent.DestroyWindow();
}

TEST_F(OpenListWithoutRow, AnswersEverythingAfterItsRowIsDeleted)
{
    OpenCombo(2, 1);
    m_list.m_pCombo->SetCurSel(2);
    m_list.DeleteItem(2);
    TellAll();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_THAT(m_parent.messages, IsEmpty());
    EXPECT_EQ(Text(0, 1), L"");
    EXPECT_EQ(Text(1, 1), L"");
}

TEST_F(OpenListWithoutRow, AnswersEverythingAfterAllRowsAreDeleted)
{
    OpenCombo(1, 1);
    m_list.DeleteAllItems();
    TellAll();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(OpenListWithoutRow, AnswersEverythingAfterItsColumnIsDeleted)
{
    OpenCombo(1, 2);
    m_list.DeleteColumn(2);
    TellAll();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(OpenListWithoutRow, WritesIntoTheRowThatTookItsPlace)
{
    OpenCombo(1, 1);
    m_list.DeleteItem(1);
    Choose(2);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 1}));
    EXPECT_EQ(Text(1, 0), L"row 2");
    EXPECT_EQ(Text(1, 1), L"two");
}

TEST_F(ChoiceReaction, DeletedRowEndsTheChoiceWell)
{
    OpenCombo(1, 1);
    React([&] { m_list.DeleteItem(1); });
    Choose(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.GetItemCount(), 2);
    m_list.UnpressComboButton();
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
}

TEST_F(ChoiceReaction, DeletedRowsEndTheChoiceWell)
{
    OpenCombo(1, 1);
    React([&] { m_list.DeleteAllItems(); });
    Choose(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(ChoiceReaction, DestroyedListEndsTheChoiceWell)
{
    OpenCombo(1, 1);
    React([&] { m_list.DestroyWindow(); });
    Choose(2);
    EXPECT_EQ(m_list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(m_parent.messages.size(), 1u);
}

TEST_F(ChoiceReaction, DestroyedParentEndsTheChoiceWell)
{
    OpenCombo(1, 1);
    React([&] { m_parent.DestroyWindow(); });
    Choose(2);
    EXPECT_EQ(m_list.GetSafeHwnd(), nullptr);
}

TEST_F(ChoiceReaction, DeletedListObjectEndsTheChoiceWell)
{
    auto list = std::make_unique<OpenList>();
    ASSERT_TRUE(list->Create(Style, CRect(10, 10, 310, 260), &m_parent, 2));
    list->InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    list->InsertItem(0, L"row");
    list->SetComboBox(0, 0, TRUE, &m_choices, 5, 0);
    list->SetCurSel(0);
    list->Record(0, 0)->bComboButtonDown = TRUE;
    list->UpdateSubItem(0, 0);
    ASSERT_NE(list->m_pCombo, nullptr);
    const HWND combo = list->m_pCombo->m_hWnd;
    const HWND window = list->m_hWnd;
    React([&] { list.reset(); });
    ::SendMessage(window, WM_TIMER, 3, 0);
    EXPECT_EQ(list, nullptr);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_FALSE(::IsWindow(combo));
}

TEST_F(ChoiceReaction, AnotherTextForTheCellStays)
{
    OpenCombo(1, 1);
    React([&] { m_list.SetItemText(1, 1, L"instead"); });
    Choose(2);
    EXPECT_EQ(Text(1, 1), L"instead");
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_F(ChoiceReaction, ListClosedByAPressInAComboCellIsNotClosedTwice)
{
    OpenCombo(1, 1);
    MakeCombo(2, 1);
    React([&] { Press(BesideButton(2, 1)); });
    Choose(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_parent.messages.size(), 1u);
}

TEST_F(ChoiceReaction, ASecondTickInsideTheFirstClosesOnce)
{
    OpenCombo(1, 1);
    bool isInside = false;
    React([&] {
        if (!std::exchange(isInside, true)) {
            Tick(2);
            Tick(3);
        }
    });
    Choose(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_parent.messages.size(), 1u);
    EXPECT_EQ(Text(1, 1), L"two");
}

TEST_F(OpenListEnd, ComesWithTheListObject)
{
    HWND combo = nullptr;
    {
        OpenList list;
        ASSERT_TRUE(list.Create(Style, CRect(10, 10, 310, 260), &m_parent, 2));
        list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        list.InsertItem(0, L"row");
        list.SetComboBox(0, 0, TRUE, &m_choices, 5, 0);
        list.SetCurSel(0);
        list.Record(0, 0)->bComboButtonDown = TRUE;
        list.UpdateSubItem(0, 0);
        ASSERT_NE(list.m_pCombo, nullptr);
        combo = list.m_pCombo->m_hWnd;
        list.DestroyWindow();
        EXPECT_TRUE(::IsWindow(combo)) << "until the object goes";
    }
    EXPECT_FALSE(::IsWindow(combo));
}

TEST_F(OpenListEnd, ComesWithTheObjectsNextWindow)
{
    OpenCombo(1, 1);
    m_list.m_bComboButtonHeld = TRUE;
    const HWND combo = m_list.m_pCombo->m_hWnd;
    m_list.DestroyWindow();
    ASSERT_TRUE(m_list.Create(Style, CRect(10, 10, 310, 260), &m_parent, 1));
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(::IsWindow(combo));
    EXPECT_FALSE(m_list.m_bComboButtonHeld);
    m_list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    m_list.InsertColumn(1, L"Second", LVCFMT_LEFT, 80);
    AddRows(2);
    m_list.SetItemText(1, 1, L"its own");
    Click(Cell(0, 0).CenterPoint());
    EXPECT_EQ(Text(1, 1), L"its own");
}

TEST_F(OpenListEnd, ComesWithTheParentsWindow)
{
    OpenCombo(1, 1);
    const HWND combo = m_list.m_pCombo->m_hWnd;
    m_parent.DestroyWindow();
    EXPECT_FALSE(::IsWindow(combo));
    EXPECT_EQ(m_list.GetSafeHwnd(), nullptr);
}

TEST_F(OpenListEnd, LetsTheNextOneOpen)
{
    for (int i = 0; i < 3; ++i) {
        OpenCombo(1, 1);
        Choose(2);
        m_list.UnpressComboButton();
        ASSERT_EQ(m_list.m_pCombo, nullptr);
    }
    EXPECT_EQ(m_parent.messages.size(), 3u);
}
