// The example of docs/credits.md.
#include "CreditsTest.h"

#include "kit/Picture.h"
#include "kit/SourceTree.h"

// The example is the whole of this file.
#include "CreditsExample.h"

namespace
{

constexpr UINT_PTR PageTimer = 0;
constexpr UINT_PTR RainTimer = 3;
constexpr COLORREF Green = RGB(0, 255, 0);
constexpr COLORREF LightGreen = RGB(128, 255, 128);

class CreditsExample : public testing::Test
{
protected:
    void SetUp() override
    {
        // A dialog without controls, 220 by 120 dialog units.
        struct
        {
            DLGTEMPLATE head;
            WORD menu, windowClass, title;
        } source = {{WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, 220, 120}, 0, 0, 0};
        ASSERT_TRUE(m_dialog.CreateIndirect(&source.head));
        ASSERT_NE(m_dialog.m_credits.GetSafeHwnd(), nullptr);
        NoteTimers();
    }

    void TearDown() override { m_dialog.DestroyWindow(); }

    void Tick(UINT_PTR timer) { m_dialog.m_credits.SendMessage(WM_TIMER, timer); }

    void NoteTimers()
    {
        m_clock.Note(m_timers.Calls());
        m_timers.Clear();
    }

    // Begins the next page and lets the timers tick until it is complete, which is when the timer of the
    // pages is started. Returns its period in milliseconds; 0 if the page is never complete.
    UINT FinishPage()
    {
        Tick(PageTimer);
        for (int ticks = 0; ticks < 5000; ++ticks) {
            for (const TimerCall& call : m_timers.Calls()) {
                if (call.isStart && call.id == PageTimer) {
                    NoteTimers();
                    return call.period;
                }
            }
            NoteTimers();
            Tick(m_clock.Next());
        }
        return 0;
    }

    testkit::Picture Shown() { return testkit::Picture::OfClient(m_dialog.m_credits); }

    // How many pixels the texts have in the credits' font.
    int PixelsOf(std::initializer_list<const wchar_t*> texts)
    {
        int count = 0;
        for (const wchar_t* const text : texts) {
            testkit::Picture picture(600, 40, RGB(0, 0, 0));
            const HGDIOBJ before = ::SelectObject(picture.Dc(), m_font.Handle());
            ::SetBkMode(picture.Dc(), TRANSPARENT);
            ::SetTextColor(picture.Dc(), LightGreen);
            ::TextOut(picture.Dc(), 5, 5, text, lstrlen(text));
            ::SelectObject(picture.Dc(), before);
            count += picture.Count(LightGreen);
        }
        return count;
    }

    CellFont m_font;
    TimerWatch m_timers;
    TickClock m_clock;
    CCreditsDialog m_dialog;
};

TEST_F(CreditsExample, FillsTheDialog)
{
    CRect credits, client;
    m_dialog.m_credits.GetWindowRect(&credits);
    m_dialog.GetClientRect(&client);
    m_dialog.ClientToScreen(&client);
    EXPECT_EQ(credits, client);
}

TEST_F(CreditsExample, RainsBeforeTheFirstPage)
{
    for (int tick = 0; tick < 10; ++tick)
        Tick(RainTimer);
    EXPECT_GT(Shown().Count(Green), 0);
}

TEST_F(CreditsExample, ShowsThePagesInTurnForTheirSeconds)
{
    const int first = PixelsOf({L"Survey tools 4.2", L"drawn in Ghent"});
    const int second = PixelsOf({L"Thank you, Ines"});
    ASSERT_GT(second, 0);
    EXPECT_EQ(FinishPage(), 3000u);
    EXPECT_EQ(Shown().Count(LightGreen), first);
    EXPECT_EQ(FinishPage(), 2000u);
    EXPECT_EQ(Shown().Count(LightGreen), second);
    EXPECT_EQ(FinishPage(), 3000u);
    EXPECT_EQ(Shown().Count(LightGreen), first);
}

TEST(CreditsExamplePage, ShowsTheCodeThatIsTested)
{
    EXPECT_EQ(testkit::FirstCodeOf(testkit::SourceText(L"docs/credits.md")),
              testkit::SourceText(L"tests/credits/CreditsExample.h"));
}

} // namespace
