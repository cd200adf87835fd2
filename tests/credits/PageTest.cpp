// Pages, their markers, and the steps from one to the next.
#include "CreditsTest.h"

#include "kit/Pump.h"
#include "kit/Text.h"

namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class CreditsPages : public CreditsTest
{
protected:
    // The lines from the first to the last of the page on screen.
    std::pair<long long, long long> Page() { return {m_credits.m_nFirstLine, m_credits.m_nLastLine}; }
    void NextPage()
    {
        m_timers.Clear();
        Tick(0);
        ASSERT_EQ(m_credits.m_nCurLine, m_credits.m_nFirstLine);
    }
    static std::pair<long long, long long> Lines(long long first, long long last) { return {first, last}; }
};

TEST_F(CreditsPages, ATextWithoutMarkerIsOnePageWithTheUsualPauseAndStartsAgain)
{
    Make({.lines = {L"a", L"b", L"c"}, .usualPause = 4});
    for (int round = 0; round < 3; ++round) {
        NextPage();
        EXPECT_EQ(Page(), Lines(0, 2));
        ASSERT_TRUE(FinishPage());
        EXPECT_THAT(m_timers.Calls(), Contains(TimerCall{true, 0, 4000}));
        EXPECT_EQ(m_credits.m_nCurLine, 2);
    }
}

TEST_F(CreditsPages, AMarkerEndsThePageBeforeItAndIsNotShown)
{
    Make({.lines = {L"a", L"b", PageEnd(L"3"), L"c", PageEnd(L"8"), L"d"},
          .hasCursor = false,
          .usualPause = 6});
    const std::pair<long long, long long> pages[] = {{0, 1}, {3, 3}, {5, 5}, {0, 1}};
    const UINT pauses[] = {3000, 8000, 6000, 3000};
    for (int i = 0; i < 4; ++i) {
        NextPage();
        EXPECT_EQ(Page(), pages[i]);
        ASSERT_TRUE(FinishPage());
        EXPECT_THAT(m_timers.Calls(), Contains(TimerCall{true, 0, pauses[i]})) << "page " << i;
    }
}

TEST_F(CreditsPages, AMarkerAtTheEndGivesItsPauseToTheLastPage)
{
    Make({.lines = {L"a", L"b", PageEnd(L"9")}, .hasCursor = false});
    for (int round = 0; round < 2; ++round) {
        NextPage();
        EXPECT_EQ(Page(), Lines(0, 1));
        EXPECT_EQ(m_credits.m_nPagePause, 9);
    }
}

TEST_F(CreditsPages, ThePauseIsTheNumberBehindTheMarker)
{
    const std::pair<const wchar_t*, int> markers[] = {{L"7", 7},
                                                      {L"  \t12", 12},
                                                      {L"3 seconds", 3},
                                                      {L"", 0},
                                                      {L"soon", 0},
                                                      {L"-2", -2},
                                                      {L"+4", 4},
                                                      {L"0x10", 0},
                                                      {L"\1"
                                                       L"5",
                                                       0},
                                                      {L"2.9", 2}};
    for (const auto& [text, pause] : markers) {
        OpenCredits credits;
        Prepare(credits, {.lines = {L"a", PageEnd(text)}, .hasCursor = false});
        ASSERT_TRUE(Create(credits, Cells(10, 5)));
        Tick(credits, 0);
        EXPECT_EQ(credits.m_nPagePause, pause) << testkit::Utf8(text);
        EXPECT_EQ(credits.m_nLastLine, 0);
        credits.DestroyWindow();
    }
}

TEST_F(CreditsPages, AMarkIsNoneWithinALine)
{
    Make({.lines = {L"a\1",
                    L" \1"
                    L"5",
                    L""},
          .hasCursor = false});
    NextPage();
    EXPECT_EQ(Page(), Lines(0, 2));
    EXPECT_EQ(m_credits.m_nPagePause, 5);
}

