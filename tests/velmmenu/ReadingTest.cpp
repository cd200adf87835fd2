// How the tool reads files: encodings, and what is no description.
#include "MenuToolTest.h"

#include "kit/Text.h"

namespace menutool
{

using testing::HasSubstr;
using testing::StartsWith;

class Reading : public MenuToolTest
{
protected:
    // A description whose menu has one item of that name.
    static std::string Text(const std::string& name, const std::string& declaration = {})
    {
        return declaration + "<D><Menus Name='M'><Menu Name='" + name + "' Cmd='x'/></Menus></D>";
    }

    static std::string Utf16(const std::string& utf8, bool isBigEndian)
    {
        std::string bytes;
        for (const wchar_t c : testkit::Wide(utf8)) {
            const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
            bytes += isBigEndian ? high : low;
            bytes += isBigEndian ? low : high;
        }
        return bytes;
    }

    void ExpectName(const std::string& name, const std::string& bytes)
    {
        const auto result = Run({L"show", Write(L"a.xml", bytes)});
        EXPECT_EQ(0u, result.exitCode) << result.output;
        EXPECT_THAT(result.output, HasSubstr("item \"" + name + "\""));
    }

    // Runs check and returns what it prints, the file's name and a colon taken off.
    std::string Unreadable(const std::string& bytes)
    {
        const std::wstring file = Write(L"a.xml", bytes);
        const auto result = Run({L"check", file});
        EXPECT_EQ(2u, result.exitCode) << result.output;
        const std::string prefix = testkit::Utf8(file) + ":";
        EXPECT_THAT(result.output, StartsWith(prefix));
        return result.output.substr(std::min(prefix.size(), result.output.size()));
    }

    static inline const std::string Slope = "\xD0\x9E\xC3\x9C\xE2\x80\xB0"; // three letters of three scripts
};

TEST_F(Reading, Utf8IsTakenWithAndWithoutMark)
{
    ExpectName(Slope, Text(Slope));
    ExpectName(Slope, "\xEF\xBB\xBF" + Text(Slope));
    ExpectName(Slope, Text(Slope, "<?xml version='1.0' encoding='utf-8'?>"));
}

TEST_F(Reading, Utf16IsTakenInBothByteOrdersWithAndWithoutMark)
{
    const std::string text = Text(Slope, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>");
    ExpectName(Slope, "\xFF\xFE" + Utf16(text, false));
    ExpectName(Slope, "\xFE\xFF" + Utf16(text, true));
    ExpectName(Slope, Utf16(text, false));
    ExpectName(Slope, Utf16(text, true));
}

TEST_F(Reading, TheDeclaredEncodingIsTaken)
{
    ExpectName("\xC3\x9C\xC2\xA9", Text("\xDC\xA9", "<?xml version='1.0' encoding='ISO-8859-1'?>"));
    ExpectName("\xE2\x82\xAC", Text("\x80", "<?xml version='1.0' encoding='windows-1252'?>"));
}

TEST_F(Reading, WhatFollowsAZeroByteIsNoPartOfADescription)
{
    ExpectName("A", Text("A") + std::string("\0", 1));
    ExpectName("A", Text("A") + std::string("\0\xFF<", 3));
}

TEST_F(Reading, LinesAreCountedBehindBlanksAndLineEndsOfBothKinds)
{
    EXPECT_THAT(Check("\n \r\n<D>\r\n" + std::string(CleanMenu) + "\r\n\n<Toolbars Name='T'\r\n/></D>"),
                testing::ElementsAre("6: there is no Toolbar element: an empty toolbar is built"));
}

TEST_F(Reading, AMissingFileCannotBeRead)
{
    const auto result = Run({L"check", NameOf(L"nowhere.xml")});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, HasSubstr("nowhere.xml: cannot be opened: "));
}

TEST_F(Reading, AFolderCannotBeRead)
{
    EXPECT_EQ(2u, Run({L"check", m_folder.Path().wstring()}).exitCode);
}

TEST_F(Reading, ATextThatIsNotWellFormedIsToldOfWithLineAndReason)
{
    const std::string told = Unreadable("<D>\n<a>\n</b>\n</D>");
    EXPECT_THAT(told, StartsWith("3: "));
    EXPECT_THAT(told, HasSubstr("tag"));
    EXPECT_THAT(Unreadable("\n\n<D>\n<a b='1' b='2'/></D>"), StartsWith("4: "));
    EXPECT_THAT(Unreadable("<?xml version='1.0' encoding='windows-1252'?>\n<D>\n\n<a b=1/></D>"),
                StartsWith("4: "));
}

TEST_F(Reading, AnEmptyFileIsToldOf)
{
    EXPECT_EQ("1: there is nothing but white space\n", Unreadable(""));
    EXPECT_EQ("1: there is nothing but white space\n", Unreadable(" \r\n"));
}

TEST_F(Reading, BlanksBeforeTheDeclarationAreToldOf)
{
    EXPECT_EQ("1: the XML declaration does not stand at the very beginning\n",
              Unreadable("\n<?xml version='1.0'?><D/>"));
}

TEST_F(Reading, BytesThatAreNotOfTheEncodingAreToldOf)
{
    EXPECT_EQ(" is not valid UTF-8\n", Unreadable(Text("\xDC")));
    EXPECT_EQ(" declares the encoding UTF-16, but is not in it\n",
              Unreadable(Text("A", "<?xml version='1.0' encoding='UTF-16'?>")));
    EXPECT_EQ(" is UTF-16 with half a character at its end\n", Unreadable("\xFF\xFE<"));
    EXPECT_EQ(" declares the encoding x-nonsense, which is not known here\n",
              Unreadable(Text("A", "<?xml version='1.0' encoding='x-nonsense'?>")));
}

TEST_F(Reading, ADocumentTypeIsAFindingAndEndsTheCheck)
{
    EXPECT_THAT(
        Check("<!-- <!DOCTYPE x> -->\n<!DOCTYPE D [<!ENTITY e 'x'>]>\n<D/>"),
        testing::ElementsAre("2: a document type declaration stands here: the platform's parser refuses "
                             "it by default, and nothing is built; the rest was not checked"));
}

// Entities that name each other, with which a parser is busy for longer than this program may run.
TEST_F(Reading, EntitiesAreNotGivenToTheParser)
{
    std::string entities = "<!ENTITY % p0 \"<!ENTITY e 'abc'>\">\n";
    for (int i = 1; i <= 10; ++i) {
        entities += "<!ENTITY % p" + std::to_string(i) + " \"";
        for (int j = 0; j < 10; ++j)
            entities += "&#37;p" + std::to_string(i - 1) + ";";
        entities += "\">\n";
    }
    const std::string text = "\n<!DOCTYPE D [" + entities + "%p10;]>\n<D>&e;</D>";
    EXPECT_THAT(Check(text), testing::ElementsAre(testing::StartsWith("2: a document type declaration")));
    const auto shown = Run({L"show", NameOf(L"description.xml")});
    EXPECT_EQ(1u, shown.exitCode);
    EXPECT_THAT(shown.output, HasSubstr("MenuToolbar XML is not loaded"));
}

} // namespace menutool
