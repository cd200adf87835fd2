// Random use of the tree with tips.
#pragma once

#include "RandomPlay.h"

namespace randomplay
{

Plan TreePlan(unsigned long long steps);

} // namespace randomplay
