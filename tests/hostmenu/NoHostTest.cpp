// The builder in a program that is no host: it exports no application object.
#include "HostMenuTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class NoHost : public HostMenuTest
{
};

const wchar_t Description[] =
    LR"(<r><Menus Name="m"><Menu Name="1"/></Menus><Toolbars><Toolbar ImageList="i"/></Toolbars></r>)";

} // namespace

TEST_F(NoHost, LoadsTheLibraryAllTheSame)
{
    EXPECT_NE(GetModuleHandleW(L"VelmUtil22.dll"), nullptr);
    EXPECT_EQ(GetProcAddress(GetModuleHandleW(nullptr), "acedGetAcadWinApp"), nullptr);
}

TEST_F(NoHost, IsReportedInBothPhases)
{
    Build(Description);
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Menu", L"The host application is not available.",
                            L"Unable to Load Toolbar", L"The host application is not available."));
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(NoHost, IsReportedOnceWhenTheModuleIsNotLoaded)
{
    Build(Description, L"NoSuchModule.arx");
    EXPECT_THAT(Messages(), ElementsAre(L"Unable to Load Menu", L"The host application is not available."));
}

TEST_F(NoHost, IsReportedInBothPhasesOfABuildFromAResource)
{
    const HMODULE addin = LoadLibraryW((ProgramFolder() + L"addin\\hostmenu_addin.arx").c_str());
    ASSERT_NE(addin, nullptr);
    std::wstring moduleName = L"hostmenu_addin.arx";
    Append_MenuToolBar(101, CString(L"DESCRIPTION"), moduleName.data());
    FreeLibrary(addin);
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Menu", L"The host application is not available.",
                            L"Unable to Load Toolbar", L"The host application is not available."));
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(NoHost, IsReportedOnceForAToolbarWithFlyouts)
{
    Build(LR"(<r><Toolbars><Toolbar ImageList="a"><t ImageList="b"/></Toolbar></Toolbars></r>)");
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Menu", L"The host application is not available.",
                            L"Unable to Load Toolbar", L"The host application is not available."));
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(NoHost, IsNotNoticedWhenTheTextIsNotLoaded)
{
    Build(L"<r>");
    EXPECT_THAT(Messages(), ElementsAre(L"MenuToolbar XML is not loaded"));
}

TEST_F(NoHost, MakesFlyoutsThrow)
{
    const IXMLDOMNodePtr node = Root(LR"(<t ImageList="a"><t ImageList="b"/></t>)");
    try {
        ProcessTBarNode(node, IAcadToolbar(), L"F:\\");
        FAIL() << "no exception";
    } catch (COleDispatchException* e) {
        EXPECT_EQ(e->m_strDescription, L"The host application is not available.");
        e->Delete();
    }
}

TEST_F(NoHost, AddsItemsAndPlainButtonsThatNeedNoApplication)
{
    ProcessMenuNode(Root(LR"(<m Name="1"/>)"), IAcadPopupMenu());
    ProcessTBarNode(Root(LR"(<t ImageList="i"/>)"), IAcadToolbar(), L"F:\\");
    EXPECT_THAT(recording::Log(), ElementsAre(ItemLine(L"null", LR"("1")", L"null", L"null"),
                                              ButtonLine(L"null", L"null", L"null", L"i", L"null", L"F:\\")));
}
