// The builder from a text: what it asks of the companion, in which order, when nothing fails.
#include "HostMenuTest.h"
#include "HostProgram.h"

#include <thread>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class MenuToolBar : public HostMenuTest
{
protected:
    void SetUp() override
    {
        HostMenuTest::SetUp();
        recording::NameApplication(ApplicationDispatch());
        m_applicationReferences = ApplicationReferences();
    }

    void TearDown() override
    {
        EXPECT_EQ(ApplicationReferences(), m_applicationReferences);
        HostMenuTest::TearDown();
    }

    static std::vector<std::wstring> Built(const std::wstring& text,
                                           const std::wstring& moduleName = ProgramName())
    {
        Build(text, moduleName);
        return recording::Log();
    }

private:
    long m_applicationReferences = 0;
};

const wchar_t NoModule[] = L"NoSuchModule.arx";

} // namespace

TEST_F(MenuToolBar, BuildsTheMenuAndThenTheToolbar)
{
    EXPECT_THAT(Built(LR"(<?xml version="1.0"?>
        <Addin>
          <Toolbars Name="Tools bar">
            <Toolbar Name="Line" Cmd="LINE" ToolTip="Draws" ImageList="line"/>
          </Toolbars>
          <Menus Name="&amp;Tools">
            <Menu Name="Draw" Help="Drawing">
              <Menu Name="Line" Cmd="LINE" Help="l"/>
            </Menu>
            <Menu Name="Erase" Cmd="ERASE"/>
          </Menus>
        </Addin>)"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "&Tools"))",
                            LR"(submenu2 = Append_SubMenu(menu1, "Draw"))",
                            LR"(Append_MenuItem(submenu2, "Line", "LINE ", "l", true, false))",
                            LR"(Append_MenuItem(menu1, "Erase", "ERASE ", null, true, false))",
                            LR"(toolbar3 = Create_ACADToolBar(app, "Tools bar"))",
                            ButtonLine(L"toolbar3", LR"("LINE ")", LR"("Draws")", L"line"),
                            L"SetVisible(toolbar3, 1)"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(MenuToolBar, MakesMenuAndToolbarWithEmptyNamesOfADocumentWithoutEither)
{
    EXPECT_THAT(Built(L"<r/>"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, ""))",
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))", L"SetVisible(toolbar2, 1)"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(MenuToolBar, MakesMenuAndToolbarWithEmptyNamesWithoutAName)
{
    EXPECT_THAT(Built(LR"(<r><Menus Title="t"/><Toolbars/></r>)"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, ""))",
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))", L"SetVisible(toolbar2, 1)"));
}

TEST_F(MenuToolBar, DoesNotCarryTheMenusNameOverToTheToolbar)
{
    EXPECT_THAT(Built(LR"(<r><Menus Name="m"/></r>)"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))",
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))", L"SetVisible(toolbar2, 1)"));
}

TEST_F(MenuToolBar, TakesNamesFromTheFirstAndEntriesFromEveryHolder)
{
    EXPECT_THAT(Built(LR"(
        <r>
          <a><Menus Name="first"><Menu Name="1"/></Menus></a>
          <Menus Name="second"><Menu Name="2"/><Other Name="no"/></Menus>
          <b><Toolbars><Toolbar ImageList="i"/></Toolbars></b>
          <Toolbars Name="second"><Toolbar ImageList="j"/><Menu ImageList="no"/></Toolbars>
        </r>)"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "first"))",
                            ItemLine(L"menu1", LR"("1")", L"null", L"null"),
                            ItemLine(L"menu1", LR"("2")", L"null", L"null"),
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"i"),
                            ButtonLine(L"toolbar2", L"null", L"null", L"j"), L"SetVisible(toolbar2, 1)"));
}

