#include "ProgressDialogTest.h"

#include <filesystem>

#include "kit/Files.h"
#include "kit/Input.h"
#include "kit/Pump.h"

using testing::ElementsAre;

namespace
{

template <class Dialog>
concept OpensDataExchange = requires(Dialog& dialog)
{
    dialog.DoDataExchange(nullptr);
};

static_assert(std::is_base_of_v<CDialog, CDlgProgressBar>);
static_assert(std::has_virtual_destructor_v<CDlgProgressBar>);
static_assert(std::is_default_constructible_v<CDlgProgressBar>);
static_assert(std::is_convertible_v<CWnd*, CDlgProgressBar>);
static_assert(!OpensDataExchange<CDlgProgressBar>);
static_assert(std::is_same_v<decltype(CDlgProgressBar::m_ProgressCtrl), CProgressCtrl>);
static_assert(std::is_same_v<decltype(CDlgProgressBar::m_strStatus), CString>);
static_assert(
    std::is_same_v<decltype(&CDlgProgressBar::Set), void (CDlgProgressBar::*)(short, short, short)>);

// The bytes of a dialog template, put together piece by piece.
class TemplateBytes
{
public:
    TemplateBytes& Byte(unsigned value) { return Number(value, 1); }
    TemplateBytes& Word(unsigned value) { return Number(value, 2); }
    TemplateBytes& Double(unsigned value) { return Number(value, 4); }
    TemplateBytes& Words(std::initializer_list<unsigned> values)
    {
        for (const unsigned value : values)
            Word(value);
        return *this;
    }
    TemplateBytes& Text(std::wstring_view text)
    {
        for (const wchar_t character : text)
            Word(character);
        return Word(0);
    }
    TemplateBytes& Align()
    {
        while (m_bytes.size() % 4 != 0)
            m_bytes.push_back(0);
        return *this;
    }
    const std::vector<unsigned>& Get() const { return m_bytes; }

private:
    TemplateBytes& Number(unsigned value, int size)
    {
        for (int byte = 0; byte < size; ++byte)
            m_bytes.push_back((value >> (8 * byte)) & 0xFF);
        return *this;
    }

    std::vector<unsigned> m_bytes;
};

HMODULE Library()
{
    return GetModuleHandleW(L"VelmUtil22.dll");
}

} // namespace

TEST(ProgressDialogTemplate, HoldsWhatItShouldByteByByte)
{
    const HRSRC place = FindResourceExW(Library(), RT_DIALOG, MAKEINTRESOURCEW(DialogNumber), 1033);
    ASSERT_NE(place, nullptr);
    const auto bytes = static_cast<const BYTE*>(LockResource(LoadResource(Library(), place)));
    const std::vector<unsigned> found(bytes, bytes + SizeofResource(Library(), place));

    const auto expected = [](std::wstring_view barClass) {
        TemplateBytes parts;
        parts.Words({1, 0xFFFF}).Double(0); // an extended template without help number
        parts.Double(WS_EX_CONTROLPARENT).Double(WS_POPUP | WS_BORDER | DS_CENTER | DS_SETFONT);
        parts.Words({2, 0, 0, 319, 37}); // two controls; position and size
        parts.Words({0, 0, 0});          // no menu, class, title
        parts.Words({8, 0}).Byte(0).Byte(1).Text(L"MS Sans Serif");
        parts.Align().Double(0).Double(WS_EX_STATICEDGE).Double(WS_CHILD | WS_VISIBLE | PBS_SMOOTH);
        parts.Words({7, 7, 302, 10}).Double(BarNumber);
        parts.Text(barClass).Text(L"Progress1").Word(0);
        parts.Align().Double(0).Double(0).Double(WS_CHILD | WS_VISIBLE | WS_GROUP | SS_LEFT);
        parts.Words({7, 22, 302, 8}).Double(StatusNumber);
        parts.Words({0xFFFF, 0x0082}).Text(L"Progress Status :").Word(0); // the static control's number
        return parts.Get();
    };
    // Letter case does not matter in the name of a class; some resource compilers write capitals.
    EXPECT_THAT(found, testing::AnyOf(expected(L"msctls_progress32"), expected(L"MSCTLS_PROGRESS32")));
}

