// Documents, descriptions and names from outside: none of them makes the library open, load or start what its
// caller did not name.
#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "HostProgram.h"
#include "MemoryResource.h"
#include "SystemCalls.h"
#include "kit/ChildProgram.h"
#include "kit/Files.h"
#include "kit/Text.h"
#include "model/ModelPrinter.h"
#include "xml/LocalListener.h"

using namespace hostile;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

class NothingGetsIn : public testing::Test
{
protected:
    NothingGetsIn()
    {
        (void)CoInitialize(nullptr);
        testkit::WriteBytes(m_folder / L"secret.txt", "secret");
        // What the platform loads when it is used first is no document's doing.
        Load("<r/>");
        Build(L"<r/>");
    }
    ~NothingGetsIn() override
    {
        EmptyHost();
        (void)Host().TakeMessages();
        CoUninitialize();
    }

    void Load(const std::string& document)
    {
        testkit::WriteBytes(m_folder / L"document.xml", document);
        CXMLFile file((m_folder / L"document.xml").c_str());
        file.LoadFile();
        file.GetXMLFileInString();
        IXMLDOMNodePtr node;
        file.GetDOMNodePtr(L"//*", node);
    }

    static void Build(const std::wstring& text) { Append_MenuToolBar(CString(text.c_str()), nullptr); }

    // Names of something that a document may ask for, as paths and as addresses.
    std::vector<std::string> Names() const
    {
        const std::string path = testkit::Utf8((m_folder / L"secret.txt").wstring());
        std::string slashed = path;
        std::replace(slashed.begin(), slashed.end(), '\\', '/');
        const std::string port = m_listener.Port();
        return {"secret.txt",
                path,
                "file:///" + slashed,
                "http://127.0.0.1:" + port + "/secret.txt",
                "ftp://127.0.0.1:" + port + "/secret.txt",
                "\\\\127.0.0.1@" + port + "\\DavWWWRoot\\secret.txt",
                "res://" + slashed + "/1",
                "javascript:alert(1)"};
    }

    // Documents in which "$" stands for such a name.
    static std::vector<std::string> Documents()
    {
        return {"<!DOCTYPE r SYSTEM '$'><r/>",
                "<!DOCTYPE r PUBLIC 'a' '$'><r>&e;</r>",
                "<!DOCTYPE r [<!ENTITY e SYSTEM '$'>]><r>&e;</r>",
                "<!DOCTYPE r [<!ENTITY % e SYSTEM '$'>%e;]><r/>",
                "<!DOCTYPE r [<!NOTATION n SYSTEM '$'>]><r/>",
                "<?xml-stylesheet type='text/xsl' href='$'?><r/>",
                "<r xmlns:i='http://www.w3.org/2001/XInclude'><i:include href='$'/></r>",
                "<r xmlns:x='http://www.w3.org/2001/XMLSchema-instance' x:noNamespaceSchemaLocation='$'/>",
                "<r xmlns='x-schema:$'/>",
                "<r xml:base='$'><e/></r>",
                "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                "<xsl:import href='$'/><xsl:include href='$'/></xsl:stylesheet>",
                "<r><script src='$'>run()</script><object classid='$'/></r>"};
    }

    template <class Check>
    void ForDocuments(Check check)
    {
        for (const std::string& name : Names()) {
            for (std::string document : Documents()) {
                for (size_t at = 0; (at = document.find('$', at)) != std::string::npos; at += name.size())
                    document.replace(at, 1, name);
                SCOPED_TRACE(document);
                check(document);
            }
        }
    }

    testkit::TempFolder m_folder;
    LocalListener m_listener;
    SystemCalls m_calls;
};

} // namespace

TEST_F(NothingGetsIn, WatchSeesFilesModulesProgramsAndConnections)
{
    ASSERT_TRUE(m_calls.IsWatching());
    m_calls.Clear();
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"secret.txt"), "secret");
    EXPECT_THAT(m_calls.Opened(), ElementsAre(EndsWith(L"\\secret.txt")));
    m_calls.Clear();
    FreeLibrary(LoadLibraryW(L"version.dll"));
    EXPECT_THAT(m_calls.Loaded(), ElementsAre(L"version.dll"));
    m_calls.Clear();
    m_listener.Call();
    EXPECT_TRUE(m_listener.WasCalled());
    EXPECT_THAT(m_calls.Opened(), Contains(HasSubstr(L"\\Device\\Afd")));
    EXPECT_EQ(m_calls.Started(), 0);
    EXPECT_TRUE(testkit::RunProgram(testkit::ThisProgram(), {L"--gtest_list_tests"}).ended);
    EXPECT_EQ(m_calls.Started(), 1);
}