TEST_F(MenuToolBar, TakesOnlyDirectChildrenOfAHolderAsTopLevelEntries)
{
    EXPECT_THAT(Built(LR"(
        <r>
          <Menu Name="outside"/>
          <Menus Name="m">
            <Group><Menu Name="too deep"/></Group>
            <Menu Name="c" Help="h"><Menu Name="nested"/></Menu>
          </Menus>
          <Toolbar ImageList="outside"/>
        </r>)"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))",
                            LR"(submenu2 = Append_SubMenu(menu1, "c"))",
                            ItemLine(L"submenu2", LR"("nested")", L"null", L"null"),
                            LR"(toolbar3 = Create_ACADToolBar(app, ""))", L"SetVisible(toolbar3, 1)"));
}

TEST_F(MenuToolBar, FindsTheRootElementItselfAsAHolder)
{
    EXPECT_THAT(Built(LR"(<Menus Name="root"><Menu Name="1"/></Menus>)", NoModule),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "root"))",
                            ItemLine(L"menu1", LR"("1")", L"null", L"null")));
}

TEST_F(MenuToolBar, FindsAHolderInsideAnEntry)
{
    EXPECT_THAT(Built(LR"(
        <r><Menus Name="m">
          <Menu Name="c" Help="h"><Menus Name="n"><Menu Name="x"/></Menus></Menu>
        </Menus></r>)",
                      NoModule),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))",
                            LR"(submenu2 = Append_SubMenu(menu1, "c"))",
                            // The inner holder is an entry of the cascade, and its entry one of the menu.
                            ItemLine(L"submenu2", LR"("n")", L"null", L"null"),
                            ItemLine(L"menu1", LR"("x")", L"null", L"null")));
}

TEST_F(MenuToolBar, LeavesTheToolbarOutInSilenceForAModuleThatIsNotLoaded)
{
    EXPECT_THAT(Built(LR"(
        <r><Menus Name="m"><Menu Name="1"/></Menus><Toolbars><Toolbar ImageList="i"/></Toolbars></r>)",
                      NoModule),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))",
                            ItemLine(L"menu1", LR"("1")", L"null", L"null")));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(MenuToolBar, TakesThePathOfAModuleThatIsNotLoaded)
{
    EXPECT_THAT(Built(LR"(<r><Toolbars><Toolbar ImageList="i"/></Toolbars></r>)", LR"(D:\Apps\Tool.arx)"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, ""))",
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"i", L"null", LR"(D:\Apps\)"),
                            L"SetVisible(toolbar2, 1)"));
}

TEST_F(MenuToolBar, TakesANullModuleNameForTheRunningProgram)
{
    Append_MenuToolBar(CString(LR"(<r><Toolbars><Toolbar ImageList="i"/></Toolbars></r>)"), nullptr);
    EXPECT_THAT(recording::Log(),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, ""))",
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"i"), L"SetVisible(toolbar2, 1)"));
}

TEST_F(MenuToolBar, LeavesTheModuleNameAsItWas)
{
    std::wstring moduleName = ProgramName();
    Append_MenuToolBar(CString(L"<r/>"), moduleName.data());
    EXPECT_EQ(moduleName, ProgramName());
}

TEST_F(MenuToolBar, ShowsThatMalformedTextIsNotLoadedAndMakesNothing)
{
    size_t shown = 0;
    for (const wchar_t* text : {L"", L"   ", L"plain", L"<r>", L"<r></s>", L"<r a=b/>", L"<r a='1' a='2'/>"})
    {
        Build(text);
        ASSERT_EQ(m_boxes.Boxes().size(), ++shown) << testkit::Utf8(text);
        EXPECT_EQ(m_boxes.Boxes().back().text, L"MenuToolbar XML is not loaded");
        EXPECT_EQ(m_boxes.Boxes().back().buttons.size(), 1u);
    }
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(MenuToolBar, DoesNotTrimTheText)
{
    Build(LR"( <?xml version="1.0"?><r/>)");
    EXPECT_THAT(Messages(), ElementsAre(L"MenuToolbar XML is not loaded"));
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(MenuToolBar, ShowsItsMessageAsAPlainBoxOfTheProgram)
{
    Build(L"<r>");
    AfxMessageBox(L"MenuToolbar XML is not loaded");
    ASSERT_EQ(m_boxes.Boxes().size(), 2u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, m_boxes.Boxes()[1].text);
    EXPECT_EQ(m_boxes.Boxes()[0].caption, m_boxes.Boxes()[1].caption);
    EXPECT_EQ(m_boxes.Boxes()[0].icon, m_boxes.Boxes()[1].icon);
    EXPECT_EQ(m_boxes.Boxes()[0].buttons, m_boxes.Boxes()[1].buttons);
}

TEST_F(MenuToolBar, MakesPlainButtonsOfElementsWithNothingButBlanksInside)
{
    EXPECT_THAT(Built(L"<r><Toolbars><Toolbar ImageList=\"i\"> \r\n\t </Toolbar></Toolbars></r>"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, ""))",
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"i"), L"SetVisible(toolbar2, 1)"));
}

