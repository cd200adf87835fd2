#include "ScriptedObject.h"

#include <iterator>

namespace companiontest
{

namespace
{

constexpr DISPID FirstId = 7000;

}

HRESULT ScriptedObject::QueryInterface(REFIID iid, void** object)
{
    if (iid != IID_IUnknown && iid != IID_IDispatch) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

HRESULT ScriptedObject::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT ScriptedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    DISPID id = FirstId;
    for (const auto& [name, member] : members) {
        if (count == 1 && _wcsicmp(name.c_str(), names[0]) == 0) {
            *ids = id;
            return S_OK;
        }
        ++id;
    }
    *ids = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

HRESULT ScriptedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* info, UINT*)
{
    if (id < FirstId || id >= FirstId + static_cast<DISPID>(members.size()))
        return DISP_E_MEMBERNOTFOUND;
    const auto& [name, member] = *std::next(members.begin(), id - FirstId);
    VARIANT ignored;
    ::VariantInit(&ignored);
    const HRESULT status = member({name, flags, parameters}, result ? result : &ignored, info);
    ::VariantClear(&ignored);
    return status;
}

ScriptedObject::Member Gives(long value)
{
    return [value](const ScriptedCall&, VARIANT* result, EXCEPINFO*) {
        V_VT(result) = VT_I4;
        V_I4(result) = value;
        return S_OK;
    };
}

ScriptedObject::Member Gives(const wchar_t* text)
{
    return [text](const ScriptedCall&, VARIANT* result, EXCEPINFO*) {
        V_VT(result) = VT_BSTR;
        V_BSTR(result) = ::SysAllocString(text);
        return S_OK;
    };
}

ScriptedObject::Member Gives(ScriptedObject& object)
{
    return [&object](const ScriptedCall&, VARIANT* result, EXCEPINFO*) {
        object.AddRef();
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = &object;
        return S_OK;
    };
}

ScriptedObject::Member Fails(HRESULT failure)
{
    return [failure](const ScriptedCall&, VARIANT*, EXCEPINFO*) { return failure; };
}

} // namespace companiontest
