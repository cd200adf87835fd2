// CFile, CStdioFile and the file times they report. Included by afx.h.
#pragma once

#include "atltime.h"

// What CFile::GetStatus tells of a file.
struct CFileStatus
{
    CTime m_ctime;    // creation
    CTime m_mtime;    // last change
    CTime m_atime;    // last access
    ULONGLONG m_size; // bytes
    BYTE m_attribute; // FILE_ATTRIBUTE_ values
    BYTE _m_padding;
    TCHAR m_szFullName[_MAX_PATH];
};

// An unbuffered file of the system. Members that fail throw CFileException with the system's error code
// and the file's name, unless said otherwise. Using an object that has no file open throws one with
// invalidFile, or with the code for a bad handle.
class AFX_CORE_API CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    // One of access, one of share, and the rest as wanted. modeCreate empties an existing file, with
    // modeNoTruncate it opens it as it is. typeText and typeBinary are for CStdioFile.
    enum OpenFlags
    {
        modeRead = 0x00000,
        modeWrite = 0x00001,
        modeReadWrite = 0x00002,
        shareCompat = 0x00000,
        shareExclusive = 0x00010,
        shareDenyWrite = 0x00020,
        shareDenyRead = 0x00030,
        shareDenyNone = 0x00040,
        modeNoInherit = 0x00080,
        modeCreate = 0x01000,
        modeNoTruncate = 0x02000,
        typeText = 0x04000,
        typeBinary = 0x08000,
        osNoBuffer = 0x10000,
        osWriteThrough = 0x20000,
        osRandomAccess = 0x40000,
        osSequentialScan = 0x80000
    };
    enum SeekPosition
    {
        begin = 0,
        current = 1,
        end = 2
    };
    static const HANDLE hFileNull;

    CFile();
    // Uses a file that is open already. Close closes it, the destructor leaves it open.
    CFile(HANDLE hFile);
    CFile(LPCTSTR lpszFileName, UINT nOpenFlags);
    virtual ~CFile();

    // Attributes
    HANDLE m_hFile; // hFileNull while nothing is open
    operator HANDLE() const;
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    // Name with extension; name without extension; full path. Empty without a name.
    virtual CString GetFileName() const;
    virtual CString GetFileTitle() const;
    virtual CString GetFilePath() const;
    virtual void SetFilePath(LPCTSTR lpszNewName);
    // FALSE if the file does not exist or cannot be asked; nothing is thrown.
    BOOL GetStatus(CFileStatus& rStatus) const;
    static BOOL PASCAL GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus);

    // Operations
    // FALSE when it cannot be opened; *pError then says why, if given. Nothing is thrown for that.
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL);
    static void PASCAL Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName);
    static void PASCAL Remove(LPCTSTR lpszFileName);
    // Sets attributes and times; a time of 0 is left as it is.
    static void PASCAL SetStatus(LPCTSTR lpszFileName, const CFileStatus& status);

    ULONGLONG SeekToEnd();
    void SeekToBegin();
    // The new position in bytes from the start. A position before the start throws.
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    virtual void SetLength(ULONGLONG dwNewLen);
    // Bytes read, fewer than nCount only at the end of the file.
    virtual UINT Read(void* lpBuf, UINT nCount);
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual void LockRange(ULONGLONG dwPos, ULONGLONG dwCount);
    virtual void UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount);
    virtual void Flush();
    // Closes; a failure throws after the object has let go of the file.
    virtual void Close();
    // Closes whatever happens and throws nothing.
    virtual void Abort();
    // A second object, made with new, on a duplicate of the handle.
    virtual CFile* Duplicate() const;

    // Implementation
protected:
    BOOL m_bCloseOnDelete;
    CString m_strFileName;
};

// A file as a buffered stream of the C run-time, in text mode unless typeBinary is asked for: \n and
// \r\n are translated. The file holds narrow text; wide text is converted as the run-time's wide stream
// functions do it, so a text that its locale cannot express throws.
class AFX_CORE_API CStdioFile : public CFile
{
    DECLARE_DYNAMIC(CStdioFile)

public:
    CStdioFile();
    // Uses a stream that is open already. Close closes it, the destructor leaves it open.
    explicit CStdioFile(FILE* pOpenStream);
    CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags);
    virtual ~CStdioFile();

    // Attributes
    FILE* m_pStream; // NULL while nothing is open

    // Operations
    virtual void WriteString(LPCTSTR lpsz);
    // At most nMax - 1 characters and a zero, up to and with the end of line. NULL at the end of the file.
    virtual LPTSTR ReadString(LPTSTR lpsz, UINT nMax);
    // A whole line without its end. FALSE at the end of the file.
    virtual BOOL ReadString(CString& rString);

    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL);
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    virtual UINT Read(void* lpBuf, UINT nCount);
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual void Flush();
    virtual void Close();
    virtual void Abort();
    // Not supported: each throws CNotSupportedException.
    virtual CFile* Duplicate() const;
    virtual void LockRange(ULONGLONG dwPos, ULONGLONG dwCount);
    virtual void UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount);
};
