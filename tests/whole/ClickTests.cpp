// From the description to the clicked item and button, and to what the host is sent.
#include "WholeTest.h"

namespace wholetest
{

using testing::ElementsAre;
using testing::IsEmpty;

class SampleAddin : public WholeTest
{
protected:
    SampleAddin() { EXPECT_TRUE(Load()); }
};

TEST_F(SampleAddin, MenuItemSendsItsCommandWithABlank)
{
    ClickMenu({L"Drafting", L"Draw", L"Line"});
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"LINE "));
}

TEST_F(SampleAddin, MenuItemDeepInACascadeSendsItsCommand)
{
    ClickMenu({L"Drafting", L"Draw", L"Circle", L"Tangent", L"Tangent, tangent, radius"});
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"CIRCLE TANGENT RADIUS "));
}

TEST_F(SampleAddin, MenuItemWithAUnicodeLabelSendsItsCommand)
{
    ClickMenu({L"Drafting", L"\u00DCbersicht / \u041E\u0431\u0437\u043E\u0440 / "
                            L"P\u0159ehled"});
    EXPECT_THAT(TakeSent(), ElementsAre(L"ZOOM OBJECTS "));
}

TEST_F(SampleAddin, MenuItemWithAnEmptyCommandSendsABlank)
{
    ClickMenu({L"Drafting", L"Repeat"});
    EXPECT_THAT(TakeSent(), ElementsAre(L" "));
}

TEST_F(SampleAddin, MenuItemWithANameAloneSendsNothing)
{
    ClickMenu({L"Drafting", L"Drafting tools"});
    EXPECT_THAT(TakeSent(), IsEmpty());
}

TEST_F(SampleAddin, ButtonSendsItsCommand)
{
    ClickButton(L"Drafting", L"Line");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"LINE "));
    ClickButton(L"Drafting", L"Zoom all");
    EXPECT_THAT(TakeSent(), IsEmpty());
}

TEST_F(SampleAddin, FlyoutButtonOpensItsToolbar)
{
    auto& flyouts = Host().MainFrame()->Toolbars().Flyouts();
    ClickButton(L"Drafting", L"Circle");
    EXPECT_THAT(TakeSent(), IsEmpty());
    ASSERT_EQ(1u, flyouts.Count());
    EXPECT_EQ(4, flyouts.At(0)->ItemCount());
    ClickButton(L"SubToolbar", L"Arc");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"ARC "));
    EXPECT_TRUE(flyouts.IsEmpty());
}

TEST_F(SampleAddin, FirstButtonOfAFlyoutSendsTheCommandOfItsEntry)
{
    ClickButton(L"Drafting", L"Circle");
    ClickButton(L"SubToolbar", L"Circle");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"CIRCLE "));
}

TEST_F(SampleAddin, FlyoutInAFlyoutSendsItsCommand)
{
    ClickButton(L"Drafting", L"Circle");
    ClickButton(L"SubToolbar", L"Rectangle");
    EXPECT_EQ(2u, Host().MainFrame()->Toolbars().Flyouts().Count());
    ClickButton(L"SubToolbar_2", L"Hatch");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"HATCH "));
}

TEST_F(SampleAddin, FlyoutsThatShareANameOpenEachItsOwn)
{
    ClickButton(L"Drafting", L"Linear dimension (\u00B1)");
    ClickButton(L"SubToolbar_3", L"Leader");
    ClickButton(L"Drafting", L"Zoom all");
    ClickButton(L"SubToolbar_4", L"Zoom window");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"NOTE ",
                                        L"ZOOM WINDOW "));
}

TEST_F(SampleAddin, CommandsStillWorkWhenItIsUnloaded)
{
    ASSERT_TRUE(Unload());
    ASSERT_EQ(nullptr, ::GetModuleHandleW(L"SampleAddin.arx"));
    ClickMenu({L"Drafting", L"Modify", L"Erase"});
    ClickButton(L"Drafting", L"Pan");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03"
                                        L"ERASE ",
                                        L"PAN "));
}

} // namespace wholetest
