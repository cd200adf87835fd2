// The object itself: its data members, and what copies and moves do to them.
#include "XmlTest.h"

#include "ScriptedDocument.h"

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

namespace
{

// Callers compiled elsewhere reach into the object, so its layout is fixed.
static_assert(std::is_same_v<decltype(CXMLFile::m_strXMLFilePath), CString>);
static_assert(std::is_same_v<decltype(CXMLFile::m_pXMLDoc), IXMLDOMDocument2Ptr>);
static_assert(std::is_same_v<decltype(CXMLFile::m_pCurNode), IXMLDOMNodePtr>);
static_assert(std::is_same_v<decltype(CXMLFile::m_strExtra), CString>);
static_assert(std::is_same_v<decltype(CXMLFile::m_bReadMode), bool>);
static_assert(std::is_standard_layout_v<CXMLFile>);
static_assert(offsetof(CXMLFile, m_strXMLFilePath) == 0);
static_assert(offsetof(CXMLFile, m_pXMLDoc) == sizeof(void*));
static_assert(offsetof(CXMLFile, m_pCurNode) == 2 * sizeof(void*));
static_assert(offsetof(CXMLFile, m_strExtra) == 3 * sizeof(void*));
static_assert(offsetof(CXMLFile, m_bReadMode) == 4 * sizeof(void*));
static_assert(sizeof(CXMLFile) == 5 * sizeof(void*));
static_assert(!std::is_polymorphic_v<CXMLFile>);
static_assert(std::is_convertible_v<CString, CXMLFile>);
static_assert(
    std::is_same_v<decltype(std::declval<CXMLFile&>() = std::declval<const CXMLFile&>()), CXMLFile&>);
static_assert(std::is_same_v<decltype(std::declval<CXMLFile&>() = std::declval<CXMLFile&&>()), CXMLFile&>);

// Counts its references, does nothing else, and tells when it goes.
template <class Base, class Interface>
class CObserved : public Base
{
public:
    explicit CObserved(std::function<void()> gone) : m_gone(std::move(gone)) {}
    ~CObserved() override { m_gone(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = IsEqualIID(iid, __uuidof(Interface)) || IsEqualIID(iid, IID_IUnknown);
        *object = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (!isKnown)
            return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }

private:
    std::function<void()> m_gone;
};

using CObservedDocument = CObserved<CUnimplementedDocument, IXMLDOMDocument2>;
using CObservedNode = CObserved<CUnimplementedNode<IXMLDOMNode>, IXMLDOMNode>;

IXMLDOMDocument2Ptr NewDocument(std::function<void()> gone = [] {})
{
    return IXMLDOMDocument2Ptr(new CObservedDocument(std::move(gone)), false);
}

IXMLDOMNodePtr NewNode(std::function<void()> gone = [] {})
{
    return IXMLDOMNodePtr(new CObservedNode(std::move(gone)), false);
}

// An object with something in every member. Of each reference count, one is the test's own.
class XmlFileObject : public testing::Test
{
protected:
    static CXMLFile Filled(const IXMLDOMDocument2Ptr& document, const IXMLDOMNodePtr& node)
    {
        CXMLFile file(L"path");
        file.m_pXMLDoc = document;
        file.m_pCurNode = node;
        file.m_strExtra = L"extra";
        file.m_bReadMode = true;
        return file;
    }

    static void ExpectPlainMembersAsFilled(const CXMLFile& file)
    {
        EXPECT_EQ(file.m_strXMLFilePath, L"path");
        EXPECT_EQ(file.m_strExtra, L"extra");
        EXPECT_TRUE(file.m_bReadMode);
    }

    void ExpectReferences(ULONG count) const
    {
        EXPECT_EQ(ReferencesOf(m_document), count);
        EXPECT_EQ(ReferencesOf(m_node), count);
    }

    void ExpectPointers(CXMLFile& file) const
    {
        EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), m_document.GetInterfacePtr());
        EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), m_node.GetInterfacePtr());
    }

    static void ExpectNoPointers(CXMLFile& file)
    {
        EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), nullptr);
        EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), nullptr);
    }

    IXMLDOMDocument2Ptr m_document = NewDocument();
    IXMLDOMNodePtr m_node = NewNode();
};

