#include "ModelFixture.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

using ModelMenus = ModelFixture;

std::wstring ManyLabels(const HostModel& model, ElementId menu)
{
    return std::to_wstring(HostModel::CountHierarchy(*model.FindMenu(menu)));
}

} // namespace

TEST_F(ModelMenus, NewModelHasOneEmptyBaseGroup)
{
    ASSERT_EQ(m_model.Groups().size(), 1u);
    const MenuGroup& group = *m_model.Groups()[0];
    EXPECT_EQ(group.name, L"BASE");
    EXPECT_EQ(group.type, MenuGroupType::Base);
    EXPECT_TRUE(group.menus.empty());
    EXPECT_TRUE(group.toolbars.empty());
    EXPECT_TRUE(m_model.MenuBar().empty());
    EXPECT_FALSE(m_model.LargeButtons());
}

TEST_F(ModelMenus, NewMenuIsEmptyAndNotOnTheBar)
{
    const Menu& menu = m_model.AddMenu(Base(), L"&Tools");
    EXPECT_EQ(menu.name, L"&Tools");
    EXPECT_TRUE(menu.items.empty());
    EXPECT_FALSE(menu.shortcut);
    EXPECT_FALSE(m_model.IsOnMenuBar(menu.id));
}

TEST_F(ModelMenus, MenuNameMayBeEmpty)
{
    EXPECT_EQ(m_model.FindMenu(AddMenu(L""))->name, L"");
}

TEST_F(ModelMenus, Pop0IsTheShortcutMenu)
{
    EXPECT_TRUE(m_model.AddMenu(Base(), L"POP0").shortcut);
}

TEST_F(ModelMenus, DuplicateMenuIsRefusedByDefault)
{
    AddMenu(L"&Tools");
    EXPECT_EQ(ReasonOf([&] { AddMenu(L"&TOOLS"); }), Refusal::Duplicate);
    EXPECT_EQ(m_model.Groups()[0]->menus.size(), 1u);
}

TEST_F(ModelMenus, DuplicateMenuCanBeReturned)
{
    m_model.Policies().duplicateAdd = DuplicateAdd::ReturnExisting;
    const ElementId first = AddMenu(L"&Tools");
    EXPECT_EQ(AddMenu(L"&Tools"), first);
    EXPECT_EQ(m_model.Groups()[0]->menus.size(), 1u);
}

TEST_F(ModelMenus, DuplicateMenuCanBeASecondOne)
{
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    const ElementId first = AddMenu(L"&Tools");
    EXPECT_NE(AddMenu(L"&Tools"), first);
    EXPECT_EQ(m_model.Groups()[0]->menus.size(), 2u);
}

TEST_F(ModelMenus, ShortcutMenuIsNeverDoubled)
{
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    AddMenu(L"POP0");
    EXPECT_EQ(ReasonOf([&] { AddMenu(L"POP0"); }), Refusal::Duplicate);
}

TEST_F(ModelMenus, RenamingToATakenNameIsRefused)
{
    AddMenu(L"&One");
    const ElementId two = AddMenu(L"&Two");
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuName(two, L"&one"); }), Refusal::Duplicate);
    EXPECT_EQ(m_model.FindMenu(two)->name, L"&Two");
    m_model.SetMenuName(two, L"&TWO");
    EXPECT_EQ(m_model.FindMenu(two)->name, L"&TWO");
}

TEST_F(ModelMenus, RenamingToATakenNameIsAllowedWhereAddingIs)
{
    AddMenu(L"&One");
    const ElementId two = AddMenu(L"&Two");
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    m_model.SetMenuName(two, L"&One");
    EXPECT_EQ(m_model.FindMenu(two)->name, L"&One");
}

TEST_F(ModelMenus, SubMenuTagIsThatOfItsItem)
{
    const MenuItem& item = *m_model.AddSubMenu(AddMenu(), kAtEnd, L"&More");
    EXPECT_FALSE(item.tag.empty());
    EXPECT_EQ(item.subMenu->tag, item.tag);
    m_model.SetMenuItemTag(item.id, L"MINE");
    EXPECT_EQ(item.subMenu->tag, L"MINE");
}

