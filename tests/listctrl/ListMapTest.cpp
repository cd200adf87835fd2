// What the list's message map holds, what its handlers answer, and what it does when nobody asked for more.
#include "InputTest.h"

namespace
{

// The map and handlers open to the tests.
class MappedList : public OpenList
{
public:
    using OpenList::GetThisMessageMap;
    using OpenList::OnClick;
    using OpenList::OnColumnClick;

    mutable int hitTests = 0;
    INT_PTR OnToolHitTest(CPoint, TOOLINFO*) const override
    {
        ++hitTests;
        return -1;
    }
};

struct Entry
{
    UINT message;
    UINT code;
    UINT id;
    UINT lastId;
    bool operator==(const Entry&) const = default;
};

void PrintTo(const Entry& entry, std::ostream* stream)
{
    *stream << std::hex << entry.message << ", code " << entry.code << ", ids " << entry.id << " to "
            << entry.lastId;
}

constexpr UINT RegisteredMessage = 0xC000;
constexpr UINT ReflectedNotification = 0xBC00 + WM_NOTIFY;

Entry Message(UINT message)
{
    return {message, 0, 0, 0};
}

Entry Reflected(UINT code)
{
    return {ReflectedNotification, code & 0xFFFF, 0, 0};
}

Entry Tip(UINT code)
{
    return {WM_NOTIFY, code & 0xFFFF, 0, 0xFFFF};
}

class ListMap : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
    }
    // Whether the list looks for a tool when the mouse moves over it.
    static bool LooksForTools(MappedList& list)
    {
        MSG move = {};
        move.hwnd = list.m_hWnd;
        move.message = WM_MOUSEMOVE;
        move.pt = CPoint(5, 5);
        ::ClientToScreen(list.m_hWnd, &move.pt);
        move.lParam = MAKELPARAM(5, 5);
        const int before = list.hitTests;
        list.FilterToolTipMessage(&move);
        return list.hitTests != before;
    }
    static void ExpectToolsOnlyWhenEnabled(MappedList& list)
    {
        EXPECT_FALSE(LooksForTools(list));
        list.EnableToolTips(TRUE);
        EXPECT_TRUE(LooksForTools(list));
        list.EnableToolTips(FALSE);
        EXPECT_FALSE(LooksForTools(list));
    }
    void CreateMapped(MappedList& list)
    {
        ASSERT_TRUE(list.Create(Style, CRect(0, 0, 200, 150), &m_parent, 2));
        list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    }
};

using ListAnswer = ListMap;
using ListTips = ListMap;
using IconView = ListMap;

} // namespace

using testing::ElementsAre;

TEST(ListMessages, AreRegisteredUnderTheirNames)
{
    EXPECT_EQ(WM_XLISTCTRL_CHECKBOX_CLICKED, RegisterWindowMessageW(L"WM_XLISTCTRL_CHECKBOX_CLICKED"));
    EXPECT_EQ(WM_XLISTCTRL_COMBO_SELECTION, RegisterWindowMessageW(L"WM_XLISTCTRL_COMBO_SELECTION"));
}

TEST(ListObject, MessageMapIsInOrder)
{
    std::vector<Entry> entries;
    for (const AFX_MSGMAP_ENTRY* entry = MappedList::GetThisMessageMap()->lpEntries; entry->nMessage != 0;
         ++entry)
        entries.push_back({entry->nMessage, entry->nCode & 0xFFFF, entry->nID, entry->nLastID});
    EXPECT_THAT(entries,
                ElementsAre(Reflected(static_cast<UINT>(NM_CLICK)),
                            Reflected(static_cast<UINT>(LVN_COLUMNCLICK)), Message(WM_CREATE),
                            Reflected(static_cast<UINT>(NM_CUSTOMDRAW)), Message(WM_DESTROY),
                            Message(WM_LBUTTONDOWN), Message(WM_PAINT), Message(WM_SYSCOLORCHANGE),
                            Message(WM_TIMER), Message(RegisteredMessage), Message(RegisteredMessage),
                            Message(RegisteredMessage), Message(RegisteredMessage), Tip(TTN_NEEDTEXTW),
                            Tip(TTN_NEEDTEXTA), Reflected(static_cast<UINT>(LVN_ITEMCHANGING)),
                            Reflected(static_cast<UINT>(LVN_ITEMCHANGED)),
                            Reflected(static_cast<UINT>(LVN_DELETEITEM)),
                            Reflected(static_cast<UINT>(LVN_DELETEALLITEMS)), Message(WM_SETREDRAW)));
}

