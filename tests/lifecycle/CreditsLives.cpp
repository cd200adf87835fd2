#include "Lives.h"

#include "Ground.h"

namespace lifecycle
{
namespace
{

// Ticks are sent, not waited for: the animation's timers run as well, but nobody handles their messages.
void Tick(CMatrixCredits& credits, UINT_PTR timer, int times)
{
    for (int i = 0; i < times; ++i) {
        credits.SendMessage(WM_TIMER, timer);
        credits.UpdateWindow();
    }
}

void Animate(Ground& ground, CMatrixCredits& credits)
{
    ASSERT_TRUE(credits.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 260, 160), &ground, 5));
    for (int page = 0; page < 2; ++page) {
        Tick(credits, 0, 1);
        for (int i = 0; i < 20; ++i) {
            for (const UINT_PTR timer : {1, 2, 3, 4})
                Tick(credits, timer, 1);
        }
    }
}

void AddLines(CMatrixCredits& credits)
{
    for (const wchar_t* const line : {L"Alpha", L"Beta and more",
                                      L"\x0001"
                                      L"1",
                                      L"Gamma"})
        credits.AddTextLine(line);
}

// The window is made, ended and made anew over the same object.
void LiveTwice()
{
    Ground ground;
    CMatrixCredits credits;
    AddLines(credits);
    credits.SetCursor(TRUE, FALSE);
    credits.SetMaxPhaseCount(2);
    ASSERT_NO_FATAL_FAILURE(Animate(ground, credits));
    credits.DestroyWindow();
    credits.AllowEuropeanChars(FALSE);
    ASSERT_NO_FATAL_FAILURE(Animate(ground, credits));
}

void EndWithTheParent()
{
    Ground ground;
    CMatrixCredits credits;
    AddLines(credits);
    ASSERT_NO_FATAL_FAILURE(Animate(ground, credits));
    ground.DestroyWindow();
}

void EndWithoutAWindow()
{
    CMatrixCredits credits;
    AddLines(credits);
}

} // namespace

std::vector<Life> CreditsLives()
{
    return {
        {"CreditsMadeTwice", &LiveTwice},
        {"CreditsThatEndWithTheirParent", &EndWithTheParent},
        {"CreditsWithoutAWindow", &EndWithoutAWindow},
    };
}

} // namespace lifecycle
