// CXMLFile with real documents of other makers, against what an independent parser reads in them. What
// Wine's parser does otherwise, and is stated here as it is, ParserDifferencesTest.cpp shows one by one.
#include "CorpusList.h"

#include <algorithm>
#include <map>
#include <set>

#include "xml/XmlTest.h"

namespace
{

class XmlCorpus : public XmlTest, public testing::WithParamInterface<ListedDocument>
{
protected:
    // The document of this test, loaded.
    CXMLFile Listed()
    {
        CXMLFile file(GetParam().File().c_str());
        EXPECT_TRUE(file.LoadFile());
        return file;
    }
    void ExpectNoMessage() { EXPECT_THAT(Messages(), testing::IsEmpty()); }
};

void ExpectSame(const DocumentTree& expected, const DocumentTree& actual)
{
    const std::string difference = FirstDifference(expected, actual);
    EXPECT_TRUE(difference.empty()) << difference;
}

// Two suites, so that neither takes long.
class XmlCorpusDocument : public XmlCorpus
{
};
class XmlCorpusAttribute : public XmlCorpus
{
};

TEST_P(XmlCorpusDocument, HasTheElementsAttributesAndTextsThatWereListed)
{
    const CXMLFile file = Listed();
    ExpectSame(WithPlainTexts(ContentOf(GetParam()).data), WithPlainTexts(DataOf(TreeOf(file.m_pXMLDoc))));
    ExpectNoMessage();
}

// The tree without the declaration of the document.
DocumentTree WithoutDeclaration(DocumentTree tree)
{
    std::erase_if(tree, [](const TreeNode& node) {
        return node.type == NODE_PROCESSING_INSTRUCTION && node.name == L"xml";
    });
    return tree;
}

bool HasOnlyAscii(const DocumentTree& tree)
{
    const auto isAscii = [](const std::wstring& text) {
        return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 128; });
    };
    return std::all_of(tree.begin(), tree.end(), [&](const TreeNode& node) {
        return isAscii(node.name) && isAscii(node.space) && isAscii(node.text) &&
               std::all_of(node.attributes.begin(), node.attributes.end(),
                           [&](const TreeAttribute& a) { return isAscii(a.name) && isAscii(a.value); });
    });
}

// Wine's parser writes the names of namespaces as they are, without escaping what must be.
bool HasNamespaceToBeEscaped(const ListedContent& content)
{
    return std::any_of(content.namespaces.begin(), content.namespaces.end(), [](const auto& declarations) {
        return std::any_of(declarations.second.begin(), declarations.second.end(),
                           [](const auto& declaration) {
                               return declaration.value.find_first_of(L"&<") != std::wstring::npos;
                           });
    });
}