#ifdef __MINGW32__
TEST(ListObject, MapsTheDropDownsMessagesInOrder)
{
    std::vector<UINT> registered;
    for (const AFX_MSGMAP_ENTRY* entry = MappedList::GetThisMessageMap()->lpEntries; entry->nMessage != 0;
         ++entry)
    {
        if (entry->pRegistered != nullptr)
            registered.push_back(*entry->pRegistered);
    }
    EXPECT_THAT(registered, ElementsAre(WM_XCOMBOLIST_VK_ESCAPE, WM_XCOMBOLIST_VK_RETURN,
                                        WM_XCOMBOLIST_KEYDOWN, WM_XCOMBOLIST_LBUTTONUP));
}
#endif

TEST_F(ListAnswer, ToAClickIs0)
{
    MappedList list;
    CreateMapped(list);
    NMITEMACTIVATE click = {};
    click.hdr = {list.m_hWnd, 2, static_cast<UINT>(NM_CLICK)};
    LRESULT result = 99;
    EXPECT_FALSE(list.OnClick(&click.hdr, &result));
    EXPECT_EQ(result, 0);
    list.DestroyWindow();
}

TEST_F(ListAnswer, ToAColumnClickIs0WithAndWithoutACheckBox)
{
    MappedList list;
    CreateMapped(list);
    for (const int header : {0, 1, 2}) {
        list.SetHeaderCheckedState(0, header);
        NMLISTVIEW click = {};
        click.hdr = {list.m_hWnd, 2, static_cast<UINT>(LVN_COLUMNCLICK)};
        LRESULT result = 99;
        EXPECT_FALSE(list.OnColumnClick(&click.hdr, &result)) << header;
        EXPECT_EQ(result, 0) << header;
    }
    list.DestroyWindow();
}

TEST_F(ListTips, OfACreatedListAreShownOnlyOnceEnabled)
{
    MappedList list;
    CreateMapped(list);
    ExpectToolsOnlyWhenEnabled(list);
    list.DestroyWindow();
}

TEST_F(ListTips, OfASubclassedListAreShownOnlyOnceEnabled)
{
    const HWND window = ::CreateWindowExW(0, WC_LISTVIEWW, L"", Style, 0, 0, 200, 150, m_parent.m_hWnd,
                                          nullptr, AfxGetInstanceHandle(), nullptr);
    MappedList list;
    ASSERT_TRUE(list.SubclassWindow(window));
    ExpectToolsOnlyWhenEnabled(list);
    list.DestroyWindow();
}

// Rows stand beside each other there, so that their places do not follow from that of the first.
TEST_F(IconView, PressIsForTheRowUnderIt)
{
    m_list.SetEnabled(1, FALSE);
    m_list.ModifyStyle(LVS_TYPEMASK, LVS_ICON);
    m_list.SendMessage(LVM_ARRANGE, LVA_DEFAULT);
    CRect places[3];
    for (const int row : {0, 1, 2}) {
        ASSERT_TRUE(m_list.GetItemRect(row, &places[row], LVIR_BOUNDS));
        ASSERT_FALSE(places[row].IsRectEmpty());
    }
    ASSERT_EQ(places[0].top, places[1].top);
    EXPECT_FALSE(PressIsPassedOn(places[1].CenterPoint())) << "disabled";
    EXPECT_TRUE(PressIsPassedOn(places[0].CenterPoint()));
    EXPECT_TRUE(PressIsPassedOn(places[2].CenterPoint()));
    m_list.SetEnabled(1, TRUE);
    m_list.SetEnabled(2, FALSE);
    EXPECT_TRUE(PressIsPassedOn(places[1].CenterPoint()));
    EXPECT_FALSE(PressIsPassedOn(places[2].CenterPoint())) << "disabled";
}
