// The builder when the host fails, and when something else is thrown.
#include "HostMenuTest.h"
#include "HostProgram.h"

#include <stdexcept>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// Thirteen calls of the companion: 1 to 5 for the menu, 6 to 13 for the toolbar.
const wchar_t Description[] = LR"(
    <r>
      <Menus Name="m">
        <Menu Name="i" Cmd="I"/>
        <Menu Name="c" Help="h"><Menu Name="n"/></Menu>
        <Menu Name="j" Cmd="J"/>
      </Menus>
      <Toolbars Name="t">
        <Toolbar Cmd="P" ImageList="p"/>
        <Toolbar Cmd="F" ImageList="f"><Toolbar ImageList="g"/></Toolbar>
      </Toolbars>
    </r>)";
constexpr int MenuCalls = 5;
constexpr int AllCalls = 13;

class HostFailure : public HostMenuTest
{
protected:
    void SetUp() override
    {
        HostMenuTest::SetUp();
        Renew();
        m_applicationReferences = ApplicationReferences();
    }

    void TearDown() override
    {
        OfferApplication(true);
        EXPECT_EQ(ApplicationReferences(), m_applicationReferences);
        HostMenuTest::TearDown();
    }

    static void Renew()
    {
        recording::Reset();
        recording::NameApplication(ApplicationDispatch());
    }

    static void ExpectBalance()
    {
        for (const auto& [name, references] : recording::References())
            EXPECT_EQ(references, 0) << testkit::Utf8(name);
    }

private:
    long m_applicationReferences = 0;
};

// What is asked for the menu when nothing fails.
std::vector<std::wstring> MenuLog()
{
    return {LR"(menu1 = Create_ACADMenu(app, "m"))", ItemLine(L"menu1", LR"("i")", LR"("I ")", L"null"),
            LR"(submenu2 = Append_SubMenu(menu1, "c"))", ItemLine(L"submenu2", LR"("n")", L"null", L"null"),
            ItemLine(L"menu1", LR"("j")", LR"("J ")", L"null")};
}

// What is asked for the toolbar when nothing fails. Objects bear running numbers, which go on from those of
// the menu.
std::vector<std::wstring> ToolbarLog(int objectsBefore)
{
    const std::wstring toolbar = L"toolbar" + std::to_wstring(objectsBefore + 1);
    const std::wstring flyout = L"toolbar" + std::to_wstring(objectsBefore + 2);
    return {toolbar + LR"( = Create_ACADToolBar(app, "t"))",
            ButtonLine(toolbar, LR"("P ")", L"null", L"p"),
            flyout + LR"( = Create_ACADToolBar(app, "SubToolbar"))",
            ButtonLine(toolbar, LR"("F ")", L"null", L"f", flyout),
            ButtonLine(flyout, LR"("F ")", L"null", L"f"),
            ButtonLine(flyout, L"null", L"null", L"g"),
            L"SetVisible(" + flyout + L", 0)",
            L"SetVisible(" + toolbar + L", 1)"};
}