TEST_F(NothingGetsIn, DocumentHasOnlyItselfOpened)
{
    ForDocuments([&](const std::string& document) {
        testkit::WriteBytes(m_folder / L"document.xml", document);
        CXMLFile file((m_folder / L"document.xml").c_str());
        m_calls.Clear();
        file.LoadFile();
        file.GetXMLFileInString();
        IXMLDOMNodePtr node;
        file.GetDOMNodePtr(L"//*", node);
        EXPECT_THAT(m_calls.Opened(), Each(EndsWith(L"\\document.xml")));
        EXPECT_THAT(m_calls.Opened(), Contains(EndsWith(L"\\document.xml")));
        EXPECT_THAT(m_calls.Loaded(), IsEmpty());
        EXPECT_EQ(m_calls.Started(), 0);
        EXPECT_FALSE(m_listener.WasCalled());
    });
}

TEST_F(NothingGetsIn, DescriptionHasNothingOpened)
{
    ForDocuments([&](const std::string& document) {
        m_calls.Clear();
        Build(testkit::Wide(document));
        EXPECT_THAT(m_calls.Opened(), IsEmpty());
        EXPECT_THAT(m_calls.Loaded(), IsEmpty());
        EXPECT_EQ(m_calls.Started(), 0);
        EXPECT_FALSE(m_listener.WasCalled());
    });
}

TEST_F(NothingGetsIn, NamesOfBitmapsGoToTheHostUnopened)
{
    const std::wstring folder = GetProjectPath(nullptr).GetString();
    for (const std::string& name : Names()) {
        for (const std::wstring& image : {testkit::Wide(name), L"..\\..\\" + testkit::Wide(name)}) {
            SCOPED_TRACE(testkit::Quoted(image));
            EmptyHost();
            m_calls.Clear();
            Build(L"<r><Toolbars><Toolbar Cmd='a' ImageList='" + image + L"'/></Toolbars></r>");
            EXPECT_THAT(m_calls.Opened(), IsEmpty());
            EXPECT_THAT(m_calls.Loaded(), IsEmpty());
            EXPECT_FALSE(m_listener.WasCalled());
            EXPECT_THAT(velmhost::PrintModel(Host().Model()),
                        HasSubstr(L"bitmaps \"" + folder + L"Bmps\\" + image + L"16.bmp\" \"" + folder +
                                  L"Bmps\\" + image + L"24.bmp\""));
        }
    }
    EXPECT_THAT(Host().TakeMessages(), IsEmpty());
}

TEST_F(NothingGetsIn, NamesOfModulesLoadNothing)
{
    const std::filesystem::path copy = m_folder / L"outside.dll";
    std::filesystem::copy_file(testkit::ProgramFolder() / L"CorvanUtil22.dll", copy);
    const std::wstring remote = L"\\\\127.0.0.1@" + testkit::Wide(m_listener.Port()) + L"\\a\\outside.dll";
    // The last one lies in the system's folder, and is not loaded.
    ASSERT_EQ(GetModuleHandleW(L"cabinet.dll"), nullptr);
    for (const std::wstring& name :
         {copy.wstring(), remote, std::wstring(L"cabinet.dll"), std::wstring(L"cabinet")})
    {
        SCOPED_TRACE(testkit::Quoted(name));
        std::wstring buffer(512, L'\0');
        name.copy(buffer.data(), name.size());
        std::wstring module = name;
        CXMLFile file;
        m_calls.Clear();
        GetAppPath(buffer.data());
        EXPECT_STREQ(buffer.c_str(), name.c_str());
        GetProjectPath(module.data());
        EXPECT_FALSE(file.setXMLStringFromResource(1, L"NONE", name.c_str()));
        Append_MenuToolBar(1, L"NONE", module.data());
        EXPECT_THAT(Host().TakeMessages(), ElementsAre(L"XML File String is empty"));
        Append_MenuToolBar(CString(L"<r/>"), module.data());
        EXPECT_THAT(m_calls.Opened(), IsEmpty());
        EXPECT_THAT(m_calls.Loaded(), IsEmpty());
        EXPECT_FALSE(m_listener.WasCalled());
        EXPECT_EQ(GetModuleHandleW(name.c_str()), nullptr);
    }
}

