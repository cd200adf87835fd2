// Extension modules: the chain, its resources and its run-time classes.
#include "Thrown.h"
#include "resource.h"

#include <afxcoll.h>
#include <afxdllx.h>

#include "kit/Text.h"

namespace
{

class Extension
{
public:
    explicit Extension(const wchar_t* name) : m_module(AfxLoadLibrary(name)) {}
    ~Extension() { Free(); }
    void Free()
    {
        if (m_module != NULL)
            AfxFreeLibrary(m_module);
        m_module = NULL;
    }
    template <class FUNCTION>
    FUNCTION* Function(const char* name) const
    {
        return reinterpret_cast<FUNCTION*>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }
    HINSTANCE Module() const { return m_module; }

private:
    HINSTANCE m_module;
};

const wchar_t* const one = L"AfxExtensionOne.dll";
const wchar_t* const two = L"AfxExtensionTwo.dll";

CString Loaded(UINT id)
{
    CString text;
    return text.LoadString(id) ? text : CString(L"(none)");
}

class ResourceHandle
{
public:
    explicit ResourceHandle(HINSTANCE module) : m_before(AfxGetResourceHandle())
    {
        AfxSetResourceHandle(module);
    }
    ~ResourceHandle() { AfxSetResourceHandle(m_before); }

private:
    HINSTANCE m_before;
};

} // namespace

TEST(Modules, TheProgramIsTheResourceModuleUntilAnotherIsSet)
{
    EXPECT_EQ(GetModuleHandle(NULL), AfxGetInstanceHandle());
    EXPECT_EQ(GetModuleHandle(NULL), AfxGetResourceHandle());
    const Extension extension(one);
    {
        const ResourceHandle handle(extension.Module());
        EXPECT_EQ(extension.Module(), AfxGetResourceHandle());
        EXPECT_EQ(GetModuleHandle(NULL), AfxGetInstanceHandle());
    }
    EXPECT_EQ(GetModuleHandle(NULL), AfxGetResourceHandle());
}

TEST(Modules, AMissingLibraryGivesNull)
{
    EXPECT_EQ(nullptr, AfxLoadLibrary(L"NoSuchLibrary.dll"));
    EXPECT_EQ(nullptr, AfxLoadLibraryEx(L"NoSuchLibrary.dll", NULL, 0));
}

TEST(ExtensionModule, IsInitializedOnLoad)
{
    const Extension extension(one);
    ASSERT_TRUE(extension.Module() != NULL);
    EXPECT_TRUE(extension.Function<BOOL()>("IsExtensionInitialized")());
}

TEST(ExtensionModule, RefusesANullHandle)
{
    AFX_EXTENSION_MODULE record = {};
    EXPECT_FALSE(AfxInitExtensionModule(record, NULL));
    EXPECT_FALSE(record.bInitialized);
    AfxTermExtensionModule(record);
}

TEST(ExtensionModule, ItsStringsAreFoundThroughTheChain)
{
    EXPECT_EQ(L"(none)", Loaded(IDS_EXTENSION));
    Extension extension(one);
    EXPECT_EQ(L"from extension one", Loaded(IDS_EXTENSION));
    EXPECT_EQ(extension.Module(), AfxFindStringResourceHandle(IDS_EXTENSION));
    EXPECT_EQ(L"%d is %s", Loaded(IDS_FORMAT));
    extension.Free();
    EXPECT_EQ(L"(none)", Loaded(IDS_EXTENSION));
    EXPECT_EQ(nullptr, AfxFindStringResourceHandle(IDS_EXTENSION));
}

TEST(ExtensionModule, ItsResourcesAreFoundByNameAndType)
{
    const LPCWSTR name = MAKEINTRESOURCEW(IDR_TEXT);
    // None has it: the handle where loading will fail.
    EXPECT_EQ(AfxGetResourceHandle(), AfxFindResourceHandle(name, L"TEXTDATA"));
    const Extension extension(one);
    const HINSTANCE module = AfxFindResourceHandle(name, L"TEXTDATA");
    ASSERT_EQ(extension.Module(), module);
    const HRSRC resource = FindResourceW(module, name, L"TEXTDATA");
    const char* data = static_cast<const char*>(LockResource(LoadResource(module, resource)));
    EXPECT_EQ("data of extension one", std::string(data, SizeofResource(module, resource)));
}

TEST(ExtensionModule, TheNewestIsSearchedFirst)
{
    const Extension first(one);
    EXPECT_EQ(L"both: extension one", Loaded(IDS_BOTH));
    {
        const Extension second(two);
        EXPECT_EQ(L"both: extension two", Loaded(IDS_BOTH));
        EXPECT_EQ(L"from extension one", Loaded(IDS_EXTENSION));
    }
    EXPECT_EQ(L"both: extension one", Loaded(IDS_BOTH));
}

