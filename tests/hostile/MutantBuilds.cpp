#include "MutantBuilds.h"

#include <algorithm>

#include "DocumentWalk.h"
#include "kit/Text.h"
#include "model/ModelPrinter.h"

namespace hostile
{

namespace
{

constexpr wchar_t NotLoaded[] = L"MenuToolbar XML is not loaded";
constexpr wchar_t NoText[] = L"XML File String is empty";

// The text that a resource of those bytes has.
CString ResourceText(const std::string& bytes)
{
    CString text(CStringA(bytes.c_str()));
    text.Trim();
    return text;
}

// The document that the builder reads, read apart from it; none where it is not well-formed.
std::optional<WalkedDocument> WalkedText(const CString& text)
{
    IXMLDOMDocument2Ptr document;
    _com_util::CheckError(document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER));
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    _com_util::CheckError(document->loadXML(_bstr_t(text.GetString()), &isLoaded));
    if (isLoaded == VARIANT_FALSE)
        return std::nullopt;
    return Walk(document, static_cast<size_t>(text.GetLength()));
}

// An entry is built once for each of the holders' entries that it stands in, and is an item and a sub-menu,
// or two buttons and a toolbar; a menu and a toolbar are there in any case.
size_t MostElements(const WalkedDocument& walked)
{
    return 3 * walked.elements * walked.depth + 2;
}

} // namespace

MutantBuilds::~MutantBuilds()
{
    EmptyHost();
}

void MutantBuilds::BuildMutants(MutationKind kind, unsigned long long count)
{
    ASSERT_TRUE(m_resource.IsGiven());
    ForMutants(kind, count, true, [&](const std::string& mutant, unsigned long long i) {
        try {
            Build(mutant, i % 2 == 0);
        } catch (const EndlessWalk&) {
            ADD_FAILURE() << "more elements in the host than the description has room for";
        }
    });
    Figure("mutants", count);
    Figure("of these well-formed", m_built);
    Figure("of these refused in part by the host", m_refused);
    EXPECT_GT(m_built, 0u);
    EXPECT_LT(m_built, count);
}

void MutantBuilds::Build(const std::string& mutant, bool fromResource)
{
    EmptyHost();
    CString text;
    if (fromResource) {
        text = ResourceText(mutant);
        m_resource.Give(mutant);
        Append_MenuToolBar(1, L"XML", nullptr);
    } else {
        const std::wstring wide = testkit::Wide(mutant);
        text = wide.c_str();
        Append_MenuToolBar(CString(wide.data(), static_cast<int>(wide.size())), nullptr);
    }
    const std::vector<std::wstring> messages = Host().TakeMessages();
    EXPECT_EQ(Host().Automation().LiveObjects(), 0);
    EXPECT_EQ(Host().Automation().OutstandingReferences(), 0);
    EXPECT_EQ(Host().Automation().ApplicationReferences(), 0);

    const bool mayDeclareEntities = text.Find(L"<!ENTITY") >= 0;
    if (mayDeclareEntities && messages == std::vector<std::wstring>{NotLoaded}) {
        EXPECT_EQ(HostElements(0), 0u);
        return;
    }
    const std::optional<WalkedDocument> walked = WalkedText(text);
    if (!walked) {
        EXPECT_THAT(messages, testing::ElementsAre(fromResource && text.IsEmpty() ? NoText : NotLoaded));
        EXPECT_EQ(HostElements(0), 0u);
        return;
    }
    ++m_built;
    m_refused += !messages.empty();
    // Two for each phase that the host ended.
    for (size_t i = 0; i < messages.size(); i += 2)
        EXPECT_THAT(messages[i], testing::AnyOf(L"Unable to Load Menu", L"Unable to Load Toolbar"));
    EXPECT_THAT(messages.size(), testing::AnyOf(0u, 2u, 4u));
    EXPECT_GE(HostElements(MostElements(*walked)), 1u);
}

} // namespace hostile
