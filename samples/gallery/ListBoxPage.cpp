#include "ListBoxPage.h"

namespace
{

constexpr UINT_PTR MouseTimer = 1;
constexpr UINT MousePeriod = 100;
constexpr UINT MessagesId = 401;
constexpr int PosedItem = 3;

const wchar_t* const Messages[] = {
    L"Sheet 1: plotted in 4 seconds",
    L"Sheet 2: the title block uses a font that is not installed on this computer",
    L"Sheet 3: plotted in 5 seconds",
    L"Sheet 4: the survey is scaled 1:500, the viewport around it 1:200",
    L"Sheet 5: 12 dimensions no longer touch what they once measured",
    L"Sheet 6: plotted in 3 seconds",
    L"Sheet 7: the section mark points to a sheet that this set does not contain",
    L"Sheet 8: two stations of the survey have the same number, 114, and different heights",
    L"Sheet 9: plotted in 4 seconds",
    L"All sheets: the pen table was made for another plotter; widths may differ",
};

} // namespace

BEGIN_MESSAGE_MAP(CListBoxPage, CSplitPage)
ON_LBN_SELCHANGE(MessagesId, &CListBoxPage::OnSelectionChanged)
ON_WM_TIMER()
END_MESSAGE_MAP()

bool CListBoxPage::MakeControls()
{
    const DWORD style = ChildStyle | WS_BORDER | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    return MakeLabel(m_messagesLabel, L"Messages of the last plot") &&
           m_messages.Create(style, CRect(0, 0, 0, 0), this, MessagesId) &&
           MakeHeading(m_selectedHeading, L"Selected") && MakeLabel(m_selected, L"") &&
           MakeHeading(m_underMouseHeading, L"Under the mouse (ItemFromPoint2)") &&
           MakeLabel(m_underMouse, L"");
}

void CListBoxPage::Fill()
{
    for (const wchar_t* const message : Messages)
        m_messages.AddString(message);
    m_messages.SetCurSel(PosedItem);
    OnSelectionChanged();
    ShowItemUnderMouse();
}

void CListBoxPage::LayOut(CSize size)
{
    CRect rest = LayOutLeft(size, m_messagesLabel, m_messages);
    PlaceText(rest, m_selectedHeading, m_selected, 2);
    PlaceText(rest, m_underMouseHeading, m_underMouse, 1);
}

void CListBoxPage::OnShown()
{
    SetTimer(MouseTimer, MousePeriod, nullptr);
}

void CListBoxPage::OnHidden()
{
    KillTimer(MouseTimer);
}

void CListBoxPage::OnTimer(UINT_PTR timer)
{
    if (timer == MouseTimer)
        ShowItemUnderMouse();
}

void CListBoxPage::OnSelectionChanged()
{
    CString text;
    const int item = m_messages.GetCurSel();
    if (item >= 0)
        m_messages.GetText(item, text);
    m_selected.SetWindowText(text);
}

void CListBoxPage::ShowItemUnderMouse()
{
    CPoint mouse;
    ::GetCursorPos(&mouse);
    BOOL isOutside = TRUE;
    UINT item = 0;
    if (::WindowFromPoint(mouse) == m_messages.m_hWnd) {
        m_messages.ScreenToClient(&mouse);
        item = m_messages.ItemFromPoint2(mouse, isOutside);
    }
    CString text(L"no item");
    if (!isOutside)
        text.Format(L"item %u", item);
    CString before;
    m_underMouse.GetWindowText(before);
    if (text != before)
        m_underMouse.SetWindowText(text);
}

// With the tip of a message that is cut off.
void CListBoxPage::Pose(const std::wstring&)
{
    CRect item;
    m_messages.GetItemRect(PosedItem, &item);
    OnShown();
    PoseMouse(m_messages, CPoint(item.left + 60, item.CenterPoint().y));
}
