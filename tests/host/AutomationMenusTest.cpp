#include "AutomationFixture.h"
#include "ModelReaction.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

class AutomationMenus : public AutomationFixture
{
protected:
    // The labels in order, separators as `-`.
    static std::wstring Labels(const Object& menu)
    {
        std::wstring labels;
        const long count = menu.Get(L"Count").Number();
        for (long i = 0; i < count; ++i) {
            const Object item = menu.Call(L"Item", i);
            EXPECT_EQ(item.Get(L"Index").Number(), i);
            labels += labels.empty() ? L"" : L" ";
            labels += item.Get(L"Type").Number() == 1 ? L"-" : item.Get(L"Label").Text();
        }
        return labels;
    }
    std::wstring BarNames() const
    {
        std::wstring names;
        const long count = Bar().Get(L"Count").Number();
        for (long i = 0; i < count; ++i)
            names += (names.empty() ? L"" : L" ") + Object(Bar().Call(L"Item", i)).Get(L"Name").Text();
        return names;
    }
};

} // namespace

TEST_F(AutomationMenus, AddedMenuIsEmptyAndNotOnTheBar)
{
    const Object menu = AddMenu(L"&Tools");
    EXPECT_EQ(menu.Get(L"Name").Text(), L"&Tools");
    EXPECT_EQ(menu.Get(L"NameNoMnemonic").Text(), L"Tools");
    EXPECT_EQ(menu.Get(L"Count").Number(), 0);
    EXPECT_FALSE(menu.Get(L"OnMenuBar").Flag());
    EXPECT_FALSE(menu.Get(L"ShortcutMenu").Flag());
    EXPECT_FALSE(menu.Get(L"TagString").Text().empty());
    EXPECT_EQ(Object(menu.Get(L"Parent")), Menus());
    EXPECT_EQ(Object(menu.Get(L"Application")), App());
    EXPECT_EQ(Menus().Get(L"Count").Number(), 1);
}

TEST_F(AutomationMenus, MenuIsFoundByPositionAndByNameWithMnemonic)
{
    const Object menu = AddMenu(L"&Tools");
    EXPECT_EQ(Object(Menus().Call(L"Item", 0L)), menu);
    EXPECT_EQ(Object(Menus().Call(L"Item", L"&tools")), menu);
    ExpectRefused(Menus().Call(L"Item", L"Tools"), DISP_E_BADINDEX);
    ExpectRefused(Menus().Call(L"Item", 1L), DISP_E_BADINDEX);
    ExpectRefused(Menus().Call(L"Item", -1L), DISP_E_BADINDEX);
}

TEST_F(AutomationMenus, Pop0IsTheShortcutMenu)
{
    const Object menu = AddMenu(L"POP0");
    EXPECT_TRUE(menu.Get(L"ShortcutMenu").Flag());
    ExpectRefused(menu.Call(L"InsertInMenuBar", 0L), E_ACCESSDENIED);
}

