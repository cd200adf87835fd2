// Documents that name files and addresses: nothing that they name may be reached.
#include "HostileTest.h"
#include "LocalListener.h"
#include "ScriptedDocument.h"

#include <algorithm>

// Documents that name files and addresses. In each, $ stands for the name.
class HostileReach : public HostileTest
{
protected:
    static constexpr std::string_view Secret = "VERY SECRET WORDS";

    HostileReach()
    {
        testkit::WriteBytes(m_folder / L"secret.txt", Secret);
        testkit::WriteBytes(m_folder / L"secret.xml", "<r>" + std::string(Secret) + "</r>");
        testkit::WriteBytes(m_folder / L"secret.dtd", "<!ENTITY e '" + std::string(Secret) +
                                                          "'><!ATTLIST r v CDATA '" + std::string(Secret) +
                                                          "'>");
    }

    // How addresses name the local files and the listening socket.
    std::vector<std::string> Addresses() const
    {
        std::string folder = testkit::Utf8(m_folder.Path().wstring());
        std::replace(folder.begin(), folder.end(), '\\', '/');
        std::vector<std::string> names;
        for (const std::string before : {"", "file:///", "file:", "file://localhost/"})
            for (const char* file : {"secret.txt", "secret.xml", "secret.dtd"})
                names.push_back(before + (before.empty() ? "" : folder + "/") + file);
        names.push_back(folder + "/secret.dtd");
        names.push_back("./secret.dtd");
        for (const std::string host :
             {"http://127.0.0.1:", "https://127.0.0.1:", "ftp://127.0.0.1:", "file://127.0.0.1:"})
            names.push_back(host + m_listener.Port() + "/secret.dtd");
        return names;
    }

    // How paths name them that are no addresses.
    std::vector<std::string> Paths() const
    {
        const std::string folder = testkit::Utf8(m_folder.Path().wstring());
        return {folder + "\\secret.txt", folder + "\\secret.dtd", "\\\\?\\" + folder + "\\secret.dtd",
                "\\\\127.0.0.1@" + m_listener.Port() + "\\DavWWWRoot\\secret.dtd"};
    }

    // Loads the document with each of the names both ways, checks what came of it, and that nothing was
    // reached.
    template <class Check>
    void ForNames(const std::vector<std::string>& names, std::string_view document, Check check)
    {
        for (const std::string& name : names) {
            std::string named(document);
            for (size_t at = 0; (at = named.find('$', at)) != std::string::npos; at += name.size())
                named.replace(at, 1, name);
            LoadBothWays(named, [&](CXMLFile& file, bool isLoaded) {
                check(file, isLoaded);
                ExpectNothingReached(file);
            });
        }
    }

    template <class Check>
    void ForAllNames(std::string_view document, Check check)
    {
        ForNames(Addresses(), document, check);
        ForNames(Paths(), document, check);
    }

    void ExpectNothingReached(CXMLFile& file)
    {
        EXPECT_FALSE(m_listener.WasCalled());
        const std::wstring secret = testkit::Wide(Secret);
        EXPECT_EQ(TextOfRoot(file).find(secret), std::wstring::npos);
        EXPECT_EQ(AttributeV(file).find(secret), std::wstring::npos);
        EXPECT_EQ(WideOf(file.GetXMLFileInString()).find(secret), std::wstring::npos);
    }

    void ExpectForbiddenOrWithout(std::string_view document, std::wstring_view text)
    {
        ExpectForbiddenOrWithout(Addresses(), document, text);
        ExpectForbiddenOrWithout(Paths(), document, text);
    }

    void ExpectForbiddenOrWithout(const std::vector<std::string>& names, std::string_view document,
                                  std::wstring_view text)
    {
        ForNames(names, document, [&](CXMLFile& file, bool isLoaded) {
            if (MustRefuse(file, document)) {
                ExpectNothingLoaded(file, isLoaded);
                return;
            }
            EXPECT_TRUE(isLoaded);
            EXPECT_EQ(TextOfRoot(file), text);
            EXPECT_EQ(AttributeV(file), L"");
        });
    }

    void ExpectRefusedForAllNames(std::string_view document)
    {
        ForAllNames(document, [](CXMLFile& file, bool isLoaded) { ExpectNothingLoaded(file, isLoaded); });
    }

    void ExpectLoadedWithout(std::string_view document, std::wstring_view text = L"")
    {
        ForAllNames(document, [&](CXMLFile& file, bool isLoaded) {
            EXPECT_TRUE(isLoaded);
            EXPECT_EQ(TextOfRoot(file), text);
        });
    }

    LocalListener m_listener;
};

TEST_F(HostileReach, ListenerOfTheseTestsSeesACall)
{
    EXPECT_FALSE(m_listener.WasCalled());
    m_listener.Call();
    EXPECT_TRUE(m_listener.WasCalled());
    EXPECT_FALSE(m_listener.WasCalled());
}

TEST_F(HostileReach, ExternalEntityInTextIsForbiddenOrEmpty)
{
    ExpectForbiddenOrWithout("<!DOCTYPE r [<!ENTITY e SYSTEM '$'>]><r>[&e;]</r>", L"[]");
    ExpectForbiddenOrWithout("<!DOCTYPE r [<!ENTITY e PUBLIC '-//a//b' '$'>]><r>[&e;]</r>", L"[]");
}

