// The host's menus and toolbars as data, without any window.
//
// A model belongs to the thread that made it. Every change goes through a member function, which
// throws HostError when it refuses and has then changed nothing; observers are told after each change
// that was made. What adds an element returns it, or throws Refusal::Gone when an observer took the new
// element away again before the call came back. Elements are named by ElementId; an id whose element was
// removed is refused with Refusal::Gone. Names and labels are compared without regard to case, and `&`
// counts as a character.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "model/HostElements.h"
#include "model/HostError.h"

namespace velmhost
{

// A place in a collection: a position from 0, or the name or label of what stands there.
//
// To find something, it must be there, else Refusal::NotFound. To insert, the new element goes before
// the one named; a position at or past the end, a name that nothing has, and empty text append. Negative
// positions are refused in both cases, with Refusal::NotFound.
using Index = std::variant<long, std::wstring>;

// The position that always appends.
inline constexpr long kAtEnd = 0x7FFFFFFF;

// What adding a menu or toolbar does when its group has one of that name. The shortcut menu of a
// group is never doubled: AddSecond refuses there.
enum class DuplicateAdd
{
    Fail,
    ReturnExisting,
    AddSecond
};

// Strict: a separator that would be first or stand beside another one is refused. Lenient: added.
enum class SeparatorRule
{
    Strict,
    Lenient
};

// Rules of the host that clients must be able to live with either way; set them at any time.
struct HostPolicies
{
    DuplicateAdd duplicateAdd = DuplicateAdd::Fail;
    SeparatorRule separators = SeparatorRule::Strict;
    // Items that one pull-down menu or one shortcut menu may hold, sub-menus and separators counted.
    unsigned menuItemLimit = 999;
    unsigned shortcutItemLimit = 499;
    // True: items, position and rows of a hidden toolbar cannot be changed (Refusal::NotAllowed).
    bool toolbarEditsNeedVisible = false;
    // True: a hidden toolbar cannot be removed (Refusal::NotAllowed), other than with its group.
    bool toolbarRemovalNeedsVisible = false;
    // True: plain menu items and plain buttons need a macro that is not empty, as fly-outs always do
    // (Refusal::Invalid), when they are added and when their macro is set.
    bool macrosNeedText = false;
    // True: labels of menu items and sub-menus and names of buttons may not be empty (Refusal::Invalid),
    // when the element is added and when the text is set. Names of menus and toolbars still may.
    bool labelsNeedText = false;
};

// What happened to which element. For a removal the element is gone already, and only its id, and the
// record that `parent` names, can still be used.
struct ModelChange
{
    enum class Kind
    {
        Added,
        Changed,
        Removed
    };
    enum class What
    {
        Group,
        Menu,
        MenuItem,
        MenuBar,
        Toolbar,
        ToolbarItem,
        LargeButtons
    };

    What what;
    Kind kind;
    ElementId element; // 0 for MenuBar and LargeButtons, which are always Changed
    ElementId parent;  // the containing group, menu or toolbar; 0 when there is none
};

// Told of changes. Called on the model's thread, before the changing call returns; it may read the
// model, change it, and add or remove observers, and must not throw. A removal of something that
// contains other elements is told once, for the outermost. When an observer changes the model, those told
// after it hear of that change first, so the element that they are told of may be gone already.
class HostModelObserver
{
public:
    virtual void OnModelChanged(const ModelChange& change) = 0;

protected:
    ~HostModelObserver() = default;
};

class HostModel
{
    // Construction
public:
    // Makes a model with one empty base group, called "BASE", and an empty menu bar.
    HostModel();
    ~HostModel();
    HostModel(const HostModel&) = delete;
    HostModel& operator=(const HostModel&) = delete;

    // Attributes
public:
    HostPolicies& Policies() { return m_policies; }

    const std::vector<std::unique_ptr<MenuGroup>>& Groups() const { return m_groups; }
    // The menus on the bar, from left to right.
    const std::vector<const Menu*>& MenuBar() const { return m_menuBar; }
    bool IsOnMenuBar(ElementId menu) const;
    bool LargeButtons() const { return m_largeButtons; }

    // The element with this id, or null when it is gone or of another kind.
    const MenuGroup* FindGroup(ElementId id) const { return Find<MenuGroup>(id); }
    const Menu* FindMenu(ElementId id) const { return Find<Menu>(id); }
    const MenuItem* FindMenuItem(ElementId id) const { return Find<MenuItem>(id); }
    const Toolbar* FindToolbar(ElementId id) const { return Find<Toolbar>(id); }
    const ToolbarItem* FindToolbarItem(ElementId id) const { return Find<ToolbarItem>(id); }

