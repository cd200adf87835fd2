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

// The names of the family's toolbars that the buttons of `toolbar` open, and those that their buttons
// open in turn. What the host does not tell is left out.
std::set<std::wstring> FlyoutsOpenedFrom(const CHostObject& toolbar);

// A look at all toolbars of all menu groups, taken when it is constructed. No failure of the host leaves
// it: most of what it looks at belongs to others, and must not stand in the way of what is to be made.
class CFlyoutCensus
{
    // Construction
public:
    // `application` is not used any more when this returns.
    explicit CFlyoutCensus(const CHostObject& application);

    // Attributes
public:
    // The first name of the family that no toolbar of the host bears, in any letter case. When the host did
    // not tell all names, `toolbars`, the base group's collection, is asked for the name too.
    std::wstring FreeName(const CHostObject& toolbars) const;

    // Operations
public:
    // Deletes the base group's toolbars of the family that no button of any toolbar opens, neither
    // directly nor through another fly-out that is opened, and that are hidden or named in `doomed`.
    // So what a failed run or a former fly-out button left behind goes, while a toolbar that has just
    // been created and waits for its button, and one that the user has made visible, stay. What the
    // toolbars open is read when it is needed, so call it after the buttons are gone.
    //
    // While the host does not tell what some fly-out button opens, only those named in `doomed` are
    // deleted, and of them only those that no other button is known to open. What the host refuses to
    // delete stays.
    void RemoveForsaken(const std::set<std::wstring>& doomed = {});

    // Implementation
private:
    struct Entry
    {
        CHostObject toolbar;
        // Empty when the host does not tell; no name of the family is.
        std::wstring name;
        bool inBaseGroup = false;
        bool hidden = false;
        bool gone = false;
    };

    void ReadGroup(const CHostObject& group, bool isBase);
    bool IsKnown(const std::wstring& name) const;

    std::vector<Entry> m_entries;
    // Whether the host told all groups, toolbars and names.
    bool m_complete = true;
};
