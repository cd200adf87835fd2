// The menu bar: what it shows of the model, and what clicking in it does.
#include "ShellFixture.h"

#include "kit/Input.h"
#include "kit/LeakGate.h"
#include "kit/MenuDriver.h"
#include "kit/Pump.h"
#include "kit/Script.h"
#include "shell/RealInput.h"

namespace hosttest
{

using namespace velmhost;

namespace
{

std::wstring LabelAt(HMENU menu, UINT position)
{
    wchar_t text[256] = L"";
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = text;
    info.cch = 256;
    ::GetMenuItemInfoW(menu, position, TRUE, &info);
    return text;
}

// One word for each entry: its label, "-" for a separator, "!" before what is disabled, "*" before what is
// checked,
// "(...)" after what has a sub-menu.
std::wstring Describe(HMENU menu)
{
    std::wstring text;
    const int count = ::GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const UINT position = static_cast<UINT>(i);
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU;
        ::GetMenuItemInfoW(menu, position, TRUE, &info);
        text += i ? L" " : L"";
        if (info.fType & MFT_SEPARATOR) {
            text += L"-";
            continue;
        }
        text += info.fState & MFS_DISABLED ? L"!" : L"";
        text += info.fState & MFS_CHECKED ? L"*" : L"";
        text += LabelAt(menu, position);
        if (info.hSubMenu)
            text += L"(" + Describe(info.hSubMenu) + L")";
    }
    return text;
}

CPoint EntryPoint(HWND frame, HMENU menu, UINT position)
{
    CRect rect;
    ::GetMenuItemRect(frame, menu, position, &rect);
    return rect.CenterPoint();
}

} // namespace

class ShellMenus : public ShellFixture
{
protected:
    // What the window's menu bar holds, once the changes so far have reached it by themselves.
    std::wstring Bar()
    {
        EXPECT_TRUE(testkit::PumpUntil([this] { return Frame().IsUpToDate(); }));
        return Describe(::GetMenu(Frame().m_hWnd));
    }
    // Opens the last menu of the bar with the mouse, makes `act` step by step while it is open, and closes
    // it.
    bool WhileLastMenuIsOpen(const std::vector<testkit::Script::Step>& steps)
    {
        Show();
        const HMENU bar = ::GetMenu(Frame().m_hWnd);
        const UINT last = static_cast<UINT>(::GetMenuItemCount(bar)) - 1;
        testkit::Script script;
        script.Add([&] {
            ClickAt(EntryPoint(Frame().m_hWnd, bar, last));
            return true;
        });
        script.Add([] { return !testkit::OpenMenuWindows().empty(); });
        for (const auto& step : steps)
            script.Add(step);
        script.Add([] {
            ::EndMenu();
            return true;
        });
        const bool done = script.Finish();
        return testkit::PumpUntil([this] { return !Frame().IsMenuOpen(); }) && done;
    }
    // The place of an entry of the open menu.
    CPoint OpenEntry(UINT position)
    {
        return EntryPoint(nullptr, testkit::MenuOf(testkit::OpenMenuWindows().front()), position);
    }
};

TEST_F(ShellMenus, NewHostHasAFileMenuThatExits)
{
    EXPECT_EQ(Bar(), L"&File(E&xit)");
}

TEST_F(ShellMenus, MenusAppearOnTheBarAndVanishFromIt)
{
    const ElementId tools = AddBarMenu(L"&Tools");
    EXPECT_EQ(Bar(), L"&File(E&xit) &Tools()");
    const ElementId first = Model().AddMenu(Base(), L"F&irst").id;
    EXPECT_EQ(Bar(), L"&File(E&xit) &Tools()");
    Model().InsertInMenuBar(first, 0L);
    EXPECT_EQ(Bar(), L"F&irst() &File(E&xit) &Tools()");
    Model().RemoveFromMenuBar(tools);
    EXPECT_EQ(Bar(), L"F&irst() &File(E&xit)");
    Model().SetMenuName(first, L"Ot&her");
    EXPECT_EQ(Bar(), L"Ot&her() &File(E&xit)");
}

TEST_F(ShellMenus, MenusOfAGroupGoWithIt)
{
    const ElementId group = Model().AddGroup(L"Extra", MenuGroupType::Partial, L"").id;
    const ElementId menu = Model().AddMenu(group, L"Extra").id;
    Model().InsertInMenuBar(menu, kAtEnd);
    EXPECT_EQ(Bar(), L"&File(E&xit) Extra()");
    Model().RemoveGroup(group);
    EXPECT_EQ(Bar(), L"&File(E&xit)");
}

