// The fields that are the caller's: no member sets them.
#include "ResourceModules.h"
#include "XmlNodes.h"

#include <functional>
#include <list>

namespace
{

// What a member may set.
enum class Sets
{
    Nothing,
    Path,
    Document
};

struct Call
{
    const char* name;
    Sets sets;
    std::function<void(CXMLFile&)> run;
};

const CString Resources = L"xml_resources.dll";

template <class Variable>
void Exchange(CXMLFile& file)
{
    Variable variable{};
    file.CreateAttrib(Writable(L"k"), variable);
    file.CreateAttrib(Writable(L"absent"), variable);
}

const Call Calls[] = {
    {"SetXMLFilePath", Sets::Path, [](CXMLFile& file) { file.SetXMLFilePath(L"other.xml"); }},
    {"LoadFile", Sets::Document, [](CXMLFile& file) { EXPECT_TRUE(file.LoadFile()); }},
    {"UnLoadFile", Sets::Nothing,
     [](CXMLFile& file) {
         ASSERT_EQ(CoInitialize(nullptr), S_FALSE);
         file.UnLoadFile();
     }},
    {"SaveDocument", Sets::Nothing, [](CXMLFile& file) { file.SaveDocument(); }},
    {"GetXMLDocument", Sets::Nothing,
     [](CXMLFile& file) {
         IXMLDOMDocument2Ptr document;
         file.GetXMLDocument(document);
     }},
    {"GetXMLFileInString", Sets::Nothing, [](CXMLFile& file) { file.GetXMLFileInString(); }},
    {"SelectNode, found", Sets::Nothing,
     [](CXMLFile& file) { EXPECT_TRUE(file.SelectNode(Writable(L"b"), false, false)); }},
    {"SelectNode, absent", Sets::Nothing,
     [](CXMLFile& file) { EXPECT_FALSE(file.SelectNode(Writable(L"absent"), false, false)); }},
    {"SelectNode, made", Sets::Nothing,
     [](CXMLFile& file) { EXPECT_TRUE(file.SelectNode(Writable(L"new"), false, true)); }},
    {"SelectNode, made anew", Sets::Nothing,
     [](CXMLFile& file) { EXPECT_TRUE(file.SelectNode(Writable(L"b"), true, true)); }},
    {"SelectNode, refused", Sets::Nothing,
     [](CXMLFile& file) { EXPECT_FALSE(file.SelectNode(Writable(L"b"), true, false)); }},
    {"GetDOMNodePtr", Sets::Nothing,
     [](CXMLFile& file) {
         IXMLDOMNodePtr node;
         for (const wchar_t* xpath : {L"/r", L"/absent", L"["})
             file.GetDOMNodePtr(xpath, node);
     }},
    {"GetAttrib", Sets::Nothing,
     [](CXMLFile& file) {
         for (const wchar_t* xpath : {L"/r/a", L"/absent", L"/r/text()", L"["})
             file.GetAttrib(xpath, Writable(L"k"));
     }},
    {"GetAttribElement", Sets::Nothing,
     [](CXMLFile& file) {
         IXMLDOMElementPtr element;
         for (const wchar_t* xpath : {L"/r/a", L"/absent", L"/r/text()", L"["})
             file.GetAttribElement(xpath, Writable(L"k"), element);
     }},
    {"FillStringArray", Sets::Nothing,
     [](CXMLFile& file) {
         CStringArray items;
         for (const wchar_t* xpath : {L"/r/a", L"/r/a/b", L"["})
             file.FillStringArray(items, Writable(xpath), Writable(L"k"));
         EXPECT_EQ(items.GetSize(), 1);
     }},
    {"FillStringList", Sets::Nothing,
     [](CXMLFile& file) {
         std::list<CString> items;
         for (const wchar_t* xpath : {L"/r/a", L"/r/a/b", L"["})
             file.FillStringList(items, Writable(xpath), Writable(L"k"));
         EXPECT_EQ(items.size(), 1u);
     }},
    {"FillComboBox", Sets::Nothing,
     [](CXMLFile& file) {
         CWnd parent;
         CComboBox box;
         ASSERT_TRUE(parent.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 300, 300), nullptr, 0));
         ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 200, 200), &parent, 1));
         for (const wchar_t* xpath : {L"/r/a", L"/r/a/b", L"["})
             file.FillComboBox(box, Writable(xpath), Writable(L"k"));
         EXPECT_EQ(box.GetCount(), 1);
         parent.DestroyWindow();
     }},
    {"CreateRuleXMLString", Sets::Nothing,
     [](CXMLFile& file) {
         CString rule;
         file.CreateRuleXMLString(rule);
     }},
    {"CreateNode", Sets::Nothing, [](CXMLFile& file) { EXPECT_TRUE(file.CreateNode(Writable(L"new"))); }},
    {"CreateAttrib, text", Sets::Nothing, Exchange<CString>},
    {"CreateAttrib, int", Sets::Nothing, Exchange<int>},
    {"CreateAttrib, long", Sets::Nothing, Exchange<long>},
    {"CreateAttrib, float", Sets::Nothing, Exchange<float>},
    {"CreateAttrib, double", Sets::Nothing, Exchange<double>},
    {"CreateAttrib, bool", Sets::Nothing, Exchange<bool>},
    {"DeleteXMLNode", Sets::Nothing, [](CXMLFile& file) { file.DeleteXMLNode(L"/r/a", L"/r/a/b"); }},
    {"DeleteXMLNode of the current node", Sets::Nothing,
     [](CXMLFile& file) { file.DeleteXMLNode(L"/r", L"/r/a"); }},
    {"setXMLStringFromResource", Sets::Document,
     [](CXMLFile& file) { EXPECT_TRUE(file.setXMLStringFromResource(101, L"XML", Resources)); }},
    {"setXMLStringFromResource, malformed", Sets::Document,
     [](CXMLFile& file) { EXPECT_FALSE(file.setXMLStringFromResource(102, L"XML", Resources)); }},
    {"setXMLStringFromResource, without text", Sets::Nothing,
     [](CXMLFile& file) { EXPECT_FALSE(file.setXMLStringFromResource(103, L"XML", Resources)); }},
    {"LoadFileFromRes", Sets::Document, [](CXMLFile& file) { EXPECT_FALSE(file.LoadFileFromRes()); }},
};

