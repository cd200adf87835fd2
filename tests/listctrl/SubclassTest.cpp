// How a list comes to its window and its header: created by code, or taken over from a dialog template.
#include "InputTest.h"

#include <algorithm>
#include <string_view>

namespace
{

constexpr WORD FirstId = 101;
constexpr WORD ListId = 102;
constexpr WORD LastId = 103;

// A dialog template in memory.
class DialogTemplate
{
public:
    DialogTemplate()
    {
        AddDword(WS_POPUP | WS_VISIBLE | DS_CONTROL);
        AddDword(0);
        m_countAt = m_words.size();
        Add({0, 0, 0, 300, 200, 0, 0, 0});
    }

    void AddControl(std::wstring_view className, DWORD style, WORD id, WORD y)
    {
        if (m_words.size() % 2 != 0)
            m_words.push_back(0);
        AddDword(WS_CHILD | WS_VISIBLE | style);
        AddDword(0);
        Add({5, y, 250, 60, id});
        for (const wchar_t letter : className)
            m_words.push_back(letter);
        Add({0, 0, 0});
        ++m_words[m_countAt];
    }

    LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }

private:
    void Add(std::initializer_list<WORD> words)
    {
        for (const WORD word : words)
            m_words.push_back(word);
    }
    void AddDword(DWORD value) { Add({LOWORD(value), HIWORD(value)}); }

    std::vector<WORD> m_words;
    size_t m_countAt;
};

// A dialog with a list between two edit fields, in this order of tabs.
class ListDialog : public CDialog
{
public:
    enum class Way
    {
        DataExchange,
        SubclassDlgItem,
    };
    explicit ListDialog(Way way, DWORD listStyle = LVS_REPORT) : m_way(way)
    {
        m_template.AddControl(L"Edit", WS_TABSTOP, FirstId, 5);
        m_template.AddControl(L"SysListView32", WS_TABSTOP | listStyle, ListId, 70);
        m_template.AddControl(L"Edit", WS_TABSTOP, LastId, 135);
    }

    bool Open() { return CreateIndirect(m_template.Get(), nullptr) != FALSE; }
    void Fill()
    {
        list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        list.InsertColumn(1, L"Second", LVCFMT_LEFT, 80);
        list.InsertItem(0, L"row 0");
        list.InsertItem(1, L"row 1");
        list.SetCheckbox(1, 1, 0);
    }

    OpenList list;
    std::vector<ParentMessage> messages;

protected:
    void DoDataExchange(CDataExchange* exchange) override
    {
        CDialog::DoDataExchange(exchange);
        if (m_way == Way::DataExchange)
            DDX_Control(exchange, ListId, list);
    }
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        if (m_way == Way::SubclassDlgItem)
            list.SubclassDlgItem(ListId, this);
        return TRUE;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_XLISTCTRL_CHECKBOX_CLICKED || message == WM_XLISTCTRL_COMBO_SELECTION)
            messages.push_back({message, wParam, lParam});
        return CDialog::WindowProc(message, wParam, lParam);
    }

private:
    Way m_way;
    DialogTemplate m_template;
};

class HeaderOfList : public InputTest
{
protected:
    static HWND HeaderWindow(HWND list)
    {
        return reinterpret_cast<HWND>(::SendMessage(list, LVM_GETHEADER, 0, 0));
    }
    static WNDPROC ProcedureOf(HWND window)
    {
        return reinterpret_cast<WNDPROC>(::GetWindowLongPtr(window, GWLP_WNDPROC));
    }
    static void ExpectOwnHeader(OpenList& list)
    {
        const HWND header = HeaderWindow(list.m_hWnd);
        ASSERT_NE(header, nullptr);
        EXPECT_EQ(list.m_HeaderCtrl.m_hWnd, header);
        EXPECT_EQ(CWnd::FromHandlePermanent(header), &list.m_HeaderCtrl);
        EXPECT_EQ(list.m_bHeaderSubclassed, TRUE);
    }
};

