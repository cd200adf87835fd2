// What `velmmenu check` says of attributes.
#include "MenuToolTest.h"

namespace menutool
{

using testing::ElementsAre;
using testing::IsEmpty;

using Attributes = MenuToolTest;

namespace
{

std::string OnMenu(const std::string& name)
{
    return "<Menu Name='A' Cmd='a' " + name + "='x'/>\n";
}

std::string OnToolBar(const std::string& name)
{
    return "<Toolbar Cmd='a' ImageList='a' " + name + "='x'/>\n";
}

} // namespace

TEST_F(Attributes, ThatDifferInCaseAreUnknown)
{
    EXPECT_THAT(
        CheckMenu(OnMenu("help")),
        ElementsAre("2: the attribute help is never read on an entry of the menu; did you mean Help?"));
    EXPECT_THAT(
        CheckToolBar(OnToolBar("Tooltip")),
        ElementsAre(
            "2: the attribute Tooltip is never read on an entry of the toolbar; did you mean ToolTip?"));
}

TEST_F(Attributes, ThatAreNearToOneSuggestIt)
{
    EXPECT_THAT(
        CheckToolBar(OnToolBar("ImagList")),
        ElementsAre(
            "2: the attribute ImagList is never read on an entry of the toolbar; did you mean ImageList?"));
    EXPECT_THAT(
        CheckToolBar(OnToolBar("Image")),
        ElementsAre(
            "2: the attribute Image is never read on an entry of the toolbar; did you mean ImageList?"));
    EXPECT_THAT(
        CheckMenu(OnMenu("Command")),
        ElementsAre("2: the attribute Command is never read on an entry of the menu; did you mean Cmd?"));
    EXPECT_THAT(
        CheckMenu(OnMenu("Nmae")),
        ElementsAre("2: the attribute Nmae is never read on an entry of the menu; did you mean Name?"));
}

TEST_F(Attributes, ThatAreNearToNoneSuggestNothing)
{
    EXPECT_THAT(CheckMenu(OnMenu("Colour")),
                ElementsAre("2: the attribute Colour is never read on an entry of the menu"));
}

TEST_F(Attributes, OfTheOtherKindOfEntryAreNeverRead)
{
    EXPECT_THAT(CheckMenu(OnMenu("ToolTip")),
                ElementsAre("2: the attribute ToolTip is never read on an entry of the menu; the text of the "
                            "status bar is Help"));
    EXPECT_THAT(CheckMenu(OnMenu("ImageList")),
                ElementsAre("2: the attribute ImageList is never read on an entry of the menu; menus have no "
                            "bitmaps"));
    EXPECT_THAT(CheckToolBar(OnToolBar("Help")),
                ElementsAre("2: the attribute Help is never read on an entry of the toolbar; the text of a "
                            "button is ToolTip"));
}

TEST_F(Attributes, OfAHolderAreNeverReadButForItsName)
{
    EXPECT_THAT(Check("<D>\n<Menus name='M' Name='M'><Menu Name='A' Cmd='a'/></Menus>\n" +
                      std::string(CleanToolBar) + "</D>"),
                ElementsAre("2: the attribute name is never read on a holder; did you mean Name?"));
}

TEST_F(Attributes, AreToldOfInTheLineInWhichTheyStand)
{
    EXPECT_THAT(CheckMenu("<Menu Name='A'\n"
                          "      Cmd='a > \"b\" ='\n"
                          "      Tip = \"'\" Icon\n"
                          "      ='x'/>\n"),
                ElementsAre("4: the attribute Tip is never read on an entry of the menu",
                            "4: the attribute Icon is never read on an entry of the menu"));
}

TEST_F(Attributes, OfNamespacesAndOfOtherElementsAreLeftAlone)
{
    EXPECT_THAT(Check("<D version='1' xmlns:x='urn:x'><Author mail='a@b'/>"
                      "<Menus Name='M' x:note='n'><Menu Name='A' Cmd='a' xml:lang='en' x:y='z'/></Menus>" +
                      std::string(CleanToolBar) + "</D>"),
                IsEmpty());
}

} // namespace menutool
