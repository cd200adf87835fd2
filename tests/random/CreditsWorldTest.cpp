#include "CreditsWorld.h"

#include <gtest/gtest.h>

#include "kit/Depth.h"

TEST(RandomCredits, KeepsItsRules)
{
    randomplay::ExpectAllHold(randomplay::CreditsPlan(testkit::ByDepth(2000, 170000)));
}
