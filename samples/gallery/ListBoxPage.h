// The page with a list box whose items are wider than itself.
#pragma once

#include "SplitPage.h"

class CListBoxPage : public CSplitPage
{
public:
    LPCTSTR Name() const override { return L"list-box"; }
    LPCTSTR Title() const override { return L"List box"; }
    LPCTSTR Hint() const override { return L"Rest the mouse on a message to read the whole of it."; }
    CWnd& FirstControl() override { return m_messages; }
    void OnShown() override;
    void OnHidden() override;

    void Pose(const std::wstring& name) override;

protected:
    bool MakeControls() override;
    void Fill() override;
    void LayOut(CSize size) override;

    afx_msg void OnSelectionChanged();
    afx_msg void OnTimer(UINT_PTR timer);

    DECLARE_MESSAGE_MAP()

private:
    void ShowItemUnderMouse();

    CXListBox m_messages;
    CStatic m_messagesLabel, m_selectedHeading, m_selected, m_underMouseHeading, m_underMouse;
};