TEST_F(ShellMenus, EntriesShowLabelStateAndOrder)
{
    Model().RemoveMenuItem(Model().MenuBar().front()->items.front()->id);
    Model().RemoveFromMenuBar(Model().MenuBar().front()->id);
    const ElementId menu = AddBarMenu(L"T");
    const ElementId a = AddItem(menu, L"&A");
    const ElementId b = AddItem(menu, L"B");
    EXPECT_EQ(Bar(), L"T(&A B)");
    Model().AddMenuSeparator(menu, 1L);
    EXPECT_EQ(Bar(), L"T(&A - B)");
    Model().SetMenuItemEnabled(a, false);
    Model().SetMenuItemChecked(b, true);
    EXPECT_EQ(Bar(), L"T(!&A - *B)");
    Model().SetMenuItemLabel(b, L"&Bee");
    Model().SetMenuItemEnabled(a, true);
    EXPECT_EQ(Bar(), L"T(&A - *&Bee)");
    AddItem(AddSubMenu(AddSubMenu(menu, L"Mo&re"), L"Even more"), L"Leaf");
    EXPECT_EQ(Bar(), L"T(&A - *&Bee Mo&re(Even more(Leaf)))");
    Model().RemoveMenuItem(b);
    EXPECT_EQ(Bar(), L"T(&A - Mo&re(Even more(Leaf)))");
}

TEST_F(ShellMenus, EmbeddedExpressionsAreNotShown)
{
    AddItem(AddBarMenu(L"T"), L"$(if,1,!.)&Grid");
    EXPECT_EQ(Bar(), L"&File(E&xit) T(Grid)");
}

TEST_F(ShellMenus, ClickedItemSendsItsMacroExactly)
{
    AddItem(AddBarMenu(L"&Tools"), L"&Line", L"\x03\x03_line \r\x1B^C \"x\"\t");
    Show();
    testkit::MenuDriver driver(Frame().m_hWnd);
    EXPECT_TRUE(driver.Choose({L"Tools", L"Line"}));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"\x03\x03_line \r\x1B^C \"x\"\t"});
    EXPECT_EQ(Frame().CommandPane().HistoryText(), L"Command: ^C^C_line ^M^[^C \"x\"^I");
}

TEST_F(ShellMenus, ItemsWithTheSameLabelAreToldApart)
{
    const ElementId menu = AddBarMenu(L"Tools");
    AddItem(menu, L"Same", L"first ");
    const ElementId sub = AddSubMenu(menu, L"More");
    AddItem(sub, L"Same", L"second ");
    Show();
    testkit::MenuDriver driver(Frame().m_hWnd);
    EXPECT_TRUE(driver.Choose({L"Tools", L"More", L"Same"}));
    EXPECT_TRUE(driver.Choose({L"Tools", L"Same"}));
    EXPECT_EQ(Sent(), (std::vector<std::wstring>{L"second ", L"first "}));
}

TEST_F(ShellMenus, DisabledItemSendsNothing)
{
    const ElementId item = AddItem(AddBarMenu(L"Tools"), L"Line");
    Model().SetMenuItemEnabled(item, false);
    EXPECT_TRUE(WhileLastMenuIsOpen({[this] {
        ClickAt(OpenEntry(0));
        return true;
    }}));
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellMenus, HighlightedEntryShowsItsHelp)
{
    const ElementId menu = AddBarMenu(L"Tools");
    AddItem(menu, L"Line", L"l ", L"Draws a line");
    AddItem(menu, L"No help");
    EXPECT_EQ(Frame().StatusText(), L"Ready");
    EXPECT_TRUE(WhileLastMenuIsOpen({
        [this] {
            MovePointer(OpenEntry(0));
            return true;
        },
        [this] { return Frame().StatusText() == L"Draws a line"; },
        [this] {
            MovePointer(OpenEntry(1));
            return true;
        },
        [this] { return Frame().StatusText() == L"Ready"; },
        [this] {
            MovePointer(OpenEntry(0));
            return true;
        },
        [this] { return Frame().StatusText() == L"Draws a line"; },
    }));
    EXPECT_EQ(Frame().StatusText(), L"Ready");
}

TEST_F(ShellMenus, ItemRemovedWhileItsMenuIsOpenSendsNothing)
{
    const ElementId menu = AddBarMenu(L"Tools");
    const ElementId gone = AddItem(menu, L"Gone", L"gone ");
    AddItem(menu, L"Stays", L"stays ");
    EXPECT_TRUE(WhileLastMenuIsOpen({
        [&] {
            Model().RemoveMenuItem(gone);
            return true;
        },
        [this] {
            ClickAt(OpenEntry(0));
            return true;
        },
    }));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{});
    EXPECT_EQ(Bar(), L"&File(E&xit) Tools(Stays)");
}

TEST_F(ShellMenus, MenuAndGroupMayVanishWhileOpen)
{
    const ElementId group = Model().AddGroup(L"Extra", MenuGroupType::Partial, L"").id;
    const ElementId menu = Model().AddMenu(group, L"Extra").id;
    Model().InsertInMenuBar(menu, kAtEnd);
    AddItem(menu, L"Item", L"item ", L"help");
    EXPECT_TRUE(WhileLastMenuIsOpen({
        [&] {
            Model().RemoveGroup(group);
            return true;
        },
        [this] {
            MovePointer(OpenEntry(0));
            return true;
        },
        [this] {
            ClickAt(OpenEntry(0));
            return true;
        },
    }));
    EXPECT_TRUE(Sent().empty());
    EXPECT_EQ(Bar(), L"&File(E&xit)");
}

