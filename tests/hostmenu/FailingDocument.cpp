#include "FailingDocument.h"

#include "UnimplementedDom.h"

#include <cwchar>
#include <gtest/gtest.h>

namespace
{

CFailingDocuments* theDocuments = nullptr;

// What all objects of the model do: be counted, stand before a real object, and fail when told.
template <class Base, class Interface>
class CStandIn : public Base
{
public:
    explicit CStandIn(Interface* real) : m_real(real) { theDocuments->ObjectMade(); }
    ~CStandIn() override { theDocuments->ObjectGone(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = IsEqualIID(iid, __uuidof(Interface)) || IsEqualIID(iid, IID_IDispatch) ||
                             IsEqualIID(iid, IID_IUnknown);
        *object = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (!isKnown)
            return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }

protected:
    _com_ptr_t<_com_IIID<Interface, &__uuidof(Interface)>> m_real;
};

// Asks the real object through `ask`, unless the call shall fail, and wraps what it gives.
template <class StandIn, class Interface, class Ask>
HRESULT Wrapped(DomCall call, Interface** result, Ask ask)
{
    if (const auto failure = theDocuments->Answer(call))
        return *failure;
    *result = nullptr;
    Interface* real = nullptr;
    const HRESULT answer = ask(&real);
    if (real != nullptr) {
        *result = new StandIn(real);
        real->Release();
    }
    return answer;
}

class CFailingNode;
class CFailingNodeList;
class CFailingNamedNodeMap;

template <class Base, class Interface>
class CFailingNodeOf : public CStandIn<Base, Interface>
{
public:
    using CStandIn<Base, Interface>::CStandIn;

    STDMETHODIMP get_nodeValue(VARIANT* value) override
    {
        if (const auto failure = theDocuments->Answer(DomCall::NodeValue))
            return *failure;
        return this->m_real->get_nodeValue(value);
    }
    STDMETHODIMP get_attributes(IXMLDOMNamedNodeMap** map) override
    {
        return Wrapped<CFailingNamedNodeMap>(DomCall::Attributes, map,
                                             [&](auto real) { return this->m_real->get_attributes(real); });
    }
    STDMETHODIMP get_childNodes(IXMLDOMNodeList** list) override
    {
        return Wrapped<CFailingNodeList>(DomCall::ChildNodes, list,
                                         [&](auto real) { return this->m_real->get_childNodes(real); });
    }
    STDMETHODIMP selectNodes(BSTR query, IXMLDOMNodeList** list) override
    {
        return Wrapped<CFailingNodeList>(DomCall::SelectNodes, list,
                                         [&](auto real) { return this->m_real->selectNodes(query, real); });
    }
    STDMETHODIMP selectSingleNode(BSTR query, IXMLDOMNode** node) override
    {
        return Wrapped<CFailingNode>(DomCall::SelectSingleNode, node,
                                     [&](auto real) { return this->m_real->selectSingleNode(query, real); });
    }
};

class CFailingNode : public CFailingNodeOf<CUnimplementedNode<IXMLDOMNode>, IXMLDOMNode>
{
public:
    using CFailingNodeOf::CFailingNodeOf;
};

class CFailingNodeList : public CStandIn<CUnimplementedNodeList, IXMLDOMNodeList>
{
public:
    using CStandIn::CStandIn;

    STDMETHODIMP get_length(long* length) override
    {
        if (const auto failure = theDocuments->Answer(DomCall::Length))
            return *failure;
        return m_real->get_length(length);
    }
    STDMETHODIMP nextNode(IXMLDOMNode** node) override
    {
        return Wrapped<CFailingNode>(DomCall::NextNode, node,
                                     [&](auto real) { return m_real->nextNode(real); });
    }
};

class CFailingNamedNodeMap : public CStandIn<CUnimplementedNamedNodeMap, IXMLDOMNamedNodeMap>
{
public:
    using CStandIn::CStandIn;

