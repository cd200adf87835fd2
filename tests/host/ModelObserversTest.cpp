#include "ModelFixture.h"
#include "ModelReaction.h"

#include <functional>

using namespace hosttest;
using namespace velmhost;

namespace
{

// Notes each change as "What Kind element parent".
class Recorder : public HostModelObserver
{
public:
    void OnModelChanged(const ModelChange& change) override
    {
        const char* what[] = {"Group",   "Menu",        "MenuItem",    "MenuBar",
                              "Toolbar", "ToolbarItem", "LargeButtons"};
        const char* kind[] = {"Added", "Changed", "Removed"};
        m_seen.push_back(std::string(what[static_cast<int>(change.what)]) + " " +
                         kind[static_cast<int>(change.kind)] + " " + std::to_string(change.element) + " " +
                         std::to_string(change.parent));
        if (m_react)
            m_react();
    }

    std::vector<std::string> Take() { return std::exchange(m_seen, {}); }

    std::function<void()> m_react;

private:
    std::vector<std::string> m_seen;
};

class ModelObservers : public ModelFixture
{
protected:
    ModelObservers() { m_model.AddObserver(m_recorder); }

    // What is told while `act` runs.
    template <class Act>
    std::vector<std::string> Told(Act act)
    {
        m_recorder.Take();
        act();
        return m_recorder.Take();
    }

    static std::string Note(const char* what, ElementId element, ElementId parent)
    {
        return std::string(what) + " " + std::to_string(element) + " " + std::to_string(parent);
    }

    using Notes = std::vector<std::string>;
    Recorder m_recorder;
};

} // namespace

TEST_F(ModelObservers, AreToldOfAdditionsWithTheContainer)
{
    const ElementId menu = AddMenu();
    EXPECT_EQ(m_recorder.Take(), Notes{Note("Menu Added", menu, Base())});
    const ElementId item = AddItem(menu, L"a");
    EXPECT_EQ(m_recorder.Take(), Notes{Note("MenuItem Added", item, menu)});
    const ElementId toolbar = AddToolbar();
    EXPECT_EQ(m_recorder.Take(), Notes{Note("Toolbar Added", toolbar, Base())});
    const ElementId button = AddButton(toolbar, L"a");
    EXPECT_EQ(m_recorder.Take(), Notes{Note("ToolbarItem Added", button, toolbar)});
}

TEST_F(ModelObservers, AreToldOfChangesOnceAndNotOfTheSameValue)
{
    const ElementId menu = AddMenu(), item = AddItem(menu, L"a");
    EXPECT_EQ(Told([&] { m_model.SetMenuItemLabel(item, L"b"); }),
              Notes{Note("MenuItem Changed", item, menu)});
    EXPECT_EQ(Told([&] { m_model.SetMenuItemLabel(item, L"b"); }), Notes{});
    EXPECT_EQ(Told([&] { m_model.SetMenuItemEnabled(item, false); }),
              Notes{Note("MenuItem Changed", item, menu)});
    EXPECT_EQ(Told([&] { m_model.SetMenuItemEnabled(item, false); }), Notes{});
    EXPECT_EQ(Told([&] { m_model.SetMenuItemEndSubMenuLevel(item, 1); }),
              Notes{Note("MenuItem Changed", item, menu)});
    EXPECT_EQ(Told([&] { m_model.SetMenuItemEndSubMenuLevel(item, 1); }), Notes{});
    EXPECT_EQ(Told([&] { m_model.SetLargeButtons(true); }), Notes{"LargeButtons Changed 0 0"});
    EXPECT_EQ(Told([&] { m_model.SetLargeButtons(true); }), Notes{});
}

TEST_F(ModelObservers, AreToldOfToolbarChangesOnceAndNotOfTheSameValue)
{
    const ElementId toolbar = AddToolbar(), button = AddButton(toolbar, L"a");
    const Notes ofToolbar{Note("Toolbar Changed", toolbar, Base())};
    const Notes ofButton{Note("ToolbarItem Changed", button, toolbar)};
    EXPECT_EQ(Told([&] { m_model.SetToolbarHelp(toolbar, L"help"); }), ofToolbar);
    EXPECT_EQ(Told([&] { m_model.SetToolbarHelp(toolbar, L"help"); }), Notes{});
    EXPECT_EQ(Told([&] { m_model.SetToolbarItemCommandDisplayName(button, L"x"); }), ofButton);
    EXPECT_EQ(Told([&] { m_model.SetToolbarItemCommandDisplayName(button, L"x"); }), Notes{});
}

TEST_F(ModelObservers, AreToldOfFloatingOnlyWhenItChangesSomething)
{
    const ElementId toolbar = AddToolbar();
    const Notes changed{Note("Toolbar Changed", toolbar, Base())};
    EXPECT_EQ(Told([&] { m_model.FloatToolbar(toolbar, 10, 20, 2); }), changed);
    EXPECT_EQ(Told([&] { m_model.FloatToolbar(toolbar, 10, 20, 2); }), Notes{});
    EXPECT_EQ(Told([&] { m_model.FloatToolbar(toolbar, 11, 20, 2); }), changed);
    EXPECT_EQ(Told([&] { m_model.FloatToolbar(toolbar, 11, 21, 2); }), changed);
    EXPECT_EQ(Told([&] { m_model.FloatToolbar(toolbar, 11, 21, 3); }), changed);
    m_model.DockToolbar(toolbar, DockStatus::Left);
    EXPECT_EQ(Told([&] { m_model.FloatToolbar(toolbar, 11, 21, 3); }), changed);
}

