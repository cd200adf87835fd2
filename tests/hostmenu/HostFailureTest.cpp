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

    // The log of a build in which nothing fails.
    static std::vector<std::wstring> WholeLog()
    {
        Build(Description);
        const std::vector<std::wstring> log = recording::Log();
        EXPECT_EQ(log.size(), static_cast<size_t>(AllCalls));
        Renew();
        return log;
    }

private:
    long m_applicationReferences = 0;
};

// The line without the running numbers of the objects, which are others when one of them was not made.
std::wstring WithoutNumbers(const std::wstring& line)
{
    std::wstring result;
    for (const wchar_t character : line) {
        if (character < L'0' || character > L'9')
            result += character;
    }
    return result;
}

} // namespace

TEST_F(HostFailure, InTheMenuPhaseShowsBothTextsAndGoesOnWithTheToolbar)
{
    const std::vector<std::wstring> whole = WholeLog();
    for (int call = 1; call <= MenuCalls; ++call) {
        Renew();
        testkit::MessageBoxWatch boxes;
        size_t boxesBeforeToolbar = 0;
        recording::InCall(call, [] { AfxThrowOleDispatchException(0, L"The host refuses the menu."); });
        recording::InCall(call + 1, [&] { boxesBeforeToolbar = boxes.Boxes().size(); });
        Build(Description);

        EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Menu", L"The host refuses the menu.")) << call;
        EXPECT_EQ(boxesBeforeToolbar, 2u) << call;
        // What was asked for up to the failing call stays asked for, then the whole toolbar follows.
        const std::vector<std::wstring> log = recording::Log();
        ASSERT_EQ(log.size(), static_cast<size_t>(call + AllCalls - MenuCalls)) << call;
        for (int i = 0; i < call; ++i)
            EXPECT_EQ(log[i], whole[i]) << call;
        for (int i = 0; i < AllCalls - MenuCalls; ++i)
            EXPECT_EQ(WithoutNumbers(log[call + i]), WithoutNumbers(whole[MenuCalls + i])) << call;
        ExpectBalance();
    }
}

TEST_F(HostFailure, InTheToolbarPhaseShowsBothTextsAndEnds)
{
    const std::vector<std::wstring> whole = WholeLog();
    for (int call = MenuCalls + 1; call <= AllCalls; ++call) {
        Renew();
        testkit::MessageBoxWatch boxes;
        recording::InCall(call, [] { AfxThrowOleDispatchException(0, L"The host refuses the toolbar."); });
        Build(Description);

        EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Toolbar", L"The host refuses the toolbar.")) << call;
        EXPECT_EQ(recording::Log(), std::vector<std::wstring>(whole.begin(), whole.begin() + call)) << call;
        ExpectBalance();
    }
}

TEST_F(HostFailure, InBothPhasesShowsFourTextsInOrder)
{
    recording::InCall(1, [] { AfxThrowOleDispatchException(0, L"no menu"); });
    recording::InCall(2, [] { AfxThrowOleDispatchException(0, L"no toolbar"); });
    Build(Description);
    EXPECT_THAT(Messages(), ElementsAre(L"Unable to Load Menu", L"no menu", L"Unable to Load Toolbar", L"no toolbar"));
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
    EXPECT_THAT(Messages(), ElementsAre(L"Unable to Load Toolbar", L"The host application is not available."));
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
