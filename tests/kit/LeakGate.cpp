#include "kit/LeakGate.h"

#include "kit/CurrentTest.h"
#include "kit/HeapChecks.h"
#include "kit/HeapTracker.h"
#include "kit/Platform.h"
#include "kit/Program.h"
#include "kit/Pump.h"
#include "kit/UserObjects.h"
#include "kit/Watchdog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace testkit
{
namespace
{

struct Counter
{
    std::string name;
    std::function<long long()> value;
    long long before = 0;
    long long allowance = 0; // of the running test
    bool hasBefore = false;

    bool Exceeds(long long now) const { return hasBefore && now - before > allowance; }
    void Start(long long now)
    {
        before = now;
        allowance = 0;
        hasBefore = true;
    }
};

// The first three are built in, in this order.
enum : size_t
{
    Heap,
    Gdi,
    Window,
    FirstRegistered
};

std::vector<Counter>& Counters()
{
    static std::vector<Counter> counters = [] {
        std::vector<Counter> list;
        list.reserve(50);
        list.push_back({std::string(HeapBlocks), [] { return MarkHeap().blocks; }});
        list.push_back({std::string(GdiObjects), [] { return CountGdiObjects(); }});
        list.push_back(
            {std::string(Windows), [] { return static_cast<long long>(ProcessWindows().size()); }});
        return list;
    }();
    return counters;
}

Counter* Find(std::string_view name)
{
    const auto found = std::find_if(Counters().begin(), Counters().end(),
                                    [&](const Counter& counter) { return counter.name == name; });
    return found == Counters().end() ? nullptr : &*found;
}

class Gate : public testing::EmptyTestEventListener
{
public:
    void OnTestStart(const testing::TestInfo& test) override
    {
        SetCurrentTest(test.test_suite_name(), test.name());
        RestartWatchdog();
        DropTemporaries();
        std::vector<Counter>& counters = Counters();
        for (size_t i = FirstRegistered; i < counters.size(); ++i) {
            counters[i].Start(counters[i].value());
        }
        m_windows = ProcessWindows();
        counters[Window].Start(static_cast<long long>(m_windows.size()));
        m_gdiTypes = CountGdiTypes();
        counters[Gdi].Start(CountGdiObjects());
        TrackNewModules();
        m_heap = MarkHeap(); // last: what precedes allocates
        counters[Heap].Start(m_heap.blocks);
    }

    void OnTestEnd(const testing::TestInfo& test) override
    {
        PumpPending();
        DropTemporaries();
        std::vector<Counter>& counters = Counters();
        const long long blocks = BlocksWhenQuiet(); // first: what follows allocates
        CheckHeaps();
        const bool judgeHeap = HeapIsTracked() && !test.result()->Failed() && !test.result()->Skipped();
        if (judgeHeap && counters[Heap].Exceeds(blocks)) {
            Fail(counters[Heap], blocks, DescribeBlocksSince(m_heap));
        }
        if (const int now = CountGdiObjects(); counters[Gdi].Exceeds(now)) {
            Fail(counters[Gdi], now, DescribeGdiGrowth(m_gdiTypes, CountGdiTypes()) + "\n");
        }
        JudgeWindows();
        for (size_t i = FirstRegistered; i < counters.size(); ++i) {
            if (const long long now = counters[i].value(); counters[i].Exceeds(now)) {
                Fail(counters[i], now, {});
            }
        }
        ClearCurrentTest();
        RestartWatchdog();
    }

    void OnTestProgramEnd(const testing::UnitTest&) override { PrintGuardHeapFigures(); }

private:
    // What a thread leaves to be freed may still be on its way for a moment after its end.
    static long long BlocksWhenQuiet()
    {
        long long blocks = MarkHeap().blocks;
        for (int i = 0; i < 20 && Counters()[Heap].Exceeds(blocks); ++i) {
            Sleep(5);
            blocks = MarkHeap().blocks;
        }
        return blocks;
    }

    static void Fail(const Counter& counter, long long now, const std::string& details)
    {
        ADD_FAILURE() << "Leak in " << CurrentTest() << ": " << counter.name << " grew from "
                      << counter.before << " to " << now << " over the test\n"
                      << details;
    }

    void JudgeWindows()
    {
        const std::vector<HWND> now = ProcessWindows();
        const auto count = static_cast<long long>(now.size());
        if (!Counters()[Window].Exceeds(count)) {
            return;
        }
        std::string details;
        for (const HWND window : now) {
            if (!std::binary_search(m_windows.begin(), m_windows.end(), window)) {
                details += DescribeWindow(window) + "\n";
            }
        }
        Fail(Counters()[Window], count, details);
    }

    HeapMark m_heap;
    GdiTypes m_gdiTypes{};
    std::vector<HWND> m_windows;
};

} // namespace

void AllowGrowth(std::string_view name, long long amount, std::string_view reason)
{
    Counter* counter = Find(name);
    if (!counter) {
        ADD_FAILURE() << "There is no counter called " << name;
    } else if (reason.empty()) {
        ADD_FAILURE() << "AllowGrowth needs a reason";
    } else {
        counter->allowance += amount;
    }
}

void AddCounter(std::string name, std::function<long long()> value)
{
    if (Counter* counter = Find(name)) {
        *counter = {std::move(name), std::move(value)};
    } else {
        Counters().push_back({std::move(name), std::move(value)});
    }
}

void RemoveCounter(std::string_view name)
{
    std::vector<Counter>& counters = Counters();
    for (size_t i = FirstRegistered; i < counters.size(); ++i) {
        if (counters[i].name == name) {
            counters.erase(counters.begin() + static_cast<ptrdiff_t>(i));
            return;
        }
    }
}

long long CountNow(std::string_view name)
{
    const Counter* counter = Find(name);
    if (!counter) {
        ADD_FAILURE() << "There is no counter called " << name;
        return 0;
    }
    return counter->value();
}

void InstallLeakGate()
{
    Counters();
    testing::UnitTest::GetInstance()->listeners().Append(new Gate);
}

} // namespace testkit
