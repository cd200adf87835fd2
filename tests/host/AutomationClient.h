// A late-bound client, as a script engine would be: it knows names, IDispatch and VARIANT, and nothing
// of the host's sources.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <comutil.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace hosttest
{

class Object;

// What came of a call. The converting members fail the test when the result is of another type.
struct Outcome
{
    HRESULT result = E_FAIL;
    SCODE scode = 0;
    WORD code = 0;
    std::wstring source;
    std::wstring description;
    UINT argument = 0xFFFF; // as long as the callee named none
    _variant_t value;

    std::wstring Text() const
    {
        if (value.vt != VT_BSTR) {
            ADD_FAILURE() << "no text but type " << value.vt << ", result " << std::hex << result;
            return L"?";
        }
        return std::wstring(value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal));
    }
    long Number() const
    {
        EXPECT_EQ(value.vt, VT_I4) << std::hex << result;
        return value.vt == VT_I4 ? value.lVal : -12345;
    }
    bool Flag() const
    {
        EXPECT_EQ(value.vt, VT_BOOL) << std::hex << result;
        EXPECT_TRUE(value.boolVal == VARIANT_TRUE || value.boolVal == VARIANT_FALSE);
        return value.boolVal == VARIANT_TRUE;
    }
    inline operator Object() const;
};

// Owns a reference to an object.
class Object
{
public:
    Object() = default;
    explicit Object(IDispatch* shared) : m_dispatch(shared)
    {
        if (m_dispatch)
            m_dispatch->AddRef();
    }
    Object(const Object& other) : Object(other.m_dispatch) {}
    Object& operator=(const Object& other)
    {
        Object copy(other);
        std::swap(m_dispatch, copy.m_dispatch);
        return *this;
    }
    ~Object()
    {
        if (m_dispatch)
            m_dispatch->Release();
    }

    IDispatch* Raw() const { return m_dispatch; }
    explicit operator bool() const { return m_dispatch != nullptr; }
    friend bool operator==(const Object& left, const Object& right)
    {
        return left.m_dispatch == right.m_dispatch;
    }

    DISPID IdOf(const wchar_t* name) const
    {
        DISPID id = DISPID_UNKNOWN;
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        if (!m_dispatch || FAILED(m_dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id)))
            return DISPID_UNKNOWN;
        return id;
    }

    template <class... Args>
    Outcome Call(const wchar_t* name, const Args&... args) const
    {
        return Invoke(IdOf(name), DISPATCH_METHOD, {_variant_t(args)...});
    }
    template <class... Args>
    Outcome Get(const wchar_t* name, const Args&... args) const
    {
        return Invoke(IdOf(name), DISPATCH_PROPERTYGET, {_variant_t(args)...});
    }
    template <class Value>
    Outcome Put(const wchar_t* name, const Value& value) const
    {
        return Invoke(IdOf(name), DISPATCH_PROPERTYPUT, {_variant_t(value)});
    }

    // Invokes with arguments in their written order; `named` gives ids to the last ones of them, in order.
    Outcome Invoke(DISPID id, WORD flags, const std::vector<_variant_t>& args,
                   std::vector<DISPID> named = {}) const
    {
        Outcome outcome;
        if (!m_dispatch) {
            ADD_FAILURE() << "no object";
            return outcome;
        }
        std::vector<VARIANT> reversed(args.rbegin(), args.rend());
        std::vector<DISPID> ids(named.rbegin(), named.rend());
        if (flags & DISPATCH_PROPERTYPUT)
            ids = {DISPID_PROPERTYPUT};
        DISPPARAMS params{reversed.data(), ids.data(), static_cast<UINT>(reversed.size()),
                          static_cast<UINT>(ids.size())};
        EXCEPINFO exception{};
        outcome.result = m_dispatch->Invoke(id, IID_NULL, LOCALE_NEUTRAL, flags, &params, &outcome.value,
                                            &exception, &outcome.argument);
        outcome.scode = exception.scode;
        outcome.code = exception.wCode;
        outcome.source = Take(exception.bstrSource);
        outcome.description = Take(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        return outcome;
    }

private:
    static std::wstring Take(BSTR text)
    {
        std::wstring copy(text ? text : L"", SysStringLen(text));
        SysFreeString(text);
        return copy;
    }

    IDispatch* m_dispatch = nullptr;
};

inline Outcome::operator Object() const
{
    EXPECT_EQ(value.vt, VT_DISPATCH) << std::hex << result;
    return Object(value.vt == VT_DISPATCH ? value.pdispVal : nullptr);
}

// A missing optional argument, as it is passed by clients that must pass something.
inline _variant_t Missing()
{
    _variant_t missing;
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    return missing;
}

// Fails unless the call was refused by the member itself, with this code and the texts that belong to it.
inline void ExpectRefused(const Outcome& outcome, HRESULT scode)
{
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION) << std::hex << outcome.result;
    EXPECT_EQ(outcome.scode, scode) << std::hex << outcome.scode;
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.source, L"VelmHost.Application");
    EXPECT_FALSE(outcome.description.empty());
    EXPECT_EQ(outcome.value.vt, VT_EMPTY);
}

} // namespace hosttest
