// Random use of the XML document class.
#pragma once

#include "RandomPlay.h"

namespace randomplay
{

Plan XmlPlan(unsigned long long steps);

} // namespace randomplay
