#include "AutomationFixture.h"
#include "FailingMemory.h"

using namespace hosttest;

namespace
{

using AutomationDispatch = AutomationFixture;

struct NamedId
{
    const wchar_t* name;
    DISPID id;
};

// Each name must be found in any case, with its id.
void ExpectIds(const Object& object, const std::vector<NamedId>& members)
{
    for (const NamedId& member : members) {
        EXPECT_EQ(object.IdOf(member.name), member.id) << member.name;
        std::wstring upper = member.name, lower = member.name;
        CharUpperW(upper.data());
        CharLowerW(lower.data());
        EXPECT_EQ(object.IdOf(upper.c_str()), member.id) << upper;
        EXPECT_EQ(object.IdOf(lower.c_str()), member.id) << lower;
    }
}

} // namespace

TEST_F(AutomationDispatch, ApplicationHasItsMembers)
{
    ExpectIds(App(), {{L"Visible", 1},
                      {L"Name", 2},
                      {L"Caption", 3},
                      {L"Application", 4},
                      {L"ActiveDocument", 5},
                      {L"FullName", 6},
                      {L"Height", 7},
                      {L"WindowLeft", 8},
                      {L"Path", 9},
                      {L"LocaleId", 10},
                      {L"WindowTop", 11},
                      {L"Version", 12},
                      {L"Width", 13},
                      {L"Preferences", 14},
                      {L"ListArx", 18},
                      {L"LoadArx", 19},
                      {L"GetInterfaceObject", 20},
                      {L"UnloadArx", 23},
                      {L"Update", 24},
                      {L"Quit", 25},
                      {L"MenuGroups", 28},
                      {L"MenuBar", 29},
                      {L"Documents", 32},
                      {L"WindowState", 34},
                      {L"RunMacro", 35},
                      {L"GetAcadState", 42},
                      {L"HWND", 44}});
    EXPECT_EQ(App().IdOf(L"Parent"), DISPID_UNKNOWN);
}

TEST_F(AutomationDispatch, CollectionsHaveTheirMembers)
{
    const std::vector<NamedId> common = {{L"Item", 0},
                                         {L"_NewEnum", -4},
                                         {L"Count", 0x60020002},
                                         {L"Application", 0x60020003},
                                         {L"Parent", 0x60020004}};
    for (const Object& collection : {Groups(), Menus(), AddMenu(), Bar(), Toolbars(), AddToolbar()})
        ExpectIds(collection, common);
    ExpectIds(Groups(), {{L"Load", 0x60020005}});
    ExpectIds(
        Menus(),
        {{L"Add", 0x60020005}, {L"InsertMenuInMenuBar", 0x60020006}, {L"RemoveMenuFromMenuBar", 0x60020007}});
    ExpectIds(Toolbars(), {{L"LargeButtons", 0x60020005}, {L"Add", 0x60020007}});
}

TEST_F(AutomationDispatch, MenuGroupHasItsMembers)
{
    ExpectIds(Group(), {{L"Application", 0x60020000},
                        {L"Parent", 0x60020001},
                        {L"Name", 0x60020002},
                        {L"Type", 0x60020003},
                        {L"MenuFileName", 0x60020004},
                        {L"Menus", 0x60020005},
                        {L"Toolbars", 0x60020006},
                        {L"Unload", 0x60020007},
                        {L"Save", 0x60020008},
                        {L"SaveAs", 0x60020009}});
}

TEST_F(AutomationDispatch, PopupMenuHasItsMembers)
{
    ExpectIds(AddMenu(), {{L"Name", 0x60020005},
                          {L"NameNoMnemonic", 0x60020007},
                          {L"ShortcutMenu", 0x60020008},
                          {L"OnMenuBar", 0x60020009},
                          {L"AddMenuItem", 0x6002000a},
                          {L"AddSubMenu", 0x6002000b},
                          {L"AddSeparator", 0x6002000c},
                          {L"InsertInMenuBar", 0x6002000d},
                          {L"RemoveFromMenuBar", 0x6002000e},
                          {L"TagString", 0x6002000f}});
    EXPECT_EQ(Menus().Call(L"Item", 0L).operator Object().IdOf(L"Delete"), DISPID_UNKNOWN);
}

