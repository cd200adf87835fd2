// Tips: the tool under a point, and the text that a tip asks for.
#include "InputTest.h"

#include <algorithm>

namespace
{

constexpr int TipRoom = 80;

class ToolHitTest : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
    }
    // A tool that nothing has been written to.
    static TOOLINFO Untouched()
    {
        TOOLINFO tool = {};
        tool.cbSize = sizeof(tool);
        tool.hwnd = reinterpret_cast<HWND>(11);
        tool.uId = 12;
        tool.rect = CRect(1, 2, 3, 4);
        return tool;
    }
    CPoint Label(int row, int column) { return Cell(row, column).TopLeft() + CPoint(4, 3); }
};

class ToolTipText : public ToolHitTest
{
protected:
    // Room for more than a tip takes, so that an overrun is seen.
    struct WideTip
    {
        TOOLTIPTEXTW tip;
        wchar_t after[40];
    };
    struct NarrowTip
    {
        TOOLTIPTEXTA tip;
        char after[40];
    };

    // Makes that the position of the message that was retrieved last.
    void PutMessageAt(CPoint client)
    {
        m_list.ClientToScreen(&client);
        ASSERT_TRUE(testkit::PumpUntil([&] {
            ::SetCursorPos(client.x, client.y);
            ::PostMessage(m_parent.m_hWnd, WM_NULL, 0, 0);
            return CPoint(::GetMessagePos()) == client;
        }));
    }

    WideTip AskWide(UINT_PTR id = 1)
    {
        WideTip tip = {};
        tip.tip.hdr = {m_list.m_hWnd, id, TTN_NEEDTEXTW};
        std::fill(std::begin(tip.tip.szText), std::end(tip.tip.szText), L'#');
        m_result = 99;
        m_answer = m_list.OnToolTipText(1, &tip.tip.hdr, &m_result);
        return tip;
    }
    NarrowTip AskNarrow()
    {
        NarrowTip tip = {};
        tip.tip.hdr = {m_list.m_hWnd, 1, TTN_NEEDTEXTA};
        std::fill(std::begin(tip.tip.szText), std::end(tip.tip.szText), '#');
        m_result = 99;
        m_answer = m_list.OnToolTipText(1, &tip.tip.hdr, &m_result);
        return tip;
    }
    static bool IsUntouched(const WideTip& tip)
    {
        return std::all_of(std::begin(tip.tip.szText), std::end(tip.tip.szText),
                           [](wchar_t c) { return c == L'#'; });
    }
    static bool IsUntouched(const NarrowTip& tip)
    {
        return std::all_of(std::begin(tip.tip.szText), std::end(tip.tip.szText),
                           [](char c) { return c == '#'; });
    }

    LRESULT m_result = 0;
    BOOL m_answer = 0;
};

// Answers every hit test with a row far down.
class FarRowList : public OpenList
{
public:
    static constexpr int Row = 3000000;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != LVM_SUBITEMHITTEST)
            return OpenList::WindowProc(message, wParam, lParam);
        auto& hit = *reinterpret_cast<LVHITTESTINFO*>(lParam);
        hit.flags = LVHT_ONITEMLABEL;
        hit.iItem = Row;
        hit.iSubItem = 0;
        return Row;
    }
};

// Counts the calls of the virtual function.
class TipCountingList : public OpenList
{
public:
    int calls = 0;

protected:
    BOOL OnToolTipText(UINT, NMHDR*, LRESULT* result) override
    {
        ++calls;
        *result = 5;
        return TRUE;
    }
};

} // namespace

TEST_F(ToolHitTest, NumbersTheCellUnderThePoint)
{
    CRect client;
    m_list.GetClientRect(&client);
    for (const int row : {0, 1, 2}) {
        for (const int column : {0, 1, 2}) {
            TOOLINFO tool = Untouched();
            const INT_PTR expected = row * 1000 + column + 1;
            EXPECT_EQ(m_list.OnToolHitTest(Label(row, column), &tool), expected);
            EXPECT_EQ(tool.hwnd, m_list.m_hWnd);
            EXPECT_EQ(tool.uId, static_cast<UINT_PTR>(expected));
            EXPECT_EQ(CRect(tool.rect), client);
            EXPECT_EQ(tool.lpszText, LPSTR_TEXTCALLBACK);
        }
    }
}

TEST_F(ToolHitTest, NumbersRowsAlsoInAScrolledList)
{
    AddRows(300);
    m_list.EnsureVisible(302, FALSE);
    TOOLINFO tool = Untouched();
    EXPECT_EQ(m_list.OnToolHitTest(Label(301, 2), &tool), 301003);
    EXPECT_EQ(tool.uId, 301003u);
}

