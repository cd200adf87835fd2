// What `velmmenu check` says of the entries of a menu.
#include "MenuToolTest.h"

namespace menutool
{

using testing::ElementsAre;
using testing::IsEmpty;

using MenuEntries = MenuToolTest;

TEST_F(MenuEntries, ItemsCascadesSeparatorsAndHeadingsAreClean)
{
    EXPECT_THAT(CheckMenu("<Menu Name='A heading'/>\n"
                          "<Menu/>\n"
                          "<Menu Name='&amp;Draw' Help='Objects'>\n"
                          "  <Item Name='&amp;Line' Cmd='LINE' Help='Draws'/>\n"
                          "  <!-- a comment -->\n"
                          "  <Anything Name='&amp;Arc' Cmd='ARC'/>\n"
                          "</Menu>\n"
                          "<Menu Name='&amp;Repeat' Cmd='' Help='Repeats'/>\n"),
                IsEmpty());
}

TEST_F(MenuEntries, ACascadeWithoutEntriesIsTakenForAnItemWithoutCommand)
{
    EXPECT_THAT(
        CheckMenu("<Menu Name='A' Cmd='A'/>\n"
                  "<Menu Name='Line' Help='Draws a line'/>\n"
                  "<Menu Name='Arc' Help='Draws an arc'><!-- nothing --></Menu>\n"),
        ElementsAre("3: \"Line\" has Help and no Cmd, which makes it a cascade, and it has no entries; "
                    "an item needs Cmd",
                    "4: \"Arc\" has Help and no Cmd, which makes it a cascade, and it has no entries; "
                    "an item needs Cmd"));
}

TEST_F(MenuEntries, EntriesInAnItemAreIgnored)
{
    EXPECT_THAT(CheckMenu("<Menu Name='Line' Cmd='LINE' Help='h'>\n"
                          "  <Menu Name='x' Cmd='x'/>\n"
                          "</Menu>\n"
                          "<Menu Name='Arcs'>\n"
                          "  <Menu Name='y' Help='h'><Menu Name='z' Cmd='z'/></Menu>\n"
                          "</Menu>\n"),
                ElementsAre("2: \"Line\" has Cmd, which makes it an item; the element in it will be ignored",
                            "5: \"Arcs\" has no Help, which a cascade needs; the 2 elements in it will be "
                            "ignored"));
}

TEST_F(MenuEntries, WhatIsIgnoredIsNotChecked)
{
    EXPECT_THAT(
        CheckMenu("<Menu Name='Line' Cmd='LINE'><Menu Foo='x'/></Menu>\n"),
        ElementsAre("2: \"Line\" has Cmd, which makes it an item; the element in it will be ignored"));
}

TEST_F(MenuEntries, ASeparatorAtTheBeginningIsLeftOut)
{
    EXPECT_THAT(CheckMenu("<Menu/>\n"
                          "<Menu Name='A' Help='h'>\n"
                          "  <Menu/>\n"
                          "  <Menu Name='B' Cmd='b'/>\n"
                          "</Menu>\n"),
                ElementsAre("2: a separator at the beginning of a menu is left out",
                            "4: a separator at the beginning of a menu is left out"));
}

TEST_F(MenuEntries, OfSeparatorsInARowTheFirstStays)
{
    EXPECT_THAT(CheckMenu("<Menu Name='A' Cmd='a'/>\n"
                          "<Menu/>\n"
                          "<Menu Name=''/>\n"
                          "<Menu/>\n"
                          "<Menu Name='B' Cmd='b'/>\n"),
                ElementsAre("4: a separator behind another one is left out",
                            "5: a separator behind another one is left out"));
}

TEST_F(MenuEntries, ASeparatorAtTheEndSeparatesNothing)
{
    EXPECT_THAT(CheckMenu("<Menu Name='A' Cmd='a'/>\n<Menu/>\n"),
                ElementsAre("3: a separator at the end of a menu separates nothing"));
}

TEST_F(MenuEntries, ANameOfASeparatorIsShownAsAnItem)
{
    EXPECT_THAT(CheckMenu("<Menu Name='A' Cmd='a'/>\n"
                          "<Menu Name='separator'/>\n"
                          "<Menu Name='B' Cmd='b'/>\n"
                          "<Menu Name='--'/>\n"
                          "<Menu Name='-' Cmd='minus'/>\n"),
                ElementsAre("3: \"separator\" is shown as an item of that name; a separator is an entry "
                            "without any attribute",
                            "5: \"--\" is shown as an item of that name; a separator is an entry without any "
                            "attribute"));
}

TEST_F(MenuEntries, AnEntryThatIsNoSeparatorNeedsAName)
{
    EXPECT_THAT(CheckMenu("<Menu Cmd='a'/>\n"
                          "<Menu Name='' Help='h'><Menu Name='B' Cmd='b'/></Menu>\n"),
                ElementsAre("2: without a Name the entry is shown without a label",
                            "3: without a Name the entry is shown without a label"));
}

TEST_F(MenuEntries, EntriesOfAllHoldersAndOfEveryDepthAreChecked)
{
    EXPECT_THAT(
        Check("<D><Menus Name='M'><Menu Name='A' Help='h'><x Name='B' Help='h'>\n"
              "<x Name='C' Help='h'/></x></Menu></Menus>\n"
              "<Menus><Menu Name='D' Help='h'/></Menus>" +
              std::string(CleanToolBar) + "</D>"),
        ElementsAre("2: \"C\" has Help and no Cmd, which makes it a cascade, and it has no entries; an "
                    "item needs Cmd",
                    "3: \"D\" has Help and no Cmd, which makes it a cascade, and it has no entries; an "
                    "item needs Cmd"));
}

TEST_F(MenuEntries, TheLineIsThatOfTheBeginningOfTheTag)
{
    EXPECT_THAT(
        CheckMenu("<Menu Name='A' Cmd='a'/><Menu\n"
                  "  Name='\xC3\x9C &gt; &#x41E;'\n"
                  "  Help='>'/> <Menu Name='B' Cmd='b'/>\n"),
        ElementsAre("2: \"\xC3\x9C > \xD0\x9E\" has Help and no Cmd, which makes it a cascade, and it has "
                    "no entries; an item needs Cmd"));
}

TEST_F(MenuEntries, WhatTheHostHasNoRoomForIsToldOf)
{
    std::string entries = "<Menu Name='Last cascade' Help='h'>";
    for (int i = 0; i < 998; ++i)
        entries += "<x Name='" + std::to_string(i) + "' Cmd='x'/>";
    entries += "</Menu>\n<Menu Name='One too many' Cmd='x'/>\n";
    EXPECT_THAT(CheckMenu(entries), ElementsAre("3: the host has no room for \"One too many\""));
}

} // namespace menutool
