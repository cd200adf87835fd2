#include "VelmUtil22.h"
#include "kit/Files.h"
#include "kit/Text.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace
{

// The folder of the test program, with its trailing backslash.
std::wstring ProgramFolder()
{
    return (testkit::ProgramFolder() / L"").wstring();
}

// A copy of the probe DLL under a name of the test's own, loaded as long as the object lives.
class CLoadedProbe
{
public:
    explicit CLoadedProbe(const std::wstring& path)
    {
        CopyFileW((ProgramFolder() + L"frame_probe.dll").c_str(), path.c_str(), FALSE);
        m_module = LoadLibraryW(path.c_str());
    }
    ~CLoadedProbe()
    {
        if (m_module != nullptr)
            FreeLibrary(m_module);
    }
    CLoadedProbe(const CLoadedProbe&) = delete;
    CLoadedProbe& operator=(const CLoadedProbe&) = delete;

    HMODULE Module() const { return m_module; }

private:
    HMODULE m_module = nullptr;
};

// Functions that change or only read a name take it as a writable buffer.
CString ProjectPath(std::wstring moduleName)
{
    return GetProjectPath(moduleName.data());
}

// The buffer of 512 characters that GetAppPath is promised, with marks behind it that must stay.
struct AppPathBuffer
{
    std::array<wchar_t, 512> text{};
    std::array<wchar_t, 64> marks;

    explicit AppPathBuffer(const std::wstring& name)
    {
        marks.fill(L'#');
        std::copy(name.begin(), name.end(), text.begin());
        GetAppPath(text.data());
    }
    bool MarksStay() const
    {
        return std::all_of(marks.begin(), marks.end(), [](wchar_t mark) { return mark == L'#'; });
    }
};

// A folder of at least `length` characters, below `folder`, in the form that has no limit.
std::wstring MakeDeepFolder(const std::wstring& folder, size_t length)
{
    std::wstring deep = LR"(\\?\)" + folder;
    while (deep.size() < length) {
        deep += std::wstring(100, L'd');
        CreateDirectoryW(deep.c_str(), nullptr);
        deep += L'\\';
    }
    return deep;
}

} // namespace

TEST(GetAppPath, WritesTheFileNameOfALoadedModule)
{
    const testkit::TempFolder scratch;
    const CLoadedProbe probe((scratch / L"Tool.arx").wstring());
    ASSERT_NE(probe.Module(), nullptr);
    const AppPathBuffer buffer(L"Tool.arx");
    EXPECT_EQ(buffer.text.data(), (scratch / L"Tool.arx").wstring());
    EXPECT_TRUE(buffer.MarksStay());
}

TEST(GetAppPath, TakesTheNameInAnyCaseAndWithoutDll)
{
    const testkit::TempFolder scratch;
    const CLoadedProbe probe((scratch / L"Plain.dll").wstring());
    ASSERT_NE(probe.Module(), nullptr);
    EXPECT_EQ(AppPathBuffer(L"PLAIN").text.data(), (scratch / L"Plain.dll").wstring());
}

TEST(GetAppPath, LeavesTheNameOfAModuleThatIsNotLoaded)
{
    const testkit::TempFolder scratch;
    {
        const CLoadedProbe probe((scratch / L"Gone.arx").wstring());
        ASSERT_NE(probe.Module(), nullptr);
    }
    EXPECT_STREQ(AppPathBuffer(L"Gone.arx").text.data(), L"Gone.arx");
    EXPECT_EQ(GetModuleHandleW(L"Gone.arx"), nullptr);
}

TEST(GetAppPath, LeavesTheBufferWhenTheFileNameDoesNotFit)
{
    const testkit::TempFolder scratch;
    const CLoadedProbe probe(MakeDeepFolder((scratch / L"").wstring(), 600) + L"Deep.arx");
    if (probe.Module() == nullptr)
        GTEST_SKIP() << "the platform does not load modules from such folders";
    const AppPathBuffer buffer(L"Deep.arx");
    EXPECT_STREQ(buffer.text.data(), L"Deep.arx");
    EXPECT_TRUE(buffer.MarksStay());
}

TEST(GetAppPath, FillsTheBufferToItsLastCharacter)
{
    // The loader may or may not count the four characters of the prefix that lifts the limit.
    std::set<size_t> lengths;
    for (const size_t length : {511u, 512u, 515u, 516u}) {
        const testkit::TempFolder scratch;
        std::wstring folder = MakeDeepFolder((scratch / L"").wstring(), 360);
        folder += std::wstring(480 - folder.size(), L'e');
        CreateDirectoryW(folder.c_str(), nullptr);
        const std::wstring name = std::wstring(length - 481 - 4, L'n') + L".arx";
        const CLoadedProbe probe(folder + L"\\" + name);
        if (probe.Module() == nullptr)
            GTEST_SKIP() << "the platform does not load modules from such folders";
        std::array<wchar_t, 1024> loaded{};
        const size_t loadedLength = GetModuleFileNameW(probe.Module(), loaded.data(), 1024);
        lengths.insert(loadedLength);
        const AppPathBuffer buffer(name);
        EXPECT_EQ(std::wstring(buffer.text.data(), wcsnlen(buffer.text.data(), buffer.text.size())),
                  loadedLength <= 511 ? std::wstring(loaded.data()) : name);
        EXPECT_TRUE(buffer.MarksStay());
    }
    EXPECT_THAT(lengths, testing::IsSupersetOf({511u, 512u}));
}

