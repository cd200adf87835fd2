// Building host menus from a description, against a bare walk of the same document.

#include "VelmUtil22.h"

#include "Bench.h"
#include "SilentCompanion.h"

namespace
{

// No module of this name is loaded, so no toolbar is built.
wchar_t g_noModule[] = L"velm-bench-no-such-module.dll";

CString ItemText(const wchar_t* element, size_t number)
{
    CString text;
    text.Format(L"<%ls Name=\"Item %u\" Cmd=\"COMMAND_%u\" Help=\"Does what item %u is for\"/>", element,
                static_cast<unsigned>(number), static_cast<unsigned>(number), static_cast<unsigned>(number));
    return text;
}

CString Description(const CString& entries)
{
    return L"<Description><Menus Name=\"Bench\">" + entries + L"</Menus></Description>";
}

// `count` entries: cascades of 99 items each.
CString CascadesText(size_t count)
{
    constexpr size_t inCascade = 100; // itself and its items
    CString entries;
    for (size_t entry = 0; entry < count; ++entry) {
        if (entry % inCascade == 0) {
            entries += entry == 0 ? L"" : L"</Menu>";
            entries += L"<Menu Name=\"Cascade\" Help=\"Opens\">";
        } else {
            entries += ItemText(L"Item", entry);
        }
    }
    return Description(entries + L"</Menu>");
}

// `count` items side by side, directly in the menu.
CString FlatText(size_t count)
{
    CString entries;
    for (size_t entry = 0; entry < count; ++entry) {
        entries += ItemText(L"Menu", entry);
    }
    return Description(entries);
}

// `count` entries: one cascade with all the others side by side in it.
CString OneCascadeText(size_t count)
{
    CString entries = L"<Menu Name=\"Cascade\" Help=\"Opens\">";
    for (size_t entry = 1; entry < count; ++entry) {
        entries += ItemText(L"Item", entry);
    }
    return Description(entries + L"</Menu>");
}

size_t BuildByLibrary(const CString& text)
{
    TakeEntryCount();
    Append_MenuToolBar(text, g_noModule);
    return TakeEntryCount();
}

// The walk as one would write it for this one purpose: loads the document and reads the three
// attributes of every entry.
class BareWalk
{
public:
    size_t Run(const CString& text)
    {
        IXMLDOMDocumentPtr document;
        _com_util::CheckError(document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER));
        VARIANT_BOOL loaded = VARIANT_FALSE;
        _com_util::CheckError(document->loadXML(_bstr_t(text), &loaded));
        if (loaded == VARIANT_FALSE) {
            return 0;
        }
        IXMLDOMNodeListPtr entries;
        _com_util::CheckError(document->selectNodes(_bstr_t(L"//Menus/Menu"), &entries));
        m_count = 0;
        IXMLDOMNodePtr entry;
        while (entries->nextNode(&entry) == S_OK) {
            ReadEntry(entry);
            entry = nullptr;
        }
        return m_count;
    }

private:
    void ReadEntry(IXMLDOMNode* entry)
    {
        IXMLDOMNamedNodeMapPtr attributes;
        if (entry->get_attributes(&attributes) != S_OK) {
            return;
        }
        const bool hasName = Read(attributes, m_nameOf, m_name);
        const bool hasCommand = Read(attributes, m_commandOf, m_command);
        const bool hasHelp = Read(attributes, m_helpOf, m_help);
        m_count += hasName;
        if (hasCommand || !hasHelp) {
            return;
        }
        IXMLDOMNodePtr child;
        entry->get_firstChild(&child);
        while (child) {
            ReadEntry(child);
            IXMLDOMNodePtr next;
            child->get_nextSibling(&next);
            child = next;
        }
    }

    static bool Read(IXMLDOMNamedNodeMap* attributes, const _bstr_t& name, _variant_t& value)
    {
        IXMLDOMNodePtr attribute;
        if (attributes->getNamedItem(name, &attribute) != S_OK) {
            return false;
        }
        value.Clear();
        _com_util::CheckError(attribute->get_nodeValue(&value));
        return value.vt == VT_BSTR;
    }

    const _bstr_t m_nameOf{L"Name"}, m_commandOf{L"Cmd"}, m_helpOf{L"Help"};
    _variant_t m_name, m_command, m_help;
    size_t m_count = 0;
};

bench::Work ByLibrary(CString text, size_t entries)
{
    return {[text] { return BuildByLibrary(text); }, entries, {}};
}

bench::Work ByHand(CString text, size_t entries)
{
    return {[text] { return BareWalk().Run(text); }, entries, {}};
}

const bench::Registration g_build{{"menu of 10000 entries, against a bare walk of the document", "entry",
                                   ByLibrary(CascadesText(10000), 10000), ByHand(CascadesText(10000), 10000),
                                   1.2}};

// Time per entry must not depend on how many there are.
const bench::Registration g_growthFlat{{"menu of 20000 entries side by side, against one of 1000", "entry",
                                        ByLibrary(FlatText(20000), 20000), ByLibrary(FlatText(1000), 1000),
                                        1.15}};

const bench::Registration g_growthCascade{{"cascade of 20000 entries, against one of 1000", "entry",
                                           ByLibrary(OneCascadeText(20000), 20000),
                                           ByLibrary(OneCascadeText(1000), 1000), 1.15}};

} // namespace
