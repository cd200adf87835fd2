// The gallery's window: a page for each of the library's controls.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "GalleryPage.h"
#include "Options.h"

class CGalleryFrame : public CFrameWnd
{
public:
    explicit CGalleryFrame(GalleryOptions options);

    // The exit code of the program: 1 if a picture was wanted and could not be saved.
    static int ExitCode() { return s_exitCode; }

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT createStruct);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSetFocus(CWnd* oldWindow);
    afx_msg void OnTabChanged(NMHDR* notification, LRESULT* result);
    afx_msg void OnTimer(UINT_PTR timer);

    DECLARE_MESSAGE_MAP()

private:
    bool MakeFonts();
    bool MakePages();
    CGalleryPage& Page() { return *m_pages[m_page]; }
    void ShowPage(std::size_t page);
    void StepToPicture();
    void EndPicture(bool isSaved, const std::wstring& reason);

    static inline int s_exitCode = 0;

    GalleryOptions m_options;
    GalleryFonts m_fonts;
    CWnd m_tabs;
    CStatusBarCtrl m_status;
    std::vector<std::unique_ptr<CGalleryPage>> m_pages;
    std::size_t m_page = 0;
    int m_steps = 0;
    int m_stepsPosed = 0;
};
