#include "VelmUtil22.h"
#include "kit/Files.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace
{

// Counts what the run-time library takes for invalid parameters, as long as the object lives.
class CInvalidParameters
{
public:
    CInvalidParameters() : m_before(_set_invalid_parameter_handler(Note)) { s_count = 0; }
    ~CInvalidParameters() { _set_invalid_parameter_handler(m_before); }
    CInvalidParameters(const CInvalidParameters&) = delete;
    CInvalidParameters& operator=(const CInvalidParameters&) = delete;

    static int Count() { return s_count; }

private:
    static void __cdecl Note(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t)
    {
        ++s_count;
    }

    static inline int s_count = 0;
    _invalid_parameter_handler m_before;
};

// Makes a folder the current one, as long as the object lives.
class CCurrentFolder
{
public:
    explicit CCurrentFolder(const std::filesystem::path& folder) : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~CCurrentFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path(m_before, ignored);
    }
    CCurrentFolder(const CCurrentFolder&) = delete;
    CCurrentFolder& operator=(const CCurrentFolder&) = delete;

private:
    std::filesystem::path m_before;
};

class DebugPrintTest : public testing::Test
{
protected:
    bool Exists() const { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

    std::string Bytes() const
    {
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    testkit::TempFolder scratch;
    std::wstring path = (scratch / L"log.txt").wstring();
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
    FILE* const stream = _wfopen((scratch / L"stream.txt").wstring().c_str(), L"w+b");
    ASSERT_NE(stream, nullptr);
    DebugPrint(L"text", stream, path.c_str());
    std::fflush(stream);
    EXPECT_EQ(std::ftell(stream), 0);
    std::fclose(stream);
    EXPECT_FALSE(Exists());
}

TEST_F(DebugPrintTest, WritesNothingWithoutAPath)
{
    const CInvalidParameters invalid;
    {
        const CCurrentFolder current(scratch.Path());
        errno = 0;
        DebugPrint(L"text", nullptr, nullptr);
        EXPECT_EQ(errno, 0); // nobody tried to open it
    }
    EXPECT_EQ(invalid.Count(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(scratch.Path()));
}

TEST_F(DebugPrintTest, IgnoresAFileThatCannotBeOpened)
{
    const CInvalidParameters invalid;
    DebugPrint(L"text", nullptr, (scratch / L"no such folder\\log.txt").wstring().c_str());
    DebugPrint(L"text", nullptr, (scratch / L"").wstring().c_str());
    EXPECT_TRUE(std::filesystem::is_empty(scratch.Path()));
    testkit::WriteBytes(path, "kept");
    // Somebody who shares it with nobody.
    const HANDLE holder = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    DebugPrint(L"text", nullptr, path.c_str());
    CloseHandle(holder);
    EXPECT_EQ(Bytes(), "kept");
    EXPECT_EQ(invalid.Count(), 0);
}

TEST_F(DebugPrintTest, OpensFileNamesBeyondAscii)
{
    path = (scratch / L"Gr\u00F6\u00DFe \u6F22.txt").wstring();
    DebugPrint(L"text", nullptr, path.c_str());
    EXPECT_EQ(Bytes(), "text");
}

// An open file could not be removed.
TEST_F(DebugPrintTest, ClosesTheFile)
{
    DebugPrint(L"text", nullptr, path.c_str());
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}
