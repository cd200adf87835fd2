// User objects of this process that are no windows.
#pragma once

namespace lifecycle
{

// All found by trying every handle that there can be, which takes some milliseconds.
long long CountMenus();
long long CountIcons(); // and cursors
long long CountAccelerators();

} // namespace lifecycle