    // The element at a place. Throws Refusal::NotFound; Refusal::Gone for the container.
    const MenuGroup& GroupAt(const Index& index) const;
    const Menu& MenuAt(ElementId group, const Index& index) const;
    const Menu& BarMenuAt(const Index& index) const;
    const MenuItem& MenuItemAt(ElementId menu, const Index& index) const;
    const Toolbar& ToolbarAt(ElementId group, const Index& index) const;
    const ToolbarItem& ToolbarItemAt(ElementId toolbar, const Index& index) const;

    // Position of an element in the container that holds it, from 0.
    static long PositionOf(const MenuItem& item);
    static long PositionOf(const ToolbarItem& item);

    // Number of entries in the whole hierarchy that a menu belongs to.
    static unsigned CountHierarchy(const Menu& menu);

    // Operations: observers
public:
    // Adds an observer, which is not owned and must be removed before it dies. Removing one that was
    // not added does nothing.
    void AddObserver(HostModelObserver& observer);
    void RemoveObserver(HostModelObserver& observer);

    // Operations: groups
public:
    // Adds an empty group at the end, or, for a base group, at the front in place of the present base
    // group, which is removed; observers are told of both once the new group is there.
    // Refusal::Duplicate when another group has the name.
    const MenuGroup& AddGroup(const std::wstring& name, MenuGroupType type, const std::wstring& fileName);
    // Removes a group with its menus, on the bar or not, and its toolbars.
    void RemoveGroup(ElementId group);

    // Operations: menus
public:
    // Adds an empty menu, which is not on the bar. The name "POP0" asks for the group's shortcut menu.
    // A name that is taken: see HostPolicies::duplicateAdd.
    const Menu& AddMenu(ElementId group, const std::wstring& name);
    // For a sub-menu, changes the label of the entry that opens it. Otherwise refuses a name that is
    // taken, unless duplicateAdd is AddSecond.
    void SetMenuName(ElementId menu, const std::wstring& name);
    // Puts a menu on the bar. Refusal::NotAllowed for a sub-menu, a shortcut menu or one that is there.
    void InsertInMenuBar(ElementId menu, const Index& before);
    // Refusal::NotAllowed when the menu is not on the bar.
    void RemoveFromMenuBar(ElementId menu);

    // Each adds an entry to a menu and returns it; null when the hierarchy is full, which changes
    // nothing. All may refuse, see HostPolicies.
    const MenuItem* AddMenuItem(ElementId menu, const Index& before, const std::wstring& label,
                                const std::wstring& macro);
    const MenuItem* AddSubMenu(ElementId menu, const Index& before, const std::wstring& label);
    const MenuItem* AddMenuSeparator(ElementId menu, const Index& before);
    void RemoveMenuItem(ElementId item);

    // Label and help are refused for a separator; the macro for everything but a plain item; the tag
    // when it is empty, holds anything but letters, digits and `_`, or is taken in the whole menu. An
    // empty label or macro may be, see HostPolicies.
    void SetMenuItemLabel(ElementId item, const std::wstring& label);
    void SetMenuItemMacro(ElementId item, const std::wstring& macro);
    void SetMenuItemHelp(ElementId item, const std::wstring& help);
    void SetMenuItemTag(ElementId item, const std::wstring& tag);
    void SetMenuItemEnabled(ElementId item, bool enabled);
    void SetMenuItemChecked(ElementId item, bool checked);
    // Refuses negative levels.
    void SetMenuItemEndSubMenuLevel(ElementId item, long level);

    // Operations: toolbars
public:
    // Adds an empty toolbar, visible and floating. A name that is taken: see HostPolicies.
    const Toolbar& AddToolbar(ElementId group, const std::wstring& name);
    // Fly-outs to which the toolbar was attached have none afterwards. May refuse, see
    // HostPolicies::toolbarRemovalNeedsVisible.
    void RemoveToolbar(ElementId toolbar);
    // Refuses a name that is taken, unless duplicateAdd is AddSecond.
    void SetToolbarName(ElementId toolbar, const std::wstring& name);
    void SetToolbarHelp(ElementId toolbar, const std::wstring& help);
    void SetToolbarVisible(ElementId toolbar, bool visible);
    // `side` is one of the four sides; Floating is refused.
    void DockToolbar(ElementId toolbar, DockStatus side);
    void FloatToolbar(ElementId toolbar, long top, long left, long rows);
    // Keeps a place for when the toolbar floats.
    void SetToolbarPosition(ElementId toolbar, long left, long top);
    // `rows` >= 1.
    void SetToolbarRows(ElementId toolbar, long rows);
    // Acts on all toolbars of all groups.
    void SetLargeButtons(bool large);
    // The shell tells what it made of a toolbar, for clients to read. Observers are not told.
    void ReportToolbarFrame(ElementId toolbar, DockStatus dock, const ToolbarFrame& frame);

