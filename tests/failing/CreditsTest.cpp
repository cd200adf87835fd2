// The credits window on a failing platform.
#include "Suites.h"

#include <string>

namespace
{

using namespace failingtest;

class OpenCredits : public CMatrixCredits
{
public:
    using CMatrixCredits::m_arrLinePos;
    using CMatrixCredits::m_arrLines;
    using CMatrixCredits::m_arrPhase;
    using CMatrixCredits::m_nCurLine;
    using CMatrixCredits::m_nFirstLine;
    using CMatrixCredits::m_nLastLine;
    using CMatrixCredits::m_strCurText;
};

enum Tick : UINT_PTR
{
    PageTick,
    TextTick,
    CursorTick,
    RainTick,
    SpinTick
};

// A window with two pages of lines, of which none has begun.
class CreditsGround : public Ground
{
public:
    CreditsGround()
    {
        parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE, CRect(20, 20, 420, 320),
                        nullptr, 0);
        AddLines(credits);
        isCreated = Create(credits);
        // Only ticks that the test sends are to come.
        for (const Tick tick : {PageTick, RainTick})
            credits.KillTimer(tick);
    }
    ~CreditsGround() override
    {
        if (credits.GetSafeHwnd() != nullptr)
            credits.DestroyWindow();
        parent.DestroyWindow();
    }
    static void AddLines(CMatrixCredits& window)
    {
        for (const wchar_t* line : {L"The first line of a page", L"The second",
                                    L"\x01"
                                    L"3",
                                    L"Another page"})
            window.AddTextLine(line);
    }
    bool Create(CMatrixCredits& window)
    {
        return window.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &parent, 1) != FALSE;
    }
    void Send(Tick tick, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            credits.SendMessage(WM_TIMER, tick);
    }

    // Lines and page; the rain and the random characters are chance.
    std::string State() override
    {
        return std::string("window ") + Shown(credits.GetSafeHwnd() != nullptr) + ", lines " +
               std::to_string(credits.m_arrLines.GetSize()) + ", page from " +
               std::to_string(credits.m_nFirstLine) + " to " + std::to_string(credits.m_nLastLine) + ", at " +
               std::to_string(credits.m_nCurLine) + ", placed " +
               std::to_string(credits.m_arrLinePos.GetSize()) + ", decoded " +
               Shown(credits.m_strCurText.GetLength());
    }

    CWnd parent;
    OpenCredits credits;
    bool isCreated = false;
};

std::vector<Operation> Members()
{
    return OperationsOn<CreditsGround>({
        {"Construct",
         [](CreditsGround&) {
             const CMatrixCredits fresh;
             return Shown(fresh.GetSafeHwnd() != nullptr);
         }},
        {"CreateAndTick",
         [](CreditsGround& g) {
             OpenCredits fresh;
             g.AddLines(fresh);
             struct End
             {
                 CMatrixCredits& window;
                 ~End()
                 {
                     if (window.GetSafeHwnd() != nullptr)
                         window.DestroyWindow();
                 }
             } end{fresh};
             std::string result;
             try {
                 result = Shown(g.Create(fresh));
             } catch (...) {
                 // There is no window then, and the object can be used again.
                 EXPECT_EQ(fresh.GetSafeHwnd(), nullptr);
                 EXPECT_TRUE(g.Create(fresh));
                 throw;
             }
             if (fresh.GetSafeHwnd() != nullptr) {
                 for (const Tick tick : {RainTick, PageTick, TextTick, CursorTick, SpinTick}) {
                     // Without a page there are no ticks of text and cursor.
                     if (fresh.m_nCurLine >= 0 || tick == RainTick || tick == PageTick)
                         fresh.SendMessage(WM_TIMER, tick);
                 }
             }
             return result;
         },
         Memory | NoGdiResource,
         {"false"},
         nullptr,
         Reported},
        {"AddTextLine",
         [](CreditsGround& g) {
             g.credits.AddTextLine(L"one more line");
             return "";
         },
         Memory,
         {},
         nullptr,
         Once},
        {"SetOptions",
         [](CreditsGround& g) {
             g.credits.AllowEuropeanChars(FALSE);
             g.credits.SetCursor(TRUE, FALSE);
             g.credits.SetMaxPhaseCount(3);
             return "";
         }},
        {"BeginPage",
         [](CreditsGround& g) {
             g.Send(PageTick);
             return "";
         },
         NoException,
         {},
         nullptr,
         Reported},
        {"Rain",
         [](CreditsGround& g) {
             g.Send(RainTick, 10);
             return "";
         },
         NoException,
         {},
         nullptr,
         Once | Reported},
        {"Spin",
         [](CreditsGround& g) {
             g.Send(SpinTick, 10);
             return "";
         },
         NoException,
         {},
         nullptr,
         Once | Reported},
        {"End",
         [](CreditsGround& g) {
             g.Send(PageTick);
             g.credits.DestroyWindow();
             return "";
         },
         NoException,
         {},
         [](const std::string&, const std::string&, const Outcome& failed) {
             return failed.state.starts_with("window false");
         },
         Once | Reported},
        {"Paint",
         [](CreditsGround& g) {
             g.credits.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
             return "";
         }},
    });
}

FAILING_SUITE(FailingCredits, Members());

// A page decodes to its end whatever fails on the way.
std::vector<Operation> WholePages()
{
    return OperationsOn<CreditsGround>({
        {"DecodePage",
         [](CreditsGround& g) {
             g.credits.SetMaxPhaseCount(1);
             g.Send(PageTick);
             // What failed at the beginning of the page is made good by the next tick of its timer.
             if (g.credits.m_nCurLine < 0)
                 g.Send(PageTick);
             int ticks = 0;
             while (ticks++ < 400 && !(g.credits.m_nCurLine == g.credits.m_nLastLine &&
                                       g.credits.m_strCurText == g.credits.m_arrLines[g.credits.m_nCurLine]))
             {
                 g.Send(TextTick);
                 g.Send(CursorTick);
                 if (ticks % 8 == 0)
                     g.Send(RainTick);
             }
             EXPECT_LT(ticks, 400);
             return "";
         },
         NoException,
         {},
         [](const std::string&, const std::string& done, const Outcome& failed) {
             return failed.state == done;
         },
         Once | Reported},
    });
}

FAILING_SUITE(FailingPages, WholePages());

} // namespace
