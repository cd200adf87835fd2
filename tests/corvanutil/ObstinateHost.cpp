#include "ObstinateHost.h"

#include <map>
#include <utility>

namespace companiontest
{

namespace
{

class ObstinateObject : public IDispatch
{
public:
    ObstinateObject(IDispatch* object, Refuses refuses) : m_object(object), m_refuses(std::move(refuses))
    {
        m_object->AddRef();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid != IID_IUnknown && iid != IID_IDispatch) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override
    {
        const HRESULT result = m_object->GetIDsOfNames(iid, names, count, locale, ids);
        if (SUCCEEDED(result))
            m_names[ids[0]] = names[0];
        return result;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* info, UINT* badArgument) override
    {
        if (m_refuses({m_object, m_names[id], (flags & DISPATCH_PROPERTYPUT) != 0}))
            return E_ACCESSDENIED;
        const HRESULT status =
            m_object->Invoke(id, iid, locale, flags, parameters, result, info, badArgument);
        if (SUCCEEDED(status) && result != nullptr && V_VT(result) == VT_DISPATCH &&
            V_DISPATCH(result) != nullptr) {
            IDispatch* const inner = V_DISPATCH(result);
            V_DISPATCH(result) = MakeObstinate(inner, m_refuses);
            inner->Release();
        }
        return status;
    }

private:
    virtual ~ObstinateObject() { m_object->Release(); }

    IDispatch* m_object;
    Refuses m_refuses;
    std::map<DISPID, std::wstring> m_names;
    ULONG m_references = 1;
};

} // namespace

std::wstring PendingCall::ObjectName() const
{
    wchar_t name[] = L"Name";
    LPOLESTR names = name;
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
        return std::wstring();
    DISPPARAMS none{};
    VARIANT value;
    ::VariantInit(&value);
    std::wstring text;
    if (SUCCEEDED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value,
                                 nullptr, nullptr)) &&
        V_VT(&value) == VT_BSTR && V_BSTR(&value) != nullptr)
        text = V_BSTR(&value);
    ::VariantClear(&value);
    return text;
}

bool PendingCall::Is(const wchar_t* name, const wchar_t* wanted) const
{
    return member == wanted && ObjectName() == name;
}

IDispatch* MakeObstinate(IDispatch* object, const Refuses& refuses)
{
    return new ObstinateObject(object, refuses);
}

} // namespace companiontest
