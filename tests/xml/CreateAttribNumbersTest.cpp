// How numbers and flags are written to attributes and read from them.
#include "ExchangeTest.h"

#include <climits>
#include <limits>

namespace
{

class CreateAttribNumbers : public ExchangeTest
{
};

} // namespace

TEST_F(CreateAttribNumbers, WritesIntegersToTheirExtremes)
{
    EXPECT_EQ(Written(0), L"0");
    EXPECT_EQ(Written(INT_MAX), L"2147483647");
    EXPECT_EQ(Written(INT_MIN), L"-2147483648");
    EXPECT_EQ(Written(0L), L"0");
    EXPECT_EQ(Written(LONG_MAX), L"2147483647");
    EXPECT_EQ(Written(LONG_MIN), L"-2147483648");
    EXPECT_EQ(Back(INT_MIN), INT_MIN);
    EXPECT_EQ(Back(INT_MAX), INT_MAX);
    EXPECT_EQ(Back(LONG_MIN), LONG_MIN);
    EXPECT_EQ(Back(LONG_MAX), LONG_MAX);
}

TEST_F(CreateAttribNumbers, ReadsTheIntegerAtTheStartOfAText)
{
    const std::pair<const char*, int> readings[] = {
        {"12", 12},  {"  -12abc", -12}, {"+7", 7},     {"012", 12},
        {"0x1F", 0}, {"1e3", 1},        {"2.9", 2},    {"abc", 0},
        {"", 0},     {"- 1", 0},        {"--1", 0},    {"&#9;&#10;5", 5},
        {"true", 0}, {"1,5", 1},        {"12 34", 12}, {"-2147483648", INT_MIN}};
    for (const auto& [text, number] : readings) {
        EXPECT_EQ(Read(text, 99), number) << text;
        EXPECT_EQ(Read(text, 99L), static_cast<long>(number)) << text;
    }
}

TEST_F(CreateAttribNumbers, IntegersBeyondTheirRangeReadAsTheNearest)
{
    EXPECT_EQ(Read("2147483648", 0), INT_MAX);
    EXPECT_EQ(Read("-2147483649", 0), INT_MIN);
    EXPECT_EQ(Read("99999999999999999999", 0L), LONG_MAX);
    EXPECT_EQ(Read("-99999999999999999999", 0L), LONG_MIN);
}

TEST_F(CreateAttribNumbers, WritesRealNumbersWithThreeDecimals)
{
    const std::pair<double, const wchar_t*> writings[] = {{0.0, L"0.000"},
                                                          {2.5, L"2.500"},
                                                          {1.23456, L"1.235"},
                                                          {1.2344, L"1.234"},
                                                          {-1.23456, L"-1.235"},
                                                          {-0.0004, L"-0.000"},
                                                          {0.0004, L"0.000"},
                                                          {0.0006, L"0.001"},
                                                          {999.9996, L"1000.000"},
                                                          {-0.9999, L"-1.000"},
                                                          {1e-300, L"0.000"},
                                                          {-0.0, L"-0.000"},
                                                          {1e15, L"1000000000000000.000"},
                                                          {123456.789, L"123456.789"},
                                                          {5e-324, L"0.000"}};
    for (const auto& [number, text] : writings)
        EXPECT_EQ(Written(number), text);
}

TEST_F(CreateAttribNumbers, WritesSinglesWithThreeDecimals)
{
    const std::pair<float, const wchar_t*> writings[] = {{0.0f, L"0.000"},
                                                         {2.5f, L"2.500"},
                                                         {1.23456f, L"1.235"},
                                                         {-0.0004f, L"-0.000"},
                                                         {0.1f, L"0.100"},
                                                         {16777216.0f, L"16777216.000"},
                                                         {-1234.5678f, L"-1234.568"},
                                                         {0.0006f, L"0.001"},
                                                         {1e-40f, L"0.000"}};
    for (const auto& [number, text] : writings)
        EXPECT_EQ(Written(number), text);
}

