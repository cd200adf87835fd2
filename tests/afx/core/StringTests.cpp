// CString: what it holds, sharing and copying, buffers, growth.
#include "Thrown.h"

#include "kit/Text.h"

#include <string>
#include <thread>
#include <vector>

TEST(StringObject, IsOnePointerLarge)
{
    EXPECT_EQ(sizeof(void*), sizeof(CString));
    EXPECT_EQ(sizeof(void*), sizeof(CStringA));
}

TEST(StringObject, NullPointersGiveEmptyTexts)
{
    const wchar_t* wide = NULL;
    const char* narrow = NULL;
    EXPECT_TRUE(CString(wide).IsEmpty());
    EXPECT_TRUE(CString(narrow).IsEmpty());
    CString text(L"x");
    text = wide;
    EXPECT_EQ(0, text.GetLength());
    text = L"x";
    text = narrow;
    EXPECT_EQ(0, text.GetLength());
    text += wide;
    EXPECT_EQ(L"", text);
    EXPECT_EQ(L"a", L"a" + CString(wide));
    EXPECT_TRUE(text == wide);
    EXPECT_EQ(0, text.Compare(wide));
    EXPECT_EQ(-1, text.Find(wide));
}

TEST(StringObject, IsMadeOfARepeatedCharacter)
{
    EXPECT_EQ(L"xxx", CString(L'x', 3));
    EXPECT_EQ(L"yy", CString('y', 2));
    EXPECT_EQ(L"z", CString(L'z'));
    EXPECT_EQ(L"", CString(L'x', 0));
    EXPECT_EQ(L"", CString(L'x', -1));
}

TEST(StringObject, IsMadeOfTheFirstCharactersOfAText)
{
    EXPECT_EQ(L"ab", CString(L"abc", 2));
    EXPECT_EQ(L"ab", CString("abc", 2));
    EXPECT_EQ(3, CString(L"a\0b", 3).GetLength());
    Thrown<CInvalidArgException>([] { CString(L"a", -1); });
}

TEST(StringObject, ConvertsBetweenTheWidthsByTheAnsiCodePage)
{
    ASSERT_EQ(1252u, GetACP());
    const CString wide("\xE9\x80");
    ASSERT_EQ(2, wide.GetLength());
    EXPECT_EQ(0x00E9, wide[0]);
    EXPECT_EQ(0x20AC, wide[1]);
    EXPECT_STREQ("\xE9\x80", CStringA(wide));
    EXPECT_EQ(3, CStringA(L"a\0b", 3).GetLength());
}

TEST(StringObject, TakesAVariantsValueAsText)
{
    VARIANT number;
    number.vt = VT_I4;
    number.lVal = -12;
    EXPECT_EQ(L"-12", CString(number));
    VARIANT none;
    none.vt = VT_NULL;
    EXPECT_EQ(L"", CString(none));
    VARIANT text;
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(3, CString(text).GetLength());
    CString assigned(L"x");
    assigned = text;
    EXPECT_EQ(3, assigned.GetLength());
    VariantClear(&text);
}

TEST(StringSharing, CopiesShareOneTextUntilOneChanges)
{
    const CString first(L"one");
    CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString());
    second.SetAt(0, L'O');
    EXPECT_NE(first.GetString(), second.GetString());
    EXPECT_EQ(L"one", first);
    EXPECT_EQ(L"One", second);
}

TEST(StringSharing, EveryWayOfWritingLeavesTheCopyAlone)
{
    const CString original(L"text");
    std::vector<CString> copies(12, original);
    copies[0] += L"x";
    copies[1].AppendChar(L'x');
    copies[2].Insert(0, L"x");
    copies[3].Delete(0);
    copies[4].Replace(L't', L'x');
    copies[5].Remove(L't');
    copies[6].MakeUpper();
    copies[7].MakeReverse();
    copies[8].GetBuffer()[0] = L'x';
    copies[9].Truncate(1);
    copies[10].TrimRight(L't');
    copies[11].Empty();
    EXPECT_EQ(L"text", original);
    for (const CString& copy : copies)
        EXPECT_NE(original, copy);
}

TEST(StringSharing, AMovedStringsTextIsTheTargets)
{
    CString source(L"a text that is long enough to have a block");
    const wchar_t* const block = source.GetString();
    CString made(std::move(source));
    EXPECT_EQ(block, made.GetString());
    EXPECT_TRUE(source.IsEmpty());
    CString assigned(L"old");
    assigned = std::move(made);
    EXPECT_EQ(block, assigned.GetString());
}

TEST(StringSharing, AssigningToItselfKeepsTheText)
{
    CString text(L"same");
    CString& alias = text;
    text = alias;
    EXPECT_EQ(L"same", text);
    text = text.GetString();
    EXPECT_EQ(L"same", text);
    text = text.GetString() + 2;
    EXPECT_EQ(L"me", text);
}

TEST(StringSharing, ALockedBufferIsNotShared)
{
    CString locked(L"lock");
    const wchar_t* const buffer = locked.LockBuffer();
    const CString copy(locked);
    EXPECT_NE(buffer, copy.GetString());
    EXPECT_EQ(L"lock", copy);
    locked.UnlockBuffer();
    const CString shared(locked);
    EXPECT_EQ(buffer, shared.GetString());
}

