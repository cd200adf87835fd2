// The XML document class on a failing platform.
//
// Left out: the two private members, which no member of the class calls.
#include "Suites.h"

#include <comdef.h>

#include <list>

#include "kit/Files.h"
#include "kit/Text.h"
#include "resource.h"

namespace
{

using namespace failingtest;

constexpr char Text[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r><i k='a long first value'/>"
                        "<i k='a long second value' n='7' d='2.5'/><c/></r>";

class Apartment
{
public:
    Apartment() { (void)CoInitialize(nullptr); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

// A document with a current node, its root, a file that holds the same, and what members fill.
class XmlGround : public Ground
{
public:
    XmlGround()
    {
        testkit::WriteBytes(folder / L"document.xml", Text);
        file.m_strXMLFilePath = (folder / L"document.xml").c_str();
        file.m_strExtra = L"the caller's";
        file.m_pXMLDoc.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER);
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        file.m_pXMLDoc->loadXML(_bstr_t(testkit::Wide(Text).c_str()), &isLoaded);
        IXMLDOMElementPtr root;
        file.m_pXMLDoc->get_documentElement(&root);
        file.m_pCurNode = root;
        root->get_lastChild(&node);
        element = node;
        items.Add(L"there before");
        list.push_back(L"there before");
        parent.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 200, 200), nullptr, 0);
        combo.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 100, 100), &parent, 1);
        combo.AddString(L"there before");
    }
    ~XmlGround() override { parent.DestroyWindow(); }

    std::string State() override
    {
        std::string of = StateOf(file);
        // Each ground has a folder of its own.
        const std::string own = Shown(CString((folder / L"document.xml").c_str()));
        if (const size_t at = of.find(own); at != std::string::npos)
            of.replace(at, own.size(), "its own file");
        return of + StateOf(other) + "node " + NameOf(node) + ", element " + NameOf(element) +
               "\nvalues: " + Shown(text) + " " + std::to_string(number) + " " + std::to_string(longNumber) +
               " " + std::to_string(fraction) + " " + std::to_string(doubleFraction) + " " + Shown(flag) +
               "\nfilled:" + Filled();
    }

    // The part of a state that members for filling change.
    static std::string FilledOf(const std::string& state) { return state.substr(state.find("\nfilled:")); }

    Apartment apartment;
    testkit::TempFolder folder;
    CXMLFile file;
    CXMLFile other{L"the other's path"};
    IXMLDOMNodePtr node;
    IXMLDOMElementPtr element;
    CString text = L"a text as long as before";
    int number = 12;
    long longNumber = 123;
    float fraction = 1.5f;
    double doubleFraction = 1.25;
    bool flag = true;
    CStringArray items;
    std::list<CString> list;
    CWnd parent;
    CComboBox combo;
    wchar_t name[20] = L"k";
    wchar_t xpath[20] = L"/r/i";
    CString path = xpath;
    CString parentPath = L"/r";
    CString childPath = L"/r/c";
    CString resourceType = L"XML";
    CString moduleName = L"failing_tests.exe";

private:
    static std::string NameOf(IXMLDOMNode* node)
    {
        if (node == nullptr)
            return "none";
        _bstr_t name;
        node->get_nodeName(name.GetAddress());
        return testkit::Utf8(static_cast<const wchar_t*>(name));
    }
    static std::string StateOf(const CXMLFile& file)
    {
        _bstr_t text;
        if (file.m_pXMLDoc)
            file.m_pXMLDoc->get_xml(text.GetAddress());
        return (text.length() != 0 ? testkit::Utf8(static_cast<const wchar_t*>(text)) : "no document") +
               "\nat " + NameOf(file.m_pCurNode) + ", path " + Shown(file.m_strXMLFilePath) + ", extra " +
               Shown(file.m_strExtra) + ", reads " + Shown(file.m_bReadMode) + "\n";
    }
    std::string Filled() const
    {
        std::string texts;
        for (INT_PTR i = 0; i < items.GetSize(); ++i)
            texts += std::string(" ") + Shown(items[i]);
        texts += "\n";
        for (const CString& one : list)
            texts += std::string(" ") + Shown(one);
        texts += "\n";
        for (int i = 0; i < combo.GetCount(); ++i) {
            wchar_t entry[100] = L"";
            ::SendMessageW(combo.m_hWnd, CB_GETLBTEXT, static_cast<WPARAM>(i),
                           reinterpret_cast<LPARAM>(entry));
            texts += std::string(" ") + testkit::Quoted(entry);
        }
        return texts;
    }
};

using Member = Row<XmlGround>;

const std::vector<std::string> FillFailure = {" [FillStringArray Error]"};

