// Random use of the credits window.
#pragma once

#include "RandomPlay.h"

namespace randomplay
{

Plan CreditsPlan(unsigned long long steps);

} // namespace randomplay
