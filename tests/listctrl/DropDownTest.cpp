// Opening a drop-down list: where it stands, what is in it, and what is selected.
#include "InputTest.h"

namespace
{

class OpenDropDown : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
    }

    // What the cell's frame encloses, which is not the cell.
    CRect FrameOf(int row, int column)
    {
        CRect frame = Cell(row, column);
        frame.bottom += 1;
        frame.left += 1;
        frame.right -= 2;
        return frame;
    }
    // The list's largest rectangle on the screen, for so many rows.
    CRect ListPlace(int row, int column, int rows)
    {
        const CRect frame = FrameOf(row, column);
        const int top = frame.top + frame.Height() - 1;
        CRect place(frame.left, top, frame.right - 1, top + (frame.Height() - 2) * rows);
        ::MapWindowPoints(m_list.m_hWnd, nullptr, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    CRect WindowRect(HWND window)
    {
        CRect rect;
        ::GetWindowRect(window, &rect);
        return rect;
    }
    LONG_PTR ClassValue(int index) { return ::GetClassLongPtr(m_list.m_pCombo->m_hWnd, index); }
    HFONT FontOf(HWND window) { return reinterpret_cast<HFONT>(::SendMessage(window, WM_GETFONT, 0, 0)); }
};

using DropDownContents = OpenDropDown;
using DropDownSelection = OpenDropDown;
using DropDownFont = OpenDropDown;
using ShrinkingChoices = OpenDropDown;

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(OpenDropDown, NeedsAPressedButtonInASelectedRow)
{
    MakeCombo(1, 1);
    m_list.SetCurSel(1);
    m_list.UpdateSubItem(1, 1);
    EXPECT_EQ(m_list.m_pCombo, nullptr) << "not pressed";
    m_list.SetItemState(1, 0, LVIS_SELECTED);
    m_list.Record(1, 1)->bComboButtonDown = TRUE;
    m_list.UpdateSubItem(1, 1);
    EXPECT_EQ(m_list.m_pCombo, nullptr) << "not selected";
    m_list.SetCurSel(1);
    m_list.UpdateSubItem(1, 1);
    EXPECT_NE(m_list.m_pCombo, nullptr);
}

TEST_F(OpenDropDown, IsTheListOfTheCellThatIsDrawn)
{
    MakeCombo(1, 2);
    m_list.m_nComboItem = 0;
    m_list.m_nComboSubItem = 0;
    m_list.SetCurSel(1);
    m_list.Record(1, 2)->bComboButtonDown = TRUE;
    m_list.UpdateSubItem(1, 2);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_nComboItem, 1);
    EXPECT_EQ(m_list.m_nComboSubItem, 2);
}

TEST_F(OpenDropDown, HappensOnceHoweverOftenTheButtonIsDrawn)
{
    OpenCombo(1, 1);
    CXComboList* const first = m_list.m_pCombo;
    const HWND window = first->m_hWnd;
    for (int i = 0; i < 3; ++i)
        m_list.UpdateSubItem(1, 1);
    EXPECT_EQ(m_list.m_pCombo, first);
    EXPECT_EQ(first->m_hWnd, window);
    EXPECT_EQ(m_list.m_pCombo->GetCount(), 3);
}

TEST_F(OpenDropDown, StandsAtTheCellsBottomLine)
{
    for (const int column : {0, 1, 2}) {
        for (const int rows : {1, 5, 10}) {
            OpenCombo(1, column, rows);
            const CRect place = ListPlace(1, column, rows);
            EXPECT_EQ(m_list.m_rectComboList, place) << column << ", " << rows;
            const CRect window = WindowRect(m_list.m_pCombo->m_hWnd);
            EXPECT_EQ(window.TopLeft(), place.TopLeft());
            EXPECT_EQ(window.Width(), place.Width());
            m_list.UnpressComboButton();
        }
    }
}

TEST_F(OpenDropDown, IsLaidOutForAScrollBarOf11Pixels)
{
    OpenCombo(1, 1, 5);
    const int item = static_cast<int>(::SendMessage(ListBox(), LB_GETITEMHEIGHT, 0, 0));
    const int listHeight = ListPlace(1, 1, 5).Height() / item * item;
    EXPECT_EQ(WindowRect(m_list.m_pCombo->m_hWnd).Height(), listHeight + 4);
    const HWND bar = ::GetWindow(ListBox(), GW_HWNDNEXT);
    EXPECT_EQ(WindowRect(bar).Width(), 11);
    EXPECT_EQ(WindowRect(bar).left, WindowRect(ListBox()).right);
}

