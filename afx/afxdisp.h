// Automation: the driver with which a program uses another object's IDispatch, and its exceptions.
#pragma once

#include "afx.h"

#include <cstdarg>

// Starts COM and OLE for the calling thread, in a single-threaded apartment. FALSE if that fails; the
// same thread's second call changes nothing and succeeds. AfxOleTerm ends what the thread's AfxOleInit
// started; without that it does nothing.
AFX_CORE_API BOOL AFXAPI AfxOleInit();
AFX_CORE_API void AFXAPI AfxOleTerm(BOOL bJustRevoke = FALSE);

// A failed COM call.
class AFX_CORE_API COleException : public CException
{
    DECLARE_DYNAMIC(COleException)

public:
    COleException();
    virtual ~COleException();

    // Attributes
    SCODE m_sc;

    // Operations
    // The code that tells a COM caller of any exception: its own of a COleException, else the nearest.
    static SCODE PASCAL Process(const CException* pAnyException);

    // The system's text for m_sc, or the code in hexadecimal if it has none.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;
};

// An error that an automation object reports of itself.
class AFX_CORE_API COleDispatchException : public CException
{
    DECLARE_DYNAMIC(COleDispatchException)

public:
    // A code of 0 sets m_scError to E_UNEXPECTED; any other one is the error itself.
    COleDispatchException(LPCTSTR lpszDescription, UINT nHelpID, WORD wCode);
    virtual ~COleDispatchException();

    // Attributes
    WORD m_wCode; // the object's own code, or 0: then m_scError tells
    CString m_strSource;
    CString m_strDescription;
    DWORD m_dwHelpContext;
    CString m_strHelpFile;
    SCODE m_scError;

    // Operations
    // Fills pInfo, whose strings the caller then owns, from any exception: what an Invoke of one's own
    // hands out together with DISP_E_EXCEPTION.
    static void PASCAL Process(EXCEPINFO* pInfo, const CException* pAnyException);

    // The description; FALSE if it is empty.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;
};

// SCODE and HRESULT are one type, so this is both documented forms.
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowOleException(SCODE sc);
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowOleDispatchException(WORD wCode, LPCTSTR lpszDescription,
                                                                   UINT nHelpID = 0);
// The description is the string resource nDescriptionID, whose number is the help context unless one
// is given.
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowOleDispatchException(WORD wCode, UINT nDescriptionID,
                                                                   UINT nHelpID = UINT(-1));
// Throws for failures: CMemoryException for E_OUTOFMEMORY, else COleException.
AFX_CORE_API void AFXAPI AfxCheckError(SCODE sc);

// Parameter lists of InvokeHelper: one byte for each argument, its VARTYPE, with 0x40 for the
// by-reference forms. Texts are given as LPCTSTR, BOOL as BOOL.
#define VTS_NONE ""
#define VTS_I2 "\x02"
#define VTS_I4 "\x03"
#define VTS_R4 "\x04"
#define VTS_R8 "\x05"
#define VTS_CY "\x06"
#define VTS_DATE "\x07"
#define VTS_WBSTR "\x08"
#define VTS_BSTR VTS_WBSTR
#define VTS_DISPATCH "\x09"
#define VTS_SCODE "\x0A"
#define VTS_BOOL "\x0B"
#define VTS_VARIANT "\x0C"
#define VTS_UNKNOWN "\x0D"
#define VTS_I1 "\x10"
#define VTS_UI1 "\x11"
#define VTS_UI2 "\x12"
#define VTS_UI4 "\x13"
#define VTS_I8 "\x14"
#define VTS_UI8 "\x15"
#define VTS_PI2 "\x42"
#define VTS_PI4 "\x43"
#define VTS_PR4 "\x44"
#define VTS_PR8 "\x45"
#define VTS_PCY "\x46"
#define VTS_PDATE "\x47"
#define VTS_PBSTR "\x48"
#define VTS_PDISPATCH "\x49"
#define VTS_PSCODE "\x4A"
#define VTS_PBOOL "\x4B"
#define VTS_PVARIANT "\x4C"
#define VTS_PUNKNOWN "\x4D"
#define VTS_PI1 "\x50"
#define VTS_PUI1 "\x51"
#define VTS_PUI2 "\x52"
#define VTS_PUI4 "\x53"
#define VTS_PI8 "\x54"
#define VTS_PUI8 "\x55"

// Holds one IDispatch and calls its members by number.
class AFX_CORE_API COleDispatchDriver
{
public:
    COleDispatchDriver();
    // Takes the pointer over, without a reference of its own; with bAutoRelease it is released in the
    // end.
    COleDispatchDriver(LPDISPATCH lpDispatch, BOOL bAutoRelease = TRUE);
    // Shares the other's interface with a reference of its own, which it releases in the end.
    COleDispatchDriver(const COleDispatchDriver& dispatchSrc);
    ~COleDispatchDriver() { ReleaseDispatch(); }

    // Attributes
    LPDISPATCH m_lpDispatch;
    BOOL m_bAutoRelease;
    // No reference is added.
    operator LPDISPATCH() { return m_lpDispatch; }
    const COleDispatchDriver& operator=(const COleDispatchDriver& dispatchSrc);

    // Operations
    // Makes an object and holds it. FALSE if it cannot be made; *pError then says why.
    BOOL CreateDispatch(REFCLSID clsid, COleException* pError = NULL);
    // By program id, or class id in braces.
    BOOL CreateDispatch(LPCTSTR lpszProgID, COleException* pError = NULL);
    // Lets go of what was held and takes lpDispatch over, as the constructor does.
    void AttachDispatch(LPDISPATCH lpDispatch, BOOL bAutoRelease = TRUE);
    // Gives the pointer back without releasing it, and holds nothing.
    LPDISPATCH DetachDispatch();
    // Releases the interface if auto-release is on, and holds nothing.
    void ReleaseDispatch();

    // Calls a method or property. pbParamInfo: VTS_ values for the arguments that follow, or NULL.
    // vtRet: type of the result, VT_EMPTY for none; *pvRet takes it as CString (VT_BSTR), BOOL
    // (VT_BOOL) or the type itself. By-reference texts are BSTR*. An error that the object reports
    // is thrown as COleDispatchException, every other failure, also that the result cannot be
    // converted, as COleException. Without an interface nothing happens.
    void AFX_CDECL InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet,
                                const BYTE* pbParamInfo, ...);
    // Object-valued properties are set by reference.
    void AFX_CDECL SetProperty(DISPID dwDispID, VARTYPE vtProp, ...);
    void GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const;

    // Implementation
    void InvokeHelperV(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo,
                       va_list argList);
};