// All lines of what was filled begin as they were, and end with the first of what there is to add.
bool AreFirstFilled(const std::string& before, const std::string& done, const Outcome& failed)
{
    const std::string now = XmlGround::FilledOf(failed.state);
    for (int i = 0; i < 4; ++i) {
        const auto lineIn = [i](const std::string& text) {
            size_t start = 0;
            for (int skipped = 0; skipped < i; ++skipped)
                start = text.find('\n', start) + 1;
            return text.substr(start, text.find('\n', start) - start);
        };
        const std::string was = lineIn(XmlGround::FilledOf(before));
        const std::string is = lineIn(now);
        if (!is.starts_with(was) || !lineIn(XmlGround::FilledOf(done)).starts_with(is))
            return false;
    }
    return failed.state.substr(0, failed.state.find("\nfilled:")) ==
           before.substr(0, before.find("\nfilled:"));
}

// The former document, or the new one: empty, or with its declaration and nothing else.
bool IsDocumentOrNewOne(const std::string& before, const std::string&, const Outcome& failed)
{
    if (failed.state == before)
        return true;
    const std::string document = failed.state.substr(0, failed.state.find("\nat "));
    const std::string rest = failed.state.substr(failed.state.find("\nat "));
    return rest == before.substr(before.find("\nat ")) &&
           (document == "no document" || document.find_first_not_of("\r\n") == std::string::npos ||
            (document.starts_with("<?xml ") && document.find('<', 1) == std::string::npos));
}

// The former document, or a new, empty one.
bool IsDocumentOrEmpty(const std::string& before, const std::string&, const Outcome& failed)
{
    return failed.state == before ||
           failed.state == std::string("no document") + before.substr(before.find("\nat "));
}

// As before, but that the old child may be gone.
bool IsChildAtMostGone(const std::string& before, const std::string&, const Outcome& failed)
{
    const std::string child = "\t<c/>\r\n";
    std::string without = before;
    if (const size_t at = without.find(child); at != std::string::npos)
        without.erase(at, child.size());
    return failed.state == before || failed.state == without;
}

// As before, but that the element may be the one that was found.
bool IsElementAtMostSet(const std::string& before, const std::string&, const Outcome& failed)
{
    std::string with = before;
    with.replace(with.find("element c"), 9, "element i");
    return failed.state == before || failed.state == with;
}

std::string Name(const IXMLDOMNodePtr& node)
{
    if (!node)
        return "null";
    _bstr_t name;
    node->get_nodeName(name.GetAddress());
    return testkit::Utf8(static_cast<const wchar_t*>(name));
}

// Writes with and reads with one member for attributes.
template <class Value>
void AddAttributeRows(std::vector<Member>& rows, const std::string& type, Value XmlGround::*value,
                      const wchar_t* readName)
{
    const auto exchange = [=](bool isReading, const wchar_t* name) {
        return [=](XmlGround& g) {
            g.file.m_bReadMode = isReading;
            g.file.m_pCurNode = nullptr;
            IXMLDOMNodePtr found;
            IXMLDOMNodePtr second;
            g.file.m_pXMLDoc->get_lastChild(&found);
            found->get_firstChild(&second);
            second->get_nextSibling(&g.file.m_pCurNode);
            wchar_t buffer[20] = L"";
            wcscpy(buffer, name);
            g.file.CreateAttrib(buffer, g.*value);
            return "";
        };
    };
    // The direction and the place are set by the test.
    const auto keepsDocument = [](const std::string& before, const std::string&, const Outcome& failed) {
        const auto valuesOf = [](const std::string& state) { return state.substr(state.find("\nvalues: ")); };
        return valuesOf(failed.state) == valuesOf(before) &&
               failed.state.substr(0, failed.state.find("\nat ")) == before.substr(0, before.find("\nat "));
    };
    rows.push_back({"WriteNew" + type, exchange(false, L"fresh"), Memory | ComMemory, {}, keepsDocument});
    rows.push_back({"Write" + type, exchange(false, readName), Memory | ComMemory, {}, keepsDocument});
    rows.push_back({"Read" + type, exchange(true, readName), Memory | ComMemory, {}, keepsDocument});
}

