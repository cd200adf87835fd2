#include "CreditsWorld.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "CreditsWorldModel.h"
#include "WorldStage.h"
#include "kit/MessageBoxWatch.h"
#include "kit/Pump.h"

namespace randomplay
{
namespace
{

enum Act : unsigned
{
    Make,
    MakeNone,
    EndWindow,
    EndObject,
    EndParent,
    Move,
    AddLine,
    PutCursor,
    PutRange,
    PutChanges,
    Tick,
    TickOfRunning,
    TickMany,
    TickEnding,
    TickOther,
    Paint,
    OtherMessage,
    PumpAll,
};

constexpr Operation Operations[] = {
    {"Make", 8},  {"MakeNone", 1},       {"EndWindow", 1}, {"EndObject", 1},  {"EndParent", 1},
    {"Move", 4},  {"AddLine", 6},        {"PutCursor", 3}, {"PutRange", 2},   {"PutChanges", 3},
    {"Tick", 12}, {"TickOfRunning", 30}, {"TickMany", 10}, {"TickEnding", 2}, {"TickOther", 2},
    {"Paint", 6}, {"OtherMessage", 4},   {"PumpAll", 2},
};

constexpr size_t MostLines = 12;

class CreditsWorld : public World
{
public:
    CreditsWorld() : m_credits(std::make_unique<OpenCredits>()), m_model(std::make_unique<CreditsRules>()) {}
    ~CreditsWorld() override { m_credits.reset(); }

    std::string Play(const Step& step) override
    {
        m_failure.clear();
        const auto& n = step.numbers;
        switch (step.operation) {
        case Make:
            MakeWindow(n[0], n[1], n[2]);
            break;
        case MakeNone:
            MakeWithoutWindow();
            break;
        case EndWindow:
            EndTheWindow();
            break;
        case EndObject:
            EndTheObject();
            break;
        case EndParent:
            EndBy([this] { m_stage.ReplaceParent(); });
            break;
        case Move:
            m_stage.Do(static_cast<Mischief>(1 + n[0] % 4), n[1]);
            break;
        case AddLine:
            AddSomeLine(n[0], n[1]);
            break;
        case PutCursor:
            m_model->hasCursor = n[0] % 2 != 0;
            m_model->isBlock = n[1] % 2 != 0;
            m_credits->SetCursor(m_model->hasCursor, m_model->isBlock);
            break;
        case PutRange:
            m_model->lastLetter = n[0] % 2 != 0 ? 255 : 127;
            m_credits->AllowEuropeanChars(n[0] % 2 != 0);
            break;
        case PutChanges: {
            constexpr int counts[] = {0, 20, 1, 3, -1};
            m_model->changes = counts[n[0] % std::size(counts)];
            m_credits->SetMaxPhaseCount(m_model->changes);
            break;
        }
        case PumpAll:
            Note(testkit::PumpPending() ? "" : "messages: there is no end of them");
            break;
        default:
            if (m_stage.IsThere())
                PlayOnWindow(step.operation, n);
        }
        if (m_failure.empty())
            Note(Check());
        return m_failure;
    }

    std::string End() override
    {
        m_failure.clear();
        EndTheObject();
        return m_failure;
    }

private:
    using Numbers = std::array<uint32_t, 4>;

    void PlayOnWindow(unsigned act, const Numbers& n)
    {
        switch (act) {
        case Tick:
            TickOnce(n[0] % 5);
            break;
        case TickOfRunning:
            TickSomeRunning(n[0]);
            break;
        case TickMany:
            for (uint32_t i = 0; i < 30 && m_failure.empty(); ++i)
                TickSomeRunning(n[i % 4] >> (i / 4));
            break;
        case TickEnding:
            TickWithEnd(n[0], n[1], n[2]);
            break;
        case TickOther:
            TickOnce(5 + n[0] % 95);
            break;
        case Paint:
            PaintNow();
            break;
        case OtherMessage: {
            const CreditsState before(*m_credits);
            constexpr UINT messages[] = {WM_ERASEBKGND, WM_PRINTCLIENT, WM_MOUSEMOVE,
                                         WM_SETFOCUS,   WM_CHAR,        WM_SYSCOLORCHANGE};
            const UINT message = messages[n[0] % std::size(messages)];
            CClientDC dc(m_credits.get());
            const bool drawsInto = message == WM_ERASEBKGND || message == WM_PRINTCLIENT;
            m_credits->SendMessage(message, drawsInto ? reinterpret_cast<WPARAM>(dc.m_hDC) : 0);
            Note(m_model->CheckUntouched(before, CreditsState(*m_credits)));
            break;
        }
        }
    }