TEST_F(CreateAttribNumbers, MinusZeroReadsBackAsZero)
{
    EXPECT_EQ(Back(-0.0004), 0.0);
    EXPECT_EQ(Back(-0.0004f), 0.0f);
}

TEST_F(CreateAttribNumbers, TheLargestRealNumbersComeBack)
{
    const double largest = std::numeric_limits<double>::max();
    const float largestSingle = std::numeric_limits<float>::max();
    // 309 and 39 digits before the point.
    EXPECT_EQ(Written(largest).size(), 309u + 4);
    EXPECT_EQ(Written(largestSingle).size(), 39u + 4);
    EXPECT_EQ(Back(largest), largest);
    EXPECT_EQ(Back(-largest), -largest);
    EXPECT_EQ(Back(largestSingle), largestSingle);
    EXPECT_EQ(Back(-largestSingle), -largestSingle);
}

TEST_F(CreateAttribNumbers, WhatIsNoFiniteNumberIsWrittenAsTheRunTimeLibraryDoes)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double number : {infinity, -infinity, notANumber}) {
        wchar_t text[64] = L"";
        _snwprintf(text, 63, L"%.3f", number);
        ASSERT_STRNE(text, L"");
        EXPECT_EQ(Written(number), text);
        EXPECT_EQ(Written(static_cast<float>(number)), text);
        EXPECT_EQ(Back(number), _wtof(text));
        EXPECT_EQ(Back(static_cast<float>(number)), static_cast<float>(_wtof(text)));
    }
}

TEST_F(CreateAttribNumbers, ReadsTheRealNumberAtTheStartOfAText)
{
    const std::pair<const char*, double> readings[] = {
        {"2.5", 2.5}, {"  -2.5mm", -2.5}, {"+.5", 0.5}, {"5.", 5.0},    {"1e3", 1000.0}, {"1,5", 1.0},
        {"abc", 0.0}, {"", 0.0},          {"-", 0.0},   {"1E-2", 0.01}, {"0.000", 0.0},  {"1.5.5", 1.5}};
    for (const auto& [text, number] : readings) {
        EXPECT_EQ(Read(text, 99.0), number) << text;
        EXPECT_EQ(Read(text, 99.0f), static_cast<float>(number)) << text;
    }
}

TEST_F(CreateAttribNumbers, RealNumbersBeyondTheirRangeReadAsInfinity)
{
    EXPECT_EQ(Read("1e400", 0.0), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Read("-1e400", 0.0), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(Read("1e39", 0.0f), std::numeric_limits<float>::infinity());
    EXPECT_EQ(Read("1e-400", 9.0), 0.0);
}

TEST_F(CreateAttribNumbers, WritesFlagsAsOneAndZero)
{
    EXPECT_EQ(Written(true), L"1");
    EXPECT_EQ(Written(false), L"0");
    EXPECT_TRUE(Back(true));
    EXPECT_FALSE(Back(false));
}

TEST_F(CreateAttribNumbers, AFlagIsTrueWhereTheTextStartsWithANumberOtherThanZero)
{
    for (const char* text : {"1", "2", "-1", " 10 ", "1no", "99999999999", "2147483648"})
        EXPECT_TRUE(Read(text, false)) << text;
    for (const char* text : {"0", "yes", "true", "TRUE", "", "0.9", "-0", "000", "x1", "."})
        EXPECT_FALSE(Read(text, true)) << text;
}

TEST_F(CreateAttribNumbers, ReadingDoesNotLookAtTheVariable)
{
    CXMLFile file = LoadedAt("<r Width='1'/>");
    file.m_bReadMode = true;
    union
    {
        unsigned char bytes;
        bool flag;
    } unset;
    unset.bytes = 0xCD;
    file.CreateAttrib(Writable(Name), unset.flag);
    EXPECT_EQ(unset.bytes, 1);
}
