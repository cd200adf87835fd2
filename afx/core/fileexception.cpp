#include "state.h"
#include "strings.h"

#include <cerrno>

IMPLEMENT_DYNAMIC(CFileException, CException)

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName)
{
}

CFileException::~CFileException() {}

int PASCAL CFileException::OsErrorToException(LONG lOsError)
{
    switch (DWORD(lOsError)) {
    case NO_ERROR:
        return none;
    case ERROR_FILE_NOT_FOUND:
        return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:
    case ERROR_NO_MORE_FILES:
        return badPath;
    case ERROR_TOO_MANY_OPEN_FILES:
    case ERROR_SHARING_BUFFER_EXCEEDED:
    case ERROR_NO_MORE_SEARCH_HANDLES:
        return tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_INVALID_ACCESS:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_CANNOT_MAKE:
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
    case ERROR_PRIVILEGE_NOT_HELD:
        return accessDenied;
    case ERROR_INVALID_HANDLE:
    case ERROR_INVALID_TARGET_HANDLE:
    case ERROR_DIRECT_ACCESS_HANDLE:
        return invalidFile;
    case ERROR_CURRENT_DIRECTORY:
        return removeCurrentDir;
    case ERROR_SEEK:
    case ERROR_NEGATIVE_SEEK:
    case ERROR_SEEK_ON_DEVICE:
        return badSeek;
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_CRC:
    case ERROR_NOT_READY:
    case ERROR_BAD_UNIT:
    case ERROR_BAD_COMMAND:
    case ERROR_BAD_LENGTH:
    case ERROR_NOT_DOS_DISK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_GEN_FAILURE:
    case ERROR_WRONG_DISK:
    case ERROR_IO_DEVICE:
    case ERROR_DISK_OPERATION_FAILED:
        return hardIO;
    case ERROR_SHARING_VIOLATION:
    case ERROR_DRIVE_LOCKED:
    case ERROR_NETWORK_BUSY:
        return sharingViolation;
    case ERROR_LOCK_VIOLATION:
    case ERROR_LOCK_FAILED:
    case ERROR_NOT_LOCKED:
        return lockViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return diskFull;
    case ERROR_HANDLE_EOF:
        return endOfFile;
    default:
        return genericException;
    }
}

int PASCAL CFileException::ErrnoToException(int nErrno)
{
    switch (nErrno) {
    case 0:
        return none;
    case ENOENT:
        return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
        return badPath;
    case EMFILE:
    case ENFILE:
        return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EEXIST:
        return accessDenied;
    case EBADF:
        return invalidFile;
    case ESPIPE:
        return badSeek;
    case EIO:
        return hardIO;
    case EDEADLOCK:
        return sharingViolation;
    case ENOSPC:
        return diskFull;
    default:
        return genericException;
    }
}

void PASCAL CFileException::ThrowOsError(LONG lOsError, LPCTSTR lpszFileName)
{
    AfxThrowFileException(OsErrorToException(lOsError), lOsError, lpszFileName);
}

void PASCAL CFileException::ThrowErrno(int nErrno, LPCTSTR lpszFileName)
{
    // The run-time keeps the system's code beside its own when one was the cause.
    AfxThrowFileException(ErrnoToException(nErrno), nErrno == 0 ? -1 : LONG(_doserrno), lpszFileName);
}

void AFXAPI AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}

BOOL CFileException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
    CString strText;
    if (lpszError == NULL || nMaxError == 0 || m_cause < none || m_cause > endOfFile ||
        !strText.LoadString(AFX_IDP_FILE_NONE + m_cause))
        return FALSE;
    CString strName = m_strFileName;
    if (strName.IsEmpty())
        strName.LoadString(AFX_IDS_UNNAMED_FILE);
    strText.Replace(_T("%1"), strName);
    lstrcpyn(lpszError, strText, int(nMaxError));
    return TRUE;
}
