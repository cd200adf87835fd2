#include "listctrl/XHeaderCtrl.h"

#include <algorithm>
#include <optional>

#include "listctrl/BufferedDC.h"
#include "listctrl/ImageDrawing.h"

namespace
{

constexpr int CaptionCapacity = 160;
constexpr COLORREF CaptionColor = RGB(0, 0, 255);
constexpr int DividerMargin = 2;

enum Property
{
    SpacingProperty = 1,
    SizeProperty = 2,
    WideLayoutProperty = 3,
    ValueProperty = 4
};

} // namespace

IMPLEMENT_DYNCREATE(CXHeaderCtrl, CHeaderCtrl)

BEGIN_MESSAGE_MAP(CXHeaderCtrl, CHeaderCtrl)
ON_MESSAGE(HDM_INSERTITEMA, &CXHeaderCtrl::OnInsertItem)
ON_MESSAGE(HDM_INSERTITEMW, &CXHeaderCtrl::OnInsertItem)
ON_MESSAGE(HDM_DELETEITEM, &CXHeaderCtrl::OnDeleteItem)
ON_MESSAGE(HDM_SETIMAGELIST, &CXHeaderCtrl::OnSetImageList)
ON_MESSAGE(HDM_LAYOUT, &CXHeaderCtrl::OnLayout)
ON_WM_PAINT()
ON_WM_SYSCOLORCHANGE()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

CXHeaderCtrl::CXHeaderCtrl()
    : m_bDoubleBuffer(TRUE), m_nSpacing(6), m_sizeImage(0, 0), m_sizeProperty2(8, 8), m_bWideLayout(FALSE),
      m_nProperty4(0), m_nReserved1(0), m_nReserved2(0), m_nReserved3(0)
{
    ReadSystemColors();
}

CXHeaderCtrl::~CXHeaderCtrl() = default;

void CXHeaderCtrl::ReadSystemColors()
{
    m_cr3DHighLight = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    m_cr3DShadow = ::GetSysColor(COLOR_BTNSHADOW);
    m_cr3DFace = ::GetSysColor(COLOR_BTNFACE);
    m_crText = ::GetSysColor(COLOR_BTNTEXT);
}

BOOL CXHeaderCtrl::ModifyProperty(WPARAM wProperty, LPARAM lParam)
{
    switch (wProperty) {
    case SpacingProperty:
        m_nSpacing = static_cast<int>(lParam);
        break;
    case SizeProperty:
        m_sizeProperty2 = CSize(LOWORD(lParam), HIWORD(lParam));
        break;
    case WideLayoutProperty:
        m_bWideLayout = static_cast<BOOL>(lParam);
        break;
    case ValueProperty:
        m_nProperty4 = static_cast<unsigned __int64>(lParam);
        break;
    default:
        return FALSE;
    }
    if (GetSafeHwnd() != nullptr)
        Invalidate(TRUE);
    return TRUE;
}

int CXHeaderCtrl::CountItems()
{
    if (m_hWnd == nullptr)
        return 0;
    if (m_countedWindow != m_hWnd) {
        m_itemCount = static_cast<int>(DefWindowProc(HDM_GETITEMCOUNT, 0, 0));
        m_countedWindow = m_hWnd;
    }
    return m_itemCount;
}

LRESULT CXHeaderCtrl::ChangeItems()
{
    // Again afterwards, for those who asked in between.
    ForgetCount();
    const LRESULT result = Default();
    ForgetCount();
    return result;
}

LRESULT CXHeaderCtrl::OnInsertItem(WPARAM, LPARAM)
{
    return ChangeItems();
}

LRESULT CXHeaderCtrl::OnDeleteItem(WPARAM, LPARAM)
{
    return ChangeItems();
}

LRESULT CXHeaderCtrl::OnSetImageList(WPARAM, LPARAM lParam)
{
    if (const std::optional<CSize> size = ImageSize(reinterpret_cast<HIMAGELIST>(lParam), 0))
        m_sizeImage = *size;
    return Default();
}

LRESULT CXHeaderCtrl::OnLayout(WPARAM wParam, LPARAM lParam)
{
    const auto layout = reinterpret_cast<HDLAYOUT*>(lParam);
    if (m_bWideLayout)
        layout->prc->right += 2 * GetSystemMetrics(SM_CXBORDER);
    return DefWindowProc(HDM_LAYOUT, wParam, lParam);
}

BOOL CXHeaderCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CXHeaderCtrl::OnSysColorChange()
{
    CHeaderCtrl::OnSysColorChange();
    ReadSystemColors();
}

void CXHeaderCtrl::OnPaint()
{
    CPaintDC dc(this);
    if (m_bDoubleBuffer && !dc.IsPrinting()) {
        CBufferedDC buffer(&dc);
        DrawCtrl(&buffer);
    } else {
        DrawCtrl(&dc);
    }
}

