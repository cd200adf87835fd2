#include "../afxdisp.h"

IMPLEMENT_DYNAMIC(COleException, CException)
IMPLEMENT_DYNAMIC(COleDispatchException, CException)

COleException::COleException() : m_sc(S_OK) {}

COleException::~COleException() {}

SCODE PASCAL COleException::Process(const CException* pAnyException)
{
    if (pAnyException == NULL)
        return E_UNEXPECTED;
    if (pAnyException->IsKindOf(RUNTIME_CLASS(COleException)))
        return static_cast<const COleException*>(pAnyException)->m_sc;
    if (pAnyException->IsKindOf(RUNTIME_CLASS(CMemoryException)))
        return E_OUTOFMEMORY;
    if (pAnyException->IsKindOf(RUNTIME_CLASS(CNotSupportedException)))
        return E_NOTIMPL;
    if (pAnyException->IsKindOf(RUNTIME_CLASS(CInvalidArgException)))
        return E_INVALIDARG;
    return E_UNEXPECTED;
}

BOOL COleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
    if (lpszError == NULL || nMaxError == 0)
        return FALSE;

    CString strText;
    LPTSTR psz = NULL;
    const DWORD nLength = ::FormatMessage(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                              FORMAT_MESSAGE_ALLOCATE_BUFFER,
                                          NULL, DWORD(m_sc), 0, reinterpret_cast<LPTSTR>(&psz), 0, NULL);
    if (nLength != 0)
        strText = CString(psz, int(nLength)).TrimRight();
    ::LocalFree(psz);
    if (strText.IsEmpty())
        strText.Format(_T("0x%08lX"), static_cast<unsigned long>(m_sc));
    ::lstrcpyn(lpszError, strText, int(nMaxError));
    return TRUE;
}

void AFXAPI AfxThrowOleException(SCODE sc)
{
    COleException* e = new COleException;
    e->m_sc = sc;
    throw e;
}

void AFXAPI AfxCheckError(SCODE sc)
{
    if (SUCCEEDED(sc))
        return;
    if (sc == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    AfxThrowOleException(sc);
}

namespace
{

// Help contexts of automation errors have a range of their own.
constexpr DWORD HelpBase = 0x30000;

} // namespace

COleDispatchException::COleDispatchException(LPCTSTR lpszDescription, UINT nHelpID, WORD wCode)
    : m_wCode(wCode), m_strDescription(lpszDescription),
      m_dwHelpContext(nHelpID == 0 ? 0 : HelpBase + nHelpID), m_scError(wCode == 0 ? E_UNEXPECTED : NOERROR)
{
}

COleDispatchException::~COleDispatchException() {}

BOOL COleDispatchException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
    if (pnHelpContext != NULL)
        *pnHelpContext = m_dwHelpContext;
    if (lpszError == NULL || nMaxError == 0 || m_strDescription.IsEmpty())
        return FALSE;
    ::lstrcpyn(lpszError, m_strDescription, int(nMaxError));
    return TRUE;
}

void PASCAL COleDispatchException::Process(EXCEPINFO* pInfo, const CException* pAnyException)
{
    ENSURE_ARG(pInfo != NULL && pAnyException != NULL);
    *pInfo = EXCEPINFO();

    CString strSource;
    CString strDescription;
    CString strHelpFile;
    if (pAnyException->IsKindOf(RUNTIME_CLASS(COleDispatchException))) {
        const COleDispatchException* e = static_cast<const COleDispatchException*>(pAnyException);
        pInfo->wCode = e->m_wCode;
        pInfo->scode = e->m_wCode == 0 ? e->m_scError : NOERROR;
        pInfo->dwHelpContext = e->m_dwHelpContext;
        strSource = e->m_strSource;
        strDescription = e->m_strDescription;
        strHelpFile = e->m_strHelpFile;
    } else {
        TCHAR szText[512];
        UINT nHelpContext = 0;
        if (pAnyException->GetErrorMessage(szText, _countof(szText), &nHelpContext))
            strDescription = szText;
        pInfo->dwHelpContext = nHelpContext;
        pInfo->scode = COleException::Process(pAnyException);
    }
    if (strSource.IsEmpty())
        strSource = AfxGetAppName();
    pInfo->bstrSource = strSource.AllocSysString();
    pInfo->bstrDescription = strDescription.AllocSysString();
    if (!strHelpFile.IsEmpty())
        pInfo->bstrHelpFile = strHelpFile.AllocSysString();
}

void AFXAPI AfxThrowOleDispatchException(WORD wCode, LPCTSTR lpszDescription, UINT nHelpID)
{
    throw new COleDispatchException(lpszDescription, nHelpID, wCode);
}

void AFXAPI AfxThrowOleDispatchException(WORD wCode, UINT nDescriptionID, UINT nHelpID)
{
    CString strDescription;
    strDescription.LoadString(nDescriptionID);
    throw new COleDispatchException(strDescription, nHelpID == UINT(-1) ? nDescriptionID : nHelpID, wCode);
}
