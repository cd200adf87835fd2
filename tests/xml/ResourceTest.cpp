// Loading the document from a resource.
#include "ResourceModules.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const CString ModuleName = L"xml_resources.dll";
const CString Xml = L"XML";

class Resource : public XmlTest
{
protected:
    void SetUp() override
    {
        ASSERT_NE(m_module.Module(), nullptr);
        ASSERT_NE(m_bare.Module(), nullptr);
    }

    CLoadedModule m_module{ModulesFolder() / L"xml_resources.dll"};
    CLoadedModule m_bare{ModulesFolder() / L"xml_bare.dll"};
};

class SetXmlStringFromResource : public Resource
{
};

class LoadFileFromRes : public Resource
{
};

// The attribute that every well-formed resource of the tests has; what there is instead, without one.
std::wstring FromOf(const CXMLFile& file)
{
    if (!file.m_pXMLDoc)
        return L"(no document)";
    IXMLDOMElementPtr root;
    if (file.m_pXMLDoc->get_documentElement(&root) != S_OK)
        return L"(empty document)";
    _variant_t value;
    if (root->getAttribute(_bstr_t(L"from"), &value) != S_OK)
        return L"(no attribute)";
    return static_cast<const wchar_t*>(_bstr_t(value));
}

// The same of a new object that has loaded a resource.
std::wstring Loading(__int64 id, const CString& type = Xml, const CString& moduleName = ModuleName)
{
    CXMLFile file;
    const bool isLoaded = file.setXMLStringFromResource(id, type, moduleName);
    return FromOf(file) + (isLoaded ? L"" : L", false");
}

ULONG References(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

long CountChildren(const IXMLDOMDocument2Ptr& document)
{
    IXMLDOMNodeListPtr children;
    long count = -1;
    if (document->get_childNodes(&children) == S_OK)
        children->get_length(&count);
    return count;
}

} // namespace

TEST_F(SetXmlStringFromResource, LoadsAWellFormedResourceOfALoadedModule)
{
    CXMLFile file;
    EXPECT_TRUE(file.setXMLStringFromResource(101, Xml, ModuleName));
    EXPECT_EQ(FromOf(file), L"module");
    IXMLDOMNodePtr rule;
    file.GetDOMNodePtr(L"/rules/rule", rule);
    EXPECT_TRUE(rule);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SetXmlStringFromResource, AddsNoDeclaration)
{
    CXMLFile file;
    ASSERT_TRUE(file.setXMLStringFromResource(101, Xml, ModuleName));
    EXPECT_EQ(CountChildren(file.m_pXMLDoc), 1);
}

TEST_F(SetXmlStringFromResource, MakesADocumentThatIsNotAsynchronous)
{
    CXMLFile file;
    ASSERT_TRUE(file.setXMLStringFromResource(101, Xml, ModuleName));
    VARIANT_BOOL isAsync = VARIANT_TRUE;
    ASSERT_EQ(file.m_pXMLDoc->get_async(&isAsync), S_OK);
    EXPECT_EQ(isAsync, VARIANT_FALSE);
}

TEST_F(SetXmlStringFromResource, HoldsTheOnlyReferenceToTheDocument)
{
    IXMLDOMDocument2Ptr plain;
    ASSERT_EQ(plain.CreateInstance(VelmDomDocument60), S_OK);
    CXMLFile file;
    ASSERT_TRUE(file.setXMLStringFromResource(101, Xml, ModuleName));
    EXPECT_EQ(References(file.m_pXMLDoc), References(plain));
    file.setXMLStringFromResource(102, Xml, ModuleName);
    EXPECT_EQ(References(file.m_pXMLDoc), References(plain));
    file.LoadFileFromRes();
    EXPECT_EQ(References(file.m_pXMLDoc), References(plain));
}

TEST_F(SetXmlStringFromResource, ReleasesTheFormerDocumentAndKeepsAllElse)
{
    CXMLFile file = Loaded("<former><node/></former>");
    file.GetDOMNodePtr(L"/former/node", file.m_pCurNode);
    file.m_strExtra = L"extra";
    file.m_bReadMode = true;
    const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
    const IXMLDOMNodePtr node = file.m_pCurNode;
    const CString path = file.m_strXMLFilePath;
    const ULONG references = References(former);

    ASSERT_TRUE(file.setXMLStringFromResource(101, Xml, ModuleName));
    EXPECT_NE(file.m_pXMLDoc.GetInterfacePtr(), former.GetInterfacePtr());
    EXPECT_EQ(References(former), references - 1);
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), node.GetInterfacePtr());
    EXPECT_EQ(file.m_strXMLFilePath, path);
    EXPECT_EQ(file.m_strExtra, L"extra");
    EXPECT_TRUE(file.m_bReadMode);
}