TEST_F(ToolHitTest, NumbersCellsIn32Bits)
{
    FarRowList list;
    ASSERT_TRUE(list.Create(Style, CRect(0, 0, 100, 100), &m_parent, 2));
    TOOLINFO tool = Untouched();
    // 3,000,000,001 less 2 to the 32nd.
    constexpr INT_PTR expected = -1294967295;
    EXPECT_EQ(list.OnToolHitTest(CPoint(5, 5), &tool), expected);
    EXPECT_EQ(tool.uId, static_cast<UINT_PTR>(expected));
    EXPECT_EQ(list.OnToolHitTest(CPoint(5, 5), nullptr), expected);
    list.DestroyWindow();
}

TEST_F(ToolHitTest, IsMinusOneBesideTheRowsAndLeavesTheTool)
{
    for (const CPoint& point : {BelowRows(), BesideRow(1), CPoint(-5, -5), CPoint(1000, 1000)}) {
        TOOLINFO tool = Untouched();
        EXPECT_EQ(m_list.OnToolHitTest(point, &tool), -1) << point.x << ", " << point.y;
        EXPECT_EQ(tool.hwnd, reinterpret_cast<HWND>(11));
        EXPECT_EQ(tool.uId, 12u);
        EXPECT_EQ(tool.lpszText, nullptr);
    }
}

TEST_F(ToolHitTest, IsMinusOneOnAnIcon)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(16, 16, 1, 32, nullptr));
    images.Add(&bitmap, RGB(0, 0, 0));
    m_list.SetImageList(&images, LVSIL_SMALL);
    CRect icon;
    ASSERT_TRUE(m_list.GetItemRect(1, &icon, LVIR_ICON));
    ASSERT_EQ(icon.Width(), 16);
    TOOLINFO tool = Untouched();
    EXPECT_EQ(m_list.OnToolHitTest(icon.CenterPoint(), &tool), -1);
    EXPECT_EQ(m_list.OnToolHitTest(CPoint(icon.right + 6, icon.CenterPoint().y), &tool), 1001);
    m_list.SetImageList(nullptr, LVSIL_SMALL);
}

TEST_F(ToolTipText, IsLeftToOthersWithoutAnId)
{
    m_list.SetItemToolTipText(1, 1, L"tip");
    PutMessageAt(Label(1, 1));
    EXPECT_TRUE(IsUntouched(AskWide(0)));
    EXPECT_EQ(m_answer, TRUE);
    EXPECT_EQ(m_result, 99);
}

TEST_F(ToolTipText, IsThatOfTheCellUnderTheLastMessage)
{
    for (const int row : {0, 1, 2}) {
        for (const int column : {0, 1, 2}) {
            CString text;
            text.Format(L"tip of %d, %d", row, column);
            m_list.SetItemToolTipText(row, column, text);
        }
    }
    for (const int row : {0, 2}) {
        for (const int column : {0, 1, 2}) {
            CString expected;
            expected.Format(L"tip of %d, %d", row, column);
            PutMessageAt(Label(row, column));
            EXPECT_STREQ(AskWide(7).tip.szText, expected);
            EXPECT_EQ(m_answer, FALSE);
            EXPECT_EQ(m_result, 0);
            EXPECT_STREQ(AskNarrow().tip.szText, CStringA(expected));
            EXPECT_EQ(m_answer, FALSE);
            EXPECT_EQ(m_result, 0);
        }
    }
}

TEST_F(ToolTipText, IsCutAt79Characters)
{
    PutMessageAt(Label(1, 1));
    for (const int length : {1, 78, 79, 80, 81, 100, 5000}) {
        CString text;
        for (int i = 0; i < length; ++i)
            text += static_cast<wchar_t>(L'a' + i % 26);
        m_list.SetItemToolTipText(1, 1, text);
        const CString expected = text.Left(TipRoom - 1);
        const WideTip wide = AskWide();
        EXPECT_STREQ(wide.tip.szText, expected) << length;
        EXPECT_EQ(wide.tip.hinst, nullptr);
        EXPECT_EQ(wide.after[0], L'\0');
        const NarrowTip narrow = AskNarrow();
        EXPECT_STREQ(narrow.tip.szText, CStringA(expected)) << length;
        EXPECT_EQ(narrow.tip.hinst, nullptr);
        EXPECT_EQ(narrow.after[0], '\0');
    }
}

