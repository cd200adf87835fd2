#include "hostmenu/EntryAttributes.h"

CEntryAttributes::CEntryAttributes(IXMLDOMNode* node) : m_result(node->get_attributes(&m_map)) {}

std::optional<CString> CEntryAttributes::ValueOf(BSTR name) const
{
    if (!Exist())
        return std::nullopt;
    IXMLDOMNodePtr attribute;
    _com_util::CheckError(m_map->getNamedItem(name, &attribute));
    if (!attribute)
        return std::nullopt;
    return NodeValueText(attribute);
}

std::optional<CString> CEntryAttributes::Command() const
{
    std::optional<CString> command = Value(CommandAttribute);
    if (command)
        *command += L' ';
    return command;
}

CString NodeValueText(IXMLDOMNode* node)
{
    _variant_t value;
    _com_util::CheckError(node->get_nodeValue(&value));
    if (value.vt == VT_NULL)
        return CString();
    // What an attribute has; the conversion below would copy it once more.
    if (value.vt == VT_BSTR)
        return CString(value.bstrVal, static_cast<int>(SysStringLen(value.bstrVal)));
    const _bstr_t text(value);
    return CString(static_cast<const wchar_t*>(text), static_cast<int>(text.length()));
}
