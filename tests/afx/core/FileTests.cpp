// CFile and CFileException.
#include "Thrown.h"

#include "kit/Files.h"
#include "kit/Text.h"

#include <cerrno>
#include <memory>

namespace
{

class File : public testing::Test
{
protected:
    testkit::TempFolder folder;

    CString Name(const wchar_t* name) const { return CString((folder / name).c_str()); }
};

} // namespace

TEST_F(File, WritesAndReadsBytes)
{
    {
        CFile file(Name(L"a.bin"), CFile::modeCreate | CFile::modeWrite);
        file.Write("hello", 5);
        EXPECT_EQ(5u, file.GetPosition());
        file.Write(NULL, 0);
    }
    EXPECT_EQ("hello", testkit::ReadBytes(folder / L"a.bin"));
    CFile file(Name(L"a.bin"), CFile::modeRead);
    char buffer[10] = {};
    EXPECT_EQ(5u, file.GetLength());
    EXPECT_EQ(5u, file.Read(buffer, 10));
    EXPECT_STREQ("hello", buffer);
    EXPECT_EQ(0u, file.Read(buffer, 10));
    EXPECT_EQ(0u, file.Read(buffer, 0));
}

TEST_F(File, CreatingEmptiesUnlessToldNotTo)
{
    testkit::WriteBytes(folder / L"a.bin", "12345");
    CFile(Name(L"a.bin"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite).Close();
    EXPECT_EQ("12345", testkit::ReadBytes(folder / L"a.bin"));
    CFile(Name(L"a.bin"), CFile::modeCreate | CFile::modeWrite).Close();
    EXPECT_EQ("", testkit::ReadBytes(folder / L"a.bin"));
    CFile(Name(L"new.bin"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite).Close();
    EXPECT_EQ("", testkit::ReadBytes(folder / L"new.bin"));
}

TEST_F(File, SeeksFromStartPositionAndEnd)
{
    testkit::WriteBytes(folder / L"a.bin", "0123456789");
    CFile file(Name(L"a.bin"), CFile::modeReadWrite);
    EXPECT_EQ(4u, file.Seek(4, CFile::begin));
    EXPECT_EQ(6u, file.Seek(2, CFile::current));
    EXPECT_EQ(7u, file.Seek(-3, CFile::end));
    char digit = 0;
    file.Read(&digit, 1);
    EXPECT_EQ('7', digit);
    EXPECT_EQ(10u, file.SeekToEnd());
    file.SeekToBegin();
    EXPECT_EQ(0u, file.GetPosition());
    file.SetLength(3);
    EXPECT_EQ(3u, file.GetLength());
    EXPECT_EQ(CFileException::badSeek, Thrown<CFileException>([&] { file.Seek(-1, CFile::begin); })->m_cause);
}

TEST_F(File, TellsItsNames)
{
    CFile file(Name(L"name.of.txt"), CFile::modeCreate | CFile::modeWrite);
    EXPECT_EQ(L"name.of.txt", file.GetFileName());
    EXPECT_EQ(L"name.of", file.GetFileTitle());
    EXPECT_EQ(Name(L"name.of.txt"), file.GetFilePath());
    file.Close();
    EXPECT_EQ(L"", file.GetFilePath());
    EXPECT_TRUE(file.m_hFile == CFile::hFileNull);
}

TEST_F(File, OpenTellsWhyItFailed)
{
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(Name(L"missing"), CFile::modeRead, &error));
    EXPECT_EQ(CFileException::fileNotFound, error.m_cause);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, error.m_lOsError);
    EXPECT_EQ(Name(L"missing"), error.m_strFileName);
    EXPECT_FALSE(file.Open(Name(L"no\\folder"), CFile::modeRead, &error));
    EXPECT_EQ(CFileException::badPath, error.m_cause);
    EXPECT_FALSE(file.Open(Name(L"missing"), CFile::modeRead));
}

TEST_F(File, TheConstructorThrowsWhatOpenTells)
{
    const auto error = Thrown<CFileException>([this] { CFile file(Name(L"missing"), CFile::modeRead); });
    EXPECT_EQ(CFileException::fileNotFound, error->m_cause);
    EXPECT_EQ(Name(L"missing"), error->m_strFileName);
}

