// A document that stands before a real one, notes what it is asked for, and fails where a test wants it to.
#pragma once

#include "../hostmenu/UnimplementedDom.h"

#include "kit/Text.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Finds out how many references there are to an object that counts them truly.
inline ULONG ReferencesOf(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

// A parse error that has a reason and nothing else.
class CReason : public CUnimplemented<IXMLDOMParseError>
{
public:
    explicit CReason(std::wstring reason) : m_reason(std::move(reason)) {}

    HRESULT m_answer = S_OK;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = IsEqualIID(iid, __uuidof(IXMLDOMParseError)) || IsEqualIID(iid, IID_IDispatch) ||
                             IsEqualIID(iid, IID_IUnknown);
        *object = isKnown ? static_cast<IXMLDOMParseError*>(this) : nullptr;
        if (!isKnown)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP get_reason(BSTR* reason) override
    {
        *reason = FAILED(m_answer) || m_reason.empty() ? nullptr : SysAllocString(m_reason.c_str());
        return m_answer;
    }
    STDMETHODIMP get_errorCode(long*) override { return E_NOTIMPL; }
    STDMETHODIMP get_url(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_srcText(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_line(long*) override { return E_NOTIMPL; }
    STDMETHODIMP get_linepos(long*) override { return E_NOTIMPL; }
    STDMETHODIMP get_filepos(long*) override { return E_NOTIMPL; }

private:
    std::wstring m_reason;
};

// Starts with one reference, for its creator. COM must be initialised.
class CScriptedDocument : public CUnimplementedDocument, public ISupportErrorInfo
{
public:
    // What happens at a call. With a result, that is the call's answer; without one, the call does its work.
    using Action = std::function<std::optional<HRESULT>()>;

    CScriptedDocument() { _com_util::CheckError(m_real.CreateInstance(VelmDomDocument60)); }

    // Every call, as in save("c:\x.xml").
    std::vector<std::string> m_calls;
    // Whether the object says that it leaves error information, for each of the interfaces that it has.
    bool m_hasErrorInfo = false;
    // Stands in the place of the real one, if set.
    CReason* m_parseError = nullptr;
    // Whether it has the interface of a document of MSXML 6.
    bool m_isDocument2 = true;
    IXMLDOMDocument2Ptr m_real;

    // The action for calls that are noted with this beginning.
    void At(std::string beginning, Action action)
    {
        m_actions.emplace_back(std::move(beginning), std::move(action));
    }
    void Fail(std::string beginning, HRESULT result)
    {
        At(std::move(beginning), [result] { return std::optional<HRESULT>(result); });
    }

    void ForgetActions() { m_actions.clear(); }

    STDMETHODIMP_(ULONG) AddRef() override { return CUnimplementedDocument::AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return CUnimplementedDocument::Release(); }
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        *object = nullptr;
        if (IsEqualIID(iid, __uuidof(ISupportErrorInfo)))
            *object = m_hasErrorInfo ? static_cast<ISupportErrorInfo*>(this) : nullptr;
        else if (IsEqualIID(iid, __uuidof(IXMLDOMDocument2)))
            *object = m_isDocument2 ? static_cast<IXMLDOMDocument2*>(this) : nullptr;
        else if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsOfADocument(iid))
            *object = static_cast<IXMLDOMDocument2*>(this);
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override
    {
        return IsOfADocument(iid) ? S_OK : S_FALSE;
    }

    STDMETHODIMP setProperty(BSTR name, VARIANT value) override
    {
        return Do("setProperty(" + Shown(name) + ", " + Shown(value) + ")",
                  [&] { return m_real->setProperty(name, value); });
    }
    STDMETHODIMP put_resolveExternals(VARIANT_BOOL value) override
    {
        return Do("put_resolveExternals(" + Shown(value) + ")",
                  [&] { return m_real->put_resolveExternals(value); });
    }
    STDMETHODIMP createProcessingInstruction(BSTR target, BSTR data,
                                             IXMLDOMProcessingInstruction** instruction) override
    {
        return Do("createProcessingInstruction(" + Shown(target) + ", " + Shown(data) + ")",
                  [&] { return m_real->createProcessingInstruction(target, data, instruction); });
    }
    STDMETHODIMP appendChild(IXMLDOMNode* child, IXMLDOMNode** appended) override
    {
        return Do("appendChild()", [&] { return m_real->appendChild(child, appended); });
    }
    STDMETHODIMP get_parseError(IXMLDOMParseError** error) override
    {
        return Do("get_parseError()", [&] {
            if (m_parseError == nullptr)
                return m_real->get_parseError(error);
            m_parseError->AddRef();
            *error = m_parseError;
            return S_OK;
        });
    }
    STDMETHODIMP put_async(VARIANT_BOOL value) override
    {
        return Do("put_async(" + Shown(value) + ")", [&] { return m_real->put_async(value); });
    }
    STDMETHODIMP load(VARIANT source, VARIANT_BOOL* isLoaded) override
    {
        return Do("load(" + Shown(source) + ")",
                  [&] { return Reported(m_real->load(source, isLoaded), isLoaded); });
    }
    STDMETHODIMP loadXML(BSTR text, VARIANT_BOOL* isLoaded) override
    {
        return Do("loadXML(" + Shown(text) + ")",
                  [&] { return Reported(m_real->loadXML(text, isLoaded), isLoaded); });
    }
    STDMETHODIMP save(VARIANT destination) override
    {
        return Do("save(" + Shown(destination) + ")", [&] { return m_real->save(destination); });
    }
    STDMETHODIMP get_xml(BSTR* text) override
    {
        return Do("get_xml()", [&] { return m_real->get_xml(text); });
    }

    // What a load reports instead of what the real one does, if set.
    std::optional<VARIANT_BOOL> m_isLoaded;

private:
    static bool IsOfADocument(REFIID iid)
    {
        return IsEqualIID(iid, __uuidof(IXMLDOMDocument2)) || IsEqualIID(iid, __uuidof(IXMLDOMDocument)) ||
               IsEqualIID(iid, __uuidof(IXMLDOMNode));
    }

    static std::string Shown(BSTR text)
    {
        return testkit::Quoted(std::wstring_view(text, SysStringLen(text)));
    }
    static std::string Shown(VARIANT_BOOL value)
    {
        return value == VARIANT_TRUE ? "true" : value == VARIANT_FALSE ? "false" : std::to_string(value);
    }
    static std::string Shown(const VARIANT& value)
    {
        switch (value.vt) {
        case VT_BSTR:
            return Shown(value.bstrVal);
        case VT_BOOL:
            return Shown(value.boolVal);
        default:
            return "a variant of type " + std::to_string(value.vt);
        }
    }

    HRESULT Reported(HRESULT result, VARIANT_BOOL* isLoaded) const
    {
        if (m_isLoaded)
            *isLoaded = *m_isLoaded;
        return result;
    }

    template <class Work>
    HRESULT Do(std::string call, Work work)
    {
        m_calls.push_back(call);
        for (const auto& [beginning, action] : m_actions) {
            if (!call.starts_with(beginning))
                continue;
            if (const auto answer = action())
                return *answer;
        }
        return work();
    }

    std::vector<std::pair<std::string, Action>> m_actions;
};

// While one lives, whoever creates a document of MSXML 6 on this thread is given `document`. Rests on
// CoRegisterClassObject.
class CDocumentSupply : public IClassFactory
{
public:
    explicit CDocumentSupply(CScriptedDocument& document) : m_document(document)
    {
        _com_util::CheckError(CoRegisterClassObject(VelmDomDocument60, this, CLSCTX_INPROC_SERVER,
                                                    REGCLS_MULTIPLEUSE, &m_registration));
    }
    virtual ~CDocumentSupply() { CoRevokeClassObject(m_registration); }
    CDocumentSupply(const CDocumentSupply&) = delete;
    CDocumentSupply& operator=(const CDocumentSupply&) = delete;

    // What is said instead of giving it.
    HRESULT m_refusal = S_OK;
    int m_created = 0;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = IsEqualIID(iid, IID_IClassFactory) || IsEqualIID(iid, IID_IUnknown);
        *object = isKnown ? static_cast<IClassFactory*>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** object) override
    {
        *object = nullptr;
        ++m_created;
        return FAILED(m_refusal) ? m_refusal : m_document.QueryInterface(iid, object);
    }

private:
    CScriptedDocument& m_document;
    DWORD m_registration = 0;
};