    // The window

    void MakeWindow(uint32_t style, uint32_t size, uint32_t place)
    {
        if (m_stage.IsThere())
            return;
        const bool isVisible = style % 4 != 3;
        m_stage.Choose(place, size % 1000, size / 1000);
        const CreditsHandles before = CreditsHandles(*m_credits);
        m_timers.Clear();
        const BOOL isMade =
            m_credits->Create(WS_CHILD | (isVisible ? WS_VISIBLE : 0), m_stage.Rect(), &m_stage.Parent(), 9);
        Note(isMade ? "" : "create: it failed");
        m_stage.Began(m_credits->m_hWnd, isVisible);
        CRect client;
        m_credits->GetClientRect(&client);
        m_model->Begin(client.Size());
        Note(before.CheckGivenBack(CreditsHandles(*m_credits)));
        Note(m_timers.Window() == m_credits->m_hWnd ? "" : "timers: of another window");
        Note(m_model->CheckGrid(*m_credits));
    }
    // A child window of nobody, which is none.
    void MakeWithoutWindow()
    {
        if (m_stage.IsThere())
            return;
        const CreditsHandles before = CreditsHandles(*m_credits);
        m_timers.Clear();
        Note(m_credits->Create(WS_CHILD, CRect(0, 0, 50, 50), nullptr, 9) ? "create: without a parent" : "");
        m_model->Begin(CSize(0, 0));
        m_model->timers.clear();
        Note(before.CheckGivenBack(CreditsHandles(*m_credits)));
        Note(m_timers.Running().empty() ? "" : "timers: without a window");
        Note(m_model->CheckGrid(*m_credits));
    }
    template <class Call>
    void EndBy(Call call)
    {
        call();
        m_stage.Ended();
        m_timers.Clear();
        m_model->timers.clear();
    }
    void EndTheWindow()
    {
        EndBy([this] { m_credits->DestroyWindow(); });
    }
    void EndTheObject()
    {
        const CreditsHandles before = CreditsHandles(*m_credits);
        EndBy([this] { m_credits.reset(); });
        Note(before.CheckGivenBack({}));
        m_credits = std::make_unique<OpenCredits>();
        m_model = std::make_unique<CreditsRules>();
    }

    void AddSomeLine(uint32_t kind, uint32_t detail)
    {
        if (m_model->lines.size() == MostLines)
            return;
        const std::wstring lines[] = {L"Alpha",
                                      L"Beta, and a bit more",
                                      L"",
                                      L"\1" + std::to_wstring(detail % 4),
                                      L"\1  7 seconds",
                                      L"\u263A\u00E9",
                                      std::wstring(60, L'm'),
                                      L"a\1b"};
        const std::wstring& line = lines[kind % std::size(lines)];
        m_credits->AddTextLine(line.c_str());
        m_model->AddLine(line);
    }

    // Ticks

    void TickSomeRunning(uint32_t number)
    {
        if (m_model->timers.empty())
            return;
        auto timer = m_model->timers.begin();
        std::advance(timer, number % m_model->timers.size());
        TickOnce(timer->first);
    }

