// CString: comparing, searching, cutting, changing.
#include "Thrown.h"

#include "kit/Text.h"

TEST(StringCompare, OrdersByCharacterCodes)
{
    const CString text(L"abc");
    EXPECT_EQ(0, text.Compare(L"abc"));
    EXPECT_LT(text.Compare(L"abd"), 0);
    EXPECT_GT(text.Compare(L"ab"), 0);
    EXPECT_GT(text.Compare(L"ABC"), 0);
    EXPECT_EQ(0, text.CompareNoCase(L"aBC"));
    EXPECT_LT(text.CompareNoCase(L"ABD"), 0);
    EXPECT_EQ(0, text.Collate(L"abc"));
    EXPECT_EQ(0, text.CollateNoCase(L"ABC"));
}

TEST(StringCompare, HasOperatorsForTextsOnEitherSide)
{
    const CString text(L"m");
    const CString same(L"m");
    EXPECT_TRUE(text == same && text == L"m" && L"m" == text && text == "m" && "m" == text);
    EXPECT_TRUE(text == L'm' && L'm' == text && text != L'n');
    EXPECT_TRUE(text != L"n" && L"n" != text && text != "n" && "n" != text && text != CString(L"n"));
    EXPECT_TRUE(text < L"n" && L"l" < text && text < CString(L"n"));
    EXPECT_TRUE(text > L"l" && L"n" > text && text > CString(L"l"));
    EXPECT_TRUE(text <= L"m" && L"m" <= text && text <= same);
    EXPECT_TRUE(text >= L"m" && L"m" >= text && text >= same);
    EXPECT_FALSE(text == L"mm" || text == L'n' || CString(L"mm") == L'm');
}

TEST(StringJoin, TakesTextsAndCharactersOfBothWidths)
{
    const CString text(L"m");
    EXPECT_EQ(L"mm", text + text);
    EXPECT_EQ(L"mx", text + L"x");
    EXPECT_EQ(L"xm", L"x" + text);
    EXPECT_EQ(L"mx", text + L'x');
    EXPECT_EQ(L"xm", L'x' + text);
    EXPECT_EQ(L"mx", text + 'x');
    EXPECT_EQ(L"xm", 'x' + text);
    CString sum(text);
    sum += L"a";
    sum += "b";
    sum += L'c';
    sum += 'd';
    sum += static_cast<unsigned char>('e');
    sum += text;
    EXPECT_EQ(L"mabcdem", sum);
}

TEST(StringFind, GivesTheFirstPlaceFromTheStartOn)
{
    const CString text(L"abcabc");
    EXPECT_EQ(1, text.Find(L"bc"));
    EXPECT_EQ(4, text.Find(L"bc", 2));
    EXPECT_EQ(-1, text.Find(L"bc", 5));
    EXPECT_EQ(-1, text.Find(L"x"));
    EXPECT_EQ(3, text.Find(L'a', 1));
    EXPECT_EQ(-1, text.Find(L'x'));
    EXPECT_EQ(-1, text.Find(L"a", -1));
    EXPECT_EQ(-1, text.Find(L"a", 7));
    EXPECT_EQ(-1, text.Find(L'a', 6));
    EXPECT_EQ(2, text.Find(L"", 2));
}

TEST(StringFind, FromTheEndAndOfSeveralCharacters)
{
    const CString text(L"abcabc");
    EXPECT_EQ(5, text.ReverseFind(L'c'));
    EXPECT_EQ(-1, text.ReverseFind(L'x'));
    EXPECT_EQ(1, text.FindOneOf(L"cb"));
    EXPECT_EQ(-1, text.FindOneOf(L"xyz"));
    EXPECT_EQ(-1, text.FindOneOf(L""));
}

TEST(StringParts, BringStartsAndCountsIntoRange)
{
    const CString text(L"abcdef");
    EXPECT_EQ(L"cd", text.Mid(2, 2));
    EXPECT_EQ(L"cdef", text.Mid(2));
    EXPECT_EQ(L"ab", text.Mid(-3, 2));
    EXPECT_EQ(L"ef", text.Mid(4, 99));
    EXPECT_EQ(L"", text.Mid(9, 2));
    EXPECT_EQ(L"", text.Mid(2, -1));
    EXPECT_EQ(L"abc", text.Left(3));
    EXPECT_EQ(L"abcdef", text.Left(99));
    EXPECT_EQ(L"", text.Left(-1));
    EXPECT_EQ(L"def", text.Right(3));
    EXPECT_EQ(L"abcdef", text.Right(99));
    EXPECT_EQ(L"", text.Right(-1));
    EXPECT_EQ(L"ef", text.Mid(4, 0x7FFFFFFF));
}

TEST(StringParts, TheWholeTextIsShared)
{
    const CString text(L"abc");
    EXPECT_EQ(text.GetString(), text.Left(3).GetString());
    EXPECT_EQ(text.GetString(), text.Mid(0).GetString());
}

TEST(StringSpan, TakesTheLongestBeginning)
{
    const CString text(L"aabbcc");
    EXPECT_EQ(L"aabb", text.SpanIncluding(L"ab"));
    EXPECT_EQ(L"", text.SpanIncluding(L"c"));
    EXPECT_EQ(L"aabb", text.SpanExcluding(L"cx"));
    EXPECT_EQ(L"aabbcc", text.SpanExcluding(L"x"));
    Thrown<CInvalidArgException>([&] { text.SpanIncluding(NULL); });
}

