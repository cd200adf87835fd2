// Whole descriptions, again and again, in hosts of every rule, and after failures.
#include "Description.h"

#include "model/ModelPrinter.h"

namespace companiontest
{

using velmhost::DuplicateAdd;
using velmhost::InvokeFault;
using velmhost::SeparatorRule;

namespace
{

// The tree without the bitmaps, which bear the name of a file of the machine.
std::wstring TreeOf(const Host& host)
{
    std::wstring tree = velmhost::PrintModel(host.model);
    for (size_t at = tree.find(L" bitmaps \""); at != std::wstring::npos; at = tree.find(L" bitmaps \"")) {
        size_t end = at;
        for (int quotes = 0; quotes < 4; ++quotes)
            end = tree.find(L'"', end) + 1;
        tree.erase(at, end - at);
    }
    return tree;
}

} // namespace

struct Rules
{
    DuplicateAdd duplicateAdd;
    SeparatorRule separators;
    bool editsNeedVisible;
};

const char* NameOf(DuplicateAdd rule)
{
    switch (rule) {
    case DuplicateAdd::Fail:
        return "RefusesDoubleNames";
    case DuplicateAdd::ReturnExisting:
        return "ReturnsTheExistingOne";
    default:
        return "AddsASecondOne";
    }
}

void PrintTo(const Rules& rules, std::ostream* out)
{
    *out << NameOf(rules.duplicateAdd);
}

class WholeDescription : public testing::TestWithParam<Rules>
{
protected:
    static void Obey(Host& host)
    {
        host.model.Policies().duplicateAdd = GetParam().duplicateAdd;
        host.model.Policies().separators = GetParam().separators;
        host.model.Policies().toolbarEditsNeedVisible = GetParam().editsNeedVisible;
        host.model.Policies().toolbarRemovalNeedsVisible = GetParam().editsNeedVisible;
    }
    // Runs the description `runs` times; the calls that the last run makes.
    static std::vector<std::wstring> CallsOfRun(unsigned runs)
    {
        Host host;
        Obey(host);
        host.automation.KeepLog(true);
        for (unsigned run = 0; run < runs; ++run) {
            host.automation.TakeLog();
            BuildDescription(host.Application());
        }
        return host.automation.TakeLog();
    }
};

TEST_P(WholeDescription, LeavesTheSameTreeInEveryRun)
{
    Host host;
    Obey(host);
    for (int run = 0; run < 4; ++run) {
        BuildDescription(host.Application());
        EXPECT_EQ(DescriptionTree, TreeOf(host)) << "run " << run;
    }
}

TEST_P(WholeDescription, LeavesTheSameTreeAfterOneFailureAnywhere)
{
    for (const unsigned runs : {1u, 2u}) {
        const std::vector<std::wstring> calls = CallsOfRun(runs);
        ASSERT_GT(calls.size(), 100u);
        for (unsigned call = 1; call <= calls.size(); ++call) {
            const std::wstring& name = calls[call - 1];
            SCOPED_TRACE(testing::Message()
                         << "run " << runs << ", call " << call << ": " << testing::PrintToString(name));
            Host host;
            Obey(host);
            for (unsigned run = 1; run < runs; ++run)
                BuildDescription(host.Application());
            host.automation.FailInvoke(call, {});
            // What is not reported is made up for. Which calls may be so is stated for each operation.
            if (!FailureOf([&] { BuildDescription(host.Application()); })) {
                EXPECT_EQ(4u, host.FindMenu(L"&Drafting")->items.size());
                EXPECT_EQ(4u, host.FindToolbar(L"Drafting")->items.size());
                for (const int flyout : {1, 2})
                    EXPECT_NE(nullptr, host.FindToolbar(L"Drafting")->items[flyout]->flyout);
            }
            EXPECT_EQ(0, host.automation.LiveObjects());
            for (const auto& toolbar : host.Base().toolbars)
                EXPECT_TRUE(!toolbar->visible || toolbar->name == L"Drafting") << "an open fly-out stays";

            BuildDescription(host.Application());
            ASSERT_EQ(DescriptionTree, TreeOf(host));
        }
    }
}

TEST_P(WholeDescription, WorksAgainAfterAHostThatFailedFromSomewhereOn)
{
    const size_t calls = CallsOfRun(1).size();
    for (unsigned call = 1; call <= calls; ++call) {
        SCOPED_TRACE(testing::Message() << "call " << call << " of " << calls);
        Host host;
        Obey(host);
        InvokeFault fault;
        fault.forever = true;
        host.automation.FailInvoke(call, fault);
        EXPECT_TRUE(FailureOf([&] { BuildDescription(host.Application()); }));
        EXPECT_EQ(0, host.automation.LiveObjects());
        host.automation.FailInvoke(0, {});
        EXPECT_FALSE(FailureOf([&] { BuildDescription(host.Application()); }));
        EXPECT_EQ(4u, host.FindMenu(L"&Drafting")->items.size());
        EXPECT_EQ(4u, host.FindToolbar(L"Drafting")->items.size());
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, WholeDescription,
                         testing::Values(Rules{DuplicateAdd::Fail, SeparatorRule::Strict, true},
                                         Rules{DuplicateAdd::ReturnExisting, SeparatorRule::Strict, false},
                                         Rules{DuplicateAdd::AddSecond, SeparatorRule::Lenient, true}),
                         [](const auto& info) { return std::string(NameOf(info.param.duplicateAdd)); });

} // namespace companiontest
