#include "HostObject.h"

#include <utility>
#include <vector>

#include "HostFailure.h"

CHostValue::CHostValue()
{
    ::VariantInit(&m_value);
}

CHostValue::CHostValue(long value) : CHostValue()
{
    V_VT(&m_value) = VT_I4;
    V_I4(&m_value) = value;
}

CHostValue::CHostValue(bool value) : CHostValue()
{
    V_VT(&m_value) = VT_BOOL;
    V_BOOL(&m_value) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

CHostValue::CHostValue(std::wstring_view text) : CHostValue()
{
    V_BSTR(&m_value) = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (V_BSTR(&m_value) == nullptr)
        ThrowHostFailure(E_OUTOFMEMORY, L"SysAllocString");
    V_VT(&m_value) = VT_BSTR;
}

CHostValue::CHostValue(CHostValue&& other) noexcept : m_value(other.m_value)
{
    ::VariantInit(&other.m_value);
}

CHostValue::~CHostValue()
{
    ::VariantClear(&m_value);
}

HRESULT CHostValue::ChangeType(VARTYPE type)
{
    return ::VariantChangeType(&m_value, &m_value, 0, type);
}

CHostObject CHostObject::Adopt(IDispatch* object)
{
    CHostObject result;
    result.m_object = object;
    return result;
}

CHostObject CHostObject::Share(IDispatch* object)
{
    if (object != nullptr)
        object->AddRef();
    return Adopt(object);
}

CHostObject& CHostObject::operator=(CHostObject&& other) noexcept
{
    CHostObject old = Adopt(std::exchange(m_object, other.Detach()));
    return *this;
}

CHostObject::~CHostObject()
{
    if (m_object != nullptr)
        m_object->Release();
}

IDispatch* CHostObject::Detach()
{
    return std::exchange(m_object, nullptr);
}

long CHostObject::Long(const wchar_t* property) const
{
    return V_I4(&Get(property, VT_I4).Raw());
}

bool CHostObject::Flag(const wchar_t* property) const
{
    return V_BOOL(&Get(property, VT_BOOL).Raw()) != VARIANT_FALSE;
}

std::wstring CHostObject::Text(const wchar_t* property) const
{
    const CHostValue value = Get(property, VT_BSTR);
    const BSTR text = V_BSTR(&value.Raw());
    return text == nullptr ? std::wstring() : std::wstring(text, ::SysStringLen(text));
}

CHostObject CHostObject::Object(const wchar_t* property) const
{
    return NotNull(ObjectOrNull(property), property);
}

CHostObject CHostObject::ObjectOrNull(const wchar_t* property) const
{
    return InvokeForObject(property, DISPATCH_PROPERTYGET, nullptr, 0);
}

void CHostObject::Put(const wchar_t* property, CHostValue value) const
{
    CHostValue ignored;
    Invoke(property, DISPATCH_PROPERTYPUT, &value, 1, ignored);
}

CHostObject CHostObject::Item(const CHostValue& index) const
{
    // Some collections declare Item as a property, others as a method.
    return NotNull(InvokeForObject(L"Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, &index, 1), L"Item");
}

void CHostObject::Invoke(const wchar_t* member, WORD flags, const CHostValue* arguments, size_t count,
                         CHostValue& result) const
{
    if (m_object == nullptr)
        ThrowHostFailure(E_POINTER, member);

    DISPID id = DISPID_UNKNOWN;
    LPOLESTR name = const_cast<LPOLESTR>(member);
    HRESULT status = m_object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(status))
        ThrowHostFailure(status, member);

    // The last argument comes first. The call does not change them, so plain copies will do.
    std::vector<VARIANT> reversed;
    reversed.reserve(count);
    for (size_t i = count; i-- > 0;)
        reversed.push_back(arguments[i].Raw());

    const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{};
    parameters.rgvarg = reversed.data();
    parameters.cArgs = static_cast<UINT>(count);
    parameters.rgdispidNamedArgs = isPut ? &putName : nullptr;
    parameters.cNamedArgs = isPut ? 1 : 0;

    CHostExceptionInfo info;
    UINT badArgument = 0;
    status = m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                              isPut ? nullptr : result.Receive(), &info, &badArgument);
    if (FAILED(status))
        ThrowHostFailure(status, member, info);
}

CHostObject CHostObject::InvokeForObject(const wchar_t* member, WORD flags, const CHostValue* arguments,
                                         size_t count) const
{
    CHostValue result;
    Invoke(member, flags, arguments, count, result);
    const VARTYPE type = V_VT(&result.Raw());
    if (type == VT_EMPTY || type == VT_NULL)
        return CHostObject();
    const HRESULT status = result.ChangeType(VT_DISPATCH);
    if (FAILED(status))
        ThrowHostFailure(status, member);
    return Share(V_DISPATCH(&result.Raw()));
}

CHostValue CHostObject::Get(const wchar_t* property, VARTYPE type) const
{
    CHostValue result;
    Invoke(property, DISPATCH_PROPERTYGET, nullptr, 0, result);
    const HRESULT status = result.ChangeType(type);
    if (FAILED(status))
        ThrowHostFailure(status, property);
    return result;
}

CHostObject CHostObject::NotNull(CHostObject object, const wchar_t* member)
{
    if (object.IsNull())
        ThrowNoHostObject(member);
    return object;
}
