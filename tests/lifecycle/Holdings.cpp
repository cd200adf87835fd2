#include "Holdings.h"

#include "DocumentReferences.h"
#include "Host.h"
#include "KernelHandles.h"
#include "PlatformBlocks.h"
#include "UserCalls.h"
#include "UserHandles.h"

#include <stdexcept>
#include <string_view>

#include "kit/HeapTracker.h"
#include "kit/Program.h"
#include "kit/Pump.h"
#include "kit/UserObjects.h"

namespace lifecycle
{

// References to documents come first: the counter itself lets documents go.
const std::array<Kind, KindCount> Kinds{{
    {"references to documents", &CountDocumentReferences},
    {"heap blocks", [] { return testkit::MarkHeap().blocks; }},
    {"GDI objects", [] { return static_cast<long long>(testkit::CountGdiObjects()); }},
    {"windows", [] { return static_cast<long long>(testkit::ProcessWindows().size()); }},
    {"menus", &CountMenus},
    {"icons", &CountIcons},
    {"accelerator tables", &CountAccelerators},
    {"timers", &CountTimers},
    {"hooks", &CountHooks},
    {"kernel handles", &CountKernelHandles},
    {"strings", &CountStrings},
    {"blocks of the document model", &CountDocumentBlocks},
    {"objects of the host", &CountHostObjects},
    {"references to the host", &CountHostReferences},
}};

bool StartCounting()
{
    static const bool counts = [] {
        StartCountingUserCalls();
        return testkit::HeapIsTracked() && StartCountingPlatformBlocks() &&
               StartCountingDocumentReferences() && CountKernelHandles() > 0;
    }();
    return counts;
}

Holdings HoldingsNow()
{
    testkit::PumpPending();
    testkit::DropTemporaries();
    Holdings holdings{};
    for (size_t i = 0; i < KindCount; ++i)
        holdings[i] = Kinds[i].count();
    return holdings;
}

long long HoldingNow(const char* name)
{
    for (const Kind& kind : Kinds) {
        if (name == std::string_view(kind.name))
            return kind.count();
    }
    throw std::invalid_argument("nothing of that name is counted");
}

std::string Growth(const Holdings& before, const Holdings& after)
{
    std::string text;
    for (size_t i = 0; i < KindCount; ++i) {
        const long long growth = after[i] - before[i];
        text += (i == 0 ? "" : ", ") + std::string(Kinds[i].name) + (growth > 0 ? " +" : " ") +
                std::to_string(growth);
    }
    return text;
}

} // namespace lifecycle
