// Toolbars on show: their windows, buttons, pictures, tooltips and clicks.
#include "ShellFixture.h"

#include <set>

#include "kit/Files.h"
#include "kit/Input.h"
#include "kit/Picture.h"
#include "kit/Pump.h"

namespace hosttest
{

using namespace velmhost;

namespace
{

CRect WindowRectOf(HWND window)
{
    CRect rect;
    ::GetWindowRect(window, &rect);
    return rect;
}

bool Overlap(const CRect& left, const CRect& right)
{
    CRect common;
    return common.IntersectRect(&left, &right) != FALSE;
}

TBBUTTON ButtonAt(const CToolbarPane& pane, int position)
{
    TBBUTTON button{};
    ::SendMessageW(pane.Control(), TB_GETBUTTON, static_cast<WPARAM>(position),
                   reinterpret_cast<LPARAM>(&button));
    return button;
}

HWND TooltipOf(const CToolbarPane& pane)
{
    return reinterpret_cast<HWND>(::SendMessageW(pane.Control(), TB_GETTOOLTIPS, 0, 0));
}

std::wstring TooltipText(HWND tooltip)
{
    wchar_t text[256] = L"";
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    if (::SendMessageW(tooltip, TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool))) {
        tool.lpszText = text;
        ::SendMessageW(tooltip, TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&tool));
    }
    return text;
}

constexpr COLORREF kMarker = RGB(250, 1, 252);

// A picture of `side` pixels in which no two neighbours are alike, with a marker in the upper left corner and
// a transparent pixel beside it.
COLORREF TestPixel(int x, int y)
{
    if (x == 0 && y == 0)
        return kMarker;
    if (x == 1 && y == 0)
        return RGB(192, 192, 192);
    return RGB(x * 10, y * 10, (x + y) % 2 ? 200 : 40);
}

} // namespace

class ShellToolbars : public ShellFixture
{
protected:
    // What a button looks like now, with the mouse elsewhere.
    testkit::Picture PictureOfButton(const CToolbarPane& pane, ElementId item)
    {
        ParkMouse();
        CRect box = pane.ButtonRect(pane.PositionOf(item));
        ::ScreenToClient(pane.Control(), reinterpret_cast<POINT*>(&box));
        ::ScreenToClient(pane.Control(), reinterpret_cast<POINT*>(&box) + 1);
        ::RedrawWindow(pane.Control(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const HDC dc = ::GetDC(pane.Control());
        testkit::Picture picture = testkit::Picture::OfDc(dc, box);
        ::ReleaseDC(pane.Control(), dc);
        return picture;
    }
    std::wstring WriteTestBitmap(const testkit::TempFolder& folder, const wchar_t* name, int side)
    {
        WriteBitmap(folder / name, side, side, TestPixel);
        return (folder / name).wstring();
    }
};

TEST_F(ShellToolbars, VisibleToolbarIsAWindowWithItsButtons)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId line = AddButton(toolbar, L"Line");
    Model().AddToolbarSeparator(toolbar, kAtEnd);
    AddButton(toolbar, L"Arc");
    Show();
    CToolbarPane& pane = Pane(toolbar);
    EXPECT_TRUE(pane.IsWindowVisible());
    ASSERT_EQ(::SendMessageW(pane.Control(), TB_BUTTONCOUNT, 0, 0), 3);
    EXPECT_EQ(ButtonAt(pane, 0).fsStyle & BTNS_SEP, 0);
    EXPECT_EQ(ButtonAt(pane, 1).fsStyle & BTNS_SEP, BTNS_SEP);
    EXPECT_EQ(ButtonAt(pane, 2).fsStyle & BTNS_SEP, 0);
    EXPECT_EQ(pane.ItemAt(0), line);
    EXPECT_EQ(pane.ItemAt(3), 0u);
}

TEST_F(ShellToolbars, HiddenAndRemovedToolbarsHaveNoWindow)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    Show();
    EXPECT_NE(Frame().Toolbars().FindPane(toolbar), nullptr);
    Model().SetToolbarVisible(toolbar, false);
    Show();
    EXPECT_EQ(Frame().Toolbars().FindPane(toolbar), nullptr);
    Model().SetToolbarVisible(toolbar, true);
    Show();
    EXPECT_NE(Frame().Toolbars().FindPane(toolbar), nullptr);
    Model().RemoveToolbar(toolbar);
    Show();
    EXPECT_EQ(Frame().Toolbars().FindPane(toolbar), nullptr);
}