TEST_F(OpenDropDown, TakesTheFocus)
{
    MakeCombo(1, 1);
    m_list.SetCurSel(1);
    m_list.Record(1, 1)->bComboButtonDown = TRUE;
    m_list.UpdateSubItem(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(::GetFocus(), ListBox());
}

TEST_F(OpenDropDown, IsAPopupWithABorderAndNothingElse)
{
    OpenCombo(1, 1);
    CXComboList& combo = *m_list.m_pCombo;
    constexpr DWORD wanted = WS_POPUP | WS_VISIBLE | WS_BORDER;
    EXPECT_EQ(combo.GetStyle() & ~static_cast<DWORD>(WS_CLIPSIBLINGS), wanted);
    EXPECT_EQ(combo.GetExStyle(), 0u);
    CString text;
    combo.GetWindowText(text);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(::GetWindow(combo.m_hWnd, GW_OWNER), m_parent.m_hWnd) << "the list is a child of it";
}

TEST_F(OpenDropDown, HasItsWindowClass)
{
    OpenCombo(1, 1);
    EXPECT_EQ(static_cast<DWORD>(ClassValue(GCL_STYLE)), static_cast<DWORD>(CS_SAVEBITS | CS_CLASSDC));
    EXPECT_EQ(ClassValue(GCLP_HCURSOR), reinterpret_cast<LONG_PTR>(::LoadCursor(nullptr, IDC_ARROW)));
    EXPECT_EQ(ClassValue(GCLP_HBRBACKGROUND), 0);
    EXPECT_EQ(ClassValue(GCLP_HICON), 0);
}

TEST_F(OpenDropDown, TellsTheParentNothing)
{
    OpenCombo(1, 1);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(OpenDropDown, WithNoRowsOrFewerOpensAllTheSame)
{
    for (const int height : {0, -3, INT_MIN, INT_MAX}) {
        OpenCombo(1, 1, height);
        EXPECT_TRUE(::IsWindow(m_list.m_pCombo->m_hWnd)) << height;
        EXPECT_EQ(m_list.m_pCombo->GetCount(), 3) << height;
        m_list.UnpressComboButton();
    }
}

TEST_F(DropDownContents, AreTheChoicesInOrder)
{
    m_choices.InsertAt(0, L"last in the alphabet: z");
    OpenCombo(1, 1);
    EXPECT_THAT(Entries(), ElementsAre(L"last in the alphabet: z", L"zero", L"one", L"two"));
}

TEST_F(DropDownContents, PassOverEmptyChoices)
{
    m_choices.InsertAt(1, L"");
    m_choices.Add(L"");
    OpenCombo(1, 1);
    EXPECT_THAT(Entries(), ElementsAre(L"zero", L"one", L"two"));
}

TEST_F(DropDownContents, AreReadAnewWithEachOpening)
{
    OpenCombo(1, 1);
    m_list.UnpressComboButton();
    m_choices[1] = L"changed";
    PressButton(1, 1);
    EXPECT_THAT(Entries(), ElementsAre(L"zero", L"changed", L"two"));
}

TEST_F(DropDownContents, AreNoneForACellWithoutArray)
{
    XLISTCTRLDATA& record = *m_list.Record(1, 1);
    record.bCombo = TRUE;
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_EQ(Text(1, 1), L"");
}

TEST_F(DropDownSelection, IsTheCellsText)
{
    for (const int selection : {0, 1, 2}) {
        OpenCombo(1, 1, 5, selection);
        EXPECT_EQ(m_list.m_pCombo->GetCurSel(), selection);
        EXPECT_EQ(m_list.m_strComboOpenText, m_choices[selection]);
        EXPECT_EQ(Text(1, 1), m_choices[selection]);
        m_list.UnpressComboButton();
    }
}

TEST_F(DropDownSelection, IsTheWholeTextInAnyCase)
{
    m_choices.InsertAt(0, L"one and more");
    MakeCombo(1, 1);
    m_list.SetItemText(1, 1, L"ONE");
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 2);
    EXPECT_EQ(m_list.m_strComboOpenText, L"one");
    EXPECT_EQ(Text(1, 1), L"ONE");
}

TEST_F(DropDownSelection, CountsEntriesNotChoices)
{
    m_choices.InsertAt(1, L"");
    OpenCombo(1, 1, 5, 3);
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 2);
    EXPECT_EQ(m_list.m_strComboOpenText, L"two");
}

