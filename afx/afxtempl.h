// CArray and CList: the array and the linked list of any type.
#pragma once

#include "afx.h"

#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

// How elements are compared and copied; specialise them for types that need it.
template <class TYPE, class ARG_TYPE>
inline BOOL AFXAPI CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2)
{
    return *pElement1 == *pElement2;
}
template <class TYPE>
inline void AFXAPI CopyElements(TYPE* pDest, const TYPE* pSrc, INT_PTR nCount)
{
    while (nCount-- > 0)
        *pDest++ = *pSrc++;
}

// Types whose objects may be moved in memory byte by byte.
template <class TYPE>
struct AfxIsRelocatable : std::is_trivially_copyable<TYPE>
{
};
template <class Char, class Traits>
struct AfxIsRelocatable<CStringT<Char, Traits>> : std::true_type
{
};

// Memory that is fit for objects of the type. Throws CMemoryException.
template <class TYPE>
inline void* AfxAllocateAligned(size_t nBytes)
{
    void* p = NULL;
    if constexpr (alignof(TYPE) > alignof(std::max_align_t))
        p = ::operator new(nBytes, std::align_val_t(alignof(TYPE)), std::nothrow);
    else
        p = std::malloc(nBytes);
    if (p == NULL)
        AfxThrowMemoryException();
    return p;
}
template <class TYPE>
inline void AfxFreeAligned(void* p)
{
    if constexpr (alignof(TYPE) > alignof(std::max_align_t))
        ::operator delete(p, std::align_val_t(alignof(TYPE)));
    else
        std::free(p);
}

