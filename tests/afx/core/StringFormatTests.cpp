// CString: formatting, resources, the system's strings.
#include "Thrown.h"
#include "resource.h"

#include "kit/Text.h"

TEST(StringFormat, UsesThePlatformsWideConventions)
{
    CString text;
    text.Format(L"%s|%S|%hs|%ls|%c", L"wide", "narrow", "short", L"long", L'\u20AC');
    EXPECT_EQ(L"wide|narrow|short|long|\u20AC", text);
    CStringA narrow;
    narrow.Format("%s|%S|%ls", "narrow", L"wide", L"long");
    EXPECT_STREQ("narrow|wide|long", narrow);
}

TEST(StringFormat, FormatsNumbers)
{
    CString text;
    text.Format(L"%d %ld %I64d %u %x %05.1f %%", -1, 2L, 1234567890123LL, 3u, 255, 2.25 + 0.01);
    EXPECT_EQ(L"-1 2 1234567890123 3 ff 002.3 %", text);
}

TEST(StringFormat, HasNoLimitOfLength)
{
    const CString part(L'x', 5000);
    CString text;
    text.Format(L"<%s%s>", part.GetString(), part.GetString());
    EXPECT_EQ(10002, text.GetLength());
    EXPECT_EQ(L'>', text[10001]);
}

TEST(StringFormat, AppendsToTheText)
{
    CString text(L"a");
    text.AppendFormat(L"%d", 1);
    text.AppendFormat(L"%s", L"b");
    EXPECT_EQ(L"a1b", text);
}

TEST(StringFormat, ReplacesWhatWasThere)
{
    CString text(L"long text before");
    const CString copy(text);
    text.Format(L"%d", 7);
    EXPECT_EQ(L"7", text);
    text.Format(L"%s", L"");
    EXPECT_EQ(L"", text);
    EXPECT_EQ(L"long text before", copy);
}

TEST(StringFormat, TakesItsFormatFromAResource)
{
    CString text;
    text.Format(IDS_FORMAT, 3, L"three");
    EXPECT_EQ(L"3 is three", text);
    text.AppendFormat(IDS_FORMAT, 4, L"four");
    EXPECT_EQ(L"3 is three4 is four", text);
    Thrown<CInvalidArgException>([&] { text.Format(IDS_NOWHERE, 1); });
    Thrown<CInvalidArgException>([&] { text.Format(static_cast<const wchar_t*>(NULL)); });
}

TEST(StringFormatMessage, InsertsByNumber)
{
    CString text;
    text.FormatMessage(L"%2!s! before %1!d!", 5, L"b");
    EXPECT_EQ(L"b before 5", text);
    text.FormatMessage(L"%1", text.GetString());
    EXPECT_EQ(L"b before 5", text);
}

TEST(StringLoadString, LoadsOrLeavesTheTextAlone)
{
    CString text(L"before");
    EXPECT_FALSE(text.LoadString(IDS_NOWHERE));
    EXPECT_EQ(L"before", text);
    EXPECT_TRUE(text.LoadString(IDS_PROGRAM));
    EXPECT_EQ(L"from the program: \u20AC", text);
    EXPECT_TRUE(text.LoadString(GetModuleHandle(NULL), IDS_FORMAT));
    EXPECT_EQ(L"%d is %s", text);
    CStringA narrow;
    EXPECT_TRUE(narrow.LoadString(IDS_PROGRAM));
    EXPECT_STREQ("from the program: \x80", narrow);
}

TEST(StringLoadString, ANumberInPlaceOfATextLoadsThatResource)
{
    EXPECT_EQ(L"%d is %s", CString(MAKEINTRESOURCEW(IDS_FORMAT)));
    EXPECT_STREQ("%d is %s", CStringA(MAKEINTRESOURCEA(IDS_FORMAT)));
    EXPECT_EQ(L"", CString(MAKEINTRESOURCEW(IDS_NOWHERE)));
}

TEST(StringSystem, GivesAndReplacesSystemStrings)
{
    const CString text(L"a\0b", 3);
    BSTR string = text.AllocSysString();
    EXPECT_EQ(3u, SysStringLen(string));
    const BSTR replaced = CString(L"other").SetSysString(&string);
    EXPECT_EQ(replaced, string);
    EXPECT_STREQ(L"other", string);
    SysFreeString(string);
    BSTR narrow = CStringA("\x80").AllocSysString();
    EXPECT_STREQ(L"\u20AC", narrow);
    SysFreeString(narrow);
}

TEST(StringSystem, ReadsEnvironmentVariables)
{
    ASSERT_TRUE(SetEnvironmentVariableW(L"AFX_CORE_TEST", CString(L'v', 700)));
    CString text(L"x");
    EXPECT_TRUE(text.GetEnvironmentVariable(L"AFX_CORE_TEST"));
    EXPECT_EQ(CString(L'v', 700), text);
    SetEnvironmentVariableW(L"AFX_CORE_TEST", NULL);
    EXPECT_FALSE(text.GetEnvironmentVariable(L"AFX_CORE_TEST"));
    EXPECT_EQ(L"", text);
}