using XmlFileCopy = XmlFileObject;
using XmlFileMove = XmlFileObject;

} // namespace

TEST_F(XmlFileObject, StartsEmptyWhateverItsMemoryHeld)
{
    alignas(CXMLFile) unsigned char memory[sizeof(CXMLFile)];
    std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xCD));
    auto* const file = new (memory) CXMLFile;
    EXPECT_EQ(file->m_strXMLFilePath, L"");
    EXPECT_EQ(file->m_strExtra, L"");
    EXPECT_FALSE(file->m_bReadMode);
    EXPECT_EQ(memory[offsetof(CXMLFile, m_bReadMode)], 0);
    ExpectNoPointers(*file);
    file->~CXMLFile();
}

TEST_F(XmlFileObject, MadeWithAPathHasThePathAndNothingElse)
{
    alignas(CXMLFile) unsigned char memory[sizeof(CXMLFile)];
    std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xCD));
    auto* const file = new (memory) CXMLFile(CString(L"c:\\some folder\\\u00E9.xml"));
    EXPECT_EQ(file->m_strXMLFilePath, L"c:\\some folder\\\u00E9.xml");
    EXPECT_EQ(file->m_strExtra, L"");
    EXPECT_FALSE(file->m_bReadMode);
    EXPECT_EQ(memory[offsetof(CXMLFile, m_bReadMode)], 0);
    ExpectNoPointers(*file);
    file->~CXMLFile();
}

TEST_F(XmlFileObject, GivesItsReferencesBackInTheEnd)
{
    {
        const CXMLFile file = Filled(m_document, m_node);
        ExpectReferences(2);
    }
    ExpectReferences(1);
}

TEST_F(XmlFileObject, ReleasesTheNodeBeforeTheDocument)
{
    std::vector<std::string> gone;
    {
        const CXMLFile file = Filled(NewDocument([&] { gone.push_back("document"); }),
                                     NewNode([&] { gone.push_back("node"); }));
        EXPECT_THAT(gone, testing::IsEmpty());
    }
    EXPECT_THAT(gone, testing::ElementsAre("node", "document"));
}

TEST_F(XmlFileObject, DoesNotEndComWhenItEnds)
{
    ASSERT_EQ(CoInitialize(nullptr), S_OK) << "the test must be the first to initialise COM";
    {
        const CXMLFile file(L"path");
    }
    EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
    CoUninitialize();
    CoUninitialize();
}

TEST_F(XmlFileObject, DoesNotInitialiseComItself)
{
    const CXMLFile file(L"path");
    EXPECT_EQ(CoInitialize(nullptr), S_OK);
    CoUninitialize();
}

TEST_F(XmlFileCopy, ConstructedSharesPointersWithReferencesOfItsOwn)
{
    CXMLFile file = Filled(m_document, m_node);
    CXMLFile copy(file);
    ExpectReferences(3);
    for (CXMLFile* each : {&file, &copy}) {
        ExpectPointers(*each);
        ExpectPlainMembersAsFilled(*each);
    }
}

TEST_F(XmlFileCopy, HasTextsOfItsOwn)
{
    CXMLFile file = Filled(m_document, m_node);
    CXMLFile copy(file);
    copy.m_strXMLFilePath += L"2";
    copy.m_strExtra += L"2";
    copy.m_bReadMode = false;
    ExpectPlainMembersAsFilled(file);
    EXPECT_EQ(copy.m_strXMLFilePath, L"path2");
    EXPECT_EQ(copy.m_strExtra, L"extra2");
}

TEST_F(XmlFileCopy, OutlivesTheOriginal)
{
    CXMLFile copy;
    {
        const CXMLFile file = Filled(m_document, m_node);
        copy = file;
    }
    ExpectReferences(2);
    ExpectPointers(copy);
    ExpectPlainMembersAsFilled(copy);
}

