// The collections of fixed type: CStringArray, CPtrArray, CPtrList, CObList.
#pragma once

#include "afxtempl.h"

// An array of CString. All members as CArray documents them; a null pointer counts as an empty text.
class AFX_CORE_API CStringArray : public CObject
{
    DECLARE_DYNAMIC(CStringArray)

public:
    CStringArray() {}
    virtual ~CStringArray();

    // Attributes
    INT_PTR GetSize() const { return m_strings.GetSize(); }
    INT_PTR GetCount() const { return m_strings.GetCount(); }
    BOOL IsEmpty() const { return m_strings.IsEmpty(); }
    INT_PTR GetUpperBound() const { return m_strings.GetUpperBound(); }
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) { m_strings.SetSize(nNewSize, nGrowBy); }

    // Operations
    void FreeExtra() { m_strings.FreeExtra(); }
    void RemoveAll() { m_strings.RemoveAll(); }
    const CString& GetAt(INT_PTR nIndex) const { return m_strings.GetAt(nIndex); }
    void SetAt(INT_PTR nIndex, LPCTSTR newElement) { m_strings.ElementAt(nIndex) = newElement; }
    void SetAt(INT_PTR nIndex, const CString& newElement) { m_strings.SetAt(nIndex, newElement); }
    CString& ElementAt(INT_PTR nIndex) { return m_strings.ElementAt(nIndex); }
    const CString* GetData() const { return m_strings.GetData(); }
    CString* GetData() { return m_strings.GetData(); }
    void SetAtGrow(INT_PTR nIndex, LPCTSTR newElement) { m_strings.SetAtGrow(nIndex, Text(newElement)); }
    void SetAtGrow(INT_PTR nIndex, const CString& newElement) { m_strings.SetAtGrow(nIndex, newElement); }
    INT_PTR Add(LPCTSTR newElement) { return m_strings.AddMoved(Text(newElement)); }
    INT_PTR Add(const CString& newElement) { return m_strings.Add(newElement); }
    INT_PTR Append(const CStringArray& src) { return m_strings.Append(src.m_strings); }
    void Copy(const CStringArray& src) { m_strings.Copy(src.m_strings); }
    const CString& operator[](INT_PTR nIndex) const { return m_strings[nIndex]; }
    CString& operator[](INT_PTR nIndex) { return m_strings[nIndex]; }
    void InsertAt(INT_PTR nIndex, LPCTSTR newElement, INT_PTR nCount = 1)
    {
        m_strings.InsertAt(nIndex, Text(newElement), nCount);
    }
    void InsertAt(INT_PTR nIndex, const CString& newElement, INT_PTR nCount = 1)
    {
        m_strings.InsertAt(nIndex, newElement, nCount);
    }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) { m_strings.RemoveAt(nIndex, nCount); }
    void InsertAt(INT_PTR nStartIndex, CStringArray* pNewArray)
    {
        ENSURE_ARG(pNewArray != NULL);
        m_strings.InsertAt(nStartIndex, &pNewArray->m_strings);
    }

    // Implementation
private:
    // By assignment: in the constructor a small number would mean a resource.
    static CString Text(LPCTSTR psz)
    {
        CString str;
        str = psz;
        return str;
    }

    struct CStrings : CArray<CString, const CString&>
    {
        using CArray::AddMoved;
    };
    CStrings m_strings;
};

// An array of pointers, which it does not own. All members as CArray documents them.
class AFX_CORE_API CPtrArray : public CObject
{
    DECLARE_DYNAMIC(CPtrArray)

public:
    CPtrArray() {}
    virtual ~CPtrArray();

    // Attributes
    INT_PTR GetSize() const { return m_pointers.GetSize(); }
    INT_PTR GetCount() const { return m_pointers.GetCount(); }
    BOOL IsEmpty() const { return m_pointers.IsEmpty(); }
    INT_PTR GetUpperBound() const { return m_pointers.GetUpperBound(); }
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) { m_pointers.SetSize(nNewSize, nGrowBy); }

    // Operations
    void FreeExtra() { m_pointers.FreeExtra(); }
    void RemoveAll() { m_pointers.RemoveAll(); }
    void* GetAt(INT_PTR nIndex) const { return m_pointers.GetAt(nIndex); }
    void SetAt(INT_PTR nIndex, void* newElement) { m_pointers.SetAt(nIndex, newElement); }
    void*& ElementAt(INT_PTR nIndex) { return m_pointers.ElementAt(nIndex); }
    const void** GetData() const
    {
        return const_cast<const void**>(const_cast<void**>(m_pointers.GetData()));
    }
    void** GetData() { return m_pointers.GetData(); }
    void SetAtGrow(INT_PTR nIndex, void* newElement) { m_pointers.SetAtGrow(nIndex, newElement); }
    INT_PTR Add(void* newElement) { return m_pointers.Add(newElement); }
    INT_PTR Append(const CPtrArray& src) { return m_pointers.Append(src.m_pointers); }
    void Copy(const CPtrArray& src) { m_pointers.Copy(src.m_pointers); }
    void* operator[](INT_PTR nIndex) const { return m_pointers[nIndex]; }
    void*& operator[](INT_PTR nIndex) { return m_pointers[nIndex]; }
    void InsertAt(INT_PTR nIndex, void* newElement, INT_PTR nCount = 1)
    {
        m_pointers.InsertAt(nIndex, newElement, nCount);
    }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) { m_pointers.RemoveAt(nIndex, nCount); }
    void InsertAt(INT_PTR nStartIndex, CPtrArray* pNewArray)
    {
        ENSURE_ARG(pNewArray != NULL);
        m_pointers.InsertAt(nStartIndex, &pNewArray->m_pointers);
    }

    // Implementation
