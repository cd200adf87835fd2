// The test that every suite of operations runs.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Rounds.h"

#include "kit/Depth.h"
#include "kit/Watchdog.h"

namespace failingtest
{

// Runs an operation's rounds, and tells at the end of the suite how many calls have failed in all.
class FailingSuite : public testing::TestWithParam<Operation>
{
protected:
    static void SetUpTestSuite() { s_failures = 0; }
    static void TearDownTestSuite()
    {
        testkit::Figure(std::string("failed calls, ") +
                            std::string(testing::UnitTest::GetInstance()->current_test_suite()->name()),
                        s_failures);
    }

    static void RunAllRounds()
    {
        testkit::AllowTime(250);
        s_failures += RunRounds(GetParam());
    }

private:
    inline static unsigned long long s_failures = 0;
};

} // namespace failingtest

// A suite of the operations in a vector.
#define FAILING_SUITE(Name, operations)                                                                      \
    class Name : public failingtest::FailingSuite                                                            \
    {                                                                                                        \
    };                                                                                                       \
    TEST_P(Name, GivesItsResultAndLosesNothing)                                                              \
    {                                                                                                        \
        RunAllRounds();                                                                                      \
    }                                                                                                        \
    INSTANTIATE_TEST_SUITE_P(Failing, Name, testing::ValuesIn(operations),                                   \
                             [](const auto& info) { return info.param.name; })