TEST_F(AutomationDispatch, PopupMenuItemHasItsMembers)
{
    const Object item = AddItem(AddMenu(), L"a");
    ExpectIds(item, {{L"Application", 0x60020000},
                     {L"Parent", 0x60020001},
                     {L"Label", 0x60020002},
                     {L"TagString", 0x60020004},
                     {L"Enable", 0x60020006},
                     {L"Check", 0x60020008},
                     {L"Type", 0x6002000a},
                     {L"SubMenu", 0x6002000b},
                     {L"Macro", 0x6002000c},
                     {L"Index", 0x6002000e},
                     {L"Caption", 0x6002000f},
                     {L"HelpString", 0x60020010},
                     {L"Delete", 0x60020012},
                     {L"EndSubMenuLevel", 0x60020013}});
    for (const wchar_t* name : {L"Enabled", L"Checked", L"Help", L"Name"})
        EXPECT_EQ(item.IdOf(name), DISPID_UNKNOWN) << name;
}

TEST_F(AutomationDispatch, ToolbarHasItsMembers)
{
    ExpectIds(AddToolbar(), {{L"Name", 0x60020005},
                             {L"Visible", 0x60020007},
                             {L"DockStatus", 0x60020009},
                             {L"LargeButtons", 0x6002000a},
                             {L"left", 0x6002000b},
                             {L"top", 0x6002000d},
                             {L"Width", 0x6002000f},
                             {L"Height", 0x60020010},
                             {L"FloatingRows", 0x60020011},
                             {L"HelpString", 0x60020013},
                             {L"AddToolbarButton", 0x60020015},
                             {L"AddSeparator", 0x60020016},
                             {L"Dock", 0x60020017},
                             {L"Float", 0x60020018},
                             {L"Delete", 0x60020019},
                             {L"TagString", 0x6002001a}});
}

TEST_F(AutomationDispatch, ToolbarItemHasItsMembers)
{
    const Object item = AddButton(AddToolbar(), L"a");
    ExpectIds(item, {{L"Application", 0x60020000},
                     {L"Parent", 0x60020001},
                     {L"Name", 0x60020002},
                     {L"TagString", 0x60020004},
                     {L"Type", 0x60020006},
                     {L"Flyout", 0x60020007},
                     {L"Macro", 0x60020008},
                     {L"Index", 0x6002000a},
                     {L"HelpString", 0x6002000b},
                     {L"GetBitmaps", 0x6002000d},
                     {L"SetBitmaps", 0x6002000e},
                     {L"AttachToolbarToFlyout", 0x6002000f},
                     {L"Delete", 0x60020010},
                     {L"CommandDisplayName", 0x60020011}});
    for (const wchar_t* name : {L"Label", L"Caption", L"Enable", L"Check"})
        EXPECT_EQ(item.IdOf(name), DISPID_UNKNOWN) << name;
}

TEST_F(AutomationDispatch, UnknownNameIsReportedAsSuch)
{
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Nonsense")};
    DISPID id = 7;
    EXPECT_EQ(App().Raw()->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(App().Raw()->GetIDsOfNames(IID_IDispatch, names, 1, LOCALE_NEUTRAL, &id),
              DISP_E_UNKNOWNINTERFACE);
}

TEST_F(AutomationDispatch, NullIsNoName)
{
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"AddToolbarButton"), nullptr};
    DISPID ids[2] = {};
    const Object toolbar = AddToolbar();
    EXPECT_EQ(toolbar.Raw()->GetIDsOfNames(IID_NULL, names, 2, LOCALE_NEUTRAL, ids), E_INVALIDARG);
    EXPECT_EQ(toolbar.Raw()->GetIDsOfNames(IID_NULL, names + 1, 1, LOCALE_NEUTRAL, ids), E_INVALIDARG);
    EXPECT_EQ(toolbar.Raw()->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_NEUTRAL, ids), E_INVALIDARG);
}

TEST_F(AutomationDispatch, NamesAreFoundWithoutMemory)
{
    if (!FailingMemory::IsPossible())
        GTEST_SKIP() << "this build's memory cannot be made to fail";
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"AddToolbarButton"), const_cast<LPOLESTR>(L"FlyoutButton")};
    DISPID ids[2] = {};
    const Object toolbar = AddToolbar();
    HRESULT result = E_FAIL;
    {
        const FailingMemory failing;
        result = toolbar.Raw()->GetIDsOfNames(IID_NULL, names, 2, LOCALE_NEUTRAL, ids);
    }
    EXPECT_EQ(result, S_OK);
    EXPECT_EQ(ids[0], 0x60020015);
    EXPECT_EQ(ids[1], 4);
}

