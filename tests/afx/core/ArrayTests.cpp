// CArray, CStringArray and CPtrArray.
#include "Thrown.h"

#include <afxcoll.h>
#include <atltypes.h>

#include "kit/Text.h"

#include <string>

static CString Joined(const CStringArray& array)
{
    CString text;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        text += array[i] + L"|";
    return text;
}

static void Fill(CStringArray& array, const wchar_t* characters)
{
    for (; *characters != 0; ++characters)
        array.Add(CString(*characters));
}

TEST(StringArray, AddGivesTheIndex)
{
    CStringArray array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(-1, array.GetUpperBound());
    EXPECT_EQ(0, array.Add(L"a"));
    EXPECT_EQ(1, array.Add(CString(L"b")));
    EXPECT_EQ(2, array.Add(static_cast<const wchar_t*>(NULL)));
    EXPECT_EQ(3, array.GetSize());
    EXPECT_EQ(3, array.GetCount());
    EXPECT_EQ(2, array.GetUpperBound());
    EXPECT_EQ(L"a|b||", Joined(array));
    EXPECT_EQ(L"b", array.GetData()[1]);
}

TEST(StringArray, SharesTheTextsItIsGiven)
{
    const CString text(L"shared");
    CStringArray array;
    array.Add(text);
    EXPECT_EQ(text.GetString(), array[0].GetString());
}

TEST(StringArray, AnIndexOutOfRangeThrows)
{
    CStringArray array;
    array.Add(L"a");
    const CStringArray& constant = array;
    Thrown<CInvalidArgException>([&] { array.GetAt(1); });
    Thrown<CInvalidArgException>([&] { array.GetAt(-1); });
    Thrown<CInvalidArgException>([&] { array[1] = L"x"; });
    Thrown<CInvalidArgException>([&] { (void)constant[-1]; });
    Thrown<CInvalidArgException>([&] { array.ElementAt(1); });
    Thrown<CInvalidArgException>([&] { array.SetAt(1, L"x"); });
    Thrown<CInvalidArgException>([&] { array.SetAt(-1, CString(L"x")); });
    Thrown<CInvalidArgException>([&] { array.SetAtGrow(-1, L"x"); });
    Thrown<CInvalidArgException>([&] { array.InsertAt(-1, L"x"); });
    Thrown<CInvalidArgException>([&] { array.InsertAt(0, L"x", 0); });
    Thrown<CInvalidArgException>([&] { array.InsertAt(0, static_cast<CStringArray*>(NULL)); });
    Thrown<CInvalidArgException>([&] { array.RemoveAt(-1); });
    Thrown<CInvalidArgException>([&] { array.RemoveAt(1); });
    Thrown<CInvalidArgException>([&] { array.RemoveAt(0, 2); });
    Thrown<CInvalidArgException>([&] { array.RemoveAt(0, -1); });
    Thrown<CInvalidArgException>([&] { array.SetSize(-1); });
    EXPECT_EQ(L"a|", Joined(array));
}

TEST(StringArray, SetAtGrowMakesRoom)
{
    CStringArray array;
    array.SetAtGrow(2, L"c");
    EXPECT_EQ(L"||c|", Joined(array));
    array.SetAtGrow(0, CString(L"a"));
    array.SetAtGrow(3, L"d");
    EXPECT_EQ(L"a||c|d|", Joined(array));
}

TEST(StringArray, InsertsCopiesAndWholeArrays)
{
    CStringArray array;
    Fill(array, L"ad");
    array.InsertAt(1, L"x", 2);
    EXPECT_EQ(L"a|x|x|d|", Joined(array));
    CStringArray other;
    Fill(other, L"12");
    array.InsertAt(1, &other);
    EXPECT_EQ(L"a|1|2|x|x|d|", Joined(array));
    array.InsertAt(7, L"far");
    EXPECT_EQ(L"a|1|2|x|x|d||far|", Joined(array));
    other.InsertAt(1, &other);
    EXPECT_EQ(L"1|1|2|2|", Joined(other));
}

TEST(StringArray, RemovesARange)
{
    CStringArray array;
    Fill(array, L"abcde");
    array.RemoveAt(1, 2);
    EXPECT_EQ(L"a|d|e|", Joined(array));
    array.RemoveAt(2);
    EXPECT_EQ(L"a|d|", Joined(array));
    array.RemoveAt(2, 0);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(nullptr, array.GetData());
}

TEST(StringArray, AppendsAndCopies)
{
    CStringArray array;
    Fill(array, L"ab");
    CStringArray other;
    Fill(other, L"cd");
    EXPECT_EQ(2, array.Append(other));
    EXPECT_EQ(L"a|b|c|d|", Joined(array));
    EXPECT_EQ(4, array.Append(array));
    EXPECT_EQ(L"a|b|c|d|a|b|c|d|", Joined(array));
    array.Copy(other);
    EXPECT_EQ(L"c|d|", Joined(array));
    array.Copy(array);
    EXPECT_EQ(L"c|d|", Joined(array));
}

TEST(StringArray, SetSizeDropsOrAddsEmptyTexts)
{
    CStringArray array;
    Fill(array, L"abc");
    array.SetSize(1);
    array.SetSize(3);
    EXPECT_EQ(L"a|||", Joined(array));
    array.FreeExtra();
    EXPECT_EQ(L"a|||", Joined(array));
}

