#include "kit/Stack.h"

#include "Culprits.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;

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

} // namespace
