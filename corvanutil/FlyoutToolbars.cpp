#include "FlyoutToolbars.h"

#include <algorithm>

#include "HostEnumerations.h"
#include "HostGroup.h"

bool IsFlyoutName(const std::wstring& name)
{
    const std::wstring family(FlyoutName);
    if (!SameInAnyCase(name.substr(0, family.size()), family))
        return false;
    const std::wstring rest = name.substr(family.size());
    return rest.empty() || (rest.size() > 1 && rest[0] == L'_' &&
                            rest.find_first_not_of(L"0123456789", 1) == std::wstring::npos);
}

CFlyoutCensus::CFlyoutCensus(const CHostObject& application)
{
    const CHostObject groups = application.Object(L"MenuGroups");
    const long groupCount = groups.Count();
    for (long g = 0; g < groupCount; ++g) {
        const CHostObject toolbars = groups.Item(g).Object(L"Toolbars");
        const long count = toolbars.Count();
        for (long i = 0; i < count; ++i) {
            Entry entry;
            entry.toolbar = toolbars.Item(i);
            entry.name = entry.toolbar.Text(L"Name");
            entry.inBaseGroup = g == 0;
            entry.visible = entry.toolbar.Flag(L"Visible");
            m_entries.push_back(std::move(entry));
        }
    }
}

std::wstring CFlyoutCensus::FreeName() const
{
    std::wstring name = FlyoutName;
    for (int number = 2;; ++number) {
        const bool taken = std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
            return !entry.gone && SameInAnyCase(entry.name, name);
        });
        if (!taken)
            return name;
        name = std::wstring(FlyoutName) + L'_' + std::to_wstring(number);
    }
}

std::set<std::wstring> CFlyoutCensus::OpenedFrom(const CHostObject& toolbar) const
{
    std::set<std::wstring> found;
    std::vector<const CHostObject*> waiting{&toolbar};
    while (!waiting.empty()) {
        std::vector<std::wstring> opened;
        ReadOpened(*waiting.back(), opened);
        waiting.pop_back();
        for (const std::wstring& name : opened) {
            if (!IsFlyoutName(name) || !found.insert(name).second)
                continue;
            const auto entry = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& candidate) {
                return candidate.inBaseGroup && !candidate.gone && candidate.name == name;
            });
            if (entry != m_entries.end())
                waiting.push_back(&entry->toolbar);
        }
    }
    return found;
}

void CFlyoutCensus::RemoveForsaken(const std::set<std::wstring>& doomed)
{
    std::vector<Entry*> candidates;
    std::vector<Entry*> openers;
    for (Entry& entry : m_entries) {
        if (entry.gone)
            continue;
        const bool removable = entry.inBaseGroup && IsFlyoutName(entry.name) &&
                               (!entry.visible || doomed.count(entry.name) != 0);
        (removable ? candidates : openers).push_back(&entry);
    }
    // Reading every button of the host costs; mostly there is nothing to remove.
    if (candidates.empty())
        return;

    while (!openers.empty()) {
        std::vector<std::wstring> opened;
        const bool told = ReadOpened(openers.back()->toolbar, opened);
        openers.pop_back();
        if (!told)
            return;
        for (const std::wstring& name : opened) {
            const auto reached = std::find_if(candidates.begin(), candidates.end(),
                                              [&](const Entry* entry) { return entry->name == name; });
            if (reached != candidates.end()) {
                openers.push_back(*reached);
                candidates.erase(reached);
            }
        }
    }
    for (Entry* entry : candidates) {
        entry->toolbar.Call(L"Delete");
        entry->toolbar = CHostObject();
        entry->gone = true;
    }
}

bool CFlyoutCensus::ReadOpened(const CHostObject& toolbar, std::vector<std::wstring>& names)
{
    const long count = toolbar.Count();
    for (long i = 0; i < count; ++i) {
        const CHostObject item = toolbar.Item(i);
        if (item.Long(L"Type") != static_cast<long>(HostToolbarItemType::flyout))
            continue;
        CHostObject opened;
        try {
            opened = item.ObjectOrNull(L"Flyout");
        } catch (COleDispatchException* exception) {
            // Hosts may raise an error for a fly-out button that no toolbar was attached to.
            exception->Delete();
            return false;
        }
        if (!opened.IsNull())
            names.push_back(opened.Text(L"Name"));
    }
    return true;
}