TEST(StringTokenize, SkipsRunsOfSeparators)
{
    const CString text(L",;one, two;;three;");
    CString pieces;
    int position = 0;
    for (CString piece = text.Tokenize(L",;", position); position != -1;
         piece = text.Tokenize(L",;", position))
        pieces += L"[" + piece + L"]";
    EXPECT_EQ(L"[one][ two][three]", pieces);
}

TEST(StringTokenize, EndsWithAnEmptyStringAndMinusOne)
{
    int position = 0;
    EXPECT_EQ(L"", CString(L"").Tokenize(L",", position));
    EXPECT_EQ(-1, position);
    Thrown<CInvalidArgException>([] {
        int negative = -1;
        CString(L"a").Tokenize(L",", negative);
    });
    position = 1;
    EXPECT_EQ(L"bc", CString(L"abc").Tokenize(L"", position));
}

TEST(StringTrim, TakesWhiteSpaceOrTheGivenCharacters)
{
    EXPECT_EQ(L"a b", CString(L" \t\r\na b\n ").Trim());
    EXPECT_EQ(L"a ", CString(L"  a ").TrimLeft());
    EXPECT_EQ(L"  a", CString(L"  a ").TrimRight());
    EXPECT_EQ(L"a", CString(L"xxaxx").Trim(L'x'));
    EXPECT_EQ(L"axx", CString(L"xxaxx").TrimLeft(L'x'));
    EXPECT_EQ(L"xxa", CString(L"xxaxx").TrimRight(L'x'));
    EXPECT_EQ(L"a", CString(L"xyayx").Trim(L"xy"));
    EXPECT_EQ(L"ayx", CString(L"xyayx").TrimLeft(L"xy"));
    EXPECT_EQ(L"xya", CString(L"xyayx").TrimRight(L"xy"));
    EXPECT_EQ(L"", CString(L"   ").Trim());
    EXPECT_EQ(L" a ", CString(L" a ").Trim(L""));
}

TEST(StringInsert, ReturnsTheNewLengthAndBringsTheIndexIntoRange)
{
    CString text(L"bd");
    EXPECT_EQ(3, text.Insert(1, L'c'));
    EXPECT_EQ(4, text.Insert(-5, L"a"));
    EXPECT_EQ(6, text.Insert(99, L"ef"));
    EXPECT_EQ(L"abcdef", text);
    EXPECT_EQ(6, text.Insert(2, L""));
}

TEST(StringDelete, ReturnsTheNewLengthAndBringsTheRangeIn)
{
    CString text(L"abcdef");
    EXPECT_EQ(5, text.Delete(0));
    EXPECT_EQ(3, text.Delete(1, 2));
    EXPECT_EQ(L"bef", text);
    EXPECT_EQ(1, text.Delete(1, 99));
    EXPECT_EQ(1, text.Delete(5));
    EXPECT_EQ(1, text.Delete(0, -1));
    EXPECT_EQ(0, text.Delete(-1, 1));
}

TEST(StringReplace, CountsWhatItReplaced)
{
    CString text(L"aXaXa");
    EXPECT_EQ(2, text.Replace(L"X", L"--"));
    EXPECT_EQ(L"a--a--a", text);
    EXPECT_EQ(2, text.Replace(L"--", L""));
    EXPECT_EQ(L"aaa", text);
    EXPECT_EQ(1, text.Replace(L"aa", L"b"));
    EXPECT_EQ(L"ba", text);
    EXPECT_EQ(0, text.Replace(L"", L"x"));
    EXPECT_EQ(0, text.Replace(L"zz", L"x"));
    EXPECT_EQ(1, text.Replace(L'a', L'c'));
    EXPECT_EQ(0, text.Replace(L'c', L'c'));
    EXPECT_EQ(1, text.Replace(L"c", NULL));
    EXPECT_EQ(L"b", text);
}

TEST(StringReplace, DoesNotLookIntoWhatItInserted)
{
    CString text(L"ab");
    EXPECT_EQ(1, text.Replace(L"a", L"aa"));
    EXPECT_EQ(L"aab", text);
}

TEST(StringRemove, CountsWhatItRemoved)
{
    CString text(L"banana");
    EXPECT_EQ(3, text.Remove(L'a'));
    EXPECT_EQ(L"bnn", text);
    EXPECT_EQ(0, text.Remove(L'x'));
}

TEST(StringCase, ChangesTheLettersOfTheCLocale)
{
    EXPECT_EQ(L"ABC1\u00E9", CString(L"aBc1\u00E9").MakeUpper());
    EXPECT_EQ(L"abc1\u00C9", CString(L"aBc1\u00C9").MakeLower());
    EXPECT_STREQ("ABC", CStringA("abc").MakeUpper());
}

TEST(StringReverse, TurnsTheTextRound)
{
    EXPECT_EQ(L"cba", CString(L"abc").MakeReverse());
    EXPECT_EQ(L"", CString().MakeReverse());
}