    void TickOnce(UINT_PTR id)
    {
        if (!m_stage.IsThere())
            return;
        const CreditsState before(*m_credits);
        const bool mayRaise = m_model->Raises(id, before);
        m_credits->ValidateRect(nullptr);
        bool hasRaised = false;
        try {
            if (mayRaise)
                m_credits->OnTimer(id); // MFC's procedure would show the exception in a box
            else
                m_credits->SendMessage(WM_TIMER, id);
        } catch (CInvalidArgException* exception) {
            exception->Delete();
            hasRaised = true;
        }
        if (mayRaise != hasRaised) {
            Note("raised: nothing");
            return;
        }
        if (!m_boxes.Boxes().empty())
            return;
        const CreditsState after(*m_credits);
        if (hasRaised) {
            m_model->TakeOver(after, m_timers.Running());
            return;
        }
        Note(m_model->CheckTick(id, before, after, [this](const std::wstring& line) {
            CRect client;
            m_credits->GetClientRect(&client);
            const CSize size = m_credits->m_dcComposite.GetTextExtent(line.c_str());
            return (client.Width() - size.cx) / 2 / m_credits->m_nCellWidth;
        }));
        const bool isDrawn = 1 <= id && id <= 4;
        if (isDrawn && IsSeen() && !m_credits->GetUpdateRect(nullptr))
            Note("update: nothing to paint after a tick");
    }

    // A tick in which the window ends, before the class handles it or when it has.
    void TickWithEnd(uint32_t number, uint32_t when, uint32_t again)
    {
        const UINT_PTR id = number % 5;
        if (m_model->Raises(id, CreditsState(*m_credits)))
            return;
        const bool isBefore = when % 2 == 0;
        m_credits->aroundTimer = [&](bool isNow) {
            if (isNow != isBefore)
                return;
            EndTheWindow();
            // A new window has no page yet that a tick could go on with.
            if (again % 2 != 0 && (!isBefore || id == 3))
                MakeWindow(again / 2, again / 8, again);
        };
        const HWND window = m_stage.Window();
        ::SendMessageW(window, WM_TIMER, id, 0);
        m_credits->aroundTimer = nullptr;
        if (!m_stage.IsThere())
            Note(m_timers.Running().empty() ? "" : "timers: of no window");
        m_model->TakeOver(CreditsState(*m_credits), m_timers.Running());
    }

    bool IsSeen() const
    {
        CRect client;
        GetClientRect(m_stage.Window(), &client);
        return IsWindowVisible(m_stage.Window()) && !client.IsRectEmpty() && m_model->HasArea();
    }

    void PaintNow()
    {
        const CreditsState before(*m_credits);
        m_credits->Invalidate(FALSE);
        m_credits->UpdateWindow();
        if (IsSeen() && m_credits->GetUpdateRect(nullptr))
            Note("update: still to paint after painting");
        Note(m_model->CheckUntouched(before, CreditsState(*m_credits)));
    }

    // Rules

    std::string Check() const
    {
        if (std::string failure = m_stage.Check(); !failure.empty())
            return failure;
        if (!m_boxes.Boxes().empty())
            return "raised: without a reason";
        if (m_credits->m_hWnd != m_stage.Window())
            return "window: the object has another";
        if (m_timers.Running() != m_model->timers)
            return "timers: " + std::to_string(m_timers.Running().size()) + " run";
        if (std::string failure = CreditsHandles(*m_credits).CheckThere(m_model->HasBegun());
            !failure.empty())
            return failure;
        return m_model->Check(CreditsState(*m_credits));
    }
    void Note(const std::string& failure)
    {
        if (m_failure.empty())
            m_failure = failure;
    }

    testkit::MessageBoxWatch m_boxes; // MFC shows what a tick raises
    WorldStage m_stage;
    CreditsTimers m_timers;
    std::unique_ptr<OpenCredits> m_credits;
    std::unique_ptr<CreditsRules> m_model;
    std::string m_failure;
};

} // namespace

Plan CreditsPlan(unsigned long long steps)
{
    return {"credits", Operations, [] { return std::make_unique<CreditsWorld>(); }, steps};
}

} // namespace randomplay
