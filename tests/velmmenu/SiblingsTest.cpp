// What `velmmenu check` says of names and mnemonics of entries beside each other.
#include "MenuToolTest.h"

namespace menutool
{

using testing::ElementsAre;
using testing::IsEmpty;

using Siblings = MenuToolTest;

TEST_F(Siblings, ANameThatIsThereAlreadyIsToldOfWithItsLine)
{
    EXPECT_THAT(CheckMenu("<Menu Name='Line' Cmd='a'/>\n"
                          "<Menu Name='Arc' Cmd='b'/>\n"
                          "<Menu Name='LINE' Cmd='c'/>\n"),
                ElementsAre("4: \"LINE\" has the name of the entry in line 2"));
}

TEST_F(Siblings, TheMnemonicMarkDoesNotMakeANameAnother)
{
    EXPECT_THAT(CheckMenu("<Menu Name='&amp;Line' Cmd='a'/>\n<Menu Name='L&amp;ine' Cmd='b'/>\n"),
                ElementsAre("3: \"L&ine\" has the name of the entry in line 2"));
}

TEST_F(Siblings, NamesInOtherMenusDoNotCount)
{
    EXPECT_THAT(CheckMenu("<Menu Name='Line' Cmd='a'/>\n"
                          "<Menu Name='More' Help='h'><Menu Name='Line' Cmd='b'/></Menu>\n"),
                IsEmpty());
}

TEST_F(Siblings, AMnemonicIsUsedOnceInAMenu)
{
    EXPECT_THAT(CheckMenu("<Menu Name='&amp;Line' Cmd='a'/>\n"
                          "<Menu Name='Po&amp;lyline' Cmd='b'/>\n"
                          "<Menu Name='&amp;Arc' Cmd='c'/>\n"),
                ElementsAre("3: the mnemonic L of \"Po&lyline\" is that of \"&Line\" in line 2"));
}

TEST_F(Siblings, ADoubledMarkIsNoMnemonic)
{
    EXPECT_THAT(CheckMenu("<Menu Name='Fish &amp;&amp; &amp;Chips' Cmd='a'/>\n"
                          "<Menu Name='&amp;&amp;c&amp;hart' Cmd='b'/>\n"),
                IsEmpty());
}

TEST_F(Siblings, AnEntryWithoutMnemonicBesideOthersWithOneIsToldOf)
{
    EXPECT_THAT(CheckMenu("<Menu Name='&amp;Line' Cmd='a'/>\n<Menu Name='Arc' Cmd='b'/>\n"),
                ElementsAre("3: \"Arc\" has no mnemonic (&amp;), and entries beside it have one"));
}

TEST_F(Siblings, HeadingsNeedNoMnemonic)
{
    EXPECT_THAT(CheckMenu("<Menu Name='Lines'/>\n<Menu Name='&amp;Line' Cmd='a'/>\n"), IsEmpty());
}

TEST_F(Siblings, WhereNoEntryHasAMnemonicNoneIsMissed)
{
    EXPECT_THAT(CheckMenu("<Menu Name='Line' Cmd='a'/>\n<Menu Name='Arc' Cmd='b'/>\n"), IsEmpty());
}

TEST_F(Siblings, LabelsWithExpressionsOfTheHostAreLeftAlone)
{
    EXPECT_THAT(CheckMenu("<Menu Name='$(if,1,!.)&amp;Line' Cmd='a'/>\n"
                          "<Menu Name='$(if,1,!.)&amp;Line' Cmd='b'/>\n"
                          "<Menu Name='&amp;List' Cmd='c'/>\n"),
                IsEmpty());
}

TEST_F(Siblings, AButtonsNameThatIsThereAlreadyIsToldOf)
{
    EXPECT_THAT(CheckToolBar("<Toolbar Name='Line' Cmd='a' ImageList='a'/>\n"
                             "<Toolbar Name='line' Cmd='b' ImageList='b'/>\n"),
                ElementsAre("3: \"line\" has the name of the entry in line 2"));
}

} // namespace menutool
