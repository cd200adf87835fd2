// The list under a real mouse and keyboard.
#include "ListTest.h"

#include "kit/Input.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class RealInput : public ListTest
{
protected:
    // The first window of its kind registers its class for good.
    static void SetUpTestSuite()
    {
        CWnd owner;
        owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0);
        CXComboList list(&owner);
        list.CreateEx(0, AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW)), L"",
                      WS_POPUP | WS_VISIBLE | WS_BORDER, CRect(0, 0, 50, 50), &owner, 0);
    }

    void SetUp() override
    {
        ListTest::SetUp();
        m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
        AddRows(4);
        for (const wchar_t* choice : {L"Ash", L"Birch", L"Cedar", L"Elm"})
            m_choices.Add(choice);
        m_list.SetComboBox(1, 1, TRUE, &m_choices, 6, 0);
        // As in a program: otherwise whatever window is active counts as the main window.
        AfxGetThread()->m_pMainWnd = &m_parent;
        m_parent.SetForegroundWindow();
        m_list.UpdateWindow();
        testkit::PumpPending();
    }

    void TearDown() override
    {
        // Off all windows of the test.
        testkit::Mouse::MoveTo({1, 1});
        AfxGetThread()->m_pMainWnd = nullptr;
        ListTest::TearDown();
    }

    POINT OnScreen(CPoint point) { return testkit::ScreenPoint(m_list.m_hWnd, point); }

    void OpenDropDown()
    {
        const CRect cell = Cell(1, 1);
        const POINT button = OnScreen(CPoint(cell.right - cell.Height() / 2, cell.CenterPoint().y));
        testkit::Mouse::Down(button);
        // The drawing of the pressed button opens the list.
        ASSERT_TRUE(testkit::PumpUntil([&] { return m_list.m_pCombo != nullptr; }));
        testkit::Mouse::Up(button);
        // The click has taken the focus to the list; a tick of its timer brings it back.
        ASSERT_TRUE(testkit::PumpUntil([&] { return ::GetFocus() == ComboListBox(); }));
        ASSERT_NE(m_list.m_pCombo, nullptr);
    }

    HWND ComboWindow() { return m_list.m_pCombo->m_hWnd; }
    HWND ComboListBox() { return ::FindWindowExW(ComboWindow(), nullptr, L"ListBox", nullptr); }

    POINT OnChoice(int index)
    {
        CRect item;
        ::SendMessageW(ComboListBox(), LB_GETITEMRECT, static_cast<WPARAM>(index),
                       reinterpret_cast<LPARAM>(static_cast<RECT*>(&item)));
        return testkit::ScreenPoint(ComboListBox(), item.CenterPoint());
    }

    bool WaitForClosing()
    {
        return testkit::PumpUntil([&] { return m_list.m_pCombo == nullptr; });
    }

    CStringArray m_choices;
};

} // namespace

TEST_F(RealInput, AClickTogglesACheckBox)
{
    m_list.SetCheckbox(2, 2, 0);
    testkit::Mouse::Click(OnScreen(Cell(2, 2).CenterPoint()));
    EXPECT_EQ(m_list.GetCheckbox(2, 2), 1);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_CHECKBOX_CLICKED, 2, 2}));
}

TEST_F(RealInput, AClickOnADisabledRowDoesNothing)
{
    m_list.SetCheckbox(2, 2, 0);
    m_list.SetEnabled(2, FALSE);
    testkit::Mouse::Click(OnScreen(Cell(2, 2).CenterPoint()));
    EXPECT_EQ(m_list.GetCheckbox(2, 2), 0);
    EXPECT_EQ(m_list.GetCurSel(), -1);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(RealInput, AClickOnAHeaderWithACheckBoxChecksTheColumn)
{
    for (int row = 0; row < 4; ++row)
        m_list.SetCheckbox(row, 2, 0);
    m_list.SetHeaderCheckedState(2, 1);
    CRect item;
    m_list.m_HeaderCtrl.GetItemRect(2, &item);
    const POINT point = testkit::ScreenPoint(m_list.m_HeaderCtrl.m_hWnd, item.CenterPoint());
    testkit::Mouse::Click(point);
    EXPECT_EQ(m_list.CountCheckedItems(2), 4);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 2);
    // So far from the first click that they are no double click.
    testkit::Mouse::Click({point.x + 15, point.y});
    EXPECT_EQ(m_list.CountCheckedItems(2), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 1);
}

