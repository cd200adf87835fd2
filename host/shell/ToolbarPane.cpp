#include "shell/ToolbarPane.h"

#include <algorithm>
#include <climits>

namespace velmhost
{

namespace
{

constexpr int kGripper = 10;     // extent of the gripper along the bar
constexpr int kMargin = 2;       // around the buttons
constexpr int kLabelGap = 6;     // between name and buttons
constexpr int kSeparator = 8;    // width of a separator
constexpr int kEmptyExtent = 48; // of a toolbar without buttons
constexpr UINT kControlId = 1;

int ButtonWidth(int pictureSide)
{
    return pictureSide + 7;
}
int ButtonHeight(int pictureSide)
{
    return pictureSide + 6;
}

DWORD WindowStyle(CToolbarPane::Kind kind)
{
    switch (kind) {
    case CToolbarPane::Kind::Floating:
        return WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    case CToolbarPane::Kind::Flyout:
        return WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
    default:
        return WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    }
}

HFONT LabelFont()
{
    return static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
}

int LabelWidth(const std::wstring& label)
{
    if (label.empty())
        return 0;
    WindowDc screen(nullptr);
    Selection font(screen, LabelFont());
    SIZE size{};
    ::GetTextExtentPoint32W(screen, label.c_str(), static_cast<int>(label.size()), &size);
    return size.cx + kLabelGap;
}

// Client width that a tool window needs to show its whole caption beside the close button.
int CaptionWidth(const std::wstring& caption)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return 0;
    UniqueFont font(::CreateFontIndirectW(&metrics.lfSmCaptionFont));
    WindowDc screen(nullptr);
    Selection selected(screen, font.get());
    SIZE size{};
    ::GetTextExtentPoint32W(screen, caption.c_str(), static_cast<int>(caption.size()), &size);
    const int limit = ::GetSystemMetrics(SM_CXSCREEN) / 3;
    return std::min<int>(limit, size.cx + ::GetSystemMetrics(SM_CXSMSIZE) + 8);
}

void FillSolid(HDC dc, const RECT& rect, int systemColour)
{
    ::FillRect(dc, &rect, ::GetSysColorBrush(systemColour));
}

// A row of dots, two pixels each, along the gripper.
void DrawGripper(HDC dc, const CRect& client, bool horizontal)
{
    const int length = horizontal ? client.Height() : client.Width();
    for (int along = 4; along + 2 <= length - 3; along += 4) {
        const int x = horizontal ? 4 : along;
        const int y = horizontal ? along : 4;
        FillSolid(dc, CRect(x + 1, y + 1, x + 3, y + 3), COLOR_3DHILIGHT);
        FillSolid(dc, CRect(x, y, x + 2, y + 2), COLOR_3DSHADOW);
    }
}

// The mark in a fly-out button's lower right corner.
void DrawCornerMark(HDC dc, const RECT& button)
{
    constexpr int kMark = 4;
    for (int i = 0; i <= kMark; ++i) {
        const RECT line{button.right - 4 - i, button.bottom - 4 - kMark + i, button.right - 3,
                        button.bottom - 3 - kMark + i};
        FillSolid(dc, line, COLOR_BTNTEXT);
    }
}

} // namespace

BEGIN_MESSAGE_MAP(CToolbarPane, CWnd)
ON_WM_PAINT()
ON_WM_CLOSE()
ON_MESSAGE(WM_MOUSEACTIVATE, &CToolbarPane::OnMouseActivateMessage)
ON_MESSAGE(WM_NCACTIVATE, &CToolbarPane::OnNcActivateMessage)
ON_MESSAGE(WM_EXITSIZEMOVE, &CToolbarPane::OnExitSizeMoveMessage)
END_MESSAGE_MAP()

CToolbarPane::CToolbarPane(Kind kind, ElementId toolbar, const HostModel& model, ToolbarPaneSite& site)
    : m_kind(kind), m_toolbar(toolbar), m_model(model), m_site(site), m_images(kSmallPicture)
{
}

CToolbarPane::~CToolbarPane()
{
    DestroyWindow();
}

