#include "state.h"

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

IMPLEMENT_DYNAMIC(CFile, CObject)

namespace
{

CString FullPath(LPCTSTR lpszFileName)
{
    CString strPath;
    const DWORD nRoom = ::GetFullPathName(lpszFileName, 0, NULL, NULL);
    if (nRoom == 0)
        return lpszFileName;
    const DWORD nLength = ::GetFullPathName(lpszFileName, nRoom, strPath.GetBuffer(int(nRoom)), NULL);
    strPath.ReleaseBufferSetLength(int(nLength));
    return strPath;
}

DWORD Low(ULONGLONG n)
{
    return DWORD(n);
}
DWORD High(ULONGLONG n)
{
    return DWORD(n >> 32);
}
ULONGLONG Join(DWORD low, DWORD high)
{
    return (ULONGLONG(high) << 32) | low;
}

template <typename FileData>
void SetStatusFrom(CFileStatus& status, const FileData& data)
{
    status.m_ctime = CTime(data.ftCreationTime);
    status.m_atime = CTime(data.ftLastAccessTime);
    status.m_mtime = CTime(data.ftLastWriteTime);
    status.m_attribute = BYTE(data.dwFileAttributes);
    status.m_size = Join(data.nFileSizeLow, data.nFileSizeHigh);
    status._m_padding = 0;
}

} // namespace

CFile::CFile() : m_hFile(hFileNull), m_bCloseOnDelete(FALSE) {}

CFile::CFile(HANDLE hFile) : m_hFile(hFile), m_bCloseOnDelete(FALSE) {}

CFile::CFile(LPCTSTR lpszFileName, UINT nOpenFlags) : m_hFile(hFileNull), m_bCloseOnDelete(FALSE)
{
    CFileException error;
    if (!CFile::Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_bCloseOnDelete)
        CFile::Abort();
}

CFile::operator HANDLE() const
{
    return m_hFile;
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    ENSURE_ARG(lpszFileName != NULL);
    m_bCloseOnDelete = FALSE;
    m_hFile = hFileNull;
    m_strFileName = FullPath(lpszFileName);

    constexpr DWORD access[] = {GENERIC_READ, GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE, GENERIC_READ};
    DWORD dwShare = 0;
    switch (nOpenFlags & 0x70) {
    case shareDenyWrite:
        dwShare = FILE_SHARE_READ;
        break;
    case shareDenyRead:
        dwShare = FILE_SHARE_WRITE;
        break;
    case shareDenyNone:
        dwShare = FILE_SHARE_READ | FILE_SHARE_WRITE;
        break;
    default:
        break;
    }
    DWORD dwCreate = OPEN_EXISTING;
    if (nOpenFlags & modeCreate)
        dwCreate = (nOpenFlags & modeNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;
    DWORD dwAttributes = FILE_ATTRIBUTE_NORMAL;
    if (nOpenFlags & osNoBuffer)
        dwAttributes |= FILE_FLAG_NO_BUFFERING;
    if (nOpenFlags & osWriteThrough)
        dwAttributes |= FILE_FLAG_WRITE_THROUGH;
    if (nOpenFlags & osRandomAccess)
        dwAttributes |= FILE_FLAG_RANDOM_ACCESS;
    if (nOpenFlags & osSequentialScan)
        dwAttributes |= FILE_FLAG_SEQUENTIAL_SCAN;
    SECURITY_ATTRIBUTES security = {sizeof(SECURITY_ATTRIBUTES), NULL, (nOpenFlags & modeNoInherit) == 0};

    const HANDLE hFile =
        ::CreateFile(m_strFileName, access[nOpenFlags & 3], dwShare, &security, dwCreate, dwAttributes, NULL);
    if (hFile == INVALID_HANDLE_VALUE) {
        const LONG lOsError = LONG(::GetLastError());
        if (pError != NULL) {
            pError->m_lOsError = lOsError;
            pError->m_cause = CFileException::OsErrorToException(lOsError);
            pError->m_strFileName = m_strFileName;
        }
        m_strFileName.Empty();
        return FALSE;
    }
    m_hFile = hFile;
    m_bCloseOnDelete = TRUE;
    return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return 0;
    ENSURE_ARG(lpBuf != NULL);
    DWORD dwRead = 0;
    if (!::ReadFile(m_hFile, lpBuf, nCount, &dwRead, NULL))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
    return dwRead;
}

void CFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    ENSURE_ARG(lpBuf != NULL);
    DWORD dwWritten = 0;
    if (!::WriteFile(m_hFile, lpBuf, nCount, &dwWritten, NULL))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
    if (dwWritten != nCount)
        AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom)
{
    ENSURE_ARG(nFrom == begin || nFrom == current || nFrom == end);
    LARGE_INTEGER offset;
    offset.QuadPart = lOff;
    LARGE_INTEGER position = {};
    if (!::SetFilePointerEx(m_hFile, offset, &position, nFrom))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
    return ULONGLONG(position.QuadPart);
}

ULONGLONG CFile::SeekToEnd()
{
    return Seek(0, end);
}

void CFile::SeekToBegin()
{
    Seek(0, begin);
}

ULONGLONG CFile::GetPosition() const
{
    return const_cast<CFile*>(this)->CFile::Seek(0, current);
}

ULONGLONG CFile::GetLength() const
{
    LARGE_INTEGER size = {};
    if (!::GetFileSizeEx(m_hFile, &size))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
    return ULONGLONG(size.QuadPart);
}

