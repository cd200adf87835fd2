#include "state.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>

IMPLEMENT_DYNAMIC(CStdioFile, CFile)

CStdioFile::CStdioFile() : m_pStream(NULL) {}

CStdioFile::CStdioFile(FILE* pOpenStream)
    : CFile(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(pOpenStream)))), m_pStream(pOpenStream)
{
}

CStdioFile::CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags) : m_pStream(NULL)
{
    CFileException error;
    if (!CStdioFile::Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CStdioFile::~CStdioFile()
{
    if (m_bCloseOnDelete)
        CStdioFile::Abort();
}

BOOL CStdioFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    m_pStream = NULL;
    if (!CFile::Open(lpszFileName, nOpenFlags, pError))
        return FALSE;

    const bool isBinary = (nOpenFlags & typeBinary) != 0;
    const bool isRead = (nOpenFlags & 3) == modeRead;
    const TCHAR* pszMode = (nOpenFlags & modeReadWrite) ? _T("r+") : isRead ? _T("r") : _T("w");
    const int nFlags = (isBinary ? _O_BINARY : _O_TEXT) | (isRead ? _O_RDONLY : 0);
    const int nDescriptor = _open_osfhandle(reinterpret_cast<intptr_t>(m_hFile), nFlags);
    if (nDescriptor != -1) {
        m_pStream = _tfdopen(nDescriptor, CString(pszMode) + (isBinary ? _T("b") : _T("t")));
        if (m_pStream == NULL) {
            _close(nDescriptor);
            m_hFile = hFileNull;
        }
    }
    if (m_pStream == NULL) {
        if (pError != NULL) {
            pError->m_lOsError = LONG(_doserrno);
            pError->m_cause = CFileException::ErrnoToException(errno);
            pError->m_strFileName = m_strFileName;
        }
        CFile::Abort();
        return FALSE;
    }
    return TRUE;
}

UINT CStdioFile::Read(void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return 0;
    ENSURE_ARG(lpBuf != NULL && m_pStream != NULL);
    const size_t nRead = std::fread(lpBuf, 1, nCount, m_pStream);
    if (nRead == 0 && std::ferror(m_pStream)) {
        std::clearerr(m_pStream);
        CFileException::ThrowErrno(errno, m_strFileName);
    }
    return UINT(nRead);
}

void CStdioFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    ENSURE_ARG(lpBuf != NULL && m_pStream != NULL);
    if (std::fwrite(lpBuf, 1, nCount, m_pStream) != nCount)
        CFileException::ThrowErrno(errno, m_strFileName);
}

void CStdioFile::WriteString(LPCTSTR lpsz)
{
    ENSURE_ARG(lpsz != NULL && m_pStream != NULL);
    if (_fputts(lpsz, m_pStream) < 0)
        CFileException::ThrowErrno(errno, m_strFileName);
}

LPTSTR CStdioFile::ReadString(LPTSTR lpsz, UINT nMax)
{
    ENSURE_ARG(lpsz != NULL && nMax != 0 && m_pStream != NULL);
    LPTSTR lpszResult = _fgetts(lpsz, int(nMax), m_pStream);
    if (lpszResult == NULL && !std::feof(m_pStream)) {
        std::clearerr(m_pStream);
        CFileException::ThrowErrno(errno, m_strFileName);
    }
    return lpszResult;
}

BOOL CStdioFile::ReadString(CString& rString)
{
    rString.Empty();
    BOOL bRead = FALSE;
    TCHAR szPiece[256];
    while (ReadString(szPiece, _countof(szPiece)) != NULL) {
        bRead = TRUE;
        rString += szPiece;
        const int nLength = rString.GetLength();
        if (nLength > 0 && rString[nLength - 1] == _T('\n')) {
            rString.Truncate(nLength - 1);
            break;
        }
    }
    return bRead;
}

ULONGLONG CStdioFile::Seek(LONGLONG lOff, UINT nFrom)
{
    ENSURE_ARG(m_pStream != NULL && (nFrom == begin || nFrom == current || nFrom == end));
    if (_fseeki64(m_pStream, lOff, int(nFrom)) != 0)
        AfxThrowFileException(CFileException::badSeek, LONG(_doserrno), m_strFileName);
    return GetPosition();
}

ULONGLONG CStdioFile::GetPosition() const
{
    ENSURE_ARG(m_pStream != NULL);
    const LONGLONG nPosition = _ftelli64(m_pStream);
    if (nPosition == -1)
        AfxThrowFileException(CFileException::invalidFile, LONG(_doserrno), m_strFileName);
    return ULONGLONG(nPosition);
}

ULONGLONG CStdioFile::GetLength() const
{
    CStdioFile* pThis = const_cast<CStdioFile*>(this);
    const ULONGLONG nOld = GetPosition();
    const ULONGLONG nLength = pThis->Seek(0, end);
    pThis->Seek(LONGLONG(nOld), begin);
    return nLength;
}

void CStdioFile::Flush()
{
    if (m_pStream != NULL && std::fflush(m_pStream) != 0)
        CFileException::ThrowErrno(errno, m_strFileName);
}

void CStdioFile::Close()
{
    FILE* pStream = m_pStream;
    const CString strFileName = m_strFileName;
    // Closing the stream closes the handle beneath.
    m_pStream = NULL;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    if (pStream != NULL && std::fclose(pStream) != 0)
        CFileException::ThrowErrno(errno, strFileName);
}

void CStdioFile::Abort()
{
    if (m_pStream != NULL)
        std::fclose(m_pStream);
    m_pStream = NULL;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
}

CFile* CStdioFile::Duplicate() const
{
    AfxThrowNotSupportedException();
}

void CStdioFile::LockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CStdioFile::UnlockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}
