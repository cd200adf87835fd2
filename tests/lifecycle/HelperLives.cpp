#include "Lives.h"

#include "Ground.h"

#include <list>

#include "kit/Files.h"

namespace lifecycle
{
namespace
{

void UseTexts()
{
    CStringArray pieces;
    Split2Array(L"one, two;three,,four", L",; ", pieces, true);
    ASSERT_EQ(pieces.GetSize(), 4);
    Split2Array(L"one<br>two<br><br>", L"<br>", pieces, false);
    ASSERT_EQ(pieces.GetSize(), 4);
    ASSERT_EQ(GetStrToInt(GetStringFrom(-12)), -12);
    ASSERT_EQ(GetStrToLong(GetStringFrom(123456L)), 123456);
    ASSERT_EQ(GetStrToFloat(GetStringFrom(0.5f)), 0.5f);
    ASSERT_EQ(GetStrToDouble(GetStringFrom(12.25)), 12.25);
    ASSERT_EQ(GetNumberFromText(L"about 12.5 kg"), L"12.5");
}

void UseFiles()
{
    const testkit::TempFolder folder;
    const std::wstring file = (folder / L"log.txt").wstring();
    DebugPrint(L"a line\n", nullptr, file.c_str());
    DebugPrint(L"another\n", nullptr, file.c_str());
    ASSERT_EQ(testkit::ReadBytes(file), "a line\r\nanother\r\n");
    DebugPrint(L"lost", nullptr, (folder / L"no folder\\log.txt").c_str());
    wchar_t name[512] = L"VelmUtil22.dll", none[512] = L"none.dll", path[] = L"kernel32.dll";
    GetAppPath(name);
    ASSERT_GT(CString(name).GetLength(), 14);
    GetAppPath(none);
    ASSERT_FALSE(GetProjectPath(nullptr).IsEmpty());
    ASSERT_FALSE(GetProjectPath(path).IsEmpty());
    ASSERT_TRUE(GetProjectPath(none).IsEmpty());
    CString drive, directory;
    GetAppDriveAndDir(drive, directory);
    ASSERT_TRUE(drive.IsEmpty());
}

void UseLists()
{
    Ground ground;
    CListBox box;
    ASSERT_TRUE(box.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 110, 110), &ground, 1));
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(120, 10, 220, 110), &ground, 2));
    CStringArray items, back;
    for (const wchar_t* const item : {L"one", L"two", L"three"})
        items.Add(item);
    FillListBox(items, box);
    FillListBox1(items, box);
    FillComboBox(items, combo);
    ASSERT_EQ(combo.GetCount(), 3);
    FillStringArray(box, back);
    ASSERT_GE(back.GetSize(), 3);
    std::list<CString> list;
    FillStringList(items, list);
    ASSERT_EQ(list.size(), 3u);
}

class Element : public CObject
{
public:
    explicit Element(const wchar_t* text) : m_text(text) {}

private:
    CString m_text;
};

void UseOwnedObjects()
{
    CPtrList* list = new CPtrList;
    for (int i = 0; i < 10; ++i)
        list->AddTail(static_cast<CObject*>(new Element(L"element")));
    list->AddTail(static_cast<void*>(nullptr));
    CObject* const kept = new Element(L"kept");
    list->AddTail(kept);
    DeletePtrListItem(static_cast<CObject*>(list->GetHead()), list, true);
    DeletePtrListItem(kept, list, false);
    ASSERT_EQ(list->GetCount(), 10);
    delete kept;
    ClearPtrList(list);
    ASSERT_EQ(list->GetCount(), 0);
    list->AddTail(static_cast<CObject*>(new Element(L"last")));
    DeletePtrList(list);
    ASSERT_EQ(list, nullptr);
    CEntityFilter filter;
    filter.m_arrList.Add(L"layer");
}

} // namespace

std::vector<Life> HelperLives()
{
    return {
        {"TextsAndNumbers", &UseTexts},
        {"FilesAndModules", &UseFiles},
        {"ListsAndBoxes", &UseLists},
        {"ListsOfOwnedObjects", &UseOwnedObjects},
    };
}

} // namespace lifecycle
