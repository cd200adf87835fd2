// CStdioFile.
#include "Thrown.h"

#include "kit/Files.h"
#include "kit/Text.h"

namespace
{

class StdioFile : public testing::Test
{
protected:
    testkit::TempFolder folder;

    CString Name(const wchar_t* name) const { return CString((folder / name).c_str()); }
};

} // namespace

TEST_F(StdioFile, TranslatesLineEndsInText)
{
    {
        CStdioFile file(Name(L"a.txt"), CFile::modeCreate | CFile::modeWrite | CFile::typeText);
        file.WriteString(L"one\ntwo");
    }
    EXPECT_EQ("one\r\ntwo", testkit::ReadBytes(folder / L"a.txt"));
    CStdioFile file(Name(L"a.txt"), CFile::modeRead);
    CString line;
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(L"one", line);
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(L"two", line);
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_EQ(L"", line);
}

TEST_F(StdioFile, ReadsEmptyAndLongLines)
{
    testkit::WriteBytes(folder / L"a.txt", "\r\n" + std::string(1000, 'x') + "\r\n");
    CStdioFile file(Name(L"a.txt"), CFile::modeRead | CFile::typeText);
    CString line(L"before");
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(L"", line);
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(CString(L'x', 1000), line);
    EXPECT_FALSE(file.ReadString(line));
}

TEST_F(StdioFile, ReadsIntoABufferWithTheLineEnd)
{
    testkit::WriteBytes(folder / L"a.txt", "abcdef\r\ng");
    CStdioFile file(Name(L"a.txt"), CFile::modeRead | CFile::typeText);
    wchar_t buffer[5];
    EXPECT_EQ(buffer, file.ReadString(buffer, 5));
    EXPECT_STREQ(L"abcd", buffer);
    EXPECT_EQ(buffer, file.ReadString(buffer, 5));
    EXPECT_STREQ(L"ef\n", buffer);
    EXPECT_EQ(buffer, file.ReadString(buffer, 5));
    EXPECT_STREQ(L"g", buffer);
    EXPECT_EQ(nullptr, file.ReadString(buffer, 5));
}

TEST_F(StdioFile, LeavesBytesAloneInBinary)
{
    {
        CStdioFile file(Name(L"a.bin"), CFile::modeCreate | CFile::modeReadWrite | CFile::typeBinary);
        file.Write("a\nb\r\n", 5);
        EXPECT_EQ(5u, file.GetLength());
        EXPECT_EQ(5u, file.GetPosition());
        EXPECT_EQ(1u, file.Seek(1, CFile::begin));
        char bytes[10] = {};
        EXPECT_EQ(4u, file.Read(bytes, 10));
        EXPECT_STREQ("\nb\r\n", bytes);
        file.Flush();
    }
    EXPECT_EQ("a\nb\r\n", testkit::ReadBytes(folder / L"a.bin"));
}

TEST_F(StdioFile, ClosesItsStreamAndForgetsIt)
{
    CStdioFile file(Name(L"a.txt"), CFile::modeCreate | CFile::modeWrite);
    file.WriteString(L"x");
    file.Close();
    EXPECT_EQ(nullptr, file.m_pStream);
    EXPECT_TRUE(file.m_hFile == CFile::hFileNull);
    EXPECT_EQ("x", testkit::ReadBytes(folder / L"a.txt"));
    CFile::Remove(Name(L"a.txt"));
    file.Close();
}

TEST_F(StdioFile, FailsAsCFileDoes)
{
    EXPECT_EQ(CFileException::fileNotFound, Thrown<CFileException>([this] {
                                                CStdioFile file(Name(L"missing"), CFile::modeRead);
                                            })->m_cause);
    CStdioFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(Name(L"missing"), CFile::modeRead, &error));
    EXPECT_EQ(CFileException::fileNotFound, error.m_cause);
    Thrown<CInvalidArgException>([&] { file.WriteString(L"x"); });
    Thrown<CNotSupportedException>([&] { file.Duplicate(); });
    Thrown<CNotSupportedException>([&] { file.LockRange(0, 1); });
    Thrown<CNotSupportedException>([&] { file.UnlockRange(0, 1); });
}

TEST_F(StdioFile, UsesAStreamThatIsOpen)
{
    FILE* stream = _wfopen(Name(L"a.txt"), L"w");
    ASSERT_TRUE(stream != NULL);
    {
        CStdioFile file(stream);
        file.WriteString(L"through both");
    }
    fputs("\n", stream);
    fclose(stream);
    EXPECT_EQ("through both\r\n", testkit::ReadBytes(folder / L"a.txt"));
}