TEST_F(ModelMenus, EmptyMacroIsRefusedOnlyWhenAsked)
{
    const ElementId menu = AddMenu();
    const ElementId item = m_model.AddMenuItem(menu, kAtEnd, L"a", L"")->id;
    m_model.Policies().macrosNeedText = true;
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuItem(menu, kAtEnd, L"b", L""); }), Refusal::Invalid);
    m_model.SetMenuItemMacro(item, L"m");
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemMacro(item, L""); }), Refusal::Invalid);
    EXPECT_EQ(m_model.FindMenuItem(item)->macro, L"m");
    m_model.AddSubMenu(menu, kAtEnd, L"s");
    m_model.AddMenuSeparator(menu, kAtEnd);
    EXPECT_EQ(Labels(menu), L"a s -");
}

TEST_F(ModelMenus, EmptyLabelIsRefusedOnlyWhenAsked)
{
    const ElementId menu = AddMenu();
    const ElementId item = AddItem(menu, L"");
    const ElementId sub = m_model.AddSubMenu(menu, kAtEnd, L"")->subMenu->id;
    m_model.Policies().labelsNeedText = true;
    EXPECT_EQ(ReasonOf([&] { AddItem(menu, L""); }), Refusal::Invalid);
    EXPECT_EQ(ReasonOf([&] { m_model.AddSubMenu(menu, kAtEnd, L""); }), Refusal::Invalid);
    m_model.SetMenuItemLabel(item, L"a");
    m_model.SetMenuName(sub, L"s");
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemLabel(item, L""); }), Refusal::Invalid);
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuName(sub, L""); }), Refusal::Invalid);
    m_model.AddMenuSeparator(menu, kAtEnd);
    EXPECT_EQ(Labels(menu), L"a s -");
    EXPECT_EQ(m_model.FindMenu(AddMenu(L""))->name, L"");
}

TEST_F(ModelMenus, ShortcutMenuKeepsItsName)
{
    const ElementId shortcut = AddMenu(L"POP0");
    const ElementId other = AddMenu(L"&One");
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuName(shortcut, L"x"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuName(other, L"pop0"); }), Refusal::NotAllowed);
}

TEST_F(ModelMenus, MenusGoOntoTheBarBeforeTheOneNamed)
{
    const ElementId a = AddMenu(L"&A"), b = AddMenu(L"&B"), c = AddMenu(L"&C"), d = AddMenu(L"&D");
    m_model.InsertInMenuBar(a, 0L);
    m_model.InsertInMenuBar(b, L"");
    m_model.InsertInMenuBar(c, L"&B");
    m_model.InsertInMenuBar(d, 0L);
    EXPECT_EQ(BarNames(), L"&D &A &C &B");
}

TEST_F(ModelMenus, MenuOnTheBarIsNotInsertedTwice)
{
    const ElementId a = AddMenu(L"&A");
    m_model.InsertInMenuBar(a, kAtEnd);
    EXPECT_EQ(ReasonOf([&] { m_model.InsertInMenuBar(a, kAtEnd); }), Refusal::NotAllowed);
    EXPECT_EQ(BarNames(), L"&A");
}

TEST_F(ModelMenus, ShortcutMenusAndSubMenusDoNotGoOntoTheBar)
{
    const ElementId shortcut = AddMenu(L"POP0");
    const ElementId sub = m_model.AddSubMenu(AddMenu(), kAtEnd, L"Sub")->subMenu->id;
    EXPECT_EQ(ReasonOf([&] { m_model.InsertInMenuBar(shortcut, kAtEnd); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.InsertInMenuBar(sub, kAtEnd); }), Refusal::NotAllowed);
}

TEST_F(ModelMenus, MenuTakenOffTheBarStaysInItsGroup)
{
    const ElementId a = AddMenu(L"&A");
    m_model.InsertInMenuBar(a, kAtEnd);
    m_model.RemoveFromMenuBar(a);
    EXPECT_EQ(BarNames(), L"");
    EXPECT_NE(m_model.FindMenu(a), nullptr);
    EXPECT_EQ(ReasonOf([&] { m_model.RemoveFromMenuBar(a); }), Refusal::NotAllowed);
}

