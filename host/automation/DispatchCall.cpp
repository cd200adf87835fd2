#include "automation/DispatchCall.h"

#include <climits>

namespace velmhost
{

namespace
{

const UINT kNotPassed = UINT_MAX;

bool IsMissing(const VARIANT& value)
{
    if (value.vt == (VT_BYREF | VT_VARIANT))
        return value.pvarVal && IsMissing(*value.pvarVal);
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

bool IsNumeric(VARTYPE type)
{
    switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
    case VT_BOOL:
        return true;
    default:
        return false;
    }
}

void ChangeType(ScopedVariant& value, VARTYPE type, UINT position)
{
    const HRESULT result = VariantChangeTypeEx(&value, &value, LOCALE_INVARIANT, 0, type);
    if (FAILED(result))
        throw ArgumentFailure{result == DISP_E_OVERFLOW ? result : DISP_E_TYPEMISMATCH, position};
}

bool TakesText(const VARIANT& target)
{
    return (target.vt == (VT_BYREF | VT_BSTR) && target.pbstrVal) ||
           (target.vt == (VT_BYREF | VT_VARIANT) && target.pvarVal);
}

// For each declared argument, where the caller put it.
std::vector<UINT> SortArguments(const std::vector<Argument>& arguments, const DISPPARAMS& passed)
{
    std::vector<UINT> places(arguments.size(), kNotPassed);
    if (passed.cNamedArgs > passed.cArgs || passed.cArgs - passed.cNamedArgs > arguments.size())
        throw ArgumentFailure{DISP_E_BADPARAMCOUNT, 0};
    const UINT unnamed = passed.cArgs - passed.cNamedArgs;
    for (UINT i = 0; i < unnamed; ++i)
        places[i] = passed.cArgs - 1 - i; // the caller's array runs from last to first
    for (UINT i = 0; i < passed.cNamedArgs; ++i) {
        const DISPID name = passed.rgdispidNamedArgs[i];
        if (name < 0 || static_cast<size_t>(name) >= places.size() || places[name] != kNotPassed)
            throw ArgumentFailure{DISP_E_PARAMNOTFOUND, i};
        places[name] = i;
    }
    return places;
}

} // namespace

DispatchCall::DispatchCall(const std::vector<Argument>& arguments, const DISPPARAMS& passed, VARIANT* result)
    : m_result(result)
{
    const std::vector<UINT> places = SortArguments(arguments, passed);
    m_values.reserve(arguments.size());
    for (size_t i = 0; i < arguments.size(); ++i) {
        const UINT place = places[i];
        if (place != kNotPassed && !IsMissing(passed.rgvarg[place]))
            m_values.push_back(Convert(arguments[i], passed.rgvarg[place], place));
        else if (arguments[i].optional)
            m_values.emplace_back();
        else if (place != kNotPassed)
            throw ArgumentFailure{DISP_E_PARAMNOTOPTIONAL, place};
        else
            throw ArgumentFailure{passed.cNamedArgs ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT, 0};
    }
}

DispatchCall::DispatchCall(const Argument& value, const DISPPARAMS& passed)
{
    if (passed.cArgs != 1)
        throw ArgumentFailure{DISP_E_BADPARAMCOUNT, 0};
    if (passed.cNamedArgs != 1 || passed.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
        throw ArgumentFailure{DISP_E_PARAMNOTFOUND, 0};
    if (IsMissing(passed.rgvarg[0]))
        throw ArgumentFailure{DISP_E_PARAMNOTOPTIONAL, 0};
    m_values.push_back(Convert(value, passed.rgvarg[0], 0));
}

DispatchCall::Value DispatchCall::Convert(const Argument& argument, const VARIANT& source, UINT position)
{
    Value converted;
    converted.given = true;
    if (argument.type == ArgumentType::OutText) {
        if (!TakesText(source))
            throw ArgumentFailure{DISP_E_TYPEMISMATCH, position};
        converted.target = &source;
        return converted;
    }
    if (argument.type == ArgumentType::Object)
        return converted;

    ScopedVariant value;
    if (FAILED(VariantCopyInd(&value, const_cast<VARIANT*>(&source)))) // only read
        throw ArgumentFailure{DISP_E_TYPEMISMATCH, position};
    switch (argument.type) {
    case ArgumentType::Index:
        if (value->vt == VT_BSTR) {
            converted.index = TextOf(value->bstrVal);
            break;
        }
        if (!IsNumeric(value->vt))
            throw ArgumentFailure{DISP_E_TYPEMISMATCH, position};
        ChangeType(value, VT_I4, position);
        converted.index = value->lVal;
        break;
    case ArgumentType::Text:
        ChangeType(value, VT_BSTR, position);
        converted.text = TextOf(value->bstrVal);
        break;
    case ArgumentType::Number:
        ChangeType(value, VT_I4, position);
        converted.number = value->lVal;
        break;
    case ArgumentType::Flag:
        ChangeType(value, VT_BOOL, position);
        converted.number = value->boolVal != VARIANT_FALSE;
        break;
    case ArgumentType::OutText:
    case ArgumentType::Object:
        break;
    }
    return converted;
}

void DispatchCall::Return(const std::wstring& text)
{
    if (!m_result)
        return;
    m_result->bstrVal = NewBstr(text);
    m_result->vt = VT_BSTR;
}

void DispatchCall::Return(long number)
{
    if (!m_result)
        return;
    m_result->vt = VT_I4;
    m_result->lVal = number;
}

void DispatchCall::Return(bool flag)
{
    if (!m_result)
        return;
    m_result->vt = VT_BOOL;
    m_result->boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

void DispatchCall::Return(ComOwner<IDispatch> object)
{
    if (!m_result)
        return;
    m_result->vt = VT_DISPATCH;
    m_result->pdispVal = object.release();
}

void DispatchCall::Return(ComOwner<IUnknown> object)
{
    if (!m_result)
        return;
    m_result->vt = VT_UNKNOWN;
    m_result->punkVal = object.release();
}

void DispatchCall::Return(const std::vector<std::wstring>& texts)
{
    if (!m_result)
        return;
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(texts.size()));
    if (!array)
        throw std::bad_alloc();
    m_result->vt = VT_ARRAY | VT_VARIANT; // owned by the result from here on
    m_result->parray = array;
    VARIANT* elements = nullptr;
    if (FAILED(SafeArrayAccessData(array, reinterpret_cast<void**>(&elements))))
        throw std::bad_alloc();
    for (const std::wstring& text : texts) {
        elements->bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        elements->vt = VT_BSTR;
        ++elements;
    }
    SafeArrayUnaccessData(array);
}

void DispatchCall::SetText(size_t position, const std::wstring& text)
{
    const VARIANT* target = m_values[position].target;
    if (!target)
        return;
    BSTR string = NewBstr(text);
    if (target->vt == (VT_BYREF | VT_BSTR)) {
        SysFreeString(*target->pbstrVal);
        *target->pbstrVal = string;
        return;
    }
    VARIANT& variable = *target->pvarVal;
    if (variable.vt == (VT_BYREF | VT_BSTR) && variable.pbstrVal) {
        SysFreeString(*variable.pbstrVal);
        *variable.pbstrVal = string;
        return;
    }
    VariantClear(&variable);
    variable.vt = VT_BSTR;
    variable.bstrVal = string;
}

} // namespace velmhost
