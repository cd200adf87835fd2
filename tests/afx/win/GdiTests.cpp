// Who owns GDI objects and device contexts, and what selection returns.
#include "TestWindow.h"

#include "kit/LeakGate.h"

namespace
{
// A memory DC with a white bitmap of 20 by 20 pixels.
class CCanvas : public CDC
{
public:
    CCanvas()
    {
        CClientDC screen(nullptr);
        CreateCompatibleDC(&screen);
        m_bitmap.CreateCompatibleBitmap(&screen, 20, 20);
        m_pOld = SelectObject(&m_bitmap);
        PatBlt(0, 0, 20, 20, WHITENESS);
    }
    virtual ~CCanvas() { SelectObject(m_pOld); }
    CBitmap m_bitmap;
    CBitmap* m_pOld;
};
} // namespace

TEST(GdiObjects, DestructorDeletesTheHandle)
{
    HGDIOBJ hPen, hBrush, hFont, hBitmap, hRgn;
    {
        CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
        CBrush brush(RGB(1, 2, 3));
        CFont font;
        ASSERT_TRUE(font.CreatePointFont(100, _T("Arial")));
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateBitmap(4, 4, 1, 1, nullptr));
        CRgn region;
        ASSERT_TRUE(region.CreateRectRgn(0, 0, 5, 5));
        hPen = pen.m_hObject;
        hBrush = brush.m_hObject;
        hFont = font.m_hObject;
        hBitmap = bitmap.m_hObject;
        hRgn = region.m_hObject;
        EXPECT_EQ(UINT(OBJ_PEN), ::GetObjectType(hPen));
        EXPECT_EQ(UINT(OBJ_BRUSH), ::GetObjectType(hBrush));
        EXPECT_EQ(UINT(OBJ_FONT), ::GetObjectType(hFont));
        EXPECT_EQ(UINT(OBJ_BITMAP), ::GetObjectType(hBitmap));
        EXPECT_EQ(UINT(OBJ_REGION), ::GetObjectType(hRgn));
    }
    for (const HGDIOBJ handle : {hPen, hBrush, hFont, hBitmap, hRgn})
        EXPECT_EQ(0u, ::GetObjectType(handle));
}

TEST(GdiObjects, DetachedHandleIsTheCallers)
{
    HGDIOBJ handle;
    {
        CBrush brush(RGB(9, 9, 9));
        handle = brush.Detach();
        EXPECT_EQ(nullptr, brush.m_hObject);
        EXPECT_FALSE(brush.DeleteObject());
    }
    EXPECT_EQ(UINT(OBJ_BRUSH), ::GetObjectType(handle));
    ::DeleteObject(handle);
}

TEST(GdiObjects, TemporaryObjectsOwnNothing)
{
    const HBRUSH handle = ::CreateSolidBrush(RGB(1, 1, 1));
    CBrush* const temporary = CBrush::FromHandle(handle);
    EXPECT_EQ(handle, static_cast<HBRUSH>(*temporary));
    CGdiObject::DeleteTempMap();
    EXPECT_EQ(UINT(OBJ_BRUSH), ::GetObjectType(handle));
    ::DeleteObject(handle);
}

TEST(GdiObjects, OwnerIsFoundByItsHandle)
{
    CPen pen(PS_SOLID, 1, RGB(0, 0, 0));
    EXPECT_EQ(&pen, CPen::FromHandle(pen));
}

TEST(GdiObjects, CreatingAgainDeletesWhatWasThere)
{
    CBrush brush(RGB(1, 1, 1));
    const HGDIOBJ first = brush.m_hObject;
    ASSERT_TRUE(brush.CreateSolidBrush(RGB(2, 2, 2)));
    EXPECT_EQ(0u, ::GetObjectType(first));
    LOGBRUSH traits{};
    brush.GetLogBrush(&traits);
    EXPECT_EQ(RGB(2, 2, 2), traits.lbColor);
}

TEST(GdiObjects, ConstructorsThrowWhenGdiRefuses)
{
    CBitmap none;
    EXPECT_THROW(
        try { CBrush brush(&none); } catch (CResourceException* e) {
            e->Delete();
            throw 1;
        },
        int);
}

TEST(GdiObjects, PointFontIsAsHighAsItsPoints)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(120, _T("Arial")));
    LOGFONT traits{};
    font.GetLogFont(&traits);
    CClientDC screen(nullptr);
    // 12 points are a sixth of an inch.
    EXPECT_EQ(-::MulDiv(screen.GetDeviceCaps(LOGPIXELSY), 12, 72), traits.lfHeight);
    EXPECT_STREQ(_T("Arial"), traits.lfFaceName);
}

