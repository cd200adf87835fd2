#include "automation/DispatchObject.h"

#include <algorithm>
#include <new>

#include "automation/ElementEnumerator.h"
#include "automation/ExceptionInfo.h"
#include "model/MenuText.h"

namespace velmhost
{

namespace
{

void GetApplication(DispatchObject& self, DispatchCall& call)
{
    self.Class().parent(self); // throws when the element is gone
    call.Return(ApplicationOf(self));
}

void GetParent(DispatchObject& self, DispatchCall& call)
{
    call.Return(self.Class().parent(self));
}

void GetItem(DispatchObject& self, DispatchCall& call)
{
    const Collection& collection = *self.Class().collection;
    call.Return(ObjectFor(self, collection.itemClass(), collection.at(self, call.IndexAt(0))));
}

void GetCount(DispatchObject& self, DispatchCall& call)
{
    call.Return(static_cast<long>(self.Class().collection->elements(self).size()));
}

void GetNewEnum(DispatchObject& self, DispatchCall& call)
{
    const Collection& collection = *self.Class().collection;
    call.Return(ElementEnumerator::Create(self, collection, collection.elements(self)));
}

} // namespace

Member Method(const wchar_t* name, DISPID id, std::vector<Argument> arguments, MemberHandler method)
{
    return {name, id, std::move(arguments), method};
}

Member Property(const wchar_t* name, DISPID id, MemberHandler get)
{
    return {name, id, {}, nullptr, get};
}

Member Property(const wchar_t* name, DISPID id, ArgumentType value, MemberHandler get, MemberHandler put)
{
    return {name, id, {}, nullptr, get, put, value};
}

ClassTable::ClassTable(const wchar_t* className, ParentFunction parentFunction,
                       const Collection* asCollection, std::vector<Member> own)
    : name(className), parent(parentFunction), collection(asCollection), members(std::move(own))
{
    if (!parent)
        return;
    members.push_back(Property(L"Application", MemberId(collection ? 0x03 : 0x00), GetApplication));
    members.push_back(Property(L"Parent", MemberId(collection ? 0x04 : 0x01), GetParent));
    if (!collection)
        return;
    members.push_back(Method(L"Item", DISPID_VALUE, {{L"Index", ArgumentType::Index}}, GetItem));
    members.push_back(Property(L"Count", MemberId(0x02), GetCount));
    members.push_back(Property(L"_NewEnum", DISPID_NEWENUM, GetNewEnum));
}

const Member* ClassTable::FindName(const wchar_t* memberName) const noexcept
{
    for (const Member& member : members) {
        if (SameName(member.name, memberName))
            return &member;
    }
    return nullptr;
}

const Member* ClassTable::FindId(DISPID id) const
{
    for (const Member& member : members) {
        if (member.id == id)
            return &member;
    }
    return nullptr;
}

DispatchObject::DispatchObject(std::shared_ptr<AutomationState> state, const ClassTable& table, ElementId id)
    : m_state(std::move(state)), m_table(table), m_id(id)
{
}

STDMETHODIMP DispatchObject::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid != IID_IUnknown && iid != IID_IDispatch) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) DispatchObject::AddRef()
{
    ++m_state->references;
    return static_cast<ULONG>(++m_references);
}

STDMETHODIMP_(ULONG) DispatchObject::Release()
{
    --m_state->references;
    const LONG left = --m_references;
    if (left == 0) {
        m_state->RemoveObject(m_table, m_id);
        --m_state->liveObjects;
        delete this;
    }
    return static_cast<ULONG>(left);
}

STDMETHODIMP DispatchObject::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    if (info)
        *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP DispatchObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    if (iid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0 || std::find(names, names + count, nullptr) != names + count)
        return E_INVALIDARG;
    const Member* member = m_table.FindName(names[0]);
    ids[0] = member ? member->id : DISPID_UNKNOWN;
    HRESULT result = member ? S_OK : DISP_E_UNKNOWNNAME;
    for (UINT i = 1; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
        const size_t arguments = member ? member->arguments.size() : 0;
        for (size_t position = 0; position < arguments; ++position) {
            if (SameName(member->arguments[position].name, names[i]))
                ids[i] = static_cast<DISPID>(position);
        }
        if (ids[i] == DISPID_UNKNOWN)
            result = DISP_E_UNKNOWNNAME;
    }
    return result;
}

