// Names of files that a parser may take for addresses, and so for other files: of these, none that
// declares entities comes through under the name of another.
#include "HostileTest.h"

#include <optional>

namespace
{

// Escapes of a blank, of a number sign and of an escape, and what each name comes to without them or
// without what looks like a fragment.
const wchar_t* const Names[] = {
    L"a",   L"a#b.xml", L"a%23b.xml", L"a%2523b.xml", L"a%3Fb.xml",   L"a%00b.xml",
    L"a b", L"a%20b",   L"a b.xml",   L"a%20b.xml",   L"a%2520b.xml", L"a%20b#c.xml",
};

class HostileName : public HostileTest
{
protected:
    // A document that says which file it is in.
    void WriteHarmless(const wchar_t* name)
    {
        testkit::WriteBytes(m_folder / name, "<r from='" + testkit::Utf8(name) + "'/>");
    }
    void WriteHostile(const wchar_t* name)
    {
        testkit::WriteBytes(m_folder / name, "<!DOCTYPE r [<!ENTITY e 'abc'>]><r from='hostile'>&e;</r>");
    }

    static std::optional<std::wstring> FromOf(CXMLFile& file)
    {
        const IXMLDOMNodePtr root = Find(file.m_pXMLDoc, L"/r");
        return root ? AttributeValue(root, L"from") : std::nullopt;
    }

    // Which file the parser takes for a path, past the checks of the library; none if it finds none.
    std::optional<std::wstring> TakenByParser(const std::wstring& path)
    {
        CXMLFile file;
        file.LoadFileFromRes();
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        EXPECT_TRUE(SUCCEEDED(file.m_pXMLDoc->load(_variant_t(path.c_str()), &isLoaded)));
        return FromOf(file);
    }

    std::optional<std::wstring> Loading(const std::wstring& path)
    {
        CXMLFile file(path.c_str());
        const bool isLoaded = file.LoadFile();
        const std::optional<std::wstring> from = FromOf(file);
        if (from)
            EXPECT_TRUE(isLoaded);
        else
            ExpectNothingLoaded(file, isLoaded);
        return from;
    }

    // The names as paths with slashes of both kinds and as addresses.
    std::vector<std::wstring> Paths() const
    {
        std::wstring slashed = m_folder.Path().wstring();
        std::replace(slashed.begin(), slashed.end(), L'\\', L'/');
        std::vector<std::wstring> paths;
        for (const wchar_t* name : Names) {
            paths.push_back((m_folder / name).wstring());
            paths.push_back(slashed + L"/" + name);
            paths.push_back(L"file:///" + slashed + L"/" + name);
        }
        return paths;
    }

    // The same with characters that a reader of addresses may pass over.
    std::vector<std::wstring> PathsWithFillers() const
    {
        std::vector<std::wstring> paths;
        for (const std::wstring& path : Paths())
            for (const wchar_t* filler : {L" ", L"\t", L"\r\n", L"\x01", L"\x7F"})
                for (const size_t place : {size_t{0}, size_t{1}, path.size() - 1, path.size()})
                    paths.push_back(std::wstring(path).insert(place, filler));
        return paths;
    }
};

} // namespace

TEST_F(HostileName, HarmlessFilesAreTakenAsTheParserTakesThem)
{
    for (const wchar_t* name : Names)
        WriteHarmless(name);
    for (const std::wstring& path : Paths()) {
        EXPECT_EQ(Loading(path), TakenByParser(path)) << testkit::Quoted(path);
    }
}

TEST_F(HostileName, AHarmlessFileAloneIsTakenAsTheParserTakesIt)
{
    for (const wchar_t* name : Names) {
        WriteHarmless(name);
        for (const std::wstring& path : Paths()) {
            EXPECT_EQ(Loading(path), TakenByParser(path)) << testkit::Quoted(path);
        }
        std::filesystem::remove(m_folder / name);
    }
}

TEST_F(HostileName, NoneBringsInTheOnlyFileIfThatDeclaresEntities)
{
    for (const wchar_t* hostile : Names) {
        SCOPED_TRACE(testkit::Quoted(hostile));
        WriteHostile(hostile);
        for (const std::wstring& path : Paths()) {
            EXPECT_EQ(Loading(path), std::nullopt) << testkit::Quoted(path);
        }
        std::filesystem::remove(m_folder / hostile);
    }
}

