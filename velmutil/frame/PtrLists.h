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
// A destructor still finds its own element in the list; it may take it out, and may put others in. The
// elements are gone through by their index, from that of the last at the start down to 0; whatever stands
// elsewhere in the end, such as an element that a destructor appended, is taken out without being deleted.
// If a destructor takes so many others out that there is no element of the next index any more,
// CInvalidArgException* is thrown; what is in the list then stays there.
//
// Takes time in proportion to the number of elements, as long as the destructors leave the list alone.
VELM_API void ClearPtrList(CPtrList*& list);

// As ClearPtrList, then deletes the list object, too, and sets the caller's pointer to null. When
// ClearPtrList throws, list object and pointer stay as well.
VELM_API void DeletePtrList(CPtrList*& list);

// Takes the first element that is `item` out of the list, and deletes `item` if `deleteItem` is true.
// An item that is not in the list is left alone and never deleted. A null item takes the first null
// element out.
VELM_API void DeletePtrListItem(CObject* item, CPtrList*& list, bool deleteItem);