TEST_F(AutomationDispatch, CallWithoutMemoryReturnsThatAsItsResult)
{
    if (!FailingMemory::IsPossible())
        GTEST_SKIP() << "this build's memory cannot be made to fail";
    const Object menus = Menus();
    _variant_t name(L"a name that needs memory of its own");
    VARIANT argument = name;
    DISPPARAMS params{&argument, nullptr, 1, 0};
    const DISPID add = menus.IdOf(L"Add");
    HRESULT result = S_OK;
    {
        const FailingMemory failing;
        result = menus.Raw()->Invoke(add, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr);
    }
    EXPECT_EQ(result, E_OUTOFMEMORY);
    EXPECT_EQ(menus.Get(L"Count").Number(), 0);
}

TEST_F(AutomationDispatch, ArgumentNamesAreTheirPositions)
{
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"AddToolbarButton"),
                        const_cast<LPOLESTR>(L"Index"),
                        const_cast<LPOLESTR>(L"NAME"),
                        const_cast<LPOLESTR>(L"HelpString"),
                        const_cast<LPOLESTR>(L"macro"),
                        const_cast<LPOLESTR>(L"FlyoutButton"),
                        const_cast<LPOLESTR>(L"Nonsense")};
    DISPID ids[7] = {};
    const Object toolbar = AddToolbar();
    EXPECT_EQ(toolbar.Raw()->GetIDsOfNames(IID_NULL, names, 6, LOCALE_NEUTRAL, ids), S_OK);
    for (DISPID i = 0; i < 5; ++i)
        EXPECT_EQ(ids[i + 1], i);
    EXPECT_EQ(toolbar.Raw()->GetIDsOfNames(IID_NULL, names, 7, LOCALE_NEUTRAL, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[6], DISPID_UNKNOWN);
    EXPECT_EQ(ids[5], 4);
    LPOLESTR macro[] = {const_cast<LPOLESTR>(L"RunMacro"), const_cast<LPOLESTR>(L"path")};
    EXPECT_EQ(App().Raw()->GetIDsOfNames(IID_NULL, macro, 2, LOCALE_NEUTRAL, ids), S_OK);
    EXPECT_EQ(ids[1], 0);
}

TEST_F(AutomationDispatch, NamedArgumentsGoToTheirPlaces)
{
    const Object toolbar = AddToolbar();
    // Float(top, left, NumberFloatRows) as Float(30, NumberFloatRows := 2, left := 40)
    const Outcome done = toolbar.Invoke(toolbar.IdOf(L"Float"), DISPATCH_METHOD,
                                        {_variant_t(30L), _variant_t(2L), _variant_t(40L)}, {2, 1});
    EXPECT_EQ(done.result, S_OK);
    EXPECT_EQ(toolbar.Get(L"top").Number(), 30);
    EXPECT_EQ(toolbar.Get(L"left").Number(), 40);
    EXPECT_EQ(toolbar.Get(L"FloatingRows").Number(), 2);
}