TEST(ProgressDialogTemplate, IsThereInOneLanguageOnly)
{
    std::vector<WORD> languages;
    EnumResourceLanguagesW(
        Library(), RT_DIALOG, MAKEINTRESOURCEW(DialogNumber),
        [](HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR result) -> BOOL {
            reinterpret_cast<std::vector<WORD>*>(result)->push_back(language);
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&languages));
    EXPECT_THAT(languages, ElementsAre(1033));
}

TEST(ProgressDialogObject, MessageMapIsEmptyOnTheDialogs)
{
    const AFX_MSGMAP* const map = OpenProgress::GetThisMessageMap();
    EXPECT_EQ(map->lpEntries[0].nMessage, 0u);
    EXPECT_EQ(map->pfnGetBaseMap(), OpenProgress::BaseMap());
}

TEST(ProgressDialogObject, IsConstructedForItsTemplateAndParent)
{
    CWnd parent;
    const OpenProgress dialog(&parent);
    EXPECT_EQ(dialog.m_lpszTemplateName, MAKEINTRESOURCE(DialogNumber));
    EXPECT_EQ(dialog.m_pParentWnd, &parent);
    EXPECT_EQ(dialog.m_strStatus, CString());
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.m_ProgressCtrl.m_hWnd, nullptr);
    const OpenProgress orphan;
    EXPECT_EQ(orphan.m_pParentWnd, nullptr);
}

TEST(ProgressDialogObject, FieldsStandInTheirOrderBehindTheBase)
{
    const CDlgProgressBar dialog;
    const auto address = [](const auto& part) { return reinterpret_cast<const char*>(&part); };
    EXPECT_EQ(address(dialog.m_ProgressCtrl) - address(dialog), static_cast<ptrdiff_t>(sizeof(CDialog)));
    EXPECT_EQ(address(dialog.m_ProgressCtrl) + sizeof(CProgressCtrl), address(dialog.m_strStatus));
    EXPECT_EQ(sizeof dialog, sizeof(CDialog) + sizeof(CProgressCtrl) + sizeof(CString));
}

TEST_F(ProgressDialog, IsCreatedFromTheLibraryThoughTheProgramHasNoSuchTemplate)
{
    ASSERT_EQ(FindResourceW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(DialogNumber), RT_DIALOG), nullptr);
    m_dialog = std::make_unique<OpenProgress>();
    EXPECT_EQ(m_dialog->CreateNonModal(&m_parent), TRUE);
    EXPECT_TRUE(::IsWindow(*m_dialog));
    EXPECT_EQ(ClassOf(*m_dialog), L"#32770");
    EXPECT_EQ(::GetWindow(*m_dialog, GW_OWNER), m_parent.m_hWnd);
}

TEST_F(ProgressDialog, TemplateOfThatNumberInTheProgramsResourcesComesFirst)
{
    const testkit::TempFolder folder;
    const std::filesystem::path file = folder / L"resources.dll";
    std::filesystem::copy_file(testkit::ProgramFolder() / L"VelmUtil22.dll", file);
    {
        // The library's template, of another width, as if it were the program's.
        const HRSRC place = FindResourceExW(Library(), RT_DIALOG, MAKEINTRESOURCEW(DialogNumber), 1033);
        const auto bytes = static_cast<const BYTE*>(LockResource(LoadResource(Library(), place)));
        std::vector<BYTE> changed(bytes, bytes + SizeofResource(Library(), place));
        constexpr size_t WidthPlace = 22;
        ASSERT_EQ(changed[WidthPlace] + 256 * changed[WidthPlace + 1], 319);
        changed[WidthPlace] = 200;
        changed[WidthPlace + 1] = 0;
        const HANDLE update = BeginUpdateResourceW(file.c_str(), FALSE);
        ASSERT_TRUE(UpdateResourceW(update, RT_DIALOG, MAKEINTRESOURCEW(DialogNumber), 1033, changed.data(),
                                    static_cast<DWORD>(changed.size())));
        ASSERT_TRUE(EndUpdateResourceW(update, FALSE));
    }
    const HMODULE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    const HINSTANCE before = AfxGetResourceHandle();
    AfxSetResourceHandle(module);
    m_dialog = std::make_unique<OpenProgress>();
    EXPECT_TRUE(m_dialog->CreateNonModal(&m_parent));
    AfxSetResourceHandle(before);
    CRect client;
    m_dialog->GetClientRect(&client);
    EXPECT_EQ(client.Width(), Pixels(0, 0, 200, 37).Width());
    m_dialog.reset();
    FreeLibrary(module);
}