TEST_F(File, SharesAsItWasOpened)
{
    const CString name = Name(L"a.bin");
    CFile first(name, CFile::modeCreate | CFile::modeWrite | CFile::shareDenyWrite);
    CFile second;
    EXPECT_TRUE(second.Open(name, CFile::modeRead | CFile::shareDenyNone));
    second.Close();
    CFileException error;
    EXPECT_FALSE(second.Open(name, CFile::modeWrite | CFile::shareDenyNone, &error));
    EXPECT_EQ(CFileException::sharingViolation, error.m_cause);
    EXPECT_FALSE(second.Open(name, CFile::modeRead | CFile::shareExclusive));
}

TEST_F(File, WritingToAFileOpenForReadingThrows)
{
    testkit::WriteBytes(folder / L"a.bin", "x");
    CFile file(Name(L"a.bin"), CFile::modeRead);
    const auto error = Thrown<CFileException>([&] { file.Write("y", 1); });
    EXPECT_EQ(CFileException::accessDenied, error->m_cause);
    EXPECT_EQ(Name(L"a.bin"), error->m_strFileName);
}

TEST_F(File, WithNothingOpenItThrows)
{
    CFile file;
    char byte = 0;
    EXPECT_EQ(CFileException::invalidFile, Thrown<CFileException>([&] { file.Read(&byte, 1); })->m_cause);
    EXPECT_EQ(CFileException::invalidFile, Thrown<CFileException>([&] { file.GetLength(); })->m_cause);
    file.Flush();
    file.Close();
    file.Abort();
}

TEST_F(File, ClosesWhatItOpenedAndLeavesWhatItWasGiven)
{
    const CString name = Name(L"a.bin");
    HANDLE handle = NULL;
    {
        CFile file(name, CFile::modeCreate | CFile::modeWrite);
        const std::unique_ptr<CFile> duplicate(file.Duplicate());
        duplicate->Write("x", 1);
        EXPECT_EQ(1u, file.GetPosition());
        handle = file;
    }
    DWORD flags = 0;
    EXPECT_FALSE(GetHandleInformation(handle, &flags));
    handle = CreateFileW(name, GENERIC_READ, FILE_SHARE_READ, NULL, OPEN_EXISTING, 0, NULL);
    ASSERT_NE(INVALID_HANDLE_VALUE, handle);
    {
        CFile file(handle);
        EXPECT_EQ(1u, file.GetLength());
    }
    EXPECT_TRUE(GetHandleInformation(handle, &flags));
    CFile(handle).Close();
    EXPECT_FALSE(GetHandleInformation(handle, &flags));
}

TEST_F(File, LocksAndUnlocksARange)
{
    const CString name = Name(L"a.bin");
    testkit::WriteBytes(folder / L"a.bin", "0123456789");
    CFile first(name, CFile::modeReadWrite | CFile::shareDenyNone);
    CFile second(name, CFile::modeReadWrite | CFile::shareDenyNone);
    first.LockRange(2, 3);
    EXPECT_EQ(CFileException::lockViolation,
              Thrown<CFileException>([&] { second.LockRange(4, 1); })->m_cause);
    first.UnlockRange(2, 3);
    second.LockRange(4, 1);
    second.UnlockRange(4, 1);
}

TEST_F(File, RenamesAndRemoves)
{
    testkit::WriteBytes(folder / L"a.bin", "x");
    CFile::Rename(Name(L"a.bin"), Name(L"b.bin"));
    EXPECT_EQ("x", testkit::ReadBytes(folder / L"b.bin"));
    CFile::Remove(Name(L"b.bin"));
    EXPECT_EQ(CFileException::fileNotFound,
              Thrown<CFileException>([this] { CFile::Remove(Name(L"b.bin")); })->m_cause);
    EXPECT_EQ(CFileException::fileNotFound,
              Thrown<CFileException>([this] { CFile::Rename(Name(L"b.bin"), Name(L"c.bin")); })->m_cause);
}