TEST_F(DropDownSelection, IsTheFirstEntryForATextThatIsNoChoice)
{
    MakeCombo(1, 1);
    m_list.SetItemText(1, 1, L"something else");
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 0);
    EXPECT_EQ(m_list.m_strComboOpenText, L"zero");
    EXPECT_EQ(Text(1, 1), L"something else");
}

// The choice for an empty cell is beyond the array's end.
TEST_F(DropDownSelection, MakesTheFirstEntryTheTextOfAnEmptyCell)
{
    MakeCombo(1, 1, 5, 2);
    m_list.SetItemText(1, 1, L"");
    m_choices.SetSize(2);
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 0);
    EXPECT_EQ(Text(1, 1), L"zero");
    EXPECT_EQ(m_list.m_strComboOpenText, L"zero");
}

TEST_F(DropDownSelection, IsTheInitialChoiceForAnEmptyCell)
{
    MakeCombo(1, 1, 5, 2);
    m_list.SetItemText(1, 1, L"");
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(Text(1, 1), L"two");
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 2);
}

TEST_F(DropDownSelection, IsTheFirstEntryWhenTheInitialChoiceIsEmpty)
{
    m_choices[0] = L"";
    MakeCombo(1, 1);
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_THAT(Entries(), ElementsAre(L"one", L"two"));
    EXPECT_EQ(Text(1, 1), L"one");
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 0);
    EXPECT_EQ(m_list.m_strComboOpenText, L"one");
}

TEST_F(DropDownSelection, EmptyInitialChoiceIsNotDrawnWithoutEnd)
{
    m_choices[0] = L"";
    MakeCombo(1, 1);
    m_list.SetCurSel(1);
    m_list.UpdateWindow();
    EXPECT_FALSE(m_list.GetUpdateRect(nullptr));
    EXPECT_TRUE(testkit::PumpPending());
    EXPECT_EQ(Text(1, 1), L"");
}

TEST_F(DropDownFont, IsMadeOnceOfTheFontThatTheCellIsDrawnWith)
{
    EXPECT_EQ(m_list.m_bComboFontCreated, FALSE);
    OpenCombo(1, 1);
    EXPECT_EQ(m_list.m_bComboFontCreated, TRUE);
    LOGFONT expected = {};
    LOGFONT font = {};
    ASSERT_NE(::GetObject(FontOf(m_list.m_hWnd), sizeof(expected), &expected), 0);
    ASSERT_NE(m_list.m_fontComboList.GetLogFont(&font), 0);
    EXPECT_EQ(font.lfHeight, expected.lfHeight);
    EXPECT_EQ(font.lfWeight, expected.lfWeight);
    EXPECT_STREQ(font.lfFaceName, expected.lfFaceName);
    const HGDIOBJ first = m_list.m_fontComboList.GetSafeHandle();
    EXPECT_EQ(FontOf(ListBox()), first);
    m_list.UnpressComboButton();
    PressButton(1, 1);
    EXPECT_EQ(m_list.m_fontComboList.GetSafeHandle(), first);
    EXPECT_EQ(FontOf(ListBox()), first);
}

TEST_F(DropDownFont, StaysWhenTheListGetsAnother)
{
    OpenCombo(1, 1);
    const HGDIOBJ first = m_list.m_fontComboList.GetSafeHandle();
    m_list.UnpressComboButton();
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(160, L"Tahoma"));
    m_list.SetFont(&font);
    PressButton(1, 1);
    EXPECT_EQ(FontOf(ListBox()), first);
    m_list.DestroyWindow();
}

TEST_F(ShrinkingChoices, ThatAreGoneOpenAnEmptyListAndKeepTheText)
{
    MakeCombo(1, 1, 5, 2);
    m_choices.RemoveAll();
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), -1);
    EXPECT_EQ(m_list.m_strComboOpenText, L"");
    EXPECT_EQ(Text(1, 1), L"two");
}

TEST_F(ShrinkingChoices, OfEmptyTextsAloneOpenAnEmptyList)
{
    MakeCombo(1, 1, 5, 2);
    for (const int choice : {0, 1, 2})
        m_choices[choice] = L"";
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_EQ(Text(1, 1), L"two");
}

TEST_F(ShrinkingChoices, WhileTheListIsOpenLeaveItsEntries)
{
    OpenCombo(1, 1);
    m_choices.RemoveAll();
    m_list.m_pCombo->SetCurSel(2);
    m_list.SendMessage(WM_XCOMBOLIST_VK_RETURN);
    Tick(3);
    EXPECT_EQ(Text(1, 1), L"two");
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 1}));
}
