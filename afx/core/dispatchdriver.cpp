#include "../afxdisp.h"
#include "state.h"

#include <vector>

COleDispatchDriver::COleDispatchDriver() : m_lpDispatch(NULL), m_bAutoRelease(TRUE) {}

COleDispatchDriver::COleDispatchDriver(LPDISPATCH lpDispatch, BOOL bAutoRelease)
    : m_lpDispatch(lpDispatch), m_bAutoRelease(bAutoRelease)
{
}

COleDispatchDriver::COleDispatchDriver(const COleDispatchDriver& dispatchSrc)
    : m_lpDispatch(dispatchSrc.m_lpDispatch), m_bAutoRelease(TRUE)
{
    if (m_lpDispatch != NULL)
        m_lpDispatch->AddRef();
}

const COleDispatchDriver& COleDispatchDriver::operator=(const COleDispatchDriver& dispatchSrc)
{
    if (this != &dispatchSrc) {
        // Before the release, which may be of the same object's last reference.
        const LPDISPATCH lpDispatch = dispatchSrc.m_lpDispatch;
        if (lpDispatch != NULL)
            lpDispatch->AddRef();
        AttachDispatch(lpDispatch, TRUE);
    }
    return *this;
}

void COleDispatchDriver::AttachDispatch(LPDISPATCH lpDispatch, BOOL bAutoRelease)
{
    ReleaseDispatch();
    m_lpDispatch = lpDispatch;
    m_bAutoRelease = bAutoRelease;
}

LPDISPATCH COleDispatchDriver::DetachDispatch()
{
    const LPDISPATCH lpDispatch = m_lpDispatch;
    m_lpDispatch = NULL;
    return lpDispatch;
}

void COleDispatchDriver::ReleaseDispatch()
{
    const LPDISPATCH lpDispatch = DetachDispatch();
    if (lpDispatch != NULL && m_bAutoRelease)
        lpDispatch->Release();
}

BOOL COleDispatchDriver::CreateDispatch(REFCLSID clsid, COleException* pError)
{
    IUnknown* pUnknown = NULL;
    IDispatch* pDispatch = NULL;
    HRESULT hr =
        ::CoCreateInstance(clsid, NULL, CLSCTX_ALL, IID_IUnknown, reinterpret_cast<void**>(&pUnknown));
    if (SUCCEEDED(hr)) {
        hr = ::OleRun(pUnknown);
        if (SUCCEEDED(hr))
            hr = pUnknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&pDispatch));
        pUnknown->Release();
    }
    if (pError != NULL)
        pError->m_sc = hr;
    if (FAILED(hr))
        return FALSE;
    AttachDispatch(pDispatch, TRUE);
    return TRUE;
}

BOOL COleDispatchDriver::CreateDispatch(LPCTSTR lpszProgID, COleException* pError)
{
    CLSID clsid = CLSID_NULL;
    HRESULT hr = E_INVALIDARG;
    if (lpszProgID != NULL) {
        const CStringW strID(lpszProgID);
        hr = strID[0] == L'{' ? ::CLSIDFromString(strID.GetString(), &clsid)
                              : ::CLSIDFromProgID(strID, &clsid);
    }
    if (FAILED(hr)) {
        if (pError != NULL)
            pError->m_sc = hr;
        return FALSE;
    }
    return CreateDispatch(clsid, pError);
}

