#include "VelmUtil22.h"
#include "kit/Text.h"

#include <clocale>
#include <cwchar>
#include <gtest/gtest.h>
#include <limits>

TEST(GetStrToDouble, ReadsSignDigitsPointAndExponent)
{
    EXPECT_EQ(GetStrToDouble(L"1.5"), 1.5);
    EXPECT_EQ(GetStrToDouble(L"-2.25"), -2.25);
    EXPECT_EQ(GetStrToDouble(L"+.5"), 0.5);
    EXPECT_EQ(GetStrToDouble(L"5."), 5.0);
    EXPECT_EQ(GetStrToDouble(L"1.5e2"), 150.0);
    EXPECT_EQ(GetStrToDouble(L"25E-2"), 0.25);
}

TEST(GetStrToDouble, SkipsLeadingBlanks)
{
    EXPECT_EQ(GetStrToDouble(L" \t\r\n 7.5"), 7.5);
}

TEST(GetStrToDouble, StopsAtTheFirstCharacterThatDoesNotFit)
{
    EXPECT_EQ(GetStrToDouble(L"12.5kg"), 12.5);
    EXPECT_EQ(GetStrToDouble(L"1,5"), 1.0);
    EXPECT_EQ(GetStrToDouble(L"1.2.3"), 1.2);
}

TEST(GetStrToDouble, GivesZeroForATextWithoutANumber)
{
    EXPECT_EQ(GetStrToDouble(L"abc"), 0.0);
    EXPECT_EQ(GetStrToDouble(L""), 0.0);
    EXPECT_EQ(GetStrToDouble(L"-"), 0.0);
}

TEST(GetStrToDouble, GivesInfinityForWhatIsTooLarge)
{
    EXPECT_EQ(GetStrToDouble(L"1e400"), std::numeric_limits<double>::infinity());
}

TEST(GetStrToFloat, NarrowsToFloat)
{
    EXPECT_EQ(GetStrToFloat(L"0.1"), 0.1f);
    EXPECT_EQ(GetStrToFloat(L"-12.5abc"), -12.5f);
    EXPECT_EQ(GetStrToFloat(L"16777217"), 16777216.0f);
    EXPECT_EQ(GetStrToFloat(L"none"), 0.0f);
}

// The nearest double lies half-way between two floats, and the one that it is rounded to is not the one
// nearest to the text.
TEST(GetStrToFloat, ReadsADoubleFirst)
{
    EXPECT_EQ(GetStrToFloat(L"1.00000017881393432617187499"),
              1.0f + 2 * std::numeric_limits<float>::epsilon());
}

TEST(GetStrToInt, ReadsAnIntegerFromTheStart)
{
    EXPECT_EQ(GetStrToInt(L"  -12abc"), -12);
    EXPECT_EQ(GetStrToInt(L"+5"), 5);
    EXPECT_EQ(GetStrToInt(L"7.9"), 7);
    EXPECT_EQ(GetStrToInt(L"1e3"), 1);
    EXPECT_EQ(GetStrToInt(L"0x1F"), 0);
    EXPECT_EQ(GetStrToInt(L"x1"), 0);
    EXPECT_EQ(GetStrToInt(L""), 0);
}

TEST(GetStrToInt, WidensTheSign)
{
    EXPECT_EQ(GetStrToInt(L"2147483647"), 2147483647);
    EXPECT_EQ(GetStrToInt(L"-2147483648"), -2147483648LL);
    static_assert(sizeof(GetStrToInt(CString())) == 8);
}

TEST(GetStrToInt, HasNoMoreThanThirtyTwoBits)
{
    for (const wchar_t* text : {L"2147483648", L"4294967297", L"-4294967297", L"99999999999999999999"}) {
        const __int64 value = GetStrToInt(text);
        EXPECT_EQ(value, static_cast<int>(value)) << testkit::Utf8(text);
        EXPECT_EQ(value, _wtoi(text)) << testkit::Utf8(text);
    }
}

TEST(GetStrToLong, ReadsAnIntegerFromTheStart)
{
    EXPECT_EQ(GetStrToLong(L"\t-12abc"), -12);
    EXPECT_EQ(GetStrToLong(L"2147483647"), 2147483647);
    EXPECT_EQ(GetStrToLong(L"-2147483648"), -2147483648LL);
    EXPECT_EQ(GetStrToLong(L"abc"), 0);
    static_assert(sizeof(GetStrToLong(CString())) == 8);
}

