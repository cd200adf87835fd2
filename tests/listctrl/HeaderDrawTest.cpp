#include "HeaderGround.h"

#include <array>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

using HeaderDraw = HeaderTest;

const PatternImage Images[] = {{12, 10, 0}, {12, 10, 1}, {12, 10, 2}};

} // namespace

TEST_F(HeaderDraw, WithoutImageListThereAreCaptionsAlone)
{
    SetImage(0, 1);
    SetImage(1, 2);
    ExpectItems(Plain());
}

TEST_F(HeaderDraw, SystemColorsAreTheDefault)
{
    m_header.SendMessage(WM_SYSCOLORCHANGE);
    ExpectShown(PaintHeader(
        ClientSize(), Plain(),
        {GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNFACE)}, m_font));
}

TEST_F(HeaderDraw, CaptionsAreBlueWhateverTheTextColor)
{
    const testkit::Picture shown = Shown();
    EXPECT_GT(shown.Count(RGB(0, 0, 255)), 0);
    EXPECT_EQ(shown.Count(Text), 0);
}

TEST_F(HeaderDraw, ImageIndexZeroShowsNoImage)
{
    UseImages({Images[0], Images[1], Images[2]});
    SetImage(0, 0);
    SetImage(1, 1);
    SetImage(2, 2);
    std::vector<PaintedItem> items = Plain();
    items[1].image = Images[1];
    items[2].image = Images[2];
    ExpectItems(items);
}

TEST_F(HeaderDraw, ImageListKeepsItsBackground)
{
    UseImages({Images[0], Images[1]});
    constexpr COLORREF Own = RGB(255, 0, 0);
    ImageList_SetBkColor(m_images, Own);
    SetImage(0, 1);
    std::vector<PaintedItem> items = Plain();
    items[0].image = Images[1];
    ExpectItems(items);
    EXPECT_EQ(ImageList_GetBkColor(m_images), Own);
}

TEST_F(HeaderDraw, ImageIsCutToTheRoom)
{
    UseImages({Images[0], Images[1]});
    SetImage(1, 1);
    SetWidth(1, 19);
    std::vector<PaintedItem> items{
        {0, 100, L"First"}, {100, 119, L"Second", Images[1]}, {119, 179, L"Third"}};
    ExpectItems(items);
}

TEST_F(HeaderDraw, OnePixelOfRoomShowsOneColumnOfTheImage)
{
    UseImages({Images[0], Images[1]});
    SetImage(1, 1);
    SetWidth(1, 13);
    ExpectItems({{0, 100, L"First"}, {100, 113, L"Second", Images[1]}, {113, 173, L"Third"}});
    SetWidth(1, 12);
    ExpectItems({{0, 100, L"First"}, {100, 112, {}}, {112, 172, L"Third"}});
}

TEST_F(HeaderDraw, ImageHigherThanTheHeaderIsCentred)
{
    const PatternImage tall{12, 41, 1};
    UseImages({{12, 41}, tall});
    SetImage(0, 1);
    std::vector<PaintedItem> items = Plain();
    items[0].image = tall;
    ExpectItems(items);
}

TEST_F(HeaderDraw, BitmapStandsAtTheRight)
{
    const PatternImage bitmap{15, 11, 3};
    SetBitmap(0, bitmap);
    std::vector<PaintedItem> items = Plain();
    items[0].bitmap = bitmap;
    ExpectItems(items);
}

// 80 pixels of column less two gaps of 6.
TEST_F(HeaderDraw, BitmapAsWideAsTheRoomIsDrawn)
{
    const PatternImage bitmap{68, 7, 3};
    SetBitmap(1, bitmap);
    std::vector<PaintedItem> items = Plain();
    items[1].bitmap = bitmap;
    ExpectItems(items);
}

TEST_F(HeaderDraw, BitmapWiderThanTheRoomLeavesItToTheCaption)
{
    SetBitmap(1, {69, 7, 3});
    ExpectItems(Plain());
}

TEST_F(HeaderDraw, BitmapWithoutItsFormatIsNotDrawn)
{
    SetBitmap(1, {10, 7, 3});
    SetFormat(1, HDF_STRING);
    ExpectItems(Plain());
}

TEST_F(HeaderDraw, ImageTextAndBitmapShareTheItem)
{
    UseImages({Images[0], Images[1]});
    SetImage(0, 1);
    const PatternImage bitmap{15, 11, 3};
    SetBitmap(0, bitmap);
    std::vector<PaintedItem> items = Plain();
    items[0].image = Images[1];
    items[0].bitmap = bitmap;
    ExpectItems(items);
}

