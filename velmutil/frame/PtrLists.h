// Emptying and deleting lists of owned objects.
//
// The elements of these lists are pointers to objects derived from CObject, made with new and put into
// the list as CObject*; a null element is allowed. "Deleting" an object means delete, with its virtual
// destructor. A null list pointer is no error: nothing happens.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "frame/Portability.h"

// Deletes every object of the list, from the last element to the first, and takes its element out
// after that. The list object stays, empty.
//
// A destructor may take its own element out of the list. If it takes others out, so that an element
// which was there at the start is not found at its position any more, CInvalidArgException* is thrown;
// objects not yet deleted then stay in the list.
VELM_API void ClearPtrList(CPtrList*& list);

// As ClearPtrList, then deletes the list object, too, and sets the caller's pointer to null.
VELM_API void DeletePtrList(CPtrList*& list);

// Takes the first element that is `item` out of the list, and deletes `item` if `deleteItem` is true.
// An item that is not in the list is left alone and never deleted. A null item takes the first null
// element out.
VELM_API void DeletePtrListItem(CObject* item, CPtrList*& list, bool deleteItem);