TEST_F(ShellToolbars, NewToolbarFloatsUnderItsNameAndCoversNoOther)
{
    std::vector<ElementId> toolbars;
    for (int i = 0; i < 8; ++i) {
        toolbars.push_back(AddToolbar((L"Bar " + std::to_wstring(i)).c_str()));
        for (int n = 0; n <= i; ++n)
            AddButton(toolbars.back(), L"B");
    }
    Show();
    const CRect sheet = WindowRectOf(Frame().DrawingArea());
    for (std::size_t i = 0; i < toolbars.size(); ++i) {
        CString caption;
        Pane(toolbars[i]).GetWindowText(caption);
        EXPECT_EQ(std::wstring(caption.GetString()), L"Bar " + std::to_wstring(i));
        const CRect rect = WindowRectOf(Pane(toolbars[i]).m_hWnd);
        CRect inside;
        inside.IntersectRect(&sheet, &rect);
        EXPECT_EQ(inside, rect) << i;
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_FALSE(Overlap(rect, WindowRectOf(Pane(toolbars[other]).m_hWnd))) << i << " and " << other;
    }
}

TEST_F(ShellToolbars, FloatingToolbarGoesWhereTheModelHasIt)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    AddButton(toolbar, L"Line");
    Model().FloatToolbar(toolbar, 300, 400, 1);
    Show();
    EXPECT_EQ(WindowRectOf(Pane(toolbar).m_hWnd).TopLeft(), CPoint(400, 300));
    Model().SetToolbarPosition(toolbar, 250, 260);
    Show();
    EXPECT_EQ(WindowRectOf(Pane(toolbar).m_hWnd).TopLeft(), CPoint(250, 260));
}

TEST_F(ShellToolbars, ModelIsToldWhereAToolbarIs)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    AddButton(toolbar, L"Line");
    Show();
    const CRect rect = WindowRectOf(Pane(toolbar).m_hWnd);
    const ToolbarFrame frame = Model().FindToolbar(toolbar)->frame;
    EXPECT_EQ(CRect(CPoint(frame.left, frame.top), CSize(frame.width, frame.height)), rect);
}

TEST_F(ShellToolbars, DockedToolbarsStandAlongTheirEdgesSideBySide)
{
    std::vector<ElementId> toolbars;
    for (const DockStatus side : {DockStatus::Top, DockStatus::Top, DockStatus::Bottom, DockStatus::Left,
                                  DockStatus::Left, DockStatus::Right})
    {
        toolbars.push_back(AddToolbar((L"Bar " + std::to_wstring(toolbars.size())).c_str()));
        for (int i = 0; i < 4; ++i)
            AddButton(toolbars.back(), L"B");
        Model().DockToolbar(toolbars.back(), side);
    }
    Show();
    std::vector<CRect> rects;
    for (const ElementId toolbar : toolbars)
        rects.push_back(WindowRectOf(Pane(toolbar).m_hWnd));
    const CRect sheet = WindowRectOf(Frame().DrawingArea());
    EXPECT_LE(rects[0].bottom, sheet.top);
    EXPECT_EQ(rects[0].top, rects[1].top);
    EXPECT_GE(rects[1].left, rects[0].right);
    EXPECT_GE(rects[2].top, sheet.bottom);
    EXPECT_LE(rects[3].right, sheet.left);
    EXPECT_GE(rects[4].top, rects[3].bottom);
    EXPECT_GE(rects[5].left, sheet.right);
    EXPECT_GT(rects[0].Width(), rects[0].Height());
    EXPECT_GT(rects[3].Height(), rects[3].Width());
    for (std::size_t i = 0; i < rects.size(); ++i) {
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_FALSE(Overlap(rects[i], rects[other])) << i << " and " << other;
    }
}

