// The gallery's window.
#pragma once

#include <string>

#include "TaskList.h"

class CGalleryFrame : public CFrameWnd
{
public:
    // With the name of a file: the window shows itself with a drop-down open, saves its picture there and
    // closes. Nothing moves then.
    explicit CGalleryFrame(std::wstring pictureFile);

    // Whether a picture was wanted and could not be saved.
    bool HasFailed() const { return m_hasFailed; }

protected:
    afx_msg int OnCreate(LPCREATESTRUCT createStruct);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnTimer(UINT_PTR timer);
    afx_msg void OnSetFocus(CWnd* oldWindow);
    afx_msg LRESULT OnCheckboxClicked(WPARAM row, LPARAM column);
    afx_msg LRESULT OnComboSelection(WPARAM row, LPARAM column);

    DECLARE_MESSAGE_MAP()

private:
    void Tell(const CString& text);
    void PressDropDown();
    void SavePicture();

    CTaskList m_tasks;
    CXListCtrl m_empty;
    CStatic m_status;
    std::wstring m_pictureFile;
    bool m_hasFailed = false;
};
