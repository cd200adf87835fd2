// What long animations use up.
#include "CreditsTest.h"

#include "kit/HeapTracker.h"
#include "kit/UserObjects.h"
#include "kit/Watchdog.h"

namespace
{

class CreditsEndurance : public CreditsTest
{
protected:
    void SetUp() override
    {
        CreditsTest::SetUp();
        if (!testkit::HeapIsTracked())
            GTEST_SKIP() << "Heap blocks are not counted in this build.";
        testkit::AllowTime(120);
    }
};

TEST_F(CreditsEndurance, AHundredThousandTicksOfRainAndSpinsAllocateNothing)
{
    Make({.hasCursor = false}, 12, 8);
    Tick(3, 10);
    Tick(4, 10);
    const auto before = testkit::MarkHeap();
    const int gdiObjects = testkit::CountGdiObjects();
    for (int i = 0; i < 50000; ++i) {
        Tick(3);
        Tick(4);
    }
    const auto after = testkit::MarkHeap();
    EXPECT_EQ(after.serial, before.serial);
    EXPECT_EQ(after.blocks, before.blocks);
    EXPECT_EQ(testkit::CountGdiObjects(), gdiObjects);
    EXPECT_TRUE(m_timers.Calls().size() == 2);
}

TEST_F(CreditsEndurance, AHundredThousandTicksOfTextAllocateOnlyWhenTheTextGrows)
{
    Make({.lines = {L"Alpha", L"Beta and more", PageEnd(L"1"), L"c", L"Delta"},
          .isBlock = false,
          .startDelay = 1,
          .usualPause = 1},
         16, 8);
    std::srand(31);
    TickClock clock;
    clock.Note(m_timers.Calls());
    const int gdiObjects = testkit::CountGdiObjects();
    int growths = 0, pages = 0;
    for (int i = 0; i < 100000; ++i) {
        const UINT_PTR id = clock.Next();
        m_timers.Clear();
        const int length = m_credits.m_strCurText.GetLength();
        const auto before = testkit::MarkHeap();
        Tick(id);
        const bool hasAllocated = testkit::MarkHeap().serial != before.serial;
        clock.Note(m_timers.Calls());
        if (id == 0)
            ++pages;
        else if (m_credits.m_strCurText.GetLength() > length)
            ++growths;
        else
            ASSERT_FALSE(hasAllocated) << "tick " << i << ", timer " << id;
    }
    EXPECT_GT(pages, 20);
    EXPECT_GT(growths, 100);
    EXPECT_EQ(testkit::CountGdiObjects(), gdiObjects);
}

// A page is over when the text begins again, with as many blocks as the round before.
TEST_F(CreditsEndurance, NothingGrowsFromRoundToRound)
{
    Make({.lines = {L"Alpha", PageEnd(L"1"), L"Beta"}, .hasCursor = false, .changes = 3}, 16, 8);
    const auto round = [this] {
        for (int page = 0; page < 2; ++page) {
            Tick(0);
            ASSERT_TRUE(FinishPage());
            m_credits.UpdateWindow();
        }
    };
    round();
    const auto before = testkit::MarkHeap();
    const int gdiObjects = testkit::CountGdiObjects();
    for (int i = 0; i < 1000; ++i)
        round();
    EXPECT_EQ(testkit::MarkHeap().blocks, before.blocks);
    EXPECT_EQ(testkit::CountGdiObjects(), gdiObjects);
}

TEST_F(CreditsEndurance, PaintingKeepsNoHandle)
{
    Make({.hasCursor = false}, 12, 8);
    m_credits.UpdateWindow();
    const int gdiObjects = testkit::CountGdiObjects();
    for (int i = 0; i < 20000; ++i) {
        Tick(3);
        m_credits.UpdateWindow();
    }
    EXPECT_EQ(testkit::CountGdiObjects(), gdiObjects);
}

} // namespace
