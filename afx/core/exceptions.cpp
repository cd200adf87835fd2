#include "../afxwin.h"
#include "strings.h"

#include <vector>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)

CException::CException() : m_bAutoDelete(TRUE) {}

CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

CException::~CException() {}

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    if (pnHelpContext != NULL)
        *pnHelpContext = 0;
    if (lpszError != NULL && nMaxError != 0)
        lpszError[0] = 0;
    return FALSE;
}

int CException::ReportError(UINT nType, UINT nMessageID)
{
    UINT nHelpContext = 0;
    TCHAR szError[512];
    if (!GetErrorMessage(szError, _countof(szError), &nHelpContext))
        return AfxMessageBox(nMessageID == 0 ? AFX_IDP_NO_ERROR_AVAILABLE : nMessageID, nType, nHelpContext);
    if (_tcslen(szError) + 1 < _countof(szError))
        return AfxMessageBox(szError, nType, nHelpContext);

    // It may have been cut: ask again with more and more room.
    std::vector<TCHAR> text(_countof(szError));
    do {
        text.resize(text.size() * 2);
        GetErrorMessage(text.data(), UINT(text.size()), &nHelpContext);
    } while (_tcslen(text.data()) + 1 == text.size());
    return AfxMessageBox(text.data(), nType, nHelpContext);
}

CSimpleException::CSimpleException() : m_nResourceID(0) {}

CSimpleException::CSimpleException(BOOL bAutoDelete) : CException(bAutoDelete), m_nResourceID(0) {}

CSimpleException::CSimpleException(BOOL bAutoDelete, UINT nResourceID)
    : CException(bAutoDelete), m_nResourceID(nResourceID)
{
}

BOOL CSimpleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
    if (m_nResourceID == 0 || lpszError == NULL || nMaxError == 0)
        return FALSE;
    return AfxLoadString(m_nResourceID, lpszError, nMaxError) > 0;
}

// Each class has one object of its own that is thrown, so that throwing needs no memory.
#define IMPLEMENT_SIMPLE_EXCEPTION_(class_name, pfnThrow, nDefaultID)                                        \
    IMPLEMENT_DYNAMIC(class_name, CSimpleException)                                                          \
    class_name::class_name() : CSimpleException(TRUE, nDefaultID) {}                                         \
    class_name::class_name(BOOL bAutoDelete) : CSimpleException(bAutoDelete, nDefaultID) {}                  \
    class_name::class_name(BOOL bAutoDelete, UINT nResourceID)                                               \
        : CSimpleException(bAutoDelete, nResourceID) {}                                                      \
    void AFXAPI pfnThrow()                                                                                   \
    {                                                                                                        \
        static class_name exception(FALSE);                                                                  \
        throw &exception;                                                                                    \
    }

IMPLEMENT_SIMPLE_EXCEPTION_(CMemoryException, AfxThrowMemoryException, AFX_IDP_E_MEMORY)
IMPLEMENT_SIMPLE_EXCEPTION_(CNotSupportedException, AfxThrowNotSupportedException, AFX_IDP_E_NOTSUPPORTED)
IMPLEMENT_SIMPLE_EXCEPTION_(CInvalidArgException, AfxThrowInvalidArgException, AFX_IDP_E_INVALIDARG)
IMPLEMENT_SIMPLE_EXCEPTION_(CResourceException, AfxThrowResourceException, AFX_IDP_E_RESOURCE)
IMPLEMENT_SIMPLE_EXCEPTION_(CUserException, AfxThrowUserException, AFX_IDP_E_USER)