BOOL CToolbarPane::Create(CWnd& owner)
{
    const bool child = m_kind == Kind::Row || m_kind == Kind::Column;
    const wchar_t* windowClass =
        AfxRegisterWndClass(child ? 0 : CS_SAVEBITS, ::LoadCursorW(nullptr, IDC_ARROW),
                            reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    if (!CreateEx(child ? 0 : WS_EX_TOOLWINDOW, windowClass, L"", WindowStyle(m_kind), 0, 0, 0, 0,
                  owner.m_hWnd, nullptr))
        return FALSE;
    const DWORD style = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NOPARENTALIGN |
                        CCS_NORESIZE | CCS_NODIVIDER;
    m_control = ::CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", style, 0, 0, 0, 0, m_hWnd,
                                  reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kControlId)),
                                  AfxGetInstanceHandle(), nullptr);
    if (!m_control)
        return FALSE;
    ::SendMessageW(m_control, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    if (m_kind == Kind::Floating)
        SendMessage(WM_NCACTIVATE, TRUE);
    // Panes never become the active window, and tooltips show over inactive ones only when told to.
    const HWND tooltips = reinterpret_cast<HWND>(::SendMessageW(m_control, TB_GETTOOLTIPS, 0, 0));
    if (tooltips)
        ::SetWindowLongPtrW(tooltips, GWL_STYLE, ::GetWindowLongPtrW(tooltips, GWL_STYLE) | TTS_ALWAYSTIP);
    return TRUE;
}

ElementId CToolbarPane::ItemAt(int position) const
{
    return position >= 0 && position < ItemCount() ? m_items[static_cast<std::size_t>(position)] : 0;
}

