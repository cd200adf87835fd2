#include "kit/MenuDriver.h"

#include "kit/Input.h"
#include "kit/Pump.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

std::vector<WORD> g_commands;

LRESULT CALLBACK NoteCommand(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_COMMAND) {
        g_commands.push_back(LOWORD(first));
    }
    return DefWindowProcW(window, message, first, second);
}

struct MenuDriver : testing::Test
{
    MenuDriver()
    {
        WNDCLASSW type{};
        type.lpfnWndProc = NoteCommand;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = L"testkit.menu";
        RegisterClassW(&type);
        inner = CreatePopupMenu();
        AppendMenuW(inner, MF_STRING, 201, L"&Deep one");
        AppendMenuW(inner, MF_STRING, 202, L"Deep two");
        first = CreatePopupMenu();
        AppendMenuW(first, MF_STRING, 101, L"&Open\tCtrl+O");
        AppendMenuW(first, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(first, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"&More");
        AppendMenuW(first, MF_STRING | MF_GRAYED, 103, L"Greyed");
        second = CreatePopupMenu();
        AppendMenuW(second, MF_STRING, 301, L"Salt && pepper");
        bar = CreateMenu();
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(first), L"&File");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(second), L"&Tools");
        window = CreateWindowExW(0, type.lpszClassName, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 400,
                                 300, nullptr, bar, type.hInstance, nullptr);
        testkit::PumpPending();
    }
    ~MenuDriver() override
    {
        DestroyWindow(window); // with its menus
        UnregisterClassW(L"testkit.menu", GetModuleHandleW(nullptr));
        g_commands = std::vector<WORD>(); // gives its memory back
    }

    HMENU bar, first, second, inner;
    HWND window;
};

TEST_F(MenuDriver, ChoosesAnItemOfTheBarsMenu)
{
    testkit::MenuDriver driver(window);
    EXPECT_TRUE(driver.Choose({L"File", L"Open"}));
    EXPECT_THAT(g_commands, ElementsAre(101));
}

TEST_F(MenuDriver, ChoosesOneAfterTheOther)
{
    EXPECT_TRUE(testkit::MenuDriver(window).Choose({L"File", L"Open"}));
    EXPECT_TRUE(testkit::MenuDriver(window).Choose({L"Tools", L"Salt & pepper"}));
    EXPECT_TRUE(testkit::MenuDriver(window).Choose({L"File", L"More", L"Deep one"}));
    EXPECT_THAT(g_commands, ElementsAre(101, 301, 201));
}

TEST_F(MenuDriver, GoesThroughCascades)
{
    testkit::MenuDriver driver(window);
    EXPECT_TRUE(driver.Choose({L"File", L"More", L"Deep two"}));
    EXPECT_THAT(g_commands, ElementsAre(202));
}

TEST_F(MenuDriver, TellsWhenTheBarHasNoSuchItem)
{
    testkit::MenuDriver driver(window);
    EXPECT_FALSE(driver.Choose({L"Edit", L"Open"}));
    EXPECT_EQ(driver.Problem(), L"the menu bar has no item Edit");
}

TEST_F(MenuDriver, TellsWhenAMenuHasNoSuchItemAndClosesIt)
{
    testkit::MenuDriver driver(window);
    EXPECT_FALSE(driver.Choose({L"File", L"Close"}));
    EXPECT_EQ(driver.Problem(), L"the open menu has no item Close");
    EXPECT_TRUE(testkit::OpenMenuWindows().empty());
    EXPECT_TRUE(g_commands.empty());
}

TEST_F(MenuDriver, TellsWhenAnItemIsDisabled)
{
    testkit::MenuDriver driver(window);
    EXPECT_FALSE(driver.Choose({L"File", L"Greyed"}));
    EXPECT_EQ(driver.Problem(), L"disabled in the open menu: Greyed");
}

TEST_F(MenuDriver, ChoosesInAMenuThatOtherCodeOpens)
{
    testkit::MenuDriver driver(window);
    driver.ChooseInNextMenu({L"More", L"Deep two"});
    const BOOL command = TrackPopupMenu(first, TPM_RETURNCMD, 200, 200, 0, window, nullptr);
    EXPECT_TRUE(driver.Finish());
    EXPECT_EQ(command, 202);
}

TEST_F(MenuDriver, ReadsAMenuThatOtherCodeOpensAndClosesIt)
{
    testkit::MenuDriver driver(window);
    driver.ReadNextMenu();
    const BOOL command = TrackPopupMenu(first, TPM_RETURNCMD, 200, 200, 0, window, nullptr);
    EXPECT_TRUE(driver.Finish());
    EXPECT_EQ(command, 0);
    EXPECT_THAT(driver.Items(), ElementsAre(L"Open", L"", L"More", L"Greyed"));
}

} // namespace
