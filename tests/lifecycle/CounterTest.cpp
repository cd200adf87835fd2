// Every counter sees a leak that is made on purpose, and its end.
#include "Lives.h"

#include "Holdings.h"
#include "Host.h"
#include "hostmenu/CompanionOperations.h"

#include <objbase.h>

#include <algorithm>
#include <functional>
#include <list>
#include <string_view>

namespace
{

using lifecycle::HoldingNow;

// Something that is taken and can be given back.
using GiveBack = std::function<void()>;

struct Leak
{
    const char* name;  // of the test
    const char* kind;  // whose counter is to see it
    long long atLeast; // how much it must grow
    long long atMost;
    GiveBack (*take)();
};

HWND NewWindow()
{
    return ::CreateWindowExW(0, L"Static", L"planted", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                             nullptr);
}

IXMLDOMDocument2Ptr NewDocument()
{
    IXMLDOMDocument2Ptr document;
    document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER);
    return document;
}

// Blocks

GiveBack BlockOfTheProgram()
{
    static int* volatile block;
    block = new int(7);
    return [] { delete block; };
}

GiveBack BlocksOfTheLibrary()
{
    static CStringArray texts;
    static std::list<CString> list;
    texts.SetSize(3);
    FillStringList(texts, list);
    return [] {
        list.clear();
        texts.RemoveAll();
    };
}

GiveBack Pen()
{
    const HPEN pen = ::CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    return [pen] { ::DeleteObject(pen); };
}

GiveBack MemoryContext()
{
    const HDC dc = ::CreateCompatibleDC(nullptr);
    return [dc] { ::DeleteDC(dc); };
}

// User objects

GiveBack Window()
{
    const HWND window = NewWindow();
    return [window] { ::DestroyWindow(window); };
}

GiveBack Menu()
{
    const HMENU menu = ::CreatePopupMenu();
    return [menu] { ::DestroyMenu(menu); };
}

GiveBack MenuBar()
{
    const HMENU bar = ::CreateMenu();
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(::CreatePopupMenu()), L"below");
    return [bar] { ::DestroyMenu(bar); };
}

GiveBack Icon()
{
    const BYTE bits[32] = {};
    const HICON icon = ::CreateIcon(nullptr, 16, 16, 1, 1, bits, bits);
    return [icon] { ::DestroyIcon(icon); };
}

GiveBack Cursor()
{
    const BYTE bits[128] = {};
    const HCURSOR cursor = ::CreateCursor(nullptr, 0, 0, 32, 32, bits, bits);
    return [cursor] { ::DestroyCursor(cursor); };
}

GiveBack Accelerators()
{
    ACCEL key{FVIRTKEY, VK_F1, 1};
    const HACCEL table = ::CreateAcceleratorTableW(&key, 1);
    return [table] { ::DestroyAcceleratorTable(table); };
}

GiveBack TimerOfAWindow()
{
    const HWND window = NewWindow();
    ::SetTimer(window, 3, 60000, nullptr);
    ::SetTimer(window, 3, 50000, nullptr); // the same anew
    return [window] {
        ::KillTimer(window, 3);
        ::DestroyWindow(window);
    };
}

GiveBack TimerThatGoesWithItsWindow()
{
    const HWND window = NewWindow();
    ::SetTimer(window, 3, 60000, nullptr);
    return [window] { ::DestroyWindow(window); };
}

GiveBack TimerWithoutAWindow()
{
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 60000, nullptr);
    return [timer] { ::KillTimer(nullptr, timer); };
}

// The library's own: the window stays as long as its timers are looked at.
GiveBack TimersOfTheLibrary()
{
    static CMatrixCredits* credits;
    credits = new CMatrixCredits;
    credits->AddTextLine(L"line");
    credits->Create(WS_POPUP, CRect(0, 0, 100, 100), nullptr, 0);
    return [] { delete credits; };
}