// 100 less two gaps, less the image of 12 and a gap: 70.
TEST_F(HeaderDraw, ImageTakesTheBitmapsRoom)
{
    UseImages({Images[0], Images[1]});
    SetImage(0, 1);
    SetBitmap(0, {71, 5, 3});
    std::vector<PaintedItem> items = Plain();
    items[0].image = Images[1];
    ExpectItems(items);
}

TEST_F(HeaderDraw, ItemWithoutStringFormatHasNoCaption)
{
    SetFormat(1, HDF_LEFT);
    std::vector<PaintedItem> items = Plain();
    items[1].caption.clear();
    ExpectItems(items);
}

TEST_F(HeaderDraw, AlignmentOfTheItemIsIgnored)
{
    SetFormat(0, HDF_STRING | HDF_RIGHT);
    SetFormat(1, HDF_STRING | HDF_LEFT);
    SetFormat(2, HDF_STRING | HDF_CENTER);
    ExpectItems(Plain());
}

// Laid out by hand: half of the column less half of the text. The rounding of odd heights is the platform's.
TEST_F(HeaderDraw, CaptionIsCentred)
{
    const testkit::Picture shown = Shown();
    const testkit::Picture column = testkit::Picture::OfDc(shown.Dc(), {0, 0, 99, shown.Height()});
    const testkit::Picture byHand(99, shown.Height(), Face);
    SIZE size{};
    const HGDIOBJ old = SelectObject(byHand.Dc(), m_font);
    GetTextExtentPoint32W(byHand.Dc(), L"First", 5, &size);
    SetTextColor(byHand.Dc(), RGB(0, 0, 255));
    TextOutW(byHand.Dc(), (100 - size.cx) / 2, (shown.Height() - size.cy) / 2, L"First", 5);
    SelectObject(byHand.Dc(), old);
    const CRect actual(column.BoxOf(RGB(0, 0, 255)));
    const CRect expected(byHand.BoxOf(RGB(0, 0, 255)));
    ASSERT_FALSE(expected.IsRectEmpty());
    EXPECT_EQ(actual.Size(), expected.Size());
    EXPECT_NEAR(actual.left, expected.left, 1);
    EXPECT_NEAR(actual.top, expected.top, 1);
}

TEST_F(HeaderDraw, LongCaptionEndsInAnEllipsis)
{
    const std::wstring caption = L"A caption far longer than its column can show";
    SetCaption(1, caption);
    std::vector<PaintedItem> items = Plain();
    items[1].caption = caption;
    ExpectItems(items);
}

TEST_F(HeaderDraw, AccessMarksAreLeftToTheTextRoutine)
{
    SetCaption(0, L"&Name && more");
    std::vector<PaintedItem> items = Plain();
    items[0].caption = L"&Name && more";
    ExpectItems(items);
}

TEST_F(HeaderDraw, EmptyCaptionShowsNothing)
{
    SetCaption(0, {});
    std::vector<PaintedItem> items = Plain();
    items[0].caption.clear();
    ExpectItems(items);
}

TEST_F(HeaderDraw, CaptionIsReadIntoRoomFor160Characters)
{
    SetCaption(0, std::wstring(200, L'x'));
    Shown();
    ASSERT_THAT(m_header.drawn, SizeIs(3));
    EXPECT_EQ(m_header.drawn[0].caption, std::wstring(159, L'x'));
    EXPECT_EQ(m_header.drawn[0].item.cchTextMax, 160);
}

TEST_F(HeaderDraw, FontIsTheHeaders)
{
    UseFont(L"Liberation Mono", -13);
    ExpectItems(Plain());
    ASSERT_FALSE(m_header.drawn.empty());
    EXPECT_EQ(m_header.drawn[0].font, m_font);
}

TEST_F(HeaderDraw, ReorderedColumnsAreDrawnInTheirOrder)
{
    std::array<int, 3> order{2, 0, 1};
    ASSERT_TRUE(m_header.SendMessage(HDM_SETORDERARRAY, 3, reinterpret_cast<LPARAM>(order.data())));
    UseImages({Images[0], Images[1], Images[2]});
    SetImage(1, 2);
    ExpectItems({{0, 60, L"Third"}, {60, 160, L"First"}, {160, 240, L"Second", Images[2]}});
}

TEST_F(HeaderDraw, ColumnWithoutWidthKeepsItsDivider)
{
    SetWidth(1, 0);
    ExpectItems({{0, 100, L"First"}, {100, 100, L"Second"}, {100, 160, L"Third"}});
}

TEST_F(HeaderDraw, ColumnsWithoutWidthHaveNoFrame)
{
    for (int column = 0; column < 3; ++column)
        SetWidth(column, 0);
    ExpectItems({{0, 0, {}}, {0, 0, {}}, {0, 0, {}}});
}

