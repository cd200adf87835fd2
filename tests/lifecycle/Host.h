// The test program as a host.
#pragma once

#include "shell/HostApp.h"

namespace lifecycle
{

velmhost::CHostApp& Host();

// Puts an empty base group in the place of the present one and of all that it holds.
void EmptyHost();

// What clients hold of the host: objects and references to them, and references to the application.
long long CountHostObjects();
long long CountHostReferences();

} // namespace lifecycle