int CToolbarPane::PositionOf(ElementId item) const
{
    const auto found = std::find(m_items.begin(), m_items.end(), item);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

CRect CToolbarPane::ButtonRect(int position) const
{
    CRect rect;
    if (::SendMessageW(m_control, TB_GETITEMRECT, static_cast<WPARAM>(position),
                       reinterpret_cast<LPARAM>(&rect)))
        ::MapWindowPoints(m_control, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    else
        rect.SetRectEmpty();
    return rect;
}

int CToolbarPane::ButtonAt(CPoint screen) const
{
    for (int i = 0; i < ItemCount(); ++i) {
        if (ButtonRect(i).PtInRect(screen))
            return i;
    }
    return -1;
}

bool CToolbarPane::Refresh(int limit)
{
    const Toolbar* toolbar = m_model.FindToolbar(m_toolbar);
    if (!toolbar)
        return false;
    const std::vector<bool> wraps = PlanWraps(*toolbar, limit);
    std::wstring description = Describe(*toolbar, wraps);
    if (description == m_description)
        return false;
    m_description = std::move(description);
    m_label = m_kind == Kind::Row ? toolbar->name : std::wstring();
    SetWindowText(toolbar->name.c_str());
    FillControl(*toolbar, wraps);
    Measure(*toolbar);
    Invalidate();
    return true;
}

void CToolbarPane::MarkOpen(ElementId item, bool open)
{
    const int position = PositionOf(item);
    if (position >= 0)
        ::SendMessageW(m_control, TB_PRESSBUTTON, static_cast<WPARAM>(position) + 1, MAKELPARAM(open, 0));
}

// Everything that the control's content depends on, as one text to compare. Texts of the user are set off by
// a character that no label holds.
std::wstring CToolbarPane::Describe(const Toolbar& toolbar, const std::vector<bool>& wraps) const
{
    const wchar_t separator = L'\0';
    std::wstring text = toolbar.name + separator + std::to_wstring(PictureSide());
    for (const bool wrap : wraps)
        text += wrap ? L'/' : L'-';
    for (const auto& item : toolbar.items) {
        text += separator + std::to_wstring(item->id) + separator +
                std::to_wstring(static_cast<int>(item->type)) + separator + item->smallBitmap + separator +
                item->largeBitmap;
    }
    return text;
}

void CToolbarPane::FillControl(const Toolbar& toolbar, const std::vector<bool>& wraps)
{
    ::SendMessageW(m_control, WM_SETREDRAW, FALSE, 0);
    while (::SendMessageW(m_control, TB_BUTTONCOUNT, 0, 0) > 0)
        ::SendMessageW(m_control, TB_DELETEBUTTON, 0, 0);
    SetPictureSize(PictureSide());

    std::vector<TBBUTTON> buttons;
    m_items.clear();
    for (const auto& item : toolbar.items) {
        TBBUTTON button{};
        m_items.push_back(item->id);
        button.idCommand = ItemCount();
        button.fsState = TBSTATE_ENABLED;
        if (wraps[buttons.size()])
            button.fsState |= TBSTATE_WRAP;
        if (item->type == ToolbarItemType::Separator) {
            button.fsStyle = BTNS_SEP;
            button.iBitmap = kSeparator;
        } else {
            button.fsStyle = BTNS_BUTTON;
            button.iBitmap = m_images.Add(m_model.LargeButtons() ? item->largeBitmap : item->smallBitmap);
        }
        button.iString = -1;
        buttons.push_back(button);
    }
    ::SendMessageW(m_control, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(m_images.List()));
    if (!buttons.empty())
        ::SendMessageW(m_control, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    ::SendMessageW(m_control, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(m_control, nullptr, TRUE);
}

void CToolbarPane::SetPictureSize(int side)
{
    ::SendMessageW(m_control, TB_SETIMAGELIST, 0, 0);
    m_images = CButtonImages(side);
    ::SendMessageW(m_control, TB_SETBITMAPSIZE, 0, MAKELPARAM(side, side));
    ::SendMessageW(m_control, TB_SETBUTTONSIZE, 0, MAKELPARAM(ButtonWidth(side), ButtonHeight(side)));
}

// After which buttons a new row begins: where the limit is reached, or a row's share of the buttons when more
// than one row is wished. A separator at the end of a row carries the break: the control leaves a gap below
// it.
std::vector<bool> CToolbarPane::PlanWraps(const Toolbar& toolbar, int limit) const
{
    const int count = static_cast<int>(toolbar.items.size());
    const auto isSeparator = [&](int i) {
        return toolbar.items[static_cast<std::size_t>(i)]->type == ToolbarItemType::Separator;
    };
    const auto width = [&](int i) { return isSeparator(i) ? kSeparator : ButtonWidth(PictureSide()); };

    long rows = 1;
    int rowLimit = limit - 2 * kMargin;
    if (m_kind == Kind::Floating) {
        rows = toolbar.floatingRows;
    } else if (m_kind == Kind::Row) {
        rowLimit -= kGripper + LabelWidth(toolbar.name);
    } else if (m_kind == Kind::Column) {
        rows = std::max(1, (limit - kGripper - kMargin) / ButtonHeight(PictureSide()));
        rowLimit = INT_MAX;
    }
    rows = std::clamp<long>(rows, 1, std::max(1, count));
    const int perRow = static_cast<int>((count + rows - 1) / rows);

    std::vector<bool> wraps(static_cast<std::size_t>(count), false);
    int inRow = 0;
    int extent = 0;
    for (int i = 0; i + 1 < count; ++i) {
        ++inRow;
        extent += width(i);
        const bool separatorFollows = isSeparator(i + 1) && i + 2 < count;
        const int needed = width(i + 1) + (separatorFollows ? width(i + 2) : 0);
        if (inRow < perRow && extent + needed <= rowLimit)
            continue;
        if (separatorFollows)
            ++i;
        wraps[static_cast<std::size_t>(i)] = true;
        inRow = 0;
        extent = 0;
    }
    return wraps;
}

void CToolbarPane::Measure(const Toolbar& toolbar)
{
    const CRect extent = ButtonsExtent();
    LONG least = toolbar.items.empty() ? kEmptyExtent : 0;
    if (m_kind == Kind::Floating)
        least = std::max<LONG>(least, CaptionWidth(toolbar.name) - 2 * kMargin);
    const CSize content(std::max(extent.right, least),
                        std::max<int>(extent.bottom, ButtonHeight(m_images.Side())));
    CPoint origin(kMargin, kMargin);
    if (m_kind == Kind::Row)
        origin.x = kGripper + LabelWidth(m_label);
    else if (m_kind == Kind::Column)
        origin.y = kGripper;
    ::SetWindowPos(m_control, nullptr, origin.x, origin.y, content.cx, content.cy,
                   SWP_NOZORDER | SWP_NOACTIVATE);

    CRect window(0, 0, origin.x + content.cx + kMargin, origin.y + content.cy + kMargin);
    ::AdjustWindowRectEx(&window, GetStyle(), FALSE, GetExStyle());
    m_size = window.Size();
}

// Separators do not count: of one at the end of a row, what reaches beyond the buttons is cut off. The
// control would draw it upright there; it is drawn across instead, see OnCustomDraw.
CRect CToolbarPane::ButtonsExtent() const
{
    CRect all;
    all.SetRectEmpty();
    for (int i = 0; i < ItemCount(); ++i) {
        CRect rect;
        if (IsSeparator(i))
            continue;
        ::SendMessageW(m_control, TB_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&rect));
        all.right = std::max(all.right, rect.right);
        all.bottom = std::max(all.bottom, rect.bottom);
    }
    return all;
}

BOOL CToolbarPane::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (reinterpret_cast<HWND>(lParam) != m_control)
        return CWnd::OnCommand(wParam, lParam);
    if (const ElementId item = ItemOfCommand(LOWORD(wParam)))
        m_site.OnButtonClicked(*this, item);
    return TRUE;
}

BOOL CToolbarPane::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.hwndFrom != m_control)
        return CWnd::OnNotify(wParam, lParam, pResult);
    switch (header.code) {
    case TBN_GETINFOTIPW: {
        auto& tip = *reinterpret_cast<NMTBGETINFOTIPW*>(lParam);
        const ToolbarItem* item = m_model.FindToolbarItem(ItemOfCommand(tip.iItem));
        if (item && tip.cchTextMax > 0)
            ::lstrcpynW(tip.pszText, item->name.c_str(), tip.cchTextMax);
        *pResult = 0;
        return TRUE;
    }
    case TBN_HOTITEMCHANGE: {
        const auto& hot = *reinterpret_cast<const NMTBHOTITEM*>(lParam);
        m_site.OnButtonHot(*this, hot.dwFlags & HICF_LEAVING ? 0 : ItemOfCommand(hot.idNew));
        *pResult = 0;
        return TRUE;
    }
    case NM_CUSTOMDRAW:
        *pResult = OnCustomDraw(*reinterpret_cast<const NMTBCUSTOMDRAW*>(lParam));
        return TRUE;
    default:
        return CWnd::OnNotify(wParam, lParam, pResult);
    }
}