TEST_F(SetXmlStringFromResource, GivesAnEmptyDocumentAndFalseForMalformedText)
{
    CXMLFile file = Loaded("<former/>");
    const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
    EXPECT_FALSE(file.setXMLStringFromResource(102, Xml, ModuleName));
    ASSERT_TRUE(file.m_pXMLDoc);
    EXPECT_NE(file.m_pXMLDoc.GetInterfacePtr(), former.GetInterfacePtr());
    EXPECT_EQ(CountChildren(file.m_pXMLDoc), 0);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SetXmlStringFromResource, GivesAnEmptyDocumentAndFalseForWhiteSpaceAlone)
{
    CXMLFile file = Loaded("<former/>");
    EXPECT_FALSE(file.setXMLStringFromResource(110, Xml, ModuleName));
    EXPECT_EQ(FromOf(file), L"(empty document)");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SetXmlStringFromResource, ChangesNothingWithoutText)
{
    CXMLFile file = Loaded("<former from='before'/>");
    const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
    struct
    {
        const char* what;
        __int64 id;
        const wchar_t* type;
        const wchar_t* moduleName;
    } const cases[] = {
        {"only a zero byte", 103, L"XML", L"xml_resources.dll"},
        {"no byte at all", 104, L"XML", L"xml_resources.dll"},
        {"no such identifier", 999, L"XML", L"xml_resources.dll"},
        {"no such type", 101, L"OTHER", L"xml_resources.dll"},
        {"a type without a name", 101, L"", L"xml_resources.dll"},
        {"another module's resource", 111, L"XML", L"xml_resources.dll"},
        {"a module without resources", 101, L"XML", L"xml_bare.dll"},
        {"an identifier without low bits", 0x650000, L"XML", L"xml_resources.dll"},
        {"not the program's either", 999, L"XML", L"NoSuchModule.dll"},
    };
    for (const auto& one : cases) {
        EXPECT_FALSE(file.setXMLStringFromResource(one.id, one.type, one.moduleName)) << one.what;
        EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), former.GetInterfacePtr()) << one.what;
        EXPECT_EQ(FromOf(file), L"before") << one.what;
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SetXmlStringFromResource, MakesNoDocumentWithoutText)
{
    EXPECT_EQ(Loading(103), L"(no document), false");
    EXPECT_EQ(Loading(999), L"(no document), false");
}

TEST_F(SetXmlStringFromResource, UsesTheLowSixteenBitsOfTheId)
{
    for (const __int64 high : {0x10000ll, 0xFFFF0000ll, 0x100000000ll, -0x10000ll, INT64_MIN})
        EXPECT_EQ(Loading(high + 101), L"module") << high;
    EXPECT_EQ(Loading(-1), L"65535");
    EXPECT_EQ(Loading(40000), L"40000");
    EXPECT_EQ(Loading(40000 - 65536), L"40000");
}

TEST_F(SetXmlStringFromResource, TellsResourcesOfOneIdApartByTheType)
{
    EXPECT_EQ(Loading(101, L"XML"), L"module");
    EXPECT_EQ(Loading(101, L"RULES"), L"another type");
}

TEST_F(SetXmlStringFromResource, TakesTheTypeInAnyCase)
{
    EXPECT_EQ(Loading(101, L"Rules"), L"another type");
}

// "#10" is how FindResourceW is told RT_RCDATA in a text.
TEST_F(SetXmlStringFromResource, TakesATypeByItsNumber)
{
    EXPECT_EQ(Loading(101, L"#10"), L"raw data");
}

TEST_F(SetXmlStringFromResource, TakesTheModuleWithItsPathInAnyCaseAndWithoutDll)
{
    EXPECT_EQ(Loading(101, Xml, (ModulesFolder() / L"xml_resources.dll").c_str()), L"module");
    EXPECT_EQ(Loading(101, Xml, L"XML_Resources.DLL"), L"module");
    EXPECT_EQ(Loading(101, Xml, L"xml_resources"), L"module");
}

TEST_F(SetXmlStringFromResource, SearchesTheProgramForAModuleThatIsNotLoaded)
{
    EXPECT_EQ(Loading(101, Xml, L"NoSuchModule.dll"), L"program");
    EXPECT_EQ(Loading(111, Xml, L"NoSuchModule.dll"), L"program only");
    EXPECT_EQ(Loading(101, Xml, L""), L"program");
    EXPECT_EQ(Loading(101, Xml, CString(L'm', 5000)), L"program");
}

TEST_F(SetXmlStringFromResource, LoadsNoModule)
{
    const std::filesystem::path named = ModulesFolder() / L"VelmUtil.dll";
    ASSERT_TRUE(std::filesystem::exists(named));
    EXPECT_EQ(Loading(101, Xml, named.c_str()), L"program");
    EXPECT_EQ(GetModuleHandleW(named.c_str()), nullptr);
}

TEST_F(SetXmlStringFromResource, EndsTheTextAtTheFirstZeroByte)
{
    EXPECT_EQ(Loading(107), L"before the end");
}

TEST_F(SetXmlStringFromResource, EndsTheTextWithTheResourceWhenThereIsNoZeroByte)
{
    ASSERT_EQ(ByteBehind(m_module.Module(), 105, Xml), '<');
    EXPECT_EQ(Loading(105), L"without an end");
}