class ListInDialog : public HeaderOfList, public testing::WithParamInterface<ListDialog::Way>
{
protected:
    void SetUp() override
    {
        HeaderOfList::SetUp();
        m_dialog = std::make_unique<ListDialog>(GetParam());
        ASSERT_TRUE(m_dialog->Open());
    }
    void TearDown() override
    {
        m_dialog->DestroyWindow();
        m_dialog.reset();
        HeaderOfList::TearDown();
    }
    HWND Field(int id) { return ::GetDlgItem(m_dialog->m_hWnd, id); }
    // As the message loop of a dialog handles it.
    void PressTab(HWND window)
    {
        MSG message = {};
        message.hwnd = window;
        message.message = WM_KEYDOWN;
        message.wParam = VK_TAB;
        message.lParam = 1;
        EXPECT_TRUE(::IsDialogMessage(m_dialog->m_hWnd, &message));
    }

    std::unique_ptr<ListDialog> m_dialog;
};

LRESULT CALLBACK RefusingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_CREATE ? -1 : ::DefWindowProc(window, message, wParam, lParam);
}

} // namespace

using testing::ElementsAre;

TEST_F(HeaderOfList, IsItsOwnWhenCreatedByCode)
{
    ExpectOwnHeader(m_list);
}

TEST_F(HeaderOfList, IsItsOwnWhenCreatedWithAnExtendedStyle)
{
    OpenList list;
    ASSERT_TRUE(list.CreateEx(WS_EX_CLIENTEDGE, Style, CRect(0, 0, 100, 100), &m_parent, 2));
    ExpectOwnHeader(list);
    list.DestroyWindow();
}

TEST_F(HeaderOfList, IsItsOwnWhenAWindowIsTakenOver)
{
    const HWND window = ::CreateWindowEx(0, WC_LISTVIEW, L"", Style, 0, 0, 100, 100, m_parent.m_hWnd, nullptr,
                                         AfxGetInstanceHandle(), nullptr);
    const WNDPROC before = ProcedureOf(HeaderWindow(window));
    OpenList list;
    ASSERT_TRUE(list.SubclassWindow(window));
    ExpectOwnHeader(list);
    EXPECT_NE(ProcedureOf(HeaderWindow(window)), before);
    list.DestroyWindow();
}

TEST_F(HeaderOfList, IsTakenOverOnce)
{
    const HWND header = HeaderWindow(m_list.m_hWnd);
    const WNDPROC procedure = ProcedureOf(header);
    for (int i = 0; i < 3; ++i)
        m_list.SubclassHeaderControl();
    EXPECT_EQ(ProcedureOf(header), procedure);
    ExpectOwnHeader(m_list);
}

TEST_F(HeaderOfList, IsLeftAloneWhenTheFlagSaysSo)
{
    OpenList list;
    list.m_bHeaderSubclassed = TRUE;
    ASSERT_TRUE(list.Create(Style, CRect(0, 0, 100, 100), &m_parent, 2));
    ASSERT_NE(HeaderWindow(list.m_hWnd), nullptr);
    EXPECT_EQ(list.m_HeaderCtrl.GetSafeHwnd(), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(HeaderWindow(list.m_hWnd)), nullptr);
    list.DestroyWindow();
}

TEST_F(HeaderOfList, MayComeLater)
{
    OpenList list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_LIST, CRect(0, 0, 100, 100), &m_parent, 2));
    ASSERT_EQ(HeaderWindow(list.m_hWnd), nullptr);
    EXPECT_EQ(list.m_bHeaderSubclassed, FALSE);
    EXPECT_EQ(list.m_HeaderCtrl.GetSafeHwnd(), nullptr);
    list.ModifyStyle(LVS_TYPEMASK, LVS_REPORT);
    ASSERT_NE(HeaderWindow(list.m_hWnd), nullptr);
    list.SubclassHeaderControl();
    ExpectOwnHeader(list);
    list.DestroyWindow();
}

TEST_F(HeaderOfList, IsNotLookedForWhenTheCreationIsRefused)
{
    WNDCLASS description = {};
    description.lpfnWndProc = &RefusingProcedure;
    description.hInstance = AfxGetInstanceHandle();
    description.lpszClassName = L"VelmRefusingList";
    ASSERT_NE(::RegisterClass(&description), 0);
    OpenList list;
    EXPECT_FALSE(
        list.CWnd::CreateEx(0, description.lpszClassName, L"", Style, CRect(0, 0, 50, 50), &m_parent, 7));
    EXPECT_EQ(list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(list.m_bHeaderSubclassed, FALSE);
    ::UnregisterClass(description.lpszClassName, description.hInstance);
}

TEST_P(ListInDialog, HasItsOwnHeader)
{
    ASSERT_EQ(m_dialog->list.m_hWnd, Field(ListId));
    ExpectOwnHeader(m_dialog->list);
}

TEST_P(ListInDialog, TellsTheDialogOfClicks)
{
    m_dialog->Fill();
    CRect cell;
    ASSERT_TRUE(m_dialog->list.GetSubItemRect(1, 1, LVIR_BOUNDS, cell));
    m_dialog->list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON,
                               MAKELPARAM(cell.CenterPoint().x, cell.CenterPoint().y));
    EXPECT_EQ(m_dialog->list.GetCheckbox(1, 1), 1);
    EXPECT_THAT(m_dialog->messages, ElementsAre(ParentMessage{WM_XLISTCTRL_CHECKBOX_CLICKED, 1, 1}));
}