// Makes the declaration of a file say what Wine's parser writes in any case.
void DeclareUtf8(const std::filesystem::path& file, const std::string& declared)
{
    std::string bytes = testkit::ReadBytes(file);
    const size_t end = bytes.find("?>");
    std::string head = bytes.substr(0, end);
    std::transform(head.begin(), head.end(), head.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    const size_t at = head.find(declared);
    ASSERT_NE(at, std::string::npos) << head;
    testkit::WriteBytes(file, bytes.replace(at, declared.size(), "utf-8"));
}

TEST_P(XmlCorpusDocument, SavedAndLoadedAgainIsTheSame)
{
    CXMLFile file = Listed();
    const DocumentTree before = TreeOf(file.m_pXMLDoc);
    file.SetXMLFilePath(PathOf(L"saved.xml"));
    file.SaveDocument();
    CXMLFile saved(PathOf(L"saved.xml"));
    const bool isLoaded = saved.LoadFile();
    const std::string& encoding = GetParam().encoding;
    if (HasNamespaceToBeEscaped(ContentOf(GetParam()))) {
        EXPECT_FALSE(isLoaded && TreeOf(saved.m_pXMLDoc) == before);
    } else if (encoding == "utf-16" || (encoding != "utf-8" && !HasOnlyAscii(before))) {
        EXPECT_FALSE(isLoaded && TreeOf(saved.m_pXMLDoc) == before);
        ASSERT_NO_FATAL_FAILURE(DeclareUtf8(m_folder / L"saved.xml", encoding));
        ASSERT_TRUE(saved.LoadFile());
        ExpectSame(WithoutDeclaration(before), WithoutDeclaration(TreeOf(saved.m_pXMLDoc)));
    } else {
        ASSERT_TRUE(isLoaded);
        ExpectSame(before, TreeOf(saved.m_pXMLDoc));
    }
    ExpectNoMessage();
}

std::vector<std::wstring> Gathered(CXMLFile& file, std::wstring xpath, std::wstring attribute)
{
    CStringArray found;
    file.FillStringArray(found, xpath.data(), attribute.data());
    std::vector<std::wstring> texts;
    for (int i = 0; i < found.GetSize(); ++i)
        texts.emplace_back(found[i].GetString(), found[i].GetLength());
    return texts;
}

// The text of an attribute as Wine's parser has it: nothing in place of white space only.
std::wstring TextOf(const TreeAttribute& attribute)
{
    const bool isBlank = attribute.value.find_first_not_of(L" \t\r\n") == std::wstring::npos;
    return isBlank ? std::wstring() : attribute.value;
}

TEST_P(XmlCorpusAttribute, FillStringArrayGathersAllOfOneName)
{
    std::map<std::wstring, std::vector<std::wstring>> expected;
    for (const TreeNode& node : ContentOf(GetParam()).data) {
        for (const TreeAttribute& attribute : node.attributes)
            expected[attribute.name].push_back(TextOf(attribute));
    }
    CXMLFile file = Listed();
    // By name(), as the prefixes of a document are not known to expressions.
    for (const auto& [name, values] : expected)
        EXPECT_EQ(Gathered(file, L"//*[@*[name()='" + name + L"']]", name), values) << testkit::Utf8(name);
    ExpectNoMessage();
}

// Checks the attributes of one element, which stands at `xpath`.
void ExpectAttributes(CXMLFile& file, const std::wstring& xpath, const std::vector<TreeAttribute>& attributes)
{
    for (const TreeAttribute& attribute : attributes) {
        std::wstring name = attribute.name;
        const CString value = file.GetAttrib(xpath.c_str(), name.data());
        ASSERT_EQ(std::wstring(value.GetString(), value.GetLength()), attribute.value)
            << testkit::Utf8(xpath) << " " << testkit::Utf8(name);
    }
}

// The declarations without that of the namespace without prefix, which Wine's parser does not give.
std::vector<TreeAttribute> WithoutXmlns(std::vector<TreeAttribute> declarations)
{
    std::erase_if(declarations,
                  [](const TreeAttribute& declaration) { return declaration.name == L"xmlns"; });
    return declarations;
}

TEST_P(XmlCorpusAttribute, GetAttribReadsEachOfEachElement)
{
    CXMLFile file = Listed();
    ListedContent content = ContentOf(GetParam());
    std::vector<int> counts; // of elements so far, for each depth down to the current element
    for (size_t i = 0; i < content.data.size(); ++i) {
        const TreeNode& node = content.data[i];
        if (node.type != NODE_ELEMENT)
            continue;
        counts.resize(static_cast<size_t>(node.depth) + 1);
        ++counts.back();
        std::wstring xpath;
        for (const int count : counts)
            xpath += L"/*[" + std::to_wstring(count) + L"]";
        ASSERT_NO_FATAL_FAILURE(ExpectAttributes(file, xpath, node.attributes));
        ASSERT_NO_FATAL_FAILURE(ExpectAttributes(file, xpath, content.defaults[i]));
        ASSERT_NO_FATAL_FAILURE(ExpectAttributes(file, xpath, WithoutXmlns(content.namespaces[i])));
    }
    ExpectNoMessage();
}

std::string NameOfTest(const testing::TestParamInfo<ListedDocument>& test)
{
    return test.param.TestName() + "_" + std::to_string(test.index);
}

// Without a list there are no tests; XmlCorpusList below tells of it.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(XmlCorpusDocument);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(XmlCorpusAttribute);
INSTANTIATE_TEST_SUITE_P(Real, XmlCorpusDocument, testing::ValuesIn(ListedDocuments()), NameOfTest);
INSTANTIATE_TEST_SUITE_P(Real, XmlCorpusAttribute, testing::ValuesIn(ListedDocuments()), NameOfTest);

TEST(XmlCorpusList, HasFiftyDocumentsOfFiveKinds)
{
#ifdef VELM_CORPUS_IS_LISTED
    std::set<std::string> kinds;
    for (const ListedDocument& document : ListedDocuments())
        kinds.insert(document.kind);
    EXPECT_GE(ListedDocuments().size(), 50u) << CorpusListFile().string();
    EXPECT_GE(kinds.size(), 5u) << testing::PrintToString(kinds);
#else
    GTEST_SKIP() << "The documents are those of a Unix system's packages, listed when the tests are built "
                    "there; this build has none.";
#endif
}

} // namespace