    STDMETHODIMP getNamedItem(BSTR name, IXMLDOMNode** node) override
    {
        EXPECT_EQ(SysStringLen(name), std::wcslen(name));
        return Wrapped<CFailingNode>(DomCall::NamedItem, node,
                                     [&](auto real) { return m_real->getNamedItem(name, real); });
    }
};

class CFailingDocument : public CFailingNodeOf<CUnimplementedDocument, IXMLDOMDocument2>
{
public:
    using CFailingNodeOf::CFailingNodeOf;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        std::optional<HRESULT> failure;
        if (IsEqualIID(iid, __uuidof(IXMLDOMNode)))
            failure = theDocuments->Answer(DomCall::QueryNode);
        else if (IsEqualIID(iid, __uuidof(IXMLDOMDocument2)))
            failure = theDocuments->Answer(DomCall::QueryDocument2);
        *object = nullptr;
        if (failure)
            return *failure;
        if (IsEqualIID(iid, __uuidof(IXMLDOMNode)) || IsEqualIID(iid, __uuidof(IXMLDOMDocument))) {
            *object = static_cast<IXMLDOMDocument*>(this);
            AddRef();
            return S_OK;
        }
        return CFailingNodeOf::QueryInterface(iid, object);
    }

    STDMETHODIMP loadXML(BSTR text, VARIANT_BOOL* isLoaded) override
    {
        if (const auto failure = theDocuments->Answer(DomCall::LoadXml))
            return *failure;
        return m_real->loadXML(text, isLoaded);
    }
};

// MSXML's own class object, past the one that is registered here.
HRESULT CreateRealDocument(IXMLDOMDocument2** document)
{
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const HMODULE library = LoadLibraryW(L"msxml6.dll");
    const auto found = library != nullptr ? GetProcAddress(library, "DllGetClassObject") : nullptr;
    if (found == nullptr)
        return REGDB_E_CLASSNOTREG;
    const auto getClassObject = reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(found));
    IClassFactory* factory = nullptr;
    HRESULT result = getClassObject(VelmDomDocument60, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    if (SUCCEEDED(result)) {
        result =
            factory->CreateInstance(nullptr, __uuidof(IXMLDOMDocument2), reinterpret_cast<void**>(document));
        factory->Release();
    }
    return result;
}

// Lives as long as the program.
class CDocumentFactory : public IClassFactory
{
public:
    virtual ~CDocumentFactory() = default;

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
        if (const auto failure = theDocuments->Answer(DomCall::CreateDocument))
            return *failure;
        IXMLDOMDocument2* real = nullptr;
        HRESULT result = CreateRealDocument(&real);
        if (FAILED(result))
            return result;
        auto* const document = new CFailingDocument(real);
        real->Release();
        result = document->QueryInterface(iid, object);
        document->Release();
        return result;
    }
};

CDocumentFactory theFactory;

} // namespace

CFailingDocuments::CFailingDocuments()
{
    theDocuments = this;
    CoRegisterClassObject(VelmDomDocument60, &theFactory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &m_registration);
}

CFailingDocuments::~CFailingDocuments()
{
    CoRevokeClassObject(m_registration);
    theDocuments = nullptr;
}

void CFailingDocuments::Fail(DomCall call, int n, HRESULT result)
{
    m_failingCall = call;
    m_failingNumber = n;
    m_failure = result;
}

void CFailingDocuments::FailAny(int n, HRESULT result)
{
    m_failingCall.reset();
    m_failingNumber = n;
    m_failure = result;
}

int CFailingDocuments::Count(DomCall call) const
{
    const auto found = m_counts.find(call);
    return found != m_counts.end() ? found->second : 0;
}

std::optional<HRESULT> CFailingDocuments::Answer(DomCall call)
{
    ++m_allCalls;
    const int ofThisKind = ++m_counts[call];
    const bool fails = m_failingCall ? call == *m_failingCall && ofThisKind == m_failingNumber
                                     : m_allCalls == m_failingNumber;
    if (!fails)
        return std::nullopt;
    m_failed = call;
    return m_failure;
}