TEST(StringArray, ItsOwnElementsMayBeArguments)
{
    CStringArray array;
    array.Add(L"first");
    for (int i = 0; i < 100; ++i)
        array.Add(array[0]);
    for (int i = 0; i < 100; ++i)
        array.InsertAt(0, array[array.GetUpperBound()]);
    array.SetAtGrow(300, array[0]);
    for (INT_PTR i = 0; i < 201; ++i)
        ASSERT_EQ(L"first", array[i]);
    EXPECT_EQ(L"first", array[300]);
    array.SetAt(0, array[0].GetString() + 1);
    EXPECT_EQ(L"irst", array[0]);
}

// An array whose memory can be watched.
class CWatchedArray : public CArray<int, int>
{
public:
    INT_PTR Room() const { return m_nMaxSize; }
};

TEST(Array, GrowsByTheNumberThatItWasTold)
{
    CWatchedArray array;
    array.SetSize(10, 5);
    EXPECT_EQ(10, array.Room());
    array.Add(1);
    EXPECT_EQ(15, array.Room());
    array.SetSize(16);
    EXPECT_EQ(20, array.Room());
    array.SetSize(100);
    EXPECT_EQ(100, array.Room());
    array.SetSize(3);
    EXPECT_EQ(100, array.Room());
    array.FreeExtra();
    EXPECT_EQ(3, array.Room());
}

TEST(Array, GrowsByAFactorOfItsOwnAccord)
{
    CWatchedArray array;
    int moves = 0;
    INT_PTR room = 0;
    for (int i = 0; i < 100000; ++i) {
        array.Add(i);
        if (array.Room() != room) {
            ++moves;
            room = array.Room();
        }
    }
    EXPECT_LT(moves, 40);
    EXPECT_EQ(99999, array[99999]);
}

TEST(Array, NewElementsAreZero)
{
    CArray<int, int> numbers;
    numbers.SetSize(100);
    for (INT_PTR i = 0; i < 100; ++i)
        ASSERT_EQ(0, numbers[i]);
    numbers.SetSize(50);
    numbers[49] = 7;
    numbers.SetSize(49);
    numbers.SetSize(50);
    EXPECT_EQ(0, numbers[49]);
}

TEST(Array, TakesArgumentsAsItsSecondParameterSays)
{
    CArray<CPoint, CPoint&> points;
    CPoint point(1, 2);
    points.Add(point);
    points.SetAtGrow(2, point);
    points.InsertAt(1, point, 2);
    ASSERT_EQ(5, points.GetSize());
    EXPECT_TRUE(points[3] == CPoint(0, 0));
    EXPECT_TRUE(points[4] == point);
    Thrown<CInvalidArgException>([&] { points.GetAt(5); });
}

TEST(Array, ElementsThatPointIntoThemselvesSurviveGrowth)
{
    CArray<std::string> array;
    for (int i = 0; i < 100; ++i)
        array.InsertAt(i / 2, std::to_string(i));
    array.RemoveAt(0, 10);
    array.FreeExtra();
    ASSERT_EQ(90, array.GetSize());
    EXPECT_EQ("21", array[0]);
    EXPECT_EQ("99", array[39]);
    EXPECT_EQ("0", array[89]);
    array.Add(array[0]);
    EXPECT_EQ("21", array[90]);
}

// Counts the objects that live.
class Counted
{
public:
    static inline int alive = 0;
    Counted() { ++alive; }
    Counted(const Counted&) { ++alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --alive; }
};

TEST(Array, EndsTheLifeOfEachElementOnce)
{
    {
        CArray<Counted> array;
        array.SetSize(10);
        array.Add(Counted());
        EXPECT_EQ(11, Counted::alive);
        array.InsertAt(3, Counted(), 4);
        EXPECT_EQ(15, Counted::alive);
        array.RemoveAt(0, 5);
        EXPECT_EQ(10, Counted::alive);
        array.SetSize(7);
        EXPECT_EQ(7, Counted::alive);
        array.FreeExtra();
        array.Append(array);
        EXPECT_EQ(14, Counted::alive);
        array.RemoveAll();
        EXPECT_EQ(0, Counted::alive);
        array.SetSize(2);
    }
    EXPECT_EQ(0, Counted::alive);
}

TEST(PtrArray, KeepsPointers)
{
    int numbers[3];
    CPtrArray array;
    array.Add(&numbers[0]);
    array.InsertAt(0, &numbers[1]);
    array.SetAtGrow(3, &numbers[2]);
    EXPECT_EQ(&numbers[1], array[0]);
    EXPECT_EQ(&numbers[0], array.GetAt(1));
    EXPECT_EQ(nullptr, array[2]);
    EXPECT_EQ(&numbers[2], array.ElementAt(3));
    array[2] = &numbers[2];
    array.RemoveAt(0, 2);
    EXPECT_EQ(&numbers[2], array.GetData()[0]);
    CPtrArray copy;
    copy.Copy(array);
    copy.Append(array);
    EXPECT_EQ(4, copy.GetSize());
    Thrown<CInvalidArgException>([&] { array.GetAt(2); });
}
