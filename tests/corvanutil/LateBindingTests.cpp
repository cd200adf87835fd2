// How members of the host are called, and how its failures arrive.
#include "CompanionTest.h"
#include "ScriptedObject.h"
#include "TaskMemory.h"

namespace companiontest
{

class LateBinding : public testing::Test
{
protected:
    ~LateBinding() override { EXPECT_EQ(0, object.references); }

    ScriptedObject object;

    IAcadToolbar Wrapper()
    {
        object.AddRef();
        return IAcadToolbar(&object);
    }
    std::optional<Failure> FailureOfSetVisible()
    {
        return FailureOf([this] { Wrapper().SetVisible(1); });
    }
    // Lets "Visible" fail with DISP_E_EXCEPTION after `fill` has filled its description in.
    void LetVisibleFail(const std::function<void(EXCEPINFO& info)>& fill)
    {
        object.members[L"Visible"] = [fill](const ScriptedCall&, VARIANT*, EXCEPINFO* info) {
            fill(*info);
            return DISP_E_EXCEPTION;
        };
    }
};

TEST_F(LateBinding, PutsAPropertyAsOneNamedArgument)
{
    int calls = 0;
    object.members[L"Visible"] = [&calls](const ScriptedCall& call, VARIANT*, EXCEPINFO*) {
        ++calls;
        EXPECT_EQ(DISPATCH_PROPERTYPUT, call.flags);
        EXPECT_EQ(1u, call.parameters->cArgs);
        EXPECT_EQ(1u, call.parameters->cNamedArgs);
        EXPECT_EQ(DISPID_PROPERTYPUT, call.parameters->rgdispidNamedArgs[0]);
        EXPECT_EQ(VT_BOOL, V_VT(&call.parameters->rgvarg[0]));
        EXPECT_EQ(VARIANT_TRUE, V_BOOL(&call.parameters->rgvarg[0]));
        return S_OK;
    };
    Wrapper().SetVisible(1);
    EXPECT_EQ(1, calls);
}

TEST_F(LateBinding, FindsMembersWhateverTheirNumbers)
{
    int calls = 0;
    object.members[L"AAA"] = Gives(0L);
    object.members[L"Visible"] = [&calls](const ScriptedCall&, VARIANT*, EXCEPINFO*) {
        ++calls;
        return S_OK;
    };
    Wrapper().SetVisible(0);
    EXPECT_EQ(1, calls);
}

TEST_F(LateBinding, GivesArgumentsInReverseAsTheirTypes)
{
    ScriptedObject item;
    item.members[L"HelpString"] = Gives(0L);
    object.members[L"Count"] = Gives(3L);
    object.members[L"AddMenuItem"] = [&](const ScriptedCall& call, VARIANT* result, EXCEPINFO* info) {
        EXPECT_EQ(DISPATCH_METHOD, call.flags);
        EXPECT_EQ(0u, call.parameters->cNamedArgs);
        EXPECT_EQ(3u, call.parameters->cArgs);
        const VARIANT* arguments = call.parameters->rgvarg;
        EXPECT_EQ(VT_BSTR, V_VT(&arguments[0]));
        EXPECT_STREQ(L"LINE ", V_BSTR(&arguments[0]));
        EXPECT_STREQ(L"Line", V_BSTR(&arguments[1]));
        EXPECT_EQ(VT_I4, V_VT(&arguments[2]));
        EXPECT_EQ(3, V_I4(&arguments[2]));
        return Gives(item)(call, result, info);
    };
    object.AddRef();
    EXPECT_TRUE(Append_MenuItem(IAcadPopupMenu(&object), L"Line", L"LINE ", L"help", true, false));
    EXPECT_EQ(0, item.references);
}

TEST_F(LateBinding, ConvertsResultsToTheTypeItNeeds)
{
    ScriptedObject sub;
    object.members[L"Count"] = Gives(L"7");
    object.members[L"AddSubMenu"] = [&](const ScriptedCall& call, VARIANT* result, EXCEPINFO*) {
        EXPECT_EQ(7, V_I4(&call.parameters->rgvarg[1]));
        sub.AddRef();
        V_VT(result) = VT_UNKNOWN;
        V_UNKNOWN(result) = &sub;
        return S_OK;
    };
    object.AddRef();
    IDispatch* const returned = Append_SubMenu(IAcadPopupMenu(&object), L"More");
    EXPECT_EQ(static_cast<IDispatch*>(&sub), returned);
    EXPECT_EQ(1, sub.references);
    returned->Release();
}

TEST_F(LateBinding, ReportsTheFirstOfTwoRefusalsOfAnItem)
{
    int calls = 0;
    object.members[L"Count"] = Gives(0L);
    object.members[L"AddMenuItem"] = [&calls](const ScriptedCall&, VARIANT*, EXCEPINFO*) {
        return ++calls == 1 ? E_ACCESSDENIED : E_OUTOFMEMORY;
    };
    const auto failure = FailureOf([this] {
        object.AddRef();
        Append_MenuItem(IAcadPopupMenu(&object), L"Heading", nullptr, nullptr, true, false);
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_ACCESSDENIED, failure->status);
    EXPECT_EQ(2, calls);
}

TEST_F(LateBinding, AsksOnlyOnceForAnItemWithoutEmptyTexts)
{
    int calls = 0;
    object.members[L"Count"] = Gives(0L);
    object.members[L"AddMenuItem"] = [&calls](const ScriptedCall&, VARIANT*, EXCEPINFO*) {
        ++calls;
        return E_ACCESSDENIED;
    };
    EXPECT_TRUE(FailureOf([this] {
        object.AddRef();
        Append_MenuItem(IAcadPopupMenu(&object), L"Line", L"LINE ", nullptr, true, false);
    }));
    EXPECT_EQ(1, calls);
}

TEST_F(LateBinding, RefusesAResultOfAnotherType)
{
    object.members[L"Count"] = Gives(L"many");
    const auto failure = FailureOf([this] {
        object.AddRef();
        Append_SubMenu(IAcadPopupMenu(&object), L"More");
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, failure->status);
}

TEST_F(LateBinding, ReportsAnUnknownName)
{
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(DISP_E_UNKNOWNNAME, failure->status);
    EXPECT_EQ(0, failure->code);
    EXPECT_EQ(L"CorvanUtil22.Visible", failure->source);
    EXPECT_FALSE(failure->description.empty());
}

TEST_F(LateBinding, ReportsABareResultWithTheSystemsMessage)
{
    object.members[L"Visible"] = Fails(E_ACCESSDENIED);
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_ACCESSDENIED, failure->status);
    EXPECT_EQ(0, failure->code);

    wchar_t expected[256] = L"";
    ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(E_ACCESSDENIED), 0, expected, 256, nullptr);
    std::wstring message(expected);
    message.erase(message.find_last_not_of(L"\r\n ") + 1);
    ASSERT_FALSE(message.empty());
    EXPECT_EQ(message, failure->description);
}

TEST_F(LateBinding, ReportsAResultThatTheSystemHasNoMessageFor)
{
    object.members[L"Visible"] = Fails(static_cast<HRESULT>(0xA7654321));
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(static_cast<HRESULT>(0xA7654321), failure->status);
    EXPECT_EQ(L"Error 0xA7654321", failure->description);
}

TEST_F(LateBinding, KeepsWhatTheHostTellsOfItsFailure)
{
    LetVisibleFail([](EXCEPINFO& info) {
        info.wCode = 1234;
        info.bstrSource = ::SysAllocString(L"Host");
        info.bstrDescription = ::SysAllocString(L"Not now.");
        info.bstrHelpFile = ::SysAllocString(L"host.hlp");
        info.dwHelpContext = 77;
    });
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(1234, failure->code);
    EXPECT_EQ(L"Host", failure->source);
    EXPECT_EQ(L"Not now.", failure->description);
    EXPECT_EQ(L"host.hlp", failure->helpFile);
    EXPECT_EQ(77u, failure->helpContext);
}

TEST_F(LateBinding, KeepsTheStatusOfAFailureWithoutACode)
{
    LetVisibleFail([](EXCEPINFO& info) {
        info.scode = E_INVALIDARG;
        info.bstrDescription = ::SysAllocString(L"No.");
    });
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(0, failure->code);
    EXPECT_EQ(E_INVALIDARG, failure->status);
    EXPECT_EQ(L"No.", failure->description);
    EXPECT_EQ(L"", failure->source);
}

HRESULT STDMETHODCALLTYPE FillInLater(EXCEPINFO* info)
{
    info->bstrSource = ::SysAllocString(L"Late host");
    info->bstrDescription = ::SysAllocString(L"Told when asked.");
    info->scode = E_UNEXPECTED;
    return S_OK;
}

TEST_F(LateBinding, AsksForADescriptionThatTheHostFillsInLater)
{
    LetVisibleFail([](EXCEPINFO& info) { info.pfnDeferredFillIn = &FillInLater; });
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(L"Late host", failure->source);
    EXPECT_EQ(L"Told when asked.", failure->description);
    EXPECT_EQ(E_UNEXPECTED, failure->status);
}

TEST_F(LateBinding, MakesUpADescriptionThatTheHostDoesNotGive)
{
    LetVisibleFail([](EXCEPINFO& info) { info.scode = static_cast<SCODE>(0xA7654321); });
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(L"Error 0xA7654321", failure->description);
}

TEST_F(LateBinding, TakesTheSystemsMessageForACodeWithoutADescription)
{
    LetVisibleFail([](EXCEPINFO& info) { info.wCode = 1234; });
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(1234, failure->code);
    EXPECT_EQ(S_OK, failure->status);
    EXPECT_EQ(L"", failure->source);

    // Not every system has a message for it.
    wchar_t message[256] = L"";
    ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(DISP_E_EXCEPTION), 0, message, 256, nullptr);
    std::wstring expected(message);
    expected.erase(expected.find_last_not_of(L"\r\n ") + 1);
    EXPECT_EQ(expected.empty() ? L"Error 0x80020009" : expected, failure->description);
}