TEST(StringSharing, ThreadsMayCopyAndDropTheSameText)
{
    const CString text(L"shared by all");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&text] {
            for (int n = 0; n < 20000; ++n) {
                CString copy(text);
                const CString again(copy);
                if (n % 16 == 0)
                    copy += L"!";
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(L"shared by all", text);
    // Nobody else counts as an owner any more, so the text is changed where it lies.
    const wchar_t* const block = text.GetString();
    const_cast<CString&>(text).SetAt(0, L'S');
    EXPECT_EQ(block, text.GetString());
}

TEST(StringAliasing, AppendingAStringToItselfDoublesIt)
{
    CString text(L"abc");
    text += text;
    EXPECT_EQ(L"abcabc", text);
    for (int i = 0; i < 10; ++i)
        text += text;
    EXPECT_EQ(6 * 1024, text.GetLength());
    EXPECT_EQ(L"cabcab", text.Mid(6 * 1024 - 7, 6));
}

TEST(StringAliasing, APartOfTheStringMayBeAppended)
{
    CString text(L"abcd");
    const CString copy(text);
    text.Append(text.GetString() + 1, 2);
    EXPECT_EQ(L"abcdbc", text);
    EXPECT_EQ(L"abcd", copy);
    text += text.GetString() + 4;
    EXPECT_EQ(L"abcdbcbc", text);
}

TEST(StringAliasing, AStringMayBeInsertedIntoItself)
{
    CString text(L"abc");
    EXPECT_EQ(6, text.Insert(0, text));
    EXPECT_EQ(L"abcabc", text);
    EXPECT_EQ(9, text.Insert(1, text.GetString() + 3));
    EXPECT_EQ(L"aabcbcabc", text);
}

TEST(StringAliasing, ReplaceAndFormatMayUsePartsOfTheString)
{
    CString text(L"a.b");
    EXPECT_EQ(1, text.Replace(L".", text));
    EXPECT_EQ(L"aa.bb", text);
    text.Format(L"<%s>", text.GetString());
    EXPECT_EQ(L"<aa.bb>", text);
    text.AppendFormat(L"%s", text.GetString());
    EXPECT_EQ(L"<aa.bb><aa.bb>", text);
}

TEST(StringGrowth, AppendingCharactersRarelyMovesTheText)
{
    CString text;
    int moves = 0;
    const wchar_t* block = text.GetString();
    int allocated = text.GetAllocLength();
    for (int i = 0; i < 100000; ++i) {
        text += L'x';
        if (text.GetAllocLength() != allocated) {
            ++moves;
            allocated = text.GetAllocLength();
        }
        block = text.GetString();
    }
    EXPECT_EQ(100000, text.GetLength());
    EXPECT_EQ(0, block[100000]);
    // Room grows by a constant factor: some 25 steps from 1 to 100000 at half as much again.
    EXPECT_LT(moves, 40);
}

TEST(StringGrowth, PreallocatedRoomIsUsedAndFreeExtraGivesItBack)
{
    CString text(L"abc");
    text.Preallocate(1000);
    EXPECT_EQ(L"abc", text);
    EXPECT_GE(text.GetAllocLength(), 1000);
    const wchar_t* const block = text.GetString();
    for (int i = 0; i < 900; ++i)
        text += L'x';
    EXPECT_EQ(block, text.GetString());
    text.Truncate(3);
    text.FreeExtra();
    EXPECT_LT(text.GetAllocLength(), 100);
    EXPECT_EQ(L"abc", text);
}

TEST(StringBuffer, HasTheRoomAskedFor)
{
    CString text(L"ab");
    wchar_t* buffer = text.GetBuffer(100);
    EXPECT_STREQ(L"ab", buffer);
    wcscpy(buffer, L"written");
    text.ReleaseBuffer();
    EXPECT_EQ(L"written", text);
    text.GetBuffer();
    text.ReleaseBuffer(3);
    EXPECT_EQ(L"wri", text);
    buffer = text.GetBufferSetLength(5);
    EXPECT_EQ(5, text.GetLength());
    EXPECT_EQ(0, buffer[5]);
}

TEST(StringBuffer, RefusesLengthsOutOfRange)
{
    CString text(L"ab");
    Thrown<CInvalidArgException>([&] { text.GetBuffer(-1); });
    Thrown<CInvalidArgException>([&] { text.GetBufferSetLength(-1); });
    Thrown<CInvalidArgException>([&] { text.ReleaseBufferSetLength(-1); });
    Thrown<CInvalidArgException>([&] { text.ReleaseBufferSetLength(text.GetAllocLength() + 1); });
    Thrown<CInvalidArgException>([&] { text.Truncate(3); });
    EXPECT_EQ(L"ab", text);
}

TEST(StringBuffer, OfAnEmptyStringIsNobodyElses)
{
    CString first;
    CString second;
    first.GetBuffer(4)[0] = L'x';
    first.ReleaseBuffer(1);
    EXPECT_EQ(L"x", first);
    EXPECT_EQ(L"", second);
    EXPECT_EQ(L"", CString());
}

TEST(StringCharacters, AreCheckedByIndex)
{
    CString text(L"ab");
    EXPECT_EQ(L'b', text.GetAt(1));
    EXPECT_EQ(0, text[2]);
    Thrown<CInvalidArgException>([&] { text.GetAt(3); });
    Thrown<CInvalidArgException>([&] { text.GetAt(-1); });
    Thrown<CInvalidArgException>([&] { text.SetAt(2, L'x'); });
    Thrown<CInvalidArgException>([&] { text.SetAt(-1, L'x'); });
}

TEST(StringLength, CountsZerosInside)
{
    CString text(L"a\0b", 3);
    text += CString(L"\0c", 2);
    EXPECT_EQ(5, text.GetLength());
    EXPECT_EQ(L'c', text[4]);
    text.SetString(L"\0\0", 2);
    EXPECT_EQ(2, text.GetLength());
}

TEST(StringEmpty, FreesTheText)
{
    CString text(L"text");
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(0, text.GetAllocLength());
    EXPECT_STREQ(L"", text);
}