private:
    CArray<void*, void*> m_pointers;
};

// Lists of pointers, which they do not own. All members as CList documents them.
#define AFX_POINTER_LIST_(class_name, Type)                                                                  \
    class AFX_CORE_API class_name : public CObject                                                           \
    {                                                                                                        \
        DECLARE_DYNAMIC(class_name)                                                                          \
    public:                                                                                                  \
        explicit class_name(INT_PTR nBlockSize = 10) : m_list(nBlockSize) {}                                 \
        virtual ~class_name();                                                                               \
        INT_PTR GetCount() const { return m_list.GetCount(); }                                               \
        INT_PTR GetSize() const { return m_list.GetSize(); }                                                 \
        BOOL IsEmpty() const { return m_list.IsEmpty(); }                                                    \
        Type*& GetHead() { return m_list.GetHead(); }                                                        \
        const Type* GetHead() const { return m_list.GetHead(); }                                             \
        Type*& GetTail() { return m_list.GetTail(); }                                                        \
        const Type* GetTail() const { return m_list.GetTail(); }                                             \
        Type* RemoveHead() { return m_list.RemoveHead(); }                                                   \
        Type* RemoveTail() { return m_list.RemoveTail(); }                                                   \
        POSITION AddHead(Type* newElement) { return m_list.AddHead(newElement); }                            \
        POSITION AddTail(Type* newElement) { return m_list.AddTail(newElement); }                            \
        void AddHead(class_name* pNewList)                                                                   \
        {                                                                                                    \
            ENSURE_ARG(pNewList != NULL);                                                                    \
            m_list.AddHead(&pNewList->m_list);                                                               \
        }                                                                                                    \
        void AddTail(class_name* pNewList)                                                                   \
        {                                                                                                    \
            ENSURE_ARG(pNewList != NULL);                                                                    \
            m_list.AddTail(&pNewList->m_list);                                                               \
        }                                                                                                    \
        void RemoveAll() { m_list.RemoveAll(); }                                                             \
        POSITION GetHeadPosition() const { return m_list.GetHeadPosition(); }                                \
        POSITION GetTailPosition() const { return m_list.GetTailPosition(); }                                \
        Type*& GetNext(POSITION& rPosition) { return m_list.GetNext(rPosition); }                            \
        const Type* GetNext(POSITION& rPosition) const { return m_list.GetNext(rPosition); }                 \
        Type*& GetPrev(POSITION& rPosition) { return m_list.GetPrev(rPosition); }                            \
        const Type* GetPrev(POSITION& rPosition) const { return m_list.GetPrev(rPosition); }                 \
        Type*& GetAt(POSITION position) { return m_list.GetAt(position); }                                   \
        const Type* GetAt(POSITION position) const { return m_list.GetAt(position); }                        \
        void SetAt(POSITION pos, Type* newElement) { m_list.SetAt(pos, newElement); }                        \
        void RemoveAt(POSITION position) { m_list.RemoveAt(position); }                                      \
        POSITION InsertBefore(POSITION position, Type* newElement)                                           \
        {                                                                                                    \
            return m_list.InsertBefore(position, newElement);                                                \
        }                                                                                                    \
        POSITION InsertAfter(POSITION position, Type* newElement)                                            \
        {                                                                                                    \
            return m_list.InsertAfter(position, newElement);                                                 \
        }                                                                                                    \
        POSITION Find(Type* searchValue, POSITION startAfter = NULL) const                                   \
        {                                                                                                    \
            return m_list.Find(searchValue, startAfter);                                                     \
        }                                                                                                    \
        POSITION FindIndex(INT_PTR nIndex) const { return m_list.FindIndex(nIndex); }                        \
                                                                                                             \
    private:                                                                                                 \
        CList<Type*, Type*> m_list;                                                                          \
    };

AFX_POINTER_LIST_(CPtrList, void)
AFX_POINTER_LIST_(CObList, CObject)
#undef AFX_POINTER_LIST_
