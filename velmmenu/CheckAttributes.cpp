#include "Check.h"
#include "Suggestion.h"

#include <algorithm>

namespace velmmenu
{

namespace
{

using Names = std::initializer_list<const wchar_t*>;

constexpr Names HolderNames = {L"Name"};
constexpr Names MenuNames = {L"Name", L"Cmd", L"Help"};
constexpr Names ToolBarNames = {L"Name", L"Cmd", L"ToolTip", L"ImageList"};

const Names& NamesOf(ElementKind kind)
{
    return kind == ElementKind::Holder      ? HolderNames
           : kind == ElementKind::MenuEntry ? MenuNames
                                            : ToolBarNames;
}

const wchar_t* KindName(ElementKind kind)
{
    return kind == ElementKind::Holder      ? L"a holder"
           : kind == ElementKind::MenuEntry ? L"an entry of the menu"
                                            : L"an entry of the toolbar";
}

bool Contains(const Names& names, const std::wstring& name)
{
    return std::any_of(names.begin(), names.end(), [&](const wchar_t* known) { return name == known; });
}

// What an author wanted who wrote an attribute of the other kind of entry.
std::wstring Instead(ElementKind kind, const std::wstring& name)
{
    if (kind == ElementKind::MenuEntry && name == L"ToolTip")
        return L"; the text of the status bar is Help";
    if (kind == ElementKind::MenuEntry)
        return L"; menus have no bitmaps";
    if (kind == ElementKind::ToolBarEntry)
        return L"; the text of a button is ToolTip";
    return std::wstring();
}

} // namespace

void CheckAttributes(const Element& element, ElementKind kind, Findings& findings)
{
    const Names& own = NamesOf(kind);
    for (const Attribute& attribute : element.attributes) {
        if (Contains(own, attribute.name))
            continue;
        const bool isOfOther = Contains(MenuNames, attribute.name) || Contains(ToolBarNames, attribute.name);
        findings.Add(
            attribute.line,
            L"the attribute " + attribute.name + L" is never read on " + KindName(kind) +
                (isOfOther ? Instead(kind, attribute.name) : DidYouMean(NearestName(attribute.name, own))));
    }
}

} // namespace velmmenu