TEST_F(ModelMenus, ItemKeepsItsTextVerbatim)
{
    const std::wstring label(L"a\0b\t&c", 6);
    const std::wstring macro = L"\x03\x03_line\r \n";
    const MenuItem& item = *m_model.AddMenuItem(AddMenu(), kAtEnd, label, macro);
    EXPECT_EQ(item.label, label);
    EXPECT_EQ(item.macro, macro);
    EXPECT_EQ(item.type, MenuItemType::Item);
    EXPECT_EQ(item.help, L"");
    EXPECT_TRUE(item.enabled);
    EXPECT_FALSE(item.checked);
    EXPECT_EQ(item.endSubMenuLevel, 0);
}

TEST_F(ModelMenus, PositionInsertsBeforeAndPastTheEndAppends)
{
    const ElementId menu = AddMenu();
    AddItem(menu, L"a", 0L);
    AddItem(menu, L"b", 1L);
    AddItem(menu, L"c", 0L);
    AddItem(menu, L"d", 1L);
    AddItem(menu, L"e", 5L);
    AddItem(menu, L"f", 2000000000L);
    EXPECT_EQ(Labels(menu), L"c d a b e f");
}

TEST_F(ModelMenus, LabelInsertsBeforeAndUnknownLabelAppends)
{
    const ElementId menu = AddMenu();
    AddItem(menu, L"&One", L"");
    AddItem(menu, L"Two", L"&ONE");
    AddItem(menu, L"Three", L"One");
    EXPECT_EQ(Labels(menu), L"Two &One Three");
}

TEST_F(ModelMenus, EmptyTextAppendsEvenWhenALabelIsEmpty)
{
    const ElementId menu = AddMenu();
    AddItem(menu, L"");
    AddItem(menu, L"b", L"");
    EXPECT_EQ(m_model.MenuItemAt(menu, 1L).label, L"b");
    EXPECT_EQ(HostModel::PositionOf(m_model.MenuItemAt(menu, L"")), 0);
}

TEST_F(ModelMenus, NegativePositionIsRefused)
{
    const ElementId menu = AddMenu();
    EXPECT_EQ(ReasonOf([&] { AddItem(menu, L"a", -1L); }), Refusal::NotFound);
    EXPECT_EQ(Labels(menu), L"");
}

TEST_F(ModelMenus, LookingUpWhatIsNotThereIsRefused)
{
    const ElementId menu = AddMenu(L"&Tools");
    AddItem(menu, L"&One");
    EXPECT_EQ(m_model.MenuItemAt(menu, 0L).label, L"&One");
    EXPECT_EQ(m_model.MenuItemAt(menu, L"&one").label, L"&One");
    EXPECT_EQ(ReasonOf([&] { m_model.MenuItemAt(menu, 1L); }), Refusal::NotFound);
    EXPECT_EQ(ReasonOf([&] { m_model.MenuItemAt(menu, -1L); }), Refusal::NotFound);
    EXPECT_EQ(ReasonOf([&] { m_model.MenuItemAt(menu, L"One"); }), Refusal::NotFound);
    EXPECT_EQ(m_model.MenuAt(Base(), L"&TOOLS").id, menu);
    EXPECT_EQ(ReasonOf([&] { m_model.MenuAt(Base(), L"Tools"); }), Refusal::NotFound);
    EXPECT_EQ(ReasonOf([&] { m_model.BarMenuAt(0L); }), Refusal::NotFound);
    EXPECT_EQ(ReasonOf([&] { m_model.GroupAt(L"nobody"); }), Refusal::NotFound);
}

TEST_F(ModelMenus, EmptyTextDoesNotFindASeparator)
{
    const ElementId menu = AddMenu();
    AddItem(menu, L"a");
    m_model.AddMenuSeparator(menu, kAtEnd);
    EXPECT_EQ(ReasonOf([&] { m_model.MenuItemAt(menu, L""); }), Refusal::NotFound);
    AddItem(menu, L"b", L"");
    EXPECT_EQ(Labels(menu), L"a - b");
}

