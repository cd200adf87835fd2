#include "kit/Stack.h"

#include "Culprits.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <thread>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{

TEST(Stack, BeginsWithTheCallerAndLeadsToMain)
{
    const std::vector<void*> frames = CapturedHere();
    ASSERT_GE(frames.size(), 3u);
    EXPECT_THAT(testkit::DescribeStack({frames.data(), 1}),
                AllOf(HasSubstr("CapturedHere"), HasSubstr("Culprits.cpp:")));
    EXPECT_THAT(testkit::DescribeStack(frames), AllOf(HasSubstr("BeginsWithTheCallerAndLeadsToMain"),
                                                      HasSubstr("!main+"), HasSubstr("Main.cpp:")));
}

TEST(Stack, CanBeWalkedFromRegisters)
{
    void* frames[60];
    const size_t count = WalkedHere(frames);
    const std::string text = testkit::DescribeStack({frames, count}, false);
    EXPECT_THAT(text,
                AllOf(HasSubstr("WalkedHere"), HasSubstr("CanBeWalkedFromRegisters"), HasSubstr("!main+")));
}

TEST(Stack, KeepsToTheSpace)
{
    void* frames[2] = {};
    EXPECT_EQ(WalkedHere(frames), 2u);
    EXPECT_EQ(testkit::CaptureStack(0, 2).size(), 2u);
}

TEST(Stack, AnAddressOutsideAllModulesIsShownAsNumber)
{
    void* nowhere[] = {reinterpret_cast<void*>(0x1234)};
    EXPECT_EQ(testkit::DescribeStack(nowhere, false), "  ?+0x1234\n");
}

#ifdef __MINGW32__

TEST(StackCache, TellsStacksApartThatDifferInOneCaller)
{
    std::vector<testkit::StackFrames> taken;
    for (const auto take : {TakenByFirst, TakenBySecond, TakenByFirst, TakenBySecond, TakenByFirst}) {
        taken.push_back(take());
    }
    EXPECT_EQ(taken[0], taken[2]);
    EXPECT_EQ(taken[0], taken[4]);
    EXPECT_EQ(taken[1], taken[3]);
    EXPECT_THAT(testkit::DescribeStack(taken[2]),
                AllOf(HasSubstr("TakenByFirst"), Not(HasSubstr("TakenBySecond"))));
    EXPECT_THAT(testkit::DescribeStack(taken[3]),
                AllOf(HasSubstr("TakenBySecond"), Not(HasSubstr("TakenByFirst"))));
}

TEST(StackCache, GivesWhatAWalkGives)
{
    testkit::StackFrames frames{};
    for (int i = 0; i < 3; ++i) {
        frames = TakenByFirst();
    }
    const std::vector<void*> walked = testkit::CaptureStack();
    ASSERT_GT(walked.size(), 3u);
    // The test itself is in both, at different calls.
    EXPECT_TRUE(std::equal(walked.begin() + 1, walked.begin() + 4, frames.begin() + 3));
}

TEST(StackCache, ServesThreadsSideBySide)
{
    const auto take = [] {
        for (int i = 0; i < 200; ++i) {
            const testkit::StackFrames first = TakenByFirst(), second = TakenBySecond();
            EXPECT_NE(first[1], second[1]);
            EXPECT_NE(first[2], nullptr);
        }
    };
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(take);
    }
}

#endif

} // namespace
