// Modules: extension DLLs, their chain, and where resources are looked for. Included by afx.h.
#pragma once

class COleObjectFactory;
class CDynLinkLibrary;

// An extension DLL's record of itself, one static object in the DLL.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
    CRuntimeClass* pFirstSharedClass;
    COleObjectFactory* pFirstSharedFactory;
};

// Fills the record of the DLL hModule and takes its run-time classes out of the program's list into
// it. Called on process attach; a second call changes nothing. FALSE for a null handle.
AFX_CORE_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);

// Takes every CDynLinkLibrary of the record's DLL out of the chain and deletes it. Called on process
// detach; safe on a record that never was initialised and when called again. There is one chain, so
// bAll changes nothing.
AFX_CORE_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// A DLL's place in the chain of modules that are searched for resources and run-time classes. Made
// with new; the constructor puts it at the chain's head and the chain owns it from then on:
// AfxTermExtensionModule deletes it. Deleting it takes it out of the chain.
class AFX_CORE_API CDynLinkLibrary : public CObject
{
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    // bSystem: searched after all DLLs that are not.
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    // A module without run-time classes; hResource holds its resources and may be another module.
    CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    virtual ~CDynLinkLibrary();

    // Attributes
    HMODULE m_hModule;
    HMODULE m_hResource;
    CRuntimeClass* m_pFirstSharedClass;
    BOOL m_bSystem;

    // Implementation
    CDynLinkLibrary* m_pNextDLL;
};

// The program's instance handle, and the module whose resources are searched first: the program,
// until AfxSetResourceHandle names another.
AFX_CORE_API HINSTANCE AFXAPI AfxGetInstanceHandle();
AFX_CORE_API HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_CORE_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
// The application's name, as CWinApp was given it or the program's file name; NULL before.
AFX_CORE_API LPCTSTR AFXAPI AfxGetAppName();

// The module that holds the resource: AfxGetResourceHandle(), then the chain's DLLs from the newest to
// the oldest, then its system DLLs. AfxGetResourceHandle() if none has it, so that loading fails there.
AFX_CORE_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);
// The same for one string: a module whose string table lacks just this one is passed over. NULL if
// no module has the string.
AFX_CORE_API HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID);

// Copies the string nID, found as above, into lpszBuf of nMaxBuf characters with a final zero; what
// does not fit is left out. Returns the characters copied without the zero; 0 and an empty text if
// there is no such string.
AFX_CORE_API int AFXAPI AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf = 256);

// LoadLibrary, LoadLibraryEx and FreeLibrary; to be used for extension DLLs in place of them.
AFX_CORE_API HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName);
AFX_CORE_API HINSTANCE AFXAPI AfxLoadLibraryEx(LPCTSTR lpFileName, HANDLE hFile, DWORD dwFlags);
AFX_CORE_API BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib);