// The marks stand right behind the one character that the empty text is.
TEST(GetAppPath, LeavesAnEmptyBuffer)
{
    std::array<wchar_t, 512> text;
    text.fill(L'#');
    text[0] = L'\0';
    GetAppPath(text.data());
    EXPECT_EQ(text[0], L'\0');
    EXPECT_TRUE(std::all_of(text.begin() + 1, text.end(), [](wchar_t mark) { return mark == L'#'; }));
}

TEST(GetAppPath, AcceptsNull)
{
    GetAppPath(nullptr);
}

TEST(GetProjectPath, GivesTheFolderOfALoadedModule)
{
    const testkit::TempFolder scratch;
    const CLoadedProbe probe((scratch / L"Tool.arx").wstring());
    ASSERT_NE(probe.Module(), nullptr);
    EXPECT_EQ(ProjectPath(L"Tool.arx"), (scratch / L"").wstring().c_str());
    EXPECT_EQ(ProjectPath((scratch / L"Tool.arx").wstring()), (scratch / L"").wstring().c_str());
}

TEST(GetProjectPath, LeavesTheNameAsItWas)
{
    std::wstring name = L"kernel32.dll";
    GetProjectPath(name.data());
    EXPECT_EQ(name, L"kernel32.dll");
}

TEST(GetProjectPath, KeepsCharactersBeyondAscii)
{
    const testkit::TempFolder scratch;
    const std::wstring folder = (scratch / L"Gr\u00F6\u00DFe \u0416 \u6F22").wstring();
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    const CLoadedProbe probe(folder + L"\\\u0422ool \u6F22.arx");
    ASSERT_NE(probe.Module(), nullptr);
    EXPECT_EQ(ProjectPath(L"\u0422ool \u6F22.arx"), (folder + L"\\").c_str());
}

TEST(GetProjectPath, GivesNothingForAModuleThatIsNotLoaded)
{
    EXPECT_EQ(ProjectPath(L"NoSuchModule.arx"), L"");
    EXPECT_EQ(ProjectPath(L""), L"");
}

TEST(GetProjectPath, TakesThePathOfANameWhoseModuleIsNotLoaded)
{
    EXPECT_EQ(ProjectPath(LR"(D:\Apps\Tool\Tool.arx)"), LR"(D:\Apps\Tool\)");
    EXPECT_EQ(ProjectPath(LR"(sub.folder\Tool)"), LR"(sub.folder\)");
    EXPECT_EQ(ProjectPath(L"D:Tool.arx"), L"D:");
    EXPECT_EQ(ProjectPath(LR"(\\server\share\Tool.arx)"), LR"(\\server\share\)");
}

TEST(GetProjectPath, GivesLongFoldersWhole)
{
    const testkit::TempFolder scratch;
    const std::wstring folder = MakeDeepFolder((scratch / L"").wstring(), 700);
    const CLoadedProbe probe(folder + L"Deep.arx");
    if (probe.Module() == nullptr)
        GTEST_SKIP() << "the platform does not load modules from such folders";
    // The loader may leave out the prefix that lifts the limit.
    const std::wstring found = ProjectPath(L"Deep.arx").GetString();
    EXPECT_TRUE(found == folder || LR"(\\?\)" + found == folder) << testkit::Quoted(found);
}

TEST(GetProjectPath, GivesThePathOfALongNameWhole)
{
    const std::wstring folder = L"D:\\" + std::wstring(5000, L'x') + L"\\";
    EXPECT_EQ(ProjectPath(folder + L"NoSuchModule.arx"), folder.c_str());
}

TEST(GetProjectPath, TakesNullForTheRunningProgram)
{
    EXPECT_EQ(GetProjectPath(nullptr), ProgramFolder().c_str());
}

TEST(GetAppDriveAndDir, GivesDriveAndDirectoryOfTheModuleOfThatName)
{
    const testkit::TempFolder scratch;
    const CLoadedProbe probe((scratch / L"VelmUtil.dll").wstring());
    ASSERT_NE(probe.Module(), nullptr);
    CString drive;
    CString dir;
    GetAppDriveAndDir(drive, dir);
    EXPECT_EQ(drive, (scratch / L"").wstring().substr(0, 2).c_str());
    EXPECT_EQ(dir, (scratch / L"").wstring().substr(2).c_str());
    EXPECT_EQ(drive[1], L':');
    EXPECT_EQ(dir[0], L'\\');
}

TEST(GetAppDriveAndDir, GivesNothingUnderAnyOtherFileName)
{
    ASSERT_NE(GetModuleHandleW(L"VelmUtil22.dll"), nullptr);
    const testkit::TempFolder scratch;
    const CLoadedProbe probe((scratch / L"VelmUtil.arx").wstring());
    ASSERT_NE(probe.Module(), nullptr);
    CString drive = L"before";
    CString dir = L"before";
    GetAppDriveAndDir(drive, dir);
    EXPECT_EQ(drive, L"");
    EXPECT_EQ(dir, L"");
}
