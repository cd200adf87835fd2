// An automation object without members that counts the references to it.
#pragma once

#include <string>
#include <utility>

#include <afxwin.h>

class CCountedObject : public IDispatch
{
public:
    // Has one reference, that of the caller it is handed to. It is freed by its owner alone, so a
    // reference too few shows in the count instead of in a crash.
    explicit CCountedObject(std::wstring name) : m_name(std::move(name)) {}
    virtual ~CCountedObject() = default;
    CCountedObject(const CCountedObject&) = delete;
    CCountedObject& operator=(const CCountedObject&) = delete;

    const std::wstring& Name() const { return m_name; }
    long References() const { return m_references; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
        *object = isKnown ? static_cast<IDispatch*>(this) : nullptr;
        if (!isKnown)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++m_references); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--m_references); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return DISP_E_MEMBERNOTFOUND;
    }

private:
    std::wstring m_name;
    long m_references = 1;
};
