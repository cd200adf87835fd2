#include "../afx.h"

#include <new>

AFX_NILSTRING afxNilString = {{{CStringData::Nil}, 0, 0, 0}, {0, 0, 0, 0}};

CStringData* AFXAPI AfxReallocStringData(CStringData* pOld, size_t nBytes)
{
    void* pBlock = std::realloc(static_cast<void*>(pOld), sizeof(CStringData) + nBytes);
    if (pBlock == NULL)
        AfxThrowMemoryException();
    if (pOld != NULL)
        return static_cast<CStringData*>(pBlock);
    CStringData* pData = ::new (pBlock) CStringData{{1}, 0, 0, 0};
    *static_cast<wchar_t*>(pData->data()) = 0;
    return pData;
}

void AFXAPI AfxFreeStringData(CStringData* pData) noexcept
{
    std::free(static_cast<void*>(pData));
}