std::vector<std::wstring> Joined(std::vector<std::wstring> first, const std::vector<std::wstring>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace

TEST_F(HostFailure, IsNotThereWhenNothingFails)
{
    Build(Description);
    EXPECT_EQ(recording::Log(), Joined(MenuLog(), ToolbarLog(2)));
    EXPECT_EQ(recording::CallCount(), AllCalls);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(HostFailure, InTheMenuPhaseShowsBothTextsAndGoesOnWithTheToolbar)
{
    // Menu and sub-menu that are there when the call of that number fails.
    const int objectsBefore[] = {0, 1, 1, 2, 2};
    for (int call = 1; call <= MenuCalls; ++call) {
        Renew();
        testkit::MessageBoxWatch boxes;
        size_t boxesBeforeToolbar = 0;
        recording::InCall(call, [] { AfxThrowOleDispatchException(0, L"The host refuses the menu."); });
        recording::InCall(call + 1, [&] { boxesBeforeToolbar = boxes.Boxes().size(); });
        Build(Description);

        EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Menu", L"The host refuses the menu."))
            << call;
        EXPECT_EQ(boxesBeforeToolbar, 2u) << call;
        // What was asked for up to the failing call stays asked for, then the whole toolbar follows.
        std::vector<std::wstring> expected = MenuLog();
        expected.resize(call);
        EXPECT_EQ(recording::Log(), Joined(expected, ToolbarLog(objectsBefore[call - 1]))) << call;
        ExpectBalance();
    }
}

TEST_F(HostFailure, InTheToolbarPhaseShowsBothTextsAndEnds)
{
    for (int call = MenuCalls + 1; call <= AllCalls; ++call) {
        Renew();
        testkit::MessageBoxWatch boxes;
        recording::InCall(call, [] { AfxThrowOleDispatchException(0, L"The host refuses the toolbar."); });
        Build(Description);

        EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Toolbar", L"The host refuses the toolbar."))
            << call;
        std::vector<std::wstring> expected = Joined(MenuLog(), ToolbarLog(2));
        expected.resize(call);
        EXPECT_EQ(recording::Log(), expected) << call;
        ExpectBalance();
    }
}

TEST_F(HostFailure, ShowsItsTextsAsPlainBoxesOfTheProgram)
{
    recording::InCall(1, [] { AfxThrowOleDispatchException(0, L"no menu"); });
    recording::InCall(2, [] { AfxThrowOleDispatchException(0, L"no toolbar"); });
    Build(Description);
    AfxMessageBox(L"plain");
    ASSERT_EQ(m_boxes.Boxes().size(), 5u);
    const testkit::MessageBoxRecord& plain = m_boxes.Boxes().back();
    for (const testkit::MessageBoxRecord& box : m_boxes.Boxes()) {
        EXPECT_EQ(box.icon, plain.icon) << testkit::Utf8(box.text);
        EXPECT_EQ(box.caption, plain.caption) << testkit::Utf8(box.text);
        EXPECT_EQ(box.buttons, plain.buttons) << testkit::Utf8(box.text);
    }
}

TEST_F(HostFailure, InBothPhasesShowsFourTextsInOrder)
{
    recording::InCall(1, [] { AfxThrowOleDispatchException(0, L"no menu"); });
    recording::InCall(2, [] { AfxThrowOleDispatchException(0, L"no toolbar"); });
    Build(Description);
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Menu", L"no menu", L"Unable to Load Toolbar", L"no toolbar"));
    for (const testkit::MessageBoxRecord& box : m_boxes.Boxes()) {
        EXPECT_THAT(box.buttons, testing::SizeIs(1));
    }
}

TEST_F(HostFailure, WithoutAnApplicationIsReportedInBothPhases)
{
    OfferApplication(false);
    Build(Description);
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Menu", L"The host application is not available.",
                            L"Unable to Load Toolbar", L"The host application is not available."));
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(HostFailure, WithoutAnApplicationIsReportedOnceWhenTheModuleIsNotLoaded)
{
    OfferApplication(false);
    Build(Description, L"NoSuchModule.arx");
    EXPECT_THAT(Messages(), ElementsAre(L"Unable to Load Menu", L"The host application is not available."));
}

TEST_F(HostFailure, DuringTheWalkFindsAnApplicationThatHasGone)
{
    // The fly-out asks for the application anew.
    recording::InCall(7, [] { OfferApplication(false); });
    Build(Description);
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Toolbar", L"The host application is not available."));
    EXPECT_EQ(recording::CallCount(), 7);
}

TEST_F(HostFailure, OfAnotherKindPassesThrough)
{
    for (const int call : {1, 3, 4, MenuCalls + 1, MenuCalls + 3, AllCalls}) {
        Renew();
        recording::InCall(call, [] { throw std::runtime_error("own"); });
        EXPECT_THROW(Build(Description), std::runtime_error) << call;
        EXPECT_EQ(recording::CallCount(), call);
        ExpectBalance();
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(HostFailure, OfMfcsOtherKindsPassesThrough)
{
    recording::InCall(2, [] { AfxThrowOleException(E_ACCESSDENIED); });
    try {
        Build(Description);
        ADD_FAILURE() << "no exception";
    } catch (COleException* e) {
        EXPECT_EQ(e->m_sc, E_ACCESSDENIED);
        e->Delete();
    }
    Renew();
    recording::InCall(8, [] { AfxThrowMemoryException(); });
    try {
        Build(Description);
        ADD_FAILURE() << "no exception";
    } catch (CMemoryException* e) {
        e->Delete();
    }
    Renew();
    recording::InCall(8, [] { _com_issue_error(E_ABORT); });
    EXPECT_THROW(Build(Description), _com_error);
    EXPECT_THAT(Messages(), IsEmpty());
}
