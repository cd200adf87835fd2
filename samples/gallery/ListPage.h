// The page with a list at work: tasks, and an archive that is empty.
#pragma once

#include "GalleryPage.h"
#include "TaskList.h"

class CListPage : public CGalleryPage
{
public:
    LPCTSTR Name() const override { return L"list"; }
    LPCTSTR Title() const override { return L"List"; }
    LPCTSTR Hint() const override
    {
        return L"Click a check box, open a priority, or rest the mouse on a task.";
    }
    CWnd& FirstControl() override { return m_tasks; }
    void OnShown() override;
    void OnHidden() override;

    CSize PictureSize() const override { return CSize(960, 500); }
    void Pose(const std::wstring& name) override;

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

    afx_msg void OnTimer(UINT_PTR timer);
    afx_msg LRESULT OnCheckboxClicked(WPARAM row, LPARAM column);
    afx_msg LRESULT OnComboSelection(WPARAM row, LPARAM column);

    DECLARE_MESSAGE_MAP()

private:
    CTaskList m_tasks;
    CXListCtrl m_empty;
};
