// The message that a list without rows shows.
#include "CellDrawing.h"

namespace
{

constexpr wchar_t Default[] = L"There are no items to show in this view.";
constexpr COLORREF ListBackground = RGB(30, 200, 90);

} // namespace

class EmptyList : public CellDrawingTest
{
protected:
    // A list without rows, and with a background that the message's differs from.
    void SetUp() override
    {
        Make();
        UseOwnColors();
        m_list.SendMessage(LVM_SETBKCOLOR, 0, ListBackground);
        m_list.Invalidate();
    }

    virtual void Make() { MakeList(); }

    int HeaderBottom()
    {
        CRect item(0, 0, 0, 0);
        ::SendMessageW(Header(), HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item));
        return item.bottom;
    }

    CSize WindowSize()
    {
        CRect window;
        m_list.GetWindowRect(&window);
        return window.Size();
    }

    // Compares what stands on the window below the header with the message in `area`.
    void ExpectMessage(const CRect& area, std::wstring_view text, int headerBottom)
    {
        CellPainter painter(ClientSize().cx, ClientSize().cy, m_font, ListBackground);
        painter.Message(area, text);
        EXPECT_TRUE(SamePixels(testkit::Picture::OfClient(m_list.m_hWnd), painter.Result(),
                               CRect(0, headerBottom, ClientSize().cx, ClientSize().cy)));
    }

    // The same for a list with a header and without a border.
    void ExpectMessage(std::wstring_view text)
    {
        ASSERT_GT(HeaderBottom(), 0);
        ExpectMessage(CRect(0, HeaderBottom() + 10, ClientSize().cx, ClientSize().cy), text, HeaderBottom());
    }
};

TEST_F(EmptyList, ShowsTheDefaultMessageTenPixelsBelowTheHeader)
{
    ExpectMessage(Default);
}

TEST_F(EmptyList, ShowsTheCallersMessage)
{
    m_list.SetDefaultTextMessage(L"Nothing was found");
    m_list.Invalidate();
    ExpectMessage(L"Nothing was found");
    EXPECT_EQ(m_list.m_strNoItemsMessage, L"Nothing was found");
}

TEST_F(EmptyList, SettingTheMessageRedrawsNothing)
{
    testkit::Picture::OfClient(m_list.m_hWnd);
    m_list.SetDefaultTextMessage(L"Later");
    EXPECT_FALSE(GetUpdateRect(m_list.m_hWnd, nullptr, FALSE));
    ExpectMessage(Default);
}

TEST_F(EmptyList, KeepsTheDefaultMessageForGood)
{
    EXPECT_EQ(m_list.m_strNoItemsMessage, L"");
    m_list.UpdateWindow();
    EXPECT_EQ(m_list.m_strNoItemsMessage, Default);
    m_list.SetDefaultTextMessage(L"");
    m_list.Invalidate();
    m_list.UpdateWindow();
    EXPECT_EQ(m_list.m_strNoItemsMessage, Default);
}

TEST_F(EmptyList, BreaksALongMessageAtWords)
{
    const wchar_t message[] =
        L"This message is a good deal longer than the list is wide, so that it has to be "
        L"broken into lines, each of which is centred.\nA line of its own";
    m_list.SetDefaultTextMessage(message);
    m_list.Invalidate();
    ExpectMessage(message);
}

TEST_F(EmptyList, ShowsAnAmpersandAsItStands)
{
    m_list.SetDefaultTextMessage(L"No files & no folders");
    m_list.Invalidate();
    ExpectMessage(L"No files & no folders");
}

TEST_F(EmptyList, WithRowsShowsNoMessage)
{
    AddRows(1);
    const int bottom = CellOf(0, 0).bottom;
    CellPainter painter(ClientSize().cx, ClientSize().cy, m_font, ListBackground);
    EXPECT_TRUE(SamePixels(testkit::Picture::OfClient(m_list.m_hWnd), painter.Result(),
                           CRect(0, bottom, ClientSize().cx, ClientSize().cy)));
    EXPECT_EQ(m_list.m_strNoItemsMessage, L"");
}

