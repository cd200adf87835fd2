// Hosts that lastingly refuse something, mostly on toolbars of others.
#include "Description.h"
#include "ObstinateHost.h"

namespace companiontest
{

using testing::ElementsAre;

class ObstinateHost : public CompanionTest
{
protected:
    ~ObstinateHost() override { Obey(); }

    void Refuse(const Refuses& refuses)
    {
        Obey();
        m_application = MakeObstinate(host.Application(), refuses);
    }
    void Obey()
    {
        if (m_application != nullptr)
            m_application->Release();
        m_application = nullptr;
    }
    IDispatch* Application() { return m_application; }
    IAcadToolbar NewObstinate(const wchar_t* name)
    {
        return IAcadToolbar(Create_ACADToolBar(m_application, name));
    }
    // A toolbar of others with a fly-out button.
    void AddForeign()
    {
        const auto& own = host.model.AddToolbar(host.Base().id, L"Their fly-out");
        const auto& foreign = host.model.AddToolbar(host.Base().id, L"Foreign");
        const auto& button = host.model.AddToolbarButton(foreign.id, 0L, L"Theirs", L"", L"x", true);
        host.model.AttachFlyout(button.id, host.Base().name, own.name);
    }

private:
    IDispatch* m_application = nullptr;
};

TEST_F(ObstinateHost, ThatHidesWhatAForeignButtonOpensDoesNotGatherFlyouts)
{
    AddForeign();
    bool asked = false;
    Refuse([&](const PendingCall& call) {
        const bool isIt = call.Is(L"Theirs", L"Flyout");
        asked |= isIt;
        return isIt;
    });
    for (int run = 0; run < 3; ++run) {
        BuildDescription(Application());
        EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Their fly-out", L"Foreign", L"Drafting", L"SubToolbar",
                                                     L"SubToolbar_2", L"SubToolbar_3"))
            << "run " << run;
    }
    EXPECT_TRUE(asked);
}

TEST_F(ObstinateHost, ThatHidesWhatAForeignButtonOpensKeepsWhatOtherButtonsMayOpen)
{
    AddForeign();
    BuildDescription(host.Application());
    const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar_9");
    const auto& button = host.model.AddToolbarButton(left.id, 0L, L"X", L"", L"x", true);
    host.model.AttachFlyout(button.id, host.Base().name, L"SubToolbar_2");
    host.model.SetToolbarVisible(left.id, false);
    Refuse([](const PendingCall& call) { return call.Is(L"Theirs", L"Flyout"); });
    NewObstinate(L"Drafting");
    EXPECT_THAT(host.ToolbarNames(),
                ElementsAre(L"Their fly-out", L"Foreign", L"Drafting", L"SubToolbar_2", L"SubToolbar_9"));
    Obey();
    NewToolbar(L"Drafting");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Their fly-out", L"Foreign", L"Drafting"));
}

TEST_F(ObstinateHost, WithAToolbarOfOthersThatFailsMakesToolbarsAsEver)
{
    AddForeign();
    const auto& group = host.model.AddGroup(L"OTHER", velmhost::MenuGroupType::Partial, L"other.mnu");
    host.model.AddToolbar(group.id, L"Foreign");
    for (const wchar_t* member : {L"Name", L"Visible", L"Count", L"Item"}) {
        SCOPED_TRACE(Escaped(member));
        Refuse([member](const PendingCall& call) { return call.Is(L"Foreign", member); });
        for (int run = 0; run < 3; ++run) {
            EXPECT_FALSE(FailureOf([this] { BuildDescription(Application()); }));
            EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Their fly-out", L"Foreign", L"Drafting",
                                                         L"SubToolbar", L"SubToolbar_2", L"SubToolbar_3"));
            EXPECT_EQ(4u, host.FindToolbar(L"Drafting")->items.size());
        }
    }
}

