// The XML document class, against the calls on the document object model that one writes by hand with
// smart pointers and _bstr_t.

#include "VelmUtil22.h"

#include "Bench.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <list>
#include <map>
#include <stdexcept>
#include <string>

namespace
{

using _com_util::CheckError;

wchar_t g_items[] = L"//Item";
wchar_t g_item[] = L"Item";
wchar_t g_name[] = L"Name";
wchar_t g_count[] = L"Count";
wchar_t g_width[] = L"Width";
wchar_t g_height[] = L"Height";
wchar_t g_visible[] = L"Visible";

void SetText(CXMLFile& file, const CString& text)
{
    file.LoadFileFromRes(); // makes an empty document
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    CheckError(file.m_pXMLDoc->loadXML(_bstr_t(text), &isLoaded));
    if (isLoaded == VARIANT_FALSE) {
        throw std::runtime_error("the document is not well-formed");
    }
}

// A document with `count` items, the same for both sides. Made once and never released: the objects
// would outlive COM otherwise.
CXMLFile& Items(size_t count)
{
    static auto& files = *new std::map<size_t, CXMLFile>;
    CXMLFile& file = files[count];
    if (!file.m_pXMLDoc) {
        CString text = L"<Items>";
        for (size_t i = 0; i < count; ++i) {
            text.AppendFormat(
                L"<Item Name=\"Item %u\" Cmd=\"COMMAND_%u\" Help=\"Does what item %u is for\"/>",
                static_cast<unsigned>(i), static_cast<unsigned>(i), static_cast<unsigned>(i));
        }
        SetText(file, text + L"</Items>");
    }
    return file;
}

// Lists of texts

CStringArray g_array;
std::list<CString> g_list;

// Hands the attribute Name of every item to `add`.
template <class Add>
void NamesByHand(IXMLDOMDocument2* document, Add add)
{
    IXMLDOMNodeListPtr nodes;
    CheckError(document->selectNodes(_bstr_t(g_items), &nodes));
    long count = 0;
    CheckError(nodes->get_length(&count));
    const _bstr_t name(g_name);
    for (long i = 0; i < count; ++i) {
        IXMLDOMNodePtr node;
        CheckError(nodes->get_item(i, &node));
        IXMLDOMNamedNodeMapPtr attributes;
        CheckError(node->get_attributes(&attributes));
        IXMLDOMNodePtr attribute;
        CheckError(attributes->getNamedItem(name, &attribute));
        _bstr_t text;
        CheckError(attribute->get_text(text.GetAddress()));
        add(text);
    }
}

bench::Work ArrayWork(size_t count, bool isByLibrary)
{
    return {[count, isByLibrary] {
                CXMLFile& file = Items(count);
                if (isByLibrary) {
                    file.FillStringArray(g_array, g_items, g_name);
                } else {
                    NamesByHand(file.m_pXMLDoc, [](const wchar_t* text) { g_array.Add(text); });
                }
                return static_cast<size_t>(g_array.GetSize());
            },
            count,
            [count] {
                Items(count);
                g_array.RemoveAll();
            }};
}

bench::Work ListWork(size_t count, bool isByLibrary)
{
    return {[count, isByLibrary] {
                CXMLFile& file = Items(count);
                if (isByLibrary) {
                    file.FillStringList(g_list, g_items, g_name);
                } else {
                    NamesByHand(file.m_pXMLDoc, [](const wchar_t* text) { g_list.emplace_back(text); });
                }
                return g_list.size();
            },
            count,
            [count] {
                Items(count);
                g_list.clear();
            }};
}

const bench::Registration g_array10000{{"attribute of 10000 nodes into an array, against document calls",
                                        "node", ArrayWork(10000, true), ArrayWork(10000, false), 0.9}};

const bench::Registration g_array100000{{"attribute of 100000 nodes into an array, against document calls",
                                         "node", ArrayWork(100000, true), ArrayWork(100000, false), 0.9}};

const bench::Registration g_list10000{{"attribute of 10000 nodes into a list, against document calls", "node",
                                       ListWork(10000, true), ListWork(10000, false), 0.9}};

const bench::Registration g_list100000{{"attribute of 100000 nodes into a list, against document calls",
                                        "node", ListWork(100000, true), ListWork(100000, false), 0.9}};

// Time per node must not depend on how many there are.
const bench::Registration g_arrayGrowth{{"array from 100000 nodes, against one from 10000", "node",
                                         ArrayWork(100000, true), ArrayWork(10000, true), 1.15}};

const bench::Registration g_listGrowth{{"list from 100000 nodes, against one from 10000", "node",
                                        ListWork(100000, true), ListWork(10000, true), 1.15}};

// One attribute

constexpr size_t Readings = 10000;
constexpr wchar_t FirstItem[] = L"/Items/Item";

size_t ReadByLibrary()
{
    CXMLFile& file = Items(1);
    size_t found = 0;
    for (size_t i = 0; i < Readings; ++i) {
        found += file.GetAttrib(FirstItem, g_name) == L"Item 0";
    }
    return found;
}

CString AttributeByHand(IXMLDOMDocument2* document, const CString& xpath, const wchar_t* name)
{
    IXMLDOMNodePtr node;
    CheckError(document->selectSingleNode(_bstr_t(xpath), &node));
    if (!node) {
        return CString();
    }
    const IXMLDOMElementPtr element = node;
    _variant_t value;
    CheckError(element->getAttribute(_bstr_t(name), &value));
    return value.vt == VT_BSTR ? CString(value.bstrVal) : CString();
}

size_t ReadByHand()
{
    CXMLFile& file = Items(1);
    size_t found = 0;
    for (size_t i = 0; i < Readings; ++i) {
        found += AttributeByHand(file.m_pXMLDoc, FirstItem, g_name) == L"Item 0";
    }
    return found;
}

void PrepareReading()
{
    Items(1);
}

const bench::Registration g_reading{{"10000 readings of one attribute, against document calls",
                                     "reading",
                                     {ReadByLibrary, Readings, PrepareReading},
                                     {ReadByHand, Readings, PrepareReading},
                                     1.1}};

// New nodes

constexpr size_t NewNodes = 20000;

// The document that both sides fill; empty before each run, never released as above.
CXMLFile& Target()
{
    static auto& file = *new CXMLFile;
    return file;
}

void PrepareTarget()
{
    CXMLFile& file = Target();
    file.m_pCurNode = nullptr;
    SetText(file, L"<Items/>");
    CheckError(file.m_pXMLDoc->get_firstChild(&file.m_pCurNode));
}

size_t WriteByLibrary()
{
    CXMLFile file = Target();
    const IXMLDOMNodePtr root = file.m_pCurNode;
    size_t written = 0;
    for (size_t i = 0; i < NewNodes; ++i) {
        CString name = L"Item";
        int count = static_cast<int>(i);
        double width = 2.5, height = 1.25;
        bool isVisible = true;
        file.m_pCurNode = root;
        file.m_pCurNode = file.CreateNode(g_item);
        file.CreateAttrib(g_name, name);
        file.CreateAttrib(g_count, count);
        file.CreateAttrib(g_width, width);
        file.CreateAttrib(g_height, height);
        file.CreateAttrib(g_visible, isVisible);
        ++written;
    }
    return written;
}

// Sets the attribute, or makes it where it is missing, as CreateAttrib does.
void WriteAttributeByHand(IXMLDOMDocument2* document, IXMLDOMNode* node, const wchar_t* name,
                          const CString& value)
{
    IXMLDOMNamedNodeMapPtr attributes;
    CheckError(node->get_attributes(&attributes));
    IXMLDOMNodePtr attribute;
    CheckError(attributes->getNamedItem(_bstr_t(name), &attribute));
    if (attribute) {
        CheckError(attribute->put_text(_bstr_t(value)));
        return;
    }
    CheckError(document->createNode(_variant_t(static_cast<long>(NODE_ATTRIBUTE)), _bstr_t(name),
                                    _bstr_t(L""), &attribute));
    CheckError(attribute->put_text(_bstr_t(value)));
    CheckError(attributes->setNamedItem(attribute, nullptr));
}

template <class Argument>
CString Formatted(const wchar_t* format, Argument argument)
{
    CString text;
    text.Format(format, argument);
    return text;
}

size_t WriteByHand()
{
    const IXMLDOMDocument2Ptr document = Target().m_pXMLDoc;
    const IXMLDOMNodePtr root = Target().m_pCurNode;
    size_t written = 0;
    for (size_t i = 0; i < NewNodes; ++i) {
        IXMLDOMNodePtr item;
        CheckError(document->createNode(_variant_t(static_cast<long>(NODE_ELEMENT)), _bstr_t(g_item),
                                        _bstr_t(L""), &item));
        CheckError(root->appendChild(item, nullptr));
        WriteAttributeByHand(document, item, g_name, L"Item");
        WriteAttributeByHand(document, item, g_count, Formatted(L"%d", static_cast<int>(i)));
        WriteAttributeByHand(document, item, g_width, Formatted(L"%.3f", 2.5));
        WriteAttributeByHand(document, item, g_height, Formatted(L"%.3f", 1.25));
        WriteAttributeByHand(document, item, g_visible, Formatted(L"%d", 1));
        ++written;
    }
    return written;
}

const bench::Registration g_writing{{"20000 new nodes with five attributes each, against document calls",
                                     "node",
                                     {WriteByLibrary, NewNodes, PrepareTarget},
                                     {WriteByHand, NewNodes, PrepareTarget},
                                     1.1}};

// A whole file

constexpr std::uintmax_t FileBytes = 20000000;

// The document that both sides read, and the file that both write. What is read is never written, so neither
// side finds a file that the other has just left.
class CBigFiles
{
public:
    CBigFiles()
    {
        const std::string item =
            "<Item Name=\"An item\" Cmd=\"A_COMMAND\">" + std::string(400, 'x') + "</Item>";
        std::ofstream file(m_source, std::ios::binary);
        file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Items>";
        for (size_t written = 0; written < FileBytes; written += item.size()) {
            file << item;
        }
        file << "</Items>\n";
        if (!file.flush()) {
            throw std::runtime_error("the file for the benchmark cannot be written");
        }
    }
    ~CBigFiles()
    {
        std::error_code ignored;
        std::filesystem::remove(m_source, ignored);
        std::filesystem::remove(m_copy, ignored);
    }
    CBigFiles(const CBigFiles&) = delete;
    CBigFiles& operator=(const CBigFiles&) = delete;