STDMETHODIMP DispatchObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* passed,
                                    VARIANT* result, EXCEPINFO* exception, UINT* argumentError)
{
    if (iid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!passed)
        return E_INVALIDARG;
    if (result)
        VariantInit(result);
    // A member may let go of the last reference to its own object.
    AddRef();
    const ComOwner<IDispatch> self(this);
    try {
        const Member* member = m_table.FindId(id);
        ++m_state->invokeCount;
        Log(member, id, flags);
        if (const InvokeFault* fault = m_state->NextFault())
            return FillException(*fault, exception);
        if (!member)
            return DISP_E_MEMBERNOTFOUND;
        Model(); // throws after the host's end, for every member
        if (member->get && (flags & DISPATCH_PROPERTYGET) && passed->cArgs > 0)
            return RunDefaultOf(*member, *passed, result);
        return Run(*member, flags, *passed, result);
    } catch (const ArgumentFailure& failure) {
        if (argumentError)
            *argumentError = failure.position;
        return failure.result;
    } catch (const HostError& error) {
        if (result)
            VariantClear(result);
        return FillException(error, exception);
    } catch (const std::bad_alloc&) {
        if (result)
            VariantClear(result);
        return E_OUTOFMEMORY;
    } catch (...) {
        if (result)
            VariantClear(result);
        return E_UNEXPECTED;
    }
}

HRESULT DispatchObject::Run(const Member& member, WORD flags, const DISPPARAMS& passed, VARIANT* result)
{
    if (flags & DISPATCH_PROPERTYPUT) {
        if (!member.put)
            return DISP_E_MEMBERNOTFOUND;
        DispatchCall call({L"value", member.value}, passed);
        member.put(*this, call);
        return S_OK;
    }
    MemberHandler handler = nullptr;
    if (flags & DISPATCH_METHOD)
        handler = member.method;
    if (!handler && (flags & DISPATCH_PROPERTYGET))
        handler = member.get;
    if (!handler)
        return DISP_E_MEMBERNOTFOUND;
    DispatchCall call(member.arguments, passed, result);
    handler(*this, call);
    return S_OK;
}

// Scripts write `groups.Item(0).Menus(1)`: a property with arguments means the default member of the
// object that it yields.
HRESULT DispatchObject::RunDefaultOf(const Member& member, const DISPPARAMS& passed, VARIANT* result)
{
    ScopedVariant owner;
    const HRESULT got = Run(member, DISPATCH_PROPERTYGET, DISPPARAMS{}, &owner);
    if (FAILED(got))
        return got;
    if (owner->vt != VT_DISPATCH || !owner->pdispVal)
        return DISP_E_BADPARAMCOUNT;
    auto& target = static_cast<DispatchObject&>(*owner->pdispVal);
    const Member* item = target.m_table.FindId(DISPID_VALUE);
    return item ? target.Run(*item, DISPATCH_METHOD, passed, result) : DISP_E_BADPARAMCOUNT;
}

void DispatchObject::Log(const Member* member, DISPID id, WORD flags)
{
    if (!m_state->keepLog)
        return;
    std::wstring line = m_table.name;
    line += L".";
    line += member ? member->name : std::to_wstring(id);
    if (!member || !member->method)
        line += (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) ? L" put" : L" get";
    m_state->log.push_back(line);
}

ComOwner<IDispatch> ObjectFor(const DispatchObject& origin, const ClassTable& table, ElementId id)
{
    AutomationState& state = origin.State();
    if (DispatchObject* present = state.FindObject(table, id)) {
        present->AddRef();
        return ComOwner<IDispatch>(present);
    }
    ComOwner<IDispatch> object;
    auto* made = new DispatchObject(origin.SharedState(), table, id);
    ++state.references;
    ++state.liveObjects;
    object.reset(made);
    state.AddObject(table, id, *made);
    return object;
}

ComOwner<IDispatch> ApplicationOf(const DispatchObject& origin)
{
    origin.Model(); // throws after the host's end
    IDispatch* application = origin.State().application;
    application->AddRef();
    return ComOwner<IDispatch>(application);
}

} // namespace velmhost
