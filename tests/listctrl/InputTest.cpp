#include "InputTest.h"
#include "DropDownWarmUp.h"

#include <commctrl.h>

MessageProbe::MessageProbe(HWND window, Function function) : m_window(window), m_function(std::move(function))
{
    ::SetWindowSubclass(m_window, &Procedure, reinterpret_cast<UINT_PTR>(this),
                        reinterpret_cast<DWORD_PTR>(this));
}

MessageProbe::~MessageProbe()
{
    if (::IsWindow(m_window))
        ::RemoveWindowSubclass(m_window, &Procedure, reinterpret_cast<UINT_PTR>(this));
}

LRESULT CALLBACK MessageProbe::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR data)
{
    if (message == WM_NCDESTROY) {
        ::RemoveWindowSubclass(window, &Procedure, id);
        return ::DefSubclassProc(window, message, wParam, lParam);
    }
    reinterpret_cast<MessageProbe*>(data)->m_function(message, wParam, lParam);
    return ::IsWindow(window) ? ::DefSubclassProc(window, message, wParam, lParam) : 0;
}

BEGIN_MESSAGE_MAP(HandlingParent, CWnd)
ON_NOTIFY(NM_CLICK, HandlingParent::ListId, &HandlingParent::OnNote)
ON_NOTIFY(LVN_COLUMNCLICK, HandlingParent::ListId, &HandlingParent::OnNote)
END_MESSAGE_MAP()

void HandlingParent::OnNote(NMHDR* notification, LRESULT* result)
{
    heard.push_back(notification->code);
    *result = 0;
}

void InputTest::SetUpTestSuite()
{
    ASSERT_TRUE(WarmUpDropDownClass());
}

void InputTest::SetUp()
{
    ListTest::SetUp();
    ::SetCursorPos(0, 0);
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    for (const wchar_t* const choice : {L"zero", L"one", L"two"})
        m_choices.Add(choice);
}

// The list goes before the choices that its cells point to.
void InputTest::TearDown()
{
    m_reaction.reset();
    ListTest::TearDown();
}

void InputTest::React(std::function<void()> function)
{
    m_reaction = std::make_unique<MessageProbe>(m_parent.m_hWnd, [function](UINT message, WPARAM, LPARAM) {
        if (message == WM_XLISTCTRL_CHECKBOX_CLICKED || message == WM_XLISTCTRL_COMBO_SELECTION)
            function();
    });
}

int InputTest::BlackPixels(int row, int column)
{
    const CClientDC dc(&m_list);
    return testkit::Picture::OfDc(dc.m_hDC, Cell(row, column)).Count(RGB(0, 0, 0));
}

std::vector<std::wstring> InputTest::Entries()
{
    std::vector<std::wstring> entries;
    for (int i = 0; i < m_list.m_pCombo->GetCount(); ++i) {
        CString text;
        m_list.m_pCombo->GetText(i, text);
        entries.push_back(text.GetString());
    }
    return entries;
}

void InputTest::PressKey(WPARAM key)
{
    MSG message = {};
    message.hwnd = ListBox();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    m_list.m_pCombo->PreTranslateMessage(&message);
    ::DispatchMessage(&message);
}
