// CDlgProgressBar: a modeless dialog with a progress bar and a line of text.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "frame/Portability.h"

// The caller makes the dialog over its own window, shows it (ShowWindow), sets range and step, moves it on
// while it works, and destroys it (DestroyWindow, or with the object). It has neither buttons nor caption.
// Its template lies in this library under the number 300 and is found through MFC's chain of modules: a
// program with a dialog template of that number of its own gets its own one.
//
// The members that move the bar do nothing before CreateNonModal has succeeded.
class VELM_API CDlgProgressBar : public CDialog
{
public:
    // Makes the object; the dialog comes with CreateNonModal. `pParent` may be null.
    CDlgProgressBar(CWnd* pParent = nullptr);
    virtual ~CDlgProgressBar();

    // Makes the dialog, centred and not visible yet, with an empty line of text. FALSE on failure. Rests on
    // CDialog::Create.
    BOOL CreateNonModal(CWnd* pParent);

    // Range and step, of 16 bits each (PBM_SETRANGE, PBM_SETSTEP).
    void Set(short lower, short upper, short step);

    // Moves the bar to a position of its range (PBM_SETPOS).
    void SetPos(int pos);

    // Moves the bar on by the step; past the upper end it begins anew (PBM_STEPIT).
    void MoveNextStep();

    // Sets the line of text; null empties it. m_strStatus stays as it is.
    void SetStatusInfo(wchar_t* text);

    // The bar, attached by the data exchange, and what the data exchange puts into the line of text.
    CProgressCtrl m_ProgressCtrl;
    CString m_strStatus;

protected:
    // Attaches the bar and puts m_strStatus into the line of text.
    virtual void DoDataExchange(CDataExchange* pDX);

    DECLARE_MESSAGE_MAP()
};
