#include "ComboListTest.h"

#include "kit/Input.h"
#include "kit/Pump.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

using ComboListKeys = ComboListTest;

struct Move
{
    WPARAM key;
    int selection;
    int position; // as worked out, before it is brought into the range
};

// Items to be found by their letter.
class ComboListLetters : public ComboListTest
{
protected:
    void SetUp() override
    {
        ComboListTest::SetUp();
        Open(0);
        for (const wchar_t* const text :
             {L"alpha", L"Beta", L"gamma", L"beta two", L"7 dwarfs", L"", L"zeta"})
            m_combo->AddString(text);
        m_combo->SetWindowPos(nullptr, 0, 0, 150, 2 * ItemHeight(), SWP_NOMOVE | SWP_NOZORDER);
        m_combo->SetActive(BarWidth);
    }
};

} // namespace

TEST_F(ComboListKeys, ReturnIsTold)
{
    OpenActive(30, 5, 7);
    EXPECT_FALSE(Key(VK_RETURN));
    EXPECT_THAT(m_opener.told, ElementsAre("return"));
    EXPECT_EQ(BarPosition(), 7);
}

TEST_F(ComboListKeys, EscapeIsTold)
{
    OpenActive(30, 5, 7);
    EXPECT_FALSE(Key(VK_ESCAPE));
    EXPECT_THAT(m_opener.told, ElementsAre("escape"));
    EXPECT_EQ(BarPosition(), 7);
}

TEST_F(ComboListKeys, MessagesHaveNoParameters)
{
    OpenActive(30, 5, 7);
    Key(VK_RETURN);
    Key(VK_ESCAPE);
    Key(VK_DOWN);
    PreTranslate(WM_LBUTTONUP, 0);
    EXPECT_THAT(m_opener.told, ElementsAre("return", "escape", "key", "button"));
    EXPECT_EQ(m_opener.parameters, (std::vector<std::pair<WPARAM, LPARAM>>(4)));
}

TEST_F(ComboListKeys, MovesAreToldAndMoveTheBarFromTheSelection)
{
    OpenActive(30, 5, 7);
    for (const Move& move : std::initializer_list<Move>{{VK_PRIOR, 7, 7 - 5 + 1},
                                                        {VK_PRIOR, 3, -1},
                                                        {VK_NEXT, 7, 7 + 5 - 1},
                                                        {VK_NEXT, 29, 33},
                                                        {VK_HOME, 7, 0},
                                                        {VK_END, 7, 30},
                                                        {VK_UP, 7, 6},
                                                        {VK_UP, 0, -1},
                                                        {VK_DOWN, 7, 8},
                                                        {VK_DOWN, 29, 30},
                                                        {VK_PRIOR, -1, -4},
                                                        {VK_NEXT, -1, 4},
                                                        {VK_UP, -1, -1},
                                                        {VK_DOWN, -1, 1}})
    {
        SCOPED_TRACE(testing::Message() << "key " << move.key << " at " << move.selection);
        m_opener.told.clear();
        m_combo->SetCurSel(move.selection);
        MoveBar(15);
        EXPECT_FALSE(Key(move.key));
        EXPECT_THAT(m_opener.told, ElementsAre("key"));
        EXPECT_EQ(BarPosition(), Reachable(move.position));
        EXPECT_EQ(Selection(), move.selection);
    }
}

// With a page of one item every position up to the maximum can be reached.
TEST_F(ComboListKeys, EndIsTheMaximum)
{
    OpenActive(30, 1, 7);
    Key(VK_END);
    EXPECT_EQ(BarPosition(), 30);
    m_combo->SetCurSel(29);
    MoveBar(0);
    Key(VK_DOWN);
    EXPECT_EQ(BarPosition(), 30);
}

TEST_F(ComboListKeys, MessageComesBeforeTheBarMoves)
{
    OpenActive(30, 5, 7);
    int seen = -1;
    m_opener.react = [&] { seen = BarPosition(); };
    Key(VK_DOWN);
    EXPECT_EQ(seen, 7);
    EXPECT_EQ(BarPosition(), 8);
}

