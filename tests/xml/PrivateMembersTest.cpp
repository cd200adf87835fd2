// The private members of CXMLFile: the text of a resource, and the file beside the library.
#include "ResourceModules.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// An explicit instantiation may name a private member; the friend it defines hands the member out.
template <class Tag, typename Tag::Member Pointer>
struct Opened
{
    friend typename Tag::Member MemberOf(Tag) { return Pointer; }
};

struct StringOfResource
{
    using Member = CString (CXMLFile::*)(unsigned __int64, CString);
    friend Member MemberOf(StringOfResource);
};
template struct Opened<StringOfResource, &CXMLFile::GetStringFromResource>;

struct TempFileWriter
{
    using Member = void (CXMLFile::*)(CString, CString);
    friend Member MemberOf(TempFileWriter);
};
template struct Opened<TempFileWriter, &CXMLFile::WriteTempFile>;

// With all its characters: a comparison of CString objects ends at the first zero.
std::wstring StringFrom(unsigned __int64 id, const CString& type = L"XML")
{
    CXMLFile file;
    const CString text = (file.*MemberOf(StringOfResource()))(id, type);
    EXPECT_FALSE(file.m_pXMLDoc);
    return {text.GetString(), static_cast<size_t>(text.GetLength())};
}

void Write(const CString& text, const CString& fileName)
{
    CXMLFile file;
    (file.*MemberOf(TempFileWriter()))(text, fileName);
}

// Text with its zeros.
CString Text(std::wstring_view text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

using namespace std::string_view_literals;

class GetStringFromResource : public XmlTest
{
protected:
    void SetUp() override
    {
        ASSERT_NE(m_named.Module(), nullptr);
        ASSERT_EQ(GetModuleHandleW(L"VelmUtil"), m_named.Module());
        ASSERT_NE(m_other.Module(), nullptr);
    }

    CLoadedModule m_named{ModulesFolder() / L"VelmUtil.dll"};
    CLoadedModule m_other{ModulesFolder() / L"xml_resources.dll"};
};

class GetStringFromResourceWithoutModule : public XmlTest
{
    void SetUp() override { ASSERT_EQ(GetModuleHandleW(L"VelmUtil"), nullptr); }
};

// A working directory for as long as the object lives.
class CWorkingDirectory
{
public:
    explicit CWorkingDirectory(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
    ~CWorkingDirectory()
    {
        std::error_code ignored;
        std::filesystem::current_path(m_former, ignored);
    }
    CWorkingDirectory(const CWorkingDirectory&) = delete;
    CWorkingDirectory& operator=(const CWorkingDirectory&) = delete;

private:
    std::filesystem::path m_former = std::filesystem::current_path();
};

// An existing file, opened as long as the object lives.
class CFileHandle
{
public:
    CFileHandle(const std::filesystem::path& path, DWORD access, DWORD share)
        : m_file(CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr))
    {
    }
    ~CFileHandle()
    {
        if (IsOpen())
            CloseHandle(m_file);
    }
    CFileHandle(const CFileHandle&) = delete;
    CFileHandle& operator=(const CFileHandle&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_file;
};

// Whether the platform makes a file of that name; it is gone again afterwards.
bool CanMakeFile(const std::filesystem::path& path)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file);
}

// Makes a file read-only as long as the object lives: such a file cannot be removed.
class CReadOnly
{
public:
    explicit CReadOnly(const std::filesystem::path& path) : m_path(path)
    {
        EXPECT_TRUE(SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_READONLY));
    }
    ~CReadOnly() { SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_NORMAL); }
    CReadOnly(const CReadOnly&) = delete;
    CReadOnly& operator=(const CReadOnly&) = delete;

private:
    std::filesystem::path m_path;
};

// The names of what lies in a folder, and below it, as paths from there.
std::vector<std::wstring> EntriesOf(const std::filesystem::path& folder)
{
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        names.push_back(entry.path().lexically_relative(folder).wstring());
    return names;
}

// The library's name is borne by a module in a folder of the test's own, beside which the files appear;
// the working directory is another one, and stays empty unless a test says otherwise.
class WriteTempFile : public XmlTest
{
protected:
    void SetUp() override
    {
        ASSERT_NE(m_named.Module(), nullptr);
        ASSERT_EQ(GetModuleHandleW(L"VelmUtil"), m_named.Module());
    }

    // The bytes of a file beside the module.
    std::string BytesOf(std::wstring_view name) const { return testkit::ReadBytes(m_beside / name); }

    // What was written beside the module.
    std::vector<std::wstring> Written() const
    {
        std::vector<std::wstring> names = EntriesOf(m_beside.Path());
        std::erase(names, L"VelmUtil.dll");
        return names;
    }

