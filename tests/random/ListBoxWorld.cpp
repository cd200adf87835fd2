#include "ListBoxWorld.h"

#include <VelmUtil22.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

#include "WorldStage.h"
#include "kit/Pump.h"
#include "kit/Text.h"

namespace randomplay
{
namespace
{

enum Act : unsigned
{
    Make,
    EndWindow,
    EndObject,
    EndParent,
    Move,
    Add,
    Insert,
    Delete,
    Reset,
    PutData,
    Select,
    Scroll,
    SetHeight,
    FindPoint,
    HitTool,
    AskTip,
    AskTipDirectly,
    Click,
    Key,
    Type,
    PumpAll,
};

constexpr Operation Operations[] = {
    {"Make", 6},    {"EndWindow", 1},      {"EndObject", 1}, {"EndParent", 1}, {"Move", 4},
    {"Add", 14},    {"Insert", 8},         {"Delete", 8},    {"Reset", 1},     {"PutData", 4},
    {"Select", 4},  {"Scroll", 6},         {"SetHeight", 2}, {"FindPoint", 8}, {"HitTool", 8},
    {"AskTip", 8},  {"AskTipDirectly", 8}, {"Click", 6},     {"Key", 4},       {"Type", 2},
    {"PumpAll", 2},
};

constexpr UINT NoItem = 0xFFFFFFFF;
constexpr size_t MostItems = 40;

using ListBoxUnderTest = WithTipMischief<CXListBox>;

struct Item
{
    std::wstring text;
    DWORD_PTR data;
};

class ListBoxWorld : public World
{
public:
    ListBoxWorld() : m_list(std::make_unique<ListBoxUnderTest>()) {}
    ~ListBoxWorld() override { m_list.reset(); }

    std::string Play(const Step& step) override
    {
        m_failure.clear();
        m_mischief = Mischief::None;
        const auto& n = step.numbers;
        switch (step.operation) {
        case Make:
            MakeWindow(n[0], n[1], n[2], n[3]);
            break;
        case EndWindow:
            Destroy();
            break;
        case EndObject:
            m_list.reset();
            Forget();
            m_list = std::make_unique<ListBoxUnderTest>();
            break;
        case EndParent:
            m_stage.ReplaceParent();
            Forget();
            break;
        case Move:
            m_stage.Do(static_cast<Mischief>(1 + n[0] % 4), n[1]);
            break;
        case PumpAll:
            Expect(testkit::PumpPending(), "messages", "there is no end of them");
            break;
        default:
            if (m_stage.IsThere())
                PlayOnWindow(step.operation, n);
            else if (step.operation == FindPoint || step.operation == HitTool)
                PlayWithoutWindow(n);
        }
        Disarm();
        if (m_failure.empty())
            m_failure = Check();
        return m_failure;
    }

    std::string End() override
    {
        m_list.reset();
        return {};
    }

private:
    void PlayOnWindow(unsigned act, const std::array<uint32_t, 4>& n)
    {
        switch (act) {
        case Add:
            AddText(SomeText(n[0]));
            break;
        case Insert:
            InsertText(n[0], SomeText(n[1]));
            break;
        case Delete:
            DeleteItem(n[0]);
            break;
        case Reset:
            m_list->ResetContent();
            m_items.clear();
            break;
        case PutData:
            if (!m_items.empty()) {
                Item& item = m_items[n[0] % m_items.size()];
                item.data = n[1];
                m_list->SetItemData(static_cast<int>(n[0] % m_items.size()), n[1]);
            }
            break;
        case Select:
            Arm(n[1], n[2]);
            if (m_isMultiple)
                m_list->SetSel(IndexOrOff(n[0]), n[3] % 2 == 0);
            else
                m_list->SetCurSel(IndexOrOff(n[0]));
            break;
        case Scroll:
            m_list->SetTopIndex(IndexOrOff(n[0]));
            break;
        case SetHeight:
            m_height = 5 + static_cast<int>(n[0] % 30);
            m_list->SetItemHeight(0, static_cast<UINT>(m_height));
            break;
        case FindPoint:
            CheckPoint(m_stage.PointIn(n[0], n[1] % 3 == 0 ? n[2] % 2000 : n[2]));
            break;
        case HitTool:
            CheckTool(m_stage.PointIn(n[0], n[1]));
            break;
        case AskTip:
            CheckTip(m_stage.PointIn(n[0], n[1]), n[2], n[3]);
            break;
        case AskTipDirectly:
            CheckTipOf(n[0], n[1], n[2], n[3]);
            break;
        case Click:
            PressAt(m_stage.PointIn(n[0], n[1]), n[2], n[3]);
            break;
        case Key: {
            constexpr WPARAM keys[] = {VK_DOWN, VK_UP,    VK_HOME,  VK_END,
                                       VK_NEXT, VK_PRIOR, VK_SPACE, VK_RIGHT};
            if (m_items.empty())
                break; // not every platform's list box takes a key then
            Arm(n[1], n[2], Mischief::Reparent);
            m_list->SendMessage(WM_KEYDOWN, keys[n[0] % std::size(keys)], 1);
            break;
        }
        case Type:
            Arm(n[1], n[2], Mischief::Reparent);
            m_list->SendMessage(WM_CHAR, L"apz1 "[n[0] % 5], 1);
            break;
        }
    }