TEST_F(MenuToolBar, TakesDocumentsWithADeclarationCommentsAndInstructions)
{
    EXPECT_THAT(Built(LR"(<?xml version="1.0" encoding="UTF-8"?><!-- c --><?host data?>
        <r><!-- c --><Menus Name="m"><!-- c --><Menu Name="1"/>text</Menus></r><!-- c -->)",
                      NoModule),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))",
                            ItemLine(L"menu1", LR"("1")", L"null", L"null")));
    recording::Reset();
    recording::NameApplication(ApplicationDispatch());
    EXPECT_THAT(Built(LR"(<?xml version="1.0" encoding="UTF-16"?><r><Menus Name="m"/></r>)", NoModule),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))"));
}

TEST_F(MenuToolBar, TakesTheTextUpToItsFirstZero)
{
    std::wstring moduleName = NoModule;
    const std::wstring text = std::wstring(L"<r><Menus Name=\"m\"/></r>") + L'\0' + L" <not part of it>";
    Append_MenuToolBar(CString(text.data(), static_cast<int>(text.size())), moduleName.data());
    EXPECT_THAT(recording::Log(), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(MenuToolBar, TakesHoldersNamesBeyondAscii)
{
    EXPECT_THAT(Built(L"<r><Menus Name=\"\U0001F600 \u05E9\u6F22\"/></r>", NoModule),
                ElementsAre(L"menu1 = Create_ACADMenu(app, \"\U0001F600 \u05E9\u6F22\")"));
}

TEST_F(MenuToolBar, TellsElementNamesApartByCase)
{
    EXPECT_THAT(
        Built(LR"(<r><menus Name="m"><Menu Name="1"/></menus><Menus Name="n"><menu Name="2"/></Menus></r>)",
              NoModule),
        ElementsAre(LR"(menu1 = Create_ACADMenu(app, "n"))"));
}

TEST_F(MenuToolBar, BuildsTenThousandEntriesInOrder)
{
    std::wstring text = LR"(<r><Menus Name="m">)";
    for (int i = 0; i < 10'000; ++i)
        text += L"<Menu Name=\"" + std::to_wstring(i) + L"\" Cmd=\"C\"/>";
    text += L"</Menus><Toolbars Name=\"t\">";
    for (int i = 0; i < 10'000; ++i)
        text += L"<Toolbar Cmd=\"" + std::to_wstring(i) + L"\" ImageList=\"i\"/>";
    text += L"</Toolbars></r>";
    const std::vector<std::wstring> log = Built(text);
    ASSERT_EQ(log.size(), 20'003u);
    for (int i = 0; i < 10'000; ++i)
        ASSERT_EQ(log[1 + i], ItemLine(L"menu1", InQuotes(std::to_wstring(i)), LR"("C ")", L"null"));
    for (int i = 0; i < 10'000; ++i)
        ASSERT_EQ(log[10'002 + i],
                  ButtonLine(L"toolbar2", InQuotes(std::to_wstring(i) + L" "), L"null", L"i"));
    EXPECT_EQ(log.back(), L"SetVisible(toolbar2, 1)");
}

TEST_F(MenuToolBar, BuildsTwoHundredLevels)
{
    std::wstring menus = LR"(<Menu Name="leaf"/>)";
    std::wstring toolbars = LR"(<Toolbar ImageList="leaf"/>)";
    for (int i = 0; i < 200; ++i) {
        menus = LR"(<Menu Name="x" Help="h">)" + menus + L"</Menu>";
        toolbars = LR"(<Toolbar ImageList="x">)" + toolbars + L"</Toolbar>";
    }
    const std::vector<std::wstring> log =
        Built(L"<r><Menus>" + menus + L"</Menus><Toolbars>" + toolbars + L"</Toolbars></r>");
    EXPECT_EQ(log.size(), 1u + 201 + 1 + 200 * 4 + 1 + 1);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(MenuToolBar, KeepsNothingBetweenCalls)
{
    Build(LR"(<r><Menus Name="first"/></r>)", NoModule);
    Build(L"<r/>", NoModule);
    EXPECT_THAT(recording::Log(), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "first"))",
                                              LR"(menu2 = Create_ACADMenu(app, ""))"));
}

TEST_F(MenuToolBar, GoesOnWithTheEmptyWrappersWhenTheCompanionGivesNull)
{
    recording::ReturnNullInCall(1);
    recording::ReturnNullInCall(3);
    EXPECT_THAT(
        Built(LR"(<r><Menus><Menu Name="1"/></Menus><Toolbars><Toolbar ImageList="i"/></Toolbars></r>)"),
        ElementsAre(LR"(menu1 = Create_ACADMenu(app, ""))", ItemLine(L"null", LR"("1")", L"null", L"null"),
                    LR"(toolbar1 = Create_ACADToolBar(app, ""))", ButtonLine(L"null", L"null", L"null", L"i"),
                    L"SetVisible(null, 1)"));
}

TEST_F(MenuToolBar, HoldsMenuAndToolbarWhileEntriesAreAdded)
{
    std::vector<long> ofTheMenu;
    std::vector<long> ofTheToolbar;
    for (const int call : {2, 3, 4})
        recording::InCall(call, [&] { ofTheMenu.push_back(recording::References()[L"menu1"]); });
    for (const int call : {5, 6, 7})
        recording::InCall(call, [&] { ofTheToolbar.push_back(recording::References()[L"toolbar2"]); });
    Build(LR"(<r><Menus><Menu/><Menu/></Menus>
              <Toolbars><Toolbar ImageList="i"/><Toolbar ImageList="j"/></Toolbars></r>)");
    // For each entry that of the builder, that of the entry's call and that of the companion.
    EXPECT_THAT(ofTheMenu, ElementsAre(3, 3, 0));    // the menu is done with when the toolbar is made
    EXPECT_THAT(ofTheToolbar, ElementsAre(3, 3, 1)); // while it is shown, the builder's alone
}

TEST_F(MenuToolBar, InitialisesComAndLeavesItInitialised)
{
    HRESULT afterwards = E_FAIL;
    std::wstring moduleName = NoModule;
    std::thread thread([&] {
        try {
            Append_MenuToolBar(CString(LR"(<r><Menus Name="m"/></r>)"), moduleName.data());
            afterwards = CoInitialize(nullptr);
            CoUninitialize();
            CoUninitialize();
        } catch (const _com_error& e) {
            afterwards = e.Error();
        }
    });
    thread.join();
    EXPECT_EQ(afterwards, S_FALSE);
    EXPECT_THAT(recording::Log(), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))"));
}

TEST_F(MenuToolBar, WorksOnAThreadOfTheOtherApartmentKind)
{
    std::wstring moduleName = NoModule;
    std::thread thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        Append_MenuToolBar(CString(LR"(<r><Menus Name="m"/></r>)"), moduleName.data());
        CoUninitialize();
    });
    thread.join();
    EXPECT_THAT(recording::Log(), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))"));
}
