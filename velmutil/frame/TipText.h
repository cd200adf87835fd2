// Texts of tips.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

// Copies a text into the fixed buffer of a tip's notification, which has room for 79 characters and the final
// zero; what is longer is cut. For TTN_NEEDTEXTA it is converted to the thread's code page; with any other
// code the notification must have the wide form of TTN_NEEDTEXTW. Rests on lstrcpynW and WideCharToMultiByte.
void PutTipText(NMHDR* notification, const CString& text);
