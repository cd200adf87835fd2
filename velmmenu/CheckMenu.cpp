#include "Check.h"
#include "CheckSiblings.h"
#include "hostmenu/Entries.h"
#include "model/MenuText.h"

namespace velmmenu
{

namespace
{

std::wstring TextOf(const std::optional<CString>& value)
{
    return value ? std::wstring(value->GetString()) : std::wstring();
}

// How an entry is spoken of.
std::wstring Title(const std::wstring& name)
{
    return name.empty() ? std::wstring(L"the entry") : Quoted(name);
}

// Labels by which authors mean a separator.
bool LooksLikeSeparator(const std::wstring& name)
{
    return velmhost::SameName(name, L"Separator") ||
           (!name.empty() && name.find_first_not_of(L"-_") == std::wstring::npos);
}

// One menu or cascade, entry by entry beside what the host has of it.
class LevelCheck
{
public:
    LevelCheck(const velmhost::Menu* built, Findings& findings) : m_built(built), m_findings(findings) {}

    void Run(const std::vector<Element*>& entries)
    {
        for (const Element* element : entries) {
            if (const std::optional<MenuEntry> entry = ReadMenuEntry(element->node))
                CheckEntry(*element, *entry);
        }
        CheckMenuSiblings(m_siblings, m_findings);
        if (m_lastSeparator != nullptr && m_built != nullptr && m_next == m_built->items.size())
            m_findings.Add(m_lastSeparator->line, L"a separator at the end of a menu separates nothing");
    }

private:
    void CheckEntry(const Element& element, const MenuEntry& entry)
    {
        CheckAttributes(element, ElementKind::MenuEntry, m_findings);
        const std::wstring name = TextOf(entry.name);
        const bool isBlank = name.empty() && !entry.command && !entry.help;
        const velmhost::MenuItem* const made = TakeMade(isBlank);
        m_lastSeparator =
            made != nullptr && made->type == velmhost::MenuItemType::Separator ? &element : nullptr;
        m_siblings.push_back({element.line, name, entry.command || entry.help});

        if (made == nullptr && m_built != nullptr)
            m_findings.Add(element.line, isBlank ? WhyLeftOut() : L"the host has no room for " + Title(name));
        if (!isBlank && name.empty())
            m_findings.Add(element.line, L"without a Name the entry is shown without a label");
        if (!entry.command && !entry.help && LooksLikeSeparator(name))
            m_findings.Add(element.line, Title(name) +
                                             L" is shown as an item of that name; a separator is an "
                                             L"entry without any attribute");
        if (entry.Kind() == MenuEntryKind::Cascade)
            CheckCascade(element, name, made);
        else if (!element.children.empty())
            ReportIgnored(element, name, entry);
    }

    void CheckCascade(const Element& element, const std::wstring& name, const velmhost::MenuItem* made)
    {
        if (element.children.empty())
            m_findings.Add(element.line, Title(name) + L" has Help and no Cmd, which makes it a cascade, and "
                                                       L"it has no entries; an item needs Cmd");
        LevelCheck(made != nullptr ? made->subMenu.get() : nullptr, m_findings).Run(element.children);
    }

    void ReportIgnored(const Element& element, const std::wstring& name, const MenuEntry& entry)
    {
        m_findings.Add(element.line, Title(name) +
                                         (entry.command ? L" has Cmd, which makes it an item"
                                                        : L" has no Help, which a cascade needs") +
                                         L"; " + ElementsInIt(element.CountBelow()) + L" will be ignored");
    }

    // The host's next entry, if it is this one. Only an entry without anything becomes a separator, and only
    // separators are left out.
    const velmhost::MenuItem* TakeMade(bool isBlank)
    {
        if (m_built == nullptr || m_next == m_built->items.size())
            return nullptr;
        const velmhost::MenuItem& item = *m_built->items[m_next];
        if ((item.type == velmhost::MenuItemType::Separator) != isBlank)
            return nullptr;
        ++m_next;
        return &item;
    }

    const wchar_t* WhyLeftOut() const
    {
        return m_next == 0 ? L"a separator at the beginning of a menu is left out"
                           : L"a separator behind another one is left out";
    }

    const velmhost::Menu* m_built;
    Findings& m_findings;
    std::size_t m_next = 0;
    std::vector<Sibling> m_siblings;
    const Element* m_lastSeparator = nullptr;
};

} // namespace

void CheckMenu(const std::vector<Element*>& entries, const velmhost::Menu* built, Findings& findings)
{
    LevelCheck(built, findings).Run(entries);
}

} // namespace velmmenu