void CXHeaderCtrl::DrawCtrl(CDC* pDC)
{
    CRect clip;
    if (pDC->GetClipBox(&clip) == ERROR)
        return;
    pDC->FillSolidRect(&clip, m_cr3DFace);
    CGdiObject* const oldPen = pDC->SelectStockObject(DC_PEN);
    CFont* const oldFont = pDC->SelectObject(GetFont());
    pDC->SetBkColor(m_cr3DFace);
    pDC->SetTextColor(m_crText);

    int width = 0;
    const int count = GetItemCount();
    for (int position = 0; position < count; ++position) {
        const int index = OrderToIndex(position);
        wchar_t caption[CaptionCapacity] = {};
        HDITEM item = {};
        item.mask = HDI_WIDTH | HDI_TEXT | HDI_FORMAT | HDI_BITMAP | HDI_IMAGE;
        item.pszText = caption;
        item.cchTextMax = CaptionCapacity;
        GetItem(index, &item);
        CRect rect;
        GetItemRect(index, &rect);
        if ((item.fmt & HDF_OWNERDRAW) != 0) {
            DrawOwnerDrawn(pDC, index, rect);
        } else {
            CRect content(rect);
            content.DeflateRect(m_nSpacing, 0);
            DrawItem(pDC, content, &item);
        }
        if (position < count - 1)
            DrawDivider(pDC, rect);
        width += item.cxy;
    }
    if (width > 0) {
        CRect frame;
        GetClientRect(&frame);
        frame.right = std::min<int>(frame.right, frame.left + width);
        pDC->Draw3dRect(&frame, m_cr3DHighLight, m_cr3DShadow);
    }
    if (oldFont != nullptr)
        pDC->SelectObject(oldFont);
    pDC->SelectObject(static_cast<CPen*>(oldPen));
}

void CXHeaderCtrl::DrawOwnerDrawn(CDC* pDC, int item, const CRect& rect)
{
    DRAWITEMSTRUCT draw = {};
    draw.CtlType = ODT_BUTTON;
    draw.CtlID = static_cast<UINT>(GetDlgCtrlID());
    draw.itemID = static_cast<UINT>(item);
    draw.itemAction = ODA_DRAWENTIRE;
    draw.hwndItem = m_hWnd;
    draw.hDC = pDC->GetSafeHdc();
    draw.rcItem = rect;
    DrawItem(&draw);
}

void CXHeaderCtrl::DrawDivider(CDC* pDC, const CRect& rect)
{
    pDC->SetDCPenColor(m_cr3DShadow);
    pDC->MoveTo(rect.right - 1, rect.top + DividerMargin);
    pDC->LineTo(rect.right - 1, rect.bottom - DividerMargin);
    pDC->SetDCPenColor(m_cr3DHighLight);
    pDC->MoveTo(rect.right, rect.top + DividerMargin);
    pDC->LineTo(rect.right, rect.bottom - DividerMargin);
}

void CXHeaderCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

void CXHeaderCtrl::DrawItem(CDC* pDC, CRect rect, HDITEM* pItem)
{
    CBitmap* bitmap = nullptr;
    BITMAP bitmapInfo = {};
    if ((pItem->fmt & HDF_BITMAP) != 0) {
        bitmap = CBitmap::FromHandle(pItem->hbm);
        if (bitmap != nullptr)
            bitmap->GetBitmap(&bitmapInfo);
    }
    const int imageWidth = DrawImage(pDC, rect, pItem, FALSE);
    if (imageWidth > 0)
        rect.left += imageWidth + m_nSpacing;
    const int bitmapWidth = DrawBitmap(pDC, rect, pItem, bitmap, &bitmapInfo, TRUE);
    if (bitmapWidth > 0)
        rect.right -= bitmapWidth + m_nSpacing;
    DrawText(pDC, rect, pItem);
}

int CXHeaderCtrl::DrawImage(CDC* pDC, CRect rect, HDITEM* pItem, BOOL bRight)
{
    CImageList* const images = GetImageList();
    if (images == nullptr || pItem->iImage == 0 || rect.Width() < 1)
        return 0;
    const CPoint position(bRight ? rect.right - m_sizeImage.cx : rect.left,
                          (rect.top + rect.bottom) / 2 - m_sizeImage.cy / 2);
    const CSize size(std::min<int>(rect.Width(), m_sizeImage.cx), m_sizeImage.cy);
    DrawImageOver(pDC, images, pItem->iImage, position, size, pDC->GetBkColor());
    return m_sizeImage.cx;
}

int CXHeaderCtrl::DrawBitmap(CDC* pDC, CRect rect, HDITEM*, CBitmap* pBitmap, BITMAP* pBitmapInfo,
                             BOOL bRight)
{
    if (pBitmap == nullptr || rect.Width() < 1 || pBitmapInfo->bmWidth > rect.Width())
        return 0;
    CDC source;
    if (!source.CreateCompatibleDC(pDC))
        return 0;
    CBitmap* const oldBitmap = source.SelectObject(pBitmap);
    const BOOL isCopied = pDC->BitBlt(bRight ? rect.right - pBitmapInfo->bmWidth : rect.left,
                                      (rect.top + rect.bottom) / 2 - pBitmapInfo->bmHeight / 2,
                                      pBitmapInfo->bmWidth, pBitmapInfo->bmHeight, &source, 0, 0, SRCCOPY);
    source.SelectObject(oldBitmap);
    return isCopied ? pBitmapInfo->bmWidth : 0;
}

int CXHeaderCtrl::DrawText(CDC* pDC, CRect rect, HDITEM* pItem)
{
    pDC->SetTextColor(CaptionColor);
    if (rect.Width() < 1 || (pItem->mask & HDI_TEXT) == 0 || (pItem->fmt & HDF_STRING) == 0)
        return 0;
    const CString caption(pItem->pszText);
    const CSize extent = pDC->GetTextExtent(caption);
    pDC->DrawText(caption, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    return std::max<int>(std::min<int>(rect.Width(), extent.cx), 0);
}
