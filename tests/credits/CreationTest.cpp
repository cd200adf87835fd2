// What happens from Create to the first tick, in which order, and at the object's end.
#include "CreditsTest.h"

#include "CallWatch.h"

// A window class of one more virtual member than CWnd has. Known by name everywhere, so that the compiler
// does not take it for granted that nobody implements it.
class OneMoreThanAWindow : public CWnd
{
public:
    virtual BOOL More(DWORD style, const RECT& rect, CWnd* parent, UINT id) = 0;
};

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class CreditsCreation : public CreditsTest
{
protected:
    static PlatformCall Selected(const CDC& dc, HGDIOBJ object)
    {
        return {Call::SelectObject, dc.m_hDC, object};
    }
};

// Notes what it is created with.
class NotingHeir : public CMatrixCredits
{
public:
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) override
    {
        m_style = style;
        m_rect = rect;
        m_parent = parent;
        m_id = id;
        return 42;
    }

    DWORD m_style = 0;
    CRect m_rect;
    CWnd* m_parent = nullptr;
    UINT m_id = 0;
};

TEST_F(CreditsCreation, AnHeirReplacesCreate)
{
    NotingHeir heir;
    CMatrixCredits& base = heir;
    EXPECT_EQ(base.Create(WS_CHILD, CRect(1, 2, 3, 4), &m_parent, 9), 42);
    EXPECT_EQ(heir.m_style, static_cast<DWORD>(WS_CHILD));
    EXPECT_EQ(heir.m_rect, CRect(1, 2, 3, 4));
    EXPECT_EQ(heir.m_parent, &m_parent);
    EXPECT_EQ(heir.m_id, 9u);
    EXPECT_THAT(m_timers.Calls(), IsEmpty());
}

TEST_F(CreditsCreation, CreateIsTheFirstVirtualMemberBehindThoseOfTheWindow)
{
    NotingHeir heir;
    CWnd* volatile window = &heir;
    auto* const slots = reinterpret_cast<OneMoreThanAWindow*>(static_cast<CWnd*>(window));
    EXPECT_EQ(slots->More(WS_POPUP, CRect(5, 6, 7, 8), nullptr, 3), 42);
    EXPECT_EQ(heir.m_style, static_cast<DWORD>(WS_POPUP));
    EXPECT_EQ(heir.m_rect, CRect(5, 6, 7, 8));
    EXPECT_EQ(heir.m_id, 3u);
}

TEST_F(CreditsCreation, SurfacesComeOneAfterTheOtherAndTheWholeWindowIsInvalidatedAtTheEnd)
{
    CallWatch watch;
    Make({});
    std::vector<PlatformCall> calls = watch.Calls();
    std::erase_if(calls, [](const PlatformCall& call) { return call.call == Call::LookUpOfAClass; });
    ASSERT_FALSE(calls.empty());
    const void* const client = calls.front().target;
    const CDC& composite = m_credits.m_dcComposite;
    const CDC& background = m_credits.m_dcBackground;
    const HGDIOBJ compositeBitmap = m_credits.m_bmpComposite, backgroundBitmap = m_credits.m_bmpBackground;
    const HGDIOBJ font = m_credits.m_font;
    const HWND window = m_credits;
    EXPECT_THAT(calls, ElementsAre(PlatformCall{Call::CreateDc, client, composite.m_hDC},
                                   PlatformCall{Call::CreateBitmap, client, compositeBitmap},
                                   Selected(composite, compositeBitmap), Selected(composite, font),
                                   PlatformCall{Call::ReadMetrics, composite.m_hDC},
                                   PlatformCall{Call::CreateDc, client, background.m_hDC},
                                   PlatformCall{Call::CreateBitmap, client, backgroundBitmap},
                                   Selected(background, backgroundBitmap), Selected(background, font),
                                   PlatformCall{Call::Fill, background.m_hDC},
                                   PlatformCall{Call::StartTimer, window, nullptr, 0},
                                   PlatformCall{Call::StartTimer, window, nullptr, 3},
                                   PlatformCall{Call::Invalidate, window, nullptr, FALSE},
                                   PlatformCall{Call::Release, window, client}));
}

TEST_F(CreditsCreation, TheRainBeginsBlackWhateverANewBitmapHolds)
{
    CallWatch watch;
    watch.PaintBitmaps(RGB(200, 0, 0));
    Make({}, 12, 8);
    const CSize size = Cells(12, 8);
    const testkit::Picture composite = testkit::Picture::OfDc(m_credits.m_dcComposite, CRect({}, size));
    ASSERT_EQ(composite.Count(RGB(200, 0, 0)), size.cx * size.cy);
    const testkit::Picture background = testkit::Picture::OfDc(m_credits.m_dcBackground, CRect({}, size));
    EXPECT_EQ(background.Count(RGB(0, 0, 0)), size.cx * size.cy);
}

TEST_F(CreditsCreation, WithoutBitmapsTheWindowStaysInvalidAndTicksGoOn)
{
    {
        CallWatch watch;
        watch.LetBitmapsFail();
        Make({.lines = {L"Alpha"}});
        EXPECT_EQ(watch.Calls(Call::CreateBitmap).size(), 2u);
    }
    EXPECT_NE(m_credits.m_hWnd, nullptr);
    EXPECT_EQ(m_credits.m_pOldBmpComposite, nullptr);
    EXPECT_EQ(m_timers.Calls().size(), 2u);
    for (const UINT_PTR id : {3, 0, 1, 2, 4})
        Tick(id);
    m_credits.SendMessage(WM_PAINT);
    EXPECT_TRUE(m_credits.GetUpdateRect(nullptr));
}

TEST_F(CreditsCreation, AllWindowsAreOfAClassThatIsLookedForOnce)
{
    Make({});
    OpenCredits second;
    CallWatch watch;
    ASSERT_TRUE(Create(second, Cells(10, 5)));
    EXPECT_THAT(watch.Calls(Call::LookUpOfAClass), IsEmpty());
    EXPECT_EQ(GetClassLongPtrW(second, GCW_ATOM), GetClassLongPtrW(m_credits, GCW_ATOM));
    second.DestroyWindow();
}

TEST_F(CreditsCreation, TheEndSelectsBackBitmapsAndFontsOfTheCompositeFirst)
{
    auto credits = std::make_unique<OpenCredits>();
    HGDIOBJ bitmap = nullptr, font = nullptr;
    {
        // What a new memory context begins with is what the surfaces had selected before.
        CClientDC client(&m_parent);
        CDC fresh;
        fresh.CreateCompatibleDC(&client);
        bitmap = GetCurrentObject(fresh, OBJ_BITMAP);
        font = GetCurrentObject(fresh, OBJ_FONT);
    }
    ASSERT_TRUE(Create(*credits, Cells(10, 10)));
    const HDC composite = credits->m_dcComposite, background = credits->m_dcBackground;
    CallWatch watch;
    credits.reset();
    EXPECT_THAT(watch.Calls(Call::SelectObject),
                ElementsAre(PlatformCall{Call::SelectObject, composite, bitmap},
                            PlatformCall{Call::SelectObject, composite, font},
                            PlatformCall{Call::SelectObject, background, bitmap},
                            PlatformCall{Call::SelectObject, background, font}));
}

} // namespace