TEST_F(HostileReach, ExternalEntityInAttributeIsRefused)
{
    ExpectRefusedForAllNames("<!DOCTYPE r [<!ENTITY e SYSTEM '$'>]><r v='&e;'/>");
    ExpectRefusedForAllNames("<!DOCTYPE r [<!ENTITY f SYSTEM '$'><!ENTITY e '&f;'>]><r v='&e;'/>");
}

TEST_F(HostileReach, ExternalDtdIsForbiddenOrNotRead)
{
    ExpectForbiddenOrWithout("<!DOCTYPE r SYSTEM '$'><r/>", L"");
    ExpectForbiddenOrWithout("<!DOCTYPE r PUBLIC '-//a//b' '$'><r/>", L"");
    ExpectForbiddenOrWithout("<!DOCTYPE r SYSTEM '$'><r>[&e;]</r>", L"[]");
}

TEST_F(HostileReach, ExternalParameterEntityIsNotRead)
{
    for (const char* declaration : {"<!ENTITY % p SYSTEM '$'>", "<!ENTITY % p PUBLIC '-//a//b' '$'>"}) {
        const std::string dtd = "<!DOCTYPE r [" + std::string(declaration) + "%p;]>";
        for (const std::string root : {"<r></r>", "<r>[&e;]</r>"})
            ForAllNames(dtd + root, [&](CXMLFile& file, bool isLoaded) {
                if (!isLoaded)
                    ExpectNothingLoaded(file, isLoaded);
                else
                    EXPECT_EQ(TextOfRoot(file), root == "<r></r>" ? L"" : L"[]");
            });
    }
}

TEST_F(HostileReach, ExternalParameterEntityInFileIsRefused)
{
    for (const std::vector<std::string>& names : {Addresses(), Paths()})
        for (const std::string& name : names) {
            ExpectFileRefused("<!DOCTYPE r [<!ENTITY % p SYSTEM '" + name + "'>%p;]><r/>");
            EXPECT_FALSE(m_listener.WasCalled());
        }
}

TEST_F(HostileReach, NotationsAndUnparsedEntitiesAreForbiddenOrNotRead)
{
    ExpectForbiddenOrWithout("<!DOCTYPE r [<!NOTATION n SYSTEM '$'><!ENTITY u SYSTEM '$' NDATA n>"
                             "<!ATTLIST r w ENTITY #IMPLIED>]><r w='u'/>",
                             L"");
}

TEST_F(HostileReach, InclusionIsNotCarriedOut)
{
    ForAllNames("<r xmlns:i='http://www.w3.org/2001/XInclude'><i:include href='$' parse='text'/>"
                "<i:include href='$'><i:fallback/></i:include></r>",
                [](CXMLFile& file, bool isLoaded) {
                    EXPECT_TRUE(isLoaded);
                    const std::vector<IXMLDOMNodePtr> children = ChildrenOf(Find(file.m_pXMLDoc, L"/r"));
                    ASSERT_EQ(children.size(), 2u);
                    EXPECT_EQ(NameOf(children[0]), L"i:include");
                    EXPECT_EQ(NameOf(children[1]), L"i:include");
                    EXPECT_EQ(TextOfRoot(file), L"");
                });
}

TEST_F(HostileReach, SchemasAreNotRead)
{
    ExpectLoadedWithout("<r xmlns:x='http://www.w3.org/2001/XMLSchema-instance' "
                        "x:noNamespaceSchemaLocation='$' x:schemaLocation='urn:a $'/>");
    ExpectLoadedWithout("<r><e xmlns='$'/><e xmlns='x-schema:$'/></r>");
}

TEST_F(HostileReach, StyleSheetsAreNotRead)
{
    ExpectLoadedWithout("<?xml-stylesheet type='text/xsl' href='$'?><r>abc</r>", L"abc");
    ExpectLoadedWithout("<?xml-stylesheet type='text/css' href='$'?><r>abc</r>", L"abc");
}

TEST_F(HostileReach, NewDocumentsDoNotResolveExternals)
{
    CXMLFile fromFile;
    EXPECT_TRUE(LoadBytes(fromFile, "<r/>"));
    CXMLFile fromText;
    fromText.LoadFileFromRes();
    for (const CXMLFile& file : {fromFile, fromText}) {
        VARIANT_BOOL resolves = VARIANT_TRUE;
        EXPECT_EQ(file.m_pXMLDoc->get_resolveExternals(&resolves), S_OK);
        EXPECT_EQ(resolves, VARIANT_FALSE);
    }
}

TEST_F(HostileReach, DocumentThatWouldResolveExternalsIsToldNotTo)
{
    CScriptedDocument* const document = new CScriptedDocument;
    const IXMLDOMDocument2Ptr owner{document, false};
    const CDocumentSupply supply{*document};
    EXPECT_EQ(document->m_real->put_resolveExternals(VARIANT_TRUE), S_OK);
    CXMLFile file;
    EXPECT_TRUE(LoadBytes(file, "<r/>"));
    VARIANT_BOOL resolves = VARIANT_TRUE;
    EXPECT_EQ(document->m_real->get_resolveExternals(&resolves), S_OK);
    EXPECT_EQ(resolves, VARIANT_FALSE);
}
