// The window and the model side by side, tick by tick.
#include "CreditsTest.h"

#include <algorithm>
#include <array>
#include <random>

namespace
{

struct Layout
{
    const char* name;
    int columns, rows;
    CreditsOptions options;
    // A line that ends to the right of the window is never complete: the cursor stops before.
    bool isEndless = false;
};

void PrintTo(const Layout& layout, std::ostream* out)
{
    *out << layout.name;
}

const std::vector<std::wstring>& Pages()
{
    static const std::vector<std::wstring> pages = {
        L"Alpha", L"Beta, the second line", PageEnd(L"3"), L"X",     L"",
        L"Gamma", PageEnd(L" \t 7 s"),      L"Delta",      L"Omega", PageEnd(L"")};
    return pages;
}

std::vector<Layout> Layouts()
{
    const CreditsOptions usual{.lines = Pages()};
    CreditsOptions character = usual, plain = usual, forced = usual, narrow = usual, never = usual,
                   tiny = usual;
    character.isBlock = false;
    plain.hasCursor = false;
    forced.changes = 0;
    forced.isEuropean = false;
    narrow.isEuropean = narrow.isBlock = false;
    narrow.lines = {
        L"A line that has no room in such a window, by far", L"b", L"c", L"d", L"e", L"f", L"g", L"h"};
    tiny.lines = {L"a", L"b", PageEnd(L"1"), L"c"};
    never.changes = -1;
    never.startDelay = 0;
    never.usualPause = 2;
    CreditsOptions single{.lines = {L"!"}, .hasCursor = false, .changes = 3};
    CreditsOptions tall = plain;
    tall.lines.insert(tall.lines.begin(), 30, L"row");
    return {{"BlockCursor", 24, 13, usual},
            {"CharacterCursor", 31, 9, character},
            {"WithoutCursor", 30, 12, plain},
            {"ForcedAtOnceIn7Bits", 26, 10, forced},
            {"TooLongForItsWindow", 6, 5, narrow, true},
            {"FewestCellsWithSpins", 5, 3, tiny},
            {"WithoutSpins", 4, 3, character, true},
            {"NegativeCount", 25, 8, never},
            {"OneCharacter", 55, 25, single},
            {"MoreLinesThanRows", 20, 8, tall},
            {"WithoutLines", 40, 20, CreditsOptions{.hasCursor = false}},
            {"OneCell", 1, 1, tiny},
            {"FourCells", 2, 2, tiny},
            {"OneRow", 30, 1, usual},
            {"TwoRows", 30, 2, character},
            {"OneColumn", 1, 20, tiny}};
}

class ModelTest : public CreditsTest, public testing::WithParamInterface<Layout>
{
protected:
    void SetUp() override
    {
        CreditsTest::SetUp();
        const Layout& layout = GetParam();
        Prepare(m_credits, layout.options);
        // A pixel more than whole cells: a client area without height does not keep its width.
        const CSize size = Cells(layout.columns, layout.rows) + CSize(1, 1);
        ASSERT_TRUE(Create(m_credits, size));
        m_model = std::make_unique<CreditsModel>(layout.options, size, m_font);
        ASSERT_EQ(m_model->columns, layout.columns);
        ASSERT_EQ(m_model->rows, layout.rows);
    }
    bool HasLines() const { return !GetParam().options.lines.empty(); }

    std::unique_ptr<CreditsModel> m_model;
};

TEST_P(ModelTest, StartsAlike)
{
    EXPECT_EQ(Difference(m_credits, *m_model), "");
    EXPECT_EQ(m_timers.Calls(), m_model->timers);
}

TEST_P(ModelTest, AgreesWhenTheTimersTickInTheirTime)
{
    SameTicks tick(m_credits, *m_model, m_timers, 20240229);
    TickClock clock;
    clock.Note(m_timers.Calls());
    std::array<int, 5> count{};
    for (int ticks = 0; ticks < 30000; ++ticks) {
        const UINT_PTR id = clock.Next();
        ++count[id];
        ASSERT_TRUE(tick(id));
        clock.Note(m_timers.Calls());
    }
    EXPECT_GT(count[0], GetParam().isEndless ? 0 : 3);
    EXPECT_GT(count[3], 1000);
}

TEST_P(ModelTest, AgreesOverTenThousandTicksOfEachTimerInAnyOrder)
{
    SameTicks tick(m_credits, *m_model, m_timers, 4711);
    std::minstd_rand order(17);
    std::array<int, 6> count{};
    while (*std::min_element(count.begin(), count.end()) < 10000) {
        UINT_PTR id = order() % 6;
        // Text cannot be decoded before there is a page.
        if (id == 1 && !HasLines()) {
            ++count[1];
            continue;
        }
        if (id == 1 && !m_model->TextMayTick())
            id = 0;
        ++count[id];
        ASSERT_TRUE(tick(id == 5 ? 4711 : id));
    }
}

// New pages so often as above leave no time to decode one; here every page comes to its end.
TEST_P(ModelTest, AgreesWhenEachPageIsFollowedByTheNext)
{
    if (!HasLines())
        return;
    SameTicks tick(m_credits, *m_model, m_timers, 99);
    std::minstd_rand order(3);
    ASSERT_TRUE(tick(0));
    int pages = 0;
    for (int ticks = 0; ticks < 30000; ++ticks) {
        static constexpr UINT_PTR Usual[] = {1, 2, 1, 4, 1, 2, 3};
        ASSERT_TRUE(tick(Usual[order() % std::size(Usual)]));
        if (HasFinishedPage()) {
            ++pages;
            ASSERT_TRUE(tick(0));
        }
    }
    EXPECT_GT(pages, 5);
}

INSTANTIATE_TEST_SUITE_P(Layouts, ModelTest, testing::ValuesIn(Layouts()),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