    // Adds a button or fly-out. A fly-out needs a macro that is not empty, though it is never run. May
    // refuse other empty text, see HostPolicies.
    const ToolbarItem& AddToolbarButton(ElementId toolbar, const Index& before, const std::wstring& name,
                                        const std::wstring& help, const std::wstring& macro, bool flyout);
    // May refuse, see HostPolicies::separators.
    const ToolbarItem& AddToolbarSeparator(ElementId toolbar, const Index& before);
    void RemoveToolbarItem(ElementId item);
    // Refusal::NotAllowed unless the item is a fly-out; Refusal::NotFound when there is no such group
    // or toolbar in it; Refusal::Invalid for the toolbar that holds the item.
    void AttachFlyout(ElementId item, const std::wstring& groupName, const std::wstring& toolbarName);

    // All but the tag are refused for a separator, and an empty macro for a fly-out; other empty text may
    // be, see HostPolicies. The rules of tags are those of menu items, within one toolbar.
    void SetToolbarItemName(ElementId item, const std::wstring& name);
    void SetToolbarItemMacro(ElementId item, const std::wstring& macro);
    void SetToolbarItemHelp(ElementId item, const std::wstring& help);
    void SetToolbarItemTag(ElementId item, const std::wstring& tag);
    void SetToolbarItemCommandDisplayName(ElementId item, const std::wstring& name);
    void SetToolbarItemBitmaps(ElementId item, const std::wstring& smallName, const std::wstring& largeName);

    // Implementation
private:
    using Record = std::variant<MenuGroup*, Menu*, MenuItem*, Toolbar*, ToolbarItem*>;

    template <class T>
    T* Find(ElementId id) const
    {
        auto found = m_records.find(id);
        if (found == m_records.end())
            return nullptr;
        auto record = std::get_if<T*>(&found->second);
        return record ? *record : nullptr;
    }
    template <class T>
    T& Require(ElementId id) const
    {
        if (T* record = Find<T>(id))
            return *record;
        throw HostError(Refusal::Gone, L"The object no longer exists in the host.");
    }
    template <class T>
    ElementId NewId(T* record)
    {
        m_records.emplace(++m_lastId, record);
        return m_lastId;
    }

    // Takes a group out and tells nobody. Returns whether the menu bar lost menus.
    bool TakeOutGroup(ElementId group);
    void NotifyGroupRemoved(ElementId group, bool barChanged);
    void Forget(const Menu& menu);
    void Forget(const MenuItem& item);
    void Forget(const Toolbar& toolbar);
    void Notify(ModelChange::What what, ModelChange::Kind kind, ElementId element, ElementId parent);
    void NotifyChanged(const MenuItem& item);
    void NotifyChanged(const Toolbar& toolbar);
    void NotifyChanged(const ToolbarItem& item);

    const MenuItem* InsertMenuItem(Menu& menu, const Index& before, std::unique_ptr<MenuItem> item);
    const ToolbarItem& InsertToolbarItem(Toolbar& toolbar, const Index& before,
                                         std::unique_ptr<ToolbarItem> item);
    MenuItem& RequireLabelled(ElementId item) const;
    ToolbarItem& RequireButton(ElementId item) const;
    Toolbar& RequireEditable(ElementId toolbar) const;
    void RequireEditable(const Toolbar& toolbar) const;
    void RequireLabel(const std::wstring& label) const;
    void RequireMacro(const std::wstring& macro) const;

    HostPolicies m_policies;
    std::vector<std::unique_ptr<MenuGroup>> m_groups;
    std::vector<const Menu*> m_menuBar;
    bool m_largeButtons = false;
    ElementId m_lastId = 0;
    std::unordered_map<ElementId, Record> m_records;
    std::vector<HostModelObserver*> m_observers;
};

} // namespace velmhost