TEST_F(CreditsPages, ALineAddedLaterMakesTheNextPageTheFirst)
{
    Make({.lines = {L"a", PageEnd(L"1"), L"b", PageEnd(L"1"), L"c"}, .hasCursor = false});
    NextPage();
    m_credits.AddTextLine(L"d");
    NextPage();
    EXPECT_EQ(Page(), Lines(0, 0));
}

TEST_F(CreditsPages, ALineAddedInThePauseMakesTheNextPageTheFirst)
{
    Make({.lines = {L"a", PageEnd(L"1"), L"b", PageEnd(L"1"), L"c"}});
    NextPage();
    ASSERT_TRUE(FinishPage());
    m_credits.AddTextLine(L"d");
    Tick(3);
    Tick(4);
    NextPage();
    EXPECT_EQ(Page(), Lines(0, 0));
    EXPECT_TRUE(FinishPage());
}

// The page has no end any more.
TEST_F(CreditsPages, ALineAddedWhileAPageDecodesRaisesTheExceptionOnceItsLastLineIsComplete)
{
    for (const bool hasCursor : {true, false}) {
        OpenCredits credits;
        Prepare(credits, {.lines = {L"a", L"b", PageEnd(L"1"), L"c"}, .hasCursor = hasCursor, .changes = 0});
        ASSERT_TRUE(Create(credits, Cells(8, 5)));
        credits.OnTimer(0);
        credits.AddTextLine(L"d");
        int ticks = 0;
        bool hasRaised = false;
        for (; ticks < 100 && !hasRaised; ++ticks) {
            hasRaised = RaisesInvalidArgument([&] { credits.OnTimer(1); });
            if (hasCursor && !hasRaised)
                credits.OnTimer(2);
        }
        EXPECT_TRUE(hasRaised) << hasCursor;
        EXPECT_EQ(credits.m_nCurLine, 2) << hasCursor;
        EXPECT_TRUE(RaisesInvalidArgument([&] { credits.OnTimer(1); })) << hasCursor;
        EXPECT_TRUE(RaisesInvalidArgument([&] { credits.OnTimer(3); })) << hasCursor;
        credits.DestroyWindow();
    }
}

TEST_F(CreditsPages, APageIsCentred)
{
    Make({.lines = {L"Alpha", L"", L"Be"}, .hasCursor = false}, 21, 10);
    NextPage();
    const int width = Cells(21, 10).cx;
    const auto column = [&](const wchar_t* text) {
        return (width - m_font.WidthOf(text)) / 2 / m_font.CellWidth();
    };
    ASSERT_EQ(m_credits.m_arrLinePos.GetSize(), 3);
    EXPECT_EQ(m_credits.m_arrLinePos[0], CPoint(column(L"Alpha"), 3));
    EXPECT_EQ(m_credits.m_arrLinePos[1], CPoint(10, 4));
    EXPECT_EQ(m_credits.m_arrLinePos[2], CPoint(column(L"Be"), 5));
}

TEST_F(CreditsPages, APageOfTooManyLinesBeginsAboveTheWindow)
{
    Make({.lines = std::vector<std::wstring>(9, L"a"), .hasCursor = false}, 10, 4);
    NextPage();
    EXPECT_EQ(m_credits.m_arrLinePos[0].y, -3);
}

TEST_F(CreditsPages, APageBeginsAndEndsWithItsTimers)
{
    Make({.lines = {L"a"}, .hasCursor = false, .changes = 0, .usualPause = 2});
    NextPage();
    EXPECT_THAT(m_timers.Calls(),
                ElementsAre(TimerCall{false, 0, 0}, TimerCall{false, 4, 0}, TimerCall{true, 1, 10}));
    m_timers.Clear();
    Tick(1);
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
    Tick(1);
    EXPECT_THAT(m_timers.Calls(),
                ElementsAre(TimerCall{false, 1, 0}, TimerCall{true, 0, 2000}, TimerCall{true, 4, 10}));
}

