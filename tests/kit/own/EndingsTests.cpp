#include "kit/Endings.h"

#include "FailingProgram.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{

TEST(Watchdog, EndsAHangingTestWithItsNameAndStack)
{
    const auto result = RunFailing(L"Hangs", L"1");
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.exitCode, testkit::ExitHang);
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("HANG in test Failing.Hangs"), HasSubstr("(main)"), HasSubstr("TurnForEver"),
                      HasSubstr("Culprits.cpp:"), HasSubstr("!main")));
}

TEST(Watchdog, ShowsTheStackOfAWaitInTheMessageLoop)
{
    const auto result = RunFailing(L"HangsInAMessageLoop", L"1");
    EXPECT_EQ(result.exitCode, testkit::ExitHang);
    EXPECT_THAT(result.output, AllOf(HasSubstr("GetMessageW"), HasSubstr("HangsInAMessageLoop"),
                                     HasSubstr("FailingTests.cpp:")));
}

TEST(Watchdog, ShowsEveryThread)
{
    const auto result = RunFailing(L"HangsWithASecondThread", L"1");
    EXPECT_EQ(result.exitCode, testkit::ExitHang);
    const size_t main = result.output.find("(main)");
    ASSERT_NE(main, std::string::npos);
    const size_t second = result.output.find("\nThread ", main);
    ASSERT_NE(second, std::string::npos);
    EXPECT_THAT(result.output.substr(main, second - main), HasSubstr("HangsWithASecondThread"));
    EXPECT_THAT(result.output.substr(second), HasSubstr("TurnForEver"));
}

TEST(Watchdog, RejectsAnOptionThatIsNoNumber)
{
    const auto result = RunFailing(L"Hangs", L"soon");
    EXPECT_EQ(result.exitCode, 2u);
    EXPECT_THAT(result.output, HasSubstr("--velm-watchdog=soon"));
}

TEST(CrashReporter, TellsExceptionAddressTestAndStack)
{
    const auto result = RunFailing(L"WritesToABadAddress");
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.exitCode, testkit::ExitCrash);
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("CRASH in test Failing.WritesToABadAddress"), HasSubstr("0xc0000005"),
                      HasSubstr("write of 0x10"), HasSubstr("WriteToBadAddress"), HasSubstr("Culprits.cpp:"),
                      HasSubstr("!main")));
}

TEST(CrashReporter, SeesThroughWindowProcedures)
{
    const auto result = RunFailing(L"CrashesInAWindowProcedure");
    EXPECT_EQ(result.exitCode, testkit::ExitCrash);
    EXPECT_THAT(result.output, AllOf(HasSubstr("WriteToBadAddress"), HasSubstr("CrashInPaint"),
                                     HasSubstr("SendMessageW"), HasSubstr("!main")));
}

TEST(CrashReporter, ShowsTheCallerOfABadPointer)
{
    const auto result = RunFailing(L"CallsNull");
    EXPECT_EQ(result.exitCode, testkit::ExitCrash);
    EXPECT_THAT(result.output, AllOf(HasSubstr("!CallNull"), HasSubstr("Culprits.cpp:")));
}

TEST(CrashReporter, ReportsTerminateWithTheException)
{
    const auto result = RunFailing(L"ThrowsOnAThread");
    EXPECT_EQ(result.exitCode, testkit::ExitTerminate);
    EXPECT_THAT(result.output, AllOf(HasSubstr("TERMINATE in test Failing.ThrowsOnAThread"),
                                     HasSubstr("thrown where nobody catches")));
}

TEST(CrashReporter, ReportsAbortWithTheStack)
{
    const auto result = RunFailing(L"Aborts");
    EXPECT_EQ(result.exitCode, testkit::ExitTerminate);
    EXPECT_THAT(result.output, AllOf(HasSubstr("ABORT in test Failing.Aborts"), HasSubstr("AbortHere")));
}

TEST(CrashReporter, LeavesExceptionsOfTestsToTheFramework)
{
    const auto result = RunFailing(L"ThrowsWithinTheTest");
    EXPECT_EQ(result.exitCode, 1u);
    EXPECT_THAT(result.output, AllOf(HasSubstr("thrown where nobody catches"), Not(HasSubstr("CRASH")),
                                     Not(HasSubstr("TERMINATE"))));
}

} // namespace
