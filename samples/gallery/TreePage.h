// The page with a tree that owns what hangs on its items.
#pragma once

#include "SplitPage.h"

class CTreePage : public CSplitPage
{
public:
    LPCTSTR Name() const override { return L"tree"; }
    LPCTSTR Title() const override { return L"Tree"; }
    LPCTSTR Hint() const override { return L"Rest the mouse on a drawing, or on a folder with a long name."; }
    CWnd& FirstControl() override { return m_tree; }

    void Pose(const std::wstring& name) override;

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

    afx_msg void OnSelectionChanged(NMHDR* notification, LRESULT* result);
    afx_msg void OnDeleteClicked();
    afx_msg void OnFillClicked();
    afx_msg void OnDestroy();

    DECLARE_MESSAGE_MAP()

private:
    HTREEITEM AddFolder(HTREEITEM parent, const wchar_t* name);
    HTREEITEM AddDrawing(HTREEITEM folder, const wchar_t* name, const wchar_t* sheet, int layers,
                         const wchar_t* savedBy);
    void FillTree();
    void ScrollToTop();
    void ShowDetails();

    CXTreeCtrl m_tree;
    CStatic m_treeLabel, m_nameHeading, m_name, m_tipHeading, m_tip, m_countHeading, m_count;
    CButton m_delete, m_fill;
    HTREEITEM m_posedItem = nullptr;
};