HRESULT STDMETHODCALLTYPE FillInFails(EXCEPINFO*)
{
    return E_OUTOFMEMORY;
}

TEST_F(LateBinding, KeepsWhatTheHostGaveAtFirstWhenItCannotFillInTheRest)
{
    LetVisibleFail([](EXCEPINFO& info) {
        info.bstrSource = ::SysAllocString(L"Host");
        info.scode = static_cast<SCODE>(0xA7654321);
        info.pfnDeferredFillIn = &FillInFails;
    });
    const auto failure = FailureOfSetVisible();
    ASSERT_TRUE(failure);
    EXPECT_EQ(L"Host", failure->source);
    EXPECT_EQ(static_cast<SCODE>(0xA7654321), failure->status);
    EXPECT_EQ(L"Error 0xA7654321", failure->description);
}

TEST_F(LateBinding, FreesTheTextsOfAFailure)
{
    // Larger than the texts that the platform keeps for later.
    const std::wstring text(40000, L'x');
    LetVisibleFail([&text](EXCEPINFO& info) {
        info.bstrSource = ::SysAllocString(text.c_str());
        info.bstrDescription = ::SysAllocString(text.c_str());
        info.bstrHelpFile = ::SysAllocString(text.c_str());
    });
    const TaskMemory memory;
    ASSERT_TRUE(memory.Counts());
    // The count is worth something only if it sees such a text.
    const BSTR probe = ::SysAllocString(text.c_str());
    EXPECT_EQ(1, memory.Blocks());
    ::SysFreeString(probe);
    EXPECT_EQ(0, memory.Blocks());
    EXPECT_TRUE(FailureOfSetVisible());
    EXPECT_EQ(0, memory.Blocks());
}

