#include "TreeWorld.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "TreeWorldItems.h"
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
    Insert,
    PutText,
    PutData,
    DropData,
    Remove,
    RemoveBare,
    RemoveAll,
    DeleteBranch,
    CleanAll,
    SayChildren,
    Expand,
    Scroll,
    Select,
    Click,
    Key,
    HitTool,
    AskTip,
    AskTipDirectly,
    PumpAll,
};

constexpr Operation Operations[] = {
    {"Make", 6},       {"EndWindow", 1}, {"EndObject", 1},      {"EndParent", 1}, {"Move", 4},
    {"Insert", 24},    {"PutText", 3},   {"PutData", 14},       {"DropData", 3},  {"Remove", 4},
    {"RemoveBare", 2}, {"RemoveAll", 1}, {"DeleteBranch", 6},   {"CleanAll", 3},  {"SayChildren", 2},
    {"Expand", 8},     {"Scroll", 4},    {"Select", 4},         {"Click", 6},     {"Key", 4},
    {"HitTool", 6},    {"AskTip", 8},    {"AskTipDirectly", 8}, {"PumpAll", 2},
};

// What happens in the middle of something else.
struct Surprise
{
    enum class When
    {
        Before,
        Inside,
        After
    };
    enum class What
    {
        Window, // see `mischief`
        Clean,
        RemoveAsked
    };
    What what = What::Window;
    Mischief mischief = Mischief::None;
    When when = When::Before;
    uint32_t detail = 0;
};

class TreeWorld : public TreeItems
{
public:
    std::string Play(const Step& step) override
    {
        m_failure.clear();
        const auto& n = step.numbers;
        switch (step.operation) {
        case Make:
            MakeWindow(n[0], n[1], n[2], n[3]);
            break;
        case EndWindow:
            EndTree([this] { m_tree->DestroyWindow(); });
            break;
        case EndObject:
            EndObjectToo();
            m_tree = new TreeUnderTest;
            break;
        case EndParent:
            EndTree([this] { m_stage.ReplaceParent(); });
            break;
        case Move:
            m_stage.Do(static_cast<Mischief>(1 + n[0] % 4), n[1]);
            break;
        case CleanAll:
            CleanItemData();
            break;
        case PumpAll:
            Expect(testkit::PumpPending(), "messages", "there is no end of them");
            break;
        default:
            if (m_stage.IsThere())
                PlayOnWindow(step.operation, n);
        }
        Disarm();
        if (m_failure.empty())
            m_failure = Check();
        return m_failure;
    }

    std::string End() override
    {
        m_failure.clear();
        EndObjectToo();
        Expect(m_data.LiveCount() == 0, "data", std::to_string(m_data.LiveCount()) + " are left");
        return m_failure;
    }

private:
    void PlayOnWindow(unsigned act, const Numbers& n)
    {
        TreeNode* const node = Pick(n[0]);
        switch (act) {
        case Insert:
            InsertItem(n);
            return;
        case RemoveAll:
            RemoveAllItems();
            return;
        case Click:
            Arm(n[2], n[3], Mischief::Reparent);
            PressAt(m_stage.PointIn(n[0], n[1]));
            return;
        case Key: {
            constexpr WPARAM keys[] = {VK_DOWN, VK_UP,    VK_LEFT, VK_RIGHT,    VK_HOME,    VK_END,
                                       VK_NEXT, VK_PRIOR, VK_ADD,  VK_SUBTRACT, VK_MULTIPLY};
            Arm(n[1], n[2], Mischief::Reparent);
            Ask(WM_KEYDOWN, keys[n[0] % std::size(keys)], 1);
            return;
        }
        case HitTool:
            CheckTool(m_stage.PointIn(n[0], n[1]));
            return;
        case AskTip:
            CheckTip(m_stage.PointIn(n[0] % 120, n[1]), n[2], n[3]);
            return;
        case AskTipDirectly:
            CheckTipOf(n);
            return;
        }
        if (node != nullptr)
            PlayOnNode(act, *node, n);
    }

    void PressAt(CPoint point)
    {
        // The platform's tree may wait in a loop of its own until the button is up.
        const LPARAM place = MAKELPARAM(point.x, point.y);
        ::PostMessageW(m_stage.Window(), WM_LBUTTONUP, 0, place);
        Ask(WM_LBUTTONDOWN, MK_LBUTTON, place);
        MSG message;
        if (PeekMessageW(&message, m_stage.Window(), WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE))
            DispatchMessageW(&message);
    }