TEST_F(ShellToolbars, ColumnHasOneButtonBelowTheOther)
{
    const ElementId toolbar = AddToolbar(L"Left");
    for (int i = 0; i < 6; ++i) {
        if (i == 2 || i == 5)
            Model().AddToolbarSeparator(toolbar, kAtEnd);
        AddButton(toolbar, L"B");
    }
    Model().DockToolbar(toolbar, DockStatus::Left);
    Show();
    CToolbarPane& pane = Pane(toolbar);
    const CRect bar = WindowRectOf(pane.m_hWnd);
    ASSERT_EQ(pane.ItemCount(), 8);
    CRect above;
    above.SetRectEmpty();
    for (const int i : {0, 1, 3, 4, 5, 7}) {
        const CRect button = pane.ButtonRect(i);
        EXPECT_EQ(button.left, pane.ButtonRect(0).left) << i;
        // A separator before the button makes a gap.
        EXPECT_EQ(button.top > above.bottom, i == 0 || i == 3 || i == 7) << i;
        EXPECT_GE(button.top, above.bottom) << i;
        EXPECT_LE(button.bottom, bar.bottom) << i;
        above = button;
    }
}

TEST_F(ShellToolbars, DockedRowThatIsFullIsFollowedByAnother)
{
    std::vector<ElementId> toolbars;
    for (int i = 0; i < 6; ++i) {
        toolbars.push_back(AddToolbar((L"Bar " + std::to_wstring(i)).c_str()));
        for (int n = 0; n < 12; ++n)
            AddButton(toolbars.back(), L"B");
        Model().DockToolbar(toolbars.back(), DockStatus::Top);
    }
    Show();
    CRect client;
    Frame().GetClientRect(&client);
    Frame().ClientToScreen(&client);
    std::set<LONG> tops;
    for (const ElementId toolbar : toolbars) {
        const CRect rect = WindowRectOf(Pane(toolbar).m_hWnd);
        tops.insert(rect.top);
        EXPECT_LE(rect.right, client.right);
    }
    EXPECT_GT(tops.size(), 1u);
}

TEST_F(ShellToolbars, ToolbarLongerThanTheWindowWrapsItsButtons)
{
    const ElementId toolbar = AddToolbar(L"Long");
    for (int i = 0; i < 100; ++i)
        AddButton(toolbar, L"B");
    Model().DockToolbar(toolbar, DockStatus::Top);
    Show();
    CToolbarPane& pane = Pane(toolbar);
    const CRect bar = WindowRectOf(pane.m_hWnd);
    for (int i = 0; i < 100; ++i) {
        const CRect button = pane.ButtonRect(i);
        CRect inside;
        inside.IntersectRect(&bar, &button);
        EXPECT_EQ(inside, button) << i;
    }
    EXPECT_LT(pane.ButtonRect(0).top, pane.ButtonRect(99).top);
}

TEST_F(ShellToolbars, FloatingRowsAreHonoured)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    for (int i = 0; i < 6; ++i)
        AddButton(toolbar, L"B");
    Model().SetToolbarRows(toolbar, 2);
    Show();
    std::set<LONG> tops;
    for (int i = 0; i < 6; ++i)
        tops.insert(Pane(toolbar).ButtonRect(i).top);
    EXPECT_EQ(tops.size(), 2u);
    EXPECT_EQ(Pane(toolbar).ButtonRect(0).left, Pane(toolbar).ButtonRect(3).left);
}

TEST_F(ShellToolbars, ClickedButtonSendsItsMacroExactly)
{
    for (const bool docked : {false, true}) {
        const ElementId toolbar = AddToolbar(docked ? L"Docked" : L"Floating");
        AddButton(toolbar, L"Line", L"line ");
        Model().AddToolbarSeparator(toolbar, kAtEnd);
        const ElementId arc = AddButton(toolbar, L"Arc", L"\x03\x03_arc \n");
        if (docked)
            Model().DockToolbar(toolbar, DockStatus::Top);
        Show();
        App().ForgetTexts();
        Click(Pane(toolbar), arc);
        EXPECT_EQ(Sent(), std::vector<std::wstring>{L"\x03\x03_arc \n"});
    }
    EXPECT_EQ(::GetFocus(), Frame().CommandPane().EditControl());
}

