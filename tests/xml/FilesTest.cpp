// Files as they are met with: names, and targets that cannot be written.
#include "FilesTest.h"
#include "kit/LeakGate.h"

#include <memory>
#include <utility>

namespace
{

using testing::IsEmpty;

using FileName = XmlFiles;

// A target that may refuse to be written, with a document to write to it.
class SaveTarget : public XmlFiles
{
protected:
    static constexpr char Old[] = "<r a=\"old\"/>";

    // Saves to the path, which must be refused, and works on with the same document.
    void ExpectRefused(const wchar_t* name)
    {
        CXMLFile file = Loaded(Root("new"), L"source.xml");
        file.SetXMLFilePath(PathOf(name));
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.SaveDocument(); })));
        EXPECT_EQ(AttributeOf(file), L"new");
        file.SetXMLFilePath(PathOf(L"elsewhere.xml"));
        file.SaveDocument();
        EXPECT_EQ(WithoutLineEnds(testkit::ReadBytes(m_folder / L"elsewhere.xml")), Root("new"));
        EXPECT_THAT(Messages(), IsEmpty());
    }
};

struct CloseTheHandle
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseTheHandle>;

// Null if the file cannot be opened so.
Handle Opened(const wchar_t* path, DWORD access, DWORD share, DWORD disposition = OPEN_EXISTING)
{
    const HANDLE handle =
        CreateFileW(path, access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return Handle(handle != INVALID_HANDLE_VALUE ? handle : nullptr);
}

// Of a name that is too long for a path, Wine's parser makes an address, and the part that reads addresses
// keeps its window for as long as the thread lives.
constexpr char KeptWindow[] = "the platform's reader of addresses keeps one window for each thread";

// A folder whose full name is longer than the 260 characters that many functions take.
class CDeepFolder
{
public:
    explicit CDeepFolder(const std::filesystem::path& base) : m_path(base)
    {
        for (int level = 0; level < 3; ++level) {
            m_path += L"\\" + std::wstring(100, static_cast<wchar_t>(L'a' + level));
            EXPECT_TRUE(CreateDirectoryW(Unlimited(m_path).c_str(), nullptr));
            m_made.push_back(m_path);
        }
    }
    ~CDeepFolder()
    {
        DeleteFileW(Unlimited(File()).c_str());
        for (; !m_made.empty(); m_made.pop_back())
            RemoveDirectoryW(Unlimited(m_made.back()).c_str());
    }
    CDeepFolder(const CDeepFolder&) = delete;
    CDeepFolder& operator=(const CDeepFolder&) = delete;

    std::wstring File() const { return m_path + L"\\document.xml"; }
    std::string ReadFile() const
    {
        std::string bytes(1000, '\0');
        DWORD count = 0;
        const Handle file = Opened(Unlimited(File()).c_str(), GENERIC_READ, FILE_SHARE_READ);
        EXPECT_TRUE(file && ::ReadFile(file.get(), bytes.data(), 1000, &count, nullptr));
        bytes.resize(count);
        return bytes;
    }
    void WriteFile(std::string_view bytes) const
    {
        DWORD count = 0;
        const Handle file = Opened(Unlimited(File()).c_str(), GENERIC_WRITE, 0, CREATE_ALWAYS);
        EXPECT_TRUE(file &&
                    ::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
    }

private:
    static std::wstring Unlimited(const std::wstring& path) { return L"\\\\?\\" + path; }

    std::wstring m_path;
    std::vector<std::wstring> m_made;
};

} // namespace

TEST_F(FileName, MayHoldBlanksNumberSignsAndLettersBeyondAscii)
{
    for (const wchar_t* name :
         {L"with blanks in it.xml", L" leading.xml", L"a#b.xml", L"#.xml", L"a&b;c='d'.xml",
          L"\u00FCn\u00EFc\u00F6d\u00E9.xml", L"\u65E5\u672C\u8A9E.xml", L"\U0001F600.xml", L"noextension",
          L"two.dots.xml", L"UPPER.XML", L"a+b,c(d)[e]{f}.xml"})
    {
        SCOPED_TRACE(testkit::Utf8(name));
        CXMLFile file = Loaded(Root("old"), name);
        EXPECT_EQ(AttributeOf(file), L"old");
        SetAttribute(file, L"new");
        file.SaveDocument();
        EXPECT_EQ(WithoutLineEnds(testkit::ReadBytes(m_folder / name)), Root("new"));
        EXPECT_TRUE(file.LoadFile());
        EXPECT_EQ(AttributeOf(file), L"new");
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileName, MayLieInFoldersOfSuchNames)
{
    for (const wchar_t* name : {L"with blanks", L"a#b", L"\u00FCml\u00E4ut", L"\u65E5\u672C"}) {
        SCOPED_TRACE(testkit::Utf8(name));
        std::filesystem::create_directory(m_folder / name);
        const std::wstring path = std::wstring(name) + L"\\document #1.xml";
        CXMLFile file = Loaded(Root("old"), path);
        SetAttribute(file, Beyond.c_str());
        file.SaveDocument();
        EXPECT_EQ(WithoutLineEnds(testkit::ReadBytes(m_folder / path)), Root(BeyondUtf8));
        EXPECT_TRUE(file.LoadFile());
        EXPECT_EQ(AttributeOf(file), Beyond);
    }
}

TEST_F(FileName, MayHaveDotsAndForwardSlashes)
{
    std::filesystem::create_directory(m_folder / L"sub");
    testkit::WriteBytes(m_folder / L"document.xml", Root("1"));
    CString path = PathOf(L"sub/../document.xml");
    for (int i = 0; i < 2; ++i, path.Replace(L'\\', L'/')) {
        CXMLFile file(path);
        EXPECT_TRUE(file.LoadFile()) << testkit::Quoted(path.GetString());
        EXPECT_EQ(AttributeOf(file), L"1");
    }
}

TEST_F(FileName, WithAnEscapeIsTakenAsItStandsOrNotFound)
{
    testkit::WriteBytes(m_folder / L"a%20b.xml", Root("escape"));
    CXMLFile file(PathOf(L"a%20b.xml"));
    if (file.LoadFile())
        EXPECT_EQ(AttributeOf(file), L"escape");
    else
        ExpectEmptyDocument(file);
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"a%20b.xml"), Root("escape"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileName, LongerThan260CharactersIsLoadedOrNotFound)
{
    testkit::AllowGrowth(testkit::Windows, 1, KeptWindow);
    const CDeepFolder deep(m_folder.Path());
    ASSERT_GT(deep.File().size(), 260U);
    deep.WriteFile(Root("deep"));
    CXMLFile file(CString(deep.File().c_str()));
    if (file.LoadFile())
        EXPECT_EQ(AttributeOf(file), L"deep");
    else
        ExpectEmptyDocument(file);
    EXPECT_EQ(file.m_strXMLFilePath, deep.File().c_str());
    EXPECT_EQ(deep.ReadFile(), Root("deep"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileName, LongerThan260CharactersIsSavedOrRefusedWithNothingLost)
{
    const CDeepFolder deep(m_folder.Path());
    deep.WriteFile(Root("old"));
    CXMLFile file = Loaded(Root("new"));
    file.SetXMLFilePath(deep.File().c_str());
    const bool isSaved = ComFailureOf([&] { file.SaveDocument(); }) == S_OK;
    EXPECT_EQ(WithoutLineEnds(deep.ReadFile()), Root(isSaved ? "new" : "old"));
    EXPECT_EQ(AttributeOf(file), L"new");
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"document.xml"), Root("new"));
}

TEST_F(FileName, LongerThanAnyFilesIsNotFound)
{
    testkit::AllowGrowth(testkit::Windows, 1, KeptWindow);
    CXMLFile file(PathOf(std::wstring(40000, L'x')));
    EXPECT_FALSE(file.LoadFile());
    ExpectEmptyDocument(file);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileName, LongerThanAnyFilesIsRefusedBySaving)
{
    CXMLFile file = Loaded(Root("1"));
    file.SetXMLFilePath(PathOf(std::wstring(40000, L'x')));
    EXPECT_TRUE(FAILED(ComFailureOf([&] { file.SaveDocument(); })));
    EXPECT_EQ(AttributeOf(file), L"1");
}

TEST_F(FileName, OfAFolderIsNotLoaded)
{
    std::filesystem::create_directory(m_folder / L"folder.xml");
    CXMLFile file(PathOf(L"folder.xml"));
    EXPECT_FALSE(file.LoadFile());
    ExpectEmptyDocument(file);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveTarget, ThatIsAFolderIsRefusedAndKept)
{
    std::filesystem::create_directory(m_folder / L"target.xml");
    testkit::WriteBytes(m_folder / L"target.xml\\inside.xml", Old);
    ExpectRefused(L"target.xml");
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"target.xml\\inside.xml"), Old);
}