TEST_F(XmlFileCopy, AssignedReleasesWhatTheTargetHad)
{
    int gone = 0;
    CXMLFile target = Filled(NewDocument([&] { ++gone; }), NewNode([&] { ++gone; }));
    CXMLFile file = Filled(m_document, m_node);
    target.m_strXMLFilePath = L"other";
    target.m_strExtra.Empty();
    target.m_bReadMode = false;
    EXPECT_EQ(&(target = file), &target);
    EXPECT_EQ(gone, 2);
    ExpectReferences(3);
    for (CXMLFile* each : {&file, &target}) {
        ExpectPointers(*each);
        ExpectPlainMembersAsFilled(*each);
    }
}

TEST_F(XmlFileCopy, AssignedFromAnEmptyObjectLeavesNothing)
{
    CXMLFile target = Filled(m_document, m_node);
    const CXMLFile empty;
    target = empty;
    ExpectReferences(1);
    ExpectNoPointers(target);
    EXPECT_EQ(target.m_strXMLFilePath, L"");
    EXPECT_EQ(target.m_strExtra, L"");
    EXPECT_FALSE(target.m_bReadMode);
}

TEST_F(XmlFileCopy, AssignedToItselfChangesNothing)
{
    // The only references are the object's: one release too early would end document and node.
    int gone = 0;
    CXMLFile file = Filled(NewDocument([&] { ++gone; }), NewNode([&] { ++gone; }));
    IXMLDOMDocument2* const document = file.m_pXMLDoc;
    IXMLDOMNode* const node = file.m_pCurNode;
    const CXMLFile& same = file;
    file = same;
    EXPECT_EQ(gone, 0);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), document);
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), node);
    EXPECT_EQ(ReferencesOf(document), 1U);
    EXPECT_EQ(ReferencesOf(node), 1U);
    ExpectPlainMembersAsFilled(file);
}

TEST_F(XmlFileCopy, AssignedBetweenObjectsThatShareKeepsTheReferences)
{
    const CXMLFile file = Filled(m_document, m_node);
    CXMLFile target(file);
    target = file;
    ExpectReferences(3);
    ExpectPointers(target);
}

TEST_F(XmlFileMove, ConstructedTakesThePointersAndCopiesTheRest)
{
    CXMLFile file = Filled(m_document, m_node);
    CXMLFile target(std::move(file));
    ExpectReferences(2);
    ExpectPointers(target);
    ExpectNoPointers(file);
    ExpectPlainMembersAsFilled(target);
    ExpectPlainMembersAsFilled(file);
}

TEST_F(XmlFileMove, AssignedTakesThePointersAndCopiesTheRest)
{
    CXMLFile file = Filled(m_document, m_node);
    CXMLFile target;
    EXPECT_EQ(&(target = std::move(file)), &target);
    ExpectReferences(2);
    ExpectPointers(target);
    ExpectNoPointers(file);
    ExpectPlainMembersAsFilled(target);
    ExpectPlainMembersAsFilled(file);
}

TEST_F(XmlFileMove, LeavesASourceWithTextsOfItsOwn)
{
    CXMLFile file = Filled(m_document, m_node);
    const CXMLFile target(std::move(file));
    file.m_strXMLFilePath += L"2";
    file.m_strExtra += L"2";
    ExpectPlainMembersAsFilled(target);
}

TEST_F(XmlFileMove, AssignedReleasesWhatTheTargetHad)
{
    int gone = 0;
    CXMLFile target = Filled(NewDocument([&] { ++gone; }), NewNode([&] { ++gone; }));
    CXMLFile file = Filled(m_document, m_node);
    target = std::move(file);
    EXPECT_EQ(gone, 2);
    ExpectReferences(2);
    ExpectPointers(target);
    ExpectNoPointers(file);
}

TEST_F(XmlFileMove, AssignedReleasesWhatTheTargetHadBeforeItTakesTheSources)
{
    // Seen from inside the release of each old pointer: the source still has its own.
    CXMLFile file = Filled(m_document, m_node);
    bool hadDocument = false;
    bool hadNode = false;
    CXMLFile target = Filled(NewDocument([&] { hadDocument = file.m_pXMLDoc.GetInterfacePtr() != nullptr; }),
                             NewNode([&] { hadNode = file.m_pCurNode.GetInterfacePtr() != nullptr; }));
    target = std::move(file);
    EXPECT_TRUE(hadDocument);
    EXPECT_TRUE(hadNode);
}