TEST_F(LateBinding, FreesTheTextsOfArgumentsAndResults)
{
    const std::wstring text(40000, L'x');
    ScriptedObject item;
    item.members[L"HelpString"] = Gives(0L);
    object.members[L"Count"] = Gives(1L);
    object.members[L"Name"] = Gives(text.c_str());
    object.members[L"AddMenuItem"] = Gives(item);
    object.members[L"Item"] = Gives(object);
    object.members[L"MenuGroups"] = Gives(object);
    object.members[L"Type"] = Gives(0L);
    object.members[L"ShortcutMenu"] = Gives(0L);
    object.members[L"Menus"] = Gives(object);
    object.members[L"OnMenuBar"] = Gives(-1L);
    object.members[L"Delete"] = Gives(0L);
    const TaskMemory memory;
    ASSERT_TRUE(memory.Counts());
    IAcadPopupMenu menu(Create_ACADMenu(&object, text.c_str()));
    EXPECT_TRUE(Append_MenuItem(menu, text.c_str(), text.c_str(), text.c_str(), true, false));
    EXPECT_EQ(0, memory.Blocks());
}

TEST_F(LateBinding, TakesItemAsAPropertyToo)
{
    ScriptedObject group;
    ScriptedObject groups;
    groups.members[L"Item"] = [&](const ScriptedCall& call, VARIANT* result, EXCEPINFO* info) -> HRESULT {
        return (call.flags & DISPATCH_PROPERTYGET) ? Gives(group)(call, result, info) : DISP_E_MEMBERNOTFOUND;
    };
    group.members[L"Type"] = Gives(0L);
    object.members[L"MenuGroups"] = Gives(groups);
    const auto failure = FailureOf([this] { Create_ACADMenu(&object, L"&Tools"); });
    // The group was reached: it is the one that has no such member.
    ASSERT_TRUE(failure);
    EXPECT_EQ(L"CorvanUtil22.Menus", failure->source);
    EXPECT_EQ(0, groups.references);
    EXPECT_EQ(0, group.references);
}

