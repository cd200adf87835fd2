#include "Check.h"

#include <algorithm>
#include <set>

#include "Suggestion.h"
#include "ToolHost.h"
#include "hostmenu/Entries.h"
#include "model/MenuText.h"

namespace velmmenu
{

namespace
{

// What differs between the holders of the menu and of the toolbar.
struct Kind
{
    const wchar_t* holder;
    const wchar_t* entry;
    const wchar_t* thing;
    const wchar_t* failure; // the message of the library
};
constexpr Kind MenuKind = {L"Menus", L"Menu", L"menu", L"Unable to Load Menu"};
constexpr Kind ToolBarKind = {L"Toolbars", L"Toolbar", L"toolbar", L"Unable to Load Toolbar"};

// The host keeps "SubToolbar", and "SubToolbar_2" and so on, for the toolbars of fly-outs.
bool IsNameOfFlyout(const std::wstring& name)
{
    constexpr std::wstring_view reserved = L"SubToolbar";
    if (!velmhost::SameName(std::wstring_view(name).substr(0, reserved.size()), reserved))
        return false;
    const std::wstring rest = name.substr(reserved.size());
    return rest.empty() || (rest.size() > 1 && rest.front() == L'_' &&
                            rest.find_first_not_of(L"0123456789", 1) == std::wstring::npos);
}

class HolderCheck
{
public:
    HolderCheck(const Description& description, const std::vector<std::wstring>& messages, Findings& findings)
        : m_description(description), m_messages(messages), m_findings(findings)
    {
    }

    void Run()
    {
        for (const Holders* holders : {&m_description.Menus(), &m_description.ToolBars()}) {
            m_holders.insert(holders->holders.begin(), holders->holders.end());
            m_entries.insert(holders->entries.begin(), holders->entries.end());
        }
        CheckKind(m_description.Menus(), MenuKind);
        CheckKind(m_description.ToolBars(), ToolBarKind);
        CheckUnseen(*m_description.Root());
    }

private:
    void CheckKind(const Holders& found, const Kind& kind)
    {
        const std::wstring thing = kind.thing;
        const unsigned rootLine = m_description.Root()->line;
        if (found.holders.empty()) {
            m_findings.Add(rootLine, std::wstring(L"there is no ") + kind.holder + L" element: an empty " +
                                         thing + L" without a name is built");
        } else {
            CheckFirst(*found.holders.front(), found, kind);
        }
        for (std::size_t i = 1; i < found.holders.size(); ++i)
            CheckFurther(*found.holders[i], *found.holders.front(), kind);
        for (std::size_t i = 0; i < m_messages.size(); ++i) {
            if (m_messages[i] == kind.failure)
                m_findings.Add(found.holders.empty() ? rootLine : found.holders.front()->line,
                               L"the host does not build the whole " + thing +
                                   (i + 1 < m_messages.size() ? L": " + m_messages[i + 1] : L""));
        }
    }

    void CheckFirst(const Element& holder, const Holders& found, const Kind& kind)
    {
        CheckAttributes(holder, ElementKind::Holder, m_findings);
        const CEntryAttributes attributes(holder.node);
        const std::wstring name(attributes.Value(NameAttribute).value_or(CString()).GetString());
        if (name.empty())
            m_findings.Add(holder.line, std::wstring(L"without a Name the ") + kind.thing + L" has none");
        else if (kind.holder == ToolBarKind.holder && IsNameOfFlyout(name))
            m_findings.Add(holder.line, L"the name " + Quoted(name) + L" is kept for toolbars of fly-outs");
        if (found.entries.empty() && holder.children.empty())
            m_findings.Add(holder.line, std::wstring(L"there is no ") + kind.entry + L" element: an empty " +
                                            kind.thing + L" is built");
    }