TEST_F(HeaderDraw, HeaderWithoutItemsIsFaceAlone)
{
    for (int column = 0; column < 3; ++column)
        ASSERT_TRUE(m_view.DeleteColumn(0));
    ExpectShown(testkit::Picture(ClientSize().cx, ClientSize().cy, Face));
    EXPECT_THAT(m_header.drawn, IsEmpty());
}

TEST_F(HeaderDraw, SingleColumnHasNoDivider)
{
    ASSERT_TRUE(m_view.DeleteColumn(2));
    ASSERT_TRUE(m_view.DeleteColumn(1));
    ExpectItems({{0, 100, L"First"}});
}

TEST_F(HeaderDraw, ColumnsAsWideAsTheHeaderHaveTheWholeFrame)
{
    SetWidth(2, ClientSize().cx - 180);
    ExpectItems({{0, 100, L"First"}, {100, 180, L"Second"}, {180, ClientSize().cx, L"Third"}});
}

TEST_F(HeaderDraw, FrameOfColumnsWiderThanTheHeaderEndsWithTheHeader)
{
    NotingHeader header;
    ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ, CRect(10, 270, 110, 292), &m_parent, 8));
    header.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font));
    header.m_cr3DHighLight = Light;
    header.m_cr3DShadow = Dark;
    header.m_cr3DFace = Face;
    for (const PaintedItem& item : Plain()) {
        std::wstring caption = item.caption;
        HDITEM described{};
        described.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
        described.fmt = HDF_STRING;
        described.pszText = caption.data();
        described.cxy = item.right - item.left;
        ASSERT_GE(header.InsertItem(header.GetItemCount(), &described), 0);
    }
    const testkit::Picture shown = testkit::Picture::OfClient(header.m_hWnd);
    ASSERT_EQ(shown.Width(), 100);
    EXPECT_EQ(FirstDifference(shown, PaintHeader({100, 22}, Plain(), {Light, Dark, Face}, m_font)), "");
    EXPECT_EQ(shown.Count(Dark, CRect(99, 0, 100, 22)), 22);
}

TEST_F(HeaderDraw, SpacingWidensTheGaps)
{
    UseImages({Images[0], Images[1]});
    SetImage(0, 1);
    const PatternImage bitmap{15, 11, 3};
    SetBitmap(0, bitmap);
    std::vector<PaintedItem> items = Plain();
    items[0].image = Images[1];
    items[0].bitmap = bitmap;
    const testkit::Picture narrow = Shown();
    m_header.ModifyProperty(1, 10);
    ExpectItems(items);
    EXPECT_FALSE(Shown() == narrow);
    m_header.ModifyProperty(1, 0);
    ExpectItems(items);
}

TEST_F(HeaderDraw, OwnerDrawnItemShowsFaceAndDividerAlone)
{
    UseImages({Images[0], Images[1]});
    SetImage(1, 1);
    SetFormat(1, HDF_STRING | HDF_OWNERDRAW);
    std::vector<PaintedItem> items = Plain();
    items[1].isOwnerDrawn = true;
    ExpectItems(items);
}

TEST_F(HeaderDraw, OwnerDrawnItemIsDescribed)
{
    SetFormat(1, HDF_OWNERDRAW);
    Shown();
    ASSERT_THAT(m_header.ownerDrawn, SizeIs(1));
    const DRAWITEMSTRUCT& draw = m_header.ownerDrawn[0];
    EXPECT_EQ(draw.CtlType, 4u);
    EXPECT_EQ(draw.CtlID, static_cast<UINT>(::GetDlgCtrlID(m_header.m_hWnd)));
    EXPECT_EQ(draw.itemID, 1u);
    EXPECT_EQ(draw.itemAction, static_cast<UINT>(ODA_DRAWENTIRE));
    EXPECT_EQ(draw.itemState, 0u);
    EXPECT_EQ(draw.hwndItem, m_header.m_hWnd);
    EXPECT_NE(draw.hDC, nullptr);
    EXPECT_EQ(CRect(draw.rcItem), ItemRect(1));
    EXPECT_EQ(draw.itemData, 0u);
    EXPECT_THAT(m_header.drawn, SizeIs(2));
}

TEST_F(HeaderDraw, OwnerDrawnItemIsNamedByIndexNotPosition)
{
    std::array<int, 3> order{2, 0, 1};
    m_header.SendMessage(HDM_SETORDERARRAY, 3, reinterpret_cast<LPARAM>(order.data()));
    SetFormat(2, HDF_OWNERDRAW);
    Shown();
    ASSERT_THAT(m_header.ownerDrawn, SizeIs(1));
    EXPECT_EQ(m_header.ownerDrawn[0].itemID, 2u);
    EXPECT_EQ(CRect(m_header.ownerDrawn[0].rcItem), CRect(0, 0, 60, ClientSize().cy));
}