TEST_F(ShellMenus, CommandOfAnItemThatIsGoneIsNotAnothers)
{
    const ElementId menu = AddBarMenu(L"Tools");
    const ElementId gone = AddItem(menu, L"Gone", L"gone ");
    Show();
    const UINT command = ::GetMenuItemID(::GetSubMenu(::GetMenu(Frame().m_hWnd), 1), 0);
    Model().RemoveMenuItem(gone);
    AddItem(menu, L"New", L"new ");
    Show();
    EXPECT_NE(::GetMenuItemID(::GetSubMenu(::GetMenu(Frame().m_hWnd), 1), 0), command);
    Frame().SendMessage(WM_COMMAND, command);
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellMenus, CommandsKeepTheirNumbersThroughChanges)
{
    const ElementId menu = AddBarMenu(L"Tools");
    AddItem(menu, L"B", L"b ");
    Show();
    const UINT command = ::GetMenuItemID(::GetSubMenu(::GetMenu(Frame().m_hWnd), 1), 0);
    Model().AddMenuItem(menu, 0L, L"A", L"a ");
    Show();
    EXPECT_EQ(::GetMenuItemID(::GetSubMenu(::GetMenu(Frame().m_hWnd), 1), 1), command);
}

TEST_F(ShellMenus, ThousandsOfEntriesAreShownAndAnswer)
{
    constexpr int kEntries = 5000;
    Model().Policies().menuItemLimit = kEntries;
    const ElementId menu = AddBarMenu(L"Many");
    for (int i = 0; i < kEntries; ++i)
        AddItem(menu, (L"Item " + std::to_wstring(i)).c_str(),
                (L"send " + std::to_wstring(i) + L" ").c_str());
    Show();
    const HMENU shown = ::GetSubMenu(::GetMenu(Frame().m_hWnd), 1);
    ASSERT_EQ(::GetMenuItemCount(shown), kEntries);
    EXPECT_EQ(LabelAt(shown, kEntries - 1), L"Item 4999");
    Frame().SendMessage(WM_COMMAND, ::GetMenuItemID(shown, kEntries - 1));
    Frame().SendMessage(WM_COMMAND, ::GetMenuItemID(shown, 17));
    EXPECT_EQ(Sent(), (std::vector<std::wstring>{L"send 4999 ", L"send 17 "}));
}

TEST_F(ShellMenus, ItemBelowTheScreensEdgeIsReached)
{
    const ElementId menu = AddBarMenu(L"Many");
    for (int i = 0; i < 200; ++i)
        AddItem(menu, (L"Item " + std::to_wstring(i)).c_str(),
                (L"send " + std::to_wstring(i) + L" ").c_str());
    EXPECT_TRUE(RunSteps({{StepKind::PressItem, L"Many|Item 197"}}));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"send 197 "});
}

TEST_F(ShellMenus, TwoHundredLevelsAreShownAndAnswer)
{
    constexpr int kLevels = 200;
    ElementId menu = AddBarMenu(L"Deep");
    for (int i = 0; i < kLevels; ++i)
        menu = AddSubMenu(menu, (L"Level " + std::to_wstring(i)).c_str());
    AddItem(menu, L"Bottom", L"bottom ");
    Show();
    HMENU shown = ::GetSubMenu(::GetMenu(Frame().m_hWnd), 1);
    for (int i = 0; i < kLevels; ++i)
        shown = ::GetSubMenu(shown, 0);
    ASSERT_EQ(::GetMenuItemCount(shown), 1);
    EXPECT_EQ(LabelAt(shown, 0), L"Bottom");
    Frame().SendMessage(WM_COMMAND, ::GetMenuItemID(shown, 0));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"bottom "});
}

TEST_F(ShellMenus, ItemThirtyLevelsDownIsClicked)
{
    ElementId menu = AddBarMenu(L"Deep");
    std::wstring path = L"Deep";
    for (int i = 0; i < 30; ++i) {
        menu = AddSubMenu(menu, (L"L" + std::to_wstring(i)).c_str());
        path += L"|L" + std::to_wstring(i);
    }
    AddItem(menu, L"Bottom", L"bottom ");
    testkit::AllowGrowth(testkit::GdiObjects, 3,
                         "one device context, with region and bitmap, for each window painted at a time");
    EXPECT_TRUE(RunSteps({{StepKind::PressItem, path + L"|Bottom"}}));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"bottom "});
}

TEST_F(ShellMenus, RightClickOnTheSheetOpensTheShortcutMenu)
{
    const ElementId menu = Model().AddMenu(Base(), L"POP0").id;
    AddItem(menu, L"Repeat", L"again ");
    Show();
    testkit::MenuDriver driver(Frame().m_hWnd);
    driver.ChooseInNextMenu({L"Repeat"});
    const CPoint at = testkit::MiddleOf(Frame().DrawingArea());
    CPoint client = at;
    ::ScreenToClient(Frame().DrawingArea(), &client);
    ::PostMessageW(Frame().DrawingArea(), WM_RBUTTONUP, 0, MAKELPARAM(client.x, client.y));
    EXPECT_TRUE(driver.Finish());
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"again "});
}

} // namespace hosttest
