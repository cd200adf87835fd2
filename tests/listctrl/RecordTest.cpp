// The record of a cell, and the data members and exported functions of the list control.
#include "CellState.h"
#include "ListTest.h"
#include "UnlikeColors.h"

#include "kit/LeakGate.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

namespace
{

// Callers compiled elsewhere reach into the record, so its layout is fixed.
static_assert(std::is_standard_layout_v<XLISTCTRLDATA>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::bEnabled), BOOL>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::bBold), BOOL>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::nImage), int>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::strToolTip), CString>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::bCombo), BOOL>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::bComboButtonDown), BOOL>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::pComboStrings), CStringArray*>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::nComboListHeight), int>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::nComboInitialSel), int>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::crText), COLORREF>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::crBackground), COLORREF>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::bShowProgress), BOOL>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::nProgressPercent), int>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::strProgressText), CString>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::bShowProgressText), BOOL>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::nCheckedState), int>);
static_assert(std::is_same_v<decltype(XLISTCTRLDATA::dwItemData), DWORD>);
static_assert(sizeof(BOOL) == 4 && sizeof(int) == 4 && sizeof(COLORREF) == 4 && sizeof(DWORD) == 4);
static_assert(sizeof(void*) == 8 && sizeof(CString) == 8);
static_assert(offsetof(XLISTCTRLDATA, bEnabled) == 0);
static_assert(offsetof(XLISTCTRLDATA, bBold) == 4);
static_assert(offsetof(XLISTCTRLDATA, nImage) == 8);
static_assert(offsetof(XLISTCTRLDATA, strToolTip) == 16);
static_assert(offsetof(XLISTCTRLDATA, bCombo) == 24);
static_assert(offsetof(XLISTCTRLDATA, bComboButtonDown) == 28);
static_assert(offsetof(XLISTCTRLDATA, pComboStrings) == 32);
static_assert(offsetof(XLISTCTRLDATA, nComboListHeight) == 40);
static_assert(offsetof(XLISTCTRLDATA, nComboInitialSel) == 44);
static_assert(offsetof(XLISTCTRLDATA, crText) == 48);
static_assert(offsetof(XLISTCTRLDATA, crBackground) == 52);
static_assert(offsetof(XLISTCTRLDATA, bShowProgress) == 56);
static_assert(offsetof(XLISTCTRLDATA, nProgressPercent) == 60);
static_assert(offsetof(XLISTCTRLDATA, strProgressText) == 64);
static_assert(offsetof(XLISTCTRLDATA, bShowProgressText) == 72);
static_assert(offsetof(XLISTCTRLDATA, nCheckedState) == 76);
static_assert(offsetof(XLISTCTRLDATA, dwItemData) == 80);
static_assert(sizeof(XLISTCTRLDATA) == 88);
static_assert(!std::is_polymorphic_v<XLISTCTRLDATA>);
static_assert(std::is_same_v<decltype(std::declval<XLISTCTRLDATA&>() = std::declval<const XLISTCTRLDATA&>()),
                             XLISTCTRLDATA&>);
static_assert(std::is_same_v<decltype(std::declval<XLISTCTRLDATA&>() = std::declval<XLISTCTRLDATA&&>()),
                             XLISTCTRLDATA&>);

using Open = OpenList;
static_assert(std::is_same_v<decltype(Open::m_HeaderCtrl), CXHeaderCtrl>);
static_assert(std::is_same_v<decltype(Open::m_cImageList), CImageList>);
static_assert(std::is_same_v<decltype(Open::m_bHeaderSubclassed), BOOL>);
static_assert(std::is_same_v<decltype(Open::m_dwExtendedStyleX), DWORD>);
static_assert(std::is_same_v<decltype(Open::m_cr3DFace), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_cr3DHighLight), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_cr3DShadow), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crBtnFace), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crBtnShadow), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crBtnText), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crGrayText), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crHighLight), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crHighLightText), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crWindow), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_crWindowText), COLORREF>);
static_assert(std::is_same_v<decltype(Open::m_bComboButtonHeld), BOOL>);
static_assert(std::is_same_v<decltype(Open::m_nComboItem), int>);
static_assert(std::is_same_v<decltype(Open::m_nComboSubItem), int>);
static_assert(std::is_same_v<decltype(Open::m_rectComboButton), CRect>);
static_assert(std::is_same_v<decltype(Open::m_rectComboList), CRect>);
static_assert(std::is_same_v<decltype(Open::m_pCombo), CXComboList*>);
static_assert(std::is_same_v<decltype(Open::m_fontComboList), CFont>);
static_assert(std::is_same_v<decltype(Open::m_bComboFontCreated), BOOL>);
static_assert(std::is_same_v<decltype(Open::m_strComboOpenText), CString>);
static_assert(std::is_same_v<decltype(Open::m_strNoItemsMessage), CString>);

