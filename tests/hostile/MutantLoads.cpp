#include "MutantLoads.h"

#include <algorithm>

#include "DocumentWalk.h"
#include "kit/Text.h"

namespace hostile
{

namespace
{

bool IsWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

std::wstring WideOf(const CString& text)
{
    return std::wstring(text.GetString(), static_cast<size_t>(text.GetLength()));
}

// Wine's parser gives an attribute of white space only as the empty text.
std::wstring AsText(const std::wstring& value)
{
    const bool isBlank = value.find_first_not_of(L" \t\r\n") == std::wstring::npos;
    return isBlank && IsWine() ? std::wstring() : value;
}

std::vector<std::wstring> Gathered(CXMLFile& file, const std::wstring& attribute)
{
    std::wstring xpath = L"//*[@*[name()='" + attribute + L"']]";
    std::wstring name = attribute;
    CStringArray found;
    file.FillStringArray(found, xpath.data(), name.data());
    std::vector<std::wstring> texts;
    for (INT_PTR i = 0; i < found.GetSize(); ++i)
        texts.push_back(WideOf(found[i]));
    return texts;
}

// Wine's parser writes UTF-8 in any case and leaves the declaration as it is.
void DeclareUtf8(const std::filesystem::path& file)
{
    std::string bytes = testkit::ReadBytes(file);
    if (!bytes.starts_with("<?xml "))
        return;
    const size_t end = bytes.find("?>");
    const size_t at = bytes.find("encoding=");
    if (at >= end)
        return;
    const size_t quote = bytes.find(bytes[at + 9], at + 10);
    testkit::WriteBytes(file, bytes.replace(at + 10, quote - at - 10, "UTF-8"));
}

// Wine's parser writes the names of namespaces as they are, without escaping what must be.
bool HasNamespaceToBeEscaped(const std::wstring& xml)
{
    for (size_t at = xml.find(L"xmlns"); at != xml.npos; at = xml.find(L"xmlns", at + 1)) {
        const size_t begin = xml.find(L"=\"", at);
        const size_t end = begin == xml.npos ? begin : xml.find(L'"', begin + 2);
        const std::wstring_view name =
            std::wstring_view(xml).substr(std::min(begin, xml.size()), end - begin);
        if (name.find_first_of(L"&<") != name.npos)
            return true;
    }
    return false;
}

// A line without the white space at the ends of its text.
std::wstring Trimmed(const std::wstring& line)
{
    const size_t start = line.find(L' ', line.find(L' ') + 1) + 1; // behind depth and kind
    const size_t first = line.find_first_not_of(L" \t\r\n", start);
    if (first == std::wstring::npos)
        return line.substr(0, start);
    return line.substr(0, start) + line.substr(first, line.find_last_not_of(L" \t\r\n") + 1 - first);
}

bool IsEmptyText(const std::wstring& line)
{
    return line.ends_with(L" 3 ");
}

// Without the document's declaration. Wine's parser keeps the white space at the ends of a text or not, as it
// stands beside references or not.
std::vector<std::wstring> Content(std::vector<std::wstring> lines)
{
    std::erase_if(lines, [](const std::wstring& line) { return line.starts_with(L"1 7 xml "); });
    if (IsWine()) {
        std::transform(lines.begin(), lines.end(), lines.begin(), Trimmed);
        std::erase_if(lines, IsEmptyText);
    }
    return lines;
}

std::string FirstDifference(const std::vector<std::wstring>& expected, const std::vector<std::wstring>& found)
{
    const auto [left, right] = std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
    if (left == expected.end() && right == found.end())
        return {};
    return "expected: " + (left == expected.end() ? "nothing more" : testkit::Quoted(*left)) +
           "\nfound: " + (right == found.end() ? "nothing more" : testkit::Quoted(*right));
}

} // namespace

void MutantLoads::LoadMutants(MutationKind kind, unsigned long long count)
{
    ASSERT_TRUE(m_resource.IsGiven());
    ForMutants(kind, count, false, [&](const std::string& mutant, unsigned long long i) {
        Load(mutant, i % 4 == 3);
        ExpectNoMessage();
    });
    Figure("mutants", count);
    Figure("of these well-formed", m_loaded);
    Figure("of these not saved, for what Wine's parser writes wrongly", m_unsaved);
    EXPECT_GT(m_loaded, 0u);
    EXPECT_LT(m_loaded, count);
}

void MutantLoads::Load(const std::string& mutant, bool fromResource)
{
    CXMLFile file((m_folder / L"mutant.xml").c_str());
    bool isLoaded = false;
    if (fromResource) {
        m_resource.Give(mutant);
        isLoaded = file.setXMLStringFromResource(1, L"XML", L"");
        if (mutant.empty() || mutant[0] == '\0') {
            // No text, no new document.
            EXPECT_FALSE(isLoaded);
            EXPECT_FALSE(file.m_pXMLDoc);
            return;
        }
    } else {
        testkit::WriteBytes(m_folder / L"mutant.xml", mutant);
        isLoaded = file.LoadFile();
    }
    ASSERT_TRUE(file.m_pXMLDoc);
    if (!isLoaded) {
        ExpectEmptyAndUsable(file);
        return;
    }
    ++m_loaded;
    try {
        ExpectReadable(file, mutant.size());
        if (!HasFailure())
            ExpectSameWhenSaved(file, mutant.size());
    } catch (const EndlessWalk&) {
        ADD_FAILURE() << "more nodes than bytes";
    }
}

void MutantLoads::ExpectEmptyAndUsable(CXMLFile& file)
{
    IXMLDOMNodePtr child;
    EXPECT_EQ(file.m_pXMLDoc->get_firstChild(&child), S_FALSE);
    EXPECT_EQ(file.GetXMLFileInString(), L"");
    wchar_t name[] = L"Again", attribute[] = L"a";
    file.m_pCurNode = file.m_pXMLDoc;
    file.m_pCurNode = file.SelectNode(name, false, true);
    ASSERT_TRUE(file.m_pCurNode);
    CString value = L"v";
    file.CreateAttrib(attribute, value);
    EXPECT_EQ(file.GetAttrib(L"/Again", attribute), L"v");
    file.SetXMLFilePath((m_folder / L"saved.xml").c_str());
    file.SaveDocument();
    EXPECT_TRUE(file.LoadFile());
    EXPECT_EQ(file.GetAttrib(L"/Again", attribute), L"v");
}

void MutantLoads::ExpectReadable(CXMLFile& file, size_t size)
{
    const WalkedDocument walked = Walk(file.m_pXMLDoc, size);
    EXPECT_GT(walked.elements, 0u);
    EXPECT_NE(file.GetXMLFileInString(), L"");
    for (const auto& [name, values] : walked.attributes) {
        std::vector<std::wstring> expected;
        for (const std::wstring& value : values)
            expected.push_back(AsText(value));
        EXPECT_EQ(Gathered(file, name), expected) << testkit::Quoted(name);
    }
    // The root's attributes in the other ways.
    file.GetDOMNodePtr(L"/*", file.m_pCurNode);
    ASSERT_TRUE(file.m_pCurNode);
    IXMLDOMElementPtr root;
    file.m_bReadMode = true;
    for (const auto& attribute : walked.attributes) {
        std::wstring name = attribute.first;
        const CString value = file.GetAttribElement(L"/*", name.data(), root);
        CString read;
        int number = 0;
        file.CreateAttrib(name.data(), read);
        file.CreateAttrib(name.data(), number);
        EXPECT_EQ(AsText(WideOf(value)), WideOf(read)) << testkit::Quoted(name);
        EXPECT_EQ(number, GetStrToInt(read));
    }
    file.m_bReadMode = false;
    file.m_pCurNode = nullptr;
}

void MutantLoads::ExpectSameWhenSaved(CXMLFile& file, size_t size)
{
    const WalkedDocument before = Walk(file.m_pXMLDoc, size);
    if (IsWine() && (before.hasLoosePrefix || HasNamespaceToBeEscaped(WideOf(file.GetXMLFileInString())))) {
        ++m_unsaved;
        return;
    }
    const std::filesystem::path path = m_folder / L"saved.xml";
    file.SetXMLFilePath(path.c_str());
    file.SaveDocument();
    if (IsWine())
        DeclareUtf8(path);
    CXMLFile again(path.c_str());
    ASSERT_TRUE(again.LoadFile()) << testkit::ReadBytes(path).substr(0, 2000);
    const std::string difference =
        FirstDifference(Content(before.lines), Content(Walk(again.m_pXMLDoc, size * 8).lines));
    EXPECT_TRUE(difference.empty()) << difference;
}

} // namespace hostile