TEST_F(HeaderDraw, ItemsAreHandedOverNarrowedByTheGap)
{
    SetImage(1, 2);
    Shown();
    ASSERT_THAT(m_header.drawn, SizeIs(3));
    for (int column = 0; column < 3; ++column) {
        CRect narrowed(ItemRect(column));
        narrowed.DeflateRect(6, 0);
        EXPECT_EQ(m_header.drawn[static_cast<size_t>(column)].rect, narrowed);
    }
    EXPECT_EQ(m_header.drawn[1].item.cxy, 80);
    EXPECT_EQ(m_header.drawn[1].item.iImage, 2);
    EXPECT_EQ(m_header.drawn[1].caption, L"Second");
}

TEST_F(HeaderDraw, ContextHasTextColorAndFaceBeforeTheFirstItem)
{
    Shown();
    ASSERT_FALSE(m_header.drawn.empty());
    EXPECT_EQ(m_header.drawn[0].textColor, Text);
    EXPECT_EQ(m_header.drawn[0].backColor, Face);
}

TEST_F(HeaderDraw, ContextKeepsItsFontAndPen)
{
    const testkit::Picture picture(240, 30);
    CDC dc;
    dc.Attach(picture.Dc());
    const HGDIOBJ font = GetCurrentObject(picture.Dc(), OBJ_FONT);
    const HGDIOBJ pen = GetCurrentObject(picture.Dc(), OBJ_PEN);
    m_header.DrawCtrl(&dc);
    EXPECT_EQ(GetCurrentObject(picture.Dc(), OBJ_FONT), font);
    EXPECT_EQ(GetCurrentObject(picture.Dc(), OBJ_PEN), pen);
    dc.Detach();
}

TEST_F(HeaderDraw, ContextWithoutClipBoxGetsNothing)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    ::DeleteDC(dc.GetSafeHdc());
    m_header.DrawCtrl(&dc);
    dc.Detach();
    EXPECT_THAT(m_header.drawn, IsEmpty());
}

TEST_F(HeaderDraw, GoesThroughABitmapOfTheClipBox)
{
    Shown();
    m_header.drawn.clear();
    const CRect clip(90, 4, 150, ClientSize().cy - 3);
    m_header.InvalidateRect(clip);
    m_header.UpdateWindow();
    ASSERT_THAT(m_header.drawn, SizeIs(3));
    EXPECT_EQ(m_header.drawn[0].contextType, static_cast<DWORD>(OBJ_MEMDC));
    EXPECT_EQ(m_header.drawn[0].bitmapSize, clip.Size());
    EXPECT_EQ(m_header.drawn[0].windowOrigin, clip.TopLeft());
}

TEST_F(HeaderDraw, GoesStraightToTheWindowWithoutDoubleBuffer)
{
    Shown(FALSE);
    ASSERT_THAT(m_header.drawn, SizeIs(3));
    EXPECT_EQ(m_header.drawn[0].contextType, static_cast<DWORD>(OBJ_DC));
    EXPECT_EQ(m_header.drawn[0].windowOrigin, CPoint(0, 0));
}

TEST_F(HeaderDraw, ItemsOutsideTheClipBoxAreDrawnToo)
{
    Shown();
    m_header.drawn.clear();
    m_header.InvalidateRect(CRect(0, 0, 10, 10));
    m_header.UpdateWindow();
    EXPECT_THAT(m_header.drawn, SizeIs(3));
}

TEST_F(HeaderDraw, PaintingStaysInsideTheClipBox)
{
    constexpr COLORREF Stale = RGB(250, 3, 250);
    const CSize size = ClientSize();
    const CRect clip(90, 4, 150, size.cy - 3);
    for (const BOOL isBuffered : {TRUE, FALSE}) {
        m_header.m_bDoubleBuffer = isBuffered;
        m_header.UpdateWindow();
        {
            CClientDC dc(&m_header);
            dc.FillSolidRect(0, 0, size.cx, size.cy, Stale);
        }
        m_header.InvalidateRect(clip);
        const testkit::Picture shown = testkit::Picture::OfClient(m_header.m_hWnd);
        const testkit::Picture expected(size.cx, size.cy, Stale);
        BitBlt(expected.Dc(), clip.left, clip.top, clip.Width(), clip.Height(), Paint(Plain()).Dc(),
               clip.left, clip.top, SRCCOPY);
        EXPECT_EQ(FirstDifference(shown, expected), "") << isBuffered;
    }
}
