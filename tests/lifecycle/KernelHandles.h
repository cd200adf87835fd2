// The kernel's handles that this process has open.
#pragma once

namespace lifecycle
{

// Events, threads, files, registry keys, sections and all else that CloseHandle and its like give back. -1 if
// the platform does not tell. GetProcessHandleCount where it counts, else the system's table of handles.
long long CountKernelHandles();

} // namespace lifecycle