TEST_F(EmptyList, ShowsTheMessageAgainWhenTheLastRowWent)
{
    AddRows(2);
    m_list.UpdateWindow();
    m_list.DeleteAllItems();
    m_list.Invalidate();
    ExpectMessage(Default);
}

class EmptyListWithBorder : public EmptyList
{
protected:
    void Make() override { MakeList(Style | WS_BORDER); }
};

// The area is the window's, so a border moves it up by its width.
TEST_F(EmptyListWithBorder, MeasuresFromTheEdgeOfTheWindow)
{
    CPoint origin(0, 0);
    m_list.ClientToScreen(&origin);
    CRect window;
    m_list.GetWindowRect(&window);
    ASSERT_EQ(window.top, origin.y - 1);
    ASSERT_GT(HeaderBottom(), 0);
    ExpectMessage(CRect(-1, -1 + HeaderBottom() + 10, WindowSize().cx - 1, WindowSize().cy - 1), Default,
                  HeaderBottom());
}

TEST_F(EmptyList, FollowsAHigherHeader)
{
    const int before = HeaderBottom();
    const HFONT font =
        CreateFontW(-30, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"Tahoma");
    m_list.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    m_list.Invalidate();
    ASSERT_GT(HeaderBottom(), before);
    ExpectMessage(Default);
    m_list.SendMessage(WM_SETFONT, 0, FALSE);
    DeleteObject(font);
}

// A list view makes its header for the report view or with the first column.
class EmptyListWithoutHeader : public EmptyList
{
protected:
    void Make() override
    {
        m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                          CRect(20, 20, 420, 320), nullptr, 0);
        ASSERT_TRUE(m_list.Create(WS_CHILD | WS_VISIBLE | LVS_ICON, CRect(10, 10, 310, 260), &m_parent, 1));
        ASSERT_EQ(Header(), nullptr);
    }
};

TEST_F(EmptyListWithoutHeader, BeginsTenPixelsDown)
{
    ExpectMessage(CRect(0, 10, ClientSize().cx, ClientSize().cy), Default, 0);
}

// A header that comes later than the list is not taken over by itself.
class EmptyListSwitchedToReport : public EmptyList
{
protected:
    void Make() override
    {
        m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                          CRect(20, 20, 420, 320), nullptr, 0);
        ASSERT_TRUE(m_list.Create(WS_CHILD | WS_VISIBLE | LVS_LIST, CRect(10, 10, 310, 260), &m_parent, 1));
        m_list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        m_list.ModifyStyle(LVS_TYPEMASK, LVS_REPORT);
        ASSERT_EQ(m_list.m_HeaderCtrl.GetSafeHwnd(), nullptr);
        ASSERT_TRUE(::IsWindowVisible(Header()));
    }
};

TEST_F(EmptyListSwitchedToReport, BeginsTenPixelsBelowItsHeader)
{
    ExpectMessage(Default);
}

TEST_F(EmptyList, WithoutColumnsBeginsTenPixelsDown)
{
    for (int column = 2; column >= 0; --column)
        m_list.DeleteColumn(column);
    m_list.Invalidate();
    CRect header;
    ::GetClientRect(Header(), &header);
    ExpectMessage(CRect(0, 10, ClientSize().cx, ClientSize().cy), Default, header.bottom);
}

TEST_F(EmptyList, ReadsTheColoursOfTheMomentFromItsCache)
{
    ExpectMessage(Default);
    m_list.SendMessage(WM_SYSCOLORCHANGE);
    m_list.Invalidate();
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT), window = GetSysColor(COLOR_WINDOW);
    const testkit::Picture drawn = testkit::Picture::OfClient(m_list.m_hWnd);
    const CRect area(0, HeaderBottom() + 10, ClientSize().cx, ClientSize().cy);
    EXPECT_EQ(drawn.Count(own::Window, area), 0);
    EXPECT_GT(drawn.Count(text, area), 0);
    EXPECT_GT(drawn.Count(window, area), drawn.Count(text, area));
}