// A list and its members as they stand in memory.
struct Member
{
    const char* name;
    size_t offset;
    size_t size;
    size_t alignment;
};

std::vector<Member> MembersOf(const OpenList& list)
{
    std::vector<Member> members;
    const auto add = [&]<class T>(const char* name, const T& member) {
        const auto offset = reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&list);
        members.push_back({name, static_cast<size_t>(offset), sizeof(T), alignof(T)});
    };
    add("m_HeaderCtrl", list.m_HeaderCtrl);
    add("m_cImageList", list.m_cImageList);
    add("m_bHeaderSubclassed", list.m_bHeaderSubclassed);
    add("m_dwExtendedStyleX", list.m_dwExtendedStyleX);
    add("m_cr3DFace", list.m_cr3DFace);
    add("m_cr3DHighLight", list.m_cr3DHighLight);
    add("m_cr3DShadow", list.m_cr3DShadow);
    add("m_crBtnFace", list.m_crBtnFace);
    add("m_crBtnShadow", list.m_crBtnShadow);
    add("m_crBtnText", list.m_crBtnText);
    add("m_crGrayText", list.m_crGrayText);
    add("m_crHighLight", list.m_crHighLight);
    add("m_crHighLightText", list.m_crHighLightText);
    add("m_crWindow", list.m_crWindow);
    add("m_crWindowText", list.m_crWindowText);
    add("m_bComboButtonHeld", list.m_bComboButtonHeld);
    add("m_nComboItem", list.m_nComboItem);
    add("m_nComboSubItem", list.m_nComboSubItem);
    add("m_rectComboButton", list.m_rectComboButton);
    add("m_rectComboList", list.m_rectComboList);
    add("m_pCombo", list.m_pCombo);
    add("m_fontComboList", list.m_fontComboList);
    add("m_bComboFontCreated", list.m_bComboFontCreated);
    add("m_strComboOpenText", list.m_strComboOpenText);
    add("m_strNoItemsMessage", list.m_strNoItemsMessage);
    return members;
}

// An object in memory that held something else before.
template <class T>
class Reused
{
public:
    Reused()
    {
        std::memset(m_memory, 0xCD, sizeof m_memory);
        m_object = ::new (static_cast<void*>(m_memory)) T;
    }
    ~Reused() { m_object->~T(); }
    Reused(const Reused&) = delete;
    Reused& operator=(const Reused&) = delete;

    T& operator*() { return *m_object; }
    T* operator->() { return m_object; }

private:
    alignas(T) unsigned char m_memory[sizeof(T)];
    T* m_object;
};

// A record of which no field has its first value.
XLISTCTRLDATA FilledRecord(CStringArray* choices)
{
    XLISTCTRLDATA record;
    record.bEnabled = 2;
    record.bBold = 3;
    record.nImage = 4;
    record.strToolTip = L"tip";
    record.bCombo = 5;
    record.bComboButtonDown = 6;
    record.pComboStrings = choices;
    record.nComboListHeight = 7;
    record.nComboInitialSel = 8;
    record.crText = RGB(1, 2, 3);
    record.crBackground = RGB(4, 5, 6);
    record.bShowProgress = 9;
    record.nProgressPercent = 11;
    record.strProgressText = L"progress";
    record.bShowProgressText = 12;
    record.nCheckedState = 13;
    record.dwItemData = 0xFEDCBA98;
    return record;
}

