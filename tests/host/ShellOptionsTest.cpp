// The command line and the texts that go to the command processor, without any window.
#include <gtest/gtest.h>

#include "shell/CommandText.h"
#include "shell/ShellOptions.h"

namespace hosttest
{

using namespace velmhost;

namespace
{

ShellOptions Parse(const std::vector<std::wstring>& arguments)
{
    return ShellOptions::Parse(arguments);
}

} // namespace

TEST(ShellOptions, NothingGivenAsksForNothing)
{
    const ShellOptions options = Parse({});
    EXPECT_EQ(options.error, L"");
    EXPECT_TRUE(options.addins.empty());
    EXPECT_TRUE(options.steps.empty());
    EXPECT_FALSE(options.batch || options.tree || options.history || options.help || options.embedding);
    EXPECT_EQ(options.width, 0);
}

TEST(ShellOptions, FlagsAreTakenAnywhere)
{
    const ShellOptions options = Parse(
        {L"--batch", L"a.arx", L"--tree", L"b.dll", L"--history", L"--large-buttons", L"--no-register"});
    EXPECT_EQ(options.error, L"");
    EXPECT_TRUE(options.batch && options.tree && options.history && options.largeButtons &&
                options.noRegister);
    EXPECT_EQ(options.addins, (std::vector<std::wstring>{L"a.arx", L"b.dll"}));
}

TEST(ShellOptions, StepsKeepTheirOrder)
{
    const ShellOptions options = Parse({L"--open-menu", L"A|B", L"--screenshot=x.png", L"--close-popups",
                                        L"--press-item", L"A|C", L"--press-button", L"T|U", L"--open-flyout",
                                        L"T|V", L"--type", L"LINE", L"--wait-idle", L"--exit"});
    ASSERT_EQ(options.error, L"");
    ASSERT_EQ(options.steps.size(), 9u);
    const StepKind kinds[] = {StepKind::OpenMenu,  StepKind::Screenshot,  StepKind::ClosePopups,
                              StepKind::PressItem, StepKind::PressButton, StepKind::OpenFlyout,
                              StepKind::Type,      StepKind::WaitIdle,    StepKind::Exit};
    const wchar_t* arguments[] = {L"A|B", L"x.png", L"", L"A|C", L"T|U", L"T|V", L"LINE", L"", L""};
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(options.steps[i].kind, kinds[i]) << i;
        EXPECT_EQ(options.steps[i].argument, arguments[i]) << i;
    }
}

TEST(ShellOptions, WhatFollowsTwoDashesIsForAddIns)
{
    const ShellOptions options = Parse({L"a.arx", L"--", L"--tree", L"b", L"--"});
    EXPECT_EQ(options.error, L"");
    EXPECT_FALSE(options.tree);
    EXPECT_EQ(options.addins, std::vector<std::wstring>{L"a.arx"});
    EXPECT_EQ(options.addinArguments, (std::vector<std::wstring>{L"--tree", L"b", L"--"}));
}

TEST(ShellOptions, SizeIsWidthByHeight)
{
    const ShellOptions options = Parse({L"--size", L"800x600"});
    EXPECT_EQ(options.error, L"");
    EXPECT_EQ(options.width, 800);
    EXPECT_EQ(options.height, 600);
}

TEST(ShellOptions, BadSizesAreRefused)
{
    for (const wchar_t* size : {L"800", L"800x", L"x600", L"800x600x1", L"800*600", L"319x600", L"800x239",
                                L"99999x600", L"", L"-800x600"})
        EXPECT_NE(Parse({L"--size", size}).error, L"") << size;
    EXPECT_NE(Parse({L"--size"}).error, L"");
}

TEST(ShellOptions, UnknownOptionsAreNamed)
{
    EXPECT_NE(Parse({L"--frobnicate"}).error.find(L"--frobnicate"), std::wstring::npos);
    EXPECT_NE(Parse({L"-x"}).error.find(L"-x"), std::wstring::npos);
}

