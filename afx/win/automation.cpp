// The COM side of CCmdTarget: reference counting, interfaces, and the IDispatch of EnableAutomation.
#include "afxwin.h"

namespace
{
// Only a CDispatchPart answers for it, which is how FromIDispatch knows one of ours.
constexpr GUID IID_CDispatchPart = {
    0x7b0f4f0a, 0x52c3, 0x4d83, {0x9a, 0x61, 0x1d, 0x5e, 0x0c, 0x7a, 0x2b, 0x94}};
} // namespace

// The IDispatch of an object, with the object's own lifetime. It knows no members: classes that
// offer some supply a dispatch interface of their own through GetInterfaceHook.
class CDispatchPart final : public IDispatch
{
public:
    explicit CDispatchPart(CCmdTarget* pTarget) : m_pTarget(pTarget) {}

    CCmdTarget* Target() const { return m_pTarget; }

    STDMETHODIMP QueryInterface(REFIID iid, void** ppvObj) override
    {
        if (ppvObj == nullptr)
            return E_POINTER;
        if (iid == IID_CDispatchPart) {
            *ppvObj = this;
            return S_OK;
        }
        return static_cast<HRESULT>(m_pTarget->ExternalQueryInterface(&iid, ppvObj));
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_pTarget->ExternalAddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_pTarget->ExternalRelease(); }

    STDMETHODIMP GetTypeInfoCount(UINT* pCount) override
    {
        if (pCount == nullptr)
            return E_POINTER;
        *pCount = m_pTarget->GetTypeInfoCount();
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** ppTypeInfo) override
    {
        if (ppTypeInfo == nullptr)
            return E_POINTER;
        *ppTypeInfo = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT nNames, LCID, DISPID* ids) override
    {
        if (iid != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        if (names == nullptr || ids == nullptr)
            return E_POINTER;
        for (UINT i = 0; i < nNames; ++i)
            ids[i] = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID dispid, REFIID iid, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override
    {
        if (iid != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        return m_pTarget->IsInvokeAllowed(dispid) ? DISP_E_MEMBERNOTFOUND : E_UNEXPECTED;
    }

private:
    CCmdTarget* m_pTarget;
};

CCmdTarget::CCmdTarget() : m_dwRef(1), m_pOuterUnknown(nullptr), m_pDispatchPart(nullptr) {}

CCmdTarget::~CCmdTarget()
{
    // An object that goes although it is still referred to, as one on the stack does, takes its
    // connections to other apartments along. Their references must not end it once more.
    if (m_pDispatchPart != nullptr && m_pOuterUnknown == nullptr && m_dwRef != 0) {
        InternalAddRef();
        ::CoDisconnectObject(m_pDispatchPart, 0);
        m_dwRef = 0;
    }
    delete m_pDispatchPart;
}

void CCmdTarget::EnableAutomation()
{
    if (m_pDispatchPart == nullptr)
        m_pDispatchPart = new CDispatchPart(this);
}

LPDISPATCH CCmdTarget::GetIDispatch(BOOL bAddRef)
{
    // Interfaces of an object may be different pointers, but all count on the same object.
    IDispatch* const pDispatch = static_cast<IDispatch*>(GetInterface(&IID_IDispatch));
    if (pDispatch != nullptr && bAddRef)
        pDispatch->AddRef();
    return pDispatch;
}

CCmdTarget* PASCAL CCmdTarget::FromIDispatch(LPDISPATCH lpDispatch)
{
    if (lpDispatch == nullptr)
        return nullptr;
    void* pPart = nullptr;
    if (FAILED(lpDispatch->QueryInterface(IID_CDispatchPart, &pPart)) || pPart == nullptr)
        return nullptr;
    return static_cast<CDispatchPart*>(pPart)->Target();
}

void CCmdTarget::OnFinalRelease()
{
    delete this;
}
BOOL CCmdTarget::IsInvokeAllowed(DISPID)
{
    return TRUE;
}
BOOL CCmdTarget::GetDispatchIID(IID*)
{
    return FALSE;
}
UINT CCmdTarget::GetTypeInfoCount()
{
    return 0;
}
LPUNKNOWN CCmdTarget::GetInterfaceHook(const void*)
{
    return nullptr;
}

LPUNKNOWN CCmdTarget::GetInterface(const void* iid)
{
    if (const LPUNKNOWN pHooked = GetInterfaceHook(iid))
        return pHooked;
    if (m_pDispatchPart == nullptr)
        return nullptr;
    const IID& wanted = *static_cast<const IID*>(iid);
    IID own;
    if (wanted == IID_IUnknown || wanted == IID_IDispatch || (GetDispatchIID(&own) && wanted == own))
        return m_pDispatchPart;
    return nullptr;
}

DWORD CCmdTarget::InternalAddRef()
{
    return static_cast<DWORD>(::InterlockedIncrement(&m_dwRef));
}

DWORD CCmdTarget::InternalRelease()
{
    // An object on the stack or in another object never had more than the reference of its birth; it
    // is not ours to end once that is gone.
    if (m_dwRef == 0)
        return 0;
    const LONG left = ::InterlockedDecrement(&m_dwRef);
    if (left == 0)
        OnFinalRelease();
    return static_cast<DWORD>(left);
}

DWORD CCmdTarget::InternalQueryInterface(const void* iid, LPVOID* ppvObj)
{
    const LPUNKNOWN pInterface = GetInterface(iid);
    *ppvObj = pInterface;
    if (pInterface == nullptr)
        return static_cast<DWORD>(E_NOINTERFACE);
    pInterface->AddRef();
    return static_cast<DWORD>(S_OK);
}

DWORD CCmdTarget::ExternalAddRef()
{
    return m_pOuterUnknown == nullptr ? InternalAddRef() : m_pOuterUnknown->AddRef();
}

DWORD CCmdTarget::ExternalRelease()
{
    return m_pOuterUnknown == nullptr ? InternalRelease() : m_pOuterUnknown->Release();
}

DWORD CCmdTarget::ExternalQueryInterface(const void* iid, LPVOID* ppvObj)
{
    if (m_pOuterUnknown == nullptr)
        return InternalQueryInterface(iid, ppvObj);
    return static_cast<DWORD>(m_pOuterUnknown->QueryInterface(*static_cast<const IID*>(iid), ppvObj));
}