    void PlayOnNode(unsigned act, TreeNode& node, const Numbers& n)
    {
        switch (act) {
        case PutText:
            node.text = SomeText(n[1]);
            m_tree->SetItemText(node.item, node.text.c_str());
            break;
        case PutData:
            Give(node, n[1], n[2]);
            break;
        case DropData:
            Take(node);
            break;
        case Remove:
            // As the owner of a tree removes an item with all that is below it.
            m_tree->SelectItem(m_tree->GetParentItem(node.item));
            DeleteBranchData(node);
            if (TreeNode* const left = NodeOf(node.item)) {
                Take(*left);
                RemoveNode(*left);
            }
            break;
        case RemoveBare:
            RemoveNode(node);
            break;
        case DeleteBranch:
            DeleteBranchData(node);
            break;
        case SayChildren: {
            TVITEM info{};
            info.mask = TVIF_HANDLE | TVIF_CHILDREN;
            info.hItem = node.item;
            info.cChildren = static_cast<int>(n[1] % 2);
            m_tree->SetItem(&info);
            break;
        }
        case Expand: {
            constexpr UINT codes[] = {TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE};
            Arm(n[2], n[3], Mischief::Reparent);
            m_tree->Expand(node.item, codes[n[1] % std::size(codes)]);
            break;
        }
        case Scroll:
            m_tree->SelectSetFirstVisible(node.item);
            break;
        case Select:
            Arm(n[1], n[2]);
            m_tree->SelectItem(n[3] % 8 == 7 ? nullptr : node.item);
            break;
        }
    }

    // Tips

