// A list control with its parents, and the model that it is compared with after each step.
#pragma once

#include "ListModel.h"
#include "PoisonedMemory.h"
#include "QuietPlatform.h"
#include "RandomPlay.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

namespace randomplay
{

class ListWorld;

// A parent that tells the world of the list's two messages.
class WorldParent : public CWnd
{
public:
    explicit WorldParent(ListWorld& world) : m_world(world) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    ListWorld& m_world;
};

// The list, whose tips tell the world that they are asked for, before and after the class answers.
class WorldList : public CXListCtrl
{
public:
    explicit WorldList(ListWorld& world) : m_world(world) {}
    static void* operator new(size_t size) { return OwnPages::Take(size); }
    static void operator delete(void* memory) { OwnPages::Free(memory); }

    using CXListCtrl::DefWindowProc;
    using CXListCtrl::m_nComboItem;
    using CXListCtrl::m_nComboSubItem;
    using CXListCtrl::m_pCombo;
    using CXListCtrl::m_strComboOpenText;

protected:
    BOOL OnToolTipText(UINT id, NMHDR* notification, LRESULT* result) override;

private:
    ListWorld& m_world;
};

class ListWorld : public World
{
public:
    // The numbers are those of Operations().
    enum class Op : unsigned
    {
        InsertText,
        InsertColored,
        InsertDescribed,
        InsertPast,
        DeleteRow,
        DeleteRowPast,
        DeleteAll,
        DeleteAllPast,
        DeleteChecked,
        Select,
        InsertColumn,
        DeleteColumn,
        SizeColumn,
        OrderColumns,
        SetText,
        SetTextColors,
        SetDescribed,
        SetData,
        SetBold,
        SetEnabled,
        SetImage,
        SetTip,
        DeleteTips,
        SetCheckbox,
        SetHeaderState,
        SetCombo,
        ChangeChoices,
        SetProgress,
        UpdateProgress,
        DeleteProgress,
        Sort,
        Press,
        Release,
        ClickColumn,
        Key,
        MoveMouse,
        Tick,
        OpenDropDown,
        ComboKey,
        ComboPick,
        ComboClick,
        ToolHit,
        AskTip,
        Scroll,
        Draw,
        Resize,
        ShowList,
        ShowParent,
        SetRedraw,
        Focus,
        Reparent,
        DestroyList,
        DestroyParent,
        DeleteObject,
        MakeAgain,
        React,
        Count
    };

    // When an armed reaction is run.
    enum class Moment
    {
        CheckboxMessage,
        ComboMessage,
        BeforeTip,
        AfterTip,
        Count
    };

    // All operations; and those of the drop-down far more often than the others.
    static std::span<const Operation> Operations();
    static std::span<const Operation> DropDownOperations();

    ListWorld();
    ~ListWorld() override;
    ListWorld(const ListWorld&) = delete;
    ListWorld& operator=(const ListWorld&) = delete;

    std::string Play(const Step& step) override;
    std::string End() override;

    // How often a reaction was run at each moment, in all worlds.
    static inline std::array<unsigned long long, static_cast<size_t>(Moment::Count)> reactionsRun{};
    static inline unsigned long long dropDownsOpened = 0;

private:
    friend class WorldParent;
    friend class WorldList;

    struct Told
    {
        UINT message;
        int row;
        int column;
        bool operator==(const Told&) const = default;
    };
    // The open drop-down as it is at some time.
    struct DropDown
    {
        int row = -1;
        int column = -1;
        std::wstring openText;
        std::vector<std::wstring> entries;
    };

    // Windows
    void MakeAll();
    void MakeParents();
    void MakeList();
    void LoseWindow();
    bool HasWindow() const { return m_hasWindow; }
    CWnd& Parent() { return *m_parents[m_parentIndex]; }
    bool IsShown() const;

    // Steps: each does one thing to the list and to the model, and fails if a result is not the model's.
    void Do(const Step& step);
    bool DoRows(const Step& step);
    bool DoColumns(const Step& step);
    bool DoTexts(const Step& step);
    bool DoFields(const Step& step);
    bool DoKinds(const Step& step);
    bool DoInput(const Step& step);
    bool DoDropDown(const Step& step);
    bool DoWindows(const Step& step);