TEST_F(ModelMenus, StrictSeparatorIsNeitherFirstNorDoubled)
{
    const ElementId menu = AddMenu();
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuSeparator(menu, kAtEnd); }), Refusal::NotAllowed);
    AddItem(menu, L"a");
    AddItem(menu, L"b");
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuSeparator(menu, 0L); }), Refusal::NotAllowed);
    m_model.AddMenuSeparator(menu, 1L);
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuSeparator(menu, 1L); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.AddMenuSeparator(menu, 2L); }), Refusal::NotAllowed);
    m_model.AddMenuSeparator(menu, kAtEnd);
    EXPECT_EQ(Labels(menu), L"a - b -");
}

TEST_F(ModelMenus, LenientSeparatorStandsAnywhere)
{
    m_model.Policies().separators = SeparatorRule::Lenient;
    const ElementId menu = AddMenu();
    m_model.AddMenuSeparator(menu, kAtEnd);
    m_model.AddMenuSeparator(menu, kAtEnd);
    EXPECT_EQ(Labels(menu), L"- -");
}

TEST_F(ModelMenus, SeparatorHasNeitherTextNorMacro)
{
    const ElementId menu = AddMenu();
    AddItem(menu, L"a");
    const ElementId separator = m_model.AddMenuSeparator(menu, kAtEnd)->id;
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemLabel(separator, L"x"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemHelp(separator, L"x"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemMacro(separator, L"x"); }), Refusal::NotAllowed);
}

TEST_F(ModelMenus, SubMenuIsAnItemWithAMenuOfItsLabel)
{
    const ElementId menu = AddMenu();
    const MenuItem& item = *m_model.AddSubMenu(menu, kAtEnd, L"&More");
    EXPECT_EQ(item.type, MenuItemType::SubMenu);
    EXPECT_EQ(item.subMenu->name, L"&More");
    EXPECT_EQ(item.subMenu->owner, &item);
    EXPECT_EQ(m_model.FindMenu(item.subMenu->id), item.subMenu.get());
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemMacro(item.id, L"x"); }), Refusal::NotAllowed);
}

TEST_F(ModelMenus, SubMenuNameAndItemLabelAreOne)
{
    const MenuItem& item = *m_model.AddSubMenu(AddMenu(), kAtEnd, L"&More");
    m_model.SetMenuItemLabel(item.id, L"A");
    EXPECT_EQ(item.subMenu->name, L"A");
    m_model.SetMenuName(item.subMenu->id, L"B");
    EXPECT_EQ(item.label, L"B");
}

TEST_F(ModelMenus, RemovedSubMenuTakesAllBelowWithIt)
{
    const ElementId menu = AddMenu();
    const MenuItem& outer = *m_model.AddSubMenu(menu, kAtEnd, L"Outer");
    const ElementId outerMenu = outer.subMenu->id;
    const MenuItem& inner = *m_model.AddSubMenu(outerMenu, kAtEnd, L"Inner");
    const ElementId innerMenu = inner.subMenu->id;
    const ElementId leaf = AddItem(innerMenu, L"Leaf");
    m_model.RemoveMenuItem(outer.id);
    EXPECT_EQ(m_model.FindMenu(outerMenu), nullptr);
    EXPECT_EQ(m_model.FindMenu(innerMenu), nullptr);
    EXPECT_EQ(m_model.FindMenuItem(leaf), nullptr);
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemLabel(leaf, L"x"); }), Refusal::Gone);
    EXPECT_EQ(Labels(menu), L"");
}

TEST_F(ModelMenus, HierarchyHolds999ItemsAndIgnoresMore)
{
    const ElementId menu = AddMenu();
    const ElementId sub = m_model.AddSubMenu(menu, kAtEnd, L"Sub")->subMenu->id;
    for (int i = 1; i < 999; ++i)
        AddItem(i % 2 ? menu : sub, L"x");
    EXPECT_EQ(ManyLabels(m_model, menu), L"999");
    EXPECT_EQ(m_model.AddMenuItem(menu, kAtEnd, L"x", L""), nullptr);
    EXPECT_EQ(m_model.AddMenuSeparator(sub, kAtEnd), nullptr);
    EXPECT_EQ(m_model.AddSubMenu(sub, kAtEnd, L"x"), nullptr);
    EXPECT_EQ(ManyLabels(m_model, sub), L"999");
}

