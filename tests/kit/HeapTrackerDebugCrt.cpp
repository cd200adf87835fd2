#ifdef _MSC_VER

#include "kit/HeapTracker.h"

#include <crtdbg.h>

namespace testkit
{

void StartHeapTracking()
{
#ifdef _DEBUG
    for (const int kind : {_CRT_WARN, _CRT_ERROR, _CRT_ASSERT}) { // no dialogs
        _CrtSetReportMode(kind, _CRTDBG_MODE_FILE);
        _CrtSetReportFile(kind, _CRTDBG_FILE_STDOUT);
    }
#endif
}

bool HeapIsTracked()
{
#ifdef _DEBUG
    return true;
#else
    return false;
#endif
}

bool TrackModule(HMODULE)
{
    return false; // all modules share the debug run-time
}

void TrackNewModules() {}

HeapMark MarkHeap()
{
    HeapMark mark;
#ifdef _DEBUG
    _CrtMemCheckpoint(&mark.state);
    mark.blocks =
        static_cast<long long>(mark.state.lCounts[_NORMAL_BLOCK] + mark.state.lCounts[_CLIENT_BLOCK]);
#endif
    return mark;
}

std::string DescribeBlocksSince(const HeapMark& mark, unsigned)
{
#ifdef _DEBUG
    _CrtMemDumpAllObjectsSince(&mark.state);
    return "(the debug run-time lists the blocks above)\n";
#else
    static_cast<void>(mark);
    return {};
#endif
}

} // namespace testkit

#endif