TEST(ExtensionModule, TheResourceHandleComesBeforeTheChain)
{
    const Extension first(one);
    const Extension second(two);
    const ResourceHandle handle(first.Module());
    EXPECT_EQ(L"both: extension one", Loaded(IDS_BOTH));
}

TEST(ExtensionModule, SystemLibrariesComeLast)
{
    const Extension first(one);
    const Extension second(two);
    // The second one once more, newer than the first, but as a system library: the newest that is none wins.
    second.Function<BOOL()>("EndExtension")();
    EXPECT_EQ(L"both: extension one", Loaded(IDS_BOTH));
    AFX_EXTENSION_MODULE record = {};
    ASSERT_TRUE(AfxInitExtensionModule(record, second.Module()));
    new CDynLinkLibrary(record, TRUE);
    EXPECT_EQ(L"both: extension one", Loaded(IDS_BOTH));
    first.Function<BOOL()>("EndExtension")();
    EXPECT_EQ(L"both: extension two", Loaded(IDS_BOTH));
    AfxTermExtensionModule(record);
    EXPECT_EQ(L"(none)", Loaded(IDS_BOTH));
}

TEST(ExtensionModule, EndingItTwiceIsSafe)
{
    const Extension extension(one);
    EXPECT_TRUE(extension.Function<BOOL()>("EndExtension")());
    EXPECT_EQ(L"(none)", Loaded(IDS_EXTENSION));
    EXPECT_TRUE(extension.Function<BOOL()>("EndExtension")());
}

TEST(ExtensionModule, AModuleMayHaveItsResourcesInAnother)
{
    const Extension second(two);
    second.Function<BOOL()>("EndExtension")();
    CDynLinkLibrary* library = new CDynLinkLibrary(GetModuleHandle(NULL), second.Module());
    EXPECT_EQ(L"both: extension two", Loaded(IDS_BOTH));
    delete library;
    EXPECT_EQ(L"(none)", Loaded(IDS_BOTH));
}

TEST(ExtensionModule, ItsClassesAreKnownWhileItIsLoaded)
{
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CExtensionCircle"));
    for (int round = 0; round < 2; ++round) {
        Extension extension(one);
        CRuntimeClass* circle = CRuntimeClass::FromName("CExtensionCircle");
        ASSERT_TRUE(circle != NULL);
        EXPECT_NE(nullptr, CRuntimeClass::FromName("CExtensionShape"));
        CObject* object = circle->CreateObject();
        EXPECT_TRUE(object->IsKindOf(CRuntimeClass::FromName("CExtensionShape")));
        EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
        delete object;
        extension.Free();
        EXPECT_EQ(nullptr, CRuntimeClass::FromName("CExtensionCircle"));
        EXPECT_EQ(nullptr, CRuntimeClass::FromName("CExtensionShape"));
    }
}

TEST(ExtensionModule, ItsClassesAreGoneWhenItIsEnded)
{
    const Extension extension(one);
    extension.Function<BOOL()>("EndExtension")();
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CExtensionCircle"));
}

TEST(ExtensionModule, KindsAreComparedAcrossModules)
{
    const Extension extension(one);
    CObject* list = CRuntimeClass::CreateObject("CExtensionList");
    ASSERT_TRUE(list != NULL);
    EXPECT_TRUE(list->IsKindOf(RUNTIME_CLASS(CObList)));
    EXPECT_FALSE(list->IsKindOf(RUNTIME_CLASS(CPtrList)));
    static_cast<CObList*>(list)->AddTail(list);
    EXPECT_EQ(list, DYNAMIC_DOWNCAST(CObList, list)->GetHead());
    delete list;
}

TEST(ExtensionModule, ItsExceptionsAreCaughtByTheProgram)
{
    const Extension extension(one);
    const auto error = Thrown<CFileException>([&] { extension.Function<void()>("ThrowFromExtension")(); });
    EXPECT_EQ(CFileException::diskFull, error->m_cause);
    EXPECT_EQ(L"x.txt", error->m_strFileName);
}

TEST(LoadStringFunction, CutsToTheRoomAndTellsTheLength)
{
    wchar_t buffer[40] = L"before";
    EXPECT_EQ(8, AfxLoadString(IDS_FORMAT, buffer, 40));
    EXPECT_STREQ(L"%d is %s", buffer);
    EXPECT_EQ(3, AfxLoadString(IDS_FORMAT, buffer, 4));
    EXPECT_STREQ(L"%d ", buffer);
    EXPECT_EQ(0, AfxLoadString(IDS_NOWHERE, buffer, 40));
    EXPECT_STREQ(L"", buffer);
}