TEST_F(File, TellsAndSetsItsStatus)
{
    const CString name = Name(L"a.bin");
    testkit::WriteBytes(folder / L"a.bin", "12345");
    CFileStatus status;
    EXPECT_FALSE(CFile::GetStatus(Name(L"missing"), status));
    ASSERT_TRUE(CFile::GetStatus(name, status));
    EXPECT_EQ(5u, status.m_size);
    EXPECT_EQ(name, status.m_szFullName);
    EXPECT_LT(CTime(946684800), status.m_mtime);
    EXPECT_EQ(0, status.m_attribute & FILE_ATTRIBUTE_READONLY);

    // 2001-09-09 01:46:40 UTC.
    status.m_mtime = CTime(1000000000);
    status.m_attribute |= FILE_ATTRIBUTE_READONLY;
    CFile::SetStatus(name, status);
    CFileStatus changed;
    {
        CFile file(name, CFile::modeRead);
        ASSERT_TRUE(file.GetStatus(changed));
    }
    EXPECT_EQ(1000000000, changed.m_mtime.GetTime());
    EXPECT_NE(0, changed.m_attribute & FILE_ATTRIBUTE_READONLY);
    changed.m_attribute = FILE_ATTRIBUTE_NORMAL;
    changed.m_mtime = CTime();
    CFile::SetStatus(name, changed);
    ASSERT_TRUE(CFile::GetStatus(name, status));
    EXPECT_EQ(0, status.m_attribute & FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(1000000000, status.m_mtime.GetTime());
}

TEST(FileException, SortsErrorsIntoCauses)
{
    EXPECT_EQ(CFileException::none, CFileException::OsErrorToException(NO_ERROR));
    EXPECT_EQ(CFileException::badPath, CFileException::OsErrorToException(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(CFileException::accessDenied, CFileException::OsErrorToException(ERROR_ACCESS_DENIED));
    EXPECT_EQ(CFileException::sharingViolation, CFileException::OsErrorToException(ERROR_SHARING_VIOLATION));
    EXPECT_EQ(CFileException::diskFull, CFileException::OsErrorToException(ERROR_DISK_FULL));
    EXPECT_EQ(CFileException::genericException, CFileException::OsErrorToException(123456));
    EXPECT_EQ(CFileException::fileNotFound, CFileException::ErrnoToException(ENOENT));
    EXPECT_EQ(CFileException::accessDenied, CFileException::ErrnoToException(EACCES));
    EXPECT_EQ(CFileException::diskFull, CFileException::ErrnoToException(ENOSPC));
    EXPECT_EQ(CFileException::genericException, CFileException::ErrnoToException(9999));
    const auto error = Thrown<CFileException>([] { CFileException::ThrowOsError(ERROR_DISK_FULL, L"f"); });
    EXPECT_EQ(CFileException::diskFull, error->m_cause);
    EXPECT_EQ(ERROR_DISK_FULL, error->m_lOsError);
    EXPECT_EQ(CFileException::fileNotFound,
              Thrown<CFileException>([] { CFileException::ThrowErrno(ENOENT); })->m_cause);
}

TEST(FileException, ItsMessageNamesTheFile)
{
    wchar_t buffer[300];
    for (int cause = CFileException::none; cause <= CFileException::endOfFile; ++cause) {
        EXPECT_TRUE(CFileException(cause, -1, L"C:\\x\\y.txt").GetErrorMessage(buffer, 300));
        EXPECT_TRUE(wcsstr(buffer, L"C:\\x\\y.txt") != NULL) << cause;
        EXPECT_TRUE(CFileException(cause).GetErrorMessage(buffer, 300));
        EXPECT_TRUE(wcsstr(buffer, L"unnamed") != NULL) << cause;
    }
    EXPECT_TRUE(CFileException(CFileException::diskFull).GetErrorMessage(buffer, 5));
    EXPECT_EQ(4u, wcslen(buffer));
    EXPECT_FALSE(CFileException(99).GetErrorMessage(buffer, 5));
}
