// What `velmmenu show` prints.
#include "MenuToolTest.h"

#include "kit/SourceTree.h"

namespace menutool
{

using testing::HasSubstr;

class Show : public MenuToolTest
{
protected:
    testkit::ProgramResult Of(std::string_view text) { return Run({L"show", Write(L"a.xml", text)}); }
};

TEST_F(Show, PrintsTheWholeTree)
{
    const auto result =
        Of("<D><Menus Name='&amp;M'>"
           "<Menu Name='Heading'/><Menu/>"
           "<Menu Name='&amp;Draw' Help='h'><x Name='&amp;Line' Cmd='^C^CLINE' Help='Draws &quot;it&quot;'>"
           "<x Name='ignored'/></x></Menu>"
           "<Menu Name='Repeat' Cmd=''/></Menus>"
           "<Toolbars Name='T'><Toolbar Name='Separator'/>"
           "<Toolbar Cmd='LINE' ToolTip='A line' ImageList=' line '/>"
           "<Toolbar Name='B' Cmd='X' ToolTip='B' ImageList='b'>"
           "<x Cmd='Y' ToolTip='C' ImageList='sub\\c'/><x Name='no images'/></Toolbar>"
           "</Toolbars></D>");
    EXPECT_EQ(0u, result.exitCode);
    EXPECT_EQ("menu \"&M\"\n"
              "  item \"Heading\"\n"
              "  separator\n"
              "  cascade \"&Draw\"\n"
              "    item \"&Line\" macro \"^C^CLINE \" help \"Draws ^\"it^\"\"\n"
              "  item \"Repeat\" macro \" \"\n"
              "toolbar \"T\"\n"
              "  button tip \"A line\" macro \"LINE \" bitmaps line16.bmp line24.bmp\n"
              "  fly-out tip \"B\" macro \"X \" bitmaps b16.bmp b24.bmp\n"
              "    button tip \"B\" macro \"X \" bitmaps b16.bmp b24.bmp\n"
              "    button tip \"C\" macro \"Y \" bitmaps sub\\c16.bmp sub\\c24.bmp\n",
              result.output);
}

TEST_F(Show, PrintsTheSamplesDescription)
{
    const auto result = Of(testkit::SourceText(L"samples/SampleAddin/menus.xml"));
    EXPECT_EQ(0u, result.exitCode);
    EXPECT_THAT(result.output,
                testing::StartsWith("menu \"D&rafting\"\n"
                                    "  item \"Drafting tools\"\n"
                                    "  separator\n"
                                    "  cascade \"&Draw\"\n"
                                    "    item \"&Line\" macro \"^C^CLINE \" help \"Draws straight "
                                    "lines from point to point\"\n"));
    EXPECT_THAT(
        result.output,
        HasSubstr("      cascade \"&Tangent\"\n"
                  "        item \"Tangent, tangent, &radius\" macro \"^C^CCIRCLE TANGENT RADIUS \" help "
                  "\"Draws a circle that touches two objects\"\n"));
    EXPECT_THAT(result.output,
                HasSubstr("    fly-out tip \"Rectangle\" macro \"^C^CRECTANGLE \" bitmaps rectangle16.bmp "
                          "rectangle24.bmp\n"
                          "      button tip \"Rectangle\" macro \"^C^CRECTANGLE \" bitmaps rectangle16.bmp "
                          "rectangle24.bmp\n"
                          "      button tip \"Polygon\" macro \"^C^CPOLYGON \" bitmaps polygon16.bmp "
                          "polygon24.bmp\n"));
    EXPECT_THAT(result.output, testing::Not(HasSubstr("Not shown")));
    EXPECT_THAT(result.output, testing::Not(HasSubstr("Insert block")));
    // In the menu itself three; in Draw, its Circle, Modify and View one each. None on the toolbar.
    const Lines lines = SplitLines(result.output);
    EXPECT_EQ(7, std::count_if(lines.begin(), lines.end(),
                               [](const std::string& line) { return line.ends_with("separator"); }));
}

TEST_F(Show, TellsOfWhatTheHostRefusesAndShowsTheRest)
{
    const auto result = Of("<D><Menus Name='POP0'/>" + std::string(CleanToolBar) + "</D>");
    EXPECT_EQ(1u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("a.xml: the host says: Unable to Load Menu\n"));
    EXPECT_THAT(result.output, HasSubstr("toolbar \"T\"\n"));
    EXPECT_THAT(result.output, testing::Not(HasSubstr("menu \"POP0\"")));
}

} // namespace menutool
