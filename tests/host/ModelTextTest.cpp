#include "ModelFixture.h"
#include "model/MenuText.h"
#include "model/ModelPrinter.h"

using namespace hosttest;
using namespace velmhost;

TEST(MenuText, MnemonicMarksAreDropped)
{
    EXPECT_EQ(WithoutMnemonic(L"&Edit"), L"Edit");
    EXPECT_EQ(WithoutMnemonic(L"E&dit"), L"Edit");
    EXPECT_EQ(WithoutMnemonic(L"Edit"), L"Edit");
    EXPECT_EQ(WithoutMnemonic(L""), L"");
}

TEST(MenuText, TwoMarksAreOneAmpersand)
{
    EXPECT_EQ(WithoutMnemonic(L"A && B"), L"A & B");
    EXPECT_EQ(WithoutMnemonic(L"&&&A"), L"&A");
}

TEST(MenuText, MarkAtTheEndIsDropped)
{
    EXPECT_EQ(WithoutMnemonic(L"A&"), L"A");
    EXPECT_EQ(WithoutMnemonic(L"&"), L"");
}

TEST(MenuText, CaptionLeavesExpressionsOut)
{
    EXPECT_EQ(CaptionOf(L"$(if,1,~)&Line"), L"Line");
    EXPECT_EQ(CaptionOf(L"&A$(f,$(g,(x)),y)B$C"), L"AB$C");
    EXPECT_EQ(CaptionOf(L"A$(never"), L"A");
    EXPECT_EQ(CaptionOf(L"A$"), L"A$");
}

TEST(MenuText, NamesAreTheSameInAnyCase)
{
    EXPECT_TRUE(SameName(L"&Tools", L"&TOOLS"));
    EXPECT_TRUE(SameName(L"\x00c9t\x00e9", L"\x00e9T\x00c9"));
    EXPECT_FALSE(SameName(L"&Tools", L"Tools"));
    EXPECT_FALSE(SameName(L"a", L"ab"));
    EXPECT_TRUE(SameName(L"", L""));
    EXPECT_TRUE(SameName({}, L""));
    EXPECT_FALSE(SameName({}, L"a"));
}

TEST(ModelPrinter, ControlCharactersBecomeVisible)
{
    EXPECT_EQ(VisibleText(L"\x03\x1B_line \r\x7F"), L"^C^[_line ^M^?");
    EXPECT_EQ(VisibleText(L"^C\"x\""), L"^^C^\"x^\"");
    EXPECT_EQ(VisibleText(L"\x00e9"), L"\x00e9");
}

TEST(ModelPrinter, EmptyModelShowsItsGroup)
{
    HostModel model;
    EXPECT_EQ(PrintModel(model), L"menu bar:\n"
                                 L"large buttons: no\n"
                                 L"group \"BASE\" base\n");
}

TEST(ModelPrinter, WholeTreeIsShown)
{
    HostModel model;
    const ElementId base = model.Groups()[0]->id;
    const ElementId tools = model.AddMenu(base, L"&Tools").id;
    model.SetMenuItemHelp(model.AddMenuItem(tools, kAtEnd, L"&Line", L"\x03\x03_line ")->id, L"Draws a line");
    model.AddMenuSeparator(tools, kAtEnd);
    const ElementId more = model.AddSubMenu(tools, kAtEnd, L"&More")->subMenu->id;
    const ElementId a = model.AddMenuItem(more, kAtEnd, L"A", L"a ")->id;
    model.SetMenuItemEnabled(a, false);
    model.SetMenuItemChecked(a, true);
    model.AddMenu(base, L"POP0");
    model.InsertInMenuBar(tools, kAtEnd);
    const ElementId draw = model.AddToolbar(base, L"Draw").id;
    const ElementId drop = model.AddToolbar(base, L"SubToolbar").id;
    const ElementId line =
        model.AddToolbarButton(draw, kAtEnd, L"Line", L"Draws a line", L"_line ", false).id;
    model.SetToolbarItemBitmaps(line, L"l16.bmp", L"l24.bmp");
    model.AddToolbarSeparator(draw, kAtEnd);
    const ElementId flyout = model.AddToolbarButton(draw, kAtEnd, L"More", L"", L"x", true).id;
    model.AttachFlyout(flyout, L"BASE", L"SubToolbar");
    model.DockToolbar(drop, DockStatus::Top);
    model.SetToolbarVisible(drop, false);
    model.SetLargeButtons(true);
    model.AddGroup(L"EXTRA", MenuGroupType::Partial, L"c:\\e.txt");

    EXPECT_EQ(PrintModel(model),
              L"menu bar: \"&Tools\"\n"
              L"large buttons: yes\n"
              L"group \"BASE\" base\n"
              L"  menu \"&Tools\" on bar\n"
              L"    item \"&Line\" macro \"^C^C_line \" help \"Draws a line\"\n"
              L"    separator\n"
              L"    submenu \"&More\"\n"
              L"      item \"A\" macro \"a \" disabled checked\n"
              L"  menu \"POP0\" shortcut\n"
              L"  toolbar \"Draw\" visible floating\n"
              L"    button \"Line\" macro \"_line \" help \"Draws a line\" bitmaps \"l16.bmp\" \"l24.bmp\"\n"
              L"    separator\n"
              L"    flyout \"More\" macro \"x\" opens \"SubToolbar\"\n"
              L"  toolbar \"SubToolbar\" hidden top\n"
              L"group \"EXTRA\" partial file \"c:\\e.txt\"\n");
}