std::vector<Operation> Members()
{
    const auto selecting = [](const wchar_t* name, bool remove, bool create) {
        return [=](XmlGround& g) {
            wcscpy(g.name, name);
            return Name(g.file.SelectNode(g.name, remove, create));
        };
    };
    std::vector<Member> rows = {
        {"Construct", [](XmlGround&) { return Shown(CXMLFile().m_bReadMode); }},
        {"ConstructWithPath", [](XmlGround& g) { return Shown(CXMLFile(g.text).m_strXMLFilePath); }},
        {"ConstructCopy", [](XmlGround& g) { return Shown(CXMLFile(g.file).m_strXMLFilePath); }},
        {"ConstructMove",
         [](XmlGround& g) {
             const CXMLFile moved(std::move(g.file));
             return Shown(moved.m_strXMLFilePath);
         },
         NoException,
         {},
         nullptr,
         Once},
        {"Assign",
         [](XmlGround& g) {
             g.other = g.file;
             return "";
         }},
        {"AssignMove",
         [](XmlGround& g) {
             g.other = std::move(g.file);
             return "";
         }},
        {"SetXMLFilePath",
         [](XmlGround& g) {
             g.file.SetXMLFilePath(g.text);
             return "";
         }},
        {"LoadFile",
         [](XmlGround& g) { return Shown(g.file.LoadFile()); },
         NoException,
         {"false [XML File Loading Error]"},
         IsDocumentOrNewOne},
        {"UnLoadFile",
         [](XmlGround& g) {
             (void)CoInitialize(nullptr);
             g.file.UnLoadFile();
             return "";
         }},
        {"SaveDocument",
         [](XmlGround& g) {
             g.file.SaveDocument();
             return std::to_string(testkit::ReadBytes(g.folder / L"document.xml").size());
         },
         ComMemory},
        {"GetXMLDocument",
         [](XmlGround& g) {
             IXMLDOMDocument2Ptr document;
             g.file.GetXMLDocument(document);
             return Shown(document == g.file.m_pXMLDoc);
         }},
        {"GetXMLFileInString", [](XmlGround& g) { return Shown(g.file.GetXMLFileInString()); }, Memory},
        {"SelectNode", selecting(L"i", false, false), Memory | ComMemory},
        {"SelectOrCreateNode", selecting(L"fresh", false, true), Memory | ComMemory},
        {"SelectNodeRemoving", selecting(L"c", true, true), Memory | ComMemory, {}, IsChildAtMostGone},
        {"SelectNodeRefused", selecting(L"i", true, false)},
        {"GetDOMNodePtr",
         [](XmlGround& g) {
             g.file.GetDOMNodePtr(g.path, g.node);
             return "";
         },
         NoException,
         {" [Some Error occurred during XML File Operation]"}},
        {"GetAttrib",
         [](XmlGround& g) { return Shown(g.file.GetAttrib(g.path, g.name)); },
         NoException,
         {"\"\" [XML File Atrribute Error]", "\"\" [Some Error occurred during XML File Operation]"}},
        {"GetAttribElement",
         [](XmlGround& g) { return Shown(g.file.GetAttribElement(g.path, g.name, g.element)); },
         NoException,
         {"\"\" [XML File Atrribute Error]", "\"\" [Some Error occurred during XML File Operation]"},
         IsElementAtMostSet},
        {"FillStringArray",
         [](XmlGround& g) {
             g.file.FillStringArray(g.items, g.xpath, g.name);
             return "";
         },
         NoException, FillFailure, AreFirstFilled},
        {"FillStringList",
         [](XmlGround& g) {
             g.file.FillStringList(g.list, g.xpath, g.name);
             return "";
         },
         Memory, FillFailure, AreFirstFilled},
        {"FillComboBox",
         [](XmlGround& g) {
             g.file.FillComboBox(g.combo, g.xpath, g.name);
             return "";
         },
         NoException, FillFailure, AreFirstFilled},
        {"CreateRuleXMLString",
         [](XmlGround& g) {
             g.file.CreateRuleXMLString(g.text);
             return "";
         }},
        {"CreateNode",
         [](XmlGround& g) {
             wcscpy(g.name, L"fresh");
             return Name(g.file.CreateNode(g.name));
         },
         ComMemory},
        {"DeleteXMLNode",
         [](XmlGround& g) {
             g.file.DeleteXMLNode(g.parentPath, g.childPath);
             return "";
         },
         ComMemory},
        {"SetXMLStringFromResource",
         [](XmlGround& g) {
             return Shown(g.file.setXMLStringFromResource(IDR_FAILING_MENUS, g.resourceType, g.moduleName));
         },
         Memory | ComMemory,
         {},
         IsDocumentOrEmpty},
        {"LoadFileFromRes",
         [](XmlGround& g) { return Shown(g.file.LoadFileFromRes()); },
         NoException,
         {"false [Resource File Loading Error]"},
         IsDocumentOrEmpty},
    };
    AddAttributeRows(rows, "Text", &XmlGround::text, L"k");
    AddAttributeRows(rows, "Int", &XmlGround::number, L"n");
    AddAttributeRows(rows, "Long", &XmlGround::longNumber, L"n");
    AddAttributeRows(rows, "Float", &XmlGround::fraction, L"d");
    AddAttributeRows(rows, "Double", &XmlGround::doubleFraction, L"d");
    AddAttributeRows(rows, "Bool", &XmlGround::flag, L"n");
    return OperationsOn<XmlGround>(std::move(rows));
}

FAILING_SUITE(FailingXml, Members());

} // namespace
