// Owners of COM references and variants.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <memory>
#include <string>

namespace velmhost
{

struct ComReleaser
{
    void operator()(IUnknown* object) const { object->Release(); }
};

// Owns one reference.
template <class T>
using ComOwner = std::unique_ptr<T, ComReleaser>;

// A variant that clears itself.
class ScopedVariant
{
public:
    ScopedVariant() { VariantInit(&m_value); }
    ~ScopedVariant() { VariantClear(&m_value); }
    ScopedVariant(const ScopedVariant&) = delete;
    ScopedVariant& operator=(const ScopedVariant&) = delete;

    VARIANT* operator&() { return &m_value; }
    VARIANT* operator->() { return &m_value; }
    const VARIANT* operator->() const { return &m_value; }

private:
    VARIANT m_value;
};

// Returns a new string with the whole of `text`, zeros inside included; the caller frees it. Throws
// std::bad_alloc.
inline BSTR NewBstr(const std::wstring& text)
{
    if (BSTR string = SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
        return string;
    throw std::bad_alloc();
}

// The text of a string that may be null.
inline std::wstring TextOf(BSTR string)
{
    return std::wstring(string ? string : L"", SysStringLen(string));
}

} // namespace velmhost