TEST_F(ComboListKeys, EmptyListStaysAtZero)
{
    OpenActive(0, 5, -1);
    for (const WPARAM key : {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END}) {
        m_opener.told.clear();
        Key(key);
        EXPECT_THAT(m_opener.told, ElementsAre("key")) << key;
        EXPECT_EQ(BarPosition(), 0) << key;
    }
    m_opener.told.clear();
    Key('A');
    EXPECT_THAT(m_opener.told, IsEmpty());
}

TEST_F(ComboListKeys, OtherKeysAndMessagesAreNotTold)
{
    OpenActive(30, 5, 7);
    for (const WPARAM key :
         std::initializer_list<WPARAM>{VK_SPACE, VK_TAB, VK_LEFT, VK_RIGHT, VK_F1, VK_BACK, VK_DELETE, '0',
                                       '9', 'A' - 1, 'Z' + 1, 'a', 'z', 0, 0x141})
        EXPECT_FALSE(Key(key)) << key;
    for (const UINT message : {WM_KEYUP, WM_SYSKEYDOWN, WM_CHAR, WM_LBUTTONDOWN, WM_RBUTTONUP, WM_NULL}) {
        EXPECT_FALSE(PreTranslate(message, VK_RETURN)) << message;
        EXPECT_FALSE(PreTranslate(message, VK_DOWN)) << message;
    }
    EXPECT_THAT(m_opener.told, IsEmpty());
    EXPECT_EQ(BarPosition(), 7);
}

TEST_F(ComboListLetters, FindTheNextItemThatBeginsSo)
{
    m_combo->SetCurSel(1);
    Key('B');
    EXPECT_THAT(m_opener.told, ElementsAre("key"));
    EXPECT_EQ(BarPosition(), 3);
    EXPECT_EQ(Selection(), 1);
}

TEST_F(ComboListLetters, GoRoundAtTheEnd)
{
    m_combo->SetCurSel(3);
    MoveBar(5);
    Key('B');
    EXPECT_EQ(BarPosition(), 1);
}

// A selection of none counts as item 0, and the search begins after it.
TEST_F(ComboListLetters, BeginAtTheFirstWithoutSelection)
{
    ASSERT_EQ(Selection(), -1);
    MoveBar(5);
    Key('A');
    EXPECT_THAT(m_opener.told, ElementsAre("key"));
    EXPECT_EQ(BarPosition(), 0);
    Key('Z');
    EXPECT_EQ(BarPosition(), Reachable(6));
}

TEST_F(ComboListLetters, ThatNoItemBeginsWithAreNotTold)
{
    m_combo->SetCurSel(2);
    MoveBar(4);
    EXPECT_FALSE(Key('E'));
    EXPECT_FALSE(Key('7'));
    EXPECT_THAT(m_opener.told, IsEmpty());
    EXPECT_EQ(BarPosition(), 4);
}

TEST_F(ComboListLetters, WithoutListCountAsZero)
{
    m_combo->SetCurSel(2);
    MoveBar(4);
    m_combo->m_ListBox.DestroyWindow();
    Key('Q');
    EXPECT_THAT(m_opener.told, ElementsAre("key"));
    EXPECT_EQ(BarPosition(), 0);
}

TEST_F(ComboListKeys, WithoutListTheSelectionCountsAsZero)
{
    OpenActive(30, 5, 7);
    m_combo->m_ListBox.DestroyWindow();
    Key(VK_DOWN);
    EXPECT_EQ(BarPosition(), 1);
    Key(VK_NEXT);
    EXPECT_EQ(BarPosition(), 4);
    EXPECT_THAT(m_opener.told, ElementsAre("key", "key"));
}

