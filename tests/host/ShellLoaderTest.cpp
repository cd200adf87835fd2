// Loading and unloading of add-ins.
#include "ShellFixture.h"

#include <gmock/gmock.h>

#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"

namespace
{

std::vector<std::string> events;

void ForgetEvents()
{
    std::vector<std::string>().swap(events);
}

} // namespace

// What the test add-ins call when they are started and stopped.
extern "C" __declspec(dllexport) void RecordAddinEvent(const char* addin, const char* event)
{
    events.push_back(std::string(event) + " " + addin);
}

namespace hosttest
{

using namespace velmhost;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

std::wstring AddinFile(const wchar_t* name)
{
    return (testkit::ProgramFolder() / name).wstring();
}

bool IsInProcess(const wchar_t* name)
{
    return ::GetModuleHandleW(name) != nullptr;
}

std::string Narrow(const std::wstring& text)
{
    std::string narrow;
    for (const wchar_t ch : text)
        narrow += ch < 128 ? static_cast<char>(ch) : '?';
    return narrow;
}

} // namespace

class ShellLoader : public testing::Test
{
protected:
    ShellLoader() { ForgetEvents(); }
    ~ShellLoader() override
    {
        m_loader.UnloadAll();
        ForgetEvents();
    }
    // The reason for which an add-in is not loaded; empty when it is.
    std::string Load(const wchar_t* name)
    {
        std::wstring reason;
        const bool loaded = m_loader.Load(AddinFile(name), reason);
        EXPECT_EQ(loaded, reason.empty());
        return Narrow(reason);
    }
    CAddinLoader m_loader;
};

TEST_F(ShellLoader, AddInsStartInOrderAndStopInReverse)
{
    EXPECT_EQ(Load(L"FirstTestAddin.arx"), "");
    EXPECT_EQ(Load(L"SecondTestAddin.arx"), "");
    EXPECT_EQ(m_loader.FileNames().size(), 2u);
    EXPECT_TRUE(m_loader.UnloadAll().empty());
    EXPECT_THAT(events, ElementsAre("start FirstTestAddin", "start SecondTestAddin", "stop SecondTestAddin",
                                    "stop FirstTestAddin"));
    EXPECT_FALSE(IsInProcess(L"FirstTestAddin.arx"));
    EXPECT_FALSE(IsInProcess(L"SecondTestAddin.arx"));
}

TEST_F(ShellLoader, StartAndStopNeedNotBeThere)
{
    EXPECT_EQ(Load(L"SilentTestAddin.dll"), "");
    EXPECT_TRUE(IsInProcess(L"SilentTestAddin.dll"));
    EXPECT_TRUE(m_loader.UnloadAll().empty());
    EXPECT_FALSE(IsInProcess(L"SilentTestAddin.dll"));
}

TEST_F(ShellLoader, MissingFileGivesTheSystemsReason)
{
    EXPECT_EQ(Load(L"NoSuchAddin.arx"), Narrow(SystemErrorText(ERROR_MOD_NOT_FOUND)));
    EXPECT_TRUE(m_loader.FileNames().empty());
}

TEST_F(ShellLoader, FileThatIsNoLibraryGivesTheSystemsReason)
{
    testkit::TempFolder folder;
    testkit::WriteBytes(folder / L"Text.arx", "this is no library");
    std::wstring reason;
    EXPECT_FALSE(m_loader.Load((folder / L"Text.arx").wstring(), reason));
    EXPECT_EQ(reason, SystemErrorText(ERROR_BAD_EXE_FORMAT));
}

TEST_F(ShellLoader, AddInThatNeedsAMissingLibraryIsRefused)
{
    EXPECT_EQ(Load(L"NeedyTestAddin.arx"), Narrow(SystemErrorText(ERROR_MOD_NOT_FOUND)));
    EXPECT_FALSE(IsInProcess(L"NeedyTestAddin.arx"));
}

