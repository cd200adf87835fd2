// What the library does where the platform denies a file. Run by as-ordinary-user, which makes the files.
#include <VelmUtil22.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"

namespace
{

// What stands in each file.
constexpr char Content[] = "<r a=\"as it was\"/>";

// A folder with a file that may be neither read nor written, one that may be read, and a folder that may be.
class DeniedAccess : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(SUCCEEDED(::CoInitialize(nullptr)));
        const wchar_t* const folder = ::_wgetenv(L"VELM_DENIED_FOLDER");
        ASSERT_NE(folder, nullptr) << "VELM_DENIED_FOLDER names no folder";
        m_folder = folder;
    }
    void TearDown() override { ::CoUninitialize(); }

    // The tests are about nothing where the user may do everything.
    static testing::AssertionResult IsDenied(const std::filesystem::path& file, DWORD access,
                                             DWORD disposition = OPEN_EXISTING)
    {
        const HANDLE handle = ::CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                            disposition, 0, nullptr);
        const DWORD error = ::GetLastError();
        if (handle != INVALID_HANDLE_VALUE) {
            ::CloseHandle(handle);
            return testing::AssertionFailure() << "this user may open " << file;
        }
        if (error != ERROR_ACCESS_DENIED)
            return testing::AssertionFailure() << file << " is refused by error " << error;
        return testing::AssertionSuccess();
    }

    // Saves a document there; the result code of what that raises.
    static HRESULT Save(const std::filesystem::path& file)
    {
        const testkit::TempFolder other;
        testkit::WriteBytes(other / L"other.xml", "<other/>");
        CXMLFile document(CString((other / L"other.xml").c_str()));
        EXPECT_TRUE(document.LoadFile());
        document.SetXMLFilePath(CString(file.c_str()));
        try {
            document.SaveDocument();
        } catch (const _com_error& error) {
            return error.Error();
        }
        return S_OK;
    }

    std::filesystem::path m_folder;
    testkit::MessageBoxWatch m_boxes;
};

TEST_F(DeniedAccess, AFileThatCannotBeReadGivesAnEmptyDocumentInSilence)
{
    const std::filesystem::path file = m_folder / L"unreadable.xml";
    ASSERT_TRUE(IsDenied(file, GENERIC_READ));
    CXMLFile document(CString(file.c_str()));
    EXPECT_FALSE(document.LoadFile());
    ASSERT_NE(document.m_pXMLDoc, nullptr);
    VARIANT_BOOL hasChildren = VARIANT_TRUE;
    document.m_pXMLDoc->hasChildNodes(&hasChildren);
    EXPECT_EQ(hasChildren, VARIANT_FALSE);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(DeniedAccess, AFileThatMayOnlyBeReadLoads)
{
    CXMLFile document(CString((m_folder / L"readable.xml").c_str()));
    EXPECT_TRUE(document.LoadFile());
    wchar_t name[] = L"a";
    EXPECT_EQ(document.GetAttrib(L"/r", name), L"as it was");
}

TEST_F(DeniedAccess, SavingOverAFileThatMayOnlyBeReadRaisesAndLeavesIt)
{
    const std::filesystem::path file = m_folder / L"readable.xml";
    ASSERT_TRUE(IsDenied(file, GENERIC_WRITE));
    EXPECT_TRUE(FAILED(Save(file)));
    EXPECT_EQ(testkit::ReadBytes(file), Content);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(DeniedAccess, SavingIntoAFolderThatMayOnlyBeReadRaisesAndMakesNothing)
{
    const std::filesystem::path folder = m_folder / L"folder";
    ASSERT_TRUE(IsDenied(folder / L"new.xml", GENERIC_WRITE, CREATE_NEW));
    EXPECT_TRUE(FAILED(Save(folder / L"new.xml")));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(DeniedAccess, ALogThatMayOnlyBeReadStaysAsItWas)
{
    const std::filesystem::path file = m_folder / L"readable.xml", made = m_folder / L"folder" / L"new.txt";
    DebugPrint(L"a line\n", nullptr, file.c_str());
    DebugPrint(L"a line\n", nullptr, made.c_str());
    EXPECT_EQ(testkit::ReadBytes(file), Content);
    EXPECT_FALSE(std::filesystem::exists(made));
}

} // namespace