// An array that grows on demand. An index outside it, or a negative size or count, throws
// CInvalidArgException; missing memory CMemoryException. New elements that are not given a value are
// value-initialised. Arguments may refer to elements of the array itself.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() : m_pData(NULL), m_nSize(0), m_nMaxSize(0), m_nGrowBy(-1) {}
    virtual ~CArray() { FreeAll(); }

    // Attributes
    INT_PTR GetSize() const { return m_nSize; }
    INT_PTR GetCount() const { return m_nSize; }
    BOOL IsEmpty() const { return m_nSize == 0; }
    INT_PTR GetUpperBound() const { return m_nSize - 1; }
    // Sets the size: drops elements at the end or adds them there. nGrowBy, if not -1, is the least
    // number of elements by which the array grows when it must; at 0 and by default it doubles.
    // Size 0 frees the memory.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1)
    {
        ENSURE_ARG(nNewSize >= 0);
        if (nGrowBy >= 0)
            m_nGrowBy = nGrowBy;
        if (nNewSize == 0) {
            FreeAll();
            return;
        }
        if (nNewSize < m_nSize) {
            Destroy(nNewSize, m_nSize - nNewSize);
        } else if (nNewSize > m_nSize) {
            if (m_pData == NULL)
                Reallocate(nNewSize > m_nGrowBy ? nNewSize : m_nGrowBy);
            else
                Reserve(nNewSize);
            for (INT_PTR i = m_nSize; i < nNewSize; m_nSize = ++i)
                ::new (static_cast<void*>(m_pData + i)) TYPE();
        }
        m_nSize = nNewSize;
    }

    // Operations
    // Gives back memory that holds no elements.
    void FreeExtra()
    {
        if (m_nSize == 0)
            FreeAll();
        else if (m_nSize != m_nMaxSize)
            Reallocate(m_nSize);
    }
    void RemoveAll() { SetSize(0); }

    // Element access
    const TYPE& GetAt(INT_PTR nIndex) const { return Checked(nIndex); }
    TYPE& GetAt(INT_PTR nIndex) { return Checked(nIndex); }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { Checked(nIndex) = newElement; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return Checked(nIndex); }
    TYPE& ElementAt(INT_PTR nIndex) { return Checked(nIndex); }
    const TYPE& operator[](INT_PTR nIndex) const { return Checked(nIndex); }
    TYPE& operator[](INT_PTR nIndex) { return Checked(nIndex); }
    // The elements in a row, NULL if no memory is held; good until the array's size changes.
    const TYPE* GetData() const { return m_pData; }
    TYPE* GetData() { return m_pData; }

    // Growing
    // Sets the element, and first makes the array so large that it has it.
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement)
    {
        ENSURE_ARG(nIndex >= 0);
        if (nIndex < m_nSize) {
            m_pData[nIndex] = newElement;
        } else if (nIndex == m_nSize) {
            Add(newElement);
        } else {
            TYPE element(newElement);
            SetSize(nIndex + 1);
            m_pData[nIndex] = std::move(element);
        }
    }
    // Adds at the end; returns the index.
    INT_PTR Add(ARG_TYPE newElement)
    {
        if (m_nSize == m_nMaxSize)
            return AddMoved(TYPE(newElement));
        ::new (static_cast<void*>(m_pData + m_nSize)) TYPE(newElement);
        return m_nSize++;
    }
    // Adds all elements of the other array; returns the index of the first.
    INT_PTR Append(const CArray& src)
    {
        const INT_PTR nOldSize = m_nSize;
        const INT_PTR nCount = src.m_nSize;
        SetSize(nOldSize + nCount);
        CopyElements<TYPE>(m_pData + nOldSize, src.m_pData, nCount);
        return nOldSize;
    }
    // Becomes equal to the other array.
    void Copy(const CArray& src)
    {
        if (this == &src)
            return;
        SetSize(src.m_nSize);
        CopyElements<TYPE>(m_pData, src.m_pData, src.m_nSize);
    }

    // Insertion and removal
    // Inserts nCount copies, at least one. An index behind the end makes the array larger first.
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1)
    {
        ENSURE_ARG(nIndex >= 0 && nCount > 0);
        const TYPE element(newElement);
        const INT_PTR nOldSize = m_nSize;
        if (nIndex >= nOldSize) {
            SetSize(nIndex + nCount);
        } else {
            Reserve(nOldSize + nCount);
            RelocateUp(nIndex, nCount);
        }
        for (INT_PTR i = 0; i < nCount; ++i)
            m_pData[nIndex + i] = element;
    }
    // Inserts all elements of the other array, which may be this one.
    void InsertAt(INT_PTR nStartIndex, CArray* pNewArray)
    {
        ENSURE_ARG(pNewArray != NULL && nStartIndex >= 0);
        if (pNewArray == this) {
            CArray copy;
            copy.Copy(*this);
            InsertAt(nStartIndex, &copy);
            return;
        }
        const INT_PTR nCount = pNewArray->m_nSize;
        if (nCount == 0)
            return;
        if (nStartIndex >= m_nSize) {
            SetSize(nStartIndex + nCount);
        } else {
            Reserve(m_nSize + nCount);
            RelocateUp(nStartIndex, nCount);
        }
        CopyElements<TYPE>(m_pData + nStartIndex, pNewArray->m_pData, nCount);
    }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1)
    {
        ENSURE_ARG(nIndex >= 0 && nCount >= 0 && nIndex <= m_nSize && nCount <= m_nSize - nIndex);
        if (nCount == 0)
            return;
        if constexpr (AfxIsRelocatable<TYPE>::value) {
            Destroy(nIndex, nCount);
            RelocateElements(m_pData + nIndex, m_pData + nIndex + nCount, m_nSize - nIndex - nCount);
        } else {
            for (INT_PTR i = nIndex; i < m_nSize - nCount; ++i)
                m_pData[i] = std::move(m_pData[i + nCount]);
            Destroy(m_nSize - nCount, nCount);
        }
        m_nSize -= nCount;
    }

    // Moves elements to new memory, and ends their life in the old one.
    static void RelocateElements(TYPE* pNewData, const TYPE* pData, INT_PTR nCount)
    {
        if constexpr (AfxIsRelocatable<TYPE>::value) {
            if (nCount > 0)
                std::memmove(static_cast<void*>(pNewData), static_cast<const void*>(pData),
                             nCount * sizeof(TYPE));
        } else {
            TYPE* pOld = const_cast<TYPE*>(pData);
            for (INT_PTR i = 0; i < nCount; ++i) {
                ::new (static_cast<void*>(pNewData + i)) TYPE(std::move(pOld[i]));
                std::destroy_at(pOld + i);
            }
        }
    }

    // Implementation
