#include "FlyoutToolbars.h"

#include <algorithm>
#include <utility>

#include "Attempt.h"
#include "HostEnumerations.h"
#include "HostGroup.h"

namespace
{

struct OpenedToolbar
{
    CHostObject toolbar;
    std::wstring name;
};

// Adds what the buttons of `toolbar` open to `opened`; false when the host does not tell it of all. Hosts
// may raise an error for a fly-out button that no toolbar was attached to.
bool ReadOpened(const CHostObject& toolbar, std::vector<OpenedToolbar>& opened)
{
    long count = 0;
    bool allTold = Attempt([&] { count = toolbar.Count(); });
    for (long i = 0; i < count; ++i) {
        allTold &= Attempt([&] {
            const CHostObject item = toolbar.Item(i);
            if (item.Long(L"Type") != static_cast<long>(HostToolbarItemType::flyout))
                return;
            CHostObject flyout = item.ObjectOrNull(L"Flyout");
            if (flyout.IsNull())
                return;
            std::wstring name = flyout.Text(L"Name");
            opened.push_back({std::move(flyout), std::move(name)});
        });
    }
    return allTold;
}

} // namespace

bool IsFlyoutName(const std::wstring& name)
{
    const std::wstring family(FlyoutName);
    if (!SameInAnyCase(name.substr(0, family.size()), family))
        return false;
    const std::wstring rest = name.substr(family.size());
    return rest.empty() || (rest.size() > 1 && rest[0] == L'_' &&
                            rest.find_first_not_of(L"0123456789", 1) == std::wstring::npos);
}

std::set<std::wstring> FlyoutsOpenedFrom(const CHostObject& toolbar)
{
    std::set<std::wstring> found;
    std::vector<OpenedToolbar> waiting;
    ReadOpened(toolbar, waiting);
    while (!waiting.empty()) {
        const OpenedToolbar opened = std::move(waiting.back());
        waiting.pop_back();
        if (IsFlyoutName(opened.name) && found.insert(opened.name).second)
            ReadOpened(opened.toolbar, waiting);
    }
    return found;
}

CFlyoutCensus::CFlyoutCensus(const CHostObject& application)
{
    CHostObject groups;
    long count = 0;
    long base = -1;
    m_complete = Attempt([&] {
        groups = application.Object(L"MenuGroups");
        count = groups.Count();
        base = BaseGroupIndex(groups);
    });
    for (long g = 0; g < count; ++g)
        m_complete &= Attempt([&] { ReadGroup(groups.Item(g), g == base); });
}

void CFlyoutCensus::ReadGroup(const CHostObject& group, bool isBase)
{
    const CHostObject toolbars = group.Object(L"Toolbars");
    const long count = toolbars.Count();
    for (long i = 0; i < count; ++i) {
        Entry entry;
        entry.inBaseGroup = isBase;
        m_complete &= Attempt([&] {
            entry.toolbar = toolbars.Item(i);
            entry.name = entry.toolbar.Text(L"Name");
            if (isBase && IsFlyoutName(entry.name))
                entry.hidden = !entry.toolbar.Flag(L"Visible");
        });
        if (!entry.toolbar.IsNull())
            m_entries.push_back(std::move(entry));
    }
}

std::wstring CFlyoutCensus::FreeName(const CHostObject& toolbars) const
{
    // A host that finds something under every name is not asked for ever.
    constexpr int mostAsked = 1000;
    std::wstring name = FlyoutName;
    for (int number = 2;; ++number) {
        const bool found = !m_complete && number <= mostAsked && Attempt([&] { toolbars.Item(name); });
        if (!found && !IsKnown(name))
            return name;
        name = std::wstring(FlyoutName) + L'_' + std::to_wstring(number);
    }
}

bool CFlyoutCensus::IsKnown(const std::wstring& name) const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& entry) { return !entry.gone && SameInAnyCase(entry.name, name); });
}

void CFlyoutCensus::RemoveForsaken(const std::set<std::wstring>& doomed)
{
    std::vector<Entry*> candidates;
    std::vector<Entry*> openers;
    const auto isDoomed = [&](const Entry* entry) { return doomed.count(entry->name) != 0; };
    for (Entry& entry : m_entries) {
        if (entry.gone)
            continue;
        const bool removable =
            entry.inBaseGroup && IsFlyoutName(entry.name) && (entry.hidden || isDoomed(&entry));
        (removable ? candidates : openers).push_back(&entry);
    }

    bool allTold = m_complete;
    // Reading every button of the host costs; mostly there is nothing to remove.
    while (!candidates.empty()) {
        if (openers.empty()) {
            if (allTold)
                break;
            // Whatever is not doomed may be open somewhere, and so may what it opens.
            const auto others = std::stable_partition(candidates.begin(), candidates.end(), isDoomed);
            if (others == candidates.end())
                break;
            openers.assign(others, candidates.end());
            candidates.erase(others, candidates.end());
            continue;
        }
        std::vector<OpenedToolbar> opened;
        allTold &= ReadOpened(openers.back()->toolbar, opened);
        openers.pop_back();
        for (const OpenedToolbar& one : opened) {
            const auto reached = std::find_if(candidates.begin(), candidates.end(),
                                              [&](const Entry* entry) { return entry->name == one.name; });
            if (reached != candidates.end()) {
                openers.push_back(*reached);
                candidates.erase(reached);
            }
        }
    }
    for (Entry* entry : candidates) {
        entry->gone = TryDeleteToolbar(entry->toolbar);
        if (entry->gone)
            entry->toolbar = CHostObject();
    }
}
