#include "VelmUtil22.h"
#include "kit/Text.h"

#include <cwchar>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

using Pieces = std::vector<std::wstring>;

Pieces PiecesOf(const CStringArray& array)
{
    Pieces pieces;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        pieces.emplace_back(array[i].GetString(), array[i].GetLength());
    return pieces;
}

Pieces Split(const CString& text, const CString& delimiter, bool asTokens)
{
    CStringArray out;
    out.Add(L"from before");
    Split2Array(text, delimiter, out, asTokens);
    return PiecesOf(out);
}

Pieces Tokens(const CString& text, const CString& delimiter)
{
    return Split(text, delimiter, true);
}

Pieces Whole(const CString& text, const CString& delimiter)
{
    return Split(text, delimiter, false);
}

// The run-time library's own tokenizer.
Pieces TokensByRunTime(std::wstring text, const std::wstring& delimiter)
{
    Pieces pieces;
    wchar_t* state = nullptr;
    for (wchar_t* p = wcstok_s(text.data(), delimiter.c_str(), &state); p != nullptr;
         p = wcstok_s(nullptr, delimiter.c_str(), &state))
        pieces.push_back(p);
    return pieces;
}

// The tokenizer that keeps its state in the run-time library, between the calls and for all its users.
wchar_t* SharedToken(wchar_t* textOrNull, const wchar_t* delimiter)
{
#ifdef __MINGW32__
    return std::wcstok(textOrNull, delimiter);
#else
    return std::wcstok(textOrNull, delimiter, nullptr);
#endif
}

// The rule itself: cut off what stands before the first separator, again and again.
Pieces WholeByRule(std::wstring text, const std::wstring& separator)
{
    Pieces pieces;
    for (size_t at; (at = text.find(separator)) != text.npos; text.erase(0, at + separator.size()))
        pieces.push_back(text.substr(0, at));
    pieces.push_back(text);
    return pieces;
}

std::vector<std::wstring> AllTexts(const std::wstring& alphabet, size_t most)
{
    std::vector<std::wstring> texts = {L""};
    for (size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].size() == most)
            break;
        for (const wchar_t character : alphabet)
            texts.push_back(texts[i] + character);
    }
    return texts;
}

} // namespace

