#include "kit/Pump.h"

#include "kit/Platform.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace
{

int g_ticks = 0;

void CALLBACK CountTick(HWND, UINT, UINT_PTR, DWORD)
{
    ++g_ticks;
}

TEST(PumpUntil, HandlesMessagesUntilThePredicateHolds)
{
    g_ticks = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, CountTick);
    EXPECT_TRUE(testkit::PumpUntil([] { return g_ticks == 3; }));
    KillTimer(nullptr, timer);
    EXPECT_EQ(g_ticks, 3);
}

TEST(PumpUntil, AsksBeforeTheFirstMessage)
{
    g_ticks = 0;
    PostThreadMessageW(GetCurrentThreadId(), WM_TIMER, 0, reinterpret_cast<LPARAM>(CountTick));
    EXPECT_TRUE(testkit::PumpUntil([] { return true; }));
    EXPECT_EQ(g_ticks, 0);
    testkit::PumpPending();
}

TEST(PumpUntil, TellsWhenTheTimeIsOver)
{
    EXPECT_FALSE(testkit::PumpUntil([] { return false; }, 30));
}

TEST(PumpUntil, StopsAtWmQuitAndPostsItAnew)
{
    PostQuitMessage(42);
    EXPECT_FALSE(testkit::PumpUntil([] { return false; }));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 42u);
}

TEST(PumpUntil, SeesWhatAnotherThreadDoes)
{
    std::atomic<bool> done = false;
    std::jthread other([&] { done = true; });
    EXPECT_TRUE(testkit::PumpUntil([&] { return done.load(); }));
}

HWND g_window = nullptr;
int g_user = 0;

LRESULT CALLBACK PostAgain(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_USER) {
        ++g_user;
        if (first > 0) {
            PostMessageW(window, WM_USER, first - 1, 0);
        }
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

struct PumpPending : testing::Test
{
    PumpPending()
    {
        g_window =
            CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(g_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PostAgain));
        g_user = 0;
    }
    ~PumpPending() override { DestroyWindow(g_window); }
};

TEST_F(PumpPending, HandlesAlsoWhatComesOfTheMessages)
{
    PostMessageW(g_window, WM_USER, 3, 0);
    EXPECT_TRUE(testkit::PumpPending());
    EXPECT_EQ(g_user, 4);
}

TEST_F(PumpPending, GivesUpWhenThereIsNoEndOfMessages)
{
    PostMessageW(g_window, WM_USER, 20000, 0);
    EXPECT_FALSE(testkit::PumpPending());
    EXPECT_TRUE(testkit::PumpUntil([] { return g_user == 20001; }));
}

#ifdef TESTKIT_WITH_MFC

struct TranslatingWindow : CWnd
{
    int translated = 0;
    BOOL PreTranslateMessage(MSG* message) override
    {
        translated += message->message == WM_USER;
        return FALSE;
    }
};

TEST(HandleMessage, LetsWindowsOfTheFrameworkPreTranslate)
{
    TranslatingWindow window;
    ASSERT_TRUE(window.CreateEx(0, _T("Static"), _T(""), WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    window.PostMessage(WM_USER);
    testkit::PumpPending();
    EXPECT_EQ(window.translated, 1);
    window.DestroyWindow();
}

#endif

} // namespace