TEST_F(ProgressDialog, ParentOfTheCreationCountsNotThatOfTheConstruction)
{
    CWnd other;
    ASSERT_TRUE(other.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    m_dialog = std::make_unique<OpenProgress>(&other);
    ASSERT_TRUE(m_dialog->CreateNonModal(&m_parent));
    EXPECT_EQ(::GetWindow(*m_dialog, GW_OWNER), m_parent.m_hWnd);
    m_dialog.reset();
    other.DestroyWindow();
}

TEST_F(ProgressDialog, CreationFailsUnderAWindowThatIsGone)
{
    CWnd gone;
    ASSERT_TRUE(gone.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    const HWND handle = gone.m_hWnd;
    gone.DestroyWindow();
    gone.m_hWnd = handle;
    m_dialog = std::make_unique<OpenProgress>();
    EXPECT_EQ(m_dialog->CreateNonModal(&gone), FALSE);
    gone.m_hWnd = nullptr;
    EXPECT_EQ(m_dialog->m_hWnd, nullptr);
    EXPECT_EQ(m_dialog->m_ProgressCtrl.m_hWnd, nullptr);
}

TEST_F(ProgressDialog, IsNotVisibleUntilShown)
{
    Create();
    EXPECT_FALSE(::IsWindowVisible(*m_dialog));
    m_dialog->ShowWindow(SW_SHOW);
    EXPECT_TRUE(::IsWindowVisible(*m_dialog));
    EXPECT_TRUE(::IsWindowVisible(Control(BarNumber)));
    EXPECT_TRUE(::IsWindowVisible(Control(StatusNumber)));
}

TEST_F(ProgressDialog, StandsInTheMiddleOfTheScreensWorkArea)
{
    Create();
    CRect dialog, area;
    m_dialog->GetWindowRect(&dialog);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_NEAR(dialog.left - area.left, area.right - dialog.right, 1);
    EXPECT_NEAR(dialog.top - area.top, area.bottom - dialog.bottom, 1);
}

TEST_F(ProgressDialog, HasTheSizeAndStylesOfItsTemplate)
{
    Create();
    CRect client;
    m_dialog->GetClientRect(&client);
    EXPECT_EQ(client, Pixels(0, 0, 319, 37));
    const DWORD style = StyleOf(*m_dialog);
    EXPECT_EQ(style & (WS_POPUP | WS_BORDER | DS_CENTER | DS_SETFONT),
              static_cast<DWORD>(WS_POPUP | WS_BORDER | DS_CENTER | DS_SETFONT));
    EXPECT_EQ(style & (WS_VISIBLE | WS_SYSMENU | WS_THICKFRAME | WS_DLGFRAME), 0u);
    EXPECT_EQ(ExStyleOf(*m_dialog) & WS_EX_CONTROLPARENT, static_cast<DWORD>(WS_EX_CONTROLPARENT));
    EXPECT_EQ(TextOf(*m_dialog), L"");
    EXPECT_EQ(::GetMenu(*m_dialog), nullptr);
}

TEST_F(ProgressDialog, HasTheFontOfItsTemplate)
{
    Create();
    for (const HWND window : {m_dialog->m_hWnd, Control(BarNumber), Control(StatusNumber)}) {
        LOGFONTW font{};
        const auto handle = reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0));
        ASSERT_NE(GetObjectW(handle, sizeof font, &font), 0);
        CClientDC dc(m_dialog.get());
        EXPECT_EQ(font.lfHeight, -MulDiv(8, dc.GetDeviceCaps(LOGPIXELSY), 72));
        EXPECT_STREQ(font.lfFaceName, L"MS Sans Serif");
        EXPECT_EQ(font.lfItalic, 0);
        EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
    }
}

