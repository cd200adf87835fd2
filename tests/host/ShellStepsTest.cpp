// Steps of unattended runs, pictures, and the program itself.
#include "ShellFixture.h"

#include <gmock/gmock.h>

#include "kit/ChildProgram.h"
#include "kit/Files.h"
#include "shell/Screenshot.h"

namespace hosttest
{

using namespace velmhost;
using testing::HasSubstr;

class ShellSteps : public ShellFixture
{
protected:
    // The complaint about the one step that cannot be made.
    std::string Complaint(StepKind kind, const wchar_t* argument)
    {
        EXPECT_FALSE(RunSteps({{kind, argument}})) << argument;
        EXPECT_EQ(App().ExitStatus(), 3);
        EXPECT_EQ(App().Complaints().size(), 1u);
        std::string text;
        for (const wchar_t ch : App().Complaints().empty() ? std::wstring() : App().Complaints().front())
            text += static_cast<char>(ch);
        App().ForgetTexts();
        return text;
    }
};

TEST_F(ShellSteps, ItemsAndButtonsArePressedInOrder)
{
    const ElementId menu = AddBarMenu(L"&Tools");
    AddItem(menu, L"&Line", L"line ");
    AddItem(AddSubMenu(AddSubMenu(menu, L"More"), L"Even &more"), L"Arc", L"arc ");
    const ElementId inner = AddToolbar(L"Inner");
    AddButton(inner, L"Deep", L"deep ");
    const ElementId outer = AddToolbar(L"Outer");
    AddFlyout(outer, L"Nested", inner);
    const ElementId bar = AddToolbar(L"Bar");
    AddButton(bar, L"Plain", L"plain ");
    AddFlyout(bar, L"Fly", outer);
    EXPECT_TRUE(RunSteps({{StepKind::PressItem, L"Tools|More|Even more|Arc"},
                          {StepKind::PressButton, L"Bar|Fly|Nested|Deep"},
                          {StepKind::Type, L"typed text"},
                          {StepKind::PressItem, L"&Tools|line"},
                          {StepKind::PressButton, L"Bar|Plain"},
                          {StepKind::WaitIdle, L""}}));
    EXPECT_EQ(Sent(), (std::vector<std::wstring>{L"arc ", L"deep ", L"typed text", L"line ", L"plain "}));
    EXPECT_EQ(App().ExitStatus(), 0);
}

TEST_F(ShellSteps, OpenFlyoutStaysOpenUntilPopupsAreClosed)
{
    const ElementId outer = AddToolbar(L"Outer");
    AddButton(outer, L"Mid", L"mid ");
    AddFlyout(AddToolbar(L"Bar"), L"Fly", outer);
    EXPECT_TRUE(RunSteps({{StepKind::OpenFlyout, L"Bar|Fly"}, {StepKind::WaitIdle, L""}}));
    EXPECT_EQ(Frame().Toolbars().Flyouts().Count(), 1u);
    EXPECT_TRUE(RunSteps({{StepKind::PressButton, L"Bar|Fly|Mid"}}));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"mid "});
    EXPECT_TRUE(RunSteps({{StepKind::OpenFlyout, L"Bar|Fly"}, {StepKind::ClosePopups, L""}}));
    EXPECT_TRUE(Frame().Toolbars().Flyouts().IsEmpty());
}

TEST_F(ShellSteps, OpenMenusAreClosedOneLevelAtATime)
{
    AddItem(AddSubMenu(AddBarMenu(L"Tools"), L"More"), L"Arc", L"arc ");
    EXPECT_TRUE(RunSteps({{StepKind::OpenMenu, L"Tools|More"},
                          {StepKind::ClosePopups, L""},
                          {StepKind::PressItem, L"Tools|More|Arc"}}));
    EXPECT_FALSE(Frame().IsMenuOpen());
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"arc "});
}

