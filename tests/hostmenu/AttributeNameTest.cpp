// The names of attributes that are written out at compile time.
#include "hostmenu/EntryAttributes.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

std::wstring AsRead(BSTR name)
{
    return std::wstring(name, SysStringLen(name));
}

} // namespace

TEST(CAttributeName, HasItsLengthBeforeTheText)
{
    EXPECT_EQ(AsRead(NameAttribute.AsBstr()), L"Name");
    EXPECT_EQ(AsRead(CommandAttribute.AsBstr()), L"Cmd");
    EXPECT_EQ(AsRead(HelpAttribute.AsBstr()), L"Help");
    EXPECT_EQ(AsRead(ToolTipAttribute.AsBstr()), L"ToolTip");
    EXPECT_EQ(AsRead(ImageListAttribute.AsBstr()), L"ImageList");
}

TEST(CAttributeName, CountsItsLengthInBytes)
{
    EXPECT_EQ(SysStringByteLen(NameAttribute.AsBstr()), 8u);
    EXPECT_EQ(SysStringByteLen(ImageListAttribute.AsBstr()), 18u);
}

TEST(CAttributeName, EndsInAZero)
{
    EXPECT_STREQ(CommandAttribute.AsBstr(), L"Cmd");
    EXPECT_STREQ(ImageListAttribute.AsBstr(), L"ImageList");
}