    void CheckFurther(const Element& holder, const Element& first, const Kind& kind)
    {
        CheckAttributes(holder, ElementKind::Holder, m_findings);
        if (holder.Has(L"Name"))
            m_findings.Add(holder.line, std::wstring(L"the Name of a second ") + kind.holder +
                                            L" element is not used; its entries go to the " + kind.thing +
                                            L" of line " + std::to_wstring(first.line));
    }

    // Elements that are neither holders nor entries, each with all that is below it.
    void CheckUnseen(const Element& element)
    {
        if (m_entries.contains(&element)) {
            CheckInEntry(element);
            return;
        }
        if (!m_holders.contains(&element) && IsReported(element))
            return;
        for (const Element* child : element.children)
            CheckUnseen(*child);
    }

    // The checks of menus and toolbars tell of what is below an entry, but for holders.
    void CheckInEntry(const Element& element)
    {
        for (const Element* child : element.children) {
            if (m_holders.contains(child))
                m_findings.Add(child->line, L"the " + child->name +
                                                L" element stands in an entry, whose own entries are added "
                                                L"at the top level as well");
            CheckInEntry(*child);
        }
    }

    bool IsReported(const Element& element)
    {
        const Element* const parent = element.parent;
        std::wstring text;
        if (element.isInNamespace && IsOneOf(element.name)) {
            text = L"is in a namespace, and only elements without one are found";
        } else if (parent != nullptr && m_holders.contains(parent)) {
            const std::wstring wanted = parent->name == MenuKind.holder ? MenuKind.entry : ToolBarKind.entry;
            text = L"is not looked at: the entries of " + parent->name + L" are called " + wanted;
        } else if (element.name == MenuKind.entry || element.name == ToolBarKind.entry) {
            text = L"is not looked at: it does not stand in " +
                   std::wstring(element.name == MenuKind.entry ? MenuKind.holder : ToolBarKind.holder);
        } else if (parent != nullptr && !HoldsHolder(element)) {
            const std::wstring meant = NearestName(
                element.name, {MenuKind.holder, ToolBarKind.holder, MenuKind.entry, ToolBarKind.entry});
            if (!meant.empty())
                text = L"is not looked at" + DidYouMean(meant);
        }
        if (text.empty())
            return false;
        const std::size_t below = element.CountBelow();
        m_findings.Add(element.line, L"the element " + element.name + L" " + text +
                                         (below == 0   ? std::wstring()
                                          : below == 1 ? L" (nor is " + ElementsInIt(below) + L")"
                                                       : L" (nor are " + ElementsInIt(below) + L")"));
        return true;
    }

    bool HoldsHolder(const Element& element) const
    {
        return std::any_of(element.children.begin(), element.children.end(), [this](const Element* child) {
            return m_holders.contains(child) || HoldsHolder(*child);
        });
    }

    static bool IsOneOf(const std::wstring& name)
    {
        return name == MenuKind.holder || name == MenuKind.entry || name == ToolBarKind.holder ||
               name == ToolBarKind.entry;
    }

    const Description& m_description;
    const std::vector<std::wstring>& m_messages;
    Findings& m_findings;
    std::set<const Element*> m_holders;
    std::set<const Element*> m_entries;
};

} // namespace

void CheckHolders(const Description& description, const std::vector<std::wstring>& messages,
                  Findings& findings)
{
    HolderCheck(description, messages, findings).Run();
}

std::vector<Finding> Check(const Description& description, const std::vector<std::wstring>& messages,
                           const std::optional<std::wstring>& bitmaps)
{
    Findings findings;
    if (const std::optional<unsigned> line = description.DocumentTypeLine()) {
        findings.Add(*line, L"a document type declaration stands here: the platform's parser refuses it by "
                            L"default, and nothing is built; the rest was not checked");
    }
    if (description.Root() != nullptr) {
        CheckHolders(description, messages, findings);
        CheckMenu(description.Menus().entries, Host().BuiltMenu(), findings);
        CheckToolBar(description.ToolBars().entries, bitmaps, findings);
    }
    return findings.Sorted();
}

} // namespace velmmenu
