// The tool's command line.
#include "MenuToolTest.h"

namespace menutool
{

using testing::HasSubstr;
using testing::StartsWith;

class ToolCommandLine : public MenuToolTest
{
protected:
    static void ExpectWrong(const std::vector<std::wstring>& arguments, const std::string& told)
    {
        const auto result = Run(arguments);
        EXPECT_EQ(2u, result.exitCode);
        EXPECT_THAT(result.output, HasSubstr(told));
    }
};

TEST_F(ToolCommandLine, HelpNamesEveryCommand)
{
    const auto result = Run({L"--help"});
    EXPECT_EQ(0u, result.exitCode);
    for (const char* command : {"check FILE", "show FILE", "picture FILE OUT.png", "new [FILE]", "--version"})
        EXPECT_THAT(result.output, HasSubstr(command));
}

TEST_F(ToolCommandLine, EveryCommandHasHelpOfItsOwn)
{
    for (const std::string command : {"check", "show", "picture", "new"}) {
        const auto result = Run({std::wstring(command.begin(), command.end()), L"--help"});
        EXPECT_EQ(0u, result.exitCode);
        EXPECT_THAT(result.output, StartsWith("velmmenu " + command + " "));
        EXPECT_THAT(result.output, HasSubstr("Exit status: 0 "));
    }
}

TEST_F(ToolCommandLine, TellsItsVersion)
{
    const auto result = Run({L"--version"});
    EXPECT_EQ(0u, result.exitCode);
    EXPECT_EQ("velmmenu 22.0.0\n", result.output);
}

TEST_F(ToolCommandLine, WrongOnesAreToldOf)
{
    const std::wstring file = Write(L"a.xml", "<D/>");
    ExpectWrong({}, "a command is missing");
    ExpectWrong({L"draw"}, "unknown command draw");
    ExpectWrong({L"check"}, "the command is: velmmenu check FILE");
    ExpectWrong({L"check", file, file}, "the command is: velmmenu check FILE");
    ExpectWrong({L"check", L""}, "the command is: velmmenu check FILE");
    ExpectWrong({L"check", file, L"--foo"}, "check: unknown option --foo");
    ExpectWrong({L"check", file, L"--bitmaps"}, "check: --bitmaps needs a folder");
    ExpectWrong({L"check", file, L"--bitmaps="}, "check: --bitmaps needs a folder");
    ExpectWrong({L"show", file, L"--bitmaps", L"x"}, "show: unknown option --bitmaps");
    ExpectWrong({L"picture", file}, "the command is: velmmenu picture FILE OUT.png");
    ExpectWrong({L"new", L"a", L"b"}, "the command is: velmmenu new [FILE]");
}

TEST_F(ToolCommandLine, NamesBehindTwoDashesAreFiles)
{
    ExpectWrong({L"check", L"--", L"--help"}, "--help: cannot be opened");
}

} // namespace menutool