TEST_F(LateBinding, DeletesTheLastItemOfAMenuFirst)
{
    // So no separator comes to stand at the top, which a host may refuse.
    std::vector<long> deleted;
    ScriptedObject groups, group, menus, menu, item;
    long asked = -1;
    object.members[L"MenuGroups"] = Gives(groups);
    groups.members[L"Item"] = Gives(group);
    group.members[L"Type"] = Gives(0L);
    group.members[L"Menus"] = Gives(menus);
    menus.members[L"Count"] = Gives(1L);
    menus.members[L"Item"] = Gives(menu);
    menu.members[L"ShortcutMenu"] = Gives(0L);
    menu.members[L"Name"] = Gives(L"&Tools");
    menu.members[L"OnMenuBar"] = Gives(-1L);
    menu.members[L"Count"] = Gives(3L);
    menu.members[L"Item"] = [&](const ScriptedCall& call, VARIANT* result, EXCEPINFO* info) {
        asked = V_I4(&call.parameters->rgvarg[0]);
        return Gives(item)(call, result, info);
    };
    item.members[L"Delete"] = [&](const ScriptedCall&, VARIANT*, EXCEPINFO*) {
        deleted.push_back(asked);
        return S_OK;
    };
    IAcadPopupMenu returned(Create_ACADMenu(&object, L"&Tools"));
    EXPECT_THAT(deleted, testing::ElementsAre(2, 1, 0));
    EXPECT_EQ(1, menu.references);
    EXPECT_EQ(0, item.references);
    EXPECT_EQ(0, groups.references + group.references + menus.references);
}

TEST_F(LateBinding, ReportsAHostWithoutMenuGroups)
{
    object.members[L"MenuGroups"] = [](const ScriptedCall&, VARIANT* result, EXCEPINFO*) {
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = nullptr;
        return S_OK;
    };
    for (const auto& action : {std::function<void()>([this] { Create_ACADMenu(&object, L"&Tools"); }),
                               std::function<void()>([this] { Create_ACADToolBar(&object, L"Draw"); }),
                               std::function<void()>([this] { Create_ACADToolBar(&object, L"SubToolbar"); })})
    {
        const auto failure = FailureOf(action);
        ASSERT_TRUE(failure);
        EXPECT_EQ(E_POINTER, failure->status);
        EXPECT_EQ(L"The host returned no object for MenuGroups.", failure->description);
    }
}

// A toolbar to which buttons can be added, with a host that refuses their bitmaps.
class RefusedBitmaps : public testing::Test
{
protected:
    ScriptedObject toolbar;
    ScriptedObject button;

    RefusedBitmaps()
    {
        toolbar.members[L"Visible"] = Gives(-1L);
        toolbar.members[L"Count"] = Gives(0L);
        toolbar.members[L"AddToolbarButton"] = Gives(button);
        button.members[L"SetBitmaps"] = Fails(STG_E_FILENOTFOUND);
    }
    ~RefusedBitmaps() override
    {
        EXPECT_EQ(0, toolbar.references);
        EXPECT_EQ(0, button.references);
    }
    bool Add(const wchar_t* smallImage, const wchar_t* largeImage)
    {
        toolbar.AddRef();
        return Append_ToolBarItem(IAcadToolbar(&toolbar), L"A ", L"A", smallImage, largeImage, false,
                                  IAcadToolbar());
    }
};

TEST_F(RefusedBitmaps, DoNotLoseTheButtonWhenAFileIsMissing)
{
    wchar_t present[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, present, MAX_PATH);
    EXPECT_TRUE(Add(L"C:\\no such folder\\a16.bmp", L"C:\\no such folder\\a24.bmp"));
    EXPECT_TRUE(Add(present, L"C:\\no such folder\\a24.bmp"));
    EXPECT_TRUE(Add(L"C:\\no such folder\\a16.bmp", present));
}

TEST_F(RefusedBitmaps, AreReportedWhenBothFilesAreThere)
{
    wchar_t present[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, present, MAX_PATH);
    const auto failure = FailureOf([&] { Add(present, present); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(STG_E_FILENOTFOUND, failure->status);
    EXPECT_EQ(L"CorvanUtil22.SetBitmaps", failure->source);
}

} // namespace companiontest
