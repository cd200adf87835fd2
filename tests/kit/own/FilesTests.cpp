#include "kit/Files.h"

#include "kit/ChildProgram.h"

#include <gtest/gtest.h>

namespace
{

TEST(TempFolder, GoesWithAllThatIsInIt)
{
    std::filesystem::path path;
    {
        const testkit::TempFolder folder;
        path = folder.Path();
        EXPECT_TRUE(std::filesystem::is_empty(path));
        std::filesystem::create_directories(folder / L"a\\b");
        testkit::WriteBytes(folder / L"a\\b\\file.txt", "text");
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(TempFolder, EachIsAnother)
{
    const testkit::TempFolder a, b;
    EXPECT_NE(a.Path(), b.Path());
}

TEST(Files, BytesComeBackAsWritten)
{
    using namespace std::string_view_literals;
    const testkit::TempFolder folder;
    const auto bytes = "line\r\nline\n\x1a\0\xff"sv;
    testkit::WriteBytes(folder / L"n\u00e4me.bin", bytes);
    EXPECT_EQ(testkit::ReadBytes(folder / L"n\u00e4me.bin"), bytes);
}

TEST(Files, FailuresAreThrown)
{
    const testkit::TempFolder folder;
    EXPECT_THROW(testkit::WriteBytes(folder / L"missing\\file", "x"), std::runtime_error);
    EXPECT_THROW(testkit::ReadBytes(folder / L"missing"), std::runtime_error);
}

TEST(RunProgram, TellsThatAProgramDoesNotStart)
{
    const testkit::TempFolder folder;
    EXPECT_FALSE(testkit::RunProgram(folder / L"none.exe", {}).ended);
}

TEST(RunProgram, CollectsTheOutput)
{
    const auto result = testkit::RunProgram(testkit::ThisProgram(), {L"--gtest_list_tests"});
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.exitCode, 0u);
    EXPECT_NE(result.output.find("RunProgram.\n  TellsThatAProgramDoesNotStart\n"), std::string::npos);
}

} // namespace