TEST_F(ObstinateHost, WhoseOtherGroupFailsMakesToolbarsAsEver)
{
    host.model.AddGroup(L"OTHER", velmhost::MenuGroupType::Partial, L"other.mnu");
    Refuse([](const PendingCall& call) { return call.Is(L"OTHER", L"Toolbars"); });
    for (int run = 0; run < 3; ++run) {
        EXPECT_FALSE(FailureOf([this] { BuildDescription(Application()); }));
        EXPECT_THAT(host.ToolbarNames(),
                    ElementsAre(L"Drafting", L"SubToolbar", L"SubToolbar_2", L"SubToolbar_3"));
    }
}

TEST_F(ObstinateHost, ThatDoesNotTellTheNameOfAFlyoutGivesItToNoOther)
{
    // With a second toolbar of the name, the button would open the first.
    host.model.Policies().duplicateAdd = velmhost::DuplicateAdd::AddSecond;
    host.model.AddToolbar(host.Base().id, L"SubToolbar");
    Refuse([](const PendingCall& call) { return call.Is(L"SubToolbar", L"Name"); });
    NewObstinate(L"SubToolbar");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"SubToolbar", L"SubToolbar_2"));
}

TEST_F(ObstinateHost, ThatDoesNotTellTheNameOfAToolbarFindsItByThatName)
{
    for (const velmhost::DuplicateAdd rule :
         {velmhost::DuplicateAdd::Fail, velmhost::DuplicateAdd::ReturnExisting,
          velmhost::DuplicateAdd::AddSecond})
    {
        host.model.Policies().duplicateAdd = rule;
        AddButton(NewToolbar(L"Draw"), L"A ", L"A");
        Refuse([](const PendingCall& call) { return call.Is(L"Draw", L"Name"); });
        NewObstinate(L"Draw");
        EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
        EXPECT_TRUE(host.FindToolbar(L"Draw")->items.empty());
    }
}

TEST_F(ObstinateHost, ThatDeletesNoToolbarsMakesThemAllTheSame)
{
    const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar_7");
    host.model.SetToolbarVisible(left.id, false);
    Refuse([](const PendingCall& call) { return call.Is(L"SubToolbar_7", L"Delete"); });
    EXPECT_FALSE(FailureOf([this] { NewObstinate(L"New"); }));
    EXPECT_FALSE(FailureOf([this] { NewObstinate(L"SubToolbar"); }));
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"SubToolbar_7", L"New", L"SubToolbar"));
    EXPECT_FALSE(host.FindToolbar(L"SubToolbar_7")->visible);
}

TEST_F(ObstinateHost, ThatNeitherAttachesNorHidesAFlyoutLosesIt)
{
    Refuse([](const PendingCall& call) {
        return call.member == L"AttachToolbarToFlyout" || (call.isPut && call.Is(L"SubToolbar", L"Visible"));
    });
    {
        IAcadToolbar toolbar = NewObstinate(L"Draw");
        IAcadToolbar flyout = NewObstinate(L"SubToolbar");
        EXPECT_TRUE(FailureOf([&] { AddFlyout(toolbar, L"A ", L"A", flyout); }));
    }
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
    EXPECT_TRUE(host.FindToolbar(L"Draw")->items.empty());
}

TEST_F(ObstinateHost, ThatAttachesButDoesNotHideAFlyoutKeepsItsButton)
{
    Refuse([](const PendingCall& call) { return call.isPut && call.Is(L"SubToolbar", L"Visible"); });
    {
        IAcadToolbar toolbar = NewObstinate(L"Draw");
        IAcadToolbar flyout = NewObstinate(L"SubToolbar");
        EXPECT_TRUE(FailureOf([&] { AddFlyout(toolbar, L"A ", L"A", flyout); }));
    }
    ASSERT_EQ(1u, host.FindToolbar(L"Draw")->items.size());
    EXPECT_EQ(host.FindToolbar(L"SubToolbar"), host.FindToolbar(L"Draw")->items[0]->flyout);
    NewObstinate(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
}

} // namespace companiontest
