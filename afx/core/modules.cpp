#include "state.h"

#include <vector>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

namespace
{

bool LiesIn(HMODULE hModule, const void* p)
{
    const BYTE* pBase = reinterpret_cast<const BYTE*>(hModule);
    const IMAGE_DOS_HEADER* pDos = reinterpret_cast<const IMAGE_DOS_HEADER*>(pBase);
    const IMAGE_NT_HEADERS* pNt = reinterpret_cast<const IMAGE_NT_HEADERS*>(pBase + pDos->e_lfanew);
    return reinterpret_cast<size_t>(p) - reinterpret_cast<size_t>(pBase) < pNt->OptionalHeader.SizeOfImage;
}

// The modules to be searched for resources, in order. A copy, since searching takes the loader's lock.
std::vector<HINSTANCE> ResourceModules()
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    std::vector<HINSTANCE> modules{AfxGetResourceHandle()};
    const AfxLock lock(pState->m_lock, AfxLock::Shared);
    for (BOOL bSystem : {FALSE, TRUE})
        for (CDynLinkLibrary* pDLL = pState->m_pFirstLibrary; pDLL != NULL; pDLL = pDLL->m_pNextDLL)
            if (pDLL->m_hResource != NULL && !pDLL->m_bSystem == !bSystem)
                modules.push_back(pDLL->m_hResource);
    return modules;
}

} // namespace

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (hModule == NULL)
        return FALSE;
    if (state.bInitialized)
        return TRUE;

    state.hModule = hModule;
    state.hResource = hModule;
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
    for (CRuntimeClass** ppLink = &pState->m_pFirstClass; *ppLink != NULL;) {
        CRuntimeClass* pClass = *ppLink;
        if (LiesIn(hModule, pClass)) {
            *ppLink = pClass->m_pNextClass;
            pClass->m_pNextClass = state.pFirstSharedClass;
            state.pFirstSharedClass = pClass;
        } else {
            ppLink = &pClass->m_pNextClass;
        }
    }
    state.bInitialized = TRUE;
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    if (!state.bInitialized)
        return;
    state.bInitialized = FALSE;

    AFX_MODULE_STATE* pState = AfxGetModuleState();
    CDynLinkLibrary* pGone = NULL;
    {
        const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
        for (CDynLinkLibrary** ppLink = &pState->m_pFirstLibrary; *ppLink != NULL;) {
            CDynLinkLibrary* pDLL = *ppLink;
            if (pDLL->m_hModule == state.hModule) {
                *ppLink = pDLL->m_pNextDLL;
                pDLL->m_pNextDLL = pGone;
                pGone = pDLL;
            } else {
                ppLink = &pDLL->m_pNextDLL;
            }
        }
    }
    while (pGone != NULL) {
        CDynLinkLibrary* pNext = pGone->m_pNextDLL;
        delete pGone;
        pGone = pNext;
    }
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pFirstSharedClass(state.pFirstSharedClass),
      m_bSystem(bSystem)
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
    m_pNextDLL = pState->m_pFirstLibrary;
    pState->m_pFirstLibrary = this;
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_pFirstSharedClass(NULL), m_bSystem(FALSE)
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
    m_pNextDLL = pState->m_pFirstLibrary;
    pState->m_pFirstLibrary = this;
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
    CDynLinkLibrary** ppLink = &pState->m_pFirstLibrary;
    while (*ppLink != NULL && *ppLink != this)
        ppLink = &(*ppLink)->m_pNextDLL;
    if (*ppLink != NULL)
        *ppLink = m_pNextDLL;
}

HINSTANCE AFXAPI AfxGetInstanceHandle()
{
    const AFX_MODULE_STATE* pState = AfxGetModuleState();
    return pState->m_hCurrentInstanceHandle != NULL ? pState->m_hCurrentInstanceHandle
                                                    : ::GetModuleHandle(NULL);
}

HINSTANCE AFXAPI AfxGetResourceHandle()
{
    const AFX_MODULE_STATE* pState = AfxGetModuleState();
    return pState->m_hCurrentResourceHandle != NULL ? pState->m_hCurrentResourceHandle
                                                    : AfxGetInstanceHandle();
}

void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource)
{
    AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}

LPCTSTR AFXAPI AfxGetAppName()
{
    return AfxGetModuleState()->m_lpszCurrentAppName;
}

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType)
{
    for (HINSTANCE hInst : ResourceModules())
        if (::FindResource(hInst, lpszName, lpszType) != NULL)
            return hInst;
    return AfxGetResourceHandle();
}

HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID)
{
    for (HINSTANCE hInst : ResourceModules()) {
        // With no room given, the system hands out the string where it lies in the resource.
        LPCTSTR pch = NULL;
        if (::LoadString(hInst, nID, reinterpret_cast<LPTSTR>(&pch), 0) > 0)
            return hInst;
    }
    return NULL;
}

int AFXAPI AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf)
{
    if (lpszBuf == NULL || nMaxBuf == 0)
        AfxThrowInvalidArgException();
    lpszBuf[0] = 0;
    const HINSTANCE hInst = AfxFindStringResourceHandle(nID);
    return hInst == NULL ? 0 : ::LoadString(hInst, nID, lpszBuf, int(nMaxBuf));
}

HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName)
{
    return AfxLoadLibraryEx(lpszModuleName, NULL, 0);
}

HINSTANCE AFXAPI AfxLoadLibraryEx(LPCTSTR lpFileName, HANDLE hFile, DWORD dwFlags)
{
    return ::LoadLibraryEx(lpFileName, hFile, dwFlags);
}

BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib)
{
    return ::FreeLibrary(hInstLib);
}