    // An object without a window has no items and no tools.
    void PlayWithoutWindow(const std::array<uint32_t, 4>& n)
    {
        BOOL isOutside = FALSE;
        const CPoint point(static_cast<int>(n[0] % 100), static_cast<int>(n[1] % 100));
        Expect(m_list->ItemFromPoint2(point, isOutside) == NoItem && isOutside, "point",
               "an item without a window");
    }

    void MakeWindow(uint32_t style, uint32_t size, uint32_t how, uint32_t place)
    {
        if (m_stage.IsThere())
            return;
        constexpr DWORD kinds[] = {0, LBS_SORT, LBS_MULTIPLESEL, LBS_EXTENDEDSEL};
        const DWORD kind = kinds[style % std::size(kinds)];
        m_isSorted = kind == LBS_SORT;
        m_isMultiple = kind == LBS_MULTIPLESEL || kind == LBS_EXTENDEDSEL;
        const bool isVisible = how % 4 != 3;
        const DWORD all = WS_CHILD | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | kind |
                          (isVisible ? WS_VISIBLE : 0) | (style % 8 >= 4 ? WS_BORDER : 0);
        m_stage.Choose(place, size % 1000, size / 1000);
        if (how % 2 == 0)
            Expect(m_list->Create(all, m_stage.Rect(), &m_stage.Parent(), 7), "create", "it failed");
        else
            SubclassFilled(all, how / 2 % 4);
        m_stage.Began(m_list->m_hWnd, isVisible);
        m_height = static_cast<int>(::SendMessageW(*m_list, LB_GETITEMHEIGHT, 0, 0));
    }

