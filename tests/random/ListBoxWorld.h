// Random use of the list box with tips.
#pragma once

#include "RandomPlay.h"

namespace randomplay
{

Plan ListBoxPlan(unsigned long long steps);

} // namespace randomplay
