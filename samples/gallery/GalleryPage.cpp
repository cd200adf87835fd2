#include "GalleryPage.h"

BEGIN_MESSAGE_MAP(CGalleryPage, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

BOOL CGalleryPage::CreateOn(CWnd* parent, UINT id, GalleryFonts& fonts, Teller teller)
{
    m_fonts = &fonts;
    m_tell = std::move(teller);
    const auto background = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW), background);
    return CreateEx(WS_EX_CONTROLPARENT, windowClass, L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                    CRect(0, 0, 0, 0), parent, id);
}

int CGalleryPage::OnCreate(LPCREATESTRUCT createStruct)
{
    if (CWnd::OnCreate(createStruct) == -1 || !MakeControls())
        return -1;
    SendMessageToDescendants(WM_SETFONT, reinterpret_cast<WPARAM>(m_fonts->plain.GetSafeHandle()), FALSE,
                             FALSE);
    for (CWnd* const heading : m_headings)
        heading->SetFont(&m_fonts->bold);
    Fill();
    m_isMade = true;
    return 0;
}

void CGalleryPage::OnSize(UINT type, int width, int height)
{
    CWnd::OnSize(type, width, height);
    if (m_isMade && width > 0 && height > 0)
        LayOut(CSize(width, height));
}

bool CGalleryPage::MakeLabel(CStatic& label, LPCTSTR text)
{
    return label.Create(text, ChildStyle | SS_NOPREFIX, CRect(0, 0, 0, 0), this) != FALSE;
}

bool CGalleryPage::MakeHeading(CStatic& label, LPCTSTR text)
{
    m_headings.push_back(&label);
    return MakeLabel(label, text);
}

bool CGalleryPage::MakeButton(CButton& button, LPCTSTR text, UINT id, DWORD style)
{
    return button.Create(text, ChildStyle | WS_TABSTOP | style, CRect(0, 0, 0, 0), this, id) != FALSE;
}

CRect CGalleryPage::ScreenRectOf(const CWnd& window) const
{
    CRect rect;
    window.GetWindowRect(&rect);
    return rect;
}

CRect CGalleryPage::PictureArea() const
{
    CRect rect;
    ::GetWindowRect(::GetAncestor(m_hWnd, GA_ROOT), &rect);
    return rect;
}