TEST_F(ShellLoader, AddInThatRefusesIsFreedUnstopped)
{
    EXPECT_THAT(Load(L"RefusingTestAddin.arx"), HasSubstr("7"));
    EXPECT_FALSE(IsInProcess(L"RefusingTestAddin.arx"));
    EXPECT_THAT(events, ElementsAre("start RefusingTestAddin"));
}

TEST_F(ShellLoader, AddInThatThrowsIsFreedUnstopped)
{
    EXPECT_THAT(Load(L"ThrowingTestAddin.arx"), HasSubstr("no pens are left"));
    EXPECT_FALSE(IsInProcess(L"ThrowingTestAddin.arx"));
    EXPECT_THAT(events, ElementsAre("start ThrowingTestAddin"));
}

TEST_F(ShellLoader, OthersAreStoppedWhenOneThrowsInItsStop)
{
    EXPECT_EQ(Load(L"FirstTestAddin.arx"), "");
    EXPECT_EQ(Load(L"StopThrowingTestAddin.arx"), "");
    EXPECT_EQ(Load(L"SecondTestAddin.arx"), "");
    const std::vector<std::wstring> failures = m_loader.UnloadAll();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_THAT(Narrow(failures[0]),
                testing::AllOf(HasSubstr("StopThrowingTestAddin"), HasSubstr("the pens are stuck")));
    EXPECT_THAT(events, testing::Contains("stop FirstTestAddin"));
    EXPECT_FALSE(IsInProcess(L"StopThrowingTestAddin.arx"));
}

TEST_F(ShellLoader, LoadedAddInIsNotLoadedTwice)
{
    EXPECT_EQ(Load(L"FirstTestAddin.arx"), "");
    EXPECT_NE(Load(L"FirstTestAddin.arx"), "");
    EXPECT_EQ(m_loader.FileNames().size(), 1u);
    EXPECT_THAT(events, ElementsAre("start FirstTestAddin"));
}

TEST_F(ShellLoader, OneAddInIsUnloadedByItsName)
{
    EXPECT_EQ(Load(L"FirstTestAddin.arx"), "");
    EXPECT_EQ(Load(L"SecondTestAddin.arx"), "");
    std::wstring reason;
    EXPECT_TRUE(m_loader.Unload(L"firsttestaddin.ARX", reason));
    EXPECT_FALSE(IsInProcess(L"FirstTestAddin.arx"));
    EXPECT_TRUE(IsInProcess(L"SecondTestAddin.arx"));
    EXPECT_FALSE(m_loader.Unload(L"FirstTestAddin.arx", reason));
    EXPECT_NE(reason, L"");
}

TEST_F(ShellLoader, CommandIsOfferedInOrderUntilOneTakesIt)
{
    EXPECT_EQ(Load(L"FirstTestAddin.arx"), ""); // has no command
    EXPECT_EQ(Load(L"LineTestAddin.arx"), "");
    EXPECT_EQ(Load(L"AnyTestAddin.arx"), "");
    ForgetEvents();
    std::wstring reason;
    EXPECT_TRUE(m_loader.Command(L"LINE", reason));
    EXPECT_THAT(events, ElementsAre("command LINE LineTestAddin"));
    ForgetEvents();
    EXPECT_TRUE(m_loader.Command(L"CIRCLE", reason));
    EXPECT_THAT(events, ElementsAre("command CIRCLE LineTestAddin", "command CIRCLE AnyTestAddin"));
    EXPECT_EQ(reason, L"");
}

TEST_F(ShellLoader, CommandThatNobodyTakesIsToldSo)
{
    std::wstring reason;
    EXPECT_FALSE(m_loader.Command(L"LINE", reason));
    EXPECT_EQ(Load(L"LineTestAddin.arx"), "");
    EXPECT_FALSE(m_loader.Command(L"CIRCLE", reason));
    EXPECT_EQ(reason, L"");
}

