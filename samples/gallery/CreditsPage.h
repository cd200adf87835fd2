// The page with the credits.
#pragma once

#include <memory>

#include "GalleryPage.h"

class CCreditsPage : public CGalleryPage
{
public:
    LPCTSTR Name() const override { return L"credits"; }
    LPCTSTR Title() const override { return L"Credits"; }
    LPCTSTR Hint() const override { return L"Two pages take turns; the first comes after five seconds."; }
    CWnd& FirstControl() override { return m_cursor; }
    void OnShown() override;
    void OnHidden() override;

    CSize PictureSize() const override { return CSize(660, 460); }
    void Pose(const std::wstring& name) override;

    // Saves so many pictures of the credits alone, 80 milliseconds of their time apart, as frame-0001.png
    // and so on. False with a reason when one cannot be saved.
    bool SaveFrames(const std::wstring& folder, int count, std::wstring& reason);

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

    afx_msg void OnOptionClicked();
    afx_msg void OnTimer(UINT_PTR timer);
    afx_msg BOOL OnEraseBkgnd(CDC* dc);

    DECLARE_MESSAGE_MAP()

private:
    void StartAnew(const CRect& place);
    void Stop();

    CButton m_cursor, m_block, m_european, m_startAnew;
    // Where the credits stand, black until they do.
    CRect m_stage = CRect(0, 0, 0, 0);
    std::unique_ptr<CMatrixCredits> m_credits;
};
