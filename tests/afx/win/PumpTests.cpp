// The pump: who sees a message first, what happens when it is idle, and threads.
#include "TestWindow.h"

#include <string>
#include <vector>

namespace
{
std::vector<std::string> seen;

class CSeeing : public TestWindow<>
{
public:
    explicit CSeeing(const char* name) : m_name(name) {}
    bool m_takes = false;

    virtual BOOL PreTranslateMessage(MSG* pMsg)
    {
        if (pMsg->message != WM_USER + 1)
            return CWnd::PreTranslateMessage(pMsg);
        seen.push_back(m_name);
        return m_takes;
    }

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_USER + 1)
            seen.push_back(m_name + "'s procedure");
        return CWnd::WindowProc(message, wParam, lParam);
    }
    const std::string m_name;
};

class PreTranslation : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(main.Make(WS_POPUP | WS_VISIBLE));
        ASSERT_TRUE(middle.Make(WS_CHILD, &main));
        ASSERT_TRUE(inner.Make(WS_CHILD, &middle));
        AfxGetApp()->m_pMainWnd = &main;
        Drain();
        seen.clear();
    }
    void TearDown() override
    {
        AfxGetApp()->m_pMainWnd = nullptr;
        std::vector<std::string>().swap(seen);
    }
    void Drain()
    {
        MSG message;
        while (::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE))
            AfxPumpMessage();
    }
    void Post(CWnd& window)
    {
        window.PostMessage(WM_USER + 1);
        Drain();
    }

    CSeeing main{"main"};
    CSeeing middle{"middle"};
    CSeeing inner{"inner"};
};

using Seen = std::vector<std::string>;
} // namespace

TEST_F(PreTranslation, GoesFromTheMessagesWindowUpToTheMainWindow)
{
    Post(inner);
    EXPECT_EQ((Seen{"inner", "middle", "main", "inner's procedure"}), seen);
}

TEST_F(PreTranslation, EndsWhereAWindowTakesTheMessage)
{
    middle.m_takes = true;
    Post(inner);
    EXPECT_EQ((Seen{"inner", "middle"}), seen);
}

TEST_F(PreTranslation, MainWindowSeesMessagesOfOtherTopLevelWindowsToo)
{
    CSeeing other("other");
    ASSERT_TRUE(other.Make(WS_POPUP));
    Post(other);
    EXPECT_EQ((Seen{"other", "main", "other's procedure"}), seen);
}

TEST_F(PreTranslation, SentMessagesAreNotOffered)
{
    inner.SendMessage(WM_USER + 1);
    EXPECT_EQ(Seen{"inner's procedure"}, seen);
}

TEST(Pump, QuitEndsIt)
{
    ::PostQuitMessage(5);
    EXPECT_FALSE(AfxPumpMessage());
    EXPECT_EQ(5, AfxGetApp()->ExitInstance());
}

TEST(Pump, RunGivesTheExitCode)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make());
    AfxGetApp()->m_pMainWnd = &window;
    ::PostQuitMessage(42);
    EXPECT_EQ(42, AfxGetApp()->Run());
    AfxGetApp()->m_pMainWnd = nullptr;
}

TEST(Pump, RunWithoutAMainWindowEndsAtOnce)
{
    EXPECT_EQ(0, AfxGetApp()->Run());
}

TEST(Idle, SecondCallDeletesTemporaryObjects)
{
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    CMenu popup;
    ASSERT_TRUE(popup.CreatePopupMenu());
    // A temporary object keeps its place in memory as long as it lives; after idle time the handle has no
    // temporary object, which shows when it is detached from its owner.
    CMenu* const temporary = CMenu::FromHandle(popup.Detach());
    const HMENU handle = temporary->m_hMenu;
    EXPECT_TRUE(AfxGetApp()->OnIdle(0));
    EXPECT_EQ(temporary, CMenu::FromHandle(handle)) << "still there after the first call";
    EXPECT_FALSE(AfxGetApp()->OnIdle(1)) << "nothing more to do";
    popup.Attach(handle);
    EXPECT_EQ(&popup, CMenu::FromHandle(handle));
}

