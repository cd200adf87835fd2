#include "xml/XMLFile.h"

#include "frame/Bstr.h"
#include "frame/Conversions.h"
#include "xml/XMLDocument.h"

IXMLDOMNodePtr CXMLFile::CreateNode(wchar_t* name)
{
    const IXMLDOMNodePtr element = MakeNode(m_pXMLDoc, NODE_ELEMENT, CBstr(name));
    AppendElement(m_pCurNode, element);
    return element;
}

void CXMLFile::CreateAttrib(wchar_t* name, CString& value)
{
    const CBstr nameText(name);
    const IXMLDOMNamedNodeMapPtr attributes = AttributesOf(m_pCurNode);
    IXMLDOMNodePtr attribute = NamedItem(attributes, nameText);
    if (m_bReadMode) {
        if (attribute) {
            CBstr text;
            CheckCall(attribute->get_text(text.Receive()), attribute);
            value = text.Text();
        }
        return;
    }
    const bool isNew = !attribute;
    if (isNew)
        attribute = MakeNode(m_pXMLDoc, NODE_ATTRIBUTE, nameText);
    CheckCall(attribute->put_text(CBstr(value)), attribute);
    if (isNew)
        CheckCall(attributes->setNamedItem(attribute, nullptr), attributes);
}

namespace
{

// Runs the exchange of a number as that of its text. The variable is read for writing only, since it may not
// have a value yet otherwise. Reading assigns last, so that what raises changes nothing.
template <class Number, class Read>
void ExchangeNumber(CXMLFile& file, wchar_t* name, Number& value, const wchar_t* format, Read read)
{
    CString text;
    if (!file.m_bReadMode)
        text.Format(format, value);
    file.CreateAttrib(name, text);
    if (file.m_bReadMode)
        value = static_cast<Number>(read(text));
}

} // namespace

void CXMLFile::CreateAttrib(wchar_t* name, int& value)
{
    ExchangeNumber(*this, name, value, L"%d", GetStrToInt);
}

void CXMLFile::CreateAttrib(wchar_t* name, long& value)
{
    ExchangeNumber(*this, name, value, L"%ld", GetStrToLong);
}

void CXMLFile::CreateAttrib(wchar_t* name, float& value)
{
    ExchangeNumber(*this, name, value, L"%.3f", GetStrToFloat);
}

void CXMLFile::CreateAttrib(wchar_t* name, double& value)
{
    ExchangeNumber(*this, name, value, L"%.3f", GetStrToDouble);
}

void CXMLFile::CreateAttrib(wchar_t* name, bool& value)
{
    ExchangeNumber(*this, name, value, L"%d", GetStrToInt);
}

void CXMLFile::DeleteXMLNode(CString parentXPath, CString childXPath)
{
    const IXMLDOMNodePtr parent = SelectSingle(m_pXMLDoc, CBstr(parentXPath));
    const IXMLDOMNodePtr child = SelectSingle(m_pXMLDoc, CBstr(childXPath));
    if (parent && child)
        RemoveChild(parent, child);
}