TEST_F(ShellSteps, MissingTargetsAreNamed)
{
    const ElementId menu = AddBarMenu(L"Tools");
    Model().SetMenuItemEnabled(AddItem(menu, L"Off"), false);
    AddSubMenu(menu, L"More");
    AddItem(menu, L"Line");
    const ElementId bar = AddToolbar(L"Bar");
    AddButton(bar, L"Plain");
    const ElementId hidden = AddToolbar(L"Hidden");
    AddButton(hidden, L"B");
    Model().SetToolbarVisible(hidden, false);
    EXPECT_THAT(Complaint(StepKind::PressItem, L"Tolls|Line"), HasSubstr("no menu \"Tolls\""));
    EXPECT_THAT(Complaint(StepKind::PressItem, L"Tools|Lime"), HasSubstr("no \"Lime\" in \"Tools\""));
    EXPECT_THAT(Complaint(StepKind::PressItem, L"Tools|Line|More"), HasSubstr("no \"More\" in \"Line\""));
    EXPECT_THAT(Complaint(StepKind::PressItem, L"Tools|Off"), HasSubstr("disabled"));
    EXPECT_THAT(Complaint(StepKind::PressItem, L"Tools|More"), HasSubstr("not an item"));
    EXPECT_THAT(Complaint(StepKind::OpenMenu, L"Tools|Line"), HasSubstr("not a menu"));
    EXPECT_THAT(Complaint(StepKind::PressButton, L"Bar"), HasSubstr("needs a toolbar and a button"));
    EXPECT_THAT(Complaint(StepKind::PressButton, L"Car|Plain"), HasSubstr("no toolbar \"Car\""));
    EXPECT_THAT(Complaint(StepKind::PressButton, L"Hidden|B"), HasSubstr("no toolbar \"Hidden\" on show"));
    EXPECT_THAT(Complaint(StepKind::PressButton, L"Bar|Plane"), HasSubstr("no button \"Plane\" in \"Bar\""));
    EXPECT_THAT(Complaint(StepKind::PressButton, L"Bar|Plain|More"), HasSubstr("opens no fly-out"));
    EXPECT_THAT(Complaint(StepKind::OpenFlyout, L"Bar|Plain"), HasSubstr("opens no fly-out"));
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellSteps, StepsAfterAFailedOneAreMadeAllTheSame)
{
    AddItem(AddBarMenu(L"Tools"), L"Line", L"line ");
    EXPECT_FALSE(RunSteps({{StepKind::PressItem, L"Tools|Lime"}, {StepKind::PressItem, L"Tools|Line"}}));
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"line "});
}

TEST_F(ShellSteps, ScreenshotHasTheSizeOfTheWindow)
{
    testkit::TempFolder folder;
    CRect window;
    Frame().GetWindowRect(&window);
    const std::wstring bmp = (folder / L"picture.bmp").wstring();
    const std::wstring png = (folder / L"picture.png").wstring();
    EXPECT_TRUE(RunSteps({{StepKind::Screenshot, bmp}, {StepKind::Screenshot, png}}));

    const std::string bytes = testkit::ReadBytes(folder / L"picture.bmp");
    ASSERT_GT(bytes.size(), 54u);
    BITMAPINFOHEADER info{};
    std::memcpy(&info, bytes.data() + 14, sizeof info);
    EXPECT_EQ(info.biWidth, window.Width());
    EXPECT_EQ(info.biHeight, window.Height());
    EXPECT_EQ(bytes.size(),
              54u + static_cast<std::size_t>(window.Width()) * static_cast<std::size_t>(window.Height()) * 4);

    // A PNG file begins with eight fixed bytes; width and height stand in its first chunk, high byte first.
    const std::string image = testkit::ReadBytes(folder / L"picture.png");
    ASSERT_GT(image.size(), 24u);
    EXPECT_EQ(image.substr(0, 8), "\x89PNG\r\n\x1A\n");
    const auto number = [&](std::size_t at) {
        int value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value * 256 + static_cast<unsigned char>(image[at + i]);
        return value;
    };
    EXPECT_EQ(number(16), window.Width());
    EXPECT_EQ(number(20), window.Height());
}