TEST_F(ModelMenus, ShortcutMenuHolds499Items)
{
    const ElementId menu = AddMenu(L"POP0");
    for (int i = 0; i < 499; ++i)
        AddItem(menu, L"x");
    EXPECT_EQ(m_model.AddMenuItem(menu, kAtEnd, L"x", L""), nullptr);
    EXPECT_EQ(m_model.FindMenu(menu)->items.size(), 499u);
}

TEST_F(ModelMenus, TagIsGivenAndUniqueInTheWholeMenu)
{
    const ElementId menu = AddMenu();
    const MenuItem& sub = *m_model.AddSubMenu(menu, kAtEnd, L"Sub");
    const ElementId a = AddItem(menu, L"a"), b = AddItem(sub.subMenu->id, L"b");
    EXPECT_NE(m_model.FindMenuItem(a)->tag, m_model.FindMenuItem(b)->tag);
    m_model.SetMenuItemTag(a, L"ID_Mine_1");
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemTag(b, L"id_mine_1"); }), Refusal::Duplicate);
    m_model.SetMenuItemTag(a, L"ID_MINE_1");
    EXPECT_EQ(m_model.FindMenuItem(a)->tag, L"ID_MINE_1");
}

TEST_F(ModelMenus, TagConsistsOfLettersDigitsAndUnderscores)
{
    const ElementId item = AddItem(AddMenu(), L"a");
    for (const wchar_t* tag : {L"", L"a b", L"a-b", L"\x00e9", L"a.b"})
        EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemTag(item, tag); }), Refusal::Invalid);
}

TEST_F(ModelMenus, GivenTagAvoidsOneThatAClientChose)
{
    const ElementId menu = AddMenu();
    const ElementId first = AddItem(menu, L"a");
    m_model.SetMenuItemTag(first, L"ID_" + std::to_wstring(first + 1));
    const ElementId second = AddItem(menu, L"b");
    ASSERT_EQ(second, first + 1);
    EXPECT_NE(m_model.FindMenuItem(second)->tag, m_model.FindMenuItem(first)->tag);
}

TEST_F(ModelMenus, NegativeEndLevelIsRefused)
{
    const ElementId item = AddItem(AddMenu(), L"a");
    m_model.SetMenuItemEndSubMenuLevel(item, 2);
    EXPECT_EQ(m_model.FindMenuItem(item)->endSubMenuLevel, 2);
    EXPECT_EQ(ReasonOf([&] { m_model.SetMenuItemEndSubMenuLevel(item, -1); }), Refusal::Invalid);
}

TEST_F(ModelMenus, RemovedGroupTakesItsMenusOffTheBar)
{
    const MenuGroup& partial = m_model.AddGroup(L"EXTRA", MenuGroupType::Partial, L"f");
    const ElementId other = m_model.AddMenu(partial.id, L"&Other").id;
    m_model.InsertInMenuBar(AddMenu(L"&Tools"), kAtEnd);
    m_model.InsertInMenuBar(other, 0L);
    m_model.RemoveGroup(partial.id);
    EXPECT_EQ(BarNames(), L"&Tools");
    EXPECT_EQ(m_model.FindMenu(other), nullptr);
    EXPECT_EQ(m_model.Groups().size(), 1u);
}

TEST_F(ModelMenus, GroupNamesAreUnique)
{
    EXPECT_EQ(ReasonOf([&] { m_model.AddGroup(L"base", MenuGroupType::Partial, L""); }), Refusal::Duplicate);
}

TEST_F(ModelMenus, NewBaseGroupTakesThePlaceOfTheOldOne)
{
    m_model.AddGroup(L"EXTRA", MenuGroupType::Partial, L"");
    const ElementId old = Base();
    m_model.AddGroup(L"BASE", MenuGroupType::Base, L"f");
    ASSERT_EQ(m_model.Groups().size(), 2u);
    EXPECT_EQ(m_model.Groups()[0]->fileName, L"f");
    EXPECT_EQ(m_model.Groups()[1]->name, L"EXTRA");
    EXPECT_EQ(m_model.FindGroup(old), nullptr);
}
