// What `velmmenu check` says of the entries of a toolbar.
#include "MenuToolTest.h"

namespace menutool
{

using testing::ElementsAre;
using testing::IsEmpty;

using ToolBarEntries = MenuToolTest;

TEST_F(ToolBarEntries, ButtonsAndFlyoutsAreClean)
{
    EXPECT_THAT(CheckToolBar("<Toolbar Name='A' Cmd='a' ToolTip='A' ImageList=' a '/>\n"
                             "<Toolbar Cmd='' ImageList='b'>\n"
                             "  <!-- beside an entry -->\n"
                             "  <Button Cmd='c' ImageList='c'><x Cmd='d' ImageList='round/d'/></Button>\n"
                             "</Toolbar>\n"),
                IsEmpty());
}

TEST_F(ToolBarEntries, WithoutImageListNothingIsBuilt)
{
    EXPECT_THAT(CheckToolBar("<Toolbar Name='A' Cmd='a'/>\n"
                             "<Toolbar Name='B' Cmd='b' ImageList=''>\n"
                             "  <x Name='C'/><x Name='D'/>\n"
                             "</Toolbar>\n"),
                ElementsAre("2: without ImageList no button is built",
                            "3: with an empty ImageList no button is built; the 2 elements in it will be "
                            "ignored"));
}

TEST_F(ToolBarEntries, ABlankImageListNamesTheSizesAlone)
{
    EXPECT_THAT(CheckToolBar("<Toolbar Cmd='a' ImageList='  '/>\n"),
                ElementsAre("2: ImageList is blank: the bitmaps are called 16.bmp and 24.bmp"));
}

TEST_F(ToolBarEntries, ASeparatorAddsNothingInAnyCase)
{
    EXPECT_THAT(
        CheckToolBar("<Toolbar Name='Separator'/>\n"
                     "<Toolbar Name='SEPARATOR' Cmd='a' ImageList='a'>\n"
                     "  <x Cmd='b' ImageList='b'/>\n"
                     "</Toolbar>\n"
                     "<Toolbar Name='separator'/>\n"),
        ElementsAre("2: an entry called Separator adds nothing to a toolbar",
                    "3: an entry called Separator adds nothing to a toolbar; the element in it will be "
                    "ignored",
                    "6: an entry called Separator adds nothing to a toolbar"));
}

TEST_F(ToolBarEntries, ACommentOrTextAloneMakesAFlyout)
{
    const std::string text = "a comment or text in the entry makes it a fly-out, which has nothing but the "
                             "entry's own button";
    EXPECT_THAT(CheckToolBar("<Toolbar Cmd='a' ImageList='a'><!-- a --></Toolbar>\n"
                             "<Toolbar Cmd='b' ImageList='b'>b</Toolbar>\n"
                             "<Toolbar Cmd='c' ImageList='c'>\n</Toolbar>\n"),
                ElementsAre("2: " + text, "3: " + text));
}

TEST_F(ToolBarEntries, AButtonNeedsACommand)
{
    EXPECT_THAT(CheckToolBar("<Toolbar ToolTip='A' ImageList='a'/>\n"),
                ElementsAre("2: without Cmd the button sends nothing"));
}

TEST_F(ToolBarEntries, AFlyoutBeginsWithItsOwnButtonAlready)
{
    EXPECT_THAT(CheckToolBar("<Toolbar Cmd='a' ImageList='a'>\n"
                             "  <x Cmd='a' ImageList=' a'/>\n"
                             "  <x Cmd='b' ImageList='a'/>\n"
                             "</Toolbar>\n"),
                ElementsAre("3: the fly-out begins with this button already: the entry that opens it is its "
                            "first one"));
}

TEST_F(ToolBarEntries, BitmapsStayInTheirFolder)
{
    EXPECT_THAT(CheckToolBar("<Toolbar Cmd='a' ImageList='../a'/>\n"
                             "<Toolbar Cmd='b' ImageList='x\\..\\..\\b'/>\n"
                             "<Toolbar Cmd='c' ImageList='C:\\c'/>\n"
                             "<Toolbar Cmd='d' ImageList='\\d'/>\n"
                             "<Toolbar Cmd='e' ImageList='/e'/>\n"
                             "<Toolbar Cmd='f' ImageList='sub\\f..'/>\n"),
                ElementsAre("2: the bitmaps \"../a\" lie outside the folder Bmps",
                            "3: the bitmaps \"x\\..\\..\\b\" lie outside the folder Bmps",
                            "4: the bitmaps \"C:\\c\" lie outside the folder Bmps",
                            "5: the bitmaps \"\\d\" lie outside the folder Bmps",
                            "6: the bitmaps \"/e\" lie outside the folder Bmps"));
}

} // namespace menutool