TEST(DeviceContexts, SelectObjectReturnsTheObjectThatWasSelected)
{
    CCanvas canvas;
    CPen first(PS_SOLID, 1, RGB(1, 0, 0));
    CPen second(PS_SOLID, 1, RGB(2, 0, 0));
    CPen* const stock = canvas.SelectObject(&first);
    ASSERT_NE(nullptr, stock);
    EXPECT_EQ(::GetStockObject(BLACK_PEN), stock->m_hObject);
    EXPECT_EQ(&first, canvas.SelectObject(&second));
    EXPECT_EQ(&second, canvas.GetCurrentPen());
    EXPECT_EQ(&second, canvas.SelectObject(stock));

    CBrush brush(RGB(3, 0, 0));
    CBrush* const oldBrush = canvas.SelectObject(&brush);
    EXPECT_EQ(&brush, canvas.SelectObject(oldBrush));
    CFont font;
    font.CreatePointFont(90, _T("Arial"));
    CFont* const oldFont = canvas.SelectObject(&font);
    EXPECT_EQ(&font, canvas.SelectObject(oldFont));
    CGdiObject* const oldObject = canvas.SelectStockObject(NULL_BRUSH);
    EXPECT_EQ(oldBrush->m_hObject, oldObject->m_hObject);
}

TEST(DeviceContexts, SelectingARegionGivesItsComplexity)
{
    CCanvas canvas;
    CRgn region;
    region.CreateRectRgn(0, 0, 5, 5);
    EXPECT_EQ(SIMPLEREGION, canvas.SelectObject(&region));
    CRect box;
    canvas.GetClipBox(box);
    EXPECT_EQ(CRect(0, 0, 5, 5), box);
}

TEST(DeviceContexts, DestructorDeletesWhatWasCreated)
{
    HDC hDC;
    {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        hDC = dc.m_hDC;
        EXPECT_EQ(hDC, dc.m_hAttribDC);
        EXPECT_EQ(&dc, CDC::FromHandle(hDC));
        EXPECT_EQ(UINT(OBJ_MEMDC), ::GetObjectType(hDC));
    }
    EXPECT_EQ(0u, ::GetObjectType(hDC));
}

TEST(DeviceContexts, ClientDcIsGivenBack)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make(WS_POPUP | WS_VISIBLE));
    {
        CClientDC dc(&window);
        EXPECT_EQ(&window, dc.GetWindow());
        CRect client;
        window.GetClientRect(client);
        CRect box;
        dc.GetClipBox(box);
        EXPECT_EQ(client, box);
    }
    EXPECT_EQ(nullptr, CDC::FromHandle(nullptr));
}

TEST(DeviceContexts, PaintDcPaintsAndValidates)
{
    class CPainted : public TestWindow<>
    {
    public:
        CRect m_rcPaint;
        int m_paints = 0;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message != WM_PAINT)
                return CWnd::WindowProc(message, wParam, lParam);
            CPaintDC dc(this);
            dc.FillSolidRect(CRect(0, 0, 200, 150), RGB(10, 20, 30));
            m_rcPaint = dc.m_ps.rcPaint;
            ++m_paints;
            return 0;
        }
    } window;
    ASSERT_TRUE(window.Make(WS_POPUP | WS_VISIBLE));
    window.UpdateWindow();
    window.m_paints = 0;
    window.InvalidateRect(CRect(5, 6, 15, 16));
    window.UpdateWindow();
    EXPECT_EQ(1, window.m_paints);
    EXPECT_EQ(CRect(5, 6, 15, 16), window.m_rcPaint);
    EXPECT_FALSE(window.GetUpdateRect(nullptr));
    CClientDC dc(&window);
    EXPECT_EQ(RGB(10, 20, 30), dc.GetPixel(7, 8));
}

TEST(DeviceContexts, SolidFillKeepsTheBackgroundColour)
{
    CCanvas canvas;
    canvas.SetBkColor(RGB(4, 5, 6));
    canvas.FillSolidRect(CRect(2, 2, 4, 4), RGB(200, 100, 50));
    EXPECT_EQ(RGB(4, 5, 6), canvas.GetBkColor());
    EXPECT_EQ(RGB(200, 100, 50), canvas.GetPixel(3, 3));
    EXPECT_EQ(RGB(255, 255, 255), canvas.GetPixel(4, 4));
}

