#include "kit/Text.h"

#include <gtest/gtest.h>

namespace
{

TEST(Text, GoesToUtf8AndBack)
{
    EXPECT_EQ(testkit::Utf8(L"a\u00fc\u20ac\U0001F600"), "a\xc3\xbc\xe2\x82\xac\xf0\x9f\x98\x80");
    EXPECT_EQ(testkit::Wide("a\xc3\xbc\xe2\x82\xac\xf0\x9f\x98\x80"), L"a\u00fc\u20ac\U0001F600");
    EXPECT_EQ(testkit::Utf8(L""), "");
    EXPECT_EQ(testkit::Wide(""), L"");
}

TEST(Text, InvalidTextBecomesTheReplacementCharacter)
{
    EXPECT_EQ(testkit::Wide("a\xff"), L"a\ufffd");
    const wchar_t lone[] = {L'a', 0xD800, 0};
    EXPECT_EQ(testkit::Utf8(lone), "a\xef\xbf\xbd");
}

TEST(Text, QuotedShowsControlCharacters)
{
    EXPECT_EQ(testkit::Quoted(L"a\r\n\t\x01\"\\\u00fc"), "\"a\\r\\n\\t\\x01\\\"\\\\\xc3\xbc\"");
}

#ifdef TESTKIT_WITH_MFC

TEST(Text, FailureMessagesShowStringsAsText)
{
    EXPECT_EQ(testing::PrintToString(CString(L"text\n")), "\"text\\n\"");
}

#endif

} // namespace