class XmlFileFields : public XmlNodeTest
{
protected:
    // Runs the call in an object that has that current node and mode, and looks at all of its fields.
    void ExpectKept(const Call& call, CXMLFile& file, bool isReading)
    {
        SCOPED_TRACE(std::string(call.name) + (isReading ? ", reading" : ", writing"));
        file.m_strExtra = L"extra";
        file.m_bReadMode = isReading;
        const CXMLFile before(file);
        const HRESULT failure = ComFailureOf([&] { call.run(file); });
        EXPECT_EQ(failure, S_OK);
        EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), before.m_pCurNode.GetInterfacePtr());
        EXPECT_EQ(file.m_strExtra, L"extra");
        EXPECT_EQ(file.m_bReadMode, isReading);
        EXPECT_EQ(file.m_strXMLFilePath != before.m_strXMLFilePath, call.sets == Sets::Path);
        EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr() != before.m_pXMLDoc.GetInterfacePtr(),
                  call.sets == Sets::Document);
    }

    static constexpr char Document[] = "<r>text<a k='1'><b/></a></r>";

    const CLoadedModule m_module{ModulesFolder() / L"xml_resources.dll"};
};

} // namespace

TEST_F(XmlFileFields, AreKeptByEveryMember)
{
    for (const Call& call : Calls)
        for (const bool isReading : {false, true}) {
            CXMLFile file = LoadedAt(Document, L"/r/a");
            ExpectKept(call, file, isReading);
        }
}

TEST_F(XmlFileFields, AreKeptByTheMembersThatNeedNoCurrentNode)
{
    for (const Call& call : Calls) {
        const std::string name = call.name;
        const bool needsNode = name.starts_with("CreateNode") || name.starts_with("CreateAttrib") ||
                               (name.starts_with("SelectNode") && name != "SelectNode, refused");
        if (needsNode)
            continue;
        CXMLFile file = Loaded(Document);
        ExpectKept(call, file, true);
        EXPECT_FALSE(file.m_pCurNode) << name;
    }
}

TEST_F(XmlFileFields, AreKeptWhereALoadFails)
{
    const Call missing = {"LoadFile, missing", Sets::Document,
                          [](CXMLFile& file) { EXPECT_FALSE(file.LoadFile()); }};
    CXMLFile file = LoadedAt(Document, L"/r/a");
    file.SetXMLFilePath(PathOf(L"missing.xml"));
    ExpectKept(missing, file, true);
    testkit::WriteBytes(m_folder / L"missing.xml", "<r>");
    ExpectKept(missing, file, false);
}