// Entities that would keep a parser busy for longer than the watchdog allows.
TEST_F(NothingGetsIn, DescriptionThatDeclaresEntitiesIsNotLoaded)
{
    std::wstring nested = L"<!ENTITY % p0 \"<!ENTITY e 'abc'>\">";
    for (int i = 1; i <= 10; ++i) {
        nested += L"<!ENTITY % p" + std::to_wstring(i) + L" \"";
        for (int j = 0; j < 10; ++j)
            nested += L"&#37;p" + std::to_wstring(i - 1) + L";";
        nested += L"\">";
    }
    const std::wstring rest = L"]><r><Menus Name='&e;'/></r>";
    for (const std::wstring& document :
         {L"<!DOCTYPE r [" + nested + L"%p10;" + rest, L"<!DOCTYPE r [<!ENTITY e 'x'>" + rest,
          L"\xFEFF<?xml version='1.0'?><!-- --><!DOCTYPE r [<!-- --><!ENTITY e 'x'>" + rest})
    {
        EmptyHost();
        Build(document);
        EXPECT_THAT(Host().TakeMessages(), ElementsAre(L"MenuToolbar XML is not loaded"));
        EXPECT_EQ(HostElements(0), 0u);
    }
    Build(L"<!-- <!DOCTYPE r [<!ENTITY e 'x'>]> --><r><Menus Name='<!'/></r>");
    EXPECT_THAT(Host().TakeMessages(), ElementsAre(L"MenuToolbar XML is not loaded"));
    Build(L"<!-- <!DOCTYPE r [<!ENTITY e 'x'>]> --><r><Menus Name='a'/></r>");
    EXPECT_THAT(Host().TakeMessages(), IsEmpty());
}

// Texts that would do harm, or be changed, as the format of a printing function.
class FormatTexts : public NothingGetsIn
{
protected:
    static constexpr wchar_t Format[] = L"%s%s%s%n%1$n%99999999d%ls%S%%";
};

TEST_F(FormatTexts, GoThroughADescriptionAsTheyAre)
{
    const std::wstring text = Format;
    EmptyHost();
    Build(L"<r><Menus Name='" + text + L"'><Menu Name='" + text + L"' Cmd='" + text + L"' Help='" + text +
          L"'/><Menu Name='" + text + L"' Help='c'/></Menus><Toolbars Name='" + text + L"'><Toolbar Cmd='" +
          text + L"' ToolTip='" + text + L"' ImageList='i'/></Toolbars></r>");
    EXPECT_THAT(Host().TakeMessages(), IsEmpty());
    const std::wstring model = velmhost::PrintModel(Host().Model());
    const std::wstring quoted = L'"' + text + L'"', macro = L'"' + text + L" \"";
    EXPECT_THAT(model, HasSubstr(L"menu bar: " + quoted));
    EXPECT_THAT(model, HasSubstr(L"item " + quoted + L" macro " + macro + L" help " + quoted));
    EXPECT_THAT(model, HasSubstr(L"submenu " + quoted));
    EXPECT_THAT(model, HasSubstr(L"toolbar " + quoted));
    EXPECT_THAT(model, HasSubstr(L"button " + quoted + L" macro " + macro + L" help " + quoted));
}

TEST_F(FormatTexts, AreShownAsTheHostGivesThem)
{
    velmhost::InvokeFault fault;
    fault.description = Format;
    Host().Automation().FailInvoke(1, fault);
    Build(L"<r/>");
    Host().Automation().FailInvoke(0, {});
    EXPECT_THAT(Host().TakeMessages(), ElementsAre(L"Unable to Load Menu", Format));
}

TEST_F(FormatTexts, AreWrittenToAttributesAndReadBackAsTheyAre)
{
    CXMLFile file((m_folder / L"formats.xml").c_str());
    file.LoadFile();
    wchar_t root[] = L"r", name[] = L"a";
    file.m_pCurNode = file.m_pXMLDoc;
    file.m_pCurNode = file.SelectNode(root, false, true);
    CString value = Format;
    file.CreateAttrib(name, value);
    file.SaveDocument();
    CXMLFile again((m_folder / L"formats.xml").c_str());
    ASSERT_TRUE(again.LoadFile());
    EXPECT_EQ(again.GetAttrib(L"/r", name), Format);
    CStringArray found;
    again.FillStringArray(found, root, name);
    ASSERT_EQ(found.GetSize(), 1);
    EXPECT_EQ(found[0], Format);
}
