// No exception gets past a window procedure, and none is lost.
#include "TestWindow.h"

#include "kit/MessageBoxWatch.h"

#include <stdexcept>

namespace
{
class CCounted : public CUserException
{
public:
    CCounted() : CUserException(TRUE) { ++alive; }
    virtual ~CCounted() { --alive; }
    static int alive;
};
int CCounted::alive = 0;

class CTold : public CException
{
public:
    CTold() : CException(TRUE) { ++alive; }
    virtual ~CTold() { --alive; }
    virtual BOOL GetErrorMessage(LPTSTR text, UINT room, PUINT help = nullptr) const
    {
        if (help != nullptr)
            *help = 0;
        ::lstrcpyn(text, _T("told exception"), static_cast<int>(room));
        return TRUE;
    }
    static int alive;
};
int CTold::alive = 0;

class CThrowing : public TestWindow<>
{
public:
    enum Kind
    {
        Nothing,
        Told,
        User,
        Standard,
        Unknown
    };
    Kind m_kind = Nothing;
    UINT m_message = 0;
    int m_paints = 0;

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_PAINT)
            ++m_paints;
        if (message == m_message) {
            switch (m_kind) {
            case Told:
                throw new CTold;
            case User:
                throw new CCounted;
            case Standard:
                throw std::runtime_error("standard exception");
            case Unknown:
                throw 42;
            case Nothing:
                break;
            }
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class HandlerExceptions : public testing::Test
{
protected:
    void Throw(CThrowing::Kind kind, UINT message)
    {
        window.m_kind = kind;
        window.m_message = message;
    }

    CThrowing window;
    testkit::MessageBoxWatch boxes;
};
} // namespace

TEST_F(HandlerExceptions, IsReportedAndTheMessagesResultIsZero)
{
    ASSERT_TRUE(window.Make());
    Throw(CThrowing::Told, WM_USER + 1);
    EXPECT_EQ(0, window.SendMessage(WM_USER + 1));
    ASSERT_EQ(1u, boxes.Boxes().size());
    EXPECT_EQ(L"told exception", boxes.Boxes()[0].text);
    EXPECT_EQ(UINT(MB_ICONERROR), boxes.Boxes()[0].icon);
    EXPECT_EQ(0, CTold::alive) << "the window procedure deletes what it caught";
}

TEST_F(HandlerExceptions, OfTheUserIsNotReportedAgain)
{
    ASSERT_TRUE(window.Make());
    Throw(CThrowing::User, WM_USER + 1);
    EXPECT_EQ(0, window.SendMessage(WM_USER + 1));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(0, CCounted::alive);
}

TEST_F(HandlerExceptions, StandardOnesAreReportedWithTheirText)
{
    ASSERT_TRUE(window.Make());
    Throw(CThrowing::Standard, WM_USER + 1);
    EXPECT_EQ(0, window.SendMessage(WM_USER + 1));
    EXPECT_EQ(std::vector<std::wstring>{L"standard exception"}, boxes.Texts());
}

TEST_F(HandlerExceptions, UnknownOnesAreReportedToo)
{
    ASSERT_TRUE(window.Make());
    Throw(CThrowing::Unknown, WM_USER + 1);
    EXPECT_EQ(0, window.SendMessage(WM_USER + 1));
    EXPECT_EQ(1u, boxes.Boxes().size());
}

TEST_F(HandlerExceptions, InOnCreateFailsTheCreation)
{
    Throw(CThrowing::Told, WM_CREATE);
    EXPECT_FALSE(window.Make());
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(0, CTold::alive);
}

TEST_F(HandlerExceptions, InOnCreateOfStandardKindFailsTheCreation)
{
    Throw(CThrowing::Standard, WM_CREATE);
    EXPECT_FALSE(window.Make());
    EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST_F(HandlerExceptions, InOnPaintValidatesTheWindow)
{
    ASSERT_TRUE(window.Make(WS_POPUP | WS_VISIBLE));
    window.UpdateWindow();
    Throw(CThrowing::Told, WM_PAINT);
    window.m_paints = 0;
    window.Invalidate();
    window.UpdateWindow();
    EXPECT_EQ(1, window.m_paints);
    EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE));
    EXPECT_EQ(0, CTold::alive);
}

TEST_F(HandlerExceptions, OfACommandCountsAsDealtWith)
{
    ASSERT_TRUE(window.Make());
    Throw(CThrowing::Told, WM_COMMAND);
    EXPECT_EQ(TRUE, window.SendMessage(WM_COMMAND, 5));
    EXPECT_EQ(1u, boxes.Boxes().size());
}

TEST_F(HandlerExceptions, ThreadsObjectMayDealWithThemItself)
{
    class COwnThread : public CWinThread
    {
    public:
        COwnThread() { m_bAutoDelete = FALSE; }
        virtual BOOL InitInstance()
        {
            CThrowing window;
            window.m_kind = CThrowing::Told;
            window.m_message = WM_USER + 2;
            if (window.Make())
                m_result = window.SendMessage(WM_USER + 2);
            return FALSE;
        }
        virtual LRESULT ProcessWndProcException(CException*, const MSG* pMsg)
        {
            m_message = pMsg->message;
            return 99;
        }
        LRESULT m_result = 0;
        UINT m_message = 0;
    } thread;
    ASSERT_TRUE(thread.CreateThread());
    ::WaitForSingleObject(thread.m_hThread, INFINITE);
    EXPECT_EQ(99, thread.m_result);
    EXPECT_EQ(UINT(WM_USER + 2), thread.m_message);
    EXPECT_EQ(0, CTold::alive);
}