TEST_F(CreditsPages, WithoutChangesEveryCharacterIsForcedOnTheSecondTick)
{
    Make({.lines = {L"Alpha \x263A"}, .hasCursor = false, .changes = 0});
    NextPage();
    std::srand(1);
    Tick(1);
    EXPECT_NE(Text(), L"Alpha \x263A");
    EXPECT_EQ(Text().size(), 7u);
    Tick(1);
    EXPECT_EQ(Text(), L"Alpha \x263A");
}

TEST_F(CreditsPages, ACharacterOutOfTheRangeTakesAllItsChanges)
{
    Make({.lines = {L"\x263A"}, .hasCursor = false, .changes = 6, .usualPause = 1});
    NextPage();
    // One tick to appear, six changes, and the tick that forces it.
    Tick(1, 7);
    EXPECT_NE(Text(), L"\x263A");
    EXPECT_EQ(m_credits.m_arrPhase[0], 6);
    EXPECT_FALSE(HasFinishedPage());
    Tick(1);
    EXPECT_EQ(Text(), L"\x263A");
    EXPECT_TRUE(HasFinishedPage());
}

TEST_F(CreditsPages, TheCursorUncoversOneCharacterAfterTheOther)
{
    Make({.lines = {L"Alpha"}, .changes = 0}, 11, 5);
    NextPage();
    EXPECT_EQ(m_timers.Calls().back(), (TimerCall{true, 2, 40}));
    EXPECT_EQ(m_credits.m_nCursorRow, m_credits.m_arrLinePos[0].y);
    const int left = m_credits.m_arrLinePos[0].x;
    ASSERT_GT(left, 0);
    for (int column = 0; column <= left + 5; ++column) {
        EXPECT_EQ(m_credits.m_nCursorCol, column);
        // Two ticks make a character appear and settle.
        Tick(1, 2);
        const int open = std::max(column - left, 0);
        EXPECT_EQ(Text(), std::wstring(L"Alpha", static_cast<size_t>(open))) << "column " << column;
        Tick(2);
    }
}

TEST_F(CreditsPages, ALineWaitsForTheCursorToLeaveTheWindow)
{
    Make({.lines = {L"a", L"b"}, .changes = 0}, 8, 5);
    NextPage();
    for (int column = 0; column < 8; ++column) {
        Tick(1, 4);
        EXPECT_EQ(m_credits.m_nCurLine, 0) << "column " << column;
        m_timers.Clear();
        Tick(2);
        if (column < 7) {
            EXPECT_THAT(m_timers.Calls(), IsEmpty()) << "column " << column;
        }
    }
    EXPECT_THAT(m_timers.Calls(), ElementsAre(TimerCall{false, 2, 0}));
    m_timers.Clear();
    Tick(1);
    EXPECT_EQ(m_credits.m_nCurLine, 1);
    EXPECT_EQ(m_credits.m_nCursorCol, 0);
    EXPECT_EQ(m_credits.m_nCursorRow, m_credits.m_arrLinePos[1].y);
    EXPECT_TRUE(m_credits.m_strCurText.IsEmpty());
    EXPECT_THAT(m_timers.Calls(), ElementsAre(TimerCall{true, 2, 40}));
}