TEST_F(ShellToolbars, ButtonUnderTheMouseShowsNameAndHelp)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId line = AddButton(toolbar, L"Line & more", L"l ", L"Draws a line");
    Show();
    testkit::Mouse::MoveTo(ButtonPoint(Pane(toolbar), line));
    EXPECT_TRUE(testkit::PumpUntil([&] { return ::IsWindowVisible(TooltipOf(Pane(toolbar))) != FALSE; }));
    EXPECT_EQ(TooltipText(TooltipOf(Pane(toolbar))), L"Line & more");
    EXPECT_EQ(Frame().StatusText(), L"Draws a line");
    ParkMouse();
    EXPECT_TRUE(testkit::PumpUntil([&] { return Frame().StatusText() == L"Ready"; }));
}

TEST_F(ShellToolbars, PictureIsTheFilesPixelForPixel)
{
    testkit::TempFolder folder;
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId line = AddButton(toolbar, L"Line");
    Model().SetToolbarItemBitmaps(line, WriteTestBitmap(folder, L"l16.bmp", 16), L"");
    Show();
    const testkit::Picture picture = PictureOfButton(Pane(toolbar), line);
    const CRect marker = picture.BoxOf(kMarker);
    ASSERT_EQ(marker.Size(), CSize(1, 1));
    const COLORREF face = picture.Pixel(marker.left - 1, marker.top);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const COLORREF expected = x == 1 && y == 0 ? face : TestPixel(x, y);
            EXPECT_EQ(picture.Pixel(marker.left + x, marker.top + y), expected) << x << ", " << y;
        }
    }
}

TEST_F(ShellToolbars, LargeButtonsShowTheLargePicture)
{
    testkit::TempFolder folder;
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId line = AddButton(toolbar, L"Line");
    Model().SetToolbarItemBitmaps(line, WriteTestBitmap(folder, L"l16.bmp", 16),
                                  WriteTestBitmap(folder, L"l24.bmp", 24));
    Show();
    const CSize small = Pane(toolbar).ButtonRect(0).Size();
    Model().SetLargeButtons(true);
    Show();
    const CSize large = Pane(toolbar).ButtonRect(0).Size();
    EXPECT_EQ(large, small + CSize(8, 8));
    const testkit::Picture picture = PictureOfButton(Pane(toolbar), line);
    const CRect marker = picture.BoxOf(kMarker);
    ASSERT_EQ(marker.Size(), CSize(1, 1));
    EXPECT_EQ(picture.Pixel(marker.left + 23, marker.top + 23), TestPixel(23, 23));
    Model().SetLargeButtons(false);
    Show();
    EXPECT_EQ(Pane(toolbar).ButtonRect(0).Size(), small);
}

TEST_F(ShellToolbars, PictureOfAnotherSizeIsScaled)
{
    testkit::TempFolder folder;
    const auto quarters = [](int side) {
        return [side](int x, int y) {
            return x < side / 2 ? (y < side / 2 ? RGB(255, 0, 0) : RGB(0, 255, 0)) : RGB(0, 0, 255);
        };
    };
    const ElementId toolbar = AddToolbar(L"Draw");
    for (const int side : {8, 32, 64}) {
        WriteBitmap(folder / std::to_wstring(side), side, side, quarters(side));
        const ElementId item = AddButton(toolbar, std::to_wstring(side).c_str());
        Model().SetToolbarItemBitmaps(item, (folder / std::to_wstring(side)).wstring(), L"");
        Show();
        const testkit::Picture picture = PictureOfButton(Pane(toolbar), item);
        EXPECT_EQ(picture.Count(RGB(255, 0, 0)), 64) << side;
        EXPECT_EQ(picture.Count(RGB(0, 255, 0)), 64) << side;
        EXPECT_EQ(picture.Count(RGB(0, 0, 255)), 128) << side;
    }
}

