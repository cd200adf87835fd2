// Items, separators and cascading sub-menus.
#include "CompanionTest.h"

namespace companiontest
{

using velmhost::MenuItemType;
using velmhost::SeparatorRule;

class MenuItem : public CompanionTest
{
protected:
    IAcadPopupMenu menu = NewMenu(L"&Tools");
    const std::vector<std::unique_ptr<velmhost::MenuItem>>& Items()
    {
        return host.FindMenu(L"&Tools")->items;
    }
};

TEST_F(MenuItem, CarriesLabelMacroAndHelp)
{
    EXPECT_TRUE(AddItem(menu, L"&Line", L"LINE ", L"Draws lines"));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(MenuItemType::Item, Items()[0]->type);
    EXPECT_EQ(L"&Line", Items()[0]->label);
    EXPECT_EQ(L"LINE ", Items()[0]->macro);
    EXPECT_EQ(L"Draws lines", Items()[0]->help);
}

TEST_F(MenuItem, GoesToTheEnd)
{
    for (const wchar_t* label : {L"A", L"B", L"C"})
        AddItem(menu, label, L"x ", nullptr);
    ASSERT_EQ(3u, Items().size());
    EXPECT_EQ(L"A", Items()[0]->label);
    EXPECT_EQ(L"B", Items()[1]->label);
    EXPECT_EQ(L"C", Items()[2]->label);
}

TEST_F(MenuItem, GoesToTheEndAlsoWhenOthersAddedSomethingBefore)
{
    AddItem(menu, L"A", L"x ", nullptr);
    host.model.AddMenuItem(host.FindMenu(L"&Tools")->id, 0L, L"Other", L"o ");
    AddItem(menu, L"B", L"x ", nullptr);
    ASSERT_EQ(3u, Items().size());
    EXPECT_EQ(L"B", Items()[2]->label);
}

TEST_F(MenuItem, WithoutHelpGetsNone)
{
    host.automation.KeepLog(true);
    AddItem(menu, L"A", L"A ", nullptr);
    for (const std::wstring& call : host.automation.TakeLog())
        EXPECT_EQ(std::wstring::npos, call.find(L"HelpString")) << call;
    EXPECT_EQ(L"", Items()[0]->help);
}

TEST_F(MenuItem, MayHaveAnEmptyHelpText)
{
    AddItem(menu, L"A", nullptr, L"");
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(MenuItemType::Item, Items()[0]->type);
}

TEST_F(MenuItem, WithALabelAloneSendsNothing)
{
    EXPECT_TRUE(AddItem(menu, L"Heading", nullptr, nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(MenuItemType::Item, Items()[0]->type);
    EXPECT_EQ(L"Heading", Items()[0]->label);
    EXPECT_EQ(L"", Items()[0]->macro);
}

TEST_F(MenuItem, WithACommandAndNoLabelHasAnEmptyLabel)
{
    EXPECT_TRUE(AddItem(menu, nullptr, L"LINE ", nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(MenuItemType::Item, Items()[0]->type);
    EXPECT_EQ(L"", Items()[0]->label);
    EXPECT_EQ(L"LINE ", Items()[0]->macro);
}

TEST_F(MenuItem, WithoutACommandEndsNoLineWhereTheHostRefusesAnEmptyMacro)
{
    host.model.Policies().macrosNeedText = true;
    EXPECT_TRUE(AddItem(menu, L"Heading", nullptr, L"help"));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(L"Heading", Items()[0]->label);
    EXPECT_EQ(L"\x1A", Items()[0]->macro);
    EXPECT_EQ(L"help", Items()[0]->help);
}

TEST_F(MenuItem, WithoutALabelShowsABlankWhereTheHostRefusesAnEmptyOne)
{
    host.model.Policies().labelsNeedText = true;
    EXPECT_TRUE(AddItem(menu, nullptr, L"LINE ", nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(L" ", Items()[0]->label);
    EXPECT_EQ(L"LINE ", Items()[0]->macro);
}

TEST_F(MenuItem, WithHelpOnlyIsAddedWhereTheHostRefusesEmptyTexts)
{
    host.model.Policies().labelsNeedText = true;
    host.model.Policies().macrosNeedText = true;
    EXPECT_TRUE(AddItem(menu, nullptr, nullptr, L"help"));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(L"help", Items()[0]->help);
}

TEST_F(MenuItem, IsTheSameWithAnyFlags)
{
    for (const bool first : {false, true}) {
        for (const bool second : {false, true})
            EXPECT_TRUE(Append_MenuItem(menu, L"A", L"A ", L"a", first, second));
    }
    ASSERT_EQ(4u, Items().size());
    for (const auto& item : Items()) {
        EXPECT_EQ(MenuItemType::Item, item->type);
        EXPECT_EQ(L"A", item->label);
        EXPECT_EQ(L"A ", item->macro);
        EXPECT_EQ(L"a", item->help);
        EXPECT_TRUE(item->enabled);
        EXPECT_FALSE(item->checked);
    }
}

TEST_F(MenuItem, WithAnEmptyCommandSendsTheBlank)
{
    AddItem(menu, L"Repeat", L" ", nullptr);
    EXPECT_EQ(L" ", Items()[0]->macro);
}

TEST_F(MenuItem, TakesTextsOfAnyCharactersAndLength)
{
    const std::wstring text = L"\u00E9&\u0416\u6982\U0001F4D0\"<" + std::wstring(5000, L'x');
    AddItem(menu, text.c_str(), text.c_str(), text.c_str());
    EXPECT_EQ(text, Items()[0]->label);
    EXPECT_EQ(text, Items()[0]->macro);
    EXPECT_EQ(text, Items()[0]->help);
}

TEST_F(MenuItem, BeyondTheHostsLimitIsLeftOut)
{
    host.model.Policies().menuItemLimit = 2;
    EXPECT_TRUE(AddItem(menu, L"A", L"A ", L"a"));
    EXPECT_TRUE(AddItem(menu, L"B", L"B ", L"b"));
    EXPECT_FALSE(AddItem(menu, L"C", L"C ", L"c"));
    EXPECT_FALSE(AddSeparator(menu));
    EXPECT_EQ(2u, Items().size());
}

TEST_F(MenuItem, OfNoMenuFails)
{
    const auto failure = FailureOf([] { AddItem(IAcadPopupMenu(), L"A", L"A ", nullptr); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
}

TEST_F(MenuItem, WithNothingIsASeparator)
{
    AddItem(menu, L"A", L"A ", nullptr);
    EXPECT_TRUE(AddItem(menu, nullptr, nullptr, nullptr));
    AddItem(menu, L"B", L"B ", nullptr);
    EXPECT_TRUE(AddItem(menu, L"", nullptr, nullptr));
    AddItem(menu, L"C", L"C ", nullptr);
    ASSERT_EQ(5u, Items().size());
    EXPECT_EQ(MenuItemType::Separator, Items()[1]->type);
    EXPECT_EQ(MenuItemType::Separator, Items()[3]->type);
}

TEST_F(MenuItem, WithHelpIsNoSeparator)
{
    AddItem(menu, L"A", L"A ", nullptr);
    AddItem(menu, nullptr, nullptr, L"help");
    ASSERT_EQ(2u, Items().size());
    EXPECT_EQ(MenuItemType::Item, Items()[1]->type);
    EXPECT_EQ(L"help", Items()[1]->help);
}

TEST_F(MenuItem, SeparatorIsNeverFirst)
{
    for (const SeparatorRule rule : {SeparatorRule::Strict, SeparatorRule::Lenient}) {
        host.model.Policies().separators = rule;
        EXPECT_FALSE(AddSeparator(menu));
        EXPECT_TRUE(Items().empty());
    }
}

TEST_F(MenuItem, SeparatorIsNeverDoubled)
{
    AddItem(menu, L"A", L"A ", nullptr);
    for (const SeparatorRule rule : {SeparatorRule::Strict, SeparatorRule::Lenient}) {
        host.model.Policies().separators = rule;
        AddSeparator(menu);
        EXPECT_FALSE(AddSeparator(menu));
        EXPECT_EQ(2u, Items().size());
    }
}

TEST_F(MenuItem, SeparatorMayFollowACascade)
{
    IAcadPopupMenu sub(Append_SubMenu(menu, L"More"));
    EXPECT_TRUE(AddSeparator(menu));
    EXPECT_FALSE(AddSeparator(sub));
    EXPECT_EQ(2u, Items().size());
}

TEST_F(MenuItem, SeparatorAtTheEndStays)
{
    AddItem(menu, L"A", L"A ", nullptr);
    EXPECT_TRUE(AddSeparator(menu));
    EXPECT_EQ(2u, Items().size());
}

class Cascade : public MenuItem
{
};

TEST_F(Cascade, GoesToTheEndAndTakesItems)
{
    AddItem(menu, L"A", L"A ", nullptr);
    IAcadPopupMenu sub(Append_SubMenu(menu, L"&More"));
    AddItem(sub, L"B", L"B ", L"b");
    ASSERT_EQ(2u, Items().size());
    EXPECT_EQ(MenuItemType::SubMenu, Items()[1]->type);
    EXPECT_EQ(L"&More", Items()[1]->label);
    ASSERT_EQ(1u, Items()[1]->subMenu->items.size());
    EXPECT_EQ(L"B", Items()[1]->subMenu->items[0]->label);
}

TEST_F(Cascade, GoesToAnyDepth)
{
    IAcadPopupMenu current(menu);
    for (int level = 0; level < 20; ++level)
        current = IAcadPopupMenu(Append_SubMenu(current, L"Deeper"));
    AddItem(current, L"Bottom", L"x ", nullptr);
    const velmhost::Menu* at = host.FindMenu(L"&Tools");
    for (int level = 0; level < 20; ++level) {
        ASSERT_EQ(1u, at->items.size());
        at = at->items[0]->subMenu.get();
        ASSERT_NE(nullptr, at);
    }
    EXPECT_EQ(L"Bottom", at->items[0]->label);
}

TEST_F(Cascade, MayHaveNoLabel)
{
    IAcadPopupMenu sub(Append_SubMenu(menu, nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(MenuItemType::SubMenu, Items()[0]->type);
    EXPECT_EQ(L"", Items()[0]->label);
}

TEST_F(Cascade, WithoutALabelShowsABlankWhereTheHostRefusesAnEmptyOne)
{
    host.model.Policies().labelsNeedText = true;
    IAcadPopupMenu sub(Append_SubMenu(menu, nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(MenuItemType::SubMenu, Items()[0]->type);
    EXPECT_EQ(L" ", Items()[0]->label);
    EXPECT_TRUE(AddItem(sub, L"A", L"A ", nullptr));
}

TEST_F(Cascade, IsReturnedWithOneReferenceOfTheCallers)
{
    const long before = host.automation.OutstandingReferences();
    IDispatch* const sub = Append_SubMenu(menu, L"More");
    EXPECT_EQ(before + 1, host.automation.OutstandingReferences());
    sub->Release();
}

TEST_F(Cascade, ThatTheHostHasNoRoomForFails)
{
    host.model.Policies().menuItemLimit = 1;
    AddItem(menu, L"A", L"A ", nullptr);
    const auto failure = FailureOf([&] { Append_SubMenu(menu, L"More"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
    EXPECT_EQ(L"The host returned no object for AddSubMenu.", failure->description);
    EXPECT_EQ(1u, Items().size());
}

TEST_F(Cascade, OfNoMenuFails)
{
    const auto failure = FailureOf([] { Append_SubMenu(IAcadPopupMenu(), L"More"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
}

struct Notation
{
    const char* name;
    const wchar_t* command;
    std::wstring macro;
};

void PrintTo(const Notation& notation, std::ostream* out)
{
    *out << Escaped(notation.command);
}

class CaretNotation : public MenuItem, public testing::WithParamInterface<Notation>
{
};

TEST_P(CaretNotation, ReachesTheHostAsControlCharacters)
{
    AddItem(menu, L"A", GetParam().command, nullptr);
    EXPECT_EQ(GetParam().macro, Items()[0]->macro);
    IAcadToolbar toolbar = NewToolbar(L"T");
    AddButton(toolbar, GetParam().command, L"tip");
    EXPECT_EQ(GetParam().macro, host.FindToolbar(L"T")->items[0]->macro);
    AddFlyout(toolbar, GetParam().command, L"tip", NewToolbar(L"SubToolbar"));
    EXPECT_EQ(GetParam().macro, host.FindToolbar(L"T")->items[1]->macro);
}

const Notation Notations[] = {
    {"CancelTwice", L"^C^C_LINE ", L"\x03\x03_LINE "},
    {"SmallLetters", L"^c^cline ", L"\x03\x03line "},
    {"Alone", L"^P", L"\x10"},
    {"FirstAndLastLetter", L"^A^Z", L"\x01\x1A"},
    {"FirstAndLastSmallLetter", L"^a^z", L"\x01\x1A"},
    {"SignsAfterTheLetters", L"^[^\\^]^_", L"\x1B\x1C\x1D\x1F"},
    {"CaretAfterCaret", L"^^C", std::wstring(L"\x1E") + L"C"},
    {"Zero", L"a^@b", std::wstring(L"a\0b", 3)},
    {"CaretAtTheEnd", L"2^", L"2^"},
    {"CaretBeforeABlank", L"2^ ", L"2^ "},
    {"CaretBeforeADigit", L"2^3", L"2^3"},
    {"OtherSigns", L"^`^{^~^?", L"^`^{^~^?"},
    {"LetterBeyondAscii", L"^\u00C3", L"^\u00C3"},
    {"NoCaret", L"LINE ", L"LINE "},
    {"CaretOnly", L"^", L"^"},
};

INSTANTIATE_TEST_SUITE_P(Commands, CaretNotation, testing::ValuesIn(Notations),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(MenuItem, KeepsCaretsInLabelAndHelp)
{
    AddItem(menu, L"2^C", L"x ", L"^C");
    EXPECT_EQ(L"2^C", Items()[0]->label);
    EXPECT_EQ(L"^C", Items()[0]->help);
}

} // namespace companiontest
