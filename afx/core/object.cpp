#include "state.h"

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, NULL, NULL, NULL};
static const AFX_CLASSINIT afxClassInitCObject(CObject::GetThisClass());

CRuntimeClass* PASCAL CObject::GetThisClass()
{
    return const_cast<CRuntimeClass*>(&classCObject);
}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return GetThisClass();
}

CObject::~CObject() {}

void* PASCAL CObject::operator new(size_t nSize)
{
    void* p = std::malloc(nSize == 0 ? 1 : nSize);
    if (p == NULL)
        AfxThrowMemoryException();
    return p;
}

void* PASCAL CObject::operator new(size_t nSize, LPCSTR, int)
{
    return operator new(nSize);
}

void PASCAL CObject::operator delete(void* p)
{
    std::free(p);
}

void PASCAL CObject::operator delete(void* p, LPCSTR, int)
{
    std::free(p);
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

void CObject::AssertValid() const
{
    ASSERT(this != NULL);
}

void AFXAPI AfxAssertValidObject(const CObject* pOb, LPCSTR lpszFileName, int nLine)
{
    if (pOb == NULL)
        AfxAssertFailed(lpszFileName, nLine);
    pOb->AssertValid();
}

CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    return pObject != NULL && pObject->IsKindOf(pClass) ? pObject : NULL;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    if (pBaseClass == NULL)
        return FALSE;
    for (const CRuntimeClass* pClass = this; pClass != NULL;
         pClass = pClass->m_pfnGetBaseClass == NULL ? NULL : pClass->m_pfnGetBaseClass())
        if (pClass == pBaseClass)
            return TRUE;
    return FALSE;
}

CObject* CRuntimeClass::CreateObject()
{
    if (m_pfnCreateObject == NULL)
        return NULL;
    try {
        return m_pfnCreateObject();
    } catch (CMemoryException* e) {
        e->Delete();
        return NULL;
    }
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCSTR lpszClassName)
{
    CRuntimeClass* pClass = FromName(lpszClassName);
    return pClass == NULL ? NULL : pClass->CreateObject();
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCWSTR lpszClassName)
{
    CRuntimeClass* pClass = FromName(lpszClassName);
    return pClass == NULL ? NULL : pClass->CreateObject();
}

namespace
{

CRuntimeClass* FindClass(CRuntimeClass* pFirst, LPCSTR lpszClassName)
{
    while (pFirst != NULL && std::strcmp(pFirst->m_lpszClassName, lpszClassName) != 0)
        pFirst = pFirst->m_pNextClass;
    return pFirst;
}

void RemoveClass(CRuntimeClass*& pFirst, const CRuntimeClass* pClass)
{
    CRuntimeClass** ppLink = &pFirst;
    while (*ppLink != NULL && *ppLink != pClass)
        ppLink = &(*ppLink)->m_pNextClass;
    if (*ppLink != NULL)
        *ppLink = pClass->m_pNextClass;
}

} // namespace

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCSTR lpszClassName)
{
    if (lpszClassName == NULL)
        return NULL;
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Shared);
    CRuntimeClass* pFound = FindClass(pState->m_pFirstClass, lpszClassName);
    for (CDynLinkLibrary* pDLL = pState->m_pFirstLibrary; pFound == NULL && pDLL != NULL;
         pDLL = pDLL->m_pNextDLL)
        pFound = FindClass(pDLL->m_pFirstSharedClass, lpszClassName);
    return pFound;
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCWSTR lpszClassName)
{
    return lpszClassName == NULL ? NULL : FromName(CStringA(lpszClassName).GetString());
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) : m_pClass(pNewClass)
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
    pNewClass->m_pNextClass = pState->m_pFirstClass;
    pState->m_pFirstClass = pNewClass;
}

AFX_CLASSINIT::~AFX_CLASSINIT()
{
    // A module that goes without AfxTermExtensionModule must not leave its classes in a list.
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    const AfxLock lock(pState->m_lock, AfxLock::Exclusive);
    RemoveClass(pState->m_pFirstClass, m_pClass);
    for (CDynLinkLibrary* pDLL = pState->m_pFirstLibrary; pDLL != NULL; pDLL = pDLL->m_pNextDLL)
        RemoveClass(pDLL->m_pFirstSharedClass, m_pClass);
}