TEST_F(ToolTipText, IsConvertedToTheThreadsCodePageForNarrowTips)
{
    const wchar_t text[] = L"caf\u00e9 \u20ac \u4e2d";
    char expected[TipRoom] = {};
    ASSERT_GT(::WideCharToMultiByte(CP_THREAD_ACP, 0, text, -1, expected, TipRoom, nullptr, nullptr), 0);
    m_list.SetItemToolTipText(1, 1, text);
    PutMessageAt(Label(1, 1));
    EXPECT_STREQ(AskNarrow().tip.szText, expected);
    EXPECT_STREQ(AskWide().tip.szText, text);
}

TEST_F(ToolTipText, IsNotWrittenWhereThereIsNone)
{
    m_list.SetItemToolTipText(0, 1, L"of another cell");
    PutMessageAt(Label(1, 1));
    EXPECT_TRUE(IsUntouched(AskWide()));
    EXPECT_EQ(m_answer, FALSE);
    EXPECT_EQ(m_result, 0);
    EXPECT_TRUE(IsUntouched(AskNarrow()));
    EXPECT_EQ(m_answer, FALSE);
}

TEST_F(ToolTipText, IsNotWrittenForARowWithoutRecordsOrAColumnThatHasNone)
{
    AddPlainRow();
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    for (const CPoint& point : {Label(3, 1), Label(1, 3)}) {
        PutMessageAt(point);
        EXPECT_TRUE(IsUntouched(AskWide()));
        EXPECT_EQ(m_answer, FALSE);
        EXPECT_EQ(m_result, 0);
        EXPECT_TRUE(IsUntouched(AskNarrow()));
    }
}

TEST_F(ToolTipText, IsNotWrittenBesideTheRows)
{
    for (const int column : {0, 1, 2})
        m_list.SetItemToolTipText(2, column, L"tip");
    for (const CPoint& point : {BelowRows(), BesideRow(2)}) {
        PutMessageAt(point);
        EXPECT_TRUE(IsUntouched(AskWide()));
        EXPECT_EQ(m_answer, FALSE);
        EXPECT_EQ(m_result, 0);
    }
}

TEST_F(ToolTipText, IsNotWrittenOnAnIcon)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(16, 16, 1, 32, nullptr));
    images.Add(&bitmap, RGB(0, 0, 0));
    m_list.SetImageList(&images, LVSIL_SMALL);
    m_list.SetItemToolTipText(1, 0, L"tip");
    CRect icon;
    ASSERT_TRUE(m_list.GetItemRect(1, &icon, LVIR_ICON));
    PutMessageAt(icon.CenterPoint());
    EXPECT_TRUE(IsUntouched(AskWide()));
    EXPECT_EQ(m_answer, FALSE);
    EXPECT_EQ(m_result, 0);
    PutMessageAt(CPoint(icon.right + 6, icon.CenterPoint().y));
    EXPECT_STREQ(AskWide().tip.szText, L"tip") << "on the label beside it";
    m_list.SetImageList(nullptr, LVSIL_SMALL);
}

TEST_F(ToolTipText, IsAskedForByBothNotificationsOfAnyControl)
{
    TipCountingList list;
    ASSERT_TRUE(list.Create(Style, CRect(0, 0, 100, 100), &m_parent, 2));
    CWnd tool;
    for (const UINT id : {0u, 1u, 0x7FFFu, 0xFFFFu}) {
        ASSERT_TRUE(tool.Create(AfxRegisterWndClass(0), L"", WS_CHILD, CRect(0, 0, 5, 5), &list, id));
        const int before = list.calls;
        for (const UINT code : {TTN_NEEDTEXTW, TTN_NEEDTEXTA}) {
            WideTip tip = {};
            tip.tip.hdr = {tool.m_hWnd, id, code};
            EXPECT_EQ(list.SendMessage(WM_NOTIFY, id, reinterpret_cast<LPARAM>(&tip)), 5) << id;
        }
        EXPECT_EQ(list.calls, before + 2) << id;
        tool.DestroyWindow();
    }
    list.DestroyWindow();
}

TEST_F(ToolTipText, IsAnsweredThroughTheNotification)
{
    m_list.SetItemToolTipText(1, 2, L"the tip");
    PutMessageAt(Label(1, 2));
    WideTip tip = {};
    tip.tip.hdr = {m_list.m_HeaderCtrl.m_hWnd, 1, TTN_NEEDTEXTW};
    m_list.SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&tip));
    EXPECT_STREQ(tip.tip.szText, L"the tip");
}