void CFile::SetLength(ULONGLONG dwNewLen)
{
    Seek(LONGLONG(dwNewLen), begin);
    if (!::SetEndOfFile(m_hFile))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
}

void CFile::LockRange(ULONGLONG dwPos, ULONGLONG dwCount)
{
    if (!::LockFile(m_hFile, Low(dwPos), High(dwPos), Low(dwCount), High(dwCount)))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
}

void CFile::UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount)
{
    if (!::UnlockFile(m_hFile, Low(dwPos), High(dwPos), Low(dwCount), High(dwCount)))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
}

void CFile::Flush()
{
    if (m_hFile != hFileNull && !::FlushFileBuffers(m_hFile))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
}

void CFile::Close()
{
    const HANDLE hFile = m_hFile;
    const CString strFileName = m_strFileName;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    if (hFile != hFileNull && !::CloseHandle(hFile))
        CFileException::ThrowOsError(LONG(::GetLastError()), strFileName);
}

void CFile::Abort()
{
    if (m_hFile != hFileNull)
        ::CloseHandle(m_hFile);
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
}

CFile* CFile::Duplicate() const
{
    HANDLE hFile = NULL;
    if (!::DuplicateHandle(::GetCurrentProcess(), m_hFile, ::GetCurrentProcess(), &hFile, 0, FALSE,
                           DUPLICATE_SAME_ACCESS))
        CFileException::ThrowOsError(LONG(::GetLastError()), m_strFileName);
    CFile* pFile = new CFile(hFile);
    pFile->m_bCloseOnDelete = TRUE;
    pFile->m_strFileName = m_strFileName;
    return pFile;
}

CString CFile::GetFilePath() const
{
    return m_strFileName;
}

void CFile::SetFilePath(LPCTSTR lpszNewName)
{
    m_strFileName = lpszNewName;
}

CString CFile::GetFileName() const
{
    int i = m_strFileName.GetLength();
    while (i > 0 && CString(_T("\\/:")).Find(m_strFileName[i - 1]) < 0)
        --i;
    return m_strFileName.Mid(i);
}

CString CFile::GetFileTitle() const
{
    const CString strName = GetFileName();
    const int iDot = strName.ReverseFind(_T('.'));
    return iDot < 0 ? strName : strName.Left(iDot);
}

BOOL CFile::GetStatus(CFileStatus& rStatus) const
{
    rStatus = CFileStatus();
    ::lstrcpyn(rStatus.m_szFullName, m_strFileName, _countof(rStatus.m_szFullName));
    if (m_hFile == hFileNull)
        return FALSE;
    BY_HANDLE_FILE_INFORMATION info;
    if (!::GetFileInformationByHandle(m_hFile, &info))
        return FALSE;
    SetStatusFrom(rStatus, info);
    return TRUE;
}

BOOL PASCAL CFile::GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus)
{
    ENSURE_ARG(lpszFileName != NULL);
    rStatus = CFileStatus();
    ::lstrcpyn(rStatus.m_szFullName, FullPath(lpszFileName), _countof(rStatus.m_szFullName));
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!::GetFileAttributesEx(lpszFileName, GetFileExInfoStandard, &data))
        return FALSE;
    SetStatusFrom(rStatus, data);
    return TRUE;
}

void PASCAL CFile::SetStatus(LPCTSTR lpszFileName, const CFileStatus& status)
{
    ENSURE_ARG(lpszFileName != NULL);
    const DWORD dwAttributes = ::GetFileAttributes(lpszFileName);
    if (dwAttributes == INVALID_FILE_ATTRIBUTES)
        CFileException::ThrowOsError(LONG(::GetLastError()), lpszFileName);
    const bool isToBeWritable =
        (dwAttributes & FILE_ATTRIBUTE_READONLY) && !(status.m_attribute & FILE_ATTRIBUTE_READONLY);
    if (isToBeWritable && !::SetFileAttributes(lpszFileName, status.m_attribute))
        CFileException::ThrowOsError(LONG(::GetLastError()), lpszFileName);

    if (status.m_ctime.GetTime() != 0 || status.m_atime.GetTime() != 0 || status.m_mtime.GetTime() != 0) {
        const FILETIME created = status.m_ctime.GetAsFileTime();
        const FILETIME accessed = status.m_atime.GetAsFileTime();
        const FILETIME written = status.m_mtime.GetAsFileTime();
        CFile file;
        file.m_hFile = ::CreateFile(lpszFileName, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    NULL, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, NULL);
        file.m_bCloseOnDelete = TRUE;
        if (file.m_hFile == hFileNull ||
            !::SetFileTime(file.m_hFile, status.m_ctime.GetTime() != 0 ? &created : NULL,
                           status.m_atime.GetTime() != 0 ? &accessed : NULL,
                           status.m_mtime.GetTime() != 0 ? &written : NULL))
            CFileException::ThrowOsError(LONG(::GetLastError()), lpszFileName);
    }
    if (!isToBeWritable && status.m_attribute != BYTE(dwAttributes) &&
        !::SetFileAttributes(lpszFileName, status.m_attribute))
        CFileException::ThrowOsError(LONG(::GetLastError()), lpszFileName);
}

void PASCAL CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName)
{
    if (!::MoveFile(lpszOldName, lpszNewName))
        CFileException::ThrowOsError(LONG(::GetLastError()), lpszOldName);
}

void PASCAL CFile::Remove(LPCTSTR lpszFileName)
{
    if (!::DeleteFile(lpszFileName))
        CFileException::ThrowOsError(LONG(::GetLastError()), lpszFileName);
}