TEST_F(SaveTarget, InAMissingFolderIsRefusedAndNotMade)
{
    ExpectRefused(L"missing\\target.xml");
    EXPECT_FALSE(std::filesystem::exists(m_folder / L"missing"));
}

TEST_F(SaveTarget, ThatIsOpenWithoutSharingIsNeitherLoadedNorChanged)
{
    testkit::WriteBytes(m_folder / L"target.xml", Old);
    {
        const Handle holder = Opened(PathOf(L"target.xml"), GENERIC_READ, 0);
        ASSERT_TRUE(holder);
        CXMLFile file(PathOf(L"target.xml"));
        EXPECT_FALSE(file.LoadFile());
        ExpectEmptyDocument(file);
        ExpectRefused(L"target.xml");
    }
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"target.xml"), Old);
}

TEST_F(SaveTarget, ThatIsOpenForOthersToReadIsLoadedButNotChanged)
{
    testkit::WriteBytes(m_folder / L"target.xml", Old);
    {
        const Handle holder = Opened(PathOf(L"target.xml"), GENERIC_READ, FILE_SHARE_READ);
        ASSERT_TRUE(holder);
        CXMLFile file(PathOf(L"target.xml"));
        EXPECT_TRUE(file.LoadFile());
        EXPECT_EQ(AttributeOf(file), L"old");
        ExpectRefused(L"target.xml");
    }
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"target.xml"), Old);
}

