#include "TreeWorld.h"

#include <gtest/gtest.h>

#include "kit/Depth.h"

TEST(RandomTree, KeepsItsRules)
{
    randomplay::ExpectAllHold(randomplay::TreePlan(testkit::ByDepth(2000, 170000)));
}
