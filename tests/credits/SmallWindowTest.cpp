// Windows too small for the animation, windows that do not come to be, and the second life of an object.
#include "CreditsTest.h"

#include <array>

#include "kit/UserObjects.h"

namespace
{

using testing::IsEmpty;

class SmallCredits : public CreditsTest
{
protected:
    // All timers in turn, with painting, over several pages.
    void Run(int rounds = 2000)
    {
        std::srand(11);
        Tick(0);
        for (int i = 0; i < rounds; ++i) {
            for (UINT_PTR id = 1; id <= 5; ++id)
                Tick(id);
            if (HasFinishedPage()) {
                m_timers.Clear();
                Tick(0);
                ++m_pages;
            }
            m_timers.Clear();
            m_credits.UpdateWindow();
        }
    }
    void MakeOfSize(CSize client)
    {
        Prepare(m_credits, {.lines = {L"A", L"line", PageEnd(L"1"), L"or", L"two"}});
        ASSERT_TRUE(Create(m_credits, client));
    }
    // No drop is anywhere but between the first row and the last.
    void ExpectDropsInside()
    {
        for (int c = 0; c < m_credits.m_nColumns; ++c) {
            const MatrixColumn& column = m_credits.m_pColumns[c];
            if (column.bActive) {
                EXPECT_GE(column.nRow, 0);
                EXPECT_LE(column.nEndRow, m_credits.m_nRows);
            }
        }
        EXPECT_GE(m_credits.m_nActiveColumns, 0);
        EXPECT_LE(m_credits.m_nActiveColumns, m_credits.m_nColumns);
    }