TEST_F(SaveTarget, ThatIsReadOnlyIsLoadedAndWrittenOnlyWhereThePlatformLetsAnybodyWriteIt)
{
    testkit::WriteBytes(m_folder / L"target.xml", Old);
    const CString path = PathOf(L"target.xml");
    ASSERT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_READONLY));
    CXMLFile file(path);
    EXPECT_TRUE(file.LoadFile());
    EXPECT_EQ(AttributeOf(file), L"old");
    // A superuser under Wine may.
    if (!Opened(path, GENERIC_WRITE, 0)) {
        ExpectRefused(L"target.xml");
        EXPECT_EQ(testkit::ReadBytes(m_folder / L"target.xml"), Old);
    } else {
        SetAttribute(file, L"new");
        EXPECT_EQ(ComFailureOf([&] { file.SaveDocument(); }), S_OK);
        EXPECT_EQ(WithoutLineEnds(testkit::ReadBytes(m_folder / L"target.xml")), Root("new"));
    }
    EXPECT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL));
}

TEST_F(SaveTarget, IsFreeAgainAfterLoadingAndSaving)
{
    CXMLFile file = Loaded(Root("1"));
    EXPECT_TRUE(Opened(PathOf(L"document.xml"), GENERIC_READ | GENERIC_WRITE, 0));
    file.SaveDocument();
    EXPECT_TRUE(Opened(PathOf(L"document.xml"), GENERIC_READ | GENERIC_WRITE, 0));
    testkit::WriteBytes(m_folder / L"document.xml", "<r>");
    EXPECT_FALSE(file.LoadFile());
    EXPECT_TRUE(Opened(PathOf(L"document.xml"), GENERIC_READ | GENERIC_WRITE, 0));
}

TEST_F(XmlFiles, ThatAreMalformedGiveFalseAndAnEmptyDocumentWithoutMessage)
{
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {""sv, " \r\n"sv, "no markup"sv, "<r>"sv, "<r></s>"sv, "<r/><r/>"sv, "<r a=1/>"sv,
          "<r a='1' a='2'/>"sv, "<r>&unknown;</r>"sv,
          "<r>"
          "\xFF\xFE\xFF</r>"sv,
          "<?xml version='1.0'?>"sv, "<?xml version='1.0' encoding='no-such-encoding'?><r/>"sv,
          "<?xml version='1.0' encoding='UTF-16'?><r/>"sv})
    {
        testkit::WriteBytes(m_folder / L"document.xml", text);
        CXMLFile file(PathOf(L"document.xml"));
        EXPECT_FALSE(file.LoadFile()) << text;
        ExpectEmptyDocument(file);
        EXPECT_EQ(testkit::ReadBytes(m_folder / L"document.xml"), text);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveTarget, ThatWasLongerKeepsNothingOfIt)
{
    testkit::WriteBytes(m_folder / L"target.xml", std::string(100000, 'x'));
    CXMLFile file = Loaded("<r/>");
    file.SetXMLFilePath(PathOf(L"target.xml"));
    file.SaveDocument();
    const std::string bytes = testkit::ReadBytes(m_folder / L"target.xml");
    EXPECT_TRUE(bytes.starts_with("<r/>"));
    EXPECT_EQ(bytes.find('x'), std::string::npos);
}

TEST_F(SaveTarget, OfAFailedLoadBecomesEmptyOrIsRefused)
{
    CXMLFile file(PathOf(L"missing.xml"));
    ASSERT_FALSE(file.LoadFile());
    if (ComFailureOf([&] { file.SaveDocument(); }) == S_OK) {
        const std::string bytes = testkit::ReadBytes(m_folder / L"missing.xml");
        EXPECT_EQ(bytes.find_first_not_of("\r\n"), std::string::npos) << bytes;
    } else if (std::filesystem::exists(m_folder / L"missing.xml")) {
        EXPECT_EQ(testkit::ReadBytes(m_folder / L"missing.xml"), "");
    }
    EXPECT_NE(file.m_pXMLDoc.GetInterfacePtr(), nullptr);
    EXPECT_THAT(Messages(), IsEmpty());
}