TEST(ShellOptions, MissingAndNeedlessArgumentsAreRefused)
{
    for (const wchar_t* option :
         {L"--press-item", L"--press-button", L"--open-menu", L"--open-flyout", L"--type", L"--screenshot"})
        EXPECT_NE(Parse({option}).error.find(option), std::wstring::npos) << option;
    EXPECT_NE(Parse({L"--exit=now"}).error, L"");
    EXPECT_NE(Parse({L"--batch=yes"}).error, L"");
    EXPECT_EQ(Parse({L"--type="}).error, L"");
}

TEST(ShellOptions, RegisteringBothWaysIsRefused)
{
    EXPECT_NE(Parse({L"--register", L"--unregister"}).error, L"");
    EXPECT_EQ(Parse({L"--register"}).error, L"");
}

TEST(ShellOptions, StartByThePlatformIsKnown)
{
    EXPECT_TRUE(Parse({L"-Embedding"}).embedding);
    EXPECT_TRUE(Parse({L"/Embedding"}).embedding);
}

TEST(ShellOptions, HelpNamesEveryOption)
{
    const std::wstring help = ShellOptions::HelpText();
    for (const wchar_t* option :
         {L"--help", L"--version", L"--tree", L"--history", L"--screenshot", L"--large-buttons", L"--batch",
          L"--press-item", L"--press-button", L"--open-menu", L"--open-flyout", L"--close-popups", L"--type",
          L"--wait-idle", L"--exit", L"--size", L"--no-register", L"--register", L"--unregister"})
        EXPECT_NE(help.find(option), std::wstring::npos) << option;
}

TEST(CommandText, ControlCharactersBecomeVisible)
{
    EXPECT_EQ(VisibleCommandText(L"\x03\x03_line \r\n"), L"^C^C_line ^M^J");
    EXPECT_EQ(VisibleCommandText(std::wstring(L"\0\x1B\x1F\x7F", 4)), L"^@^[^_^?");
    EXPECT_EQ(VisibleCommandText(L"^C \u00E9"), L"^C \u00E9");
}

TEST(CommandText, FirstWordIsFoundBehindCancelsAndPrefixes)
{
    EXPECT_EQ(FirstCommandWord(L"\x03\x03_quit "), L"QUIT");
    EXPECT_EQ(FirstCommandWord(L"\x1B._-Line 1,1"), L"LINE");
    EXPECT_EQ(FirstCommandWord(L"zoom;e"), L"ZOOM");
    EXPECT_EQ(FirstCommandWord(L"exit\r"), L"EXIT");
    EXPECT_EQ(FirstCommandWord(L"\x03 \x03"), L"");
    EXPECT_EQ(FirstCommandWord(L""), L"");
}

TEST(CommandText, LabelsAnswerWithAndWithoutMnemonics)
{
    EXPECT_TRUE(LabelAnswersTo(L"&Tools", L"Tools"));
    EXPECT_TRUE(LabelAnswersTo(L"&Tools", L"&Tools"));
    EXPECT_TRUE(LabelAnswersTo(L"Tools", L"&tools"));
    EXPECT_TRUE(LabelAnswersTo(L"Nuts && bolts", L"Nuts && bolts"));
    EXPECT_FALSE(LabelAnswersTo(L"&Tools", L"Tool"));
}

TEST(CommandText, PathsSplitAtBars)
{
    EXPECT_EQ(SplitLabelPath(L"A|B c|D"), (std::vector<std::wstring>{L"A", L"B c", L"D"}));
    EXPECT_EQ(SplitLabelPath(L"A||B|C"), (std::vector<std::wstring>{L"A|B", L"C"}));
    EXPECT_EQ(SplitLabelPath(L"A|"), (std::vector<std::wstring>{L"A", L""}));
    EXPECT_EQ(SplitLabelPath(L""), std::vector<std::wstring>{L""});
}

} // namespace hosttest
