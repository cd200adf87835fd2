// Ticks that a derived class passes on after it has ended the window.
#include "CreditsTest.h"

namespace
{

using testing::IsEmpty;

class CreditsLateTicks : public CreditsTest
{
};

TEST_F(CreditsLateTicks, StartNoTimersAndChangeNothing)
{
    Make({.lines = {L"Alpha", L"", L"Beta"}});
    Tick(0);
    Tick(1, 3);
    ASSERT_TRUE(m_credits.DestroyWindow());
    m_timers.Clear();
    const std::wstring text = Text();
    const __int64 first = m_credits.m_nFirstLine;
    const __int64 last = m_credits.m_nLastLine;
    for (const UINT_PTR id : {0, 1, 2, 3, 4, 99})
        m_credits.OnTimer(id);
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(m_credits.m_nFirstLine, first);
    EXPECT_EQ(m_credits.m_nLastLine, last);
}

} // namespace