TEST_F(HostileName, WithFillersNoneBringsInAFileThatDeclaresEntities)
{
    for (const wchar_t* name : {L"a", L"a b.xml", L"a#b.xml"})
        WriteHostile(name);
    for (const std::wstring& path : PathsWithFillers()) {
        EXPECT_EQ(Loading(path), std::nullopt) << testkit::Quoted(path);
    }
}

TEST_F(HostileName, NoneBringsInAFileThatDeclaresEntitiesBesideAnother)
{
    for (const wchar_t* harmless : Names) {
        WriteHarmless(harmless);
        for (const wchar_t* hostile : Names) {
            if (hostile == harmless)
                continue;
            SCOPED_TRACE(testkit::Quoted(hostile) + " beside " + testkit::Quoted(harmless));
            WriteHostile(hostile);
            for (const wchar_t* name : Names) {
                const std::optional<std::wstring> from = Loading((m_folder / name).wstring());
                EXPECT_TRUE(!from || from == harmless) << testkit::Quoted(name);
            }
            std::filesystem::remove(m_folder / hostile);
        }
        std::filesystem::remove(m_folder / harmless);
    }
}

TEST_F(HostileName, NoneBringsInAFileThatDeclaresEntitiesAmongAllOthers)
{
    for (const wchar_t* name : Names)
        WriteHarmless(name);
    for (const wchar_t* hostile : Names) {
        SCOPED_TRACE(testkit::Quoted(hostile));
        WriteHostile(hostile);
        for (const std::wstring& path : Paths()) {
            EXPECT_NE(Loading(path), L"hostile") << testkit::Quoted(path);
        }
        WriteHarmless(hostile);
    }
}

TEST_F(HostileName, WithANumberSignIsLoadedBesideAHostileFileOfItsFirstPart)
{
    WriteHarmless(L"a#b.xml");
    WriteHostile(L"a");
    EXPECT_EQ(Loading((m_folder / L"a#b.xml").wstring()), L"a#b.xml");
}

TEST_F(HostileName, WithABlankIsLoadedBesideAHostileFileWithTheEscape)
{
    WriteHarmless(L"a b.xml");
    WriteHostile(L"a%20b.xml");
    EXPECT_EQ(Loading((m_folder / L"a b.xml").wstring()), L"a b.xml");
}

TEST_F(HostileName, WithAnEscapeIsRefusedBesideAHostileFileWithTheBlank)
{
    WriteHarmless(L"a%20b.xml");
    WriteHostile(L"a b.xml");
    EXPECT_EQ(Loading((m_folder / L"a%20b.xml").wstring()), std::nullopt);
}

// A relative name, of which there may be a file beside the program and one in the current folder.
class HostileRelativeName : public HostileName
{
protected:
    static constexpr wchar_t Name[] = L"velm-relative.xml";

    void SetUp() override
    {
        HostileName::SetUp();
        m_formerFolder = std::filesystem::current_path();
        std::filesystem::current_path(m_folder.Path());
    }
    void TearDown() override
    {
        std::filesystem::current_path(m_formerFolder);
        std::filesystem::remove(Beside());
        HostileName::TearDown();
    }

    static std::filesystem::path Beside() { return testkit::ProgramFolder() / Name; }
    static void WriteBeside(const char* text) { testkit::WriteBytes(Beside(), text); }

    static constexpr char Harmless[] = "<r from='beside'/>";
    static constexpr char Hostile[] = "<!DOCTYPE r [<!ENTITY e 'abc'>]><r from='hostile'>&e;</r>";

private:
    std::filesystem::path m_formerFolder;
};

TEST_F(HostileRelativeName, IsRefusedForTheFileBesideTheProgram)
{
    WriteBeside(Hostile);
    EXPECT_EQ(Loading(Name), std::nullopt);
}

TEST_F(HostileRelativeName, IsRefusedForEitherFile)
{
    WriteBeside(Hostile);
    WriteHarmless(Name);
    EXPECT_EQ(Loading(Name), std::nullopt);
    WriteBeside(Harmless);
    WriteHostile(Name);
    EXPECT_EQ(Loading(Name), std::nullopt);
}

TEST_F(HostileRelativeName, OfHarmlessFilesLoadsWhatTheParserTakes)
{
    WriteBeside(Harmless);
    WriteHarmless(Name);
    EXPECT_NE(Loading(Name), std::nullopt);
    EXPECT_EQ(Loading(Name), TakenByParser(Name));
}
