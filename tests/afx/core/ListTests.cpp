// CList, CPtrList and CObList.
#include "Thrown.h"

#include <afxcoll.h>

#include "kit/Text.h"

#include <string>

typedef CList<int, int> CIntList;

static std::string Joined(const CIntList& list)
{
    std::string text;
    for (POSITION position = list.GetHeadPosition(); position != NULL;)
        text += std::to_string(list.GetNext(position)) + " ";
    return text;
}

static std::string JoinedBackwards(const CIntList& list)
{
    std::string text;
    for (POSITION position = list.GetTailPosition(); position != NULL;)
        text += std::to_string(list.GetPrev(position)) + " ";
    return text;
}

static void Fill(CIntList& list, int last)
{
    for (int i = 1; i <= last; ++i)
        list.AddTail(i);
}

TEST(List, AddsAtBothEnds)
{
    CIntList list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(nullptr, list.GetHeadPosition());
    EXPECT_EQ(nullptr, list.GetTailPosition());
    const POSITION two = list.AddTail(2);
    list.AddTail(3);
    list.AddHead(1);
    EXPECT_EQ("1 2 3 ", Joined(list));
    EXPECT_EQ("3 2 1 ", JoinedBackwards(list));
    EXPECT_EQ(3, list.GetCount());
    EXPECT_EQ(3, list.GetSize());
    EXPECT_EQ(2, list.GetAt(two));
    EXPECT_EQ(1, list.GetHead());
    EXPECT_EQ(3, list.GetTail());
}

TEST(List, RemovesAtBothEndsAndInBetween)
{
    CIntList list;
    Fill(list, 5);
    EXPECT_EQ(1, list.RemoveHead());
    EXPECT_EQ(5, list.RemoveTail());
    list.RemoveAt(list.FindIndex(1));
    EXPECT_EQ("2 4 ", Joined(list));
    EXPECT_EQ("4 2 ", JoinedBackwards(list));
    list.RemoveAll();
    EXPECT_EQ(0, list.GetCount());
    EXPECT_EQ("", Joined(list));
}

TEST(List, PositionsOutliveOtherElements)
{
    CIntList list(2);
    Fill(list, 9);
    const POSITION five = list.Find(5);
    while (list.GetHead() != 5)
        list.RemoveHead();
    while (list.GetTail() != 5)
        list.RemoveTail();
    EXPECT_EQ(5, list.GetAt(five));
    list.SetAt(five, 50);
    list.InsertBefore(five, 40);
    list.InsertAfter(five, 60);
    EXPECT_EQ("40 50 60 ", Joined(list));
    EXPECT_EQ("60 50 40 ", JoinedBackwards(list));
}

TEST(List, InsertingAtNoPositionIsAddingAtAnEnd)
{
    CIntList list;
    list.InsertAfter(NULL, 2);
    list.InsertBefore(NULL, 1);
    list.InsertAfter(NULL, 3);
    EXPECT_EQ("1 2 3 ", Joined(list));
}

TEST(List, AddsWholeLists)
{
    CIntList list;
    Fill(list, 2);
    CIntList other;
    other.AddTail(8);
    other.AddTail(9);
    list.AddHead(&other);
    list.AddTail(&other);
    EXPECT_EQ("8 9 1 2 8 9 ", Joined(list));
    EXPECT_EQ("8 9 ", Joined(other));
    other.AddTail(&other);
    EXPECT_EQ("8 9 8 9 ", Joined(other));
    other.AddHead(&other);
    EXPECT_EQ("8 9 8 9 8 9 8 9 ", Joined(other));
    EXPECT_EQ("9 8 9 8 9 8 9 8 ", JoinedBackwards(other));
}

TEST(List, FindsByValueAndIndex)
{
    CIntList list;
    Fill(list, 3);
    Fill(list, 3);
    const POSITION first = list.Find(2);
    const POSITION second = list.Find(2, first);
    EXPECT_EQ(list.FindIndex(1), first);
    EXPECT_EQ(list.FindIndex(4), second);
    EXPECT_EQ(nullptr, list.Find(2, second));
    EXPECT_EQ(nullptr, list.Find(7));
    EXPECT_EQ(nullptr, list.FindIndex(6));
    EXPECT_EQ(nullptr, list.FindIndex(-1));
}