TEST_F(ComboListKeys, WithoutWindowTheyAreToldAllTheSame)
{
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}, WPARAM{VK_DOWN}, WPARAM{'A'}})
        EXPECT_FALSE(Key(key));
    EXPECT_THAT(m_opener.told, ElementsAre("return", "escape", "key", "key"));
}

TEST_F(ComboListKeys, ButtonReleaseIsTold)
{
    OpenActive(30, 5, 7);
    EXPECT_FALSE(PreTranslate(WM_LBUTTONUP, 0));
    EXPECT_THAT(m_opener.told, ElementsAre("button"));
}

TEST_F(ComboListKeys, ButtonDownOnTheWindowItselfIsTold)
{
    OpenActive(30, 5, 7);
    m_combo->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1));
    EXPECT_THAT(m_opener.told, ElementsAre("button"));
}

TEST_F(ComboListKeys, ThirdLossOfFocusAndLaterOnesAreTold)
{
    OpenActive(30, 5, 7);
    m_opener.told.clear();
    m_combo->m_nKillFocusCount = 0;
    for (int loss = 1; loss <= 4; ++loss) {
        m_combo->SendMessage(WM_KILLFOCUS);
        EXPECT_EQ(m_combo->m_nKillFocusCount, loss);
        EXPECT_EQ(m_opener.told,
                  std::vector<std::string>(loss > 2 ? static_cast<size_t>(loss - 2) : 0, "escape"))
            << loss;
    }
}

TEST_F(ComboListKeys, SendRegisteredMessagePassesItsParametersOn)
{
    m_combo->SendRegisteredMessage(WM_XCOMBOLIST_KEYDOWN, 3, -4);
    EXPECT_THAT(m_opener.told, ElementsAre("key"));
    EXPECT_THAT(m_opener.parameters, ElementsAre(std::pair<WPARAM, LPARAM>(3, -4)));
}

TEST_F(ComboListKeys, NothingIsSentWithoutParent)
{
    m_combo->m_pParent = nullptr;
    OpenActive(3, 2, 0);
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}, WPARAM{VK_DOWN}, WPARAM{'I'}})
        Key(key);
    EXPECT_EQ(BarPosition(), Reachable(1)) << "the bar moves all the same";
    PreTranslate(WM_LBUTTONUP, 0);
    m_combo->SendMessage(WM_LBUTTONDOWN);
    for (int loss = 0; loss < 4; ++loss)
        m_combo->SendMessage(WM_KILLFOCUS);
    EXPECT_THAT(m_opener.told, IsEmpty());
}

TEST_F(ComboListKeys, ParentWithoutWindowIsLeftAlone)
{
    CWnd none;
    m_combo->m_pParent = &none;
    OpenActive(3, 2, 0);
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}, WPARAM{VK_DOWN}})
        EXPECT_FALSE(Key(key));
    EXPECT_THAT(m_opener.told, IsEmpty());
}

// By the program's message loop: told first, then the list box moves its own selection.
TEST_F(ComboListKeys, RealKeyIsToldAndReachesTheListBox)
{
    OpenActive(30, 5, 7);
    testkit::PumpPending();
    int selectionWhenTold = -1;
    m_opener.react = [&] { selectionWhenTold = Selection(); };
    ASSERT_TRUE(testkit::Keyboard::Press(VK_DOWN));
    EXPECT_THAT(m_opener.told, ElementsAre("key"));
    EXPECT_EQ(selectionWhenTold, 7);
    EXPECT_EQ(Selection(), 8);
    EXPECT_EQ(BarPosition(), 8);
}

TEST_F(ComboListKeys, RealClickOnAnItemIsToldOnce)
{
    OpenActive(30, 5, 0);
    testkit::PumpPending();
    ASSERT_TRUE(testkit::Mouse::Click(testkit::ScreenPoint(List(), {20, 3 * ItemHeight() + 3})));
    EXPECT_THAT(m_opener.told, ElementsAre("button"));
    EXPECT_EQ(Selection(), 3);
}