namespace
{

constexpr BYTE ByReference = 0x40;

class OwnedVariant : public VARIANT
{
public:
    OwnedVariant() { ::VariantInit(this); }
    ~OwnedVariant() { ::VariantClear(this); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
};

class OwnedExcepInfo : public EXCEPINFO
{
public:
    OwnedExcepInfo() : EXCEPINFO() {}
    ~OwnedExcepInfo()
    {
        ::SysFreeString(bstrSource);
        ::SysFreeString(bstrDescription);
        ::SysFreeString(bstrHelpFile);
    }
    OwnedExcepInfo(const OwnedExcepInfo&) = delete;
    OwnedExcepInfo& operator=(const OwnedExcepInfo&) = delete;
};

// The arguments of one call, in the order that Invoke wants: the last one first.
class Arguments
{
public:
    explicit Arguments(const BYTE* pbParamInfo)
        : m_args(pbParamInfo == NULL ? 0 : std::strlen(reinterpret_cast<const char*>(pbParamInfo))),
          m_refs(m_args.size()), m_own(m_args.size())
    {
    }
    // Apart from the constructor, so that what has been taken is given back when a later one fails.
    void Take(const BYTE* pbParamInfo, va_list& argList)
    {
        for (size_t i = m_args.size(); i-- > 0; ++pbParamInfo) {
            ::VariantInit(&m_args[i]);
            if (*pbParamInfo & ByReference)
                TakeReference(i, VARTYPE(*pbParamInfo & ~ByReference), argList);
            else
                TakeValue(i, *pbParamInfo, argList);
        }
    }
    ~Arguments()
    {
        for (size_t i = 0; i < m_args.size(); ++i) {
            if (m_own[i])
                ::SysFreeString(m_args[i].bstrVal);
            if (m_refs[i].pCaller != NULL)
                *m_refs[i].pCaller = m_refs[i].value != VARIANT_FALSE;
        }
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    VARIANTARG* Data() { return m_args.data(); }
    UINT Count() const { return UINT(m_args.size()); }

private:
    // BOOL is wider than the VARIANT_BOOL that the callee writes.
    struct BoolReference
    {
        BOOL* pCaller = NULL;
        VARIANT_BOOL value = VARIANT_FALSE;
    };

    void TakeReference(size_t i, VARTYPE vt, va_list& argList)
    {
        VARIANTARG& arg = m_args[i];
        arg.vt = VARTYPE(vt | VT_BYREF);
        arg.byref = va_arg(argList, void*);
        if (vt == VT_BOOL && arg.byref != NULL) {
            BoolReference& ref = m_refs[i];
            ref.pCaller = static_cast<BOOL*>(arg.byref);
            ref.value = *ref.pCaller ? VARIANT_TRUE : VARIANT_FALSE;
            arg.pboolVal = &ref.value;
        }
    }
    void TakeValue(size_t i, VARTYPE vt, va_list& argList)
    {
        VARIANTARG& arg = m_args[i];
        arg.vt = vt;
        switch (vt) {
        case VT_I1:
        case VT_UI1:
            arg.bVal = BYTE(va_arg(argList, int));
            break;
        case VT_I2:
        case VT_UI2:
            arg.iVal = SHORT(va_arg(argList, int));
            break;
        case VT_I4:
        case VT_UI4:
        case VT_ERROR:
            arg.lVal = va_arg(argList, LONG);
            break;
        case VT_I8:
        case VT_UI8:
            arg.llVal = va_arg(argList, LONGLONG);
            break;
        case VT_R4:
            arg.fltVal = float(va_arg(argList, double));
            break;
        case VT_R8:
        case VT_DATE:
            arg.dblVal = va_arg(argList, double);
            break;
        case VT_CY:
            arg.cyVal = *va_arg(argList, const CY*);
            break;
        case VT_BSTR: {
            const LPCTSTR psz = va_arg(argList, LPCTSTR);
            arg.bstrVal = psz == NULL ? NULL : CString(psz).AllocSysString();
            m_own[i] = true;
            break;
        }
        case VT_BOOL:
            arg.boolVal = va_arg(argList, BOOL) ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case VT_DISPATCH:
            arg.pdispVal = va_arg(argList, LPDISPATCH);
            break;
        case VT_UNKNOWN:
            arg.punkVal = va_arg(argList, LPUNKNOWN);
            break;
        case VT_VARIANT:
            // The caller's own, which the callee only reads.
            arg = *va_arg(argList, const VARIANT*);
            break;
        default:
            AfxThrowOleException(DISP_E_BADVARTYPE);
        }
    }

    std::vector<VARIANTARG> m_args;
    std::vector<BoolReference> m_refs;
    std::vector<bool> m_own;
};

[[noreturn]] void ThrowReported(EXCEPINFO& info)
{
    if (info.pfnDeferredFillIn != NULL)
        info.pfnDeferredFillIn(&info);
    COleDispatchException* e = new COleDispatchException(NULL, 0, info.wCode);
    try {
        e->m_strSource = CString(info.bstrSource, int(::SysStringLen(info.bstrSource)));
        e->m_strDescription = CString(info.bstrDescription, int(::SysStringLen(info.bstrDescription)));
        e->m_strHelpFile = CString(info.bstrHelpFile, int(::SysStringLen(info.bstrHelpFile)));
    } catch (...) {
        e->Delete();
        throw;
    }
    e->m_dwHelpContext = info.dwHelpContext;
    e->m_scError = info.scode;
    throw e;
}

// Hands the value over to the caller's variable: what it owns is then the caller's.
void MoveResult(OwnedVariant& result, VARTYPE vtRet, void* pvRet)
{
    if (vtRet != VT_VARIANT && result.vt != vtRet) {
        const HRESULT hr = ::VariantChangeType(&result, &result, 0, vtRet);
        if (FAILED(hr))
            AfxThrowOleException(hr);
    }
    switch (vtRet) {
    case VT_I1:
    case VT_UI1:
        *static_cast<BYTE*>(pvRet) = result.bVal;
        break;
    case VT_I2:
    case VT_UI2:
        *static_cast<SHORT*>(pvRet) = result.iVal;
        break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
        *static_cast<LONG*>(pvRet) = result.lVal;
        break;
    case VT_I8:
    case VT_UI8:
        *static_cast<LONGLONG*>(pvRet) = result.llVal;
        break;
    case VT_R4:
        *static_cast<float*>(pvRet) = result.fltVal;
        break;
    case VT_R8:
    case VT_DATE:
        *static_cast<double*>(pvRet) = result.dblVal;
        break;
    case VT_CY:
        *static_cast<CY*>(pvRet) = result.cyVal;
        break;
    case VT_BSTR:
        *static_cast<CString*>(pvRet) = CString(result.bstrVal, int(::SysStringLen(result.bstrVal)));
        break;
    case VT_BOOL:
        *static_cast<BOOL*>(pvRet) = result.boolVal != VARIANT_FALSE;
        break;
    case VT_DISPATCH:
        *static_cast<LPDISPATCH*>(pvRet) = result.pdispVal;
        result.vt = VT_EMPTY;
        break;
    case VT_UNKNOWN:
        *static_cast<LPUNKNOWN*>(pvRet) = result.punkVal;
        result.vt = VT_EMPTY;
        break;
    case VT_VARIANT:
        *static_cast<VARIANT*>(pvRet) = result;
        result.vt = VT_EMPTY;
        break;
    default:
        AfxThrowOleException(DISP_E_BADVARTYPE);
    }
}

} // namespace

void COleDispatchDriver::InvokeHelperV(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet,
                                       const BYTE* pbParamInfo, va_list argList)
{
    if (m_lpDispatch == NULL) {
        TRACE(_T("A member is called without an object.\n"));
        return;
    }

    va_list args;
    va_copy(args, argList);
    struct ListEnd
    {
        va_list& args;
        ~ListEnd() { va_end(args); }
    } listEnd{args};
    Arguments arguments(pbParamInfo);
    arguments.Take(pbParamInfo, args);

    DISPPARAMS params = {};
    params.rgvarg = arguments.Data();
    params.cArgs = arguments.Count();
    DISPID dispidNamed = DISPID_PROPERTYPUT;
    if (wFlags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        params.cNamedArgs = 1;
        params.rgdispidNamedArgs = &dispidNamed;
    }

    OwnedVariant result;
    OwnedExcepInfo excepInfo;
    UINT nArgErr = UINT(-1);
    const HRESULT hr = m_lpDispatch->Invoke(dwDispID, IID_NULL, LOCALE_USER_DEFAULT, wFlags, &params,
                                            vtRet == VT_EMPTY ? NULL : &result, &excepInfo, &nArgErr);
    if (hr == DISP_E_EXCEPTION)
        ThrowReported(excepInfo);
    if (FAILED(hr))
        AfxThrowOleException(hr);
    if (vtRet != VT_EMPTY)
        MoveResult(result, vtRet, pvRet);
}

void AFX_CDECL COleDispatchDriver::InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet,
                                                const BYTE* pbParamInfo, ...)
{
    va_list argList;
    va_start(argList, pbParamInfo);
    struct ListEnd
    {
        va_list& args;
        ~ListEnd() { va_end(args); }
    } listEnd{argList};
    InvokeHelperV(dwDispID, wFlags, vtRet, pvRet, pbParamInfo, argList);
}

void AFX_CDECL COleDispatchDriver::SetProperty(DISPID dwDispID, VARTYPE vtProp, ...)
{
    const bool isReference = (vtProp & VT_BYREF) != 0;
    const BYTE paramInfo[] = {BYTE(isReference ? (vtProp & ~VT_BYREF) | ByReference : vtProp), 0};
    const WORD wFlags = vtProp == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;

    va_list argList;
#ifdef __clang__ // a VARTYPE as the last named parameter is MFC's; both compilers here handle it
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wvarargs"
#endif
    va_start(argList, vtProp);
#ifdef __clang__
#pragma clang diagnostic pop
#endif
    struct ListEnd
    {
        va_list& args;
        ~ListEnd() { va_end(args); }
    } listEnd{argList};
    InvokeHelperV(dwDispID, wFlags, VT_EMPTY, NULL, paramInfo, argList);
}

void COleDispatchDriver::GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const
{
    const_cast<COleDispatchDriver*>(this)->InvokeHelper(dwDispID, DISPATCH_PROPERTYGET, vtProp, pvProp, NULL);
}

BOOL AFXAPI AfxOleInit()
{
    AFX_THREAD_STATE* const pState = AfxGetThreadState();
    if (!pState->m_bNeedTerm)
        pState->m_bNeedTerm = SUCCEEDED(::OleInitialize(NULL));
    return pState->m_bNeedTerm;
}

void AFXAPI AfxOleTerm(BOOL bJustRevoke)
{
    AFX_THREAD_STATE* const pState = AfxGetThreadState();
    if (!pState->m_bNeedTerm || bJustRevoke)
        return;
    pState->m_bNeedTerm = FALSE;
    ::OleUninitialize();
}
