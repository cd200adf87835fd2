#include "kit/Script.h"

#include <gtest/gtest.h>
#include <gtest/gtest-spi.h>

namespace
{

TEST(Script, CallsAStepUntilItIsDoneThenTheNext)
{
    std::string order;
    testkit::Script script;
    script.Add([&] {
        order += 'a';
        return order.size() == 3;
    });
    script.Add([&] {
        order += 'b';
        return true;
    });
    EXPECT_TRUE(script.Finish());
    EXPECT_EQ(order, "aaab");
}

TEST(Script, GoesOnInsideOtherMessageLoops)
{
    testkit::Script script;
    bool called = false;
    script.Add([&] {
        called = true;
        PostQuitMessage(0);
        return true;
    });
    script.Start();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) { // not the kit's own loop
        DispatchMessageW(&message);
    }
    EXPECT_TRUE(called);
    EXPECT_TRUE(script.Finish());
}

TEST(Script, GivesUpWhenTheTimeIsOver)
{
    testkit::Script script;
    script.Add([] { return false; });
    script.Start(50);
    EXPECT_FALSE(script.Finish());
}

TEST(Script, OneAtATime)
{
    testkit::Script first, second;
    first.Add([] { return true; });
    second.Add([] { return true; });
    first.Start();
    EXPECT_NONFATAL_FAILURE(second.Start(), "Another script");
    EXPECT_TRUE(first.Finish());
}

TEST(Script, FailsTheTestWhenAStepThrows)
{
    testkit::Script script;
    script.Add([]() -> bool { throw 1; });
    bool done = true;
    EXPECT_NONFATAL_FAILURE(done = script.Finish(), "threw an exception");
    EXPECT_FALSE(done);
}

} // namespace