CellState FilledState(CStringArray* choices)
{
    CellState state;
    state.bEnabled = 2;
    state.bBold = 3;
    state.nImage = 4;
    state.strToolTip = L"tip";
    state.bCombo = 5;
    state.bComboButtonDown = 6;
    state.pComboStrings = choices;
    state.nComboListHeight = 7;
    state.nComboInitialSel = 8;
    state.crText = RGB(1, 2, 3);
    state.crBackground = RGB(4, 5, 6);
    state.bShowProgress = 9;
    state.nProgressPercent = 11;
    state.strProgressText = L"progress";
    state.bShowProgressText = 12;
    state.nCheckedState = 13;
    state.dwItemData = 0xFEDCBA98;
    return state;
}

class XListCtrlData : public testing::Test
{
protected:
    CStringArray m_choices;
};

// Whether a function with exactly this signature stands in the library.
template <class Signature>
bool IsInLibrary(Signature CXListCtrl::*member)
{
    void* address = nullptr;
    std::memcpy(&address, &member, sizeof address);
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &module) &&
           module == GetModuleHandleW(L"VelmUtil22.dll");
}

class NotedCombo : public CXComboList
{
public:
    explicit NotedCombo(bool& isGone) : CXComboList(nullptr), m_isGone(isGone) {}
    ~NotedCombo() override { m_isGone = true; }

private:
    bool& m_isGone;
};

} // namespace

TEST_F(XListCtrlData, StartsWithItsDefaultsWhateverItsMemoryHeld)
{
    Reused<XLISTCTRLDATA> record;
    EXPECT_EQ(StateOf(*record), CellState());
}