TEST_F(ShellLoader, CommandThatThrowsGoesOnToTheNext)
{
    EXPECT_EQ(Load(L"CommandThrowingTestAddin.arx"), "");
    EXPECT_EQ(Load(L"AnyTestAddin.arx"), "");
    std::wstring reason;
    EXPECT_TRUE(m_loader.Command(L"LINE", reason));
    EXPECT_EQ(Narrow(reason), "CommandThrowingTestAddin.arx: AddInCommand failed: the line is busy");
    EXPECT_EQ(events.back(), "command LINE AnyTestAddin");
}

class ShellAddins : public ShellFixture
{
};

TEST_F(ShellAddins, CommandsOfMenuItemsReachThemByTheirWord)
{
    ASSERT_TRUE(App().LoadAddin(AddinFile(L"LineTestAddin.arx")));
    AddItem(AddBarMenu(L"Draw"), L"Line", L"\x03\x03_line 0,0 ");
    ForgetEvents();
    ASSERT_TRUE(RunSteps({{StepKind::PressItem, L"Draw|Line"}}));
    EXPECT_THAT(events, ElementsAre("command LINE LineTestAddin"));
    EXPECT_EQ(Sent().size(), 1u);
    App().Addins().UnloadAll();
    ForgetEvents();
}

TEST_F(ShellAddins, CommandThatThrowsIsToldOfAndTheHostGoesOn)
{
    ASSERT_TRUE(App().LoadAddin(AddinFile(L"CommandThrowingTestAddin.arx")));
    Frame().SendToCommandLine(L"LINE ");
    EXPECT_THAT(App().Complaints(), ElementsAre(HasSubstr(L"the line is busy")));
    Frame().SendToCommandLine(L"  ");
    EXPECT_EQ(App().Complaints().size(), 1u) << "blanks are no command";
    EXPECT_EQ(Sent().size(), 2u);
    App().Addins().UnloadAll();
    ForgetEvents();
}

TEST_F(ShellAddins, FailureIsToldInAMessageBoxAndTheHostGoesOn)
{
    ShellOptions options = QuietOptions();
    options.batch = false;
    Reopen(options);
    testkit::MessageBoxWatch boxes;
    EXPECT_FALSE(App().LoadAddin(L"NoSuchAddin.arx"));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_THAT(Narrow(boxes.Boxes()[0].text),
                testing::AllOf(HasSubstr("NoSuchAddin.arx"),
                               HasSubstr(Narrow(SystemErrorText(ERROR_MOD_NOT_FOUND)))));
    EXPECT_EQ(App().ExitStatus(), 0);
    EXPECT_TRUE(Frame().IsWindowVisible());
}

TEST_F(ShellAddins, UnattendedFailureIsToldInTheHistoryAndTheExitStatus)
{
    testkit::MessageBoxWatch boxes;
    EXPECT_FALSE(App().LoadAddin(L"NoSuchAddin.arx"));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(App().ExitStatus(), 2);
    EXPECT_THAT(Narrow(Frame().CommandPane().HistoryText()), HasSubstr("NoSuchAddin.arx"));
    ASSERT_EQ(App().Complaints().size(), 1u);
}

TEST_F(ShellAddins, MessageBoxesOfAddInsAskNobodyInBatchMode)
{
    testkit::MessageBoxWatch boxes;
    EXPECT_EQ(AfxMessageBox(L"Shall I?", MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(AfxMessageBox(L"Sure?", MB_OKCANCEL), IDOK);
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_THAT(App().Complaints(), ElementsAre(L"Shall I?", L"Sure?"));
}

TEST_F(ShellAddins, ClosingTheWindowStopsAddInsBeforeItGoes)
{
    ForgetEvents();
    EXPECT_TRUE(App().LoadAddin(AddinFile(L"FirstTestAddin.arx")));
    Frame().SendMessage(WM_CLOSE);
    EXPECT_EQ(App().MainFrame(), nullptr);
    EXPECT_THAT(events, ElementsAre("start FirstTestAddin", "stop FirstTestAddin"));
    ForgetEvents();
}

} // namespace hosttest
