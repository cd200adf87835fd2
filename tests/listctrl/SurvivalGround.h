// What the tests share in which a parent takes rows, window or object away from a list in the middle of a
// call.
#pragma once

#include "InputTest.h"

#include "kit/ReplacedImports.h"

#include <new>
#include <string>

// Memory of which each block has pages of its own. Those of a freed block are gone, and nobody else gets
// their addresses while tests run on it: whoever touches it crashes.
class OwnPages
{
public:
    static void* Take(size_t size);
    // False for what is no block of these.
    static bool Free(void* memory);
    // How many blocks are not freed.
    static size_t Count();
    // Whether an address lies in a freed block.
    static bool IsFreed(const void* address);
    // Gives all addresses back.
    static void Release();
};

// While it lives, the library's records and drop-down lists are in such memory. The names are those of one
// toolchain; the debug heap of the other fills what is freed. Whoever touches a freed block fails the test,
// also where the platform goes on after the crash, as it may when it has called the program to paint.
class GuardedMemory
{
protected:
    GuardedMemory();
    ~GuardedMemory();
    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;
    bool IsGuarded() const;

private:
    static LONG CALLBACK NoteTouch(EXCEPTION_POINTERS* exception);

    static inline int s_touches = 0;
    void* m_handler;
#ifdef __MINGW32__
    static void* NewRecords(size_t size, const std::nothrow_t&);
    static void DeleteRecords(void* memory);
    static void* NewObject(size_t size);
    static void DeleteObject(void* memory);

    CReplacedImport m_newRecords{"libstdc++-6.dll", "_ZnwyRKSt9nothrow_t",
                                 reinterpret_cast<void*>(&NewRecords)};
    CReplacedImport m_deleteRecords{"libstdc++-6.dll", "_ZdlPv", reinterpret_cast<void*>(&DeleteRecords)};
    CReplacedImport m_newObject{"VelmAfx22.dll", "_ZN7CObjectnwEy", reinterpret_cast<void*>(&NewObject)};
    CReplacedImport m_deleteObject{"VelmAfx22.dll", "_ZN7CObjectdlEPv",
                                   reinterpret_cast<void*>(&DeleteObject)};
#endif
};

// A list in such memory. Once the list view itself has handled a certain message, a function may be called
// that takes the list away: just before code of the class goes on.
class GuardedList : public OpenList
{
public:
    static void* operator new(size_t size) { return OwnPages::Take(size); }
    static void operator delete(void* memory) { OwnPages::Free(memory); }

    // For the next such message of any list.
    static void After(UINT message, std::function<void()> function);

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static inline UINT s_message = 0;
    static inline std::function<void()> s_function;
};

// Notes which of the platform's functions get no window from the library: they would act on windows of
// others, or on the screen.
class NullWindowCalls
{
public:
    NullWindowCalls();
    ~NullWindowCalls();
    NullWindowCalls(const NullWindowCalls&) = delete;
    NullWindowCalls& operator=(const NullWindowCalls&) = delete;

    static std::vector<std::string> Take() { return std::exchange(s_calls, {}); }

private:
    static void Note(const char* function, HWND window)
    {
        if (window == nullptr)
            s_calls.push_back(function);
    }
    static BOOL WINAPI Invalidate(HWND window, const RECT* rect, BOOL erase);
    static BOOL WINAPI Update(HWND window);
    static UINT_PTR WINAPI Start(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure);
    static HDC WINAPI Get(HWND window);

    static inline std::vector<std::string> s_calls;
};

// What becomes of the list.
enum class Loss
{
    Window,
    Object,
};

// A list of three columns and three rows on guarded memory, which is taken away once.
class SurvivalTest : private GuardedMemory, public InputTest, public testing::WithParamInterface<Loss>
{
protected:
    using Condition = std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)>;

    void SetUp() override;
    void TearDown() override;

    void TakeAway();
    // Right after the list view has handled the next such message.
    void TakeAfter(UINT message);
    // When the parent gets the first message for which this holds, before the parent itself.
    void TakeWhen(Condition condition);

    static Condition Notification(UINT code);

    void ExpectSurvived();

    GuardedList& List() { return *m_victim; }
    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        ::SendMessage(m_window, message, wParam, lParam);
    }
    void PressAt(CPoint point) { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y)); }
    CRect CellOf(int row, int column);
    CPoint MiddleOf(int row, int column) { return CellOf(row, column).CenterPoint(); }
    CPoint ButtonOf(int row, int column)
    {
        const CRect cell = CellOf(row, column);
        return CPoint(cell.right - 2, cell.top + 1);
    }
    // A drop-down cell in the selected row.
    void MakeDropDown(int row, int column);
    // The same, opened by a press.
    void OpenDropDown(int row, int column);
    // Draws a drop-down cell, not from within the list view's painting. Its button is pressed or not.
    void DrawDropDown(int row, int column, bool isDown);
    void ClickColumn(int column);

    HWND m_window = nullptr;

private:
    std::unique_ptr<GuardedList> m_victim;
    std::unique_ptr<MessageProbe> m_probe;
    NullWindowCalls m_nullWindows;
    int m_losses = 0;
};
