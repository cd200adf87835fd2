#include "AutomationFixture.h"

using namespace hosttest;

namespace
{

struct EnumReleaser
{
    void operator()(IEnumVARIANT* enumerator) const { enumerator->Release(); }
};
using Enumerator = std::unique_ptr<IEnumVARIANT, EnumReleaser>;

class AutomationEnumeration : public AutomationFixture
{
protected:
    static Enumerator EnumeratorOf(const Object& collection)
    {
        const Outcome outcome = collection.Invoke(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {});
        EXPECT_EQ(outcome.value.vt, VT_UNKNOWN);
        IEnumVARIANT* enumerator = nullptr;
        if (outcome.value.vt == VT_UNKNOWN)
            outcome.value.punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&enumerator));
        EXPECT_NE(enumerator, nullptr);
        return Enumerator(enumerator);
    }

    // The property `name` of the next element; "end" at the end.
    static std::wstring Next(const Enumerator& enumerator, const wchar_t* name = L"Name")
    {
        _variant_t element;
        ULONG fetched = 7;
        if (enumerator->Next(1, &element, &fetched) != S_OK) {
            EXPECT_EQ(fetched, 0u);
            return L"end";
        }
        EXPECT_EQ(fetched, 1u);
        EXPECT_EQ(element.vt, VT_DISPATCH);
        return Object(element.pdispVal).Get(name).Text();
    }
};

} // namespace

TEST_F(AutomationEnumeration, WalksOverEachCollection)
{
    const Object menu = AddMenu(L"&A"), toolbar = AddToolbar(L"T");
    menu.Call(L"InsertInMenuBar", 0L);
    AddItem(menu, L"item");
    AddButton(toolbar, L"button");
    EXPECT_EQ(Next(EnumeratorOf(Groups())), L"BASE");
    EXPECT_EQ(Next(EnumeratorOf(Menus())), L"&A");
    EXPECT_EQ(Next(EnumeratorOf(Bar())), L"&A");
    EXPECT_EQ(Next(EnumeratorOf(menu), L"Label"), L"item");
    EXPECT_EQ(Next(EnumeratorOf(Toolbars())), L"T");
    EXPECT_EQ(Next(EnumeratorOf(toolbar)), L"button");
}

TEST_F(AutomationEnumeration, GoesInOrderToTheEnd)
{
    for (const wchar_t* name : {L"A", L"B", L"C"})
        AddMenu(name);
    const Enumerator walk = EnumeratorOf(Menus());
    EXPECT_EQ(Next(walk), L"A");
    EXPECT_EQ(Next(walk), L"B");
    EXPECT_EQ(Next(walk), L"C");
    EXPECT_EQ(Next(walk), L"end");
    EXPECT_EQ(walk->Reset(), S_OK);
    EXPECT_EQ(Next(walk), L"A");
}

TEST_F(AutomationEnumeration, FetchesSeveralAtOnce)
{
    for (const wchar_t* name : {L"A", L"B", L"C"})
        AddMenu(name);
    const Enumerator walk = EnumeratorOf(Menus());
    _variant_t elements[2];
    ULONG fetched = 0;
    EXPECT_EQ(walk->Next(2, elements, &fetched), S_OK);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(Object(elements[1].pdispVal).Get(L"Name").Text(), L"B");
    for (_variant_t& element : elements)
        element.Clear();
    EXPECT_EQ(walk->Next(2, elements, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 1u);
    EXPECT_EQ(walk->Next(2, elements, nullptr), E_POINTER);
}

TEST_F(AutomationEnumeration, SkipsAndClones)
{
    for (const wchar_t* name : {L"A", L"B", L"C"})
        AddMenu(name);
    const Enumerator walk = EnumeratorOf(Menus());
    EXPECT_EQ(walk->Skip(1), S_OK);
    IEnumVARIANT* copy = nullptr;
    ASSERT_EQ(walk->Clone(&copy), S_OK);
    const Enumerator second(copy);
    EXPECT_EQ(walk->Skip(3), S_FALSE);
    EXPECT_EQ(Next(walk), L"end");
    EXPECT_EQ(Next(second), L"B");
}

TEST_F(AutomationEnumeration, LeavesOutWhatWasRemovedMeanwhile)
{
    const Object menu = AddMenu();
    AddItem(menu, L"a");
    const Object b = AddItem(menu, L"b");
    AddItem(menu, L"c");
    const Enumerator walk = EnumeratorOf(menu);
    EXPECT_EQ(Next(walk, L"Label"), L"a");
    b.Call(L"Delete");
    AddItem(menu, L"late");
    EXPECT_EQ(Next(walk, L"Label"), L"c");
    EXPECT_EQ(Next(walk, L"Label"), L"end");
}

TEST_F(AutomationEnumeration, OfTheBarLeavesOutMenusTakenOffItMeanwhile)
{
    const Object a = AddMenu(L"&A"), b = AddMenu(L"&B"), c = AddMenu(L"&C");
    for (const Object& menu : {a, b, c})
        menu.Call(L"InsertInMenuBar", 99L);
    const Enumerator walk = EnumeratorOf(Bar());
    EXPECT_EQ(b.Call(L"RemoveFromMenuBar").result, S_OK);
    EXPECT_EQ(Next(walk), L"&A");
    EXPECT_EQ(Next(walk), L"&C");
    EXPECT_EQ(Next(walk), L"end");
}

TEST_F(AutomationEnumeration, EndsWithTheHost)
{
    AddMenu();
    const Enumerator walk = EnumeratorOf(Menus());
    m_automation.reset();
    EXPECT_EQ(Next(walk), L"end");
}

TEST_F(AutomationEnumeration, ElementsCanBeDeletedOnTheWay)
{
    const Object menu = AddMenu();
    for (const wchar_t* label : {L"a", L"b", L"c"})
        AddItem(menu, label);
    const Enumerator walk = EnumeratorOf(menu);
    _variant_t element;
    while (walk->Next(1, &element, nullptr) == S_OK) {
        EXPECT_EQ(Object(element.pdispVal).Call(L"Delete").result, S_OK);
        element.Clear();
    }
    EXPECT_EQ(menu.Get(L"Count").Number(), 0);
}
