#include "ListBoxWorld.h"

#include <gtest/gtest.h>

#include "kit/Depth.h"

TEST(RandomListBox, KeepsItsRules)
{
    randomplay::ExpectAllHold(randomplay::ListBoxPlan(testkit::ByDepth(2000, 260000)));
}
