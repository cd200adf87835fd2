// What `velmmenu new` writes.
#include "MenuToolTest.h"

namespace menutool
{

using testing::HasSubstr;

using Starter = MenuToolTest;

TEST_F(Starter, PassesTheCheckAndBuildsEveryKindOfEntry)
{
    const std::wstring file = NameOf(L"new.xml");
    const auto made = Run({L"new", file});
    EXPECT_EQ(0u, made.exitCode);
    EXPECT_EQ("", made.output);
    const auto checked = Run({L"check", file});
    EXPECT_EQ(0u, checked.exitCode);
    EXPECT_EQ("", checked.output);
    const auto shown = Run({L"show", file});
    for (const char* kind : {"  item ", "  separator\n", "  cascade ", "  button ", "  fly-out "})
        EXPECT_THAT(shown.output, HasSubstr(kind));
}

TEST_F(Starter, GoesToTheOutputWithoutAFile)
{
    const std::wstring file = NameOf(L"new.xml");
    Run({L"new", file});
    const auto printed = Run({L"new"});
    EXPECT_EQ(0u, printed.exitCode);
    EXPECT_EQ(testkit::ReadBytes(file), printed.output);
}

TEST_F(Starter, NeverTouchesAFileThatExists)
{
    const std::wstring file = Write(L"mine.xml", "mine");
    const auto result = Run({L"new", file});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("mine.xml: exists already, and stays as it is"));
    EXPECT_EQ("mine", testkit::ReadBytes(file));
}

TEST_F(Starter, TellsWhenItCannotBeWritten)
{
    const auto result = Run({L"new", NameOf(L"nowhere\\new.xml")});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("cannot be written"));
}

} // namespace menutool