protected:
    TYPE* m_pData;
    INT_PTR m_nSize;
    INT_PTR m_nMaxSize; // elements there is memory for
    INT_PTR m_nGrowBy;

    // element is not one of this array.
    INT_PTR AddMoved(TYPE&& element)
    {
        Reserve(m_nSize + 1);
        ::new (static_cast<void*>(m_pData + m_nSize)) TYPE(std::move(element));
        return m_nSize++;
    }

private:
    TYPE& Checked(INT_PTR nIndex) const
    {
        if (size_t(nIndex) >= size_t(m_nSize))
            AfxThrowInvalidArgException();
        return m_pData[nIndex];
    }
    void Destroy(INT_PTR nIndex, INT_PTR nCount) { std::destroy_n(m_pData + nIndex, nCount); }
    void FreeAll()
    {
        Destroy(0, m_nSize);
        AfxFreeAligned<TYPE>(m_pData);
        m_pData = NULL;
        m_nSize = m_nMaxSize = 0;
    }
    void Reserve(INT_PTR nNeeded)
    {
        if (nNeeded <= m_nMaxSize)
            return;
        INT_PTR nGrowBy = m_nGrowBy;
        if (nGrowBy <= 0)
            nGrowBy = m_nSize < 4 ? 4 : m_nSize;
        Reallocate(nNeeded > m_nMaxSize + nGrowBy ? nNeeded : m_nMaxSize + nGrowBy);
    }
    void Reallocate(INT_PTR nMaxSize)
    {
        if (size_t(nMaxSize) > size_t(PTRDIFF_MAX) / sizeof(TYPE))
            AfxThrowMemoryException();
        const size_t nBytes = size_t(nMaxSize) * sizeof(TYPE);
        if constexpr (AfxIsRelocatable<TYPE>::value && alignof(TYPE) <= alignof(std::max_align_t)) {
            void* pNew = std::realloc(static_cast<void*>(m_pData), nBytes);
            if (pNew == NULL)
                AfxThrowMemoryException();
            m_pData = static_cast<TYPE*>(pNew);
        } else {
            TYPE* pNew = static_cast<TYPE*>(AfxAllocateAligned<TYPE>(nBytes));
            RelocateElements(pNew, m_pData, m_nSize);
            AfxFreeAligned<TYPE>(m_pData);
            m_pData = pNew;
        }
        m_nMaxSize = nMaxSize;
    }
    // Opens a gap of nCount value-initialised elements before nIndex; there is room for them.
    void RelocateUp(INT_PTR nIndex, INT_PTR nCount)
    {
        if constexpr (AfxIsRelocatable<TYPE>::value) {
            RelocateElements(m_pData + nIndex + nCount, m_pData + nIndex, m_nSize - nIndex);
            for (INT_PTR i = nIndex; i < nIndex + nCount; ++i)
                ::new (static_cast<void*>(m_pData + i)) TYPE();
            m_nSize += nCount;
        } else {
            const INT_PTR nOldSize = m_nSize;
            SetSize(nOldSize + nCount);
            for (INT_PTR i = nOldSize; i-- > nIndex;)
                m_pData[i + nCount] = std::move(m_pData[i]);
        }
    }
};