TEST(Split2ArrayTokens, SkipsEmptyPieces)
{
    EXPECT_THAT(Tokens(L"a;b;;c", L";"), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(Tokens(L";;a;", L";"), ElementsAre(L"a"));
    EXPECT_THAT(Tokens(L";;;", L";"), IsEmpty());
}

TEST(Split2ArrayTokens, TakesEveryCharacterOfTheDelimiterAsASeparator)
{
    EXPECT_THAT(Tokens(L"a, b;c", L",; "), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(Tokens(L"a\u20ACb\u2211c", L"\u20AC\u2211"), ElementsAre(L"a", L"b", L"c"));
}

TEST(Split2ArrayTokens, TakesTheWholeTextWithoutADelimiter)
{
    EXPECT_THAT(Tokens(L"a;b", L""), ElementsAre(L"a;b"));
    EXPECT_THAT(Tokens(L"", L""), IsEmpty());
}

TEST(Split2ArrayTokens, GivesNothingForAnEmptyText)
{
    EXPECT_THAT(Tokens(L"", L";"), IsEmpty());
}

TEST(Split2ArrayTokens, EndsAtAnEmbeddedZero)
{
    EXPECT_THAT(Tokens(CString(L"a;b\0;c", 6), L";"), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Tokens(L"a;b,c", CString(L";\0,", 3)), ElementsAre(L"a", L"b,c"));
}

TEST(Split2ArrayTokens, AgreesWithTheRunTimeLibrary)
{
    for (const std::wstring& text : AllTexts(L"a,;\u0430", 6)) {
        for (const wchar_t* delimiter : {L"", L",", L",;", L";a", L"\u0430", L"x"}) {
            ASSERT_EQ(Tokens(text.c_str(), delimiter), TokensByRunTime(text, delimiter))
                << testkit::Quoted(text) << " at " << testkit::Quoted(delimiter);
        }
    }
}

TEST(Split2ArrayTokens, LeavesTheSharedTokenizerAlone)
{
    wchar_t text[] = L"one two";
    ASSERT_STREQ(SharedToken(text, L" "), L"one");
    EXPECT_THAT(Tokens(L"a;b", L";"), ElementsAre(L"a", L"b"));
    EXPECT_STREQ(SharedToken(nullptr, L" "), L"two");
    EXPECT_EQ(SharedToken(nullptr, L" "), nullptr);
}

TEST(Split2ArrayWhole, KeepsEmptyPieces)
{
    EXPECT_THAT(Whole(L"a;b;;c", L";"), ElementsAre(L"a", L"b", L"", L"c"));
    EXPECT_THAT(Whole(L"a,,b", L","), ElementsAre(L"a", L"", L"b"));
    EXPECT_THAT(Whole(L"a,", L","), ElementsAre(L"a", L""));
    EXPECT_THAT(Whole(L",", L","), ElementsAre(L"", L""));
    EXPECT_THAT(Whole(L"", L","), ElementsAre(L""));
}

TEST(Split2ArrayWhole, TakesTheDelimiterAsOneSeparator)
{
    EXPECT_THAT(Whole(L"a, b,c, d", L", "), ElementsAre(L"a", L"b,c", L"d"));
    EXPECT_THAT(Whole(L"a\U0001F600b", L"\U0001F600"), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Whole(L"short", L"longer than the text"), ElementsAre(L"short"));
}

TEST(Split2ArrayWhole, DoesNotLetSeparatorsOverlap)
{
    EXPECT_THAT(Whole(L"aaa", L"aa"), ElementsAre(L"", L"a"));
    EXPECT_THAT(Whole(L"ababab", L"aba"), ElementsAre(L"", L"bab"));
}

TEST(Split2ArrayWhole, TakesTheWholeTextForAnEmptySeparator)
{
    EXPECT_THAT(Whole(L"a;b", L""), ElementsAre(L"a;b"));
    EXPECT_THAT(Whole(L"", L""), ElementsAre(L""));
}

TEST(Split2ArrayWhole, KeepsWhatStandsBehindAnEmbeddedZeroUnsplit)
{
    EXPECT_THAT(Whole(CString(L"a;b\0;c", 6), L";"), ElementsAre(L"a", std::wstring(L"b\0;c", 4)));
    EXPECT_THAT(Whole(L"a;b", CString(L"\0;", 2)), ElementsAre(L"a;b"));
}

TEST(Split2ArrayWhole, AgreesWithCuttingOffPieceByPiece)
{
    for (const std::wstring& text : AllTexts(L"ab,", 7)) {
        for (const wchar_t* separator : {L",", L"a", L"ab", L",,", L"aba", L"x"}) {
            ASSERT_EQ(Whole(text.c_str(), separator), WholeByRule(text, separator))
                << testkit::Quoted(text) << " at " << testkit::Quoted(separator);
        }
    }
}

TEST(Split2Array, EmptiesTheArrayFirst)
{
    CStringArray out;
    out.Add(L"1");
    out.Add(L"2");
    out.Add(L"3");
    Split2Array(L"", L";", out, true);
    EXPECT_EQ(out.GetSize(), 0);
    out.Add(L"1");
    Split2Array(L"x", L";", out, false);
    EXPECT_THAT(PiecesOf(out), ElementsAre(L"x"));
}

TEST(Split2Array, MaySplitATextOfTheArrayItself)
{
    CStringArray out;
    out.Add(L"a;b");
    Split2Array(out[0], L";", out, true);
    EXPECT_THAT(PiecesOf(out), ElementsAre(L"a", L"b"));
    out.SetAt(0, L"c;d");
    Split2Array(out[0], L";", out, false);
    EXPECT_THAT(PiecesOf(out), ElementsAre(L"c", L"d"));
}

TEST(Split2Array, SplitsTenMegabytesIntoAMillionPieces)
{
    // Four characters and a separator each, two bytes a character.
    std::wstring text;
    for (int i = 0; i < 1'000'000; ++i) {
        text += std::to_wstring(1000 + i % 9000);
        text += L';';
    }
    for (const bool asTokens : {true, false}) {
        CStringArray out;
        Split2Array(text.c_str(), L";", out, asTokens);
        ASSERT_EQ(out.GetSize(), asTokens ? 1'000'000 : 1'000'001);
        for (int i = 0; i < 1'000'000; ++i)
            ASSERT_EQ(out[i], std::to_wstring(1000 + i % 9000).c_str()) << i;
    }
}
