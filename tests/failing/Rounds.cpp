#include "Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "kit/HeapTracker.h"
#include "kit/LeakGate.h"
#include "kit/MessageBoxWatch.h"
#include "kit/Program.h"
#include "kit/Pump.h"
#include "kit/Text.h"
#include "kit/UserObjects.h"

namespace failingtest
{
namespace
{

// What can fail, with the host's Invoke, which is the ground's own affair.
struct Kind
{
    const char* name;
    bool isInvoke;
    Resource resource;
};
constexpr Kind Kinds[] = {
    {"memory", false, Resource::Memory},
    {"texts", false, Resource::Texts},
    {"documents", false, Resource::Documents},
    {"windows", false, Resource::Windows},
    {"GDI", false, Resource::Gdi},
    {"timers", false, Resource::Timers},
    {"Invoke", true, {}},
};

// An operation that asks more often than this never comes to its end.
constexpr unsigned MostRounds = 20'000;

unsigned KindOfCurrentException()
{
    try {
        throw;
    } catch (CMemoryException* e) {
        e->Delete();
        return Memory;
    } catch (CResourceException* e) {
        e->Delete();
        return NoGdiResource;
    } catch (COleDispatchException* e) {
        e->Delete();
        return HostFailure;
    } catch (CException* e) {
        e->Delete();
        return OtherException;
    } catch (const std::bad_alloc&) {
        return Memory;
    } catch (const _com_error& e) {
        return e.Error() == E_OUTOFMEMORY ? ComMemory : OtherException;
    } catch (...) {
        return OtherException;
    }
}

Outcome Run(const Operation& operation, Ground& ground)
{
    Outcome outcome;
    const testkit::MessageBoxWatch boxes;
    try {
        outcome.result = operation.run(ground);
    } catch (...) {
        FailingCalls::Stop();
        ground.FailInvokeAt(0);
        outcome.thrown = KindOfCurrentException();
        outcome.result.clear();
    }
    FailingCalls::Stop();
    ground.FailInvokeAt(0);
    for (const std::wstring& text : boxes.Texts())
        outcome.result += std::string(" [") + testkit::Utf8(text) + "]";
    outcome.state = ground.State();
    return outcome;
}

// What a round must give back.
struct Held
{
    long long blocks;
    int gdiObjects;
    size_t windows;
};

Held HeldNow()
{
    testkit::PumpPending();
    testkit::DropTemporaries();
    return {testkit::MarkHeap().blocks, testkit::CountGdiObjects(), testkit::ProcessWindows().size()};
}

class Rounds
{
public:
    Rounds(const Operation& operation, const Kind& kind, const Outcome& usual)
        : m_operation(operation), m_kind(kind), m_usual(usual)
    {
    }

    // Gives how many there were that failed.
    unsigned Run()
    {
        for (unsigned n = 1; n <= MostRounds; ++n) {
            const std::string trace = std::string(m_kind.name) + ", call " + std::to_string(n);
            const testkit::GdiTypes types = testkit::CountGdiTypes();
            const Held before = HeldNow();
            const testkit::HeapMark mark = testkit::MarkHeap();
            bool hasFailed = false;
            {
                SCOPED_TRACE(trace);
                hasFailed = RunOne(n);
            }
            const Held after = HeldNow();
            if (testing::Test::HasFailure())
                return n;
            EXPECT_EQ(after.blocks, before.blocks) << trace << "\n" << testkit::DescribeBlocksSince(mark);
            EXPECT_EQ(after.gdiObjects, before.gdiObjects)
                << trace << ": " << testkit::DescribeGdiGrowth(types, testkit::CountGdiTypes());
            EXPECT_EQ(after.windows, before.windows) << trace;
            if (!hasFailed || testing::Test::HasFailure())
                return n - 1;
        }
        ADD_FAILURE() << m_kind.name << ": there is no end of calls";
        return MostRounds;
    }

private:
    // Whether the n-th call was reached.
    bool RunOne(unsigned n)
    {
        const std::unique_ptr<Ground> ground = m_operation.make();
        const std::string before = ground->State();
        const unsigned invokesBefore = ground->InvokeCalls();
        if (m_kind.isInvoke) {
            if (!ground->FailInvokeAt(n))
                return false;
        } else {
            FailingCalls::FailAt(m_kind.resource, n);
        }
        Outcome outcome = failingtest::Run(m_operation, *ground);
        if ((m_operation.traits & Reported) != 0)
            TakeReportOff(outcome.result);
        const bool hasFailed =
            m_kind.isInvoke ? ground->InvokeCalls() - invokesBefore >= n : FailingCalls::HasFailed();
        if (!hasFailed) {
            EXPECT_EQ(outcome.thrown, NoException);
            return false;
        }
        Judge(before, outcome);
        if (testing::Test::HasFailure() || (m_operation.traits & Once) != 0)
            return true;
        const Outcome again = failingtest::Run(m_operation, *ground);
        EXPECT_EQ(again.thrown, NoException) << "once more";
        EXPECT_EQ(again.result, m_usual.result) << "once more";
        if (outcome.state == before) {
            EXPECT_EQ(again.state, m_usual.state) << "once more";
        }
        return true;
    }