TEST_F(AutomationDispatch, NamedArgumentsAreChecked)
{
    const Object toolbar = AddToolbar();
    const DISPID id = toolbar.IdOf(L"Float");
    const std::vector<_variant_t> three = {_variant_t(1L), _variant_t(2L), _variant_t(3L)};
    EXPECT_EQ(toolbar.Invoke(id, DISPATCH_METHOD, three, {2, 3}).result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(toolbar.Invoke(id, DISPATCH_METHOD, three, {2, 0}).result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(toolbar.Invoke(id, DISPATCH_METHOD, three, {2, 2}).result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(toolbar.Invoke(id, DISPATCH_METHOD, {_variant_t(1L), _variant_t(2L)}, {2}).result,
              DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(AutomationDispatch, WrongNumberOfArgumentsIsRefused)
{
    const Object menus = Menus(), menu = AddMenu();
    EXPECT_EQ(menus.Call(L"Add").result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menus.Call(L"Add", L"a", L"b").result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menu.Call(L"AddMenuItem", 0L, L"label").result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menu.Call(L"RemoveFromMenuBar", 0L).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menus.Call(L"Item").result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menus.Get(L"Count").Number(), 1);
    EXPECT_EQ(menu.Get(L"Name", 0L).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationDispatch, MandatoryArgumentMayNotBePassedAsMissing)
{
    const Outcome outcome = AddMenu().Call(L"AddMenuItem", 0L, Missing(), L"m");
    EXPECT_EQ(outcome.result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(outcome.argument, 1u); // counted from the last one
}

TEST_F(AutomationDispatch, UnknownMemberIsRefused)
{
    EXPECT_EQ(App().Invoke(4711, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(App().Invoke(DISPID_UNKNOWN, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(AutomationDispatch, MethodsAndPropertiesAreNotMixedUp)
{
    const Object menus = Menus();
    EXPECT_EQ(menus.Invoke(menus.IdOf(L"Count"), DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(menus.Get(L"Add", L"x").result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(menus.Put(L"Count", 3L).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(menus.Put(L"Add", 3L).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(AutomationDispatch, CallsThatMayBeEitherFindWhatIsThere)
{
    const Object menus = Menus();
    const WORD either = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    EXPECT_EQ(menus.Invoke(menus.IdOf(L"Count"), either, {}).Number(), 0);
    EXPECT_EQ(menus.Invoke(menus.IdOf(L"Add"), either, {_variant_t(L"x")}).result, S_OK);
    EXPECT_EQ(menus.Invoke(menus.IdOf(L"Count"), either, {}).Number(), 1);
}

TEST_F(AutomationDispatch, ReadOnlyPropertiesRefuseAValue)
{
    const Object menu = AddMenu(), item = AddItem(menu, L"a");
    EXPECT_EQ(menu.Put(L"NameNoMnemonic", L"x").result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(item.Put(L"Index", 1L).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(item.Put(L"Type", 1L).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(App().Put(L"Caption", L"x").result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(AddToolbar().Put(L"LargeButtons", true).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(AutomationDispatch, PutNeedsItsOneValueUnderTheNameForPuts)
{
    const Object menu = AddMenu();
    const DISPID id = menu.IdOf(L"Name");
    VARIANT value;
    VariantInit(&value);
    DISPPARAMS none{};
    EXPECT_EQ(menu.Raw()->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
    DISPPARAMS unnamed{&value, nullptr, 1, 0};
    EXPECT_EQ(menu.Raw()->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &unnamed, nullptr, nullptr, nullptr),
              DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(menu.Get(L"Name").Text(), L"&Tools");
}

TEST_F(AutomationDispatch, NumbersOfAnyTypeAreAnIndex)
{
    AddMenu(L"A");
    AddMenu(L"B");
    const Object menus = Menus();
    const Object b = menus.Call(L"Item", L"B");
    EXPECT_EQ(Object(menus.Call(L"Item", static_cast<short>(1))), b);
    EXPECT_EQ(Object(menus.Call(L"Item", static_cast<BYTE>(1))), b);
    EXPECT_EQ(Object(menus.Call(L"Item", 1.0)), b);
    EXPECT_EQ(Object(menus.Call(L"Item", 0.75)), b); // rounded
    EXPECT_EQ(Object(menus.Call(L"Item", 1.0f)), b);
    EXPECT_EQ(Object(menus.Call(L"Item", 1u)), b);
    EXPECT_EQ(Object(menus.Call(L"Item", 1LL)), b);
    ExpectRefused(menus.Call(L"Item", true), DISP_E_BADINDEX); // true is -1
    EXPECT_EQ(menus.Call(L"Item", 1e10).result, DISP_E_OVERFLOW);
}

TEST_F(AutomationDispatch, TextIsANameEvenWhenItLooksLikeANumber)
{
    AddMenu(L"A");
    AddMenu(L"0");
    EXPECT_EQ(Object(Menus().Call(L"Item", L"0")).Get(L"Name").Text(), L"0");
    ExpectRefused(Menus().Call(L"Item", L"1"), DISP_E_BADINDEX);
}

TEST_F(AutomationDispatch, OtherTypesAreNoIndex)
{
    AddMenu();
    _variant_t null;
    null.vt = VT_NULL;
    EXPECT_EQ(Menus().Call(L"Item", null).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Menus().Call(L"Item", _variant_t()).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Menus().Call(L"Item", _variant_t(App().Raw())).result, DISP_E_TYPEMISMATCH);
}

TEST_F(AutomationDispatch, ReferencesAreFollowed)
{
    AddMenu(L"A");
    const Object b = AddMenu(L"B");
    long number = 1;
    _variant_t byNumber;
    byNumber.vt = VT_BYREF | VT_I4;
    byNumber.plVal = &number;
    EXPECT_EQ(Object(Menus().Call(L"Item", byNumber)), b);

    _variant_t inner(L"B");
    _variant_t byVariant;
    byVariant.vt = VT_BYREF | VT_VARIANT;
    byVariant.pvarVal = &inner;
    EXPECT_EQ(Object(Menus().Call(L"Item", byVariant)), b);

    _variant_t missing = Missing(), byMissing;
    byMissing.vt = VT_BYREF | VT_VARIANT;
    byMissing.pvarVal = &missing;
    EXPECT_EQ(AddToolbar().Call(L"AddToolbarButton", 0L, L"n", L"h", L"m", byMissing).result, S_OK);
}

TEST_F(AutomationDispatch, ValuesAreConvertedByThePlatformsRules)
{
    const Object toolbar = AddToolbar();
    EXPECT_EQ(toolbar.Put(L"Visible", 0L).result, S_OK);
    EXPECT_FALSE(toolbar.Get(L"Visible").Flag());
    EXPECT_EQ(toolbar.Put(L"Visible", 5L).result, S_OK);
    EXPECT_TRUE(toolbar.Get(L"Visible").Flag());
    EXPECT_EQ(toolbar.Put(L"FloatingRows", L"3").result, S_OK);
    EXPECT_EQ(toolbar.Get(L"FloatingRows").Number(), 3);
    EXPECT_EQ(toolbar.Put(L"Name", 12L).result, S_OK);
    EXPECT_EQ(toolbar.Get(L"Name").Text(), L"12");
}

TEST_F(AutomationDispatch, ArgumentOfAWrongTypeIsNamed)
{
    const Outcome outcome = AddToolbar().Call(L"Float", 1L, L"left", 1L);
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.argument, 1u); // counted from the last one
    EXPECT_EQ(AddToolbar(L"x").Put(L"FloatingRows", L"many").result, DISP_E_TYPEMISMATCH);
}

TEST_F(AutomationDispatch, PropertyWithArgumentsMeansTheDefaultMember)
{
    const Object menu = AddMenu(L"&A");
    const WORD either = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    const Object group = Group();
    EXPECT_EQ(Object(group.Invoke(group.IdOf(L"Menus"), either, {_variant_t(L"&A")})), menu);
    EXPECT_EQ(Object(group.Get(L"Menus", 0L)), menu);
    ExpectRefused(group.Get(L"Menus", 5L), DISP_E_BADINDEX);
}

TEST_F(AutomationDispatch, ResultMayBeLeft)
{
    const Object menus = Menus();
    _variant_t name(L"&A");
    VARIANT argument = name;
    DISPPARAMS params{&argument, nullptr, 1, 0};
    EXPECT_EQ(menus.Raw()->Invoke(menus.IdOf(L"Add"), IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr,
                                  nullptr),
              S_OK);
    EXPECT_EQ(menus.Get(L"Count").Number(), 1);
}

TEST_F(AutomationDispatch, RefusalWithoutRoomForTextsIsItsCode)
{
    const Object menus = Menus();
    _variant_t index(5L);
    VARIANT argument = index;
    DISPPARAMS params{&argument, nullptr, 1, 0};
    EXPECT_EQ(
        menus.Raw()->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr),
        DISP_E_BADINDEX);
}

TEST_F(AutomationDispatch, ObjectsAreUnknownAndDispatchOnly)
{
    const Object menus = Menus();
    IUnknown* unknown = nullptr;
    ASSERT_EQ(menus.Raw()->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)), S_OK);
    EXPECT_EQ(unknown, menus.Raw());
    unknown->Release();
    void* other = &unknown;
    EXPECT_EQ(menus.Raw()->QueryInterface(IID_IEnumVARIANT, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(menus.Raw()->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(AutomationDispatch, ThereIsNoTypeInformation)
{
    UINT count = 5;
    EXPECT_EQ(App().Raw()->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0u);
    ITypeInfo* info = reinterpret_cast<ITypeInfo*>(&count);
    EXPECT_EQ(App().Raw()->GetTypeInfo(0, 0, &info), DISP_E_BADINDEX);
    EXPECT_EQ(info, nullptr);
}

TEST_F(AutomationDispatch, OneElementHasOneObject)
{
    const Object menu = AddMenu(L"&A");
    EXPECT_EQ(Object(Menus().Call(L"Item", 0L)), menu);
    EXPECT_EQ(Menus(), Menus());
    EXPECT_EQ(Bar(), Bar());
    EXPECT_FALSE(Menus() == Toolbars());
}
