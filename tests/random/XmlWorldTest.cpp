#include "XmlWorld.h"

#include <gtest/gtest.h>

#include "kit/Depth.h"

TEST(RandomXml, KeepsItsRules)
{
    randomplay::ExpectAllHold(randomplay::XmlPlan(testkit::ByDepth(1000, 80000)));
}