GiveBack Hook()
{
    const HHOOK hook = ::SetWindowsHookExW(
        WH_CBT, [](int, WPARAM, LPARAM) -> LRESULT { return 0; }, nullptr, ::GetCurrentThreadId());
    return [hook] { ::UnhookWindowsHookEx(hook); };
}

// The kernel's

GiveBack Event()
{
    const HANDLE event = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
    return [event] { ::CloseHandle(event); };
}

GiveBack File()
{
    wchar_t path[MAX_PATH];
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    const HANDLE file =
        ::CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    return [file] { ::CloseHandle(file); };
}

GiveBack RegistryKey()
{
    HKEY key = nullptr;
    ::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key);
    return [key] { ::RegCloseKey(key); };
}

GiveBack Thread()
{
    const HANDLE thread = ::CreateThread(
        nullptr, 0, [](LPVOID) -> DWORD { return 0; }, nullptr, 0, nullptr);
    ::WaitForSingleObject(thread, INFINITE);
    return [thread] { ::CloseHandle(thread); };
}

// COM's

GiveBack String()
{
    const BSTR text = ::SysAllocString(L"planted");
    return [text] { ::SysFreeString(text); };
}

GiveBack StringsOfEveryMaker()
{
    static BSTR texts[4];
    texts[0] = ::SysAllocStringLen(L"planted", 4);
    texts[1] = ::SysAllocStringByteLen("planted", 7);
    texts[2] = ::SysAllocString(L"a");
    ::SysReAllocString(&texts[2], L"a longer text than the one before, by far");
    texts[3] = ::SysAllocString(L"b");
    ::SysReAllocStringLen(&texts[3], L"longer", 6);
    return [] {
        for (const BSTR text : texts)
            ::SysFreeString(text);
    };
}

// Made and freed inside the platform's library.
GiveBack StringInAVariant()
{
    static VARIANT copy;
    ::VariantInit(&copy);
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = 1234567;
    ::VariantChangeType(&copy, &number, 0, VT_BSTR);
    return [] { ::VariantClear(&copy); };
}

// What the document model hands out.
GiveBack StringOfADocument()
{
    static BSTR text;
    const IXMLDOMDocument2Ptr document = NewDocument();
    document->put_text(_bstr_t(L"none"));
    document->get_nodeName(&text);
    return [] { ::SysFreeString(text); };
}

GiveBack ReferencesToADocument()
{
    static CXMLFile file;
    static IXMLDOMDocument2Ptr second;
    file.LoadFileFromRes();
    second = file.m_pXMLDoc;
    return [] {
        second = nullptr;
        file.m_pXMLDoc = nullptr;
    };
}

GiveBack Document()
{
    static IXMLDOMDocument2Ptr document;
    document = NewDocument();
    return [] { document = nullptr; };
}

// Only a node is held: its document's object is gone.
GiveBack Node()
{
    static IXMLDOMElementPtr element;
    const IXMLDOMDocument2Ptr document = NewDocument();
    document->createElement(_bstr_t(L"planted"), &element);
    return [] { element = nullptr; };
}

GiveBack ObjectOfTheHost()
{
    static IDispatch* menu;
    menu = Create_ACADMenu(lifecycle::Host().GetIDispatch(FALSE), L"planted");
    return [] {
        menu->Release();
        lifecycle::EmptyHost();
    };
}

GiveBack SecondReferenceToAnObjectOfTheHost()
{
    static IDispatch* menu;
    menu = Create_ACADMenu(lifecycle::Host().GetIDispatch(FALSE), L"planted");
    menu->AddRef();
    return [] {
        menu->Release();
        menu->Release();
        lifecycle::EmptyHost();
    };
}

GiveBack ReferenceToTheHost()
{
    IDispatch* const application = lifecycle::Host().GetIDispatch(TRUE);
    return [application] { application->Release(); };
}

constexpr long long Any = 1000;