TEST_F(SetXmlStringFromResource, ReadsTheBytesInTheAnsiCodePage)
{
    EXPECT_EQ(Loading(108), AnsiText("\xE9\x80"));
    if (GetACP() == 1252) {
        EXPECT_EQ(Loading(108), L"\u00E9\u20AC");
    }
}

TEST_F(SetXmlStringFromResource, ReadsUtf8InTheAnsiCodePageWhateverTheDeclarationSays)
{
    EXPECT_EQ(Loading(109), AnsiText("\xC3\xA9"));
    if (GetACP() == 1252) {
        EXPECT_EQ(Loading(109), L"\u00C3\u00A9");
    }
}

TEST_F(SetXmlStringFromResource, TakesAByteOrderMarkOfUtf8ForText)
{
    if (GetACP() == CP_UTF8)
        GTEST_SKIP() << "the bytes are a byte order mark in this code page";
    EXPECT_EQ(Loading(112), L"(empty document), false");
}

TEST_F(SetXmlStringFromResource, RaisesThatComIsNotInitialisedAndChangesNothing)
{
    CXMLFile file = Loaded("<former from='before'/>");
    const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
    HRESULT failure = S_OK;
    std::vector<std::wstring> messages;
    OnFreshThread([&] {
        const testkit::MessageBoxWatch watch;
        failure = ComFailureOf([&] { file.setXMLStringFromResource(101, Xml, ModuleName); });
        messages = watch.Texts();
    });
    EXPECT_EQ(failure, CO_E_NOTINITIALIZED);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), former.GetInterfacePtr());
    EXPECT_EQ(FromOf(file), L"before");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SetXmlStringFromResource, NeedsNoComWhereThereIsNoText)
{
    CXMLFile file;
    bool result = true;
    HRESULT failure = S_OK;
    OnFreshThread([&] {
        failure = ComFailureOf([&] { result = file.setXMLStringFromResource(103, Xml, ModuleName); });
    });
    EXPECT_EQ(failure, S_OK);
    EXPECT_FALSE(result);
    EXPECT_FALSE(file.m_pXMLDoc);
}

TEST_F(LoadFileFromRes, GivesFalseAndANewEmptyDocumentWithoutMessage)
{
    CXMLFile file;
    for (int i = 0; i < 2; ++i) {
        const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
        EXPECT_FALSE(file.LoadFileFromRes());
        ASSERT_TRUE(file.m_pXMLDoc);
        EXPECT_NE(file.m_pXMLDoc.GetInterfacePtr(), former.GetInterfacePtr());
        EXPECT_EQ(CountChildren(file.m_pXMLDoc), 0);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFileFromRes, ReleasesTheFormerDocumentAndKeepsAllElse)
{
    CXMLFile file = Loaded("<former><node/></former>");
    file.GetDOMNodePtr(L"/former/node", file.m_pCurNode);
    file.m_strExtra = L"extra";
    file.m_bReadMode = true;
    const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
    const IXMLDOMNodePtr node = file.m_pCurNode;
    const CString path = file.m_strXMLFilePath;
    const ULONG references = References(former);

    EXPECT_FALSE(file.LoadFileFromRes());
    EXPECT_EQ(FromOf(file), L"(empty document)");
    EXPECT_EQ(References(former), references - 1);
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), node.GetInterfacePtr());
    EXPECT_EQ(file.m_strXMLFilePath, path);
    EXPECT_EQ(file.m_strExtra, L"extra");
    EXPECT_TRUE(file.m_bReadMode);
}

TEST_F(LoadFileFromRes, MakesADocumentThatIsNotAsynchronous)
{
    CXMLFile file;
    file.LoadFileFromRes();
    ASSERT_TRUE(file.m_pXMLDoc);
    VARIANT_BOOL isAsync = VARIANT_TRUE;
    ASSERT_EQ(file.m_pXMLDoc->get_async(&isAsync), S_OK);
    EXPECT_EQ(isAsync, VARIANT_FALSE);
}

TEST_F(LoadFileFromRes, ReadsNoResourceOfTheNamedModule)
{
    const CLoadedModule named(ModulesFolder() / L"VelmUtil.dll");
    ASSERT_EQ(GetModuleHandleW(L"VelmUtil"), named.Module());
    ASSERT_NE(named.Module(), nullptr);
    CXMLFile file;
    EXPECT_FALSE(file.LoadFileFromRes());
    EXPECT_EQ(FromOf(file), L"(empty document)");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFileFromRes, ShowsThatComIsNotInitialisedAndChangesNothing)
{
    CXMLFile file = Loaded("<former from='before'/>");
    const IXMLDOMDocument2Ptr former = file.m_pXMLDoc;
    bool result = true;
    std::vector<testkit::MessageBoxRecord> boxes;
    OnFreshThread([&] {
        const testkit::MessageBoxWatch watch;
        result = file.LoadFileFromRes();
        boxes = watch.Boxes();
    });
    EXPECT_FALSE(result);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, L"Resource File Loading Error");
    EXPECT_THAT(boxes[0].buttons, ElementsAre(IDOK));
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), former.GetInterfacePtr());
    EXPECT_EQ(FromOf(file), L"before");
    EXPECT_THAT(Messages(), IsEmpty());
}