LRESULT CToolbarPane::OnCustomDraw(const NMTBCUSTOMDRAW& draw) const
{
    switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
        return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
    case CDDS_POSTPAINT:
        DrawRowSeparators(draw.nmcd.hdc);
        return CDRF_DODEFAULT;
    case CDDS_ITEMPREPAINT: {
        const ToolbarItem* item =
            m_model.FindToolbarItem(ItemOfCommand(static_cast<int>(draw.nmcd.dwItemSpec)));
        return item && item->type == ToolbarItemType::Flyout ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
    }
    case CDDS_ITEMPOSTPAINT:
        DrawCornerMark(draw.nmcd.hdc, draw.nmcd.rc);
        return CDRF_DODEFAULT;
    default:
        return CDRF_DODEFAULT;
    }
}

// A line in the gap between two rows that a separator parts.
void CToolbarPane::DrawRowSeparators(HDC dc) const
{
    const CRect extent = ButtonsExtent();
    for (int i = 1; i + 1 < ItemCount(); ++i) {
        CRect before, after;
        ::SendMessageW(m_control, TB_GETITEMRECT, static_cast<WPARAM>(i) - 1,
                       reinterpret_cast<LPARAM>(&before));
        ::SendMessageW(m_control, TB_GETITEMRECT, static_cast<WPARAM>(i) + 1,
                       reinterpret_cast<LPARAM>(&after));
        if (!IsSeparator(i) || after.top < before.bottom)
            continue;
        const int y = (before.bottom + after.top) / 2;
        FillSolid(dc, CRect(2, y, extent.right - 2, y + 1), COLOR_3DSHADOW);
    }
}

bool CToolbarPane::IsSeparator(int position) const
{
    TBBUTTON button{};
    return ::SendMessageW(m_control, TB_GETBUTTON, static_cast<WPARAM>(position),
                          reinterpret_cast<LPARAM>(&button)) &&
           (button.fsStyle & BTNS_SEP);
}

void CToolbarPane::OnPaint()
{
    CPaintDC paint(this);
    if (m_kind != Kind::Row && m_kind != Kind::Column)
        return;
    CRect client;
    GetClientRect(&client);
    DrawGripper(paint.m_hDC, client, m_kind == Kind::Row);
    if (m_label.empty())
        return;
    Selection font(paint.m_hDC, LabelFont());
    ::SetBkMode(paint.m_hDC, TRANSPARENT);
    ::SetTextColor(paint.m_hDC, ::GetSysColor(COLOR_GRAYTEXT));
    RECT text{kGripper, 0, client.right, client.bottom};
    ::DrawTextW(paint.m_hDC, m_label.c_str(), -1, &text, DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
}

void CToolbarPane::OnClose()
{
    m_site.OnPaneCloseWanted(*this);
}

LRESULT CToolbarPane::OnMouseActivateMessage(WPARAM, LPARAM)
{
    // The command line keeps the focus while toolbars are used.
    return MA_NOACTIVATE;
}

LRESULT CToolbarPane::OnNcActivateMessage(WPARAM, LPARAM lParam)
{
    // A floating toolbar's caption belongs to the main window's and never looks inactive beside it.
    return DefWindowProc(WM_NCACTIVATE, TRUE, lParam);
}

LRESULT CToolbarPane::OnExitSizeMoveMessage(WPARAM, LPARAM)
{
    m_site.OnPaneMoved(*this);
    return 0;
}

} // namespace velmhost
