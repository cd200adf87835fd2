#include "frame/PtrLists.h"

namespace {

// FindIndex walks from the head, which would make emptying a long list from its tail quadratic.
POSITION PositionOf(const CPtrList& list, INT_PTR index)
{
    return index == list.GetCount() - 1 ? list.GetTailPosition() : list.FindIndex(index);
}

void DeleteElement(CPtrList& list, POSITION position)
{
    const INT_PTR before = list.GetCount();
    void* const element = list.GetAt(position);
    delete static_cast<CObject*>(element);
    // Where the destructor took elements out, the position may be gone with them.
    if (list.GetCount() != before)
        position = list.Find(element);
    if (position != nullptr)
        list.RemoveAt(position);
}

}

void ClearPtrList(CPtrList*& list)
{
    if (list == nullptr)
        return;
    for (INT_PTR i = list->GetCount() - 1; i >= 0; --i) {
        const POSITION position = PositionOf(*list, i);
        if (position == nullptr)
            AfxThrowInvalidArgException();
        DeleteElement(*list, position);
    }
    list->RemoveAll();
}

void DeletePtrList(CPtrList*& list)
{
    ClearPtrList(list);
    delete list;
    list = nullptr;
}

void DeletePtrListItem(CObject* item, CPtrList*& list, bool deleteItem)
{
    if (list == nullptr)
        return;
    const POSITION position = list->Find(item);
    if (position == nullptr)
        return;
    list->RemoveAt(position);
    if (deleteItem)
        delete item;
}
