// The command line, its history, and how the host ends.
#include "ShellFixture.h"

#include "kit/Input.h"
#include "kit/Pump.h"

namespace hosttest
{

using namespace velmhost;

class ShellCommandLine : public ShellFixture
{
};

TEST_F(ShellCommandLine, TypedTextIsSentAtEnterAndEchoed)
{
    testkit::Mouse::Click(testkit::MiddleOf(Frame().CommandPane().EditControl()));
    testkit::Keyboard::Type(L"Line 1,2");
    EXPECT_TRUE(Sent().empty());
    testkit::Keyboard::Press(VK_RETURN);
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"Line 1,2"});
    EXPECT_EQ(Frame().CommandPane().HistoryText(), L"Command: Line 1,2");
    EXPECT_EQ(::GetWindowTextLengthW(Frame().CommandPane().EditControl()), 0);
}

TEST_F(ShellCommandLine, EscapeEmptiesTheLine)
{
    testkit::Mouse::Click(testkit::MiddleOf(Frame().CommandPane().EditControl()));
    testkit::Keyboard::Type(L"oops");
    testkit::Keyboard::Press(VK_ESCAPE);
    testkit::Keyboard::Press(VK_RETURN);
    EXPECT_TRUE(Sent().empty());
    EXPECT_EQ(Frame().CommandPane().HistoryText(), L"");
}

TEST_F(ShellCommandLine, FocusReturnsToItFromTheSheet)
{
    ::SetFocus(Frame().CommandPane().HistoryControl());
    testkit::Mouse::Click(testkit::MiddleOf(Frame().DrawingArea()));
    EXPECT_EQ(::GetFocus(), Frame().CommandPane().EditControl());
}

TEST_F(ShellCommandLine, HistoryKeepsOrderAndShowsTheLastLine)
{
    for (int i = 0; i < 30; ++i)
        Frame().SendToCommandLine(L"c" + std::to_wstring(i));
    ASSERT_EQ(Sent().size(), 30u);
    const std::wstring history = Frame().CommandPane().HistoryText();
    EXPECT_EQ(history.substr(0, 26), L"Command: c0\r\nCommand: c1\r\n");
    EXPECT_EQ(history.substr(history.size() - 12), L"Command: c29");
    const HWND control = Frame().CommandPane().HistoryControl();
    const LRESULT firstVisible = ::SendMessageW(control, EM_GETFIRSTVISIBLELINE, 0, 0);
    EXPECT_GT(firstVisible, 0);
    EXPECT_LT(firstVisible, 30);
}

TEST_F(ShellCommandLine, LongHistoryLosesItsOldestLines)
{
    for (int i = 0; i < CCommandPane::kMaxLines + 10; ++i)
        Frame().SendToCommandLine(L"c" + std::to_wstring(i));
    const std::wstring history = Frame().CommandPane().HistoryText();
    EXPECT_EQ(history.find(L"Command: c0\r\n"), std::wstring::npos);
    const std::wstring last = L"Command: c" + std::to_wstring(CCommandPane::kMaxLines + 9);
    EXPECT_EQ(history.substr(history.size() - last.size()), last);
    EXPECT_EQ(Sent().size(), static_cast<std::size_t>(CCommandPane::kMaxLines) + 10);
}

TEST_F(ShellCommandLine, HistoryOfTextsIsOneLineForEach)
{
    Frame().SendToCommandLine(L"\x03\x03_line \r\n");
    Frame().SendToCommandLine(L"arc ");
    EXPECT_EQ(App().HistoryOfTexts(), L"^C^C_line ^M^J\narc \n");
}

TEST_F(ShellCommandLine, FileExitClosesTheHost)
{
    // The end of the main window is also that of the message loop, which would be a test's end here.
    Frame().SendToCommandLine(L"quitter ");
    testkit::PumpPending();
    ASSERT_NE(App().MainFrame(), nullptr);
    App().RunSteps({{StepKind::PressItem, L"File|Exit"}});
    testkit::PumpPending();
    EXPECT_EQ(App().MainFrame(), nullptr);
    EXPECT_EQ(Sent().back(), L"\x03\x03"
                             L"QUIT ");
}

TEST_F(ShellCommandLine, CloseButtonClosesTheHost)
{
    Frame().PostMessage(WM_SYSCOMMAND, SC_CLOSE);
    testkit::PumpPending();
    EXPECT_EQ(App().MainFrame(), nullptr);
}

TEST_F(ShellCommandLine, DisabledHostDoesNotClose)
{
    // As it is while something modal, of an add-in perhaps, is on show.
    Frame().EnableWindow(FALSE);
    Frame().SendMessage(WM_CLOSE);
    EXPECT_NE(App().MainFrame(), nullptr);
    Frame().EnableWindow(TRUE);
}

} // namespace hosttest