TEST_F(RealInput, TheSelectionOfTheDropDownFollowsTheMouseAndAClickTakesIt)
{
    ASSERT_NO_FATAL_FAILURE(OpenDropDown());
    testkit::Mouse::MoveTo(OnChoice(2));
    ASSERT_TRUE(testkit::PumpUntil([&] { return m_list.m_pCombo->GetCurSel() == 2; }));
    testkit::Mouse::Click(OnChoice(2));
    ASSERT_TRUE(WaitForClosing());
    EXPECT_EQ(m_list.GetComboText(1, 1), L"Cedar");
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 1}));
}

TEST_F(RealInput, KeysMoveTheChoiceAndEnterTakesIt)
{
    ASSERT_NO_FATAL_FAILURE(OpenDropDown());
    // Where the selection does not follow the mouse.
    testkit::Mouse::MoveTo({1, 1});
    testkit::Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(testkit::PumpUntil([&] { return m_list.GetComboText(1, 1) == L"Birch"; }));
    EXPECT_THAT(m_parent.messages, IsEmpty());
    testkit::Keyboard::Press(VK_RETURN);
    ASSERT_TRUE(WaitForClosing());
    EXPECT_EQ(m_list.GetComboText(1, 1), L"Birch");
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 1}));
}

TEST_F(RealInput, ALetterFindsItsChoice)
{
    ASSERT_NO_FATAL_FAILURE(OpenDropDown());
    testkit::Mouse::MoveTo({1, 1});
    testkit::Keyboard::Press('C');
    EXPECT_TRUE(testkit::PumpUntil([&] { return m_list.GetComboText(1, 1) == L"Cedar"; }));
    testkit::Keyboard::Press(VK_ESCAPE);
    ASSERT_TRUE(WaitForClosing());
}

TEST_F(RealInput, EscapePutsTheFormerTextBackAndTellsNobody)
{
    ASSERT_NO_FATAL_FAILURE(OpenDropDown());
    testkit::Mouse::MoveTo({1, 1});
    testkit::Keyboard::Press(VK_END);
    ASSERT_TRUE(testkit::PumpUntil([&] { return m_list.GetComboText(1, 1) == L"Elm"; }));
    testkit::Keyboard::Press(VK_ESCAPE);
    ASSERT_TRUE(WaitForClosing());
    EXPECT_EQ(m_list.GetComboText(1, 1), L"Ash");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(RealInput, AClickElsewhereClosesTheDropDownWithTheFormerText)
{
    ASSERT_NO_FATAL_FAILURE(OpenDropDown());
    testkit::Mouse::MoveTo({1, 1});
    testkit::Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(testkit::PumpUntil([&] { return m_list.GetComboText(1, 1) == L"Birch"; }));
    testkit::Mouse::Click(OnScreen(Cell(3, 0).CenterPoint()));
    ASSERT_TRUE(WaitForClosing());
    EXPECT_EQ(m_list.GetComboText(1, 1), L"Ash");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(RealInput, ATipShowsOverACellThatHasOne)
{
    m_list.EnableToolTips(TRUE);
    m_list.SetItemToolTipText(0, 0, L"the tip of the first cell");
    testkit::Mouse::MoveTo(OnScreen(Cell(0, 0).CenterPoint()));
    HWND tip = nullptr;
    const auto isShown = [&] {
        tip = ::FindWindowW(TOOLTIPS_CLASSW, nullptr);
        while (tip != nullptr && !::IsWindowVisible(tip))
            tip = ::FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr);
        return tip != nullptr;
    };
    ASSERT_TRUE(testkit::PumpUntil(isShown));
    TOOLINFOW tool = {};
    tool.cbSize = sizeof(tool);
    wchar_t text[100] = {};
    tool.lpszText = text;
    ::SendMessageW(tip, TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(tool.hwnd, m_list.m_hWnd);
    EXPECT_EQ(tool.uId, 1u);
}
