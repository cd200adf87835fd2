// Copying texts between arrays, lists, list boxes and combo boxes.
//
// The boxes must be attached to windows of the calling thread. Texts go to a box up to their first
// embedded zero, as its messages take them. A box with a sort style puts its entries where it sorts
// them. What a box refuses for lack of space is left out without a report. Where memory for a text or for an
// element runs out, CMemoryException* or std::bad_alloc is thrown; what was added before stays.
#pragma once

#include <list>

#include <afxwin.h>
#include <afxcoll.h>

#include "frame/Portability.h"

// Adds every text of `items`, in array order, to the entries that `box` has, then selects the first
// entry of the box. With no entries at all nothing is selected. Rests on CB_ADDSTRING, CB_SETCURSEL.
VELM_API void FillComboBox(CStringArray& items, CComboBox& box);

// The same for a list box. Rests on LB_ADDSTRING and LB_SETCURSEL; a list box with multiple selection
// knows no selected entry and refuses the latter.
VELM_API void FillListBox(CStringArray& items, CListBox& box);

// As FillListBox, but each text is split at every comma first and its pieces are added; empty pieces
// are skipped. `items` is not changed.
VELM_API void FillListBox1(CStringArray& items, CListBox& box);

// Adds the text of every line of `box`, from the first, to the end of `items`. The count is asked anew
// after each line. Rests on LB_GETCOUNT, LB_GETTEXTLEN and LB_GETTEXT.
VELM_API void FillStringArray(CListBox& box, CStringArray& items);

// Adds every text of `items` to the end of `list`. Throws std::length_error ("list too long") when the
// list holds as many as it can; what was added before stays.
VELM_API void FillStringList(CStringArray& items, std::list<CString>& list);