    CString Source() const { return m_source.c_str(); }
    CString Copy() const { return m_copy.c_str(); }

    // Puts the copy into the state from which each run starts: there, empty, and with nothing of the last run
    // still on its way to the disk.
    void EmptyCopy() const
    {
        const HANDLE file = CreateFileW(m_copy.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        const bool isFlushed = file != INVALID_HANDLE_VALUE && FlushFileBuffers(file);
        CloseHandle(file);
        if (!isFlushed) {
            throw std::runtime_error("the copy for the benchmark cannot be emptied");
        }
    }

    // 1 if the whole document has been written.
    size_t CountCopies() const { return std::filesystem::file_size(m_copy) >= FileBytes; }

private:
    const std::filesystem::path m_source =
        std::filesystem::temp_directory_path() / L"velm-bench-document.xml";
    const std::filesystem::path m_copy = std::filesystem::temp_directory_path() / L"velm-bench-copy.xml";
};

const CBigFiles& BigFiles()
{
    static const CBigFiles files;
    return files;
}

void PrepareFiles()
{
    BigFiles().EmptyCopy();
}

size_t CopyByLibrary()
{
    {
        CXMLFile file(BigFiles().Source());
        if (!file.LoadFile()) {
            return 0;
        }
        file.SetXMLFilePath(BigFiles().Copy());
        file.SaveDocument();
    }
    return BigFiles().CountCopies();
}

size_t CopyByHand()
{
    {
        IXMLDOMDocument2Ptr document;
        CheckError(document.CreateInstance(L"Msxml2.DOMDocument.6.0"));
        CheckError(document->put_async(VARIANT_FALSE));
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        CheckError(document->load(_variant_t(BigFiles().Source().GetString()), &isLoaded));
        if (isLoaded == VARIANT_FALSE) {
            return 0;
        }
        CheckError(document->save(_variant_t(BigFiles().Copy().GetString())));
    }
    return BigFiles().CountCopies();
}

const bench::Registration g_copying{{"load and save of 20 MB, against document calls",
                                     "document",
                                     {CopyByLibrary, 1, PrepareFiles},
                                     {CopyByHand, 1, PrepareFiles},
                                     1.05}};

} // namespace
