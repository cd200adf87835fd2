// Tests that fail, each in one way. They make up a program of their own, kit_failing, which CTest does not
// know: the tests of the gate, the watchdog and the crash reporters run it and look at how it ends.

#include "Culprits.h"
#include "kit/CountedObject.h"
#include "kit/LeakGate.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

void* volatile g_kept = nullptr;

TEST(Failing, LeaksABlock)
{
    ForgetABlock();
}

TEST(Failing, LeaksAStringCopy)
{
    g_kept = _wcsdup(L"copied");
}

TEST(Failing, LeaksABrush)
{
    CreateSolidBrush(RGB(3, 4, 5));
}

TEST(Failing, LeaksAWindow)
{
    CreateWindowExW(0, L"Static", L"left behind", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

struct FailingWithCounter : testing::Test
{
    static void SetUpTestSuite()
    {
        testkit::AddCounter("objects of the test", [] { return testkit::LiveObjects().load(); });
    }
    static void TearDownTestSuite() { testkit::RemoveCounter("objects of the test"); }
};

struct Object : testkit::CountedObject<IUnknown>
{
};

TEST_F(FailingWithCounter, LeaksAReference)
{
    testkit::AllowGrowth(testkit::HeapBlocks, 1, "the object's memory is not what is shown here");
    static_cast<IUnknown*>(new Object)->AddRef();
}

TEST(Failing, AllowsGrowthWithoutReason)
{
    testkit::AllowGrowth(testkit::HeapBlocks, 1, "");
}

TEST(Failing, AllowsGrowthOfAnUnknownCounter)
{
    testkit::AllowGrowth("no such counter", 1, "a reason");
}

TEST(Failing, Hangs)
{
    TurnForEver();
}

TEST(Failing, HangsInAMessageLoop)
{
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
}

TEST(Failing, HangsWithASecondThread)
{
    std::thread second(TurnForEver);
    second.join();
}

TEST(Failing, WritesToABadAddress)
{
    WriteToBadAddress();
}

LRESULT CALLBACK CrashInPaint(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_USER) {
        WriteToBadAddress();
    }
    return DefWindowProcW(window, message, first, second);
}

TEST(Failing, CrashesInAWindowProcedure)
{
    WNDCLASSW type{};
    type.lpfnWndProc = CrashInPaint;
    type.lpszClassName = L"testkit.crash";
    RegisterClassW(&type);
    const HWND window = CreateWindowExW(0, type.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        nullptr, nullptr);
    SendMessageW(window, WM_USER, 0, 0);
}

TEST(Failing, CallsNull)
{
    CallNull();
}

TEST(Failing, Aborts)
{
    AbortHere();
}

TEST(Failing, ThrowsOnAThread)
{
    std::thread second(ThrowFromHere);
    second.join();
}

TEST(Failing, ThrowsWithinTheTest)
{
    ThrowFromHere();
}

} // namespace