    // Of several boxes one stays, and fails the round. Where a box is taken before it has its text, as with
    // Wine, that is empty.
    static void TakeReportOff(std::string& result)
    {
        for (const std::string_view report : {" []", " [There is not enough memory.]", " [Out of memory.]"}) {
            if (const size_t at = result.find(report); at != std::string::npos) {
                result.erase(at, report.size());
                return;
            }
        }
    }

    bool IsStated(const std::string& result) const
    {
        return std::any_of(
            m_operation.failures.begin(), m_operation.failures.end(), [&](const std::string& stated) {
                return stated.ends_with('*') ? result.starts_with(stated.substr(0, stated.size() - 1))
                                             : result == stated;
            });
    }

    void Judge(const std::string& before, const Outcome& outcome)
    {
        if (outcome.thrown == NoException && outcome.result == m_usual.result &&
            outcome.state == m_usual.state)
            return;
        EXPECT_EQ(outcome.thrown & ~m_operation.mayThrow, 0u) << "the exception";
        if (outcome.thrown == NoException && outcome.result != m_usual.result) {
            EXPECT_TRUE(IsStated(outcome.result)) << outcome.result;
        }
        if (m_operation.isKept) {
            EXPECT_TRUE(m_operation.isKept(before, m_usual.state, outcome))
                << "before:\n"
                << before << "\ndone:\n"
                << m_usual.state << "\nafter the failure:\n"
                << outcome.state << "\nresult " << outcome.result;
        } else {
            EXPECT_EQ(outcome.state, before) << "result " << outcome.result << ", done:\n" << m_usual.state;
        }
    }

    const Operation& m_operation;
    const Kind& m_kind;
    const Outcome& m_usual; // without a failure
};

} // namespace

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

unsigned RunRounds(const Operation& operation)
{
    // What is made at a first use and kept is no leak.
    {
        const testkit::MessageBoxWatch boxes;
        for (const UINT icon : {MB_ICONEXCLAMATION, MB_ICONSTOP, MB_ICONEXCLAMATION | MB_SYSTEMMODAL})
            AfxMessageBox(L"warm-up", icon);
    }
    Outcome usual;
    const FailingCalls calls;
    unsigned invokes = 0;
    for (int i = 0; i < 2; ++i) {
        const std::unique_ptr<Ground> ground = operation.make();
        const unsigned before = ground->InvokeCalls();
        FailingCalls::FailAt(Resource::Memory, 0);
        usual = Run(operation, *ground);
        invokes = ground->InvokeCalls() - before;
        EXPECT_EQ(usual.thrown, NoException) << "with nothing failing";
    }
    std::vector<Kind> asked;
    std::copy_if(std::begin(Kinds), std::end(Kinds), std::back_inserter(asked), [&](const Kind& kind) {
        return (kind.isInvoke ? invokes : FailingCalls::Calls(kind.resource)) != 0;
    });
    unsigned failures = 0;
    for (const Kind& kind : asked) {
        if (testing::Test::HasFailure())
            break;
        failures += Rounds(operation, kind, usual).Run();
    }
    return failures;
}

std::string Shown(const CString& text)
{
    return testkit::Quoted(std::wstring_view(text.GetString(), static_cast<size_t>(text.GetLength())));
}

} // namespace failingtest
