// The ground of the drawing tests: a list in colours of its own, whose cells are drawn one by one into
// pictures.
#pragma once

#include "ListTest.h"

#include "CellPainter.h"

class CellDrawingTest : public ListTest
{
protected:
    static constexpr int Rows = 3;
    static constexpr CellColors Normal{RGB(10, 100, 30), RGB(255, 220, 190)};

    // Three rows in the colours `Normal`, with the texts "row 0" to "row 2" in column 0 and none elsewhere.
    void SetUp() override
    {
        ListTest::SetUp();
        UseOwnColors();
        AddRows(Rows);
        for (int row = 0; row < Rows; ++row) {
            for (int column = 0; column < 3; ++column)
                m_list.SetItemText(row, column, nullptr, Normal.text, Normal.background);
        }
        UseFont(L"Tahoma", -11);
    }

    void TearDown() override
    {
        ListTest::TearDown();
        DeleteObject(m_font);
    }

    void UseOwnColors()
    {
        m_list.m_crWindow = own::Window;
        m_list.m_crWindowText = own::WindowText;
        m_list.m_crBtnFace = own::BtnFace;
        m_list.m_crBtnShadow = own::BtnShadow;
        m_list.m_cr3DShadow = own::Shadow3d;
        m_list.m_crGrayText = own::GrayText;
        m_list.m_crHighLight = own::HighLight;
        m_list.m_crHighLightText = own::HighLightText;
        m_list.m_cr3DFace = own::Unused3dFace;
        m_list.m_cr3DHighLight = own::Unused3dHighLight;
        m_list.m_crBtnText = own::UnusedBtnText;
    }

    // The list has it as well, so that its rows fit.
    void UseFont(const wchar_t* face, int height)
    {
        const HFONT old = m_font;
        m_font = CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                             OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, face);
        m_list.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE);
        DeleteObject(old);
    }

    void Select(int row) { m_list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED); }

    // The images go to the list view, and with it.
    void UseImages(const std::vector<PatternImage>& images)
    {
        const auto old = reinterpret_cast<HIMAGELIST>(m_list.SendMessage(
            LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(MakeImageList(images))));
        if (old != nullptr)
            ImageList_Destroy(old);
    }

    void SetHeaderFormat(int column, int format)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        item.fmt = format;
        ASSERT_TRUE(::SendMessageW(Header(), HDM_SETITEMW, static_cast<WPARAM>(column),
                                   reinterpret_cast<LPARAM>(&item)));
    }

    HWND Header() { return reinterpret_cast<HWND>(m_list.SendMessage(LVM_GETHEADER)); }

    // Where a cell lies: its row's height below its header item. Not asked of the control under test.
    CRect CellOf(int row, int column)
    {
        CRect item, bounds(LVIR_BOUNDS, 0, 0, 0);
        ::SendMessageW(Header(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&item));
        ::SendMessageW(m_list.m_hWnd, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&bounds));
        return CRect(item.left, bounds.top, item.right, bounds.bottom);
    }

    CSize ClientSize()
    {
        CRect client;
        m_list.GetClientRect(&client);
        return client.Size();
    }

    testkit::Picture Blank() { return {ClientSize().cx, ClientSize().cy, own::Backdrop}; }
    CellPainter Painter() { return {ClientSize().cx, ClientSize().cy, m_font}; }

    // Sends the list a draw notification by way of its parent, as the list view does, and keeps what it
    // answers. The rectangle in it is a wrong one, as the platform's is for column 0.
    void Notify(HDC dc, DWORD stage, int row, int column)
    {
        m_draw = {};
        m_draw.nmcd.hdr.hwndFrom = m_list.m_hWnd;
        m_draw.nmcd.hdr.idFrom = 1;
        m_draw.nmcd.hdr.code = static_cast<UINT>(NM_CUSTOMDRAW);
        m_draw.nmcd.dwDrawStage = stage;
        m_draw.nmcd.hdc = dc;
        m_draw.nmcd.rc = CRect(1, 2, 3, 4);
        m_draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
        m_draw.nmcd.lItemlParam = static_cast<LPARAM>(m_list.CListCtrl::GetItemData(row));
        m_draw.iSubItem = column;
        m_result = m_parent.SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&m_draw));
    }

    // Draws a cell into a context, with the font of the test; the context holds nothing of it afterwards
    // and what it held before.
    void DrawCell(HDC dc, int row, int column)
    {
        const HGDIOBJ oldFont = SelectObject(dc, m_font);
        const HGDIOBJ oldPen = GetCurrentObject(dc, OBJ_PEN), oldBrush = GetCurrentObject(dc, OBJ_BRUSH);
        Notify(dc, CDDS_ITEMPREPAINT | CDDS_SUBITEM, row, column);
        EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), oldPen);
        EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), oldBrush);
        EXPECT_EQ(SelectObject(dc, oldFont), m_font);
    }

    testkit::Picture Draw(int row, int column)
    {
        testkit::Picture picture = Blank();
        DrawCell(picture.Dc(), row, column);
        return picture;
    }

    HFONT m_font = nullptr;
    NMLVCUSTOMDRAW m_draw{};
    LRESULT m_result = 0;
};