    static std::filesystem::path CopyOfNamedIn(const std::filesystem::path& folder)
    {
        std::filesystem::copy_file(ModulesFolder() / L"VelmUtil.dll", folder / L"VelmUtil.dll");
        return folder / L"VelmUtil.dll";
    }

    testkit::TempFolder m_beside;
    testkit::TempFolder m_working;
    CWorkingDirectory m_directory{m_working.Path()};
    CLoadedModule m_named{CopyOfNamedIn(m_beside.Path())};
};

class WriteTempFileWithoutModule : public XmlTest
{
protected:
    void SetUp() override { ASSERT_EQ(GetModuleHandleW(L"VelmUtil"), nullptr); }

    testkit::TempFolder m_working;
    CWorkingDirectory m_directory{m_working.Path()};
};

} // namespace

TEST_F(GetStringFromResource, GivesTheTextOfTheNamedModule)
{
    EXPECT_EQ(StringFrom(101), L"<rules from='named module'/>");
}

TEST_F(GetStringFromResource, GivesTextThatIsNotWellFormed)
{
    EXPECT_EQ(StringFrom(102), L"<rules>");
    EXPECT_EQ(StringFrom(110), L" \t\r\n");
}

TEST_F(GetStringFromResource, GivesNothingWithoutText)
{
    EXPECT_EQ(StringFrom(103), L"");
    EXPECT_EQ(StringFrom(104), L"");
    EXPECT_EQ(StringFrom(999), L"");
    EXPECT_EQ(StringFrom(111), L"") << "the program has it, the module has not";
    EXPECT_EQ(StringFrom(101, L"OTHER"), L"");
    EXPECT_EQ(StringFrom(101, L""), L"");
    EXPECT_EQ(StringFrom(0x650000), L"");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(GetStringFromResource, UsesTheLowSixteenBitsOfTheId)
{
    for (const unsigned __int64 high : {0x10000ull, 0xFFFF0000ull, 0x100000000ull, 0xFFFFFFFFFFFF0000ull})
        EXPECT_EQ(StringFrom(high + 101), L"<rules from='named module'/>") << high;
    EXPECT_EQ(StringFrom(UINT64_MAX), L"<rules from='65535'/>");
    EXPECT_EQ(StringFrom(40000), L"<rules from='40000'/>");
}

TEST_F(GetStringFromResource, TellsResourcesOfOneIdApartByTheType)
{
    EXPECT_EQ(StringFrom(101, L"RULES"), L"<rules from='another type'/>");
    EXPECT_EQ(StringFrom(101, L"#10"), L"<rules from='raw data'/>");
}

TEST_F(GetStringFromResource, EndsTheTextAtTheFirstZeroByte)
{
    EXPECT_EQ(StringFrom(107), L"<rules from='before the end'/>");
}

TEST_F(GetStringFromResource, EndsTheTextWithTheResourceWhenThereIsNoZeroByte)
{
    ASSERT_EQ(ByteBehind(m_named.Module(), 105, L"XML"), '<');
    EXPECT_EQ(StringFrom(105), L"<rules from='without an end'  />");
}

TEST_F(GetStringFromResource, ReadsTheBytesInTheAnsiCodePage)
{
    EXPECT_EQ(StringFrom(108), AnsiText("<rules from='\xE9\x80'/>"));
    EXPECT_EQ(StringFrom(109), AnsiText("<?xml version='1.0' encoding='UTF-8'?><rules from='\xC3\xA9'/>"));
    EXPECT_EQ(StringFrom(112), AnsiText("\xEF\xBB\xBF<rules/>"));
    if (GetACP() == 1252) {
        EXPECT_EQ(StringFrom(108), L"<rules from='\u00E9\u20AC'/>");
    }
}

TEST_F(GetStringFromResource, NeedsNoCom)
{
    std::wstring text;
    OnFreshThread([&] { text = StringFrom(101); });
    EXPECT_EQ(text, L"<rules from='named module'/>");
}

TEST_F(GetStringFromResourceWithoutModule, SearchesTheProgram)
{
    EXPECT_EQ(StringFrom(101), L"<rules from='program'/>");
    EXPECT_EQ(StringFrom(102), L"");
}

TEST_F(WriteTempFile, WritesTheFirstHalfOfTheTextsBytesBesideTheNamedModule)
{
    Write(L"abcd", L"rule");
    EXPECT_THAT(Written(), ElementsAre(L"rule.xsl"));
    EXPECT_EQ(BytesOf(L"rule.xsl"), "a\0b\0"sv);
    EXPECT_THAT(EntriesOf(m_working.Path()), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, FindsTheModulesFolderFromAnotherDrive)
{
    if (testkit::ProgramFolder().root_name() == m_beside.Path().root_name())
        GTEST_SKIP() << "the program and the files of its tests lie on one drive";
    const CWorkingDirectory elsewhere(testkit::ProgramFolder());
    Write(L"abcd", L"rule");
    EXPECT_THAT(Written(), ElementsAre(L"rule.xsl"));
}

TEST_F(WriteTempFile, CutsACharacterOfATextOfOddLength)
{
    Write(L"abc", L"three");
    EXPECT_EQ(BytesOf(L"three.xsl"), "a\0b"sv);
    Write(L"a", L"one");
    EXPECT_EQ(BytesOf(L"one.xsl"), "a"sv);
    Write(L"\u6F22a\u20AC", L"wide");
    EXPECT_EQ(BytesOf(L"wide.xsl"), "\x22\x6F\x61"sv);
}

TEST_F(WriteTempFile, CountsTheUnitsOfUtf16)
{
    Write(L"\xD83D\xDE00", L"pair"); // U+1F600
    EXPECT_EQ(BytesOf(L"pair.xsl"), "\x3D\xD8"sv);
}

TEST_F(WriteTempFile, WritesZerosAndLineEndsAsTheyAre)
{
    Write(Text(L"a\0bcde"sv), L"zeros");
    EXPECT_EQ(BytesOf(L"zeros.xsl"), "a\0\0\0b\0"sv);
    Write(L"\n\r\n\u0A1A....", L"lines");
    EXPECT_EQ(BytesOf(L"lines.xsl"), "\n\0\r\0\n\0\x1A\x0A"sv);
}

TEST_F(WriteTempFile, MakesAnEmptyFileOfAnEmptyText)
{
    Write(L"", L"empty");
    EXPECT_THAT(Written(), ElementsAre(L"empty.xsl"));
    EXPECT_EQ(BytesOf(L"empty.xsl"), "");
}

TEST_F(WriteTempFile, WritesALongTextWhole)
{
    CString text;
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        text += static_cast<wchar_t>(L'a' + i % 26);
    for (int i = 0; i < 50000; ++i) {
        bytes += static_cast<char>('a' + i % 26);
        bytes += '\0';
    }
    Write(text, L"long");
    EXPECT_TRUE(BytesOf(L"long.xsl") == bytes);
}

TEST_F(WriteTempFile, ReplacesAnExistingFile)
{
    testkit::WriteBytes(m_beside / L"rule.xsl", "a longer file than the new one");
    Write(L"ab", L"rule");
    EXPECT_EQ(BytesOf(L"rule.xsl"), "a\0"sv);
    Write(L"", L"rule");
    EXPECT_EQ(BytesOf(L"rule.xsl"), "");
}

TEST_F(WriteTempFile, LeavesAReadOnlyFileAlone)
{
    const std::filesystem::path file = m_beside / L"rule.xsl";
    testkit::WriteBytes(file, "as it was");
    const CReadOnly readOnly(file);
    if (CFileHandle(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE).IsOpen())
        GTEST_SKIP() << "the platform lets this user write to read-only files";
    Write(L"abcd", L"rule");
    EXPECT_EQ(BytesOf(L"rule.xsl"), "as it was");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, LeavesAFileAloneThatIsOpenElsewhere)
{
    testkit::WriteBytes(m_beside / L"rule.xsl", "as it was");
    {
        const CFileHandle reader(m_beside / L"rule.xsl", GENERIC_READ, FILE_SHARE_READ);
        ASSERT_TRUE(reader.IsOpen());
        Write(L"abcd", L"rule");
        EXPECT_EQ(BytesOf(L"rule.xsl"), "as it was");
    }
    Write(L"abcd", L"rule");
    EXPECT_EQ(BytesOf(L"rule.xsl"), "a\0b\0"sv);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, LeavesAFolderOfThatNameAlone)
{
    std::filesystem::create_directory(m_beside / L"rule.xsl");
    Write(L"abcd", L"rule");
    EXPECT_TRUE(std::filesystem::is_directory(m_beside / L"rule.xsl"));
    EXPECT_THAT(Written(), ElementsAre(L"rule.xsl"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, ClosesTheFile)
{
    Write(L"abcd", L"rule");
    EXPECT_TRUE(CFileHandle(m_beside / L"rule.xsl", GENERIC_READ | GENERIC_WRITE, 0).IsOpen());
}

TEST_F(WriteTempFile, PutsTheExtensionBehindWhateverTheNameIs)
{
    Write(L"ab", L"rule.xml");
    Write(L"ab", L"rule.xsl");
    Write(L"ab", L"Gr\u00F6\u00DFe \u0416 \u6F22");
    Write(L"ab", L"");
    EXPECT_THAT(Written(), testing::UnorderedElementsAre(L"rule.xml.xsl", L"rule.xsl.xsl",
                                                         L"Gr\u00F6\u00DFe \u0416 \u6F22.xsl", L".xsl"));
}

TEST_F(WriteTempFile, TakesAPathInTheNameFromTheModulesFolder)
{
    std::filesystem::create_directory(m_beside / L"sub");
    Write(L"abcd", L"sub\\rule");
    EXPECT_THAT(Written(), testing::UnorderedElementsAre(L"sub", L"sub\\rule.xsl"));
    EXPECT_EQ(BytesOf(L"sub\\rule.xsl"), "a\0b\0"sv);
}

TEST_F(WriteTempFile, MakesNoFolder)
{
    Write(L"abcd", L"sub\\rule");
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, WritesNowhereForANameWithADrive)
{
    Write(L"abcd", PathOf(L"rule"));
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(EntriesOf(m_folder.Path()), IsEmpty());
    EXPECT_THAT(EntriesOf(m_working.Path()), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, WritesNowhereForANameThatNoFileCanHave)
{
    for (const wchar_t* name : {L"a*b", L"a?b", L"a|b", L"a\"b", L"a<b"}) {
        Write(L"abcd", name);
        EXPECT_THAT(Written(), IsEmpty()) << testkit::Quoted(name);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, TakesAPathOf259Characters)
{
    const size_t folderLength = (m_beside / L"").wstring().size();
    const std::wstring name(259 - folderLength - 4, L'n');
    ASSERT_LE(name.size() + 4, 255u);
    Write(L"abcd", name.c_str());
    EXPECT_THAT(Written(), ElementsAre(name + L".xsl"));
    EXPECT_EQ(BytesOf(name + L".xsl"), "a\0b\0"sv);
}

// Whether a file may have so long a path is the platform's matter; under a shorter one it must not appear.
TEST_F(WriteTempFile, CutsNoPathThatIsTooLong)
{
    const size_t folderLength = (m_beside / L"").wstring().size();
    const std::wstring sub(240 - folderLength, L'd');
    const std::wstring name = sub + L"\\" + std::wstring(60, L'n');
    std::filesystem::create_directory(m_beside / sub);
    const bool isPossible = CanMakeFile(m_beside / (name + L".xsl"));
    Write(L"abcd", name.c_str());
    if (isPossible) {
        EXPECT_THAT(Written(), testing::UnorderedElementsAre(sub, name + L".xsl"));
        EXPECT_EQ(BytesOf(name + L".xsl"), "a\0b\0"sv);
    } else {
        EXPECT_THAT(Written(), ElementsAre(sub));
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, WritesNowhereForANameThatIsTooLong)
{
    for (const int length : {260, 300, 1000, 33000, 100000}) {
        Write(L"abcd", CString(L'n', length));
        EXPECT_THAT(Written(), IsEmpty()) << length;
    }
    EXPECT_THAT(EntriesOf(m_working.Path()), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFile, NeedsNoCom)
{
    OnFreshThread([] { Write(L"abcd", L"rule"); });
    EXPECT_EQ(BytesOf(L"rule.xsl"), "a\0b\0"sv);
}

TEST_F(WriteTempFile, LeavesTheObjectAsItWas)
{
    CXMLFile file = Loaded("<rules/>");
    const IXMLDOMDocument2Ptr document = file.m_pXMLDoc;
    (file.*MemberOf(TempFileWriter()))(L"abcd", L"rule");
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), document.GetInterfacePtr());
    EXPECT_EQ(file.m_strXMLFilePath, PathOf(L"document.xml"));
    EXPECT_EQ(file.m_strExtra, L"");
}

TEST_F(WriteTempFileWithoutModule, WritesIntoTheWorkingDirectory)
{
    Write(L"abcd", L"rule");
    EXPECT_THAT(EntriesOf(m_working.Path()), ElementsAre(L"rule.xsl"));
    EXPECT_EQ(testkit::ReadBytes(m_working / L"rule.xsl"), "a\0b\0"sv);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteTempFileWithoutModule, TakesAWholePathAsTheName)
{
    Write(L"abcd", PathOf(L"rule"));
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"rule.xsl"), "a\0b\0"sv);
    EXPECT_THAT(EntriesOf(m_working.Path()), IsEmpty());
}

TEST_F(WriteTempFileWithoutModule, WritesNowhereForANameThatIsTooLong)
{
    for (const int length : {260, 300, 1000, 33000, 100000}) {
        Write(L"abcd", CString(L'n', length));
        EXPECT_THAT(EntriesOf(m_working.Path()), IsEmpty()) << length;
    }
    EXPECT_THAT(Messages(), IsEmpty());
}