// Its characters stand closer than cells, so it may well look as if it had room.
TEST_F(CreditsPages, ALineOfMoreCharactersThanColumnsIsNeverCompleteUnderTheCursor)
{
    Make({.lines = {std::wstring(11, L'a')}, .changes = 0}, 10, 5);
    NextPage();
    for (int i = 0; i < 10; ++i)
        Tick(2);
    m_timers.Clear();
    Tick(1, 1000);
    EXPECT_EQ(Text(), std::wstring(static_cast<size_t>(10 - m_credits.m_arrLinePos[0].x), L'a'));
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

TEST_F(CreditsPages, ALineMayEndInTheLastColumnUnderTheCursorButNoCharacterFurther)
{
    constexpr int columns = 20;
    const int width = Cells(columns, 5).cx;
    // The column behind the last of so many characters, one to a cell.
    const auto endOf = [&](int length) {
        const std::wstring line(static_cast<size_t>(length), L'a');
        return (width - m_font.WidthOf(line)) / 2 / m_font.CellWidth() + length;
    };
    int length = 1;
    while (endOf(length + 1) <= columns)
        ++length;
    ASSERT_EQ(endOf(length), columns);
    ASSERT_EQ(endOf(length + 1), columns + 1);
    for (const int more : {0, 1}) {
        OpenCredits credits;
        const std::wstring line(static_cast<size_t>(length + more), L'a');
        Prepare(credits, {.lines = {line, L"b"}, .changes = 0});
        ASSERT_TRUE(Create(credits, Cells(columns, 5)));
        Tick(credits, 0);
        for (int i = 0; i < columns; ++i)
            Tick(credits, 2);
        for (int i = 0; i < 10; ++i)
            Tick(credits, 1);
        EXPECT_EQ(credits.m_nCurLine, more == 0 ? 1 : 0);
        credits.DestroyWindow();
    }
}

TEST_F(CreditsPages, AnEmptyLineDoesNotWaitForTheCursor)
{
    Make({.lines = {L"", L"b"}});
    NextPage();
    Tick(1);
    EXPECT_EQ(m_credits.m_nCurLine, 1);
}

TEST_F(CreditsPages, WithoutLinesAndCursorPageTicksHaveNoEffect)
{
    Make({.hasCursor = false});
    m_timers.Clear();
    Tick(0, 100);
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
    EXPECT_EQ(m_credits.m_nCurLine, -1);
    Tick(3, 100);
    EXPECT_GT(m_credits.m_nActiveColumns, 0);
}

TEST_F(CreditsPages, TheRealTimersRunAPageToItsEnd)
{
    m_timers.Stop();
    Make({.lines = {L"a", L"b"}, .hasCursor = false, .changes = 0, .startDelay = 0}, 10, 5);
    EXPECT_TRUE(testkit::PumpUntil(
        [&] { return m_credits.m_nCurLine == 1 && Text() == L"b" && m_credits.m_nActiveColumns > 0; }));
}

// Where there is no line to show

TEST_F(CreditsPages, WithoutLinesTheCursorRaisesTheInvalidArgumentException)
{
    Make({});
    m_timers.Clear();
    EXPECT_TRUE(RaisesInvalidArgument([&] { m_credits.OnTimer(0); }));
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

TEST_F(CreditsPages, AMarkerAsTheFirstLineRaisesTheInvalidArgumentException)
{
    Make({.lines = {PageEnd(L"3"), L"a"}});
    EXPECT_TRUE(RaisesInvalidArgument([&] { m_credits.OnTimer(0); }));
}

TEST_F(CreditsPages, TwoMarkersInARowRaiseTheInvalidArgumentException)
{
    Make({.lines = {L"a", PageEnd(L"3"), PageEnd(L"3"), L"b"}});
    EXPECT_FALSE(RaisesInvalidArgument([&] { m_credits.OnTimer(0); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { m_credits.OnTimer(0); }));
}

TEST_F(CreditsPages, WithoutCursorAnEmptyPageRaisesTheExceptionWhenItIsDrawn)
{
    Make({.lines = {PageEnd(L"3"), L"a"}, .hasCursor = false});
    EXPECT_FALSE(RaisesInvalidArgument([&] { m_credits.OnTimer(0); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { m_credits.OnTimer(1); }));
}

TEST_F(CreditsPages, ATextTickBeforeTheFirstPageRaisesTheInvalidArgumentException)
{
    Make({.lines = {L"a"}});
    EXPECT_TRUE(RaisesInvalidArgument([&] { m_credits.OnTimer(1); }));
}

} // namespace