TEST(Idle, FirstCallUpdatesTheVisibleMainWindowAndItsDescendants)
{
    class CUpdated : public TestWindow<>
    {
    public:
        int m_updates = 0;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_IDLEUPDATECMDUI)
                ++m_updates;
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    CUpdated main, child;
    ASSERT_TRUE(main.Make(WS_POPUP));
    ASSERT_TRUE(child.Make(WS_CHILD, &main));
    AfxGetApp()->m_pMainWnd = &main;
    AfxGetApp()->OnIdle(0);
    EXPECT_EQ(0, main.m_updates) << "hidden";
    main.ShowWindow(SW_SHOWNA);
    AfxGetApp()->OnIdle(0);
    EXPECT_EQ(1, main.m_updates);
    EXPECT_EQ(1, child.m_updates);
    AfxGetApp()->m_pMainWnd = nullptr;
}

TEST(Idle, MovesOnTheSpotAndPaintingAreNoReason)
{
    CWinApp& app = *AfxGetApp();
    MSG message{};
    message.message = WM_MOUSEMOVE;
    message.pt = {11, 12};
    EXPECT_TRUE(app.IsIdleMessage(&message));
    EXPECT_FALSE(app.IsIdleMessage(&message));
    message.pt = {11, 13};
    EXPECT_TRUE(app.IsIdleMessage(&message));
    message.message = WM_PAINT;
    EXPECT_FALSE(app.IsIdleMessage(&message));
    message.message = WM_KEYDOWN;
    EXPECT_TRUE(app.IsIdleMessage(&message));
}

TEST(Threads, WorkerRunsItsFunction)
{
    struct Shared
    {
        CWinThread* pInside = nullptr;
        DWORD id = 0;
    } shared;
    CWinThread thread(
        [](LPVOID pParam) -> UINT {
            Shared& shared = *static_cast<Shared*>(pParam);
            shared.pInside = AfxGetThread();
            shared.id = ::GetCurrentThreadId();
            return 31;
        },
        &shared);
    thread.m_bAutoDelete = FALSE;
    ASSERT_TRUE(thread.CreateThread());
    EXPECT_FALSE(thread.CreateThread()) << "once for each object";
    ::WaitForSingleObject(thread, INFINITE);
    DWORD exitCode = 0;
    ::GetExitCodeThread(thread, &exitCode);
    EXPECT_EQ(31u, exitCode);
    EXPECT_EQ(&thread, shared.pInside);
    EXPECT_EQ(thread.m_nThreadID, shared.id);
    EXPECT_NE(::GetCurrentThreadId(), shared.id);
}

