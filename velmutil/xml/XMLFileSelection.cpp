#include "xml/XMLFile.h"

#include <algorithm>
#include <string_view>

#include "frame/Bstr.h"
#include "frame/ListHelpers.h"
#include "xml/XMLDocument.h"

namespace
{

CString TextOf(BSTR text)
{
    return CString(text, static_cast<int>(SysStringLen(text)));
}

CString AttributeText(const IXMLDOMNodePtr& node, BSTR name)
{
    CBstr text;
    const IXMLDOMNodePtr attribute = NamedItem(AttributesOf(node), name);
    CheckCall(attribute->get_text(text.Receive()), attribute);
    return text.Text();
}

// Whether the attribute `name`, where an element of the document has a value for it, is sure to be in the
// element's map of attributes as well: declarations of namespaces and defaults from a DTD need not be.
bool AreValuesInMaps(const IXMLDOMDocument2Ptr& document, const wchar_t* name)
{
    if (name == nullptr || wcsncmp(name, L"xmlns", 5) == 0)
        return false;
    IXMLDOMDocumentType* documentType = nullptr;
    const HRESULT result = document->get_doctype(&documentType);
    const IXMLDOMNodePtr owner(documentType, false);
    return SUCCEEDED(result) && !owner;
}

// A value that begins or ends with a blank may be cut in the text of its node, and line ends may change in
// it.
bool MayDifferFromText(BSTR value)
{
    const std::wstring_view text(value != nullptr ? value : L"", SysStringLen(value));
    return !text.empty() && (text.front() <= L' ' || text.back() <= L' ' ||
                             std::any_of(text.begin(), text.end(), [](wchar_t c) { return c < L' '; }));
}

// Sets `text` to the text of the attribute `name` without making map and node of it, which takes half the
// time. False where that cannot be told from the value alone; AttributeText knows then.
bool ReadPlainValue(const IXMLDOMNodePtr& node, BSTR name, CString& text)
{
    const IXMLDOMElementPtr element(node);
    _variant_t value;
    if (!element || element->getAttribute(name, &value) != S_OK || value.vt != VT_BSTR ||
        MayDifferFromText(value.bstrVal))
        return false;
    text = TextOf(value.bstrVal);
    return true;
}

} // namespace

IXMLDOMNodePtr CXMLFile::SelectNode(wchar_t* name, bool remove, bool create)
{
    if (remove && !create) {
        AfxMessageBox(L"To remove Node Itself, Create option should be true", MB_OK, 0);
        return IXMLDOMNodePtr();
    }
    const IXMLDOMNodePtr found = SelectSingle(m_pCurNode, CBstr(CString(L"./") + name));
    if (found && !remove)
        return found;
    if (!create)
        return IXMLDOMNodePtr();
    RequireXmlName(name);
    if (found)
        RemoveChild(m_pCurNode, found);
    const IXMLDOMNodePtr element = MakeNode(m_pXMLDoc, NODE_ELEMENT, CBstr(name));
    AppendElement(m_pCurNode, element);
    return element;
}

void CXMLFile::GetDOMNodePtr(CString xpath, IXMLDOMNodePtr& node)
{
    if (!m_pXMLDoc)
        return;
    ReportingFailure(L"Some Error occurred during XML File Operation", false, [&] {
        node = SelectSingle(m_pXMLDoc, CBstr(xpath));
        return true;
    });
}

CString CXMLFile::GetAttrib(CString xpath, wchar_t* attribute)
{
    IXMLDOMElementPtr element;
    return GetAttribElement(xpath, attribute, element);
}

CString CXMLFile::GetAttribElement(CString xpath, wchar_t* attribute, IXMLDOMElementPtr& element)
{
    return ReportingFailure(L"XML File Atrribute Error", CString(), [&] {
        IXMLDOMNodePtr node;
        GetDOMNodePtr(xpath, node);
        if (!node)
            return CString();
        element = node;
        _variant_t value;
        CheckCall(element->getAttribute(CBstr(attribute), &value), element);
        if (value.vt == VT_NULL)
            return CString();
        value.ChangeType(VT_BSTR);
        return TextOf(value.bstrVal);
    });
}

void CXMLFile::FillStringArray(CStringArray& items, wchar_t* xpath, wchar_t* attribute)
{
    ReportingFailure(L"FillStringArray Error", false, [&] {
        IXMLDOMNodeListPtr nodes;
        CheckCall(m_pXMLDoc->selectNodes(CBstr(xpath), &nodes), m_pXMLDoc);
        long count = 0;
        CheckCall(nodes->get_length(&count), nodes);
        const CBstr name(attribute);
        const bool mayReadValues = AreValuesInMaps(m_pXMLDoc, attribute);
        for (long i = 0; i < count; ++i) {
            IXMLDOMNodePtr node;
            CheckCall(nodes->get_item(i, &node), nodes);
            CString text;
            if (!mayReadValues || !ReadPlainValue(node, name, text))
                text = AttributeText(node, name);
            items.Add(text);
        }
        return true;
    });
}

void CXMLFile::FillStringList(std::list<CString>& items, wchar_t* xpath, wchar_t* attribute)
{
    CStringArray texts;
    FillStringArray(texts, xpath, attribute);
    ::FillStringList(texts, items);
}

void CXMLFile::FillComboBox(CComboBox& box, wchar_t* xpath, wchar_t* attribute)
{
    CStringArray texts;
    FillStringArray(texts, xpath, attribute);
    ::FillComboBox(texts, box);
}

void CXMLFile::CreateRuleXMLString(CString&) {}