TEST_F(ProgressDialog, HasABarAndALineAndNothingElse)
{
    Create();
    const HWND bar = Control(BarNumber), status = Control(StatusNumber);
    EXPECT_EQ(::GetWindow(*m_dialog, GW_CHILD), bar);
    EXPECT_EQ(::GetWindow(bar, GW_HWNDNEXT), status);
    EXPECT_EQ(::GetWindow(status, GW_HWNDNEXT), nullptr);

    EXPECT_EQ(ClassOf(bar), L"msctls_progress32");
    EXPECT_EQ(TextOf(bar), L"Progress1");
    EXPECT_EQ(InDialog(bar), Pixels(7, 7, 302, 10));
    EXPECT_EQ(StyleOf(bar), static_cast<DWORD>(WS_CHILD | WS_VISIBLE | PBS_SMOOTH));
    EXPECT_EQ(ExStyleOf(bar) & WS_EX_STATICEDGE, static_cast<DWORD>(WS_EX_STATICEDGE));

    EXPECT_EQ(ClassOf(status), L"Static");
    EXPECT_EQ(InDialog(status), Pixels(7, 22, 302, 8));
    EXPECT_EQ(StyleOf(status), static_cast<DWORD>(WS_CHILD | WS_VISIBLE | WS_GROUP | SS_LEFT));
}

TEST_F(ProgressDialog, DataExchangeAttachesTheBarThatIsCreated)
{
    Create();
    EXPECT_NE(m_dialog->m_ProgressCtrl.m_hWnd, nullptr);
    EXPECT_EQ(m_dialog->m_ProgressCtrl.m_hWnd, Control(BarNumber));
}

TEST_F(ProgressDialog, DataExchangeTakesTheBarBeforeTheLine)
{
    // A window with the line but without the bar: the exchange ends before it reaches the line.
    const HWND line = CreateWindowExW(0, L"Static", L"before", WS_CHILD, 0, 0, 9, 9, m_parent,
                                      reinterpret_cast<HMENU>(StatusNumber), nullptr, nullptr);
    OpenProgress dialog;
    dialog.m_strStatus = L"after";
    dialog.m_hWnd = m_parent;
    CDataExchange exchange(&dialog, FALSE);
    bool isRefused = false;
    try {
        dialog.DoDataExchange(&exchange);
    } catch (CException* e) {
        isRefused = true;
        e->Delete();
    }
    dialog.m_hWnd = nullptr;
    EXPECT_TRUE(isRefused);
    EXPECT_EQ(TextOf(line), L"before");
}

TEST_F(ProgressDialog, DestructionOfTheObjectDestroysTheWindow)
{
    Create();
    const HWND window = *m_dialog;
    m_dialog.reset();
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(ProgressDialog, CanBeCreatedAnewAfterItsDestruction)
{
    Create();
    m_dialog->DestroyWindow();
    EXPECT_EQ(m_dialog->m_hWnd, nullptr);
    ASSERT_TRUE(m_dialog->CreateNonModal(&m_parent));
    EXPECT_EQ(m_dialog->m_ProgressCtrl.m_hWnd, Control(BarNumber));
    m_dialog->Set(0, 50, 5);
    m_dialog->MoveNextStep();
    EXPECT_EQ(Position(), 5);
}

TEST_F(ProgressDialog, EscapeHidesItAsAnyDialog)
{
    Create();
    Show();
    ASSERT_TRUE(::IsWindowVisible(*m_dialog));
    testkit::Keyboard::Press(VK_ESCAPE);
    EXPECT_TRUE(testkit::PumpUntil([&] { return !::IsWindowVisible(*m_dialog); }));
    EXPECT_TRUE(::IsWindow(*m_dialog));
    EXPECT_EQ(m_dialog->m_strStatus, L"");
}

TEST_F(ProgressDialog, EnterTakesTheLineAndHidesItAsAnyDialog)
{
    Create();
    wchar_t text[] = L"half done";
    m_dialog->SetStatusInfo(text);
    Show();
    testkit::Keyboard::Press(VK_RETURN);
    EXPECT_TRUE(testkit::PumpUntil([&] { return !::IsWindowVisible(*m_dialog); }));
    EXPECT_TRUE(::IsWindow(*m_dialog));
    EXPECT_EQ(m_dialog->m_strStatus, L"half done");
}