    int m_pages = 0;
};

TEST_F(SmallCredits, AWindowWithoutAreaHasOneCellAndNoSpins)
{
    MakeOfSize(CSize(0, 0));
    EXPECT_EQ(m_credits.m_nColumns, 1);
    EXPECT_EQ(m_credits.m_nRows, 1);
    EXPECT_EQ(m_credits.m_nSpinCount, 0);
    Run();
    EXPECT_EQ(m_credits.m_nActiveSpins, 0);
    EXPECT_GT(m_pages, 1);
    ExpectDropsInside();
}

TEST_F(SmallCredits, AWindowSmallerThanItsEdgesHasOneCell)
{
    Prepare(m_credits, {.lines = {L"a"}});
    ASSERT_TRUE(m_credits.Create(WS_CHILD | WS_VISIBLE, CRect(5, 5, 6, 6), &m_parent, 1));
    EXPECT_EQ(m_credits.m_nColumns, 1);
    EXPECT_EQ(m_credits.m_nRows, 1);
    Run(300);
    ExpectDropsInside();
}

TEST_F(SmallCredits, AWindowOfNegativeSizeHasOneCell)
{
    Prepare(m_credits, {.lines = {L"a"}});
    ASSERT_TRUE(m_credits.Create(WS_CHILD | WS_VISIBLE, CRect(50, 50, 20, 10), &m_parent, 1));
    EXPECT_EQ(m_credits.m_nColumns, 1);
    EXPECT_EQ(m_credits.m_nRows, 1);
    Run(300);
}

TEST_F(SmallCredits, AWindowOfOnePixelHasOneCell)
{
    MakeOfSize(CSize(1, 1));
    EXPECT_EQ(m_credits.m_nColumns, 1);
    EXPECT_EQ(m_credits.m_nRows, 1);
    Run();
    ExpectDropsInside();
}

TEST_F(SmallCredits, AWindowOfOneCellHasASecondInEachDirection)
{
    MakeOfSize(CSize(m_font.CellWidth(), m_font.CellHeight()));
    EXPECT_EQ(m_credits.m_nColumns, 2);
    EXPECT_EQ(m_credits.m_nRows, 2);
    Run();
    ExpectDropsInside();
}

TEST_F(SmallCredits, FewerThanFiveColumnsHaveNoSpins)
{
    for (int columns = 1; columns <= 5; ++columns) {
        OpenCredits credits;
        Prepare(credits, {.lines = {L"a"}});
        ASSERT_TRUE(Create(credits, Cells(columns, 8)));
        EXPECT_EQ(credits.m_nColumns, columns);
        EXPECT_EQ(credits.m_nSpinCount, columns < 5 ? 0 : 1);
        std::srand(2);
        for (int i = 0; i < 3000; ++i)
            Tick(credits, 4);
        EXPECT_EQ(credits.m_nActiveSpins, columns < 5 ? 0 : 1);
        credits.DestroyWindow();
    }
}

TEST_F(SmallCredits, FewerThanThreeRowsHaveTheirDropsBeginInTheFirst)
{
    for (int rows = 1; rows <= 3; ++rows) {
        OpenCredits credits;
        Prepare(credits, {});
        ASSERT_TRUE(Create(credits, Cells(30, rows)));
        ASSERT_EQ(credits.m_nRows, rows);
        std::srand(6);
        int begun = 0;
        for (int i = 0; i < 3000; ++i) {
            std::vector<BOOL> before;
            for (int c = 0; c < 30; ++c)
                before.push_back(credits.m_pColumns[c].bActive);
            Tick(credits, 3);
            for (int c = 0; c < 30; ++c) {
                const MatrixColumn& column = credits.m_pColumns[c];
                EXPECT_LE(column.bActive ? column.nEndRow : 0, rows);
                // Its first row has been drawn; the second is where there is one.
                if (column.bActive && !before[static_cast<size_t>(c)]) {
                    ASSERT_EQ(column.nRow, 2) << "tick " << i;
                    ++begun;
                }
            }
        }
        // With one row a drop ends on the tick that begins it.
        if (rows == 1) {
            EXPECT_EQ(begun, 0);
        } else {
            EXPECT_GT(begun, 1000);
        }
        credits.DestroyWindow();
    }
}

TEST_F(SmallCredits, AFlatOrNarrowWindowGoesOn)
{
    for (const CSize size : {CSize(400, 1), CSize(400, 0), CSize(1, 300), CSize(0, 300)}) {
        OpenCredits credits;
        Prepare(credits, {.lines = {L"a"}, .hasCursor = false});
        ASSERT_TRUE(Create(credits, size));
        EXPECT_EQ(credits.m_nColumns, size.cx / m_font.CellWidth() + 1);
        EXPECT_EQ(credits.m_nRows, size.cy / m_font.CellHeight() + 1);
        std::srand(13);
        Tick(credits, 0);
        int rainy = 0;
        for (int i = 0; i < 1000; ++i) {
            for (UINT_PTR id = 1; id <= 4; ++id)
                Tick(credits, id);
            rainy += credits.m_nActiveColumns > 0;
        }
        // With one row a drop ends on the tick that begins it.
        if (size.cy < 2) {
            EXPECT_EQ(rainy, 0);
        } else {
            EXPECT_GT(rainy, 500);
        }
        EXPECT_EQ(credits.m_nCurLine, 0);
        credits.DestroyWindow();
    }
}

// Without a window

TEST_F(SmallCredits, WithoutAParentCreateFailsAndNoTimerStarts)
{
    Prepare(m_credits, {.lines = {L"a"}});
    EXPECT_FALSE(m_credits.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), nullptr, 1));
    EXPECT_EQ(m_credits.m_hWnd, nullptr);
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

TEST_F(SmallCredits, WithAParentThatIsGoneCreateFailsAndNoTimerStarts)
{
    m_parent.DestroyWindow();
    Prepare(m_credits, {.lines = {L"a"}});
    EXPECT_FALSE(m_credits.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &m_parent, 1));
    EXPECT_EQ(m_credits.m_hWnd, nullptr);
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

