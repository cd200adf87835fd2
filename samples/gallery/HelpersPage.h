// The page with the helpers for texts: a text is split in both ways, and numbers are taken out of the pieces.
#pragma once

#include "GalleryPage.h"

class CHelpersPage : public CGalleryPage
{
public:
    LPCTSTR Name() const override { return L"helpers"; }
    LPCTSTR Title() const override { return L"Helpers"; }
    LPCTSTR Hint() const override { return L"Change the text or the separator: the pieces follow."; }
    CWnd& FirstControl() override { return m_text; }

    CSize LeastSize() override { return CSize(620, 390); }
    CSize PictureSize() const override { return CSize(660, 480); }
    void Pose(const std::wstring&) override {}

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

    afx_msg void OnTextChanged();

    DECLARE_MESSAGE_MAP()

private:
    void ShowPieces(CStringArray& pieces, CListBox& box);
    void ShowNumbers(const CStringArray& pieces);

    CStatic m_textLabel, m_separatorLabel, m_tokensHeading, m_wholeHeading, m_numbersHeading;
    CEdit m_text, m_separator;
    CListBox m_tokens, m_whole;
    CXListCtrl m_numbers;
};
