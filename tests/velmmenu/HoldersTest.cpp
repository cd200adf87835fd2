// What `velmmenu check` says of holders, and of elements that are never looked at.
#include "MenuToolTest.h"

namespace menutool
{

using testing::ElementsAre;
using testing::IsEmpty;

class Holders : public MenuToolTest
{
protected:
    static std::string In(const std::string& inside) { return "<D>\n" + inside + "</D>"; }
    static inline const std::string MenuLine = std::string(CleanMenu) + "\n";
    static inline const std::string ToolBarLine = std::string(CleanToolBar) + "\n";
};

TEST_F(Holders, AreFoundWhereverTheyStand)
{
    EXPECT_THAT(Check(In("<Any><Thing>" + MenuLine + "</Thing></Any>" + ToolBarLine)), IsEmpty());
}

TEST_F(Holders, ThatAreMissingAreToldOfInTheLineOfTheRoot)
{
    EXPECT_THAT(Check("<!-- one -->\n" + In("")),
                ElementsAre("2: there is no Menus element: an empty menu without a name is built",
                            "2: there is no Toolbars element: an empty toolbar without a name is built"));
}

TEST_F(Holders, NeedAName)
{
    EXPECT_THAT(Check(In("<Menus><Menu Name='A' Cmd='a'/></Menus>\n"
                         "<Toolbars Name=''><Toolbar Cmd='a' ImageList='a'/></Toolbars>\n")),
                ElementsAre("2: without a Name the menu has none", "3: without a Name the toolbar has none"));
}

TEST_F(Holders, WithoutAnythingInThemAreToldOf)
{
    EXPECT_THAT(Check(In("<Menus Name='M'/>\n<Toolbars Name='T'></Toolbars>\n")),
                ElementsAre("2: there is no Menu element: an empty menu is built",
                            "3: there is no Toolbar element: an empty toolbar is built"));
}

TEST_F(Holders, TheNameOfASecondOneIsNotUsed)
{
    EXPECT_THAT(
        Check(In(MenuLine + "<Menus Name='N'><Menu Name='B' Cmd='b'/></Menus>\n" + ToolBarLine +
                 "<Toolbars><Toolbar Cmd='b' ImageList='b'/></Toolbars>\n")),
        ElementsAre("3: the Name of a second Menus element is not used; its entries go to the menu of "
                    "line 2"));
}

TEST_F(Holders, NamesOfFlyoutsAreKeptByTheHost)
{
    EXPECT_THAT(
        Check(In(MenuLine + "<Toolbars Name='subtoolbar_12'><Toolbar Cmd='a' ImageList='a'/></Toolbars>")),
        ElementsAre("3: the name \"subtoolbar_12\" is kept for toolbars of fly-outs"));
    EXPECT_THAT(
        Check(In(MenuLine + "<Toolbars Name='SubToolbars'><Toolbar Cmd='a' ImageList='a'/></Toolbars>")),
        IsEmpty());
}

TEST_F(Holders, WhatTheHostRefusesIsToldOfWithItsReason)
{
    const Lines findings = Check(In("<Menus Name='pop0'><Menu Name='A' Cmd='a'/></Menus>\n" + ToolBarLine));
    ASSERT_EQ(1u, findings.size());
    EXPECT_THAT(findings.front(), testing::StartsWith("2: the host does not build the whole menu: "));
}

TEST_F(Holders, ElementsOfOtherNamesInThemAreNotLookedAt)
{
    EXPECT_THAT(
        Check(In("<Menus Name='M'><Menu Name='A' Cmd='a'/>\n"
                 "<Item Name='B' Cmd='b'/>\n"
                 "<menu Name='C' Cmd='c'/>\n"
                 "<Group><Menu Name='D' Cmd='d'/><Menu/></Group></Menus>\n"
                 "<Toolbars Name='T'><Toolbar Cmd='a' ImageList='a'/>\n"
                 "<Button Cmd='b' ImageList='b'/></Toolbars>\n")),
        ElementsAre("3: the element Item is not looked at: the entries of Menus are called Menu",
                    "4: the element menu is not looked at: the entries of Menus are called Menu",
                    "5: the element Group is not looked at: the entries of Menus are called Menu (nor are "
                    "the 2 elements in it)",
                    "7: the element Button is not looked at: the entries of Toolbars are called "
                    "Toolbar"));
}

TEST_F(Holders, EntriesOutsideThemAreNotLookedAt)
{
    EXPECT_THAT(Check(In(MenuLine + ToolBarLine +
                         "<Menu Name='B' Cmd='b'/>\n"
                         "<Toolbar Cmd='b' ImageList='b'/>\n")),
                ElementsAre("4: the element Menu is not looked at: it does not stand in Menus",
                            "5: the element Toolbar is not looked at: it does not stand in Toolbars"));
}

TEST_F(Holders, ANameThatIsNearToTheirsSuggestsIt)
{
    EXPECT_THAT(Check(In(MenuLine + ToolBarLine + "<menus/>\n<ToolBars><Toolbar/></ToolBars>\n<Author/>\n")),
                ElementsAre("4: the element menus is not looked at; did you mean Menus?",
                            "5: the element ToolBars is not looked at; did you mean Toolbars? (nor is the "
                            "element in it)"));
}

TEST_F(Holders, AnElementAroundThemIsFreeInItsName)
{
    EXPECT_THAT(Check(In("<MenusAndToolbars>" + MenuLine + ToolBarLine + "</MenusAndToolbars>")), IsEmpty());
}

TEST_F(Holders, InANamespaceAreNotFound)
{
    EXPECT_THAT(
        Check(In("<x:Menus xmlns:x='urn:x' Name='M'/>\n" + MenuLine + ToolBarLine)),
        ElementsAre("2: the element Menus is in a namespace, and only elements without one are found"));
}

TEST_F(Holders, InAnEntryAddTheirEntriesAtTheTopAsWell)
{
    EXPECT_THAT(
        Check(In("<Menus Name='M'><Menu Name='A' Help='h'>\n"
                 "<Menus><Menu Name='B' Cmd='b'/></Menus></Menu></Menus>\n" +
                 ToolBarLine)),
        testing::Contains("3: the Menus element stands in an entry, whose own entries are added at the "
                          "top level as well"));
}

} // namespace menutool
