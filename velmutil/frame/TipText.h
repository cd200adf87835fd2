// Texts of tips.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

// Copies a text into the fixed buffer of a TTN_NEEDTEXTW or TTN_NEEDTEXTA notification, which has room for 79
// characters and the final zero; what is longer is cut. For the latter it is converted to the thread's code
// page. Rests on lstrcpynW and WideCharToMultiByte.
void PutTipText(NMHDR* notification, const CString& text);