TEST_F(ShellToolbars, ScaledPictureMixesNoTransparentColourIn)
{
    testkit::TempFolder folder;
    // A red square of odd size on the transparent colour: its edges fall inside of scaled pixels.
    WriteBitmap(folder / L"odd.bmp", 21, 21, [](int x, int y) {
        return x > 4 && x < 16 && y > 4 && y < 16 ? RGB(255, 0, 0) : RGB(192, 192, 192);
    });
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId item = AddButton(toolbar, L"Odd");
    Model().SetToolbarItemBitmaps(item, (folder / L"odd.bmp").wstring(), L"");
    Show();
    const testkit::Picture picture = PictureOfButton(Pane(toolbar), item);
    EXPECT_GE(picture.Count(RGB(255, 0, 0)), 49);
    EXPECT_EQ(picture.Count(RGB(192, 192, 192)), 0);
}

TEST_F(ShellToolbars, ButtonWithoutAUsableFileIsBlankButWorks)
{
    testkit::TempFolder folder;
    testkit::WriteBytes(folder / L"broken.bmp", "BM this is no bitmap");
    WriteBitmap(folder / L"empty.bmp", 16, 16, [](int, int) { return RGB(192, 192, 192); });
    const ElementId toolbar = AddToolbar(L"Draw");
    for (const std::wstring& file :
         {(folder / L"missing.bmp").wstring(), (folder / L"broken.bmp").wstring(),
          (folder / L"empty.bmp").wstring(), folder.Path().wstring(), std::wstring()})
    {
        const ElementId item = AddButton(toolbar, L"Blank", L"works ");
        Model().SetToolbarItemBitmaps(item, file, file);
        Show();
        const testkit::Picture picture = PictureOfButton(Pane(toolbar), item);
        EXPECT_EQ(picture.Count(picture.Pixel(0, 0)), picture.Width() * picture.Height()) << file.c_str();
        App().ForgetTexts();
        Click(Pane(toolbar), item);
        EXPECT_EQ(Sent(), std::vector<std::wstring>{L"works "});
        testkit::Mouse::MoveTo(ButtonPoint(Pane(toolbar), item) + CPoint(1, 1));
        ParkMouse();
    }
}

TEST_F(ShellToolbars, ClosedFloatingToolbarIsHiddenInTheModel)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    Show();
    Pane(toolbar).SendMessage(WM_CLOSE);
    EXPECT_FALSE(Model().FindToolbar(toolbar)->visible);
    Show();
    EXPECT_EQ(Frame().Toolbars().FindPane(toolbar), nullptr);
}

TEST_F(ShellToolbars, ButtonsFollowTheModel)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId a = AddButton(toolbar, L"A", L"a ");
    Show();
    EXPECT_EQ(Pane(toolbar).ItemCount(), 1);
    const ElementId b = Model().AddToolbarButton(toolbar, 0L, L"B", L"", L"b ", false).id;
    Show();
    EXPECT_EQ(Pane(toolbar).PositionOf(b), 0);
    EXPECT_EQ(Pane(toolbar).PositionOf(a), 1);
    Model().RemoveToolbarItem(b);
    Show();
    EXPECT_EQ(Pane(toolbar).ItemCount(), 1);
    Model().SetToolbarItemMacro(a, L"other ");
    Show();
    Click(Pane(toolbar), a);
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"other "});
}

TEST_F(ShellToolbars, ButtonRemovedBetweenPressAndReleaseSendsNothing)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    const ElementId item = AddButton(toolbar, L"A", L"a ");
    Show();
    const CPoint at = ButtonPoint(Pane(toolbar), item);
    testkit::Mouse::Down(at);
    Model().RemoveToolbar(toolbar);
    testkit::Mouse::Up(at);
    testkit::PumpPending();
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellToolbars, HiddenHostHidesWhatFloats)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    Show();
    EXPECT_TRUE(Pane(toolbar).IsWindowVisible());
    Frame().ShowWindow(SW_HIDE);
    EXPECT_FALSE(Pane(toolbar).IsWindowVisible());
    Frame().ShowWindow(SW_SHOW);
    EXPECT_TRUE(Pane(toolbar).IsWindowVisible());
}

} // namespace hosttest
