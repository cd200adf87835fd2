// Which object stands for which handle, and for how long.
#include "TestWindow.h"

#include <thread>

namespace
{
// A window that no object knows.
class BareWindow
{
public:
    BareWindow()
        : m_hWnd(::CreateWindow(_T("STATIC"), _T("bare"), WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                                nullptr))
    {
    }
    ~BareWindow() { ::DestroyWindow(m_hWnd); }
    operator HWND() const { return m_hWnd; }

private:
    HWND m_hWnd;
};
} // namespace

TEST(HandleMaps, NullHandleHasNoObject)
{
    EXPECT_EQ(nullptr, CWnd::FromHandle(nullptr));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(nullptr));
    EXPECT_EQ(nullptr, CMenu::FromHandle(nullptr));
    EXPECT_EQ(nullptr, CDC::FromHandle(nullptr));
    EXPECT_EQ(nullptr, CGdiObject::FromHandle(nullptr));
    EXPECT_EQ(nullptr, CImageList::FromHandle(nullptr));
}

TEST(HandleMaps, FromHandleTwiceGivesTheSameTemporaryObject)
{
    const BareWindow window;
    CWnd* const first = CWnd::FromHandle(window);
    ASSERT_NE(nullptr, first);
    EXPECT_EQ(static_cast<HWND>(window), first->m_hWnd);
    EXPECT_EQ(first, CWnd::FromHandle(window));
}

TEST(HandleMaps, ATemporaryObjectIsNotPermanent)
{
    const BareWindow window;
    CWnd::FromHandle(window);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(window));
}

TEST(HandleMaps, DeletingTemporaryObjectsLeavesTheirWindows)
{
    const BareWindow window;
    CWnd::FromHandle(window);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(window));
    EXPECT_EQ(static_cast<HWND>(window), CWnd::FromHandle(window)->m_hWnd);
}

TEST(HandleMaps, TheObjectThatMadeTheWindowIsPermanent)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make());
    EXPECT_EQ(&window, CWnd::FromHandle(window.m_hWnd));
    EXPECT_EQ(&window, CWnd::FromHandlePermanent(window.m_hWnd));
    CWnd::DeleteTempMap();
    EXPECT_EQ(&window, CWnd::FromHandlePermanent(window.m_hWnd));
}

TEST(HandleMaps, AttachingTakesTheTemporaryObjectsPlace)
{
    const BareWindow bare;
    CWnd* const temporary = CWnd::FromHandle(bare);
    CWnd owner;
    ASSERT_TRUE(owner.Attach(bare));
    EXPECT_EQ(&owner, CWnd::FromHandle(bare));
    EXPECT_EQ(static_cast<HWND>(bare), temporary->m_hWnd) << "the temporary object lives on until idle time";
    EXPECT_EQ(static_cast<HWND>(bare), owner.Detach());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(bare));
    EXPECT_EQ(nullptr, owner.m_hWnd);
}

TEST(HandleMaps, NothingCannotBeAttached)
{
    CWnd window;
    EXPECT_FALSE(window.Attach(nullptr));
    EXPECT_EQ(nullptr, window.Detach());
}

TEST(HandleMaps, TheEndOfTheWindowEndsItsEntry)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make());
    const HWND hWnd = window.m_hWnd;
    ASSERT_TRUE(window.DestroyWindow());
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    EXPECT_FALSE(window.DestroyWindow());
}

TEST(HandleMaps, TheDestructorOfAnAttachedObjectDestroysTheWindow)
{
    const HWND hWnd =
        ::CreateWindow(_T("STATIC"), nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    {
        CWnd owner;
        ASSERT_TRUE(owner.Attach(hWnd));
    }
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
}

TEST(HandleMaps, EachThreadHasItsOwn)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make());
    const HWND hWnd = window.m_hWnd;
    const CWnd* permanentThere = &window;
    bool temporaryThere = false;
    std::thread([&] {
        permanentThere = CWnd::FromHandlePermanent(hWnd);
        const CWnd* const found = CWnd::FromHandle(hWnd);
        temporaryThere = found != nullptr && found != &window;
    }).join();
    EXPECT_EQ(nullptr, permanentThere);
    EXPECT_TRUE(temporaryThere);
}

TEST(HandleMaps, SafeHandlesOfNullPointersAreNull)
{
    // The volatile pointers keep the compiler from seeing that they are null.
    CWnd* volatile window = nullptr;
    CDC* volatile dc = nullptr;
    CGdiObject* volatile object = nullptr;
    CMenu* volatile menu = nullptr;
    CImageList* volatile images = nullptr;
    EXPECT_EQ(nullptr, window->GetSafeHwnd());
    EXPECT_EQ(nullptr, dc->GetSafeHdc());
    EXPECT_EQ(nullptr, object->GetSafeHandle());
    EXPECT_EQ(nullptr, menu->GetSafeHmenu());
    EXPECT_EQ(nullptr, images->GetSafeHandle());
}

TEST(HandleMaps, TemporaryGdiObjectsAreOfTheHandlesKind)
{
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(BLACK_PEN))->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(WHITE_BRUSH))->IsKindOf(RUNTIME_CLASS(CBrush)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(SYSTEM_FONT))->IsKindOf(RUNTIME_CLASS(CFont)));
}

TEST(HandleMaps, PlacesInTheZOrderAreNoWindows)
{
    EXPECT_EQ(HWND_TOPMOST, CWnd::wndTopMost.m_hWnd);
    EXPECT_EQ(HWND_NOTOPMOST, CWnd::wndNoTopMost.m_hWnd);
    EXPECT_EQ(HWND_BOTTOM, CWnd::wndBottom.m_hWnd);
    EXPECT_EQ(HWND_TOP, CWnd::wndTop.m_hWnd);
}
