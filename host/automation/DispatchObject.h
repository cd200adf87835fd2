// One automation object: an IDispatch whose members stand in the table of its class.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <memory>
#include <vector>

#include "automation/AutomationState.h"
#include "automation/ComOwner.h"
#include "automation/DispatchCall.h"

namespace velmhost
{

class DispatchObject;

using MemberHandler = void (*)(DispatchObject& self, DispatchCall& call);

// A method (`method` not null) or a property (`get`, and `put` if it can be set).
struct Member
{
    const wchar_t* name;
    DISPID id;
    std::vector<Argument> arguments; // of the method
    MemberHandler method = nullptr;
    MemberHandler get = nullptr;
    MemberHandler put = nullptr;
    ArgumentType value = ArgumentType::Text; // what put takes
};

Member Method(const wchar_t* name, DISPID id, std::vector<Argument> arguments, MemberHandler method);
Member Property(const wchar_t* name, DISPID id, MemberHandler get);
Member Property(const wchar_t* name, DISPID id, ArgumentType value, MemberHandler get, MemberHandler put);

// The ids of all members but Item, _NewEnum and the members of the application: this and a small number.
constexpr DISPID MemberId(int number)
{
    return 0x60020000 + number;
}

// What makes a class a collection.
struct Collection
{
    // The elements that it has now, in order.
    std::vector<ElementId> (*elements)(const DispatchObject& self);
    // The element at an index; throws HostError.
    ElementId (*at)(const DispatchObject& self, const Index& index);
    // The class of the elements.
    const ClassTable& (*itemClass)();
    // Tells of an id that it had once whether it still has the element.
    bool (*exists)(const HostModel& model, ElementId id);
};

// A class of automation objects.
struct ClassTable
{
    using ParentFunction = ComOwner<IDispatch> (*)(const DispatchObject& self);

    // Takes `own` and adds the members that all classes have: Application and Parent, and for
    // a collection Item, Count and _NewEnum. A class without `parent` gets none of them.
    ClassTable(const wchar_t* name, ParentFunction parent, const Collection* collection,
               std::vector<Member> own);

    const Member* FindName(const wchar_t* memberName) const noexcept;
    const Member* FindId(DISPID id) const;

    const wchar_t* name;
    ParentFunction parent;
    const Collection* collection; // null for a class that is none
    std::vector<Member> members;
};

class DispatchObject : public IDispatch
{
    // Construction
public:
    // Begins with one reference, which belongs to the maker.
    DispatchObject(std::shared_ptr<AutomationState> state, const ClassTable& table, ElementId id);
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    // Attributes
public:
    AutomationState& State() const { return *m_state; }
    const std::shared_ptr<AutomationState>& SharedState() const { return m_state; }
    HostModel& Model() const { return m_state->Model(); }
    const ClassTable& Class() const { return m_table; }
    // The element that the object stands for, or that owns the collection; 0 for those of the host.
    ElementId Id() const { return m_id; }

    // Implementation
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* passed, VARIANT* result,
                        EXCEPINFO* exception, UINT* argumentError) override;

protected:
    virtual ~DispatchObject() = default;

    LONG m_references = 1;

private:
    HRESULT Run(const Member& member, WORD flags, const DISPPARAMS& passed, VARIANT* result);
    HRESULT RunDefaultOf(const Member& member, const DISPPARAMS& passed, VARIANT* result);
    void Log(const Member* member, DISPID id, WORD flags);

    std::shared_ptr<AutomationState> m_state;
    const ClassTable& m_table;
    ElementId m_id;
};

// The object for an element, with a reference for the caller: the one that clients hold already, or a
// new one.
ComOwner<IDispatch> ObjectFor(const DispatchObject& origin, const ClassTable& table, ElementId id);

// The application object, with a reference; throws HostError (Gone) after the host's end.
ComOwner<IDispatch> ApplicationOf(const DispatchObject& origin);

// The classes. What an object's id means stands beside each.
const ClassTable& ApplicationClass();   // 0
const ClassTable& AcadStateClass();     // 0
const ClassTable& MenuGroupsClass();    // 0
const ClassTable& MenuGroupClass();     // the group
const ClassTable& PopupMenusClass();    // the group
const ClassTable& PopupMenuClass();     // the menu
const ClassTable& PopupMenuItemClass(); // the item
const ClassTable& MenuBarClass();       // 0
const ClassTable& ToolbarsClass();      // the group
const ClassTable& ToolbarClass();       // the toolbar
const ClassTable& ToolbarItemClass();   // the item

} // namespace velmhost
