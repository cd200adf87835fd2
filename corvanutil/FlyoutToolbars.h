// Fly-out toolbars in the host: their names, and the removal of those that nothing opens any more.
//
// Callers ask for a fly-out toolbar under one fixed name, FlyoutName. The host finds the toolbar that a
// button opens by its name, so each needs one of its own: the first is called "SubToolbar", further
// ones "SubToolbar_2", "SubToolbar_3" and so on. A fly-out shows its buttons only, so the user meets
// the name nowhere but in the host's list of toolbars. All names of this family are reserved for
// fly-outs: whoever asks for a toolbar by one of them gets a new fly-out toolbar.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "HostObject.h"

// The name under which a fly-out toolbar is asked for.
inline constexpr wchar_t FlyoutName[] = L"SubToolbar";

// Whether `name` belongs to the family: FlyoutName in any letter case, or that followed by an underscore
// and a decimal number.
bool IsFlyoutName(const std::wstring& name);

// A look at all toolbars of all menu groups, taken when it is constructed. Every member function that
// reads further may throw COleDispatchException*.
class CFlyoutCensus
{
    // Construction
public:
    // `application` must outlive the census.
    explicit CFlyoutCensus(const CHostObject& application);

    // Attributes
public:
    // The first name of the family that no toolbar of the host bears, in any letter case.
    std::wstring FreeName() const;

    // The names of the family's toolbars that the buttons of `toolbar` open, and those that their
    // buttons open in turn.
    std::set<std::wstring> OpenedFrom(const CHostObject& toolbar) const;

    // Operations
public:
    // Deletes the base group's toolbars of the family that no button of any toolbar opens, neither
    // directly nor through another fly-out that is opened, and that are hidden or named in `doomed`.
    // So what a failed run or a former fly-out button left behind goes, while a toolbar that has just
    // been created and waits for its button, and one that the user has made visible, stay. What the
    // toolbars open is read when it is needed, so call it after the buttons are gone.
    //
    // If the host does not tell what some fly-out button opens, nothing is deleted.
    void RemoveForsaken(const std::set<std::wstring>& doomed = {});

    // Implementation
private:
    struct Entry
    {
        CHostObject toolbar;
        std::wstring name;
        bool inBaseGroup = false;
        bool visible = false;
        bool gone = false;
    };

    // The names of the toolbars that the buttons open; false when the host does not tell.
    static bool ReadOpened(const CHostObject& toolbar, std::vector<std::wstring>& names);

    std::vector<Entry> m_entries;
};