TEST_F(SmallCredits, AFailingCreateSetsUpTheModelAllTheSame)
{
    EXPECT_FALSE(m_credits.Create(WS_CHILD, CRect(0, 0, 100, 100), nullptr, 1));
    EXPECT_EQ(m_credits.m_nCellWidth, m_font.CellWidth());
    EXPECT_EQ(m_credits.m_nCellHeight, m_font.CellHeight());
    EXPECT_EQ(m_credits.m_nColumns, 1);
    EXPECT_EQ(m_credits.m_nRows, 1);
    EXPECT_EQ(m_credits.m_nSpinCount, 0);
    EXPECT_NE(m_credits.m_pColumns, nullptr);
}

TEST_F(SmallCredits, AfterAFailingCreateTheNextSucceeds)
{
    const CreditsOptions options{.lines = {L"Alpha", L"Beta"}};
    Prepare(m_credits, options);
    ASSERT_FALSE(m_credits.Create(WS_CHILD, CRect(0, 0, 100, 100), nullptr, 1));
    ASSERT_TRUE(Create(m_credits, Cells(20, 10)));
    CreditsModel model(options, Cells(20, 10), m_font);
    SameTicks tick(m_credits, model, m_timers, 21);
    for (int i = 0; i < 500; ++i)
        ASSERT_TRUE(tick(i < 5 ? 0 : static_cast<UINT_PTR>(i % 4 + 1)));
}

TEST_F(SmallCredits, AfterTheWindowsEndCreateBeginsAnewInTheNewSize)
{
    const CreditsOptions options{.lines = {L"Alpha", L"Beta", PageEnd(L"2"), L"Gamma"}};
    Prepare(m_credits, options);
    ASSERT_TRUE(Create(m_credits, Cells(30, 10)));
    Run(300);
    ASSERT_GT(m_credits.m_nActiveColumns, 0);
    ASSERT_GE(m_credits.m_nCurLine, 0);
    m_credits.DestroyWindow();
    EXPECT_EQ(m_credits.m_hWnd, nullptr);

    const int gdiObjects = testkit::CountGdiObjects();
    for (const CSize size : {Cells(50, 20), Cells(7, 4), Cells(30, 10)}) {
        m_timers.Clear();
        ASSERT_TRUE(Create(m_credits, size));
        EXPECT_EQ(m_credits.m_nColumns, size.cx / m_font.CellWidth() + 1);
        EXPECT_EQ(m_credits.m_nRows, size.cy / m_font.CellHeight() + 1);
        EXPECT_EQ(m_credits.m_nActiveColumns, 0);
        EXPECT_EQ(m_credits.m_nActiveSpins, 0);
        EXPECT_EQ(m_timers.Calls().size(), 2u);
        CreditsModel model(options, size, m_font);
        EXPECT_EQ(Difference(m_credits, model), "");
        // The rain comes before the first page.
        SameTicks tick(m_credits, model, m_timers, 5);
        for (const UINT_PTR id : {3, 3, 3, 0, 1, 2, 1, 3})
            ASSERT_TRUE(tick(id));
        Run(100);
        EXPECT_GT(m_credits.m_nActiveColumns, 0);
        m_credits.DestroyWindow();
        EXPECT_EQ(testkit::CountGdiObjects(), gdiObjects);
    }
}

TEST_F(SmallCredits, AnObjectDiesWithItsWindowStillThere)
{
    auto credits = std::make_unique<OpenCredits>();
    Prepare(*credits, {.lines = {L"a"}});
    ASSERT_TRUE(Create(*credits, Cells(10, 10)));
    const HWND window = credits->m_hWnd;
    m_timers.Clear();
    credits.reset();
    EXPECT_FALSE(IsWindow(window));
    // Timers go with their window.
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

TEST_F(SmallCredits, AnObjectDiesWithoutEverHavingAWindow)
{
    auto credits = std::make_unique<OpenCredits>();
    credits->AddTextLine(L"a");
    credits.reset();
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

} // namespace