// A doubly linked list; positions stay good until their element is removed. Members that need an
// element throw CInvalidArgException when there is none or the position is NULL; a position that is
// not of this list must not be given. Nodes come from blocks of nBlockSize, which are freed when the
// list becomes empty.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject
{
public:
    explicit CList(INT_PTR nBlockSize = 10) : m_nBlockSize(nBlockSize < 1 ? 1 : nBlockSize) {}
    virtual ~CList() { RemoveAll(); }

    // Attributes
    INT_PTR GetCount() const { return m_nCount; }
    INT_PTR GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }
    TYPE& GetHead() { return Need(m_pNodeHead)->data; }
    const TYPE& GetHead() const { return Need(m_pNodeHead)->data; }
    TYPE& GetTail() { return Need(m_pNodeTail)->data; }
    const TYPE& GetTail() const { return Need(m_pNodeTail)->data; }

    // Operations
    TYPE RemoveHead() { return Take(Need(m_pNodeHead)); }
    TYPE RemoveTail() { return Take(Need(m_pNodeTail)); }
    POSITION AddHead(ARG_TYPE newElement) { return Link(NULL, newElement, m_pNodeHead); }
    POSITION AddTail(ARG_TYPE newElement) { return Link(m_pNodeTail, newElement, NULL); }
    // All elements of the other list, in their order, which stays as it is.
    void AddHead(CList* pNewList)
    {
        ENSURE_ARG(pNewList != NULL);
        CNode* pLast = pNewList->m_pNodeTail;
        for (INT_PTR n = pNewList->m_nCount; n > 0; --n, pLast = pLast->pPrev)
            AddCopy(NULL, pLast->data, m_pNodeHead);
    }
    void AddTail(CList* pNewList)
    {
        ENSURE_ARG(pNewList != NULL);
        CNode* pFirst = pNewList->m_pNodeHead;
        for (INT_PTR n = pNewList->m_nCount; n > 0; --n, pFirst = pFirst->pNext)
            AddCopy(m_pNodeTail, pFirst->data, NULL);
    }
    void RemoveAll()
    {
        for (CNode* pNode = m_pNodeHead; pNode != NULL; pNode = pNode->pNext)
            std::destroy_at(&pNode->data);
        m_pNodeHead = m_pNodeTail = m_pNodeFree = NULL;
        m_nCount = 0;
        while (m_pBlocks != NULL) {
            CBlock* pNext = m_pBlocks->pNext;
            AfxFreeAligned<CNode>(m_pBlocks);
            m_pBlocks = pNext;
        }
    }

    // Iteration
    POSITION GetHeadPosition() const { return Position(m_pNodeHead); }
    POSITION GetTailPosition() const { return Position(m_pNodeTail); }
    // The element at the position, which then stands at the next (the one before); NULL behind the end.
    TYPE& GetNext(POSITION& rPosition) { return Step(rPosition, &CNode::pNext); }
    const TYPE& GetNext(POSITION& rPosition) const { return Step(rPosition, &CNode::pNext); }
    TYPE& GetPrev(POSITION& rPosition) { return Step(rPosition, &CNode::pPrev); }
    const TYPE& GetPrev(POSITION& rPosition) const { return Step(rPosition, &CNode::pPrev); }

    // Access by position
    TYPE& GetAt(POSITION position) { return Node(position)->data; }
    const TYPE& GetAt(POSITION position) const { return Node(position)->data; }
    void SetAt(POSITION pos, ARG_TYPE newElement) { Node(pos)->data = newElement; }
    void RemoveAt(POSITION position) { Unlink(Node(position)); }
    // At NULL: InsertBefore adds at the head, InsertAfter at the tail.
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement)
    {
        if (position == NULL)
            return AddHead(newElement);
        CNode* pNode = Node(position);
        return Link(pNode->pPrev, newElement, pNode);
    }
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement)
    {
        if (position == NULL)
            return AddTail(newElement);
        CNode* pNode = Node(position);
        return Link(pNode, newElement, pNode->pNext);
    }

    // Search
    // The first equal element after startAfter (NULL: from the head), or NULL.
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = NULL) const
    {
        CNode* pNode = startAfter == NULL ? m_pNodeHead : Node(startAfter)->pNext;
        while (pNode != NULL && !CompareElements(&pNode->data, std::addressof(searchValue)))
            pNode = pNode->pNext;
        return Position(pNode);
    }
    // The element number nIndex from 0, or NULL if there is none.
    POSITION FindIndex(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= m_nCount)
            return NULL;
        CNode* pNode = m_pNodeHead;
        while (nIndex-- > 0)
            pNode = pNode->pNext;
        return Position(pNode);
    }

    // Implementation
