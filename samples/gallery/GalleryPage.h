// What the gallery's pages have in common.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "VelmUtil22.h"

struct GalleryFonts
{
    CFont plain;
    CFont bold;
};

class CGalleryPage : public CWnd
{
public:
    using Teller = std::function<void(const CString&)>;

    // Makes the page and its controls, hidden. `teller` shows a text in the status bar. The fonts must
    // outlive the page.
    BOOL CreateOn(CWnd* parent, UINT id, GalleryFonts& fonts, Teller teller);

    // What the command line calls the page, what stands on its tab, and what the status bar says when it
    // comes up.
    virtual LPCTSTR Name() const = 0;
    virtual LPCTSTR Title() const = 0;
    virtual LPCTSTR Hint() const = 0;
    // The control that gets the focus.
    virtual CWnd& FirstControl() = 0;

    // The least size at which nothing of the page is cut off.
    virtual CSize LeastSize() { return CSize(620, 300); }

    // The page has come up and is to live, or is about to go.
    virtual void OnShown() {}
    virtual void OnHidden() {}

    // Pictures. A page has one of its own name and may have more.
    virtual bool HasPicture(const std::wstring& name) const { return name == Name(); }
    // The size of the whole window for it.
    virtual CSize PictureSize() const { return CSize(700, 460); }
    // Brings the page, which is visible but does not live, into the state of the picture.
    virtual void Pose(const std::wstring& name) = 0;
    // Whether what the pose has set off is there to be seen.
    virtual bool IsPosed() const { return true; }
    // What of the screen the picture shows: the whole window, unless a page knows better.
    virtual CRect PictureArea() const;

protected:
    virtual bool MakeControls() = 0;
    // Puts contents into the controls, which have their fonts by then.
    virtual void Fill() = 0;
    virtual void LayOut(CSize size) = 0;

    bool MakeLabel(CStatic& label, LPCTSTR text);
    bool MakeHeading(CStatic& label, LPCTSTR text);
    bool MakeButton(CButton& button, LPCTSTR text, UINT id, DWORD style = BS_PUSHBUTTON);
    void Tell(const CString& text) { m_tell(text); }
    CRect ScreenRectOf(const CWnd& window) const;

    afx_msg int OnCreate(LPCREATESTRUCT createStruct);
    afx_msg void OnSize(UINT type, int width, int height);

    DECLARE_MESSAGE_MAP()

    static constexpr DWORD ChildStyle = WS_CHILD | WS_VISIBLE;
    static constexpr int Margin = 12;
    static constexpr int Gap = 8;
    static constexpr int LineHeight = 16;
    static constexpr int ButtonHeight = 24;
    static constexpr int ButtonWidth = 96;

private:
    GalleryFonts* m_fonts = nullptr;
    Teller m_tell;
    std::vector<CWnd*> m_headings;
    bool m_isMade = false;
};
