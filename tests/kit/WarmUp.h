#pragma once

namespace testkit
{

// Makes the platform create what it makes once, at first use, and keeps: classes and themes of the
// controls, system fonts, brushes and device contexts, the C++ run-time's first-use objects. Without it
// the first test that draws would be taken for a leak. Takes about 30 ms.
void WarmUp();

} // namespace testkit
