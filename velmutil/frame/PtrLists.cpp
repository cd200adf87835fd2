#include "frame/PtrLists.h"

namespace
{

// FindIndex walks from the head, which would make emptying a long list from its tail quadratic.
POSITION PositionOf(const CPtrList& list, INT_PTR index)
{
    return index == list.GetCount() - 1 ? list.GetTailPosition() : list.FindIndex(index);
}

// From the tail, where an element that is being cleared stands.
POSITION LastPositionOf(const CPtrList& list, const void* element)
{
    for (POSITION next = list.GetTailPosition(); next != nullptr;) {
        const POSITION position = next;
        if (list.GetPrev(next) == element)
            return position;
    }
    return nullptr;
}

void DeleteElement(CPtrList& list, POSITION position)
{
    void* const element = list.GetAt(position);
    delete static_cast<CObject*>(element);
    // A destructor may have taken the element out, and put another where it was: the position is not
    // used any more.
    const POSITION remaining = LastPositionOf(list, element);
    if (remaining != nullptr)
        list.RemoveAt(remaining);
}

} // namespace

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