TEST_F(XListCtrlData, TakesItsColorsFromTheSystemWhenItIsMade)
{
    const XLISTCTRLDATA before;
    const CellState stateBefore = StateOf(before);
    const UnlikeSystemColors colors;
    ASSERT_TRUE(colors.AreGiven());
    const XLISTCTRLDATA record;
    EXPECT_EQ(record.crText, UnlikeColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(record.crBackground, UnlikeColor(COLOR_WINDOW));
    EXPECT_EQ(StateOf(before), stateBefore);
}

TEST_F(XListCtrlData, CopyConstructedHasEveryField)
{
    const XLISTCTRLDATA record = FilledRecord(&m_choices);
    const XLISTCTRLDATA copy(record);
    EXPECT_EQ(StateOf(copy), FilledState(&m_choices));
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
}

TEST_F(XListCtrlData, CopyAssignedHasEveryField)
{
    const XLISTCTRLDATA record = FilledRecord(&m_choices);
    XLISTCTRLDATA copy;
    copy.strToolTip = L"earlier tip";
    copy.strProgressText = L"earlier text";
    EXPECT_EQ(&(copy = record), &copy);
    EXPECT_EQ(StateOf(copy), FilledState(&m_choices));
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
}

TEST_F(XListCtrlData, MoveConstructedCopiesEveryField)
{
    XLISTCTRLDATA record = FilledRecord(&m_choices);
    const XLISTCTRLDATA target(std::move(record));
    EXPECT_EQ(StateOf(target), FilledState(&m_choices));
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
}

TEST_F(XListCtrlData, MoveAssignedCopiesEveryField)
{
    XLISTCTRLDATA record = FilledRecord(&m_choices);
    XLISTCTRLDATA target;
    target.strToolTip = L"earlier tip";
    target.strProgressText = L"earlier text";
    EXPECT_EQ(&(target = std::move(record)), &target);
    EXPECT_EQ(StateOf(target), FilledState(&m_choices));
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
}

TEST_F(XListCtrlData, AssignedToItselfKeepsEveryField)
{
    XLISTCTRLDATA record = FilledRecord(&m_choices);
    XLISTCTRLDATA& same = record;
    record = same;
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
    record = std::move(same);
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
}

TEST_F(XListCtrlData, CopyHasTextsOfItsOwn)
{
    const XLISTCTRLDATA record = FilledRecord(&m_choices);
    XLISTCTRLDATA copy(record);
    copy.strToolTip += L"2";
    copy.strProgressText += L"2";
    EXPECT_EQ(StateOf(record), FilledState(&m_choices));
    EXPECT_EQ(copy.strToolTip, L"tip2");
    EXPECT_EQ(copy.strProgressText, L"progress2");
}

TEST_F(XListCtrlData, CopyOutlivesTheOriginal)
{
    XLISTCTRLDATA copy;
    {
        const XLISTCTRLDATA record = FilledRecord(&m_choices);
        copy = record;
    }
    EXPECT_EQ(StateOf(copy), FilledState(&m_choices));
}

TEST_F(XListCtrlData, DoesNotOwnItsChoices)
{
    m_choices.Add(L"choice");
    {
        XLISTCTRLDATA record;
        record.pComboStrings = &m_choices;
        const XLISTCTRLDATA copy(record);
    }
    ASSERT_EQ(m_choices.GetSize(), 1);
    EXPECT_EQ(m_choices[0], L"choice");
}

// The names are those that this toolchain gives to the members.
#ifdef __MINGW32__
TEST_F(XListCtrlData, IsExportedWhole)
{
    const HMODULE library = GetModuleHandleW(L"VelmUtil22.dll");
    ASSERT_NE(library, nullptr);
    for (const char* member : {"C1Ev", "C1ERKS_", "C1EOS_", "aSERKS_", "aSEOS_", "D1Ev"})
        EXPECT_NE(GetProcAddress(library, (std::string("_ZN13XLISTCTRLDATA") + member).c_str()), nullptr)
            << member;
}
#endif

TEST(ListMembers, StandInTheirOrderRightBehindTheBase)
{
    const OpenList list;
    size_t end = sizeof(CListCtrl);
    for (const Member& member : MembersOf(list)) {
        const size_t expected = (end + member.alignment - 1) / member.alignment * member.alignment;
        EXPECT_EQ(member.offset, expected) << member.name;
        end = member.offset + member.size;
    }
}

TEST(ListMembers, HaveTheirFirstValuesWhateverTheirMemoryHeld)
{
    Reused<OpenList> list;
    EXPECT_EQ(list->m_HeaderCtrl.GetSafeHwnd(), nullptr);
    EXPECT_EQ(list->m_cImageList.GetSafeHandle(), nullptr);
    EXPECT_EQ(list->m_bHeaderSubclassed, 0);
    EXPECT_EQ(list->m_dwExtendedStyleX, 0u);
    EXPECT_EQ(list->m_bComboButtonHeld, 0);
    EXPECT_EQ(list->m_nComboItem, 0);
    EXPECT_EQ(list->m_nComboSubItem, 0);
    EXPECT_TRUE(list->m_rectComboButton == CRect(0, 0, 0, 0));
    EXPECT_TRUE(list->m_rectComboList == CRect(0, 0, 0, 0));
    EXPECT_EQ(list->m_pCombo, nullptr);
    EXPECT_EQ(list->m_fontComboList.GetSafeHandle(), nullptr);
    EXPECT_EQ(list->m_bComboFontCreated, 0);
    EXPECT_EQ(list->m_strComboOpenText, L"");
    EXPECT_EQ(list->m_strNoItemsMessage, L"");
}

TEST(ListMembers, HoldTheSystemsColorsFromTheConstructorOn)
{
    const UnlikeSystemColors colors;
    ASSERT_TRUE(colors.AreGiven());
    const OpenList list;
    EXPECT_EQ(list.m_cr3DFace, UnlikeColor(COLOR_BTNFACE));
    EXPECT_EQ(list.m_cr3DHighLight, UnlikeColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(list.m_cr3DShadow, UnlikeColor(COLOR_BTNSHADOW));
    EXPECT_EQ(list.m_crBtnFace, UnlikeColor(COLOR_BTNFACE));
    EXPECT_EQ(list.m_crBtnShadow, UnlikeColor(COLOR_BTNSHADOW));
    EXPECT_EQ(list.m_crBtnText, UnlikeColor(COLOR_BTNTEXT));
    EXPECT_EQ(list.m_crGrayText, UnlikeColor(COLOR_GRAYTEXT));
    EXPECT_EQ(list.m_crHighLight, UnlikeColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(list.m_crHighLightText, UnlikeColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(list.m_crWindow, UnlikeColor(COLOR_WINDOW));
    EXPECT_EQ(list.m_crWindowText, UnlikeColor(COLOR_WINDOWTEXT));
}

TEST(ListMembers, DropDownListGoesWithTheControlThroughItsVirtualDestructor)
{
    bool isGone = false;
    {
        OpenList list;
        list.m_pCombo = new NotedCombo(isGone);
    }
    EXPECT_TRUE(isGone);
}

TEST(ListMembers, FontAndImageListGoWithTheControl)
{
    HGDIOBJ font = nullptr;
    const long long before = testkit::CountNow(testkit::GdiObjects);
    {
        OpenList list;
        ASSERT_TRUE(list.m_fontComboList.CreatePointFont(90, L"Arial"));
        font = list.m_fontComboList.GetSafeHandle();
        ASSERT_EQ(::GetObjectType(font), static_cast<DWORD>(OBJ_FONT));
        const long long withFont = testkit::CountNow(testkit::GdiObjects);
        ASSERT_TRUE(list.m_cImageList.Create(16, 16, ILC_COLOR32, 1, 1));
        ASSERT_GT(testkit::CountNow(testkit::GdiObjects), withFont);
    }
    EXPECT_EQ(::GetObjectType(font), 0u);
    EXPECT_EQ(testkit::CountNow(testkit::GdiObjects), before);
}

TEST(ListFunctions, AreMembersOfTheLibrary)
{
    using List = CXListCtrl;
    EXPECT_TRUE(IsInLibrary<int()>(&List::GetColumns));
    EXPECT_TRUE((IsInLibrary<int(int, LPCTSTR)>(&List::InsertItem)));
    EXPECT_TRUE((IsInLibrary<int(int, LPCTSTR, COLORREF, COLORREF)>(&List::InsertItem)));
    EXPECT_TRUE(IsInLibrary<int(const LVITEM*)>(&List::InsertItem));
    EXPECT_TRUE(IsInLibrary<BOOL(const LVITEM*)>(&List::SetItem));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, LPCTSTR)>(&List::SetItemText)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, LPCTSTR, COLORREF, COLORREF)>(&List::SetItemText)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, DWORD)>(&List::SetItemData)));
    EXPECT_TRUE(IsInLibrary<DWORD(int)>(&List::GetItemData));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, BOOL)>(&List::SetBold)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int)>(&List::GetBold)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, BOOL)>(&List::SetEnabled)));
    EXPECT_TRUE(IsInLibrary<BOOL(int)>(&List::GetEnabled));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, int)>(&List::SetCheckbox)));
    EXPECT_TRUE((IsInLibrary<int(int, int)>(&List::GetCheckbox)));
    EXPECT_TRUE(IsInLibrary<int(int)>(&List::CountCheckedItems));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int)>(&List::SetHeaderCheckedState)));
    EXPECT_TRUE(IsInLibrary<int(int)>(&List::GetHeaderCheckedState));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, BOOL, CStringArray*, int, int)>(&List::SetComboBox)));
    EXPECT_TRUE((IsInLibrary<CString(int, int)>(&List::GetComboText)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, BOOL, LPCTSTR)>(&List::SetProgress)));
    EXPECT_TRUE((IsInLibrary<void(int, int, int)>(&List::UpdateProgress)));
    EXPECT_TRUE((IsInLibrary<void(int, int)>(&List::DeleteProgress)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, int)>(&List::SetItemImage)));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, LPCTSTR)>(&List::SetItemToolTipText)));
    EXPECT_TRUE((IsInLibrary<CString(int, int)>(&List::GetItemToolTipText)));
    EXPECT_TRUE(IsInLibrary<void()>(&List::DeleteAllToolTips));
    EXPECT_TRUE(IsInLibrary<BOOL(int)>(&List::DeleteItem));
    EXPECT_TRUE(IsInLibrary<BOOL()>(&List::DeleteAllItems));
    EXPECT_TRUE(IsInLibrary<void()>(&List::DeleteCheckedItems));
    EXPECT_TRUE(IsInLibrary<int()>(&List::GetCurSel));
    EXPECT_TRUE(IsInLibrary<BOOL(int)>(&List::SetCurSel));
    EXPECT_TRUE(IsInLibrary<DWORD(DWORD)>(&List::SetExtendedStyleX));
    EXPECT_TRUE(IsInLibrary<DWORD()>(&List::GetExtendedStyleX));
    EXPECT_TRUE(IsInLibrary<void(CString)>(&List::SetDefaultTextMessage));
    EXPECT_TRUE((IsInLibrary<BOOL(int, int, int, CRect&)>(&List::GetSubItemRect)));
    EXPECT_TRUE((IsInLibrary<void(int, int)>(&List::UpdateSubItem)));
}