TEST_P(ListInDialog, DrawsItsCells)
{
    m_dialog->Fill();
    m_dialog->list.SetItemText(0, 1, L"", RGB(0, 0, 0), RGB(200, 30, 40));
    CRect cell;
    ASSERT_TRUE(m_dialog->list.GetSubItemRect(0, 1, LVIR_BOUNDS, cell));
    const testkit::Picture picture = testkit::Picture::OfClient(m_dialog->list.m_hWnd);
    EXPECT_EQ(picture.Count(RGB(200, 30, 40), cell), cell.Width() * cell.Height());
}

TEST_P(ListInDialog, StandsInTheTabOrder)
{
    m_dialog->Fill();
    EXPECT_EQ(::GetNextDlgTabItem(m_dialog->m_hWnd, Field(FirstId), FALSE), Field(ListId));
    EXPECT_EQ(::GetNextDlgTabItem(m_dialog->m_hWnd, Field(ListId), FALSE), Field(LastId));
    EXPECT_EQ(::GetNextDlgTabItem(m_dialog->m_hWnd, Field(LastId), TRUE), Field(ListId));
    ::SetFocus(Field(FirstId));
    PressTab(Field(FirstId));
    EXPECT_EQ(::GetFocus(), Field(ListId));
    PressTab(Field(ListId));
    EXPECT_EQ(::GetFocus(), Field(LastId));
}

TEST_P(ListInDialog, OpensAndClosesADropDown)
{
    m_dialog->Fill();
    OpenList& list = m_dialog->list;
    ASSERT_TRUE(list.SetComboBox(0, 1, TRUE, &m_choices, 5, 1));
    list.SetCurSel(0);
    list.Record(0, 1)->bComboButtonDown = TRUE;
    list.UpdateSubItem(0, 1);
    ASSERT_NE(list.m_pCombo, nullptr);
    EXPECT_EQ(list.m_pCombo->GetCurSel(), 1);
    list.SendMessage(WM_TIMER, 3);
    EXPECT_EQ(list.m_pCombo, nullptr);
    EXPECT_THAT(m_dialog->messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 0, 1}));
}

TEST_P(ListInDialog, GoesWithTheDialog)
{
    m_dialog->Fill();
    m_dialog->DestroyWindow();
    EXPECT_EQ(m_dialog->list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(m_dialog->list.m_HeaderCtrl.GetSafeHwnd(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(EveryWay, ListInDialog,
                         testing::Values(ListDialog::Way::DataExchange, ListDialog::Way::SubclassDlgItem),
                         [](const testing::TestParamInfo<ListDialog::Way>& way) {
                             return way.param == ListDialog::Way::DataExchange ? "DataExchange"
                                                                               : "SubclassDlgItem";
                         });

// The same tests run in two programs, of which one asks for the newer controls.
TEST(CommonControls, AreThoseThatTheProgramAsksFor)
{
    const bool asksForNewer = ::FindResource(nullptr, MAKEINTRESOURCE(1), RT_MANIFEST) != nullptr;
    wchar_t program[MAX_PATH] = L"";
    wchar_t module[MAX_PATH] = L"";
    ::GetModuleFileName(nullptr, program, MAX_PATH);
    ::GetModuleFileName(::GetModuleHandle(L"comctl32.dll"), module, MAX_PATH);
    const std::wstring_view programName(program);
    std::wstring moduleFile(module);
    std::transform(moduleFile.begin(), moduleFile.end(), moduleFile.begin(), ::towlower);
    EXPECT_EQ(asksForNewer, programName.ends_with(L"listctrl_v6_tests.exe"));
    EXPECT_EQ(asksForNewer, moduleFile.find(L"winsxs") != std::wstring::npos);
}
