// The host program itself with the add-in, as a user starts it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kit/ChildProgram.h"
#include "kit/Files.h"

namespace wholetest
{

using testing::HasSubstr;

class Program : public testing::Test
{
protected:
    testkit::ProgramResult Run(std::vector<std::wstring> arguments)
    {
        arguments.insert(arguments.begin(), {L"--batch", L"--no-register"});
        return testkit::RunProgram(testkit::ProgramFolder() / L"velmhost.exe", arguments);
    }
    const std::wstring SurveyFile = (testkit::ProgramFolder() / L"survey.xml").wstring();
    std::wstring Addin() { return (testkit::ProgramFolder() / L"SampleAddin.arx").wstring(); }
};

TEST_F(Program, PressesAnItemAndAButtonOfTheAddIn)
{
    const auto result = Run({L"--history", L"--press-item", L"Drafting|Draw|Arc|3 points", L"--press-button",
                             L"Drafting|Circle|Rectangle|Polygon", Addin()});
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(0u, result.exitCode);
    EXPECT_EQ("^C^CARC \n^C^CPOLYGON \n", result.output);
}

TEST_F(Program, GivesTheAddInASecondDescription)
{
    testkit::TempFolder folder;
    testkit::WriteBytes(folder / L"own.xml", "<a><Menus Name='Own'><Menu Name='Go' Cmd='GO'/></Menus></a>");
    const auto result = Run({L"--tree", L"--history", L"--press-item", L"Own|Go", Addin(), L"--",
                             L"--description", (folder / L"own.xml").wstring()});
    EXPECT_EQ(0u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("menu \"Own\" on bar"));
    EXPECT_THAT(result.output, HasSubstr("menu \"D&rafting\" on bar"));
    EXPECT_THAT(result.output, HasSubstr("GO \n"));
}

TEST_F(Program, ShowsTwoToolbarsWithTheSecondDescriptionOfTheSample)
{
    const auto result = Run({L"--tree", L"--history", L"--press-button", L"Survey|Area (m\u00B2)", Addin(),
                             L"--", L"--description", SurveyFile});
    EXPECT_EQ(0u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("toolbar \"Drafting\" visible"));
    EXPECT_THAT(result.output, HasSubstr("toolbar \"Survey\" visible"));
    EXPECT_THAT(result.output, HasSubstr("^C^CAREA \n"));
}

TEST_F(Program, SaysWhenTheDescriptionCannotBeRead)
{
    const auto result = Run({L"--tree", Addin(), L"--", L"--description", L"no such file.xml"});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("The description cannot be read:"));
    EXPECT_THAT(result.output, HasSubstr("menu \"D&rafting\" on bar"));
}

} // namespace wholetest