TEST(List, WithoutAnElementItThrows)
{
    CIntList list;
    Thrown<CInvalidArgException>([&] { list.GetHead(); });
    Thrown<CInvalidArgException>([&] { list.GetTail(); });
    Thrown<CInvalidArgException>([&] { list.RemoveHead(); });
    Thrown<CInvalidArgException>([&] { list.RemoveTail(); });
    Thrown<CInvalidArgException>([&] { list.GetAt(NULL); });
    Thrown<CInvalidArgException>([&] { list.SetAt(NULL, 1); });
    Thrown<CInvalidArgException>([&] { list.RemoveAt(NULL); });
    Thrown<CInvalidArgException>([&] { list.AddTail(static_cast<CIntList*>(NULL)); });
    POSITION none = NULL;
    Thrown<CInvalidArgException>([&] { list.GetNext(none); });
    Thrown<CInvalidArgException>([&] { list.GetPrev(none); });
}

TEST(List, ItsOwnElementsMayBeArguments)
{
    CList<CString> list(1);
    list.AddTail(L"one");
    list.AddTail(list.GetHead());
    list.AddHead(list.GetTail());
    list.InsertAfter(list.GetHeadPosition(), list.GetHead());
    EXPECT_EQ(4, list.GetCount());
    EXPECT_NE(nullptr, list.Find(list.GetTail()));
}

TEST(List, EndsTheLifeOfItsElements)
{
    const CString text(L"counted");
    {
        CList<CString, const CString&> list;
        for (int i = 0; i < 30; ++i)
            list.AddTail(text);
        list.RemoveHead();
        list.RemoveAt(list.FindIndex(10));
        list.RemoveTail();
    }
    // The only owner writes in place.
    const wchar_t* const block = text.GetString();
    const_cast<CString&>(text).SetAt(0, L'C');
    EXPECT_EQ(block, text.GetString());
}

TEST(PtrList, KeepsPointersInOrder)
{
    int numbers[3];
    CPtrList list;
    list.AddTail(&numbers[1]);
    list.AddTail(&numbers[2]);
    list.AddHead(&numbers[0]);
    EXPECT_EQ(&numbers[0], list.GetHead());
    EXPECT_EQ(&numbers[2], list.GetTail());
    POSITION position = list.GetHeadPosition();
    EXPECT_EQ(&numbers[0], list.GetNext(position));
    EXPECT_EQ(&numbers[1], list.GetAt(position));
    list.GetAt(position) = NULL;
    EXPECT_EQ(position, list.Find(NULL));
    list.RemoveAt(position);
    EXPECT_EQ(2, list.GetCount());
    EXPECT_EQ(nullptr, list.Find(&numbers[1]));
    CPtrList other;
    other.AddTail(&list);
    EXPECT_EQ(&numbers[2], other.RemoveTail());
    EXPECT_EQ(&numbers[0], other.RemoveHead());
    EXPECT_TRUE(other.IsEmpty());
}

TEST(PtrList, EmptiedOneByOneItCanBeFilledAgain)
{
    int numbers[25];
    CPtrList list;
    for (int round = 0; round < 3; ++round) {
        for (int& number : numbers)
            list.AddTail(&number);
        while (!list.IsEmpty())
            list.RemoveTail();
        EXPECT_EQ(nullptr, list.GetHeadPosition());
    }
}

TEST(ObList, KeepsObjectsThatItDoesNotOwn)
{
    CStringArray first;
    CPtrList second;
    CObList list;
    list.AddTail(&first);
    list.InsertAfter(list.GetHeadPosition(), &second);
    EXPECT_EQ(&first, list.GetHead());
    EXPECT_TRUE(list.GetTail()->IsKindOf(RUNTIME_CLASS(CPtrList)));
    EXPECT_EQ(&second, list.RemoveTail());
    const CObList& constant = list;
    EXPECT_EQ(&first, constant.GetHead());
}