TEST(DeviceContexts, ThreeDimensionalFrameIsOnePixelWideInside)
{
    CCanvas canvas;
    const COLORREF upper = RGB(200, 0, 0);
    const COLORREF lower = RGB(0, 0, 200);
    canvas.Draw3dRect(CRect(2, 3, 10, 9), upper, lower);
    EXPECT_EQ(upper, canvas.GetPixel(2, 3));
    EXPECT_EQ(upper, canvas.GetPixel(8, 3));
    EXPECT_EQ(upper, canvas.GetPixel(2, 7));
    EXPECT_EQ(lower, canvas.GetPixel(9, 3)) << "the right edge has the upper right corner";
    EXPECT_EQ(lower, canvas.GetPixel(2, 8)) << "the lower edge has the lower left corner";
    EXPECT_EQ(lower, canvas.GetPixel(9, 8));
    EXPECT_EQ(RGB(255, 255, 255), canvas.GetPixel(3, 4));
    EXPECT_EQ(RGB(255, 255, 255), canvas.GetPixel(10, 5));
}

TEST(DeviceContexts, SavedStateComesBack)
{
    CCanvas canvas;
    canvas.SetTextColor(RGB(1, 2, 3));
    const int saved = canvas.SaveDC();
    EXPECT_EQ(RGB(1, 2, 3), canvas.SetTextColor(RGB(7, 7, 7)));
    EXPECT_TRUE(canvas.RestoreDC(saved));
    EXPECT_EQ(RGB(1, 2, 3), canvas.GetTextColor());
}

TEST(DeviceContexts, AttributesAreAskedOfTheAttributeDc)
{
    CCanvas output;
    CCanvas attributes;
    CDC dc;
    dc.Attach(output.Detach());
    dc.SetAttribDC(attributes.m_hDC);
    ::SetTextColor(attributes.m_hDC, RGB(50, 0, 0));
    EXPECT_EQ(RGB(50, 0, 0), dc.GetTextColor());
    dc.SetTextColor(RGB(60, 0, 0));
    EXPECT_EQ(RGB(60, 0, 0), ::GetTextColor(dc.m_hDC)) << "set in both";
    EXPECT_EQ(RGB(60, 0, 0), ::GetTextColor(attributes.m_hDC));
    output.Attach(dc.Detach());
}

TEST(DeviceContexts, TextExtentIsThatOfTheSelectedFont)
{
    CCanvas canvas;
    SIZE expected{};
    ::GetTextExtentPoint32(canvas.m_hDC, _T("Width"), 5, &expected);
    EXPECT_EQ(CSize(expected), canvas.GetTextExtent(CString(_T("Width"))));
    EXPECT_GT(expected.cx, 0);
}

TEST(DeviceContexts, HalftoneBrushHasEverySecondPixel)
{
    testkit::AllowGrowth(testkit::GdiObjects, 1, "the framework keeps one such brush for each thread");
    testkit::AllowGrowth(testkit::HeapBlocks, 1, "its entry in the map of GDI objects");
    CCanvas canvas;
    CBrush* const brush = CDC::GetHalftoneBrush();
    ASSERT_NE(nullptr, brush);
    canvas.SetTextColor(RGB(0, 0, 0));
    canvas.SetBkColor(RGB(255, 255, 255));
    canvas.FillRect(CRect(0, 0, 8, 8), brush);
    int dark = 0;
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            dark += canvas.GetPixel(x, y) == RGB(0, 0, 0);
            EXPECT_NE(canvas.GetPixel(x, y), canvas.GetPixel(x, (y + 1) % 8)) << x << ", " << y;
        }
    }
    EXPECT_EQ(32, dark);
}

TEST(ImageLists, OwnAndShareLikeOtherHandles)
{
    HIMAGELIST handle;
    {
        CImageList images;
        ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 2, 2));
        handle = images.m_hImageList;
        EXPECT_EQ(&images, CImageList::FromHandle(handle));
        EXPECT_EQ(&images, CImageList::FromHandlePermanent(handle));
        EXPECT_EQ(0, images.GetImageCount());
        EXPECT_EQ(0, images.Add(::LoadIcon(nullptr, IDI_APPLICATION)));
        EXPECT_EQ(1, images.GetImageCount());
        CImageList copy;
        ASSERT_TRUE(copy.Create(&images));
        EXPECT_EQ(1, copy.GetImageCount());
        EXPECT_NE(handle, copy.m_hImageList);
    }
    EXPECT_EQ(nullptr, CImageList::FromHandlePermanent(handle));
}
