#include "ScratchFolder.h"
#include "VelmUtil22.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace
{

class DebugPrintTest : public testing::Test
{
protected:
    bool Exists() const { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

    std::string Bytes() const
    {
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    CScratchFolder scratch;
    std::wstring path = scratch.File(L"log.txt");
};

} // namespace

TEST_F(DebugPrintTest, MakesTheFileAndAddsNoLineEnd)
{
    DebugPrint(L"one", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "one");
}

TEST_F(DebugPrintTest, AppendsToWhatIsThere)
{
    DebugPrint(L"one", nullptr, path.c_str());
    DebugPrint(L"", nullptr, path.c_str());
    DebugPrint(L" two", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "one two");
}

TEST_F(DebugPrintTest, WritesInTextMode)
{
    DebugPrint(L"a\nb\n", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "a\r\nb\r\n");
}

TEST_F(DebugPrintTest, TakesTheTextAsItIsAndNotAsAFormat)
{
    DebugPrint(L"100%s %d %n", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "100%s %d %n");
}

TEST_F(DebugPrintTest, WritesCharactersOfOneByteAsThatByte)
{
    DebugPrint(L"\u00E9\u00FF", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "\xE9\xFF");
}

TEST_F(DebugPrintTest, EndsBeforeACharacterThatTheLocaleLacks)
{
    DebugPrint(L"a\u20ACb", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "a");
}

TEST_F(DebugPrintTest, WritesLongTextsWhole)
{
    DebugPrint(std::wstring(100'000, L'x').c_str(), nullptr, path.c_str());
    EXPECT_EQ(Bytes(), std::string(100'000, 'x'));
}

TEST_F(DebugPrintTest, ShowsANullText)
{
    DebugPrint(nullptr, nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "(null)");
}

TEST_F(DebugPrintTest, WritesNothingAnywhereWhenAStreamIsGiven)
{
    FILE* const stream = _wfopen(scratch.File(L"stream.txt").c_str(), L"w+b");
    ASSERT_NE(stream, nullptr);
    DebugPrint(L"text", stream, path.c_str());
    std::fflush(stream);
    EXPECT_EQ(std::ftell(stream), 0);
    std::fclose(stream);
    EXPECT_FALSE(Exists());
}

TEST_F(DebugPrintTest, WritesNothingWithoutAPath)
{
    DebugPrint(L"text", nullptr, nullptr);
    EXPECT_FALSE(Exists());
}

TEST_F(DebugPrintTest, IgnoresAFileThatCannotBeOpened)
{
    DebugPrint(L"text", nullptr, scratch.File(L"no such folder\\log.txt").c_str());
    DebugPrint(L"text", nullptr, scratch.Folder().c_str());
    EXPECT_FALSE(Exists());
}

TEST_F(DebugPrintTest, OpensFileNamesBeyondAscii)
{
    path = scratch.File(L"Gr\u00F6\u00DFe \u6F22.txt");
    DebugPrint(L"text", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "text");
}

// An open file could not be removed.
TEST_F(DebugPrintTest, ClosesTheFile)
{
    DebugPrint(L"text", nullptr, path.c_str());
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}
