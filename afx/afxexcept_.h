// The exceptions: thrown by pointer, and told Delete() by whoever handles them. Included by afx.h.
#pragma once

// The base of all MFC exceptions.
class AFX_CORE_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    // bAutoDelete: TRUE for objects made with new, which Delete() is to free; FALSE for others.
    CException();
    explicit CException(BOOL bAutoDelete);

    // Operations
    // Ends the life of a caught exception: frees it if it was made with new for that.
    void Delete();

    // Writes the exception's text into lpszError, nMaxError characters with the final zero, cut if it
    // is longer, and its help context into *pnHelpContext if that is not NULL. FALSE and an empty
    // text if there is none.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;

    // Shows the text in a message box of the style nType and returns the button. Without a text of its
    // own: that of the string resource nMessageID, or a general one if that is 0.
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);

    // Implementation
    virtual ~CException();
    BOOL m_bAutoDelete;
};

// An exception whose text is a fixed string resource.
class AFX_CORE_API CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)

public:
    CSimpleException();
    explicit CSimpleException(BOOL bAutoDelete);
    CSimpleException(BOOL bAutoDelete, UINT nResourceID);

    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;

protected:
    UINT m_nResourceID;
};

#define AFX_SIMPLE_EXCEPTION_(class_name)                                                                    \
    class AFX_CORE_API class_name : public CSimpleException                                                  \
    {                                                                                                        \
        DECLARE_DYNAMIC(class_name)                                                                          \
    public:                                                                                                  \
        class_name();                                                                                        \
        explicit class_name(BOOL bAutoDelete);                                                               \
        class_name(BOOL bAutoDelete, UINT nResourceID);                                                      \
    }

AFX_SIMPLE_EXCEPTION_(CMemoryException);       // out of memory
AFX_SIMPLE_EXCEPTION_(CNotSupportedException); // an operation that is not supported
AFX_SIMPLE_EXCEPTION_(CInvalidArgException);   // an argument out of its range
AFX_SIMPLE_EXCEPTION_(CResourceException);     // a resource that is missing or cannot be made
AFX_SIMPLE_EXCEPTION_(CUserException);         // stops an operation the user has been told about

[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowNotSupportedException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowResourceException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowUserException();

// A failed operation on a file.
class AFX_CORE_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = CFileException::none, LONG lOsError = -1,
                            LPCTSTR lpszArchiveName = NULL);

    // Attributes
    int m_cause;           // one of the enumeration above
    LONG m_lOsError;       // the system's error code, -1 if there is none
    CString m_strFileName; // may be empty

    // Operations
    // The cause that belongs to a Win32 error code, to a value of errno.
    static int PASCAL OsErrorToException(LONG lOsError);
    static int PASCAL ErrnoToException(int nErrno);

    // Throws the exception that belongs to a Win32 error code, to a value of errno.
    [[noreturn]] static void PASCAL ThrowOsError(LONG lOsError, LPCTSTR lpszFileName = NULL);
    [[noreturn]] static void PASCAL ThrowErrno(int nErrno, LPCTSTR lpszFileName = NULL);

    // One sentence that names the file, or "an unnamed file".
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;

    virtual ~CFileException();
};

[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowFileException(int cause, LONG lOsError = -1,
                                                            LPCTSTR lpszFileName = NULL);

// The macros in which MFC wraps C++ exceptions. An exception caught with CATCH is deleted at the end
// of its block, unless THROW_LAST passes it on.
struct AFX_EXCEPTION_LINK
{
    CException* m_pException = NULL;

    AFX_EXCEPTION_LINK() {}
    ~AFX_EXCEPTION_LINK()
    {
        if (m_pException != NULL)
            m_pException->Delete();
    }
    AFX_EXCEPTION_LINK(const AFX_EXCEPTION_LINK&) = delete;
    AFX_EXCEPTION_LINK& operator=(const AFX_EXCEPTION_LINK&) = delete;
};

#define TRY                                                                                                  \
    {                                                                                                        \
        AFX_EXCEPTION_LINK afxExceptionLink;                                                                 \
        try {
#define CATCH(class_name, e)                                                                                 \
    }                                                                                                        \
    catch (class_name * e) {                                                                                 \
        ASSERT(e->IsKindOf(RUNTIME_CLASS(class_name)));                                                      \
        afxExceptionLink.m_pException = e;
#define AND_CATCH(class_name, e) CATCH(class_name, e)
#define CATCH_ALL(e) CATCH(CException, e)
#define AND_CATCH_ALL(e) CATCH(CException, e)
#define END_CATCH                                                                                            \
    }                                                                                                        \
    }
#define END_CATCH_ALL END_CATCH
#define END_TRY                                                                                              \
    }                                                                                                        \
    catch (CException * afxException) {                                                                      \
        afxExceptionLink.m_pException = afxException;                                                        \
    }                                                                                                        \
    }
#define THROW(e) throw e
#define THROW_LAST() (afxExceptionLink.m_pException = NULL, throw)