TEST(GetStrToLong, HasNoMoreThanThirtyTwoBits)
{
    for (const wchar_t* text : {L"2147483648", L"4294967297", L"-4294967297", L"99999999999999999999"}) {
        const __int64 value = GetStrToLong(text);
        EXPECT_EQ(value, static_cast<long>(value)) << testkit::Utf8(text);
        EXPECT_EQ(value, _wtol(text)) << testkit::Utf8(text);
    }
}

TEST(GetStringFrom, WritesIntegersInDecimal)
{
    EXPECT_EQ(GetStringFrom(0), L"0");
    EXPECT_EQ(GetStringFrom(-42), L"-42");
    EXPECT_EQ(GetStringFrom(2147483647), L"2147483647");
    EXPECT_EQ(GetStringFrom(7L), L"7");
    EXPECT_EQ(GetStringFrom(-2147483647L - 1), L"-2147483648");
}

TEST(GetStringFrom, ShowsAFloatWithTwoDecimals)
{
    EXPECT_EQ(GetStringFrom(2.345f), L"2.35");
    EXPECT_EQ(GetStringFrom(1.0f), L"1.00");
    EXPECT_EQ(GetStringFrom(-0.126f), L"-0.13");
    EXPECT_EQ(GetStringFrom(1234567.0f), L"1234567.00");
}

TEST(GetStringFrom, ShowsADoubleWithSixDecimals)
{
    EXPECT_EQ(GetStringFrom(2.0), L"2.000000");
    EXPECT_EQ(GetStringFrom(-1.23456789), L"-1.234568");
    EXPECT_EQ(GetStringFrom(1e15), L"1000000000000000.000000");
}

TEST(GetStringFrom, WritesWhatTheRunTimeLibraryWritesForNumbersThatAreNotFinite)
{
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        wchar_t expected[64] = {};
        _snwprintf(expected, 63, L"%.2f", value);
        EXPECT_STREQ(GetStringFrom(static_cast<float>(value)), expected);
        _snwprintf(expected, 63, L"%.6f", value);
        EXPECT_STREQ(GetStringFrom(value), expected);
        EXPECT_NE(expected[0], L'\0');
    }
}

TEST(GetStringFrom, WritesTheLargestDoubleWhole)
{
    // 309 digits before the point.
    const CString text = GetStringFrom(std::numeric_limits<double>::max());
    EXPECT_EQ(text.GetLength(), 309 + 7);
    EXPECT_EQ(text.Left(17), L"17976931348623157");
}

TEST(Conversions, FollowTheLocaleOfTheProgram)
{
    if (std::setlocale(LC_NUMERIC, "German_Germany.1252") == nullptr)
        GTEST_SKIP() << "the run-time library has no such locale";
    const double read = GetStrToDouble(L"1,5");
    const CString written = GetStringFrom(1.5f);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(read, 1.5);
    EXPECT_EQ(written, L"1,50");
}

TEST(GetNumberFromText, TakesTheNumberInsideAText)
{
    EXPECT_EQ(GetNumberFromText(L"abc12.5kg"), L"12.5");
    EXPECT_EQ(GetNumberFromText(L"12.5"), L"12.5");
    EXPECT_EQ(GetNumberFromText(L"v1.2.3"), L"1.2.3");
}

TEST(GetNumberFromText, TakesOneRunOnly)
{
    EXPECT_EQ(GetNumberFromText(L"a12b34"), L"12");
    EXPECT_EQ(GetNumberFromText(L"-1-2"), L"1");
}

TEST(GetNumberFromText, LetsASecondRunFollowACharacterAtTheVeryStart)
{
    EXPECT_EQ(GetNumberFromText(L"1a2b3"), L"12");
    EXPECT_EQ(GetNumberFromText(L"1abc23d4"), L"123");
    EXPECT_EQ(GetNumberFromText(L".x5y6"), L".5");
}

TEST(GetNumberFromText, JudgesCharactersByTheirLowSevenBits)
{
    EXPECT_EQ(GetNumberFromText(L"20\u00B0C"), L"20\u00B0");
    EXPECT_EQ(GetNumberFromText(L"a1\u00AE5"), L"1\u00AE5");
    EXPECT_EQ(GetNumberFromText(L"x\u0139y"), L"\u0139");
    EXPECT_EQ(GetNumberFromText(L"x\u20B4\u20ACy"), L"\u20B4");
}

TEST(GetNumberFromText, GivesNothingWhereThereIsNoNumberCharacter)
{
    EXPECT_EQ(GetNumberFromText(L""), L"");
    EXPECT_EQ(GetNumberFromText(L"plain letters, +-"), L"");
}

TEST(GetNumberFromText, LooksBehindAnEmbeddedZero)
{
    EXPECT_EQ(GetNumberFromText(CString(L"a\0"
                                        L"12b",
                                        5)),
              L"12");
}
