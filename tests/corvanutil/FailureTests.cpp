// A host that fails, at every call that each operation makes.
#include "Description.h"

namespace companiontest
{

using velmhost::InvokeFault;

struct Operation
{
    const char* name;
    // Prepares the host; what it returns runs the operation once.
    std::function<std::function<void()>(Host& host)> prepare;
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

class FailingHost : public testing::TestWithParam<Operation>
{
protected:
    static unsigned CallsMade()
    {
        Host host;
        const auto run = GetParam().prepare(host);
        const unsigned before = host.automation.InvokeCount();
        run();
        return host.automation.InvokeCount() - before;
    }

    // Lets each call fail in turn, and asks that the operation throws just what the host told.
    static void FailAtEveryCall(const InvokeFault& fault, const Failure& expected)
    {
        const unsigned calls = CallsMade();
        ASSERT_GE(calls, 1u);
        for (unsigned call = 1; call <= calls; ++call) {
            SCOPED_TRACE(testing::Message() << "call " << call << " of " << calls);
            Host host;
            {
                const auto run = GetParam().prepare(host);
                const long held = host.automation.OutstandingReferences();
                const long application = host.automation.ApplicationReferences();
                host.automation.FailInvoke(call, fault);
                const auto failure = FailureOf(run);
                ASSERT_TRUE(failure);
                EXPECT_EQ(expected.code, failure->code);
                EXPECT_EQ(expected.status, failure->status);
                EXPECT_EQ(expected.description, failure->description);
                if (!expected.source.empty()) {
                    EXPECT_EQ(expected.source, failure->source);
                }
                EXPECT_EQ(held, host.automation.OutstandingReferences());
                EXPECT_EQ(application, host.automation.ApplicationReferences());
                host.automation.FailInvoke(0, {});
            }
        }
    }
};

TEST_P(FailingHost, IsReportedInItsOwnWords)
{
    for (const bool forever : {false, true}) {
        InvokeFault fault;
        fault.scode = E_ACCESSDENIED;
        fault.source = L"The host";
        fault.description = L"Not in this moment, \u00FC\u6982.";
        fault.forever = forever;
        FailAtEveryCall(fault, {0, E_ACCESSDENIED, fault.source, fault.description, L"", 0});
    }
}

TEST_P(FailingHost, IsReportedWithItsOwnCode)
{
    InvokeFault fault;
    fault.code = 4711;
    fault.scode = S_OK;
    fault.source = L"The host";
    fault.description = L"No.";
    FailAtEveryCall(fault, {4711, S_OK, fault.source, fault.description, L"", 0});
}

TEST_P(FailingHost, ThatGivesABareResultIsReportedWithTheSystemsMessage)
{
    wchar_t message[256] = L"";
    ASSERT_NE(0u, ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                   static_cast<DWORD>(E_OUTOFMEMORY), 0, message, 256, nullptr));
    std::wstring expected(message);
    expected.erase(expected.find_last_not_of(L"\r\n ") + 1);
    InvokeFault fault;
    fault.result = E_OUTOFMEMORY;
    FailAtEveryCall(fault, {0, E_OUTOFMEMORY, L"", expected, L"", 0});
}

namespace
{

IAcadPopupMenu MenuWithItem(Host& host)
{
    IAcadPopupMenu menu(Create_ACADMenu(host.Application(), L"&Drafting"));
    Append_MenuItem(menu, L"A", L"A ", L"a", true, false);
    return menu;
}

std::wstring PresentFile()
{
    wchar_t name[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, name, MAX_PATH);
    return name;
}

const Operation Operations[] = {
    {"CreateMenu",
     [](Host& host) {
         return [&host] { IAcadPopupMenu menu(Create_ACADMenu(host.Application(), L"&Drafting")); };
     }},
    {"CreateMenuAgain",
     [](Host& host) {
         BuildDescription(host.Application());
         return [&host] { IAcadPopupMenu menu(Create_ACADMenu(host.Application(), L"&Drafting")); };
     }},
    {"AppendItem",
     [](Host& host) {
         return [menu = MenuWithItem(host)] { Append_MenuItem(menu, L"B", L"B ", L"b", true, false); };
     }},
    {"AppendSeparator",
     [](Host& host) {
         return
             [menu = MenuWithItem(host)] { Append_MenuItem(menu, nullptr, nullptr, nullptr, true, false); };
     }},
    {"AppendSubMenu",
     [](Host& host) {
         return [menu = MenuWithItem(host)] { IAcadPopupMenu sub(Append_SubMenu(menu, L"B")); };
     }},
    {"CreateToolbar",
     [](Host& host) {
         return [&host] { IAcadToolbar toolbar(Create_ACADToolBar(host.Application(), L"Drafting")); };
     }},
    {"CreateFlyoutToolbar",
     [](Host& host) {
         host.model.AddToolbar(host.Base().id, L"Other");
         const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar");
         host.model.SetToolbarVisible(left.id, false);
         return [&host] { IAcadToolbar toolbar(Create_ACADToolBar(host.Application(), L"SubToolbar")); };
     }},
    {"AppendButton",
     [](Host& host) {
         return [toolbar = IAcadToolbar(Create_ACADToolBar(host.Application(), L"Drafting"))] {
             const std::wstring image = PresentFile();
             Append_ToolBarItem(toolbar, L"A ", L"A", image.c_str(), image.c_str(), false, IAcadToolbar());
         };
     }},
    {"AppendButtonToHidden",
     [](Host& host) {
         IAcadToolbar toolbar(Create_ACADToolBar(host.Application(), L"Drafting"));
         toolbar.SetVisible(0);
         return [toolbar] {
             const std::wstring image = PresentFile();
             Append_ToolBarItem(toolbar, L"A ", L"A", image.c_str(), image.c_str(), false, IAcadToolbar());
         };
     }},
    {"AppendFlyout",
     [](Host& host) {
         return [toolbar = IAcadToolbar(Create_ACADToolBar(host.Application(), L"Drafting")),
                 flyout = IAcadToolbar(Create_ACADToolBar(host.Application(), L"SubToolbar"))] {
             const std::wstring image = PresentFile();
             Append_ToolBarItem(toolbar, nullptr, L"A", image.c_str(), image.c_str(), true, flyout);
         };
     }},
    {"SetVisible",
     [](Host& host) {
         return [toolbar = IAcadToolbar(Create_ACADToolBar(host.Application(), L"Drafting"))]() mutable {
             toolbar.SetVisible(0);
         };
     }},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Operations, FailingHost, testing::ValuesIn(Operations),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace companiontest
