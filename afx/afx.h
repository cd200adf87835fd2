// The base of the room: run-time class information, CObject, the exceptions, files, extension modules.
#pragma once

#include "afxver_.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

class CObject;
class CException;
class CFileException;

#include "afxstr.h"

// What is known of a class at run time. IMPLEMENT_DYNAMIC and IMPLEMENT_DYNCREATE define one such
// record for each class and register it in the list of the module that holds it.
struct CRuntimeClass
{
    // Attributes
    LPCSTR m_lpszClassName;
    int m_nObjectSize;                           // bytes
    UINT m_wSchema;                              // 0xFFFF for classes that cannot be serialised
    CObject*(PASCAL* m_pfnCreateObject)();       // NULL: not dynamically creatable
    CRuntimeClass*(PASCAL* m_pfnGetBaseClass)(); // NULL for CObject
    mutable CRuntimeClass* m_pNextClass;         // next class of the same module

    // Operations
    // Makes an object of the class with its default constructor, on the heap; the caller deletes it.
    // NULL if the class is not dynamically creatable or memory is short. Exceptions of the
    // constructor other than CMemoryException pass.
    AFX_CORE_API CObject* CreateObject();

    // The same for the class of the given name; NULL also if no such class is registered.
    AFX_CORE_API static CObject* PASCAL CreateObject(LPCSTR lpszClassName);
    AFX_CORE_API static CObject* PASCAL CreateObject(LPCWSTR lpszClassName);

    // The class of exactly that name, looked for in the program and then in the extension modules of
    // the chain, the newest first. NULL if there is none, or the name is NULL.
    AFX_CORE_API static CRuntimeClass* PASCAL FromName(LPCSTR lpszClassName);
    AFX_CORE_API static CRuntimeClass* PASCAL FromName(LPCWSTR lpszClassName);

    // TRUE if the class is pBaseClass or derives from it. FALSE for NULL.
    AFX_CORE_API BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

// Registers a class for as long as it exists; the macros below define one for each class.
struct AFX_CORE_API AFX_CLASSINIT
{
    explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_pClass;
};

// The root of MFC's classes.
class AFX_CORE_API CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = 0;

    // Memory comes from the C run-time's heap. Throws CMemoryException when there is none left.
    void* PASCAL operator new(size_t nSize);
    void* PASCAL operator new(size_t, void* p) { return p; }
    void* PASCAL operator new(size_t nSize, LPCSTR lpszFileName, int nLine);
    void PASCAL operator delete(void* p);
    void PASCAL operator delete(void*, void*) {}
    void PASCAL operator delete(void* p, LPCSTR lpszFileName, int nLine);

protected:
    CObject() {}

private:
    CObject(const CObject& objectSrc) = delete;
    void operator=(const CObject& objectSrc) = delete;

    // Attributes
public:
    // TRUE if the object is of the class pClass or of one derived from it, in whichever module.
    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    // Checks the object's inner consistency; what ASSERT_VALID calls.
    virtual void AssertValid() const;

    // Implementation
public:
    static const CRuntimeClass classCObject;
    static CRuntimeClass* PASCAL GetThisClass();
};

AFX_CORE_API void AFXAPI AfxAssertValidObject(const CObject* pOb, LPCSTR lpszFileName, int nLine);

#ifdef _DEBUG
#define ASSERT_VALID(pOb) (::AfxAssertValidObject(pOb, __FILE__, __LINE__))
#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
#else
#define ASSERT_VALID(pOb) ((void)0)
#define ASSERT_KINDOF(class_name, object) ((void)0)
#endif

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                          \
protected:                                                                                                   \
    static CRuntimeClass* PASCAL _GetBaseClass();                                                            \
                                                                                                             \
public:                                                                                                      \
    static const CRuntimeClass class##class_name;                                                            \
    static CRuntimeClass* PASCAL GetThisClass();                                                             \
    virtual CRuntimeClass* GetRuntimeClass() const;

#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
    static CObject* PASCAL CreateObject();

#define AFX_IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, pfnNew)                                     \
    CRuntimeClass* PASCAL class_name::_GetBaseClass()                                                        \
    {                                                                                                        \
        return RUNTIME_CLASS(base_class_name);                                                               \
    }                                                                                                        \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class class_name),   0xFFFF,    \
                                                         pfnNew,      &class_name::_GetBaseClass, NULL};     \
    CRuntimeClass* PASCAL class_name::GetThisClass()                                                         \
    {                                                                                                        \
        return const_cast<CRuntimeClass*>(&class_name::class##class_name);                                   \
    }                                                                                                        \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                       \
    {                                                                                                        \
        return GetThisClass();                                                                               \
    }                                                                                                        \
    static const AFX_CLASSINIT afxClassInit##class_name(class_name::GetThisClass());

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    AFX_IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, NULL)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* PASCAL class_name::CreateObject()                                                               \
    {                                                                                                        \
        return new class_name;                                                                               \
    }                                                                                                        \
    AFX_IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, &class_name::CreateObject)

// The object as a pointer to class_name, or NULL if it is not of that class.
AFX_CORE_API CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);
#define DYNAMIC_DOWNCAST(class_name, object)                                                                 \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))

#include "afxexcept_.h"
#include "afxdll_.h"
#include "afxfile_.h"