TEST_F(ModelObservers, AreNotToldOfARefusal)
{
    const ElementId menu = AddMenu();
    EXPECT_EQ(Told([&] { ReasonOf([&] { m_model.AddMenuSeparator(menu, 0L); }); }), Notes{});
}

TEST_F(ModelObservers, AreToldOfARemovalOnceForTheOutermost)
{
    const ElementId menu = AddMenu();
    const MenuItem& sub = *m_model.AddSubMenu(menu, kAtEnd, L"Sub");
    AddItem(sub.subMenu->id, L"leaf");
    const ElementId item = sub.id;
    EXPECT_EQ(Told([&] { m_model.RemoveMenuItem(item); }), Notes{Note("MenuItem Removed", item, menu)});
}

TEST_F(ModelObservers, AreToldOfTheBarWhenAGroupTakesMenusFromIt)
{
    const ElementId group = Base();
    m_model.InsertInMenuBar(AddMenu(), kAtEnd);
    EXPECT_EQ(Told([&] { m_model.RemoveGroup(group); }),
              (Notes{Note("Group Removed", group, 0), "MenuBar Changed 0 0"}));
}

TEST_F(ModelObservers, AreNotToldWhatTheShellReports)
{
    const ElementId toolbar = AddToolbar();
    EXPECT_EQ(Told([&] { m_model.ReportToolbarFrame(toolbar, DockStatus::Top, {1, 2, 3, 4}); }), Notes{});
}

TEST_F(ModelObservers, MayGoWhileTheyAreTold)
{
    Recorder second;
    m_model.AddObserver(second);
    m_recorder.m_react = [&] { m_model.RemoveObserver(second); };
    EXPECT_EQ(Told([&] { AddMenu(); }).size(), 1u);
    EXPECT_TRUE(second.Take().empty());
    m_recorder.m_react = [&] { m_model.RemoveObserver(m_recorder); };
    EXPECT_EQ(Told([&] { AddMenu(L"x"); }).size(), 1u);
    EXPECT_EQ(Told([&] { AddMenu(L"y"); }).size(), 0u);
}

TEST_F(ModelObservers, MayChangeTheModelWhileTheyAreTold)
{
    ElementId menu = 0;
    m_recorder.m_react = [&] {
        m_recorder.m_react = nullptr;
        menu = AddMenu(L"second");
    };
    EXPECT_EQ(Told([&] { AddMenu(L"first"); }).size(), 2u);
    EXPECT_NE(m_model.FindMenu(menu), nullptr);
}

TEST_F(ModelObservers, ElementThatOneTakesAwayAtOnceIsGone)
{
    const ElementId menu = AddMenu(), toolbar = AddToolbar();
    AddItem(menu, L"a");
    AddButton(toolbar, L"a");
    const ElementId extra = m_model.AddGroup(L"EXTRA", MenuGroupType::Partial, L"").id;
    const ModelReaction reaction(m_model, TakeAway(m_model));
    EXPECT_EQ(ReasonOf([&] { m_model.AddGroup(L"OTHER", MenuGroupType::Partial, L""); }), Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenu(extra, L"&Menu"); }), Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuItem(menu, kAtEnd, L"b", L"m"); }), Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddSubMenu(menu, kAtEnd, L"b"); }), Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuSeparator(menu, kAtEnd); }), Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbar(Base(), L"b"); }), Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarButton(toolbar, kAtEnd, L"b", L"", L"m", false); }),
              Refusal::Gone);
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarSeparator(toolbar, kAtEnd); }), Refusal::Gone);
    EXPECT_EQ(m_model.Groups().size(), 1u);
    EXPECT_EQ(Labels(menu), L"a");
    EXPECT_EQ(ButtonNames(toolbar), L"a");
}

TEST_F(ModelObservers, NeverSeeAModelWithoutBaseGroup)
{
    const ElementId old = Base();
    m_model.InsertInMenuBar(AddMenu(), kAtEnd);
    std::vector<std::wstring> bases;
    const ModelReaction reaction(m_model, [&](const ModelChange&) {
        bases.push_back(m_model.Groups().empty() ? L"none" : m_model.Groups().front()->name);
    });
    const Notes notes = Told([&] { m_model.AddGroup(L"NEW", MenuGroupType::Base, L""); });
    EXPECT_EQ(notes,
              (Notes{Note("Group Removed", old, 0), "MenuBar Changed 0 0", Note("Group Added", Base(), 0)}));
    EXPECT_EQ(bases, (std::vector<std::wstring>{L"NEW", L"NEW", L"NEW"}));
}