    CRect LabelOf(const TreeNode& node) const
    {
        CRect rect(0, 0, 0, 0);
        *reinterpret_cast<HTREEITEM*>(&rect) = node.item;
        return Ask(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect)) ? rect : CRect(0, 0, 0, 0);
    }
    // The item on whose label a point lies, for the platform; rectangles of labels are a little wider.
    TreeNode* LabelAt(CPoint point) const
    {
        TVHITTESTINFO hit{};
        hit.pt = point;
        Ask(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        return hit.flags == TVHT_ONITEMLABEL ? NodeOf(hit.hItem) : nullptr;
    }
    void CheckTool(CPoint point)
    {
        const TreeNode* const node = LabelAt(point);
        TOOLINFO tool;
        memset(&tool, 0x5A, sizeof tool);
        TOOLINFO expected = tool;
        INT_PTR hit = -1;
        if (node != nullptr) {
            hit = reinterpret_cast<INT_PTR>(node->item);
            expected.hwnd = m_stage.Window();
            expected.uId = static_cast<UINT_PTR>(hit);
            expected.rect = LabelOf(*node);
            expected.lpszText = LPSTR_TEXTCALLBACK;
        }
        Expect(m_tree->OnToolHitTest(point, &tool) == hit, "tool", node ? "not the label's" : "off labels");
        Expect(memcmp(&tool, &expected, sizeof tool) == 0, "tool", "its description");
        Expect(m_tree->OnToolHitTest(point, nullptr) == hit, "tool", "without a description");
    }

    std::wstring TipTextOf(HTREEITEM item) const
    {
        const TreeNode* const node = NodeOf(item);
        if (node == nullptr)
            return std::wstring();
        return node->datum != nullptr ? L" " + node->datum->Tip() : node->text;
    }

    // Lets the number decide what happens during the next message to a parent or request for a tip.
    void Arm(uint32_t number, uint32_t detail, Mischief last = Mischief::Destroy)
    {
        m_surprise = {};
        m_surprise.mischief = MischiefOf(number, last);
        m_surprise.detail = detail;
        m_surprise.when = static_cast<Surprise::When>(detail % 3);
        m_stage.OnParentMessage([this](const NMHDR* notification) { StrikeInMessage(notification); });
    }
    void ArmTip(HTREEITEM asked, uint32_t number, uint32_t detail)
    {
        Arm(number, detail);
        m_asked = asked;
        m_expectedTip = TipTextOf(asked);
        if (m_surprise.mischief != Mischief::None && number / 64 % 4 > 1)
            m_surprise.what = number / 64 % 4 == 2 ? Surprise::What::Clean : Surprise::What::RemoveAsked;
        m_tree->onTipRequest = [this](bool isBefore) {
            Strike(isBefore ? Surprise::When::Before : Surprise::When::After);
        };
    }
    void Disarm()
    {
        m_surprise = {};
        m_stage.OnParentMessage(nullptr);
        if (m_tree != nullptr)
            m_tree->onTipRequest = nullptr;
    }
    // The platform's tree outlives its end only in the last message of a change of the selection.
    void StrikeInMessage(const NMHDR* notification)
    {
        const bool isLast = notification != nullptr && notification->code == TVN_SELCHANGEDW;
        if (isLast || m_surprise.mischief != Mischief::Destroy)
            Strike(m_surprise.when);
    }
    void Strike(Surprise::When when)
    {
        if (m_surprise.when != when || m_surprise.mischief == Mischief::None)
            return;
        const Surprise surprise = std::exchange(m_surprise, {});
        if (!m_stage.IsThere())
            return;
        switch (surprise.what) {
        case Surprise::What::Clean:
            CleanItemData();
            break;
        case Surprise::What::RemoveAsked:
            if (TreeNode* const node = NodeOf(m_asked))
                RemoveNode(*node);
            break;
        case Surprise::What::Window:
            if (surprise.mischief == Mischief::Destroy)
                EndTree([this] { m_tree->DestroyWindow(); });
            else
                m_stage.Do(surprise.mischief, surprise.detail);
        }
        if (when == Surprise::When::Before)
            m_expectedTip = TipTextOf(m_asked);
    }

    // Not every platform's tree tells a tip control that it takes wide texts, which is then asked for narrow
    // ones.
    std::wstring AskedTipOf(const std::wstring& text) const
    {
        if (m_takesWideTips)
            return TipOf(text);
        const std::string narrow = NarrowTipOf(text);
        wchar_t wide[100]{};
        MultiByteToWideChar(CP_ACP, 0, narrow.c_str(), -1, wide, static_cast<int>(std::size(wide)));
        return wide;
    }

    void CheckTip(CPoint point, uint32_t number, uint32_t detail)
    {
        const TreeNode* const node = LabelAt(point);
        const HTREEITEM item = node != nullptr ? node->item : nullptr;
        ArmTip(item, node != nullptr ? number : 0, detail);
        const std::optional<std::wstring> tip = AskForTip(*m_tree, point, reinterpret_cast<UINT_PTR>(item));
        Expect(tip.has_value() == (item != nullptr), "tip", item != nullptr ? "none" : "off all labels");
        if (tip && item != nullptr)
            Expect(*tip == AskedTipOf(m_expectedTip), "tip", testkit::Quoted(*tip));
    }

    // The request as a tip control sends it, for items of now and of before and for others.
    void CheckTipOf(const Numbers& n)
    {
        const TreeNode* const node = Pick(n[0] / 8);
        HTREEITEM item = node != nullptr ? node->item : nullptr;
        if (n[0] % 8 == 6)
            item = nullptr;
        if (n[0] % 8 == 7 && !m_former.empty())
            item = m_former[n[0] / 8 % m_former.size()];
        const HWND window = m_stage.Window();
        const auto tool = reinterpret_cast<UINT_PTR>(item);
        LRESULT result = 77;
        if (n[1] % 16 == 14) {
            TipQuestion<TOOLTIPTEXTW> question(reinterpret_cast<UINT_PTR>(window), TTN_NEEDTEXTW,
                                               TTF_IDISHWND);
            Expect(!m_tree->OnToolTipText(0, &question.info.hdr, &result) && result == 77 &&
                       !question.IsAnswered(),
                   "window's tip", "it is answered");
            return;
        }
        if (n[1] % 16 == 15) {
            TipQuestion<TOOLTIPTEXTW> question(tool, TTN_SHOW, 0);
            Expect(m_tree->OnToolTipText(0, &question.info.hdr, &result) && result == 0 &&
                       !question.IsAnswered(),
                   "other code", "it is answered");
            return;
        }
        ArmTip(item, n[2], n[3]);
        const WPARAM number = n[1] % 70000;
        const UINT flags = n[1] % 3 == 2 && item != nullptr ? TTF_IDISHWND : 0;
        if (n[1] % 2 == 0) {
            TipQuestion<TOOLTIPTEXTW> question(tool, TTN_NEEDTEXTW, flags, window);
            result = ::SendMessageW(window, WM_NOTIFY, number, reinterpret_cast<LPARAM>(&question));
            Expect(question.info.szText == TipOf(m_expectedTip), "wide tip", testkit::Quoted(m_expectedTip));
        } else {
            TipQuestion<TOOLTIPTEXTA> question(tool, TTN_NEEDTEXTA, flags, window);
            result = ::SendMessageW(window, WM_NOTIFY, number, reinterpret_cast<LPARAM>(&question));
            Expect(question.info.szText == NarrowTipOf(m_expectedTip), "narrow tip",
                   testkit::Quoted(m_expectedTip));
        }
        Expect(result == 0, "tip result", std::to_string(result));
    }
    void OnTipAsked() override { Strike(Surprise::When::Inside); }

    Surprise m_surprise;
    HTREEITEM m_asked = nullptr;
    std::wstring m_expectedTip;
};

} // namespace

Plan TreePlan(unsigned long long steps)
{
    return {"tree", Operations, [] { return std::make_unique<TreeWorld>(); }, steps};
}

} // namespace randomplay
