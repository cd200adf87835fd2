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
    // The calls whose failure is reported, in their order, when some are not; empty when all are.
    std::vector<std::wstring> reported = {};
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

class FailingHost : public testing::TestWithParam<Operation>
{
protected:
    static std::vector<std::wstring> CallsMade()
    {
        Host host;
        const auto run = GetParam().prepare(host);
        host.automation.KeepLog(true);
        run();
        return host.automation.TakeLog();
    }

    // Lets each call fail in turn, and asks that the operation throws just what the host told.
    static void FailAtEveryCall(const InvokeFault& fault, const Failure& expected)
    {
        const std::vector<std::wstring> calls = CallsMade();
        ASSERT_GE(calls.size(), 1u);
        std::vector<std::wstring> reported;
        for (unsigned call = 1; call <= calls.size(); ++call) {
            SCOPED_TRACE(testing::Message() << "call " << call << " of " << calls.size() << ", "
                                            << testing::PrintToString(calls[call - 1]));
            Host host;
            {
                const auto run = GetParam().prepare(host);
                const long held = host.automation.OutstandingReferences();
                const long application = host.automation.ApplicationReferences();
                host.automation.FailInvoke(call, fault);
                const auto failure = FailureOf(run);
                EXPECT_EQ(held, host.automation.OutstandingReferences());
                EXPECT_EQ(application, host.automation.ApplicationReferences());
                host.automation.FailInvoke(0, {});
                if (!failure)
                    continue;
                reported.push_back(calls[call - 1]);
                EXPECT_EQ(expected.code, failure->code);
                EXPECT_EQ(expected.status, failure->status);
                EXPECT_EQ(expected.description, failure->description);
                if (!expected.source.empty()) {
                    EXPECT_EQ(expected.source, failure->source);
                }
            }
        }
        // A host that fails for good also fails where one failure is made up for.
        if (GetParam().reported.empty()) {
            EXPECT_EQ(calls, reported);
        } else if (!fault.forever) {
            EXPECT_EQ(GetParam().reported, reported);
        } else {
            EXPECT_GE(reported.size(), GetParam().reported.size());
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
     },
     // A menu that does not tell its name is looked for by name.
     {L"Application.MenuGroups get", L"MenuGroups.Item", L"MenuGroup.Type get", L"MenuGroups.Item",
      L"MenuGroup.Menus get", L"PopupMenus.Count get", L"PopupMenu.ShortcutMenu get", L"PopupMenu.Count get",
      L"PopupMenu.Item", L"PopupMenuItem.Delete", L"PopupMenu.Item", L"PopupMenuItem.Delete",
      L"PopupMenu.Item", L"PopupMenuItem.Delete", L"PopupMenu.Item", L"PopupMenuItem.Delete",
      L"PopupMenu.OnMenuBar get"}},
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
     },
     // What follows is clean-up.
     {L"Application.MenuGroups get", L"MenuGroups.Item", L"MenuGroup.Type get", L"MenuGroups.Item",
      L"MenuGroup.Toolbars get", L"Toolbars.Count get", L"Toolbars.Add", L"Toolbar.Visible get"}},
    {"CreateFlyoutToolbar",
     [](Host& host) {
         host.model.AddToolbar(host.Base().id, L"Other");
         const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar");
         host.model.SetToolbarVisible(left.id, false);
         return [&host] { IAcadToolbar toolbar(Create_ACADToolBar(host.Application(), L"SubToolbar")); };
     },
     // Clean-up, and the look for a free name, stand between the last two.
     {L"Application.MenuGroups get", L"MenuGroups.Item", L"MenuGroup.Type get", L"MenuGroups.Item",
      L"MenuGroup.Toolbars get", L"Toolbars.Add"}},
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