TEST_F(AutomationMenus, DuplicateAddFollowsThePolicy)
{
    const Object menu = AddMenu(L"&A");
    ExpectRefused(Menus().Call(L"Add", L"&A"), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    m_model.Policies().duplicateAdd = DuplicateAdd::ReturnExisting;
    EXPECT_EQ(Object(Menus().Call(L"Add", L"&A")), menu);
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    EXPECT_FALSE(Object(Menus().Call(L"Add", L"&A")) == menu);
    EXPECT_EQ(Menus().Get(L"Count").Number(), 2);
}

TEST_F(AutomationMenus, NameIsWritable)
{
    const Object menu = AddMenu(L"&A");
    EXPECT_EQ(menu.Put(L"Name", L"&B").result, S_OK);
    EXPECT_EQ(menu.Get(L"Name").Text(), L"&B");
    AddMenu(L"&C");
    ExpectRefused(menu.Put(L"Name", L"&C"), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
}

TEST_F(AutomationMenus, BarTakesMenusInPlace)
{
    const Object a = AddMenu(L"&A"), b = AddMenu(L"&B");
    AddMenu(L"&C");
    AddMenu(L"&D");
    EXPECT_EQ(a.Call(L"InsertInMenuBar", 0L).result, S_OK);
    EXPECT_EQ(b.Call(L"InsertInMenuBar", L"").result, S_OK);
    EXPECT_EQ(Menus().Call(L"InsertMenuInMenuBar", L"&C", L"&B").result, S_OK);
    EXPECT_EQ(Menus().Call(L"InsertMenuInMenuBar", L"&D", Bar().Get(L"Count").Number() + 1).result, S_OK);
    EXPECT_EQ(BarNames(), L"&A &C &B &D");
    EXPECT_TRUE(a.Get(L"OnMenuBar").Flag());
    EXPECT_EQ(Object(Bar().Call(L"Item", L"&A")), a);
    ExpectRefused(Bar().Call(L"Item", 4L), DISP_E_BADINDEX);
    ExpectRefused(Bar().Call(L"Item", L"A"), DISP_E_BADINDEX);
    ExpectRefused(a.Call(L"InsertInMenuBar", 0L), E_ACCESSDENIED);
    ExpectRefused(Menus().Call(L"InsertMenuInMenuBar", L"&X", 0L), DISP_E_BADINDEX);
}

TEST_F(AutomationMenus, BarGivesMenusBack)
{
    const Object a = AddMenu(L"&A"), b = AddMenu(L"&B"), c = AddMenu(L"&C");
    for (const Object& menu : {a, b, c})
        menu.Call(L"InsertInMenuBar", 99L);
    EXPECT_EQ(a.Call(L"RemoveFromMenuBar").result, S_OK);
    EXPECT_EQ(Menus().Call(L"RemoveMenuFromMenuBar", L"&C").result, S_OK);
    EXPECT_EQ(BarNames(), L"&B");
    EXPECT_EQ(Menus().Call(L"RemoveMenuFromMenuBar", 0L).result, S_OK);
    EXPECT_EQ(BarNames(), L"");
    EXPECT_EQ(Menus().Get(L"Count").Number(), 3);
    ExpectRefused(a.Call(L"RemoveFromMenuBar"), E_ACCESSDENIED);
    ExpectRefused(Menus().Call(L"RemoveMenuFromMenuBar", 0L), DISP_E_BADINDEX);
}

TEST_F(AutomationMenus, AddedItemHasItsStateAndText)
{
    const Object menu = AddMenu();
    const std::wstring macro = L"\x03\x03_line ";
    const Object item = menu.Call(L"AddMenuItem", 0L, L"&Line", macro.c_str());
    EXPECT_EQ(item.Get(L"Label").Text(), L"&Line");
    EXPECT_EQ(item.Get(L"Caption").Text(), L"Line");
    EXPECT_EQ(item.Get(L"Macro").Text(), macro);
    EXPECT_EQ(item.Get(L"HelpString").Text(), L"");
    EXPECT_EQ(item.Get(L"Type").Number(), 0);
    EXPECT_EQ(item.Get(L"Index").Number(), 0);
    EXPECT_TRUE(item.Get(L"Enable").Flag());
    EXPECT_FALSE(item.Get(L"Check").Flag());
    EXPECT_EQ(item.Get(L"EndSubMenuLevel").Number(), 0);
    EXPECT_FALSE(item.Get(L"TagString").Text().empty());
    EXPECT_EQ(Object(item.Get(L"Parent")), menu);
    EXPECT_EQ(Object(item.Get(L"Application")), App());
    EXPECT_EQ(m_model.MenuItemAt(m_model.MenuAt(m_model.Groups()[0]->id, 0L).id, 0L).macro, macro);
}

TEST_F(AutomationMenus, ItemPropertiesAreWritable)
{
    const Object item = AddItem(AddMenu(), L"a");
    item.Put(L"Label", L"$(if,x)&B");
    item.Put(L"Macro", L"\x1Bm");
    item.Put(L"HelpString", L"help");
    item.Put(L"TagString", L"MY_TAG");
    item.Put(L"Enable", false);
    item.Put(L"Check", true);
    item.Put(L"EndSubMenuLevel", 2L);
    EXPECT_EQ(item.Get(L"Label").Text(), L"$(if,x)&B");
    EXPECT_EQ(item.Get(L"Caption").Text(), L"B");
    EXPECT_EQ(item.Get(L"Macro").Text(), L"\x1Bm");
    EXPECT_EQ(item.Get(L"HelpString").Text(), L"help");
    EXPECT_EQ(item.Get(L"TagString").Text(), L"MY_TAG");
    EXPECT_FALSE(item.Get(L"Enable").Flag());
    EXPECT_TRUE(item.Get(L"Check").Flag());
    EXPECT_EQ(item.Get(L"EndSubMenuLevel").Number(), 2);
    ExpectRefused(item.Put(L"TagString", L"no blanks"), E_INVALIDARG);
    ExpectRefused(item.Put(L"EndSubMenuLevel", -1L), E_INVALIDARG);
}

TEST_F(AutomationMenus, ItemsFollowTheIndexRules)
{
    const Object menu = AddMenu();
    menu.Call(L"AddMenuItem", 0L, L"a", L"m");
    menu.Call(L"AddMenuItem", menu.Get(L"Count").Number(), L"b", L"m");
    menu.Call(L"AddMenuItem", menu.Get(L"Count").Number() + 1, L"c", L"m");
    menu.Call(L"AddMenuItem", L"", L"d", L"m");
    menu.Call(L"AddMenuItem", L"B", L"e", L"m");
    menu.Call(L"AddMenuItem", 0L, L"f", L"m");
    menu.Call(L"AddSeparator", 2L);
    menu.Call(L"AddSubMenu", L"c", L"g");
    EXPECT_EQ(Labels(menu), L"f a - e b g c d");
    ExpectRefused(menu.Call(L"AddMenuItem", -1L, L"x", L"m"), DISP_E_BADINDEX);
    EXPECT_EQ(Object(menu.Call(L"Item", L"G")).Get(L"Index").Number(), 5);
    ExpectRefused(menu.Call(L"Item", 8L), DISP_E_BADINDEX);
    ExpectRefused(menu.Call(L"Item", L"nobody"), DISP_E_BADINDEX);
}

TEST_F(AutomationMenus, SeparatorIsAnItemWithoutText)
{
    const Object menu = AddMenu();
    AddItem(menu, L"a");
    const Object separator = menu.Call(L"AddSeparator", 1L);
    EXPECT_EQ(separator.Get(L"Type").Number(), 1);
    EXPECT_EQ(separator.Get(L"Index").Number(), 1);
    EXPECT_EQ(separator.Get(L"Label").Text(), L"");
    EXPECT_EQ(separator.Get(L"Caption").Text(), L"");
    EXPECT_EQ(separator.Get(L"Macro").Text(), L"");
    EXPECT_EQ(menu.Get(L"Count").Number(), 2);
    ExpectRefused(separator.Put(L"Label", L"x"), E_ACCESSDENIED);
    ExpectRefused(separator.Put(L"Macro", L"x"), E_ACCESSDENIED);
}

TEST_F(AutomationMenus, SeparatorRuleFollowsThePolicy)
{
    const Object menu = AddMenu();
    ExpectRefused(menu.Call(L"AddSeparator", 0L), E_ACCESSDENIED);
    AddItem(menu, L"a");
    EXPECT_EQ(menu.Call(L"AddSeparator", 1L).result, S_OK);
    ExpectRefused(menu.Call(L"AddSeparator", 2L), E_ACCESSDENIED);
    m_model.Policies().separators = SeparatorRule::Lenient;
    EXPECT_EQ(menu.Call(L"AddSeparator", 0L).result, S_OK);
    EXPECT_EQ(menu.Call(L"AddSeparator", 0L).result, S_OK);
    EXPECT_EQ(Labels(menu), L"- - a -");
}

TEST_F(AutomationMenus, AddSubMenuReturnsTheNewMenu)
{
    const Object menu = AddMenu();
    const Object sub = menu.Call(L"AddSubMenu", 0L, L"&More");
    EXPECT_EQ(sub.Get(L"Name").Text(), L"&More");
    EXPECT_EQ(sub.Get(L"Count").Number(), 0);
    EXPECT_EQ(Object(sub.Get(L"Parent")), menu);
    EXPECT_FALSE(sub.Get(L"OnMenuBar").Flag());
    AddItem(sub, L"leaf");
    const Object opener = menu.Call(L"Item", 0L);
    EXPECT_EQ(sub.Get(L"TagString").Text(), opener.Get(L"TagString").Text());
    opener.Put(L"TagString", L"MINE");
    EXPECT_EQ(sub.Get(L"TagString").Text(), L"MINE");
    EXPECT_EQ(opener.Get(L"Type").Number(), 2);
    EXPECT_EQ(opener.Get(L"Label").Text(), L"&More");
    EXPECT_EQ(opener.Get(L"Macro").Text(), L"");
    EXPECT_EQ(Object(opener.Get(L"SubMenu")), sub);
    EXPECT_EQ(Labels(sub), L"leaf");
    ExpectRefused(opener.Put(L"Macro", L"x"), E_ACCESSDENIED);
    ExpectRefused(sub.Call(L"InsertInMenuBar", 0L), E_ACCESSDENIED);
}

TEST_F(AutomationMenus, SubMenuOfAPlainItemIsAnError)
{
    const Object menu = AddMenu();
    ExpectRefused(AddItem(menu, L"a").Get(L"SubMenu"), E_ACCESSDENIED);
    ExpectRefused(Object(menu.Call(L"AddSeparator", 1L)).Get(L"SubMenu"), E_ACCESSDENIED);
}

TEST_F(AutomationMenus, DeletedItemIsGoneAndFails)
{
    const Object menu = AddMenu();
    const Object a = AddItem(menu, L"a");
    AddItem(menu, L"b");
    EXPECT_EQ(a.Call(L"Delete").result, S_OK);
    EXPECT_EQ(Labels(menu), L"b");
    for (const Outcome& outcome :
         {a.Get(L"Label"), a.Get(L"Index"), a.Get(L"Parent"), a.Put(L"Check", true), a.Put(L"Label", L"x"),
          a.Call(L"Delete"), a.Get(L"SubMenu"), a.Get(L"Application")})
        ExpectRefused(outcome, RPC_E_DISCONNECTED);
}

TEST_F(AutomationMenus, DeletedSubMenuFailsInDepth)
{
    const Object menu = AddMenu();
    const Object sub = menu.Call(L"AddSubMenu", 0L, L"s");
    const Object leaf = AddItem(sub, L"leaf");
    Object(menu.Call(L"Item", 0L)).Call(L"Delete");
    for (const Outcome& outcome :
         {sub.Get(L"Name"), sub.Get(L"Count"), sub.Call(L"Item", 0L), sub.Call(L"AddSeparator", 0L),
          sub.Get(L"Parent"), sub.Get(L"Application"), leaf.Get(L"Label")})
        ExpectRefused(outcome, RPC_E_DISCONNECTED);
}

TEST_F(AutomationMenus, FullMenuGivesNoItem)
{
    m_model.Policies().menuItemLimit = 2;
    const Object menu = AddMenu();
    AddItem(menu, L"a");
    AddItem(menu, L"b");
    const Outcome item = menu.Call(L"AddMenuItem", 9L, L"c", L"m");
    EXPECT_EQ(item.result, S_OK);
    EXPECT_FALSE(Object(item));
    EXPECT_FALSE(Object(menu.Call(L"AddSubMenu", 9L, L"c")));
    EXPECT_FALSE(Object(menu.Call(L"AddSeparator", 1L)));
    EXPECT_EQ(Labels(menu), L"a b");
}

TEST_F(AutomationMenus, AllThreeArgumentsOfAnItemAreMandatory)
{
    const Object menu = AddMenu();
    EXPECT_EQ(menu.Call(L"AddMenuItem", 0L, L"a", Missing()).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(menu.Call(L"AddMenuItem", Missing(), L"a", L"m").result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(menu.Get(L"Count").Number(), 0);
}

TEST_F(AutomationMenus, ElementThatAnObserverTakesAwayAtOnceIsGone)
{
    const Object menus = Menus(), menu = AddMenu();
    AddItem(menu, L"a");
    const ModelReaction reaction(m_model, TakeAway(m_model));
    ExpectRefused(menu.Call(L"AddMenuItem", 9L, L"b", L"m"), RPC_E_DISCONNECTED);
    ExpectRefused(menu.Call(L"AddSubMenu", 9L, L"b"), RPC_E_DISCONNECTED);
    ExpectRefused(menu.Call(L"AddSeparator", 9L), RPC_E_DISCONNECTED);
    EXPECT_EQ(Labels(menu), L"a");
    ExpectRefused(menus.Call(L"Add", L"&B"), RPC_E_DISCONNECTED);
}