TEST(Threads, SuspendedThreadWaitsForResume)
{
    static long ran;
    ran = 0;
    CWinThread* const thread = AfxBeginThread(
        [](LPVOID) -> UINT {
            ::InterlockedIncrement(&ran);
            return 0;
        },
        nullptr, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(nullptr, thread);
    thread->m_bAutoDelete = FALSE;
    EXPECT_EQ(WAIT_TIMEOUT, ::WaitForSingleObject(thread->m_hThread, 0));
    EXPECT_EQ(0, ran);
    EXPECT_EQ(1u, thread->ResumeThread());
    ::WaitForSingleObject(thread->m_hThread, INFINITE);
    EXPECT_EQ(1, ran);
    delete thread;
}

namespace
{
UINT threadMessage = WM_USER + 50;

class CPumpThread : public CWinThread
{
    DECLARE_DYNCREATE(CPumpThread)

public:
    static long handled;
    static long exits;
    static HANDLE ready;
    virtual BOOL InitInstance()
    {
        MSG message;
        ::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
        ::SetEvent(ready);
        return TRUE;
    }
    virtual int ExitInstance()
    {
        ++exits;
        return CWinThread::ExitInstance();
    }

protected:
    afx_msg void OnThreadMessage(WPARAM wParam, LPARAM) { handled += static_cast<long>(wParam); }
    afx_msg void OnStop(WPARAM wParam, LPARAM) { ::PostQuitMessage(static_cast<int>(wParam)); }
    DECLARE_MESSAGE_MAP()
};
long CPumpThread::handled = 0;
long CPumpThread::exits = 0;
HANDLE CPumpThread::ready = nullptr;
IMPLEMENT_DYNCREATE(CPumpThread, CWinThread)

BEGIN_MESSAGE_MAP(CPumpThread, CWinThread)
ON_THREAD_MESSAGE(WM_USER + 51, &CPumpThread::OnStop)
ON_REGISTERED_THREAD_MESSAGE(threadMessage, &CPumpThread::OnThreadMessage)
END_MESSAGE_MAP()
} // namespace

TEST(Threads, PumpThreadHandlesThreadMessages)
{
    threadMessage = ::RegisterWindowMessage(_T("afx test thread message"));
    CPumpThread::handled = CPumpThread::exits = 0;
    CPumpThread::ready = ::CreateEvent(nullptr, TRUE, FALSE, nullptr);
    CWinThread* const thread =
        AfxBeginThread(RUNTIME_CLASS(CPumpThread), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(nullptr, thread);
    thread->m_bAutoDelete = FALSE;
    thread->ResumeThread();
    ::WaitForSingleObject(CPumpThread::ready, INFINITE);
    EXPECT_TRUE(thread->PostThreadMessage(threadMessage, 7, 0));
    EXPECT_TRUE(thread->PostThreadMessage(WM_USER + 51, 9, 0));
    ::WaitForSingleObject(thread->m_hThread, INFINITE);
    DWORD exitCode = 0;
    ::GetExitCodeThread(thread->m_hThread, &exitCode);
    EXPECT_EQ(9u, exitCode);
    EXPECT_EQ(7, CPumpThread::handled);
    EXPECT_EQ(1, CPumpThread::exits);
    delete thread;
    ::CloseHandle(CPumpThread::ready);
}

TEST(Threads, ObjectGoesWithTheThread)
{
    static long deleted;
    deleted = 0;
    class CGoing : public CWinThread
    {
    public:
        CGoing() : CWinThread([](LPVOID) -> UINT { return 0; }, nullptr) {}
        virtual ~CGoing() { ::InterlockedIncrement(&deleted); }
    };
    auto* const thread = new CGoing;
    ASSERT_TRUE(thread->CreateThread(CREATE_SUSPENDED));
    HANDLE own = nullptr;
    ::DuplicateHandle(::GetCurrentProcess(), thread->m_hThread, ::GetCurrentProcess(), &own, 0, FALSE,
                      DUPLICATE_SAME_ACCESS);
    thread->ResumeThread();
    ::WaitForSingleObject(own, INFINITE);
    EXPECT_EQ(1, deleted);
    ::CloseHandle(own);
}

namespace
{
class CCommandThread : public CWinThread
{
public:
    int m_commands = 0;

protected:
    afx_msg void OnSomeCommand() { ++m_commands; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CCommandThread, CWinThread)
ON_COMMAND(100, &CCommandThread::OnSomeCommand)
END_MESSAGE_MAP()
} // namespace

TEST(Threads, CommandHandlersAreNotForThreadMessages)
{
    CCommandThread thread;
    MSG message{};
    message.message = WM_COMMAND;
    message.wParam = 5;
    EXPECT_FALSE(thread.DispatchThreadMessageEx(&message));
    EXPECT_EQ(0, thread.m_commands);
    EXPECT_TRUE(thread.OnCmdMsg(100, CN_COMMAND, nullptr, nullptr));
    EXPECT_EQ(1, thread.m_commands);
}