TEST_F(XmlFileMove, AssignedFromAnEmptyObjectLeavesNothing)
{
    CXMLFile target = Filled(m_document, m_node);
    CXMLFile empty;
    target = std::move(empty);
    ExpectReferences(1);
    ExpectNoPointers(target);
    EXPECT_EQ(target.m_strXMLFilePath, L"");
    EXPECT_EQ(target.m_strExtra, L"");
    EXPECT_FALSE(target.m_bReadMode);
}

TEST_F(XmlFileMove, AssignedBetweenObjectsThatShareLeavesThePointersWithBoth)
{
    CXMLFile file = Filled(m_document, m_node);
    CXMLFile target(file);
    target = std::move(file);
    ExpectReferences(3);
    ExpectPointers(target);
    ExpectPointers(file);
}

TEST_F(XmlFileMove, AssignedTakesTheOnePointerThatIsNotShared)
{
    const IXMLDOMNodePtr other = NewNode();
    CXMLFile file = Filled(m_document, m_node);
    CXMLFile target = Filled(m_document, other);
    target = std::move(file);
    EXPECT_EQ(ReferencesOf(m_document), 3U);
    EXPECT_EQ(ReferencesOf(m_node), 2U);
    EXPECT_EQ(ReferencesOf(other), 1U);
    ExpectPointers(target);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), m_document.GetInterfacePtr());
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), nullptr);
}

TEST_F(XmlFileMove, AssignedToItselfChangesNothing)
{
    int gone = 0;
    CXMLFile file = Filled(NewDocument([&] { ++gone; }), NewNode([&] { ++gone; }));
    IXMLDOMDocument2* const document = file.m_pXMLDoc;
    CXMLFile& same = file;
    file = std::move(same);
    EXPECT_EQ(gone, 0);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), document);
    EXPECT_EQ(ReferencesOf(document), 1U);
    EXPECT_NE(file.m_pCurNode.GetInterfacePtr(), nullptr);
    ExpectPlainMembersAsFilled(file);
}

namespace
{
using XmlFileSharing = XmlTest;
} // namespace

TEST_F(XmlFileSharing, NodeMadeThroughACopyIsSeenThroughTheOriginal)
{
    wchar_t name[] = L"child";
    CXMLFile file = Loaded("<r/>");
    CXMLFile copy(file);
    copy.GetDOMNodePtr(L"/r", copy.m_pCurNode);
    ASSERT_NE(copy.m_pCurNode, nullptr);
    copy.CreateNode(name);
    IXMLDOMNodePtr found;
    file.GetDOMNodePtr(L"/r/child", found);
    EXPECT_NE(found, nullptr);
    EXPECT_EQ(file.m_pCurNode, nullptr);
}

TEST_F(XmlFileSharing, ReloadThroughACopyLeavesTheOriginalsDocument)
{
    CXMLFile file = Loaded("<r/>");
    CXMLFile copy(file);
    testkit::WriteBytes(m_folder / L"document.xml", "<changed/>");
    ASSERT_TRUE(copy.LoadFile());
    IXMLDOMNodePtr found;
    file.GetDOMNodePtr(L"/r", found);
    EXPECT_NE(found, nullptr);
    IXMLDOMNodePtr foundByCopy;
    copy.GetDOMNodePtr(L"/changed", foundByCopy);
    EXPECT_NE(foundByCopy, nullptr);
}

TEST_F(XmlFileSharing, MovedDocumentIsStillLoaded)
{
    CXMLFile file = Loaded("<r/>");
    const CXMLFile target(std::move(file));
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), nullptr);
    EXPECT_EQ(file.m_strXMLFilePath, PathOf(L"document.xml"));
    CXMLFile again(target);
    EXPECT_NE(again.GetXMLFileInString().Find(L"<r/>"), -1);
}
