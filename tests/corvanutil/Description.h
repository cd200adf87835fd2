// A whole menu and toolbar, made with the companion's operations in the order in which the builder of
// descriptions calls them.
#pragma once

#include "CompanionTest.h"

namespace companiontest
{

// Makes the menu "&Drafting" and the toolbar "Drafting" with two fly-outs, one inside the other, and a
// third. What a failing host throws leaves the function.
void BuildDescription(IDispatch* application);

// What the host then holds, as the host's own printer tells it.
extern const wchar_t DescriptionTree[];

} // namespace companiontest
