// What belongs to a tick besides its drawing.
#include "CreditsTest.h"

#include "CallWatch.h"
#include "kit/MessageBoxWatch.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class CreditsTicks : public CreditsTest
{
};

TEST_F(CreditsTicks, EveryTickEndsWithTheDefaultAfterItsDrawing)
{
    Make({.lines = {L"Alpha"}});
    Tick(0);
    m_credits.UpdateWindow();
    std::vector<UINT_PTR> defaults;
    bool isDrawn = false;
    m_credits.onDefault = [&](UINT_PTR id) {
        defaults.push_back(id);
        isDrawn = m_credits.GetUpdateRect(nullptr) != FALSE;
    };
    for (const UINT_PTR id : {0, 1, 2, 3, 4, 5, 99}) {
        defaults.clear();
        Tick(id);
        EXPECT_THAT(defaults, ElementsAre(id));
        EXPECT_EQ(isDrawn, 1 <= id && id <= 4) << "timer " << id;
        m_credits.UpdateWindow();
    }
    m_credits.onDefault = nullptr;
}

TEST_F(CreditsTicks, AnExceptionOfATickIsReportedInAMessageBox)
{
    Make({});
    testkit::MessageBoxWatch boxes;
    Tick(0);
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].icon, static_cast<UINT>(MB_ICONERROR));
    EXPECT_NE(boxes.Boxes()[0].text, L"");
    // The window lives on.
    Tick(3);
    EXPECT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_TRUE(m_credits.GetUpdateRect(nullptr));
}

TEST_F(CreditsTicks, ATickOfTheRainWritesTwoCharactersForEachFallingDrop)
{
    const CreditsOptions options{.hasCursor = false};
    Make(options, 40, 20);
    CreditsModel model(options, Cells(40, 20), m_font);
    SameTicks tick(m_credits, model, m_timers, 41);
    CallWatch watch;
    size_t most = 0;
    for (int i = 0; i < 500; ++i) {
        watch.Clear();
        ASSERT_TRUE(tick(3));
        std::vector<std::wstring> expected, written;
        for (const RainStroke& stroke : model.strokes)
            expected.emplace_back(1, stroke.letter);
        for (const PlatformCall& call : watch.Calls(Call::Text)) {
            EXPECT_EQ(call.target, m_credits.m_dcBackground.m_hDC);
            written.push_back(call.text);
        }
        ASSERT_EQ(written, expected) << "tick " << i;
        EXPECT_THAT(watch.Calls(Call::Copy),
                    ElementsAre(PlatformCall{Call::Copy, m_credits.m_dcComposite.m_hDC,
                                             m_credits.m_dcBackground.m_hDC}));
        most = std::max(most, expected.size());
    }
    // Up to two for each of the drops, of which there are many at once.
    EXPECT_GT(most, 20u);
}

TEST_F(CreditsTicks, PaintingIsOneCopyOfTheComposedFrame)
{
    Make({.lines = {L"Alpha"}});
    Tick(0);
    Tick(1);
    CallWatch watch;
    m_credits.UpdateWindow();
    const std::vector<PlatformCall> copies = watch.Calls(Call::Copy);
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].object, m_credits.m_dcComposite.m_hDC);
    EXPECT_THAT(watch.Calls(Call::Text), IsEmpty());
}

} // namespace
