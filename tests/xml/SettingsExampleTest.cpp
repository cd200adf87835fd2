// The example of docs/xml.md: settings saved and read back by one function.
#include "XmlTest.h"

#include "kit/SourceTree.h"

// The example is the whole of this file.
#include "SettingsExample.h"

namespace
{

class SettingsExample : public XmlTest
{
protected:
    void Exchange(Settings& settings, bool isReading)
    {
        CXMLFile file(PathOf(L"settings.xml"));
        file.m_bReadMode = isReading;
        ExchangeSettings(file, settings);
    }

    // What the file holds, read without the example.
    CString Stored(const wchar_t* xpath, std::wstring attribute)
    {
        CXMLFile file(PathOf(L"settings.xml"));
        EXPECT_TRUE(file.LoadFile());
        return file.GetAttrib(xpath, attribute.data());
    }

    void Write(std::string_view utf8) { testkit::WriteBytes(m_folder / L"settings.xml", utf8); }
};

TEST_F(SettingsExample, ReadsBackWhatItWrote)
{
    Settings written;
    written.font = L"Gr\u00F6\u00DFe & <Form>";
    written.height = -3.125;
    written.width = 1024;
    written.isVisible = false;
    Exchange(written, false);
    Settings read;
    Exchange(read, true);
    EXPECT_EQ(read.font, L"Gr\u00F6\u00DFe & <Form>");
    EXPECT_EQ(read.height, -3.125);
    EXPECT_EQ(read.width, 1024);
    EXPECT_FALSE(read.isVisible);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(SettingsExample, WritesASectionForEachGroupOfSettings)
{
    Settings settings;
    Exchange(settings, false);
    EXPECT_EQ(Stored(L"/Settings/Text", L"Font"), L"Arial");
    EXPECT_EQ(Stored(L"/Settings/Text", L"Height"), L"2.500");
    EXPECT_EQ(Stored(L"/Settings/Window", L"Width"), L"800");
    EXPECT_EQ(Stored(L"/Settings/Window", L"Visible"), L"1");
}

TEST_F(SettingsExample, WritingAgainReplacesTheValuesAndKeepsWhatElseIsThere)
{
    Write("<Settings><Window Width='1' X='7'/><Other Y='8'/></Settings>");
    Settings settings;
    Exchange(settings, false);
    EXPECT_EQ(Stored(L"/Settings[count(*)=3]/Window", L"Width"), L"800");
    EXPECT_EQ(Stored(L"/Settings/Window", L"X"), L"7");
    EXPECT_EQ(Stored(L"/Settings/Other", L"Y"), L"8");
    EXPECT_EQ(Stored(L"/Settings/Text", L"Font"), L"Arial");
}

TEST_F(SettingsExample, ReadingWithoutAFileChangesNothingAndMakesNone)
{
    Settings settings;
    settings.width = 5;
    Exchange(settings, true);
    EXPECT_EQ(settings.font, L"Arial");
    EXPECT_EQ(settings.height, 2.5);
    EXPECT_EQ(settings.width, 5);
    EXPECT_TRUE(settings.isVisible);
    EXPECT_FALSE(std::filesystem::exists(m_folder / L"settings.xml"));
    EXPECT_TRUE(Messages().empty());
}

TEST_F(SettingsExample, ReadingAMissingAttributeKeepsATextButZeroesTheRest)
{
    Write("<Settings><Text/><Window/></Settings>");
    Settings settings;
    Exchange(settings, true);
    EXPECT_EQ(settings.font, L"Arial");
    EXPECT_EQ(settings.height, 0);
    EXPECT_EQ(settings.width, 0);
    EXPECT_FALSE(settings.isVisible);
}

TEST_F(SettingsExample, ReadingAMissingSectionChangesNothingOfIt)
{
    Write("<Settings><Window Width='12' Visible='0'/></Settings>");
    Settings settings;
    Exchange(settings, true);
    EXPECT_EQ(settings.height, 2.5);
    EXPECT_EQ(settings.width, 12);
    EXPECT_FALSE(settings.isVisible);
}

TEST_F(SettingsExample, WritingReplacesAFileThatDoesNotLoad)
{
    Write("<Settings><Text");
    Settings settings;
    Exchange(settings, false);
    EXPECT_EQ(Stored(L"/Settings/Text", L"Font"), L"Arial");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(SettingsExample, APlaceThatCannotBeWrittenRaisesAComFailure)
{
    Settings settings;
    CXMLFile file(PathOf(L"no such folder\\settings.xml"));
    EXPECT_TRUE(FAILED(ComFailureOf([&] { ExchangeSettings(file, settings); })));
    EXPECT_TRUE(Messages().empty());
}

TEST(SettingsExamplePage, ShowsTheCodeThatIsTestedHere)
{
    const std::string code = testkit::SourceText(L"tests/xml/SettingsExample.h");
    EXPECT_NE(code.find("ExchangeSettings"), std::string::npos);
    EXPECT_EQ(testkit::FirstCodeOf(testkit::SourceText(L"docs/xml.md")), code);
}

TEST(SettingsExamplePage, ShowsCodeOfThirtyLinesAtMost)
{
    const std::string code = testkit::SourceText(L"tests/xml/SettingsExample.h");
    EXPECT_LE(std::count(code.begin(), code.end(), '\n'), 30);
}

} // namespace