    void Sort(int column);
    void OrderColumns(uint32_t first, bool isReversed);
    void PressAt(CPoint point, bool isPosted);
    void ClickColumn(int column);
    void Tick(const Step& step);
    void TickList(UINT_PTR id);
    void OpenDropDown(int row, int column, const Step& step);
    void ComboKey(HWND listBox, uint32_t number);
    // The text of the opening into the cell of the drop-down.
    void PutBack();
    void AskTip(const Step& step);
    void ToolHit(CPoint point);

    // What the numbers stand for: a row or column, now and then one just out of range; a text; a place.
    int RowOf(uint32_t number) const;
    int ColumnOf(uint32_t number) const;
    static const std::wstring& TextOf(uint32_t number);
    static COLORREF ColorOf(uint32_t number);
    CPoint PointOf(const Step& step);

    // The list view itself, asked without the class.
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessage(m_window, message, wParam, lParam);
    }
    // The same past the framework, for what is asked very often.
    LRESULT Read(UINT message, WPARAM wParam, void* data) const
    {
        return m_list->DefWindowProc(message, wParam, reinterpret_cast<LPARAM>(data));
    }
    CRect RowRect(int row) const;
    CRect CellRect(int row, int column) const;
    int RowAt(CPoint point) const;
    int ColumnAt(int row, CPoint point) const;
    std::vector<bool> Selection() const;
    XLISTCTRLDATA* RecordsOf(int row) const;
    DropDown DropDownNow() const;
    std::vector<HWND> Popups() const;

    // Reactions
    void Arm(const Step& step);
    void RunReaction(Moment moment);
    void Provoke(int row, int column);
    static unsigned long long Reactions()
    {
        return std::accumulate(reactionsRun.begin(), reactionsRun.end(), 0ull);
    }

    // The rules
    void Fail(std::string message);
    template <class A, class B>
    void Expect(const A& is, const B& should, const char* kind, int row = -1, int column = -1);
    void Check();
    void CheckWithoutWindow();
    void CheckCounts();
    void CheckTexts();
    bool MayBecome(int row, int column, const std::wstring& text) const;
    void CheckRecords();
    bool IsInTurn(int row) const;
    void CheckRecord(const XLISTCTRLDATA& record, const CellModel& cell, int row, int column);
    void CheckGetters(int row, int column);
    void CheckCalls(int row);
    void CheckRectangles(int row);
    void CheckOutOfRange();
    void CheckButton(const XLISTCTRLDATA& record, CellModel& cell, int row, int column);
    void CheckDropDown();
    void CheckOpening();
    void CheckTold();

    QuietPlatform m_platform;
    PoisonedMemory m_memory;
    std::array<CStringArray, 3> m_choices;
    ListModel m_model;
    std::array<std::unique_ptr<WorldParent>, 2> m_parents;
    size_t m_parentIndex = 0;
    std::unique_ptr<WorldList> m_list;
    HWND m_window = nullptr; // stays when the window is gone
    bool m_hasWindow = false;
    bool m_isRedrawOn = true;

    std::string m_failure;
    std::vector<Told> m_told;
    std::vector<Told> m_expected;
    // Of the step under way.
    DropDown m_before;
    bool m_isReleased = false; // a drop button may have come up
    bool m_isComboStep = false;
    int m_depth = 0;
    int m_steps = 0;
    bool m_isEnding = false;

    std::optional<Step> m_reaction;
    Moment m_reactionMoment = Moment::CheckboxMessage;
};

template <class A, class B>
void ListWorld::Expect(const A& is, const B& should, const char* kind, int row, int column)
{
    if (!(is == should)) {
        Fail(std::string(kind) + ": row " + std::to_string(row) + ", column " + std::to_string(column) +
             ", is " + testing::PrintToString(is) + ", should be " + testing::PrintToString(should));
    }
}

} // namespace randomplay