    // A plain list box of the platform that has items already.
    void SubclassFilled(DWORD style, uint32_t count)
    {
        const CRect& rect = m_stage.Rect();
        const HWND window =
            CreateWindowExW(0, L"ListBox", L"", style, rect.left, rect.top, rect.Width(), rect.Height(),
                            m_stage.Parent(), reinterpret_cast<HMENU>(7), nullptr, nullptr);
        for (uint32_t i = 0; i < count; ++i) {
            const std::wstring text(i + 1, L'b');
            ::SendMessageW(window, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
            m_items.push_back({text, 0});
        }
        Expect(m_list->SubclassWindow(window), "subclass", "it failed");
    }

    void Destroy()
    {
        if (m_list->m_hWnd != nullptr)
            m_list->DestroyWindow();
        Forget();
    }
    void Forget()
    {
        m_stage.Ended();
        m_items.clear();
    }

    // Items

    void AddText(const std::wstring& text)
    {
        if (m_items.size() == MostItems)
            return;
        const int at = m_list->AddString(text.c_str());
        const int count = static_cast<int>(m_items.size());
        const bool isRight = m_isSorted ? 0 <= at && at <= count : at == count;
        if (Expect(isRight, "add", "it came to " + std::to_string(at)))
            m_items.insert(m_items.begin() + at, {text, 0});
    }
    void InsertText(uint32_t place, const std::wstring& text)
    {
        if (m_items.size() == MostItems)
            return;
        const size_t at = place % (m_items.size() + 1);
        const int index = m_list->InsertString(static_cast<int>(at), text.c_str());
        if (Expect(index == static_cast<int>(at), "insert", "it came to " + std::to_string(index)))
            m_items.insert(m_items.begin() + index, {text, 0});
    }
    void DeleteItem(uint32_t place)
    {
        const int count = static_cast<int>(m_items.size());
        const int index = static_cast<int>(place % (m_items.size() + 1));
        const int left = m_list->DeleteString(static_cast<UINT>(index));
        if (index == count) {
            Expect(left == LB_ERR, "delete", "an item that is not there");
            return;
        }
        m_items.erase(m_items.begin() + index);
        Expect(left == count - 1, "delete", std::to_string(left) + " are left");
    }
    int IndexOrOff(uint32_t number) const { return static_cast<int>(number % (m_items.size() + 2)) - 1; }

    // Places

    int Top() const { return static_cast<int>(::SendMessageW(m_stage.Window(), LB_GETTOPINDEX, 0, 0)); }
    CRect Client() const
    {
        CRect client;
        GetClientRect(m_stage.Window(), &client);
        return client;
    }
    // The item whose row that is, counted from the one at the top.
    UINT RowAt(int y) const
    {
        const int item = Top() + y / m_height;
        return y >= 0 && item < static_cast<int>(m_items.size()) ? static_cast<UINT>(item) : NoItem;
    }
    // The item nearest to a point, for list boxes that have any.
    UINT NearestTo(CPoint point) const
    {
        const int lowest = std::max<int>(Client().bottom - 1, 0);
        const UINT item = RowAt(std::clamp<int>(point.y, 0, lowest));
        return item == NoItem ? static_cast<UINT>(m_items.size() - 1) : item;
    }

    void CheckPoint(CPoint point)
    {
        const bool isInWidth = 0 <= point.x && point.x < Client().right;
        const UINT expected = isInWidth ? RowAt(point.y) : NoItem;
        BOOL isOutside = point.x % 2;
        const UINT item = m_list->ItemFromPoint2(point, isOutside);
        Expect(item == expected && isOutside == (expected == NoItem), "point",
               "item " + std::to_string(item) + ", expected " + std::to_string(expected));
    }

    void CheckTool(CPoint point)
    {
        TOOLINFO tool;
        memset(&tool, 0x5A, sizeof tool);
        TOOLINFO expected = tool;
        INT_PTR hit = -1;
        if (!m_items.empty()) {
            hit = static_cast<INT_PTR>(NearestTo(point));
            expected.hwnd = m_stage.Window();
            expected.uId = static_cast<UINT_PTR>(hit);
            expected.lpszText = LPSTR_TEXTCALLBACK;
            const int row = static_cast<int>(hit) - Top();
            expected.rect = CRect(0, row * m_height, Client().right, (row + 1) * m_height);
        }
        const INT_PTR found = m_list->OnToolHitTest(point, &tool);
        Expect(found == hit, "tool", std::to_string(found) + ", expected " + std::to_string(hit));
        Expect(memcmp(&tool, &expected, sizeof tool) == 0, "tool", "its description");
        Expect(m_list->OnToolHitTest(point, nullptr) == hit, "tool", "without a description");
    }

    // Tips

    // What happens inside the next request for a tip or message to the parent.
    void Arm(uint32_t number, uint32_t detail, Mischief last = Mischief::Destroy)
    {
        m_mischief = MischiefOf(number, last);
        m_detail = detail;
        m_isMischiefBefore = detail % 2 == 0;
        m_stage.OnParentMessage([this](const NMHDR*) { Strike(); });
        m_list->onTipRequest = [this](bool isBefore) {
            if (isBefore == m_isMischiefBefore)
                Strike();
        };
    }
    void Disarm()
    {
        m_mischief = Mischief::None;
        m_list->onTipRequest = nullptr;
        m_stage.OnParentMessage(nullptr);
    }
    void Strike()
    {
        const Mischief mischief = std::exchange(m_mischief, Mischief::None);
        if (mischief == Mischief::Destroy)
            Destroy();
        else
            m_stage.Do(mischief, m_detail);
    }

    void CheckTip(CPoint point, uint32_t mischief, uint32_t detail)
    {
        const bool hasTool = !m_items.empty();
        const UINT tool = hasTool ? NearestTo(point) : 0;
        std::wstring expected = hasTool ? TipOf(m_items[tool].text) : L"";
        if (hasTool)
            Arm(mischief, detail);
        // A list box that is gone before it is asked has no text.
        if (m_mischief == Mischief::Destroy && m_isMischiefBefore)
            expected.clear();
        const std::optional<std::wstring> tip = AskForTip(*m_list, point, tool);
        if (Expect(tip.has_value() == hasTool, "tip", hasTool ? "there is none" : "without an item") &&
            hasTool)
            Expect(*tip == expected, "tip",
                   testkit::Quoted(*tip) + ", expected " + testkit::Quoted(expected));
    }

    // The request as a tip control sends it, for any number.
    void CheckTipOf(uint32_t number, uint32_t kind, uint32_t mischief, uint32_t detail)
    {
        const size_t item = number % (m_items.size() + 2);
        std::wstring text = item < m_items.size() ? m_items[item].text : L"";
        Arm(mischief, detail);
        if (m_mischief == Mischief::Destroy && m_isMischiefBefore)
            text.clear();
        const UINT_PTR tool = item <= m_items.size() ? item : ~UINT_PTR(0);
        const HWND window = m_stage.Window();
        LRESULT result = 0;
        if (kind % 2 == 0) {
            TipQuestion<TOOLTIPTEXTW> question(tool, TTN_NEEDTEXTW, kind % 3 == 0 ? TTF_IDISHWND : 0, window);
            result = ::SendMessageW(window, WM_NOTIFY, kind % 70000, reinterpret_cast<LPARAM>(&question));
            Expect(question.info.szText == TipOf(text), "wide tip", testkit::Quoted(text));
        } else {
            TipQuestion<TOOLTIPTEXTA> question(tool, TTN_NEEDTEXTA, 0, window);
            result = ::SendMessageW(window, WM_NOTIFY, kind % 70000, reinterpret_cast<LPARAM>(&question));
            Expect(question.info.szText == NarrowTipOf(text), "narrow tip", testkit::Quoted(text));
        }
        Expect(result == 0, "tip result", std::to_string(result));
    }

    void PressAt(CPoint point, uint32_t mischief, uint32_t detail)
    {
        const LPARAM place = MAKELPARAM(point.x, point.y);
        const HWND window = m_stage.Window();
        // In what it tells its parent of a press or a key, the platform's list box does not survive its end.
        Arm(mischief, detail, Mischief::Reparent);
        ::SendMessageW(window, detail % 5 == 4 ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, place);
        Arm(mischief, detail);
        ::SendMessageW(window, WM_LBUTTONUP, 0, place);
    }

    // Rules

    std::string Check() const
    {
        if (std::string failure = m_stage.Check(); !failure.empty())
            return failure;
        if (m_list->m_hWnd != m_stage.Window())
            return "window: the object has another";
        if (!m_stage.IsThere())
            return {};
        const HWND window = m_stage.Window();
        const auto count = static_cast<size_t>(::SendMessageW(window, LB_GETCOUNT, 0, 0));
        if (count != m_items.size())
            return "count: " + std::to_string(count) + ", expected " + std::to_string(m_items.size());
        if (::SendMessageW(window, LB_GETITEMHEIGHT, 0, 0) != m_height)
            return "height: of the items";
        wchar_t text[500];
        for (size_t i = 0; i < count; ++i) {
            ::SendMessageW(window, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
            if (text != m_items[i].text)
                return "text: of item " + std::to_string(i) + " " + testkit::Quoted(text);
            if (static_cast<DWORD_PTR>(::SendMessageW(window, LB_GETITEMDATA, i, 0)) != m_items[i].data)
                return "data: of item " + std::to_string(i);
        }
        return {};
    }

    bool Expect(bool holds, const char* kind, const std::string& details)
    {
        if (!holds && m_failure.empty())
            m_failure = std::string(kind) + ": " + details;
        return holds;
    }

    WorldStage m_stage;
    std::unique_ptr<ListBoxUnderTest> m_list;
    std::vector<Item> m_items;
    int m_height = 1;
    bool m_isSorted = false, m_isMultiple = false;

    Mischief m_mischief = Mischief::None;
    bool m_isMischiefBefore = false;
    uint32_t m_detail = 0;
    std::string m_failure;
};

} // namespace

Plan ListBoxPlan(unsigned long long steps)
{
    return {"list box", Operations, [] { return std::make_unique<ListBoxWorld>(); }, steps};
}

} // namespace randomplay