const Leak Leaks[] = {
    {"BlockOfTheProgram", "heap blocks", 1, 1, &BlockOfTheProgram},
    {"BlocksOfTheLibrary", "heap blocks", 3, Any, &BlocksOfTheLibrary},
    {"Pen", "GDI objects", 1, 1, &Pen},
    {"MemoryContext", "GDI objects", 1, 2, &MemoryContext},
    {"Window", "windows", 1, 1, &Window},
    {"Menu", "menus", 1, 1, &Menu},
    {"MenuBar", "menus", 2, 2, &MenuBar},
    {"Icon", "icons", 1, 1, &Icon},
    {"Cursor", "icons", 1, 1, &Cursor},
    {"Accelerators", "accelerator tables", 1, 1, &Accelerators},
    {"TimerOfAWindow", "timers", 1, 1, &TimerOfAWindow},
    {"TimerThatGoesWithItsWindow", "timers", 1, 1, &TimerThatGoesWithItsWindow},
    {"TimerWithoutAWindow", "timers", 1, 1, &TimerWithoutAWindow},
    {"TimersOfTheLibrary", "timers", 1, Any, &TimersOfTheLibrary},
    {"Hook", "hooks", 1, 1, &Hook},
    {"Event", "kernel handles", 1, 1, &Event},
    {"File", "kernel handles", 1, 1, &File},
    {"RegistryKey", "kernel handles", 1, 1, &RegistryKey},
    {"Thread", "kernel handles", 1, 1, &Thread},
    {"String", "strings", 1, 1, &String},
    {"StringsOfEveryMaker", "strings", 4, 4, &StringsOfEveryMaker},
    {"StringInAVariant", "strings", 1, 1, &StringInAVariant},
    {"StringOfADocument", "strings", 1, 1, &StringOfADocument},
    {"ReferencesToADocument", "references to documents", 2, 2, &ReferencesToADocument},
    {"Document", "blocks of the document model", 1, Any, &Document},
    {"Node", "blocks of the document model", 1, Any, &Node},
    {"ObjectOfTheHost", "objects of the host", 1, 1, &ObjectOfTheHost},
    {"SecondReferenceToAnObjectOfTheHost", "references to the host", 2, 2,
     &SecondReferenceToAnObjectOfTheHost},
    {"ReferenceToTheHost", "references to the host", 1, 1, &ReferenceToTheHost},
};

void PrintTo(const Leak& leak, std::ostream* out)
{
    *out << leak.name;
}

void StartAll()
{
    ASSERT_TRUE(SUCCEEDED(::CoInitialize(nullptr)));
    ASSERT_TRUE(lifecycle::StartCounting());
    // First uses take what is kept.
    for (const Leak& leak : Leaks)
        leak.take()();
    lifecycle::HoldingsNow();
}

class PlantedLeak : public testing::TestWithParam<Leak>
{
protected:
    static void SetUpTestSuite() { StartAll(); }
    static void TearDownTestSuite() { ::CoUninitialize(); }
};

TEST_P(PlantedLeak, IsCountedUntilItIsGivenBack)
{
    const Leak& leak = GetParam();
    const long long before = HoldingNow(leak.kind);
    const GiveBack giveBack = leak.take();
    const long long with = HoldingNow(leak.kind);
    giveBack();
    EXPECT_GE(with - before, leak.atLeast);
    EXPECT_LE(with - before, leak.atMost);
    EXPECT_EQ(HoldingNow(leak.kind) - before, 0);
}

INSTANTIATE_TEST_SUITE_P(Each, PlantedLeak, testing::ValuesIn(Leaks),
                         [](const testing::TestParamInfo<Leak>& info) { return info.param.name; });

TEST(Counters, AreAllProvedByAPlantedLeak)
{
    for (const lifecycle::Kind& kind : lifecycle::Kinds) {
        EXPECT_TRUE(std::any_of(std::begin(Leaks), std::end(Leaks), [&](const Leak& leak) {
            return std::string_view(leak.kind) == kind.name;
        })) << kind.name;
    }
}

} // namespace
