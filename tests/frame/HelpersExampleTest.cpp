// The example of docs/helpers.md.
#include "VelmUtil22.h"
#include "kit/SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>
#include <vector>

// The example is the whole of this file.
#include "HelpersExample.h"

namespace
{

TEST(HelpersExample, TakesAnOrderApart)
{
    std::vector<__int64> counts;
    EXPECT_THAT(PartsOf(L"Bolt:12; Nut:24 pcs; Washer", counts),
                testing::ElementsAre(L"Bolt", L"Nut", L"Washer"));
    EXPECT_THAT(counts, testing::ElementsAre(12, 24, 1));
}

TEST(HelpersExample, TakesAnEmptyOrderApart)
{
    std::vector<__int64> counts;
    EXPECT_THAT(PartsOf(L"", counts), testing::IsEmpty());
    EXPECT_THAT(counts, testing::IsEmpty());
}

std::vector<CString> Pieces(const wchar_t* text, const wchar_t* separator, bool asTokens)
{
    CStringArray pieces;
    Split2Array(text, separator, pieces, asTokens);
    std::vector<CString> result;
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i)
        result.push_back(pieces[i]);
    return result;
}

TEST(HelpersExamplePage, TellsHowTextsAreSplit)
{
    using testing::ElementsAre;
    using testing::IsEmpty;
    EXPECT_THAT(Pieces(L"a,,b,", L",", true), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Pieces(L"a,,b,", L",", false), ElementsAre(L"a", L"", L"b", L""));
    EXPECT_THAT(Pieces(L"a, b", L", ", true), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Pieces(L"a, b", L", ", false), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Pieces(L"a b, c", L", ", true), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(Pieces(L"a b, c", L", ", false), ElementsAre(L"a b", L"c"));
    EXPECT_THAT(Pieces(L"", L",", true), IsEmpty());
    EXPECT_THAT(Pieces(L"", L",", false), ElementsAre(L""));
    EXPECT_THAT(Pieces(L"abc", L"", true), ElementsAre(L"abc"));
    EXPECT_THAT(Pieces(L"abc", L"", false), ElementsAre(L"abc"));
}

TEST(HelpersExamplePage, ShowsShowsTheCodeThatIsTested)
{
    EXPECT_EQ(testkit::FirstCodeOf(testkit::SourceText(L"docs/helpers.md")),
              testkit::SourceText(L"tests/frame/HelpersExample.h"));
}

} // namespace
