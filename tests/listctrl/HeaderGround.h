// The ground of the header tests: a plain list view of three columns whose header is under test.
#pragma once

#include "ListTest.h"

#include "HeaderPainter.h"

// Notes what the drawing hands to its virtual members, and how often the background was to be erased.
class NotingHeader : public OpenHeader
{
public:
    using OpenHeader::DrawItem;

    struct DrawnItem
    {
        CRect rect;
        HDITEM item;
        std::wstring caption;
        COLORREF textColor;
        COLORREF backColor;
        HGDIOBJ font;
        DWORD contextType;
        CSize bitmapSize; // of a memory context
        CPoint windowOrigin;
    };
    std::vector<DrawnItem> drawn;
    std::vector<DRAWITEMSTRUCT> ownerDrawn;
    int erasings = 0;

    void DrawItem(LPDRAWITEMSTRUCT draw) override
    {
        ownerDrawn.push_back(*draw);
        OpenHeader::DrawItem(draw);
    }

protected:
    void DrawItem(CDC* dc, CRect rect, HDITEM* item) override
    {
        const HDC context = dc->GetSafeHdc();
        const DWORD type = ::GetObjectType(context);
        drawn.push_back({rect, *item, item->pszText, dc->GetTextColor(), dc->GetBkColor(),
                         ::GetCurrentObject(context, OBJ_FONT), type,
                         type == OBJ_MEMDC ? BitmapSize(context) : CSize(0, 0), dc->GetWindowOrg()});
        OpenHeader::DrawItem(dc, rect, item);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ERASEBKGND)
            ++erasings;
        return OpenHeader::WindowProc(message, wParam, lParam);
    }

private:
    static CSize BitmapSize(HDC context)
    {
        BITMAP bitmap{};
        ::GetObject(::GetCurrentObject(context, OBJ_BITMAP), sizeof bitmap, &bitmap);
        return {bitmap.bmWidth, bitmap.bmHeight};
    }
};

class HeaderTest : public testing::Test
{
protected:
    // No two alike, and none the system's.
    static constexpr COLORREF Light = RGB(240, 250, 130);
    static constexpr COLORREF Dark = RGB(120, 30, 60);
    static constexpr COLORREF Face = RGB(200, 220, 235);
    static constexpr COLORREF Text = RGB(9, 140, 9);

    void SetUp() override
    {
        m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                          CRect(20, 20, 420, 320), nullptr, 0);
        ASSERT_TRUE(m_view.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(10, 10, 310, 260), &m_parent, 7));
        m_view.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        m_view.InsertColumn(1, L"Second", LVCFMT_LEFT, 80);
        m_view.InsertColumn(2, L"Third", LVCFMT_LEFT, 60);
        ASSERT_TRUE(m_header.SubclassWindow(reinterpret_cast<HWND>(m_view.SendMessage(LVM_GETHEADER))));
        m_header.m_cr3DHighLight = Light;
        m_header.m_cr3DShadow = Dark;
        m_header.m_cr3DFace = Face;
        m_header.m_crText = Text;
        UseFont(L"Tahoma", -11);
    }

    // The windows go before the objects, as in a program.
    void TearDown() override
    {
        m_parent.DestroyWindow();
        ImageList_Destroy(m_images);
        DeleteObject(m_font);
        for (const HBITMAP bitmap : m_bitmaps)
            DeleteObject(bitmap);
    }

    void UseFont(const wchar_t* face, int height)
    {
        const HFONT old = m_font;
        m_font = CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                             OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, face);
        m_header.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE);
        DeleteObject(old);
    }

    void UseImages(const std::vector<PatternImage>& images)
    {
        const HIMAGELIST old = m_images;
        m_images = MakeImageList(images);
        m_header.SendMessage(HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(m_images));
        ImageList_Destroy(old);
    }

    void SetImage(int column, int image)
    {
        HDITEMW item{};
        item.mask = HDI_IMAGE;
        item.iImage = image;
        Set(column, item);
    }

    // A bitmap at the right, beside the text.
    void SetBitmap(int column, const PatternImage& pattern)
    {
        m_bitmaps.push_back(MakeBitmap(pattern));
        HDITEMW item{};
        item.mask = HDI_BITMAP | HDI_FORMAT;
        item.hbm = m_bitmaps.back();
        item.fmt = HDF_STRING | HDF_BITMAP;
        Set(column, item);
    }

    void SetFormat(int column, int format)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        item.fmt = format;
        Set(column, item);
    }

    void SetCaption(int column, std::wstring caption)
    {
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = caption.data();
        Set(column, item);
    }

    void SetWidth(int column, int width)
    {
        HDITEMW item{};
        item.mask = HDI_WIDTH;
        item.cxy = width;
        Set(column, item);
    }

    CSize ClientSize()
    {
        CRect client;
        m_header.GetClientRect(&client);
        return client.Size();
    }

    CRect ItemRect(int column)
    {
        CRect rect;
        m_header.SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }

    // The three columns as they are at first.
    std::vector<PaintedItem> Plain()
    {
        return {{0, 100, L"First"}, {100, 180, L"Second"}, {180, 240, L"Third"}};
    }

    testkit::Picture Paint(const std::vector<PaintedItem>& items)
    {
        return PaintHeader(ClientSize(), items, {Light, Dark, Face, m_header.m_nSpacing}, m_font);
    }

    testkit::Picture Shown(BOOL isBuffered = TRUE)
    {
        m_header.m_bDoubleBuffer = isBuffered;
        m_header.Invalidate(TRUE);
        return testkit::Picture::OfClient(m_header.m_hWnd);
    }

    // Both ways of painting give the same.
    void ExpectShown(const testkit::Picture& expected)
    {
        EXPECT_EQ(FirstDifference(Shown(TRUE), expected), "") << "through a bitmap";
        EXPECT_EQ(FirstDifference(Shown(FALSE), expected), "") << "without a bitmap";
    }
    void ExpectItems(const std::vector<PaintedItem>& items) { ExpectShown(Paint(items)); }

    CWnd m_parent;
    CListCtrl m_view;
    NotingHeader m_header;
    HIMAGELIST m_images = nullptr;
    HFONT m_font = nullptr;
    std::vector<HBITMAP> m_bitmaps;

private:
    void Set(int column, const HDITEMW& item)
    {
        ASSERT_TRUE(
            m_header.SendMessage(HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item)));
    }
};