TEST_F(ShellSteps, ScreenshotIncludesWhatStandsOut)
{
    const ElementId bar = AddToolbar(L"Far");
    AddButton(bar, L"B");
    CRect window;
    Frame().GetWindowRect(&window);
    Frame().MoveWindow(100, 100, 500, 400);
    Model().FloatToolbar(bar, 550, 650, 1);
    Show();
    CRect floating;
    Pane(bar).GetWindowRect(&floating);
    EXPECT_EQ(Frame().ScreenArea(), CRect(100, 100, floating.right, floating.bottom));
}

TEST_F(ShellSteps, PicturesThatCannotBeSavedAreRefused)
{
    testkit::TempFolder folder;
    std::wstring reason;
    EXPECT_FALSE(SaveScreenArea(CRect(0, 0, 10, 10), (folder / L"x.gif").wstring(), reason));
    EXPECT_NE(reason, L"");
    EXPECT_FALSE(SaveScreenArea(CRect(0, 0, 10, 10), (folder / L"no" / L"x.bmp").wstring(), reason));
    EXPECT_FALSE(SaveScreenArea(CRect(0, 0, 10, 10), (folder / L"no" / L"x.png").wstring(), reason));
    EXPECT_FALSE(SaveScreenArea(CRect(-100, -100, -50, -50), (folder / L"x.bmp").wstring(), reason));
    EXPECT_TRUE(SaveScreenArea(CRect(0, 0, 10, 10), (folder / L"x.BMP").wstring(), reason));
}

class HostProgramRun : public testing::Test
{
protected:
    static testkit::ProgramResult Run(const std::vector<std::wstring>& arguments)
    {
        return testkit::RunProgram(testkit::ProgramFolder() / L"velmhost.exe", arguments);
    }
};

TEST_F(HostProgramRun, TreeIsPrintedAndTheProgramEnds)
{
    const testkit::ProgramResult result = Run({L"--batch", L"--no-register", L"--tree"});
    ASSERT_TRUE(result.ended);
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_EQ(result.output, "menu bar: \"&File\"\n"
                             "large buttons: no\n"
                             "group \"BASE\" base\n"
                             "  menu \"&File\" on bar\n"
                             "    item \"E&xit\" macro \"^C^CQUIT \" help \"Closes the host\"\n");
}

TEST_F(HostProgramRun, HistoryIsPrintedAfterTheSteps)
{
    const testkit::ProgramResult result = Run(
        {L"--history", L"--batch", L"--no-register", L"--type", L"circle", L"--press-item", L"File|Exit"});
    ASSERT_TRUE(result.ended);
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_EQ(result.output, "circle\n^C^CQUIT \n");
}

TEST_F(HostProgramRun, ExitStatusTellsFailedStepsAndAddIns)
{
    testkit::ProgramResult result = Run({L"--batch", L"--no-register", L"--press-item", L"File|Nothing"});
    EXPECT_EQ(result.exitCode, 3u);
    EXPECT_THAT(result.output, HasSubstr("--press-item \"File|Nothing\""));
    result = Run({L"--batch", L"--no-register", L"NoSuchAddin.arx", L"--tree"});
    EXPECT_EQ(result.exitCode, 2u);
    EXPECT_THAT(result.output, HasSubstr("NoSuchAddin.arx"));
    EXPECT_THAT(result.output, HasSubstr("menu bar:"));
    result = Run({L"--nonsense"});
    EXPECT_EQ(result.exitCode, 1u);
    EXPECT_THAT(result.output, HasSubstr("--nonsense"));
}

TEST_F(HostProgramRun, HelpAndVersionOpenNoWindow)
{
    testkit::ProgramResult result = Run({L"--help"});
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_THAT(result.output, HasSubstr("--press-button"));
    result = Run({L"--version"});
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_EQ(result.output, "Velm Host " VELM_VERSION "\n");
}

TEST_F(HostProgramRun, StepsEndTheProgramThroughMenusLeftOpen)
{
    const testkit::ProgramResult result = Run({L"--batch", L"--no-register", L"--open-menu", L"File"});
    ASSERT_TRUE(result.ended);
    EXPECT_EQ(result.exitCode, 0u);
}

} // namespace hosttest
