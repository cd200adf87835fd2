// The page with a long job and the dialog that tells how far it is.
#pragma once

#include <memory>

#include "GalleryPage.h"

class CProgressPage : public CGalleryPage
{
public:
    LPCTSTR Name() const override { return L"progress"; }
    LPCTSTR Title() const override { return L"Progress"; }
    LPCTSTR Hint() const override { return L"Start the job; Escape or Stop ends it."; }
    CWnd& FirstControl() override { return m_start; }
    void OnHidden() override { Finish(); }

    CSize PictureSize() const override { return CSize(700, 400); }
    void Pose(const std::wstring& name) override;

protected:
    bool MakeControls() override;
    void Fill() override {}
    void LayOut(CSize size) override;

    afx_msg void OnStartClicked();
    afx_msg void OnStop();
    afx_msg void OnTimer(UINT_PTR timer);

    DECLARE_MESSAGE_MAP()

private:
    bool Start();
    void DoBlock();
    void Finish();

    CStatic m_intro, m_resultsLabel;
    CButton m_start;
    CListBox m_results;
    std::unique_ptr<CDlgProgressBar> m_dialog;
    int m_block = 0;
    int m_found = 0;
};