private:
    struct CNode
    {
        CNode* pNext;
        CNode* pPrev;
        TYPE data;
    };
    // The head of a block of nodes, in the room of one.
    struct CBlock
    {
        CBlock* pNext;
    };

    CNode* m_pNodeHead = NULL;
    CNode* m_pNodeTail = NULL;
    CNode* m_pNodeFree = NULL;
    INT_PTR m_nCount = 0;
    CBlock* m_pBlocks = NULL;
    INT_PTR m_nBlockSize;

    static POSITION Position(CNode* pNode) { return reinterpret_cast<POSITION>(pNode); }
    static CNode* Node(POSITION position) { return Need(reinterpret_cast<CNode*>(position)); }
    static CNode* Need(CNode* pNode)
    {
        ENSURE(pNode != NULL);
        return pNode;
    }
    static TYPE& Step(POSITION& rPosition, CNode* CNode::*pLink)
    {
        CNode* pNode = Node(rPosition);
        rPosition = Position(pNode->*pLink);
        return pNode->data;
    }
    CNode* FreeNode()
    {
        if (m_pNodeFree == NULL) {
            const size_t nBytes = (size_t(m_nBlockSize) + 1) * sizeof(CNode);
            void* pMemory = AfxAllocateAligned<CNode>(nBytes);
            m_pBlocks = ::new (pMemory) CBlock{m_pBlocks};
            CNode* pNodes = static_cast<CNode*>(pMemory) + 1;
            for (INT_PTR i = m_nBlockSize; i-- > 0;) {
                pNodes[i].pNext = m_pNodeFree;
                m_pNodeFree = &pNodes[i];
            }
        }
        return m_pNodeFree;
    }
    template <class VALUE>
    POSITION Insert(CNode* pPrev, VALUE& value, CNode* pNext)
    {
        CNode* pNode = FreeNode();
        CNode* pNextFree = pNode->pNext;
        ::new (static_cast<void*>(std::addressof(pNode->data))) TYPE(value);
        m_pNodeFree = pNextFree;
        pNode->pPrev = pPrev;
        pNode->pNext = pNext;
        (pPrev != NULL ? pPrev->pNext : m_pNodeHead) = pNode;
        (pNext != NULL ? pNext->pPrev : m_pNodeTail) = pNode;
        ++m_nCount;
        return Position(pNode);
    }
    POSITION Link(CNode* pPrev, ARG_TYPE newElement, CNode* pNext)
    {
        return Insert(pPrev, newElement, pNext);
    }
    POSITION AddCopy(CNode* pPrev, const TYPE& value, CNode* pNext) { return Insert(pPrev, value, pNext); }
    void Unlink(CNode* pNode)
    {
        (pNode->pPrev != NULL ? pNode->pPrev->pNext : m_pNodeHead) = pNode->pNext;
        (pNode->pNext != NULL ? pNode->pNext->pPrev : m_pNodeTail) = pNode->pPrev;
        std::destroy_at(std::addressof(pNode->data));
        pNode->pNext = m_pNodeFree;
        m_pNodeFree = pNode;
        if (--m_nCount == 0)
            RemoveAll();
    }
    TYPE Take(CNode* pNode)
    {
        TYPE value(std::move(pNode->data));
        Unlink(pNode);
        return value;
    }
};
