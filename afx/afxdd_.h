// Dialog data exchange: each function moves one value between a control and a member, in the
// direction that pDX says. They throw CNotSupportedException* when the control is missing; those that
// read a number tell the user and refuse (CDataExchange::Fail) what is none.
#pragma once

#include "win/dialog.h"

// Subclasses the control for rControl, once.
AFX_CORE_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// The text of a control, as it is or as a number.
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);

// State of a check box: 0, 1, or 2 for neither. A value out of range is written as 0.
AFX_CORE_API void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// The chosen radio button of the group that begins with nIDC, from 0; -1 for none.
AFX_CORE_API void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);

// The chosen item of a list box or combo box, as its index (-1 for none) or its text. Texts are
// chosen by their beginning, exactly by the Exact forms; a text that is not in the list leaves a
// list box as it is and is put in a combo box's edit control.
AFX_CORE_API void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_CORE_API void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_API void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_API void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_CORE_API void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_API void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value);
// The position of a scroll bar control.
AFX_CORE_API void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value);
