#include "kit/Input.h"

#include "kit/Pump.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsSupersetOf;

namespace
{

struct Event
{
    UINT message;
    POINT point;
    WPARAM keys;
};

std::vector<Event> g_events;
std::wstring g_typed;

LRESULT CALLBACK Note(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
        g_events.push_back(
            {message, {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))}, first});
    }
    switch (message) {
    case WM_LBUTTONDOWN:
        SetCapture(window);
        break;
    case WM_LBUTTONUP:
        ReleaseCapture();
        break;
    case WM_KEYDOWN:
        g_events.push_back({message, {}, first});
        break;
    case WM_CHAR:
        g_typed += static_cast<wchar_t>(first);
        break;
    default:
        break;
    }
    return DefWindowProcW(window, message, first, second);
}

struct Input : testing::Test
{
    Input()
    {
        WNDCLASSW type{};
        type.lpfnWndProc = Note;
        type.style = CS_DBLCLKS;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = L"testkit.input";
        RegisterClassW(&type);
        window = CreateWindowExW(0, type.lpszClassName, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 300,
                                 200, nullptr, nullptr, type.hInstance, nullptr);
        SetForegroundWindow(window);
        SetFocus(window);
        testkit::PumpPending();
        testkit::Mouse::MoveTo(testkit::ScreenPoint(window, {1, 1}));
        g_events.clear();
        g_typed.clear();
    }
    ~Input() override
    {
        DestroyWindow(window);
        UnregisterClassW(L"testkit.input", GetModuleHandleW(nullptr));
        g_events = std::vector<Event>(); // gives its memory back
        g_typed = std::wstring();
    }

    POINT At(int x, int y) const { return testkit::ScreenPoint(window, {x, y}); }

    // The messages, moves of the mouse left out.
    static std::vector<UINT> Messages()
    {
        std::vector<UINT> messages;
        for (const Event& event : g_events) {
            if (event.message != WM_MOUSEMOVE) {
                messages.push_back(event.message);
            }
        }
        return messages;
    }

    HWND window;
};

TEST_F(Input, MoveReachesTheWindowAtThePoint)
{
    EXPECT_TRUE(testkit::Mouse::MoveTo(At(50, 40)));
    ASSERT_FALSE(g_events.empty());
    EXPECT_EQ(g_events.back().message, static_cast<UINT>(WM_MOUSEMOVE));
    EXPECT_EQ(g_events.back().point.x, 50);
    EXPECT_EQ(g_events.back().point.y, 40);
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, At(50, 40).x);
    EXPECT_EQ(cursor.y, At(50, 40).y);
}

TEST_F(Input, EveryPixelCanBeReached)
{
    for (int i = 0; i < 20; ++i) {
        testkit::Mouse::MoveTo(At(60 + i, 50 + i));
        POINT cursor{};
        GetCursorPos(&cursor);
        EXPECT_EQ(cursor.x, At(60 + i, 50 + i).x);
        EXPECT_EQ(cursor.y, At(60 + i, 50 + i).y);
    }
}

TEST_F(Input, MoveToWhereThePointerStandsIsDone)
{
    testkit::Mouse::MoveTo(At(50, 40));
    EXPECT_TRUE(testkit::Mouse::MoveTo(At(50, 40)));
}

TEST_F(Input, ClickIsDownAndUp)
{
    EXPECT_TRUE(testkit::Mouse::Click(At(50, 40)));
    EXPECT_THAT(Messages(), ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP));
}

TEST_F(Input, OtherButtonsClickToo)
{
    EXPECT_TRUE(testkit::Mouse::Click(At(50, 40), testkit::MouseButton::Right));
    EXPECT_TRUE(testkit::Mouse::Click(At(50, 40), testkit::MouseButton::Middle));
    EXPECT_THAT(Messages(), ElementsAre(WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP));
}

TEST_F(Input, DoubleClickIsOne)
{
    EXPECT_TRUE(testkit::Mouse::DoubleClick(At(50, 40)));
    EXPECT_THAT(Messages(), ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP));
}

TEST_F(Input, DragMovesWithTheButtonHeldAlsoOutside)
{
    EXPECT_TRUE(testkit::Mouse::Drag(At(50, 40), At(-30, 60)));
    EXPECT_THAT(Messages(), ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP));
    EXPECT_EQ(g_events.back().point.x, -30);
    EXPECT_EQ(g_events.back().point.y, 60);
    int heldMoves = 0;
    for (const Event& event : g_events) {
        heldMoves += event.message == WM_MOUSEMOVE && (event.keys & MK_LBUTTON);
    }
    EXPECT_GE(heldMoves, 4);
}

TEST_F(Input, WheelTurns)
{
    EXPECT_TRUE(testkit::Mouse::Wheel(At(50, 40), -2));
    ASSERT_FALSE(g_events.empty());
    EXPECT_EQ(g_events.back().message, static_cast<UINT>(WM_MOUSEWHEEL));
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(g_events.back().keys), -2 * WHEEL_DELTA);
}

TEST_F(Input, ClickBesideAllWindowsOfTheThreadIsNotDelivered)
{
    ShowWindow(window, SW_HIDE);
    EXPECT_FALSE(testkit::Mouse::Click({700, 600}));
    EXPECT_TRUE(g_events.empty());
}

TEST_F(Input, KeyGoesToTheFocus)
{
    EXPECT_TRUE(testkit::Keyboard::Press(VK_F5));
    ASSERT_EQ(g_events.size(), 1u);
    EXPECT_EQ(g_events[0].keys, static_cast<WPARAM>(VK_F5));
}

TEST_F(Input, ModifiersAreHeldDuringTheKey)
{
    EXPECT_TRUE(testkit::Keyboard::Press('A', {VK_CONTROL}));
    ASSERT_EQ(g_events.size(), 2u);
    EXPECT_EQ(g_events[0].keys, static_cast<WPARAM>(VK_CONTROL));
    EXPECT_EQ(g_events[1].keys, static_cast<WPARAM>('A'));
    EXPECT_EQ(g_typed, L"\x01"); // Ctrl+A as a character
    EXPECT_GE(GetAsyncKeyState(VK_CONTROL), 0) << "the modifier is up again";
}

TEST_F(Input, TypesTextAsItStands)
{
    EXPECT_TRUE(testkit::Keyboard::Type(L"Ab 1?\u00fc\u20ac"));
    EXPECT_EQ(g_typed, L"Ab 1?\u00fc\u20ac");
}

TEST_F(Input, ClickOnAScrollBarReturnsFromItsLoop)
{
    const HWND bar = CreateWindowExW(0, L"ScrollBar", L"", WS_CHILD | WS_VISIBLE | SBS_VERT, 200, 0, 20, 150,
                                     window, nullptr, nullptr, nullptr);
    UpdateWindow(bar);
    RECT box{};
    GetWindowRect(bar, &box);
    EXPECT_TRUE(testkit::Mouse::Click({(box.left + box.right) / 2, box.bottom - 3}));
    EXPECT_TRUE(testkit::Mouse::Drag({(box.left + box.right) / 2, box.bottom - 3},
                                     {(box.left + box.right) / 2, box.bottom - 2}));
}

} // namespace
