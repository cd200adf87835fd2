// Late-bound access to the host's automation objects.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include <afxwin.h>
#include <afxdisp.h>

// A VARIANT that clears itself. Arguments of calls are made implicitly from the types that the host's
// members take.
class CHostValue
{
    // Construction
public:
    CHostValue();
    CHostValue(long value);
    CHostValue(bool value);
    // The text becomes a BSTR of its whole length, zero characters included. Throws
    // COleDispatchException* with E_OUTOFMEMORY when there is no memory for it.
    CHostValue(std::wstring_view text);
    CHostValue(const wchar_t* text) : CHostValue(std::wstring_view(text)) {}
    CHostValue(const std::wstring& text) : CHostValue(std::wstring_view(text)) {}
    CHostValue(CHostValue&& other) noexcept;
    CHostValue(const CHostValue&) = delete;
    CHostValue& operator=(const CHostValue&) = delete;

    // Attributes
public:
    const VARIANT& Raw() const { return m_value; }

    // Operations
public:
    // Where a call puts its result; the value must be empty.
    VARIANT* Receive() { return &m_value; }
    // Changes the value to `type`, as VariantChangeType does; gives its result.
    HRESULT ChangeType(VARTYPE type);

    // Implementation
public:
    ~CHostValue();

private:
    VARIANT m_value;
};

// Owns one reference to an automation object of the host and calls its members by name.
//
// Members are found with GetIDsOfNames at each call, so nothing depends on the numbers that one
// release of the host gives them. Every member function that talks to the host throws
// COleDispatchException* (see HostFailure.h) when the object is null, the name is unknown, the call
// fails or its result cannot be turned into the type asked for.
class CHostObject
{
    // Construction
public:
    CHostObject() = default;
    // Takes over the reference.
    static CHostObject Adopt(IDispatch* object);
    // Adds a reference of its own.
    static CHostObject Share(IDispatch* object);
    CHostObject(CHostObject&& other) noexcept : m_object(other.Detach()) {}
    CHostObject& operator=(CHostObject&& other) noexcept;
    CHostObject(const CHostObject&) = delete;
    CHostObject& operator=(const CHostObject&) = delete;

    // Attributes
public:
    bool IsNull() const { return m_object == nullptr; }

    // Properties by type. ObjectOrNull gives a null object where the host has none; Object throws
    // E_POINTER then.
    long Long(const wchar_t* property) const;
    bool Flag(const wchar_t* property) const;
    std::wstring Text(const wchar_t* property) const;
    CHostObject Object(const wchar_t* property) const;
    CHostObject ObjectOrNull(const wchar_t* property) const;
    void Put(const wchar_t* property, CHostValue value) const;

    // Of a collection: the number of its elements, and the one at `index`: a position, counted from 0, or
    // the element's name.
    long Count() const { return Long(L"Count"); }
    CHostObject Item(const CHostValue& index) const;

    // Operations
public:
    template <class... Arguments>
    void Call(const wchar_t* method, const Arguments&... arguments) const
    {
        const std::array<CHostValue, sizeof...(Arguments)> values{CHostValue(arguments)...};
        CHostValue ignored;
        Invoke(method, DISPATCH_METHOD, values.data(), values.size(), ignored);
    }

    // For methods that return an object. CallForObjectOrNull gives a null object where the host returns
    // none; CallForObject throws E_POINTER then.
    template <class... Arguments>
    CHostObject CallForObjectOrNull(const wchar_t* method, const Arguments&... arguments) const
    {
        const std::array<CHostValue, sizeof...(Arguments)> values{CHostValue(arguments)...};
        return InvokeForObject(method, DISPATCH_METHOD, values.data(), values.size());
    }
    template <class... Arguments>
    CHostObject CallForObject(const wchar_t* method, const Arguments&... arguments) const
    {
        return NotNull(CallForObjectOrNull(method, arguments...), method);
    }

    // Gives the reference away.
    IDispatch* Detach();

    // Implementation
public:
    ~CHostObject();

private:
    void Invoke(const wchar_t* member, WORD flags, const CHostValue* arguments, size_t count,
                CHostValue& result) const;
    CHostObject InvokeForObject(const wchar_t* member, WORD flags, const CHostValue* arguments,
                                size_t count) const;
    CHostValue Get(const wchar_t* property, VARTYPE type) const;
    static CHostObject NotNull(CHostObject object, const wchar_t* member);

    IDispatch* m_object = nullptr;
};
